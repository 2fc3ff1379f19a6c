#include <Tests/ZRPlatform/UIKit/Controllers/NavigationTesting.h>
#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>

namespace zr::tests {

namespace {

class TabListener : public NSObject, public UITabBarControllerDelegate {
public:
    bool tabBarController_shouldSelectViewController(UITabBarController*, UIViewController*) override {
        log->push_back("should select");
        return allows;
    }
    void tabBarController_didSelectViewController(UITabBarController*, UIViewController*) override {
        log->push_back("did select");
    }

    Log* log = nullptr;
    bool allows = true;
};

class TabBar : public Navigation {
protected:
    Ref<UITabBarController> tabs = make<UITabBarController>();
    Ref<TabListener> tabListener = make<TabListener>();

    void SetUp() override {
        Navigation::SetUp();
        tabListener->log = &log;
    }
    void tapTab(int index, int count) { host.tap({CGFloat(375.0 * (index + 0.5) / count), 650}); }
};

} // namespace

TEST_F(TabBar, TheFirstScreenIsSelected) {
    EXPECT_EQ(tabs->selectedIndex(), NSUInteger(NSNotFound));
    EXPECT_EQ(tabs->selectedViewController(), nullptr);
    tabs->setViewControllers({b, c});
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    EXPECT_EQ(b->tabBarController(), tabs);
    show(tabs);
    EXPECT_EQ(b->view()->window(), window);
    EXPECT_FALSE(c->isViewLoaded());
}

TEST_F(TabBar, ItIsFortyNinePointsHighAtTheLowerEdge) {
    c->setEdgesForExtendedLayout(UIRectEdgeNone);
    tabs->setViewControllers({b, c});
    show(tabs);
    EXPECT_EQ(tabs->tabBar()->frame(), CGRectMake(0, 618, 375, 49));
    EXPECT_EQ(b->view()->frame(), CGRectMake(0, 0, 375, 667));
    tabs->setSelectedIndex(1);
    EXPECT_EQ(c->view()->frame(), CGRectMake(0, 0, 375, 618));
    host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(tabs->tabBar()->frame(), CGRectMake(0, 326, 667, 49));
    EXPECT_EQ(c->view()->frame(), CGRectMake(0, 0, 667, 326));
}

TEST_F(TabBar, AScreenMayChooseItsEdgesAsItsViewIsLoadedAndLater) {
    const CGRect above = CGRectMake(0, 0, 375, 618);
    const auto first = makeScreen<CarefulScreen>("first"), second = makeScreen<CarefulScreen>("second");
    tabs->view(); // loaded before anything shows
    tabs->setViewControllers({first, second});
    EXPECT_EQ(first->view()->frame(), above);
    show(tabs);
    EXPECT_EQ(first->view()->frame(), above);
    tapTab(1, 2);
    EXPECT_EQ(second->view()->frame(), above);
    second->setEdgesForExtendedLayout(UIRectEdgeBottom);
    EXPECT_EQ(second->view()->frame(), CGRectMake(0, 0, 375, 667));
}

TEST_F(TabBar, TapsSelect) {
    tabs->setViewControllers({a, b, c});
    EXPECT_EQ(a->parentViewController(), navigation) << "it is another's";
    EXPECT_EQ(tabs->viewControllers(), (Stack{b, c}));
    tabs->setViewControllers({navigation, b, c});
    show(tabs);
    tapTab(2, 3);
    EXPECT_EQ(tabs->selectedViewController(), c);
    EXPECT_EQ(tabs->tabBar()->selectedItem(), c->tabBarItem());
    EXPECT_EQ(c->view()->window(), window);
    EXPECT_EQ(navigation->view()->window(), nullptr);
    tapTab(1, 3);
    EXPECT_EQ(tabs->selectedIndex(), 1u);
}

TEST_F(TabBar, TheDelegateIsAskedAndToldOfTapsOnly) {
    tabs->setViewControllers({b, c});
    tabs->setDelegate(tabListener);
    show(tabs);
    tapTab(1, 2);
    EXPECT_EQ(news(), (Log{"should select", "C will appear", "B will disappear", "B did disappear", "C did appear",
                           "did select"}));
    tapTab(1, 2);
    EXPECT_EQ(news(), (Log{"should select", "did select"}));
    tabListener->allows = false;
    tapTab(0, 2);
    EXPECT_EQ(news(), (Log{"should select"}));
    EXPECT_EQ(tabs->selectedIndex(), 1u);
    EXPECT_EQ(tabs->tabBar()->selectedItem(), c->tabBarItem());
    tabs->setSelectedIndex(0);
    EXPECT_EQ(news(), (Log{"B will appear", "C will disappear", "C did disappear", "B did appear"}));
}

TEST_F(TabBar, ATapOnTheSelectedTabGoesBackToTheFirstScreen) {
    tabs->setViewControllers({navigation, c});
    show(tabs);
    pushAtOnce(b);
    tapTab(0, 2);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    host.advance(0.175);
    EXPECT_GT(seenOrigin(b->view()).x, 0);
}

TEST_F(TabBar, AnotherTabThatTheScreensAskForDuringATapIsTheOneThatShows) {
    tabs->setViewControllers({navigation, c});
    show(tabs);
    pushAtOnce(b);
    b->act = [&](const std::string& what) {
        if (what == "will disappear animated")
            tabs->setSelectedIndex(1);
    };
    tapTab(0, 2);
    host.advance(1);
    EXPECT_EQ(navigation->viewControllers(), (Stack{a}));
    EXPECT_EQ(tabs->selectedIndex(), 1u);
    EXPECT_EQ(c->view()->window(), window);
}

TEST_F(TabBar, ATitleOfAMegabyteStaysInItsTab) {
    b->setTitle(std::string(1 << 20, 'w'));
    tabs->setViewControllers({b, c});
    show(tabs);
    EXPECT_EQ(b->tabBarItem()->title().length(), std::size_t(1) << 20);
    std::function<CGFloat(UIView*)> rightEnd = [&](UIView* view) {
        const bool isLabel = dynamic_cast<UILabel*>(view);
        CGFloat end = isLabel ? CGRectGetMaxX(view->convertRect_toView(view->bounds(), tabs->tabBar())) : 0;
        for (const auto& subview : view->subviews())
            end = std::max(end, rightEnd(subview));
        return end;
    };
    EXPECT_EQ(rightEnd(tabs->tabBar()->subviews()[1]), 188) << "tabs end on whole points";
    tapTab(1, 2);
    EXPECT_EQ(tabs->selectedIndex(), 1u);
}

TEST_F(TabBar, OtherScreensKeepTheSelectionWhereTheyCan) {
    auto d = makeScreen("D");
    b->logsMoves = true;
    d->logsMoves = true;
    tabs->setViewControllers({b, c});
    tabs->setSelectedIndex(1);
    show(tabs);
    tabs->setViewControllers({c, d, nullptr, d});
    EXPECT_EQ(tabs->viewControllers(), (Stack{c, d}));
    EXPECT_EQ(tabs->selectedViewController(), c);
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    EXPECT_EQ(tabs->tabBar()->items().size(), 2u);
    EXPECT_EQ(news(), (Log{"B will move out", "D will move in", "B did move out", "D did move in"}));
    tabs->setSelectedIndex(1);
    tabs->setViewControllers({b, c});
    EXPECT_EQ(tabs->selectedViewController(), c) << "the one at the same place";
    tabs->setViewControllers({b});
    EXPECT_EQ(tabs->selectedViewController(), b);
    news();
    tabs->setViewControllers({});
    EXPECT_EQ(tabs->selectedIndex(), NSUInteger(NSNotFound));
    EXPECT_EQ(news(), (Log{"B will move out", "B will disappear", "B did disappear", "B did move out"}));
    tabs->setSelectedIndex(7);
    tabs->setSelectedViewController(b);
    EXPECT_EQ(tabs->selectedViewController(), nullptr);
}

TEST_F(TabBar, ItShowsTitlesAndPictures) {
    b->setTitle("First");
    tabs->setViewControllers({b, c});
    show(tabs);
    std::vector<std::string> texts;
    std::function<void(UIView*)> collect = [&](UIView* view) {
        if (const auto* label = dynamic_cast<UILabel*>(view))
            texts.push_back(label->text().utf8());
        for (const auto& subview : view->subviews())
            collect(subview);
    };
    collect(tabs->tabBar());
    EXPECT_EQ(texts, (std::vector<std::string>{"First", ""}));
    c->setTitle("Second");
    texts.clear();
    collect(tabs->tabBar());
    EXPECT_EQ(texts, (std::vector<std::string>{"First", "Second"}));
    c->tabBarItem()->setEnabled(false);
    tapTab(1, 2);
    EXPECT_EQ(tabs->selectedIndex(), 0u);
    EXPECT_EQ(host.pixel({100, 621}), (FramePixel{247, 247, 247}));
    tabs->tabBar()->setBarTintColor(UIColor::blueColor());
    EXPECT_EQ(host.pixel({100, 621}), (FramePixel{0, 0, 255}));
}

TEST_F(TabBar, ASelectedTabMayShowAnotherPicture) {
    const auto plain = plainImage(20, 20, kRed)->imageWithRenderingMode(UIImageRenderingModeAlwaysOriginal);
    const auto selected = plainImage(20, 20, kGreen)->imageWithRenderingMode(UIImageRenderingModeAlwaysOriginal);
    for (const auto& screen : {b, c})
        screen->setTabBarItem(
            make<UITabBarItem>(&UITabBarItem::initWithTitle_image_selectedImage, "Tab", plain, selected));
    tabs->setViewControllers({b, c});
    show(tabs);
    const CGPoint first{94, 635}, second{281, 635};
    EXPECT_EQ(host.pixel(first), (FramePixel{0, 255, 0}));
    EXPECT_EQ(host.pixel(second), (FramePixel{255, 0, 0}));
    tapTab(1, 2);
    EXPECT_EQ(host.pixel(first), (FramePixel{255, 0, 0}));
    EXPECT_EQ(host.pixel(second), (FramePixel{0, 255, 0}));
    c->tabBarItem()->setSelectedImage(
        plainImage(20, 20, kBlue)->imageWithRenderingMode(UIImageRenderingModeAlwaysOriginal));
    EXPECT_EQ(host.pixel(second), (FramePixel{0, 0, 255}));
    c->tabBarItem()->setSelectedImage(nullptr);
    EXPECT_EQ(host.pixel(second), (FramePixel{255, 0, 0})) << "the other one";
}

TEST_F(TabBar, AnotherItemOfAScreenShowsAtOnce) {
    tabs->setViewControllers({b, c});
    show(tabs);
    const auto item = make<UITabBarItem>(&UITabBarItem::initWithTitle_image_tag, "Other", nullptr, 0);
    c->setTabBarItem(item);
    EXPECT_EQ(tabs->tabBar()->items(), (std::vector<Ref<UITabBarItem>>{b->tabBarItem(), item}));
    EXPECT_EQ(tabs->tabBar()->selectedItem(), b->tabBarItem());
    host.advance(0);
    tapTab(1, 2);
    EXPECT_EQ(tabs->selectedViewController(), c);
    c->setTabBarItem(nullptr);
    EXPECT_NE(c->tabBarItem(), item);
    EXPECT_EQ(tabs->tabBar()->selectedItem(), c->tabBarItem());
    host.advance(0);
    tapTab(0, 2);
    EXPECT_EQ(tabs->selectedViewController(), b);
}

TEST_F(TabBar, TheSelectionIsAKey) {
    tabs->setViewControllers({b, c});
    show(tabs);
    tabs->setValue_forKey(1, "selectedIndex");
    EXPECT_EQ(tabs->selectedViewController(), c);
    EXPECT_EQ(c->view()->window(), window);
    tabs->setValue_forKey(b, "selectedViewController");
    EXPECT_EQ(tabs->valueForKey("selectedIndex").integerValue(), 0);
    EXPECT_EQ(tabs->valueForKey("selectedViewController").objectValue(), b.get());
    EXPECT_EQ(tabs->delegate(), nullptr);
}

TEST_F(TabBar, ItsItemsAreItsOwn) {
    auto bar = make<UITabBar>(&UITabBar::initWithFrame, CGRectMake(0, 0, 100, 49));
    auto one = make<UITabBarItem>(&UITabBarItem::initWithTitle_image_tag, "one", nullptr, 1);
    auto two = make<UITabBarItem>(&UITabBarItem::initWithTitle_image_selectedImage, "two", nullptr, nullptr);
    bar->setItems({one, nullptr});
    EXPECT_EQ(bar->items().size(), 1u);
    bar->setSelectedItem(two);
    EXPECT_EQ(bar->selectedItem(), nullptr);
    bar->setSelectedItem(one);
    EXPECT_EQ(bar->selectedItem(), one);
    bar->setItems({two});
    EXPECT_EQ(bar->selectedItem(), nullptr);
    EXPECT_EQ(one->valueForKey("tag").intValue(), 1);
}

} // namespace zr::tests
