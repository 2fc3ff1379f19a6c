#pragma once

#include <ZRPlatform/UIKit/Views/UILabel.h>

#pragma GCC visibility push(default)
namespace zr {

/// The header or footer of a section: a line of text on a plain background. The table makes one for every title that
/// the data source gives; a delegate may make its own, and use them again through the table's queue.
class UITableViewHeaderFooterView : public UIView {
public:
    /// `reuseIdentifier`: nil for a view that serves one section only.
    virtual bool initWithReuseIdentifier(const NSString& reuseIdentifier);
    bool initWithFrame(CGRect frame) override;

    /// As given to the initialiser; nil for one that is not used again.
    const NSString& reuseIdentifier() const { return m_reuseIdentifier; }
    /// Fills the view, behind the text.
    UIView* contentView() const { return m_contentView; }
    /// In the middle of the height, 15 points from the sides.
    UILabel* textLabel() const { return m_textLabel; }
    /// Behind the content, as large as the view; nil at first.
    UIView* backgroundView() const { return m_backgroundView; }
    virtual void setBackgroundView(UIView* view);
    /// Called before the table hands the view out again. The base class does nothing.
    virtual void prepareForReuse() {}

    void layoutSubviews() override;

private:
    NSString m_reuseIdentifier;
    Ref<UIView> m_contentView;
    Ref<UILabel> m_textLabel;
    Ref<UIView> m_backgroundView;
};

} // namespace zr
#pragma GCC visibility pop
