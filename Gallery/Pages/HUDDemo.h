#pragma once

#include <Gallery/Look/Landscape.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRPlatform/Foundation/NSTimer.h>

namespace zr::gallery {

/// What an application does to a new HUD before it shows it.
using HUDSetup = std::function<void(ZRProgressHUD* hud)>;

/// Shows a HUD over a picture on a page, as its delegate, and writes what it is told into the page's log. The kinds of
/// HUD that need more than a setup derive from it.
class HUDDemo : public NSObject, public ZRProgressHUDDelegate {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage_setup(PageView* page, HUDSetup setup);

    /// Adds what the page shows.
    virtual void buildPage();
    /// Ignored while the HUD is still there.
    void show();
    void hide();
    /// Before the page goes.
    virtual void leave() {}

    void hudWasHidden(ZRProgressHUD* hud) override;

protected:
    PageView* page() const { return m_page; }
    /// Nil once it has gone.
    ZRProgressHUD* hud() const { return m_hud; }

    void addLandscape(CGFloat height);
    void addLog();
    /// Puts the texts that the sample texts have into their language.
    static void translateTexts(ZRProgressHUD* hud);

    /// Where the HUD is shown: over the picture.
    virtual UIView* hostView() const { return m_landscape; }
    virtual Ref<ZRProgressHUD> makeHUD();
    virtual void presentHUD(ZRProgressHUD* hud) { hud->show(true); }
    /// After the HUD has been shown, and after it has gone.
    virtual void hudIsShown(ZRProgressHUD*) {}
    virtual void hudIsGone() {}

private:
    Weak<PageView> m_page;
    Weak<ZRProgressHUD> m_hud;
    Ref<Landscape> m_landscape;
    HUDSetup m_setup;
};

/// Fills the HUD's indicator within two and a half seconds and hides the HUD then.
class ProgressHUDDemo : public HUDDemo {
public:
    ~ProgressHUDDemo() override { stop(); }

protected:
    void hudIsShown(ZRProgressHUD* hud) override;
    void hudIsGone() override { stop(); }

private:
    void step();
    void stop();

    Ref<NSTimer> m_timer;
    int m_percent = 0;
};

/// Lets a demo build its page, and keeps it there.
void addHUDDemo(PageView& page, const Ref<HUDDemo>& demo);

/// A demo of the class `Demo` on its own page: what `Page::build` asks for.
template <class Demo = HUDDemo>
std::function<void(PageView&)> showsHUD(const HUDSetup& setup) {
    return [setup](PageView& page) { addHUDDemo(page, make<Demo>(&HUDDemo::initWithPage_setup, &page, setup)); };
}

} // namespace zr::gallery
