// What a tap on a bar's item reaches, and what the item looks like.

#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>
#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

namespace zr::tests {

namespace {

class Taker : public NSObject {
public:
    void taken(NSObject* item) { sender = item; }

    NSObject* sender = nullptr;
};

/// Takes the message of an item without a target: it is upwards of its bar.
class TakingNavigation : public UINavigationController {
public:
    void act(NSObject* item, UIEvent* event) {
        sender = item;
        hadEvent = event != nullptr;
    }

    NSObject* sender = nullptr;
    bool hadEvent = false;
};

/// Takes a message of its own: it is not upwards of the bar, but of what is in its view.
class TakingScreen : public Screen {
public:
    void act(NSObject* item) { sender = item; }

    NSObject* sender = nullptr;
};

/// Takes the same while it has the focus.
class TakingField : public UITextField {
public:
    void act(NSObject* item) { sender = item; }

    NSObject* sender = nullptr;
};

class BarButton : public Navigation {
protected:
    void SetUp() override {
        Navigation::SetUp();
        screen->log = &log;
        show(taking);
    }
    Ref<UIBarButtonItem> showItem(NSObject* target, SEL action) {
        auto item = make<UIBarButtonItem>(&UIBarButtonItem::initWithTitle_style_target_action, "Act",
                                          UIBarButtonItemStylePlain, target, action);
        screen->navigationItem()->setRightBarButtonItem(item);
        host.advance(0);
        return item;
    }
    void tapItem() { host.tap({355, 42}); }

    Ref<TakingScreen> screen = make<TakingScreen>();
    Ref<TakingNavigation> taking = make<TakingNavigation>(&UINavigationController::initWithRootViewController, screen);
};

} // namespace

TEST_F(BarButton, BeginsAsItWasMade) {
    const auto taker = make<Taker>();
    const auto image = plainImage(20, 20, kRed);
    const auto item = make<UIBarButtonItem>(&UIBarButtonItem::initWithImage_style_target_action, image,
                                            UIBarButtonItemStyleDone, taker, selector<&Taker::taken>);
    EXPECT_EQ(item->image(), image.get());
    EXPECT_TRUE(item->title().isNil());
    EXPECT_EQ(item->style(), UIBarButtonItemStyleDone);
    EXPECT_EQ(item->target(), taker.get());
    EXPECT_EQ(item->action(), selector<&Taker::taken>);
    EXPECT_EQ(item->customView(), nullptr);
    EXPECT_TRUE(item->isEnabled());
    const auto view = make<UIView>();
    EXPECT_EQ(make<UIBarButtonItem>(&UIBarButtonItem::initWithCustomView, view)->customView(), view.get());
}

TEST_F(BarButton, APictureShowsInsteadOfATitle) {
    const auto taker = make<Taker>();
    const auto image = plainImage(20, 20, kRed);
    const auto item = make<UIBarButtonItem>(&UIBarButtonItem::initWithImage_style_target_action, image,
                                            UIBarButtonItemStylePlain, taker, selector<&Taker::taken>);
    screen->navigationItem()->setRightBarButtonItem(item);
    EXPECT_EQ(host.pixel({348, 33}), (FramePixel{255, 0, 0})) << "8 points from the side";
    EXPECT_EQ(host.pixel({366, 51}), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel({346, 42}), (FramePixel{247, 247, 247}));
    item->setTitle("A title");
    EXPECT_EQ(host.pixel({346, 42}), (FramePixel{247, 247, 247}));
    tapItem();
    EXPECT_EQ(taker->sender, item.get());
    item->setImage(plainImage(40, 20, kBlue));
    EXPECT_EQ(host.pixel({328, 33}), (FramePixel{0, 0, 255}));
    item->setImage(nullptr);
    EXPECT_EQ(host.pixel({366, 33}), (FramePixel{247, 247, 247}));
}

TEST_F(BarButton, WithoutATargetTheFirstUpwardsOfTheBarTakesTheMessage) {
    const auto item = showItem(nullptr, selector<&TakingNavigation::act>);
    tapItem();
    EXPECT_EQ(taking->sender, item.get());
    EXPECT_TRUE(taking->hadEvent);
}

TEST_F(BarButton, WithoutATargetTheFirstResponderIsAskedFirst) {
    const auto field = make<TakingField>();
    field->setFrame(CGRectMake(10, 100, 200, 30));
    screen->view()->addSubview(field);
    field->becomeFirstResponder();
    const auto item = showItem(nullptr, selector<&TakingField::act>);
    tapItem();
    EXPECT_EQ(field->sender, item.get());
    field->sender = nullptr;
    item->setAction(selector<&TakingScreen::act>);
    tapItem();
    EXPECT_EQ(field->sender, nullptr);
    EXPECT_EQ(screen->sender, item.get()) << "upwards of the field";
}

TEST_F(BarButton, AMessageThatNobodyTakesIsDropped) {
    const auto item = showItem(nullptr, selector<&Taker::taken>);
    tapItem();
    item->setAction(nullptr);
    tapItem();
    auto taker = make<Taker>();
    item->setTarget(taker);
    item->setAction(selector<&Taker::taken>);
    tapItem();
    EXPECT_EQ(taker->sender, item.get());
    taker = nullptr;
    item->setAction(selector<&TakingNavigation::act>);
    tapItem();
    EXPECT_EQ(taking->sender, nullptr) << "a target that is gone is not the responder chain";
}

TEST_F(BarButton, NavigationItemsAndTheirButtonsHaveKeys) {
    const auto item = make<UIBarButtonItem>(&UIBarButtonItem::initWithTitle_style_target_action, "Act",
                                            UIBarButtonItemStylePlain, nullptr, nullptr);
    const auto title = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, 40, 20));
    UINavigationItem* bar = screen->navigationItem();
    bar->setValue_forKey("Name", "title");
    bar->setValue_forKey(title, "titleView");
    bar->setValue_forKey(true, "hidesBackButton");
    bar->setValue_forKey(item, "leftBarButtonItem");
    bar->setValue_forKey(item, "backBarButtonItem");
    EXPECT_EQ(bar->title(), "Name");
    EXPECT_EQ(bar->titleView(), title.get());
    EXPECT_TRUE(bar->hidesBackButton());
    EXPECT_EQ(bar->leftBarButtonItem(), item.get());
    EXPECT_EQ(bar->backBarButtonItem(), item.get());
    EXPECT_EQ(bar->valueForKey("rightBarButtonItem").objectValue(), nullptr);
    item->setValue_forKey("Other", "title");
    item->setValue_forKey(false, "enabled");
    EXPECT_EQ(item->title(), "Other");
    EXPECT_FALSE(item->isEnabled());
    EXPECT_EQ(title->window(), window) << "it shows";
}

} // namespace zr::tests
