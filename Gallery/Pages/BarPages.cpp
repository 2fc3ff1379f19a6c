#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageScreen.h>
#include <Gallery/Settings/SampleText.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "NAVIGATION BAR";
constexpr const char* kLongTitle = "A title that is too long for half of the bar";

ZRTNavigationBar* barOf(PageView& page) { return page.screen()->tNavigationBar(); }

// Buttons

/// Puts buttons into the bar of its page's screen, and logs their taps.
class BarButtonDemo : public NSObject {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        return init();
    }

    void build() {
        m_page->addHeading("LEFT BUTTON");
        m_page->addButtons({{"Text", [this] { setLeftText(); }},
                            {"Image", [this] { bar()->setLeftButton_animated(imageButton("gallery_menu.png"), true); }},
                            {"None", [this] { bar()->setLeftButton_animated(nullptr, true); }},
                            {"Back", [this] { bar()->showBackButtonAnimated(true); }}});
        m_page->addHeading("RIGHT BUTTON");
        m_page->addButtons(
            {{"Text", [this] { setRightText(); }},
             {"Image", [this] { bar()->setRightButton_animated(imageButton("gallery_plus.png"), true); }},
             {"None", [this] { bar()->setRightButton_animated(nullptr, true); }},
             {"Source", [this] { showSourceButton(); }}});
        m_page->addHeading("TITLE");
        m_page->addButtons({{"Short", [this] { m_page->screen()->setTitle("Bar buttons"); }},
                            {"Long", [this] { m_page->screen()->setTitle(kLongTitle); }}});
        m_page->addLog("TAPS IN THE BAR");
    }
    void show() { bar()->setLeftButton_animated(imageButton("gallery_menu.png"), true); }

    void leftTapped() { m_page->log("left button"); }
    void rightTapped() { m_page->log("right button"); }
    void imageTapped() { m_page->log("button with an image"); }

private:
    ZRTNavigationBar* bar() { return barOf(*m_page); }

    void setLeftText() {
        bar()->setLeftButtonTitle_target_action(SampleText::translated("Edit"), this,
                                                selector<&BarButtonDemo::leftTapped>);
    }
    void setRightText() {
        bar()->setRightButtonTitle_target_action(SampleText::translated("Done"), this,
                                                 selector<&BarButtonDemo::rightTapped>);
    }
    /// The one that every page has.
    void showSourceButton() {
        if (auto* screen = dynamic_cast<PageScreen*>(m_page->screen()))
            screen->showSourceButton();
    }
    Ref<UIButton> imageButton(const char* image) {
        auto button = UIButton::buttonWithType(UIButtonTypeCustom);
        button->setFrame(CGRectMake(0, 0, 40, 40));
        button->setImage_forState(UIImage::imageNamed(image), UIControlStateNormal);
        button->addTarget_action_forControlEvents(this, selector<&BarButtonDemo::imageTapped>,
                                                  UIControlEventTouchUpInside);
        return button;
    }

    Weak<PageView> m_page;
};

void buildButtonPage(PageView& page) {
    const auto demo = make<BarButtonDemo>(&BarButtonDemo::initWithPage, &page);
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->show(); });
    demo->build();
}

// Fades

void buildFadePage(PageView& page) {
    page.addHeading("BAR");
    page.addButtons({{"Hide", [&page] { page.screen()->hiddenNavigationBarWithAnimated(true); }},
                     {"Show", [&page] { page.screen()->showNavigationBarWithAnimated(true); }}});
    page.addButtons({{"Hide at once", [&page] { page.screen()->hiddenNavigationBarWithAnimated(false); }},
                     {"Show at once", [&page] { page.screen()->showNavigationBarWithAnimated(false); }}});
    page.addHeading("BACK BUTTON");
    page.addButtons({{"Hide", [&page] { barOf(page)->hiddenBackButtonAnimated(true); }},
                     {"Show", [&page] { barOf(page)->showBackButtonAnimated(true); }}});
    page.addText("A finger that comes in from the left edge of the screen leads back without a bar.");
    page.setShowAction([&page] { page.screen()->hiddenNavigationBarWithAnimated(true); });
}

// Hues

constexpr NSTimeInterval kHueFade = 1;

void fadeTo(PageView& page, Look::Hue hue) {
    barOf(page)->backgroundImageView()->beginAnimationFromColor_toColor_duration(nullptr, Look::barColor(hue),
                                                                                 kHueFade);
}

void buildHuePage(PageView& page) {
    std::vector<PageButton> buttons;
    for (const Look::Hue hue : Look::kHues)
        buttons.push_back({Look::name(hue), [&page, hue] { fadeTo(page, hue); }});
    page.addButtons(buttons);
    page.setShowAction([&page] { fadeTo(page, Look::hue() == Look::Hue::Red ? Look::Hue::Green : Look::Hue::Red); });
}

} // namespace

std::vector<Page> barPages() {
    return {
        {"bar-buttons", "Bar buttons", kFamily, "Text and images, left and right", "icon_bar_buttons.png",
         "Buttons come in softly and replace one another. A left one takes the place of the back button, which does "
         "not return by itself; a long title shrinks.",
         buildButtonPage},
        {"bar-fade", "Fades", kFamily, "The bar and its back button go and come", "icon_bar_fade.png",
         "The bar fades within half a second, its back button within 0.3 seconds, and both keep their places.",
         buildFadePage, 0.25},
        {"bar-hues", "Hues", kFamily, "The bar changes its colour softly", "icon_bar_hues.png",
         "The bar’s background fades from one of the theme’s hues to another within a second.", buildHuePage, 0.5},
    };
}

} // namespace zr::gallery
