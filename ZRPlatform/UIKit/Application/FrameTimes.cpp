#include <ZRPlatform/UIKit/Application/Internal/FrameTimes.h>

#include <ZRPlatform/UIKit/Images/UIBezierPath.h>
#include <ZRPlatform/UIKit/Images/UIColor.h>
#include <ZRPlatform/UIKit/Images/UIGraphics.h>
#include <ZRPlatform/UIKit/Images/UIImage.h>
#include <ZRPlatform/UIKit/Text/NSString+Drawing.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>

#include <algorithm>

namespace zr {

namespace {
constexpr CGRect kNote{{0, 0}, {116, 16}};
} // namespace

void FrameTimes::add(double milliseconds) {
    if (m_times.size() == rememberedFrames)
        m_times.pop_front();
    m_times.push_back(milliseconds);
}

double FrameTimes::last() const { return m_times.empty() ? 0 : m_times.back(); }

double FrameTimes::worst() const { return m_times.empty() ? 0 : *std::ranges::max_element(m_times); }

Ref<CGImage> FrameTimes::drawNote() const {
    UIGraphicsBeginImageContextWithOptions(kNote.size, false, 0);
    UIColor::colorWithWhite_alpha(0, 0.7)->setFill();
    UIBezierPath::bezierPathWithRoundedRect_cornerRadius(kNote, 4)->fill();
    UIColor::whiteColor()->setFill();
    drawInRect_withFont_lineBreakMode_alignment(NSString::stringWithFormat("%.1f ms, at most %.1f", last(), worst()),
                                                CGRectOffset(kNote, 0, 1), UIFont::systemFontOfSize(11),
                                                NSLineBreakByClipping, NSTextAlignmentCenter);
    const auto image = UIGraphicsGetImageFromCurrentImageContext();
    UIGraphicsEndImageContext();
    return image ? Ref<CGImage>(image->CGImage()) : nullptr;
}

} // namespace zr
