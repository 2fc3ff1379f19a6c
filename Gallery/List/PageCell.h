#pragma once

#include <Gallery/Pages/Page.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>

namespace zr::gallery {

/// One line of the list: icon, title, detail, and an arrow. Its two lines of text stand closer than the kit's, which
/// leave a detail the room for a second line.
class PageCell : public ZRTableViewCell {
public:
    /// Points.
    static constexpr CGFloat height = 56;

    bool initWithStyle_reuseIdentifier(UITableViewCellStyle style, const NSString& reuseIdentifier) override;

    void showPage(const Page& page);

    void layoutSubviews() override;
};

} // namespace zr::gallery
