#pragma once

#include <Gallery/Pages/Page.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTViewController.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

namespace zr::gallery {

struct PageButton {
    NSString title;
    std::function<void()> action;
};

/// The contents of a page, in a column that scrolls: the description and whatever the page's `build` adds, one below
/// the other, and a log of what the component reported.
class PageView : public UIScrollView {
public:
    /// `screen`: whose view it is in; not kept.
    bool initWithFrame_screen(CGRect frame, ZRTViewController* screen);

    /// Once, when it is in the screen's view.
    void build(const Page& page);
    /// Shows the component in action without a touch; nothing on a page that shows it anyway.
    void showComponent();
    /// To be called before the page goes: puts away what is still shown on it.
    void close();

    /// @name For `build`
    /// @{
    ZRTViewController* screen() const { return m_screen; }
    /// Points between the left and the right margin.
    CGFloat contentWidth() const;
    void addText(const NSString& text);
    void addHeading(const NSString& text);
    void addButton(const NSString& title, std::function<void()> action);
    /// In a row, all of one width.
    void addButtons(const std::vector<PageButton>& buttons);
    /// Takes the view's height, and gives it the content's width.
    void addView(UIView* view);
    /// The card that `log` writes into.
    void addLog(const NSString& heading);
    /// A line below the others; the oldest goes when there is no room. Nothing on a page without a log.
    void log(const NSString& line);
    void setShowAction(std::function<void()> action) { m_showAction = std::move(action); }
    void setCloseAction(std::function<void()> action) { m_closeAction = std::move(action); }
    /// Kept as long as the page.
    void keep(const Ref<NSObject>& object) { m_kept.push_back(object); }
    /// @}

private:
    void place(UIView* view, CGFloat height, CGFloat spaceAfter);

    Weak<ZRTViewController> m_screen;
    Ref<UILabel> m_logLabel;
    std::vector<NSString> m_logLines;
    std::vector<Ref<NSObject>> m_kept;
    std::function<void()> m_showAction;
    std::function<void()> m_closeAction;
    CGFloat m_nextY = 0;
};

} // namespace zr::gallery
