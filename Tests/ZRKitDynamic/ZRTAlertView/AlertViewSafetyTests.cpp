#include <Tests/ZRKitDynamic/ZRTAlertView/AlertViewTesting.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>

#include <limits>

// What an alert withstands: owners that drop it while it shows itself, setters that store nothing, sizes of no use.

namespace zr::testing {

namespace {

/// Does something when a window becomes key.
class KeyWindowObserver : public NSObject {
public:
    KeyWindowObserver() {
        NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(
            this, selector<&KeyWindowObserver::windowBecameKey>, UIWindowDidBecomeKeyNotification, nullptr);
    }
    void windowBecameKey(NSObject*) {
        if (onKey)
            onKey();
    }
    std::function<void()> onKey;
};

/// Does something when the text field begins or ends editing.
class FieldDelegate : public NSObject, public UITextFieldDelegate {
public:
    void textFieldDidBeginEditing(UITextField*) override {
        if (onBegin)
            onBegin();
    }
    void textFieldDidEndEditing(UITextField*) override {
        if (onEnd)
            onEnd();
    }
    std::function<void()> onBegin;
    std::function<void()> onEnd;
};

/// Takes the alert off the screen and drops it, the owner's being the last reference but those that the show holds.
template <class Alert>
std::function<void()> dropOnce(Ref<Alert>& alert, bool& aliveAfterwards) {
    return [&alert, &aliveAfterwards] {
        if (!alert)
            return;
        const Weak<Alert> weak = alert;
        alert->removeFromSuperview();
        alert = nullptr;
        aliveAfterwards = weak.get();
    };
}

Ref<ZRTAlertView> makeFieldAlert() {
    auto alert = makeAlert("Title", "Message");
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Name");
    return alert;
}

} // namespace

// Dropped while it shows itself

TEST(AlertDroppedDuringShow, LivesUntilTheBaseHasShown) {
    for (const bool direct : {true, false}) {
        HeadlessHost host;
        auto alert = makeBaseAlert(nullptr, "Cancel", "OK");
        const Weak<ZRBaseAlert> weak = alert;
        bool aliveAfterwards = false;
        const auto observer = make<KeyWindowObserver>();
        observer->onKey = dropOnce(alert, aliveAfterwards);
        ZRBaseAlert* shown = alert;
        if (direct)
            shown->showInView_animation(nullptr, true);
        else
            shown->showWithAnimation(true);
        EXPECT_TRUE(aliveAfterwards) << direct;
        EXPECT_FALSE(weak.get()) << direct;
        EXPECT_TRUE(host.application()->windows().empty()) << direct;
        host.advance(0.3);
    }
}

TEST(AlertDroppedDuringShow, LivesUntilTheAlertViewHasFocusedItsField) {
    for (const bool direct : {true, false}) {
        HeadlessHost host;
        const auto window = showWindow(UIColor::whiteColor());
        auto alert = makeFieldAlert();
        const Weak<ZRTAlertView> weak = alert;
        bool aliveAfterwards = false;
        const auto delegate = make<FieldDelegate>();
        delegate->onBegin = dropOnce(alert, aliveAfterwards);
        alert->textField()->setDelegate(delegate);
        ZRTAlertView* shown = alert;
        if (direct)
            shown->showInView_animation(window, true);
        else
            shown->showWithAnimation(true);
        EXPECT_TRUE(aliveAfterwards) << direct;
        EXPECT_FALSE(alert);
        host.advance(0.3);
        EXPECT_FALSE(weak.get()) << direct;
        EXPECT_EQ(host.application()->windows(), std::vector<UIWindow*>{window}) << direct;
    }
}

namespace {

/// Drops itself in the middle of a show, wherever that is.
class ShyAlert : public ZRTAlertView {
public:
    void reLayoutSubviews() override {
        ZRTAlertView::reLayoutSubviews();
        if (onLayout)
            onLayout();
    }
    void showInView_animation(UIView* view, bool animated) override {
        if (!skipsShow)
            ZRTAlertView::showInView_animation(view, animated);
        if (onShown)
            onShown();
    }
    std::function<void()> onLayout;
    std::function<void()> onShown;
    bool skipsShow = false;
};

Ref<ShyAlert> makeShyAlert() {
    return make<ShyAlert>(&ShyAlert::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, "Title",
                          "Message", nullptr, "Cancel", "OK");
}

} // namespace

TEST(AlertDroppedDuringShow, LivesFromTheFirstStepOn) {
    for (const bool direct : {true, false}) {
        HeadlessHost host;
        auto alert = makeShyAlert();
        const Weak<ShyAlert> weak = alert;
        bool aliveAfterwards = false;
        alert->onLayout = dropOnce(alert, aliveAfterwards);
        ShyAlert* shown = alert;
        if (direct)
            shown->showInView_animation(nullptr, false);
        else
            shown->showWithAnimation(false);
        EXPECT_TRUE(aliveAfterwards) << direct;
        ASSERT_TRUE(weak.get()) << "it has come to its window, which keeps it";
        endAlert(host, weak.get());
        EXPECT_FALSE(weak.get()) << direct;
    }
}

TEST(AlertDroppedDuringShow, LivesThroughASubclassesShow) {
    HeadlessHost host;
    auto alert = makeShyAlert();
    const Weak<ShyAlert> weak = alert;
    bool aliveAfterwards = false;
    alert->skipsShow = true;
    alert->onShown = dropOnce(alert, aliveAfterwards);
    ShyAlert* shown = alert;
    shown->showWithAnimation(true);
    EXPECT_TRUE(aliveAfterwards);
    host.advance(0.3);
    EXPECT_FALSE(weak.get());
}

namespace {

/// The base with a show of its own.
class OwnShowAlert : public ZRBaseAlert {
public:
    void showInView_animation(UIView*, bool) override { onShow(); }
    std::function<void()> onShow;
};

/// Does something when the caret comes and goes.
class HookedField : public UITextField {
public:
    bool becomeFirstResponder() override {
        onFocus();
        return UITextField::becomeFirstResponder();
    }
    bool resignFirstResponder() override {
        onFocus();
        return UITextField::resignFirstResponder();
    }
    std::function<void()> onFocus = [] {};
};

} // namespace

TEST(AlertDroppedDuringShow, LivesThroughAShowThatReplacesTheBases) {
    const HeadlessHost host;
    auto alert =
        make<OwnShowAlert>(&OwnShowAlert::initWithDelegate_cancelButtonTitle_okButtonTitles, nullptr, "Cancel", "OK");
    const Weak<OwnShowAlert> weak = alert;
    bool aliveAfterwards = false;
    alert->onShow = dropOnce(alert, aliveAfterwards);
    OwnShowAlert* shown = alert;
    shown->showWithAnimation(true);
    EXPECT_TRUE(aliveAfterwards);
    EXPECT_FALSE(weak.get());
}

TEST(AlertDroppedDuringShow, AFieldDroppedWhileTheCaretComesOrGoesLivesUntilThatIsOver) {
    HeadlessHost host;
    const auto alert = makeAlert("Title", "Message");
    const auto dropFieldDuring = [&](const std::function<void()>& action) {
        Weak<HookedField> weak;
        bool aliveAfterwards = false;
        {
            const auto field = make<HookedField>();
            field->onFocus = [&] {
                alert->setTextField(nullptr);
                aliveAfterwards = weak.get();
            };
            weak = field;
            alert->setTextField(field);
        }
        action();
        EXPECT_TRUE(aliveAfterwards);
        EXPECT_FALSE(weak.get());
    };
    dropFieldDuring([&] { alert->showWithAnimation(false); });
    dropFieldDuring([&] { alert->dismissAlertViewWithoutAnimation(); });
    host.advance(0);
}

TEST(AlertDroppedDuringShow, AFieldDroppedWhileItMovesToTheFrontLivesUntilItIsThere) {
    HeadlessHost host;
    const auto window = showWindow(UIColor::whiteColor());
    const auto alert = makeFieldAlert();
    const auto delegate = make<FieldDelegate>();
    alert->textField()->setDelegate(delegate);
    alert->showInView_animation(window, false);
    ASSERT_TRUE(alert->textField()->isFirstResponder());
    const Weak<UITextField> field = alert->textField();
    bool told = false;
    delegate->onEnd = [&] {
        told = true;
        alert->setTextField(nullptr);
    };
    alert->alertViewStyle_detailMessage(ZRTAlertViewStyleTextField, "Other name");
    EXPECT_TRUE(told);
    EXPECT_FALSE(alert->textField());
    ASSERT_TRUE(field.get());
    EXPECT_EQ(field->superview(), alert->backgroundAlert());
    endAlert(host, alert);
}

// Setters that store nothing

namespace {

class ForgetfulAlert : public ZRTAlertView {
public:
    void setCancelButton(ZRTAlertViewButton*) override {}
    void setOkButton(ZRTAlertViewButton*) override {}
    void setBackgroundView(UIView*) override {}
    void setTitleLabel(UILabel*) override {}
    void setMessageLabel(UILabel*) override {}
    void setTextField(UITextField*) override {}
    void setRotationImage(UIImage*) override {}
};

class PanellessAlert : public ForgetfulAlert {
public:
    void setBackgroundAlert(UIView*) override {}
};

template <class Alert>
void showInEveryStyle() {
    for (std::int32_t style = 0; style <= 7; ++style) {
        HeadlessHost host;
        const auto alert = make<Alert>(&Alert::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles, "Title",
                                       "Message", nullptr, "Cancel", "OK");
        ASSERT_TRUE(alert);
        alert->alertViewStyle_detailMessage(style, "detail");
        EXPECT_FALSE(alert->textField());
        alert->showWithAnimation(true);
        EXPECT_TRUE(alert->window()) << style;
        host.advance(0.3);
        alert->dismissAlertView();
        host.advance(0.3);
        EXPECT_FALSE(alert->window()) << style;
    }
}

} // namespace

TEST(AlertWithoutItsParts, ShowsAndGoes) {
    showInEveryStyle<ForgetfulAlert>();
    showInEveryStyle<PanellessAlert>();
}

// Sizes of no use

TEST(AlertOfNoSize, HarmsNobodyInAnyStyle) {
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    for (const CGSize size : {CGSizeMake(nan, nan), CGSizeMake(270, nan), CGSizeMake(nan, 300),
                              CGSizeMake(infinity, infinity), CGSizeMake(-infinity, 300), CGSizeMake(270, infinity)}) {
        for (std::int32_t style = 0; style <= 7; ++style) {
            HeadlessHost host;
            const auto window = showWindow(UIColor::whiteColor());
            const auto alert = makeAlert("Title", "Message");
            alert->setRotationImage(imageOfSize(50, 50));
            alert->setAlertViewSize(size);
            alert->alertViewStyle_detailMessage(style, "detail");
            alert->showWithAnimation(true);
            host.advance(0.15);
            EXPECT_NEAR(host.pixel({1, 1}).red, 140, 1) << size << " in style " << style;
            alert->dismissAlertView();
            host.advance(0.3);
            EXPECT_FALSE(alert->window()) << size << " in style " << style;
            EXPECT_EQ(host.pixel({187, 313}), (FramePixel{255, 255, 255})) << size << " in style " << style;
        }
    }
}

} // namespace zr::testing
