#include <Gallery/Look/Row.h>

#include <Gallery/Look/Look.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

namespace zr::gallery {

bool Row::initWithHeight_textLeft_isLast(CGFloat height, CGFloat textLeft, bool isLast) {
    const CGFloat width = UIScreen::mainScreen()->bounds().size.width;
    if (!initWithFrame(CGRectMake(0, 0, width, height)))
        return false;
    setBackgroundColor(UIColor::whiteColor());
    const CGFloat left = isLast ? 0 : textLeft;
    const auto line = Look::line(CGRectMake(left, height - Look::hairline(), width - left, Look::hairline()));
    line->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    addSubview(line);
    return true;
}

void Row::setHighlighted(bool highlighted) {
    TapControl::setHighlighted(highlighted);
    setBackgroundColor(highlighted ? Look::highlightColor() : UIColor::whiteColor());
}

} // namespace zr::gallery
