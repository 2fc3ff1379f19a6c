#include <Gallery/Pages/OverlayDemo.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRTAlertView/ZRTipsAlertView.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "TIPS ALERTS";

/// What a tips alert is made of. Null texts are nil: no label, no button.
struct TipsContent {
    const char* title;
    const char* message;
    const char* cancel;
    const char* ok;
    /// Null for none.
    const char* image = nullptr;
};

/// What an application does to a new alert before it shows it.
using TipsSetup = std::function<void(ZRTipsAlertView* alert)>;

class TipsDemo : public OverlayDemo {
public:
    virtual bool initWithPage_content_setup(PageView* page, const TipsContent& content, TipsSetup setup) {
        m_content = content;
        m_setup = std::move(setup);
        return initWithPage(page);
    }

protected:
    const char* showTitle() const override { return "Show alert"; }
    Ref<ZRBaseAlert> makeOverlay() override {
        auto alert =
            make<ZRTipsAlertView>(&ZRTipsAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                                  SampleText::translated(m_content.title), SampleText::translated(m_content.message),
                                  this, SampleText::translated(m_content.cancel), SampleText::translated(m_content.ok));
        if (m_content.image)
            alert->setTipImage(UIImage::imageNamed(m_content.image));
        if (m_setup)
            m_setup(alert);
        return alert;
    }

private:
    TipsContent m_content{};
    TipsSetup m_setup;
};

/// For the long message, but no higher than the screen has room for.
CGSize roomySize() {
    const CGFloat highest = UIScreen::mainScreen()->bounds().size.height - 40;
    return CGSizeMake(290, std::min<CGFloat>(480, highest));
}

std::function<void(PageView&)> showsTips(const TipsContent& content, const TipsSetup& setup = nullptr) {
    return [content, setup](PageView& page) {
        addOverlayDemo(page, make<TipsDemo>(&TipsDemo::initWithPage_content_setup, &page, content, setup));
    };
}

} // namespace

std::vector<Page> tipsPages() {
    return {
        {"tips-image", "With image", kFamily, "A picture and a title on a band", "icon_tips_image.png",
         "A coloured band holds a picture and a bold title; the message stands below it. The panel grows with what it "
         "holds.",
         showsTips({"Did you know?", "A double tap opens an album.", "Close", "Next tip", "gallery_tip.png"})},
        {"tips-no-image", "Without image", kFamily, "A band in another colour", "icon_tips_no_image.png",
         "Without a picture the band holds the title alone. It takes any colour.",
         showsTips({"Storage almost full", "Less than one gigabyte is left on this phone.", "Later", "Tidy up"},
                   [](ZRTipsAlertView* alert) {
                       alert->setTipBackgroundColor(ZRColor::zrColorWithRed_green_blue_alpha(253, 131, 0, 1));
                   })},
        {"tips-no-title", "Without title", kFamily, "No band, only the message", "icon_tips_no_title.png",
         "Without a title there is no band, and the message begins at the top.",
         showsTips({nullptr, "Pictures are sent as soon as there is a network.", nullptr, "OK"})},
        {"tips-no-message", "Without message", kFamily, "Picture and title say it all", "icon_tips_no_message.png",
         "Without a message the buttons follow the band.",
         showsTips({"Welcome back", nullptr, "Close", "Start", "gallery_tip.png"})},
        {"tips-long", "Long text", kFamily, "Cut to what the default size gives it", "icon_tips_long.png",
         "A text that would fill the screen gets 70 points in a panel of the default size, and ends with an ellipsis.",
         showsTips({"How your pictures are kept", SampleText::kLongMessage, "Close", "More", "gallery_tip.png"})},
        {"tips-size", "Own size", kFamily, "Room for a long text", "icon_tips_size.png",
         "An application that sets the size decides how much of a long text there is room for; the panel then keeps "
         "that height.",
         showsTips({"How your pictures are kept", SampleText::kLongMessage, "Close", "More", "gallery_tip.png"},
                   [](ZRTipsAlertView* alert) { alert->setAlertViewSize(roomySize()); })},
    };
}

} // namespace zr::gallery
