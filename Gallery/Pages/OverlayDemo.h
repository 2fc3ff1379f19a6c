#pragma once

#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRTAlertView/ZRBaseAlert.h>

namespace zr::gallery {

/// Shows an overlay from a page, as its delegate, and writes what it is told into the page's log. Each family of
/// overlays derives from it.
class OverlayDemo : public NSObject, public ZRTAlertViewDelegate {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page);

    /// Adds what the page shows.
    virtual void buildPage();
    /// Ignored while the overlay is still there.
    void show();
    /// Before the page goes: an overlay in a view on it goes along.
    void leave();

    void zrTAlertViewCancelButtonClicked(ZRBaseAlert* alert) override;
    void zrTAlertView_clickedButtonAtIndex(ZRBaseAlert* alert, NSInteger index) override;

protected:
    PageView* page() const { return m_page; }
    /// Nil once it has been dismissed.
    ZRBaseAlert* overlay() const { return m_overlay; }

    void addLog();

    virtual const char* showTitle() const = 0;
    virtual Ref<ZRBaseAlert> makeOverlay() = 0;
    /// The view on the page that the overlay is shown in; nil: a window of its own.
    virtual UIView* hostView() const { return nullptr; }
    virtual void presentOverlay(ZRBaseAlert* overlay);
    /// After the overlay has been shown, and before it goes.
    virtual void overlayIsShown() {}
    virtual void overlayWillGo() {}

private:
    Weak<PageView> m_page;
    Weak<ZRBaseAlert> m_overlay;
};

/// Lets a demo build its page, and keeps it there.
void addOverlayDemo(PageView& page, const Ref<OverlayDemo>& demo);

} // namespace zr::gallery
