#include <Gallery/List/PageCell.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kTitleTop = 8;
constexpr CGFloat kTitleHeight = 22;
constexpr CGFloat kDetailHeight = 18;

void moveLine(UILabel* label, CGFloat top, CGFloat height) {
    const CGRect frame = label->frame();
    label->setFrame(CGRectMake(frame.origin.x, top, frame.size.width, height));
}

} // namespace

bool PageCell::initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) {
    if (!ZRTableViewCell::initWithStyle_reuseIdentifier(style, reuseIdentifier))
        return false;
    zrImageView()->setContentMode(UIViewContentModeCenter);
    zrDetailTextLabel()->setFont(UIFont::systemFontOfSize(13));
    zrDetailTextLabel()->setNumberOfLines(1);
    setZrAccessoryType(ZRAccessoryTypeListIcon);
    return true;
}

void PageCell::showPage(const Page& page) {
    zrImageView()->setImage(UIImage::imageNamed(page.icon));
    zrTextLabel()->setText(page.title);
    zrDetailTextLabel()->setText(page.detail);
}

void PageCell::layoutSubviews() {
    ZRTableViewCell::layoutSubviews();
    moveLine(zrTextLabel(), kTitleTop, kTitleHeight);
    moveLine(zrDetailTextLabel(), kTitleTop + kTitleHeight, kDetailHeight);
}

} // namespace zr::gallery
