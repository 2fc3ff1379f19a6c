#include <Gallery/Settings/ChoiceRow.h>

#include <Gallery/Look/Look.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kHeight = 44;

} // namespace

bool ChoiceRow::initWithName_isLast(const NSString& name, bool isLast) {
    if (!initWithHeight_textLeft_isLast(kHeight, Look::kMargin, isLast))
        return false;
    const CGFloat width = bounds().size.width;
    m_mark = make<UIImageView>(&UIImageView::initWithImage, UIImage::imageNamed("gallery_check.png"));
    const CGSize mark = m_mark->frame().size;
    m_mark->setFrame(CGRectMake(width - Look::kMargin - mark.width, Look::wholePixels((kHeight - mark.height) / 2),
                                mark.width, mark.height));
    m_mark->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin);
    addSubview(m_mark);
    setChosen(false);

    const auto label = Look::label(name, UIFont::systemFontOfSize(17), Look::titleColor());
    label->setFrame(CGRectMake(Look::kMargin, 0, width - 3 * Look::kMargin - mark.width, kHeight));
    label->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(label);
    return true;
}

} // namespace zr::gallery
