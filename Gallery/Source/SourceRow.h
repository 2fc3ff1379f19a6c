#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Text/UIFont.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::gallery {

/// A row of a source view: a line of code behind its number, or a heading on a ground of its own.
class SourceRow : public UIView {
public:
    /// Of the numbers, with the gap to the code; points.
    static constexpr CGFloat gutterWidth = 44;

    bool initWithFrame(CGRect frame) override;

    /// `width`: points that the code takes.
    void showCode(const NSString& code, std::size_t number, CGFloat width, UIFont* font);
    /// As wide as the row.
    void showHeading(const NSString& heading);

private:
    Ref<UILabel> m_number;
    Ref<UILabel> m_text;
};

} // namespace zr::gallery
