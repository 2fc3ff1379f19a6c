#include <Gallery/Look/Landscape.h>
#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRProgressHUD/ZRProgressHUD.h>
#include <ZRPlatform/Foundation/NSTimer.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "PARTS OF THE BAR";

// Back button

/// A screen that one cannot leave by its bar while it saves a picture.
class SavingDemo : public NSObject {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        return init();
    }
    ~SavingDemo() override { stop(); }

    void build() {
        m_picture = make<Landscape>(&UIView::initWithFrame, CGRectMake(0, 0, m_page->contentWidth(), 150));
        m_page->addView(m_picture);
        m_page->addButton("Save", [this] { save(); });
        m_page->addHeading("BACK BUTTON");
        m_page->addButtons({{"Hide", [this] { bar()->hiddenBackButtonAnimated(true); }},
                            {"Show", [this] { bar()->showBackButtonAnimated(true); }}});
        m_page->addButtons({{"Hide at once", [this] { bar()->hiddenBackButtonAnimated(false); }},
                            {"Show at once", [this] { bar()->showBackButtonAnimated(false); }}});
    }

    /// Ignored while it saves.
    void save() {
        if (m_timer)
            return;
        bar()->hiddenBackButton_animated(true, true);
        ZRProgressHUD::showHUDAddedTo_animated(m_picture, true)->setLabelText(SampleText::translated("Saving"));
        m_timer = NSTimer::scheduledTimerWithTimeInterval_repeats_block(2, false, [this](NSTimer*) { saved(); });
    }

private:
    ZRTNavigationBar* bar() { return m_page->screen()->tNavigationBar(); }

    void saved() {
        stop();
        ZRProgressHUD::hideHUDForView_animated(m_picture, true);
        bar()->hiddenBackButton_animated(false, true);
    }
    void stop() {
        if (m_timer)
            m_timer->invalidate();
        m_timer = nullptr;
    }

    Weak<PageView> m_page;
    Ref<UIView> m_picture;
    Ref<NSTimer> m_timer;
};

void buildBackPage(PageView& page) {
    const auto demo = make<SavingDemo>(&SavingDemo::initWithPage, &page);
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->save(); });
    demo->build();
}

// Background

/// Fades from the colour that it has.
class ColorField : public ZRShadowAnimationView {
public:
    bool initWithFrame(CGRect frame) override {
        if (!ZRShadowAnimationView::initWithFrame(frame))
            return false;
        setClipsToBounds(true);
        layer()->setCornerRadius(Look::kCornerRadius);
        setBackgroundColor(Look::barColor(Look::Hue::Green));
        return true;
    }
    void setDuration(double seconds) { m_duration = seconds; }
    void fadeTo(UIColor* color) { beginAnimationFromColor_toColor_duration(nullptr, color, m_duration); }

private:
    double m_duration = 1;
};

void buildShadowPage(PageView& page) {
    const auto field = make<ColorField>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), 180));
    page.addView(field);
    page.addHeading("FADE TO ONE COLOUR");
    std::vector<PageButton> flat, gradients, durations;
    for (const Look::Hue hue : Look::kHues) {
        flat.push_back({Look::name(hue), [field, hue] { field->fadeTo(Look::barColor(hue)); }});
        gradients.push_back({Look::name(hue), [field, hue] { field->fadeTo(Look::backgroundColor(hue)); }});
    }
    page.addButtons(flat);
    page.addHeading("FADE TO A PATTERN");
    page.addButtons(gradients);
    page.addHeading("WITHIN SECONDS");
    for (const double seconds : {0.0, 0.3, 1.0, 3.0})
        durations.push_back(
            {NSString::stringWithFormat("%g", seconds), [field, seconds] { field->setDuration(seconds); }});
    page.addButtons(durations);
    page.setShowAction([field] { field->fadeTo(Look::backgroundColor(Look::Hue::Orange)); });
}

} // namespace

std::vector<Page> barPartPages() {
    return {
        {"bar-back", "Back button", kFamily, "No way back while it saves", "icon_bar_fade.png",
         "The back button goes while the picture is being saved, which takes two seconds, and comes back then.",
         buildBackPage},
        {"bar-shadow", "Background", kFamily, "The view behind a bar by itself", "icon_bar_hues.png",
         "The view that a bar has for its background fades from any colour to any other, wherever it is.",
         buildShadowPage},
    };
}

} // namespace zr::gallery
