#include <Gallery/List/PageRow.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kHeight = 56;
constexpr CGFloat kTextLeft = 57;
constexpr CGFloat kTextRight = 34;

/// Centred on the height of the row.
Ref<UIImageView> imageAt(CGFloat x, const char* name) {
    auto view = make<UIImageView>(&UIImageView::initWithImage, UIImage::imageNamed(name));
    const CGSize size = view->frame().size;
    view->setFrame(CGRectMake(x, Look::wholePixels((kHeight - size.height) / 2), size.width, size.height));
    return view;
}

} // namespace

bool PageRow::initWithPage_isLast(const Page& page, bool isLast) {
    if (!initWithHeight_textLeft_isLast(kHeight, kTextLeft, isLast))
        return false;
    const CGFloat width = bounds().size.width;
    addSubview(imageAt(Look::kMargin, page.icon));
    const auto disclosure = imageAt(width - Look::kMargin - 8, "gallery_disclosure.png");
    disclosure->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
    addSubview(disclosure);

    const CGFloat textWidth = width - kTextLeft - kTextRight;
    const auto title = Look::label(page.title, UIFont::systemFontOfSize(17), Look::titleColor());
    title->setFrame(CGRectMake(kTextLeft, 8, textWidth, 22));
    title->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(title);
    const auto detail = Look::label(page.detail, UIFont::systemFontOfSize(13), Look::detailColor());
    detail->setFrame(CGRectMake(kTextLeft, 30, textWidth, 18));
    detail->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(detail);
    return true;
}

} // namespace zr::gallery
