#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTTableViewController.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>

namespace zr::testing {

namespace {

/// A list of ten rows of the platform's height or of the controller's.
class List : public ZRTTableViewController {
public:
    void createNavigationBarIfNeed() override {
        if (timesBarWanted++ == 0) {
            hadTableAtBar = tableView() != nullptr;
            styleAtBar = style();
        }
        ZRTTableViewController::createNavigationBarIfNeed();
    }
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return 10; }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) override {
        return make<UITableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault,
                                     nullptr);
    }
    void tableView_didSelectRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        selected.push_back(path.row());
    }

    std::vector<NSInteger> selected;
    int timesBarWanted = 0;
    /// As of when the bar was wanted first, by the base's initialiser.
    UITableViewStyle styleAtBar = UITableViewStylePlain;
    bool hadTableAtBar = false;
};

/// A phone of 320 x 568 points whose window shows a list in a navigation controller, in a tab bar controller or not.
class Phone {
public:
    explicit Phone(const NSString& version, bool hasTabs = true, Ref<ZRTTableViewController> shown = make<List>()) :
        host(device(320, 568, 2, version)), list(std::move(shown)) {
        navigation = make<UINavigationController>(&UINavigationController::initWithRootViewController, list);
        if (hasTabs)
            tabs->setViewControllers({navigation});
        window->setRootViewController(hasTabs ? static_cast<UIViewController*>(tabs.get()) : navigation.get());
        window->makeKeyAndVisible();
        host.advance(0);
    }
    CGRect tableFrame() const { return list->tableView()->frame(); }

    HeadlessHost host;
    Ref<ZRTTableViewController> list;
    Ref<UINavigationController> navigation;
    Ref<UITabBarController> tabs = make<UITabBarController>();
    Ref<UIWindow> window = showWindow(UIColor::blackColor());
};

const std::vector<NSIndexPath> kSomePaths{NSIndexPath::indexPathForRow_inSection(0, 0),
                                          NSIndexPath::indexPathForRow_inSection(99, 7), NSIndexPath()};

} // namespace

// Making the table

TEST(ZRTTableViewController, HasItsTableFromEachInitialiserOn) {
    HeadlessHost host;
    for (const auto& list : {make<List>(), make<List>(&UIViewController::initWithNibName_bundle, "List", nullptr),
                             make<List>(&ZRTTableViewController::initWithStyle, UITableViewStyleGrouped)}) {
        EXPECT_TRUE(dynamic_cast<ZRTableView*>(list->tableView()));
        EXPECT_FALSE(list->isViewLoaded());
        EXPECT_FALSE(list->hadTableAtBar) << "the base's initialiser comes first";
    }
}

TEST(ZRTTableViewController, TheTableIsPlainUnlessAskedFor) {
    HeadlessHost host;
    EXPECT_EQ(make<List>()->style(), UITableViewStylePlain);
    EXPECT_EQ(make<List>()->tableView()->style(), UITableViewStylePlain);
    EXPECT_EQ(make<List>(&UIViewController::initWithNibName_bundle, "List", nullptr)->tableView()->style(),
              UITableViewStylePlain);
    const auto grouped = make<List>(&ZRTTableViewController::initWithStyle, UITableViewStyleGrouped);
    EXPECT_EQ(grouped->style(), UITableViewStyleGrouped);
    EXPECT_EQ(grouped->tableView()->style(), UITableViewStyleGrouped);
    EXPECT_EQ(grouped->styleAtBar, UITableViewStyleGrouped) << "known to the base's initialiser already";
}

TEST(ZRTTableViewController, AStyleOutOfRangeComesToNoHarm) {
    HeadlessHost host;
    const auto list = make<List>(&ZRTTableViewController::initWithStyle, static_cast<UITableViewStyle>(17));
    EXPECT_EQ(list->style(), 17);
    EXPECT_TRUE(list->tableView());
    list->view();
    host.advance(0);
    EXPECT_EQ(list->tableView()->numberOfRowsInSection(0), 10);
}

TEST(ZRTTableViewController, AnotherStyleLaterChangesNoTable) {
    HeadlessHost host;
    const auto list = make<List>();
    list->setStyle(UITableViewStyleGrouped);
    EXPECT_EQ(list->style(), UITableViewStyleGrouped);
    EXPECT_EQ(list->tableView()->style(), UITableViewStylePlain);
}

TEST(ZRTTableViewController, ItsTableAndStyleAreKeys) {
    HeadlessHost host;
    const auto list = make<List>();
    EXPECT_EQ(list->valueForKey("tableView").as<UITableView*>(), list->tableView());
    const auto other = make<UITableView>();
    list->setValue_forKey(other.get(), "tableView");
    EXPECT_EQ(list->tableView(), other.get());
    list->setValue_forKey(UITableViewStyleGrouped, "style");
    EXPECT_EQ(list->style(), UITableViewStyleGrouped);
    EXPECT_EQ(list->valueForKey("style").as<UITableViewStyle>(), UITableViewStyleGrouped);
}

TEST(ZRTTableViewController, DressesItsTable) {
    HeadlessHost host;
    const auto list = make<List>();
    const UITableView* table = list->tableView();
    EXPECT_EQ(table->frame(), CGRectZero);
    EXPECT_EQ(table->autoresizingMask(), 18u);
    EXPECT_EQ(table->delegate(), list.get());
    EXPECT_EQ(table->dataSource(), list.get());
    EXPECT_EQ(rgba(table->separatorColor()), rgb(215, 217, 215));
    EXPECT_EQ(table->backgroundColor(), UIColor::clearColor());
    EXPECT_FALSE(table->showsVerticalScrollIndicator());
    const auto grouped = make<List>(&ZRTTableViewController::initWithStyle, UITableViewStyleGrouped);
    EXPECT_EQ(grouped->tableView()->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(rgba(grouped->tableView()->separatorColor()), rgb(215, 217, 215));
}

TEST(ZRTTableViewController, ATableThatIsThereIsNotMadeAgain) {
    HeadlessHost host;
    const auto list = make<List>();
    const Ref<UITableView> table = list->tableView();
    list->createTableViewIfNeed();
    EXPECT_EQ(list->tableView(), table);
    list->setTableView(nullptr);
    list->createTableViewIfNeed();
    ASSERT_TRUE(list->tableView());
    EXPECT_NE(list->tableView(), table);
}

// Placing it

TEST(ZRTTableViewController, FillsTheScreenBetweenTheBarAndTheTabBar) {
    const Phone phone("8.4");
    EXPECT_EQ(phone.list->view()->frame(), CGRectMake(0, 0, 320, 568));
    EXPECT_EQ(phone.tableFrame(), CGRectMake(0, 64, 320, 455));
    EXPECT_EQ(phone.list->tableView()->superview(), phone.list->view());
}

TEST(ZRTTableViewController, OnVersionsThatSortBefore7TheBarIsLowerAndTheTabBarDoesNotCount) {
    const std::vector<std::pair<NSString, CGRect>> frames{
        {"6.1", CGRectMake(0, 44, 320, 524)},  {"7.0", CGRectMake(0, 64, 320, 455)},
        {"8.4", CGRectMake(0, 64, 320, 455)},  {"9.3", CGRectMake(0, 64, 320, 455)},
        {"10.3", CGRectMake(0, 44, 320, 524)}, {"7", CGRectMake(0, 44, 320, 524)}};
    for (const auto& [version, frame] : frames) {
        const Phone phone(version);
        EXPECT_EQ(phone.tableFrame(), frame) << version.UTF8String();
    }
}

TEST(ZRTTableViewController, WithoutTabsItReachesTheBottom) {
    EXPECT_EQ(Phone("8.4", false).tableFrame(), CGRectMake(0, 64, 320, 504));
    EXPECT_EQ(Phone("6.1", false).tableFrame(), CGRectMake(0, 44, 320, 524));
    EXPECT_EQ(Phone("10.3", false).tableFrame(), CGRectMake(0, 44, 320, 524));
}

TEST(ZRTTableViewController, WithoutABarItBeginsAtTheTop) {
    HeadlessHost host(device(320, 568));
    const auto window = showWindow(UIColor::blackColor());
    const auto list = make<List>();
    window->setRootViewController(list);
    host.advance(0);
    EXPECT_EQ(list->tableView()->frame(), CGRectMake(0, 0, 320, 568));
}

TEST(ZRTTableViewController, WithTabsButNoBarItLeavesRoomForTheTabs) {
    HeadlessHost host(device(320, 568));
    const auto window = showWindow(UIColor::blackColor());
    const auto list = make<List>();
    const auto tabs = make<UITabBarController>();
    tabs->setViewControllers({list});
    window->setRootViewController(tabs);
    host.advance(0);
    EXPECT_EQ(list->tableView()->frame(), CGRectMake(0, 0, 320, 519));
}

TEST(ZRTTableViewController, IsPlacedOnceAndThenGrowsWithTheView) {
    Phone phone("8.4", false);
    phone.host.rotate(UIInterfaceOrientationLandscapeLeft);
    EXPECT_EQ(phone.list->view()->frame().size, CGSizeMake(568, 320));
    EXPECT_EQ(phone.tableFrame(), CGRectMake(0, 64, 568, 256));
    phone.list->tableView()->setFrame(CGRectMake(0, 100, 568, 200));
    phone.navigation->pushViewController_animated(make<List>(), false);
    phone.host.advance(0);
    phone.navigation->popViewControllerAnimated(false);
    phone.host.advance(0);
    EXPECT_EQ(phone.tableFrame(), CGRectMake(0, 100, 568, 200)) << "appearing places nothing";
    phone.host.rotate(UIInterfaceOrientationPortrait);
    EXPECT_EQ(phone.tableFrame().size.width, 320);
}

TEST(ZRTTableViewController, TheBarLiesAboveTheTable) {
    Phone phone("8.4");
    const auto& views = phone.list->view()->subviews();
    ASSERT_EQ(views.size(), 2u);
    EXPECT_EQ(views[0], phone.list->tableView());
    EXPECT_EQ(views[1], phone.list->tNavigationBar());
}

TEST(ZRTTableViewController, LoadsAsTheBaseDoesFirst) {
    const Phone phone("8.4");
    EXPECT_EQ(rgba(phone.list->view()->backgroundColor()), rgb(248, 248, 248));
    EXPECT_FALSE(phone.list->automaticallyAdjustsScrollViewInsets());
    EXPECT_EQ(phone.list->tableView()->contentInset(), UIEdgeInsetsZero);
    EXPECT_EQ(phone.list->tableView()->contentOffset(), CGPointZero);
}

TEST(ZRTTableViewController, AnotherTableSetBeforeTheViewLoadsIsTheOneShown) {
    HeadlessHost host(device(320, 568));
    const auto list = make<List>();
    const auto other = make<UITableView>();
    const Weak<UITableView> first = list->tableView();
    list->setTableView(other);
    EXPECT_FALSE(first.get());
    list->view();
    EXPECT_EQ(other->superview(), list->view());
    EXPECT_EQ(other->frame(), CGRectMake(0, 0, 320, 568));
}

TEST(ZRTTableViewController, WithoutATableTheViewIsEmpty) {
    HeadlessHost host;
    const auto list = make<List>();
    list->setTableView(nullptr);
    EXPECT_TRUE(list->view()->subviews().empty());
}

// Rows

TEST(ZRTTableViewController, ByItselfItHasNoRowsOf50Points) {
    const auto plain = make<ZRTTableViewController>();
    Phone phone("8.4", true, plain);
    EXPECT_EQ(plain->tableView()->numberOfSections(), 1);
    EXPECT_EQ(plain->tableView()->numberOfRowsInSection(0), 0);
    EXPECT_TRUE(plain->tableView()->visibleCells().empty());
    for (const NSIndexPath& path : kSomePaths) {
        EXPECT_EQ(plain->tableView_heightForRowAtIndexPath(plain->tableView(), path), 50);
        EXPECT_FALSE(plain->tableView_cellForRowAtIndexPath(plain->tableView(), path));
    }
    EXPECT_EQ(plain->tableView_numberOfRowsInSection(plain->tableView(), 3), 0);
    EXPECT_EQ(phone.host.pixel({160, 200}), (FramePixel{248, 248, 248}));
}

TEST(ZRTTableViewController, ASubclassesRowsAre50PointsHighAndAreTapped) {
    const auto list = make<List>();
    Phone phone("8.4", true, list);
    EXPECT_EQ(list->tableView()->rectForRowAtIndexPath(NSIndexPath::indexPathForRow_inSection(3, 0)),
              CGRectMake(0, 150, 320, 50));
    EXPECT_EQ(list->tableView()->visibleCells().size(), 10u);
    phone.host.tap({100, 64 + 175});
    EXPECT_EQ(list->selected, std::vector<NSInteger>{3});
    // The hairline below the third row.
    EXPECT_EQ(phone.host.pixel({100, 64 + 199.6}), (FramePixel{215, 217, 215}));
}

TEST(ZRTTableViewController, ARowWithoutACellHarmsNobody) {
    class Empty : public List {
        Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
            return ZRTTableViewController::tableView_cellForRowAtIndexPath(table, path);
        }
    };
    const Phone phone("8.4", true, make<Empty>());
    EXPECT_EQ(phone.list->tableView()->visibleCells().size(), 10u);
}

// Lifetime

TEST(ZRTTableViewController, GoesWithItsTable) {
    Phone phone("8.4", false);
    auto list = make<List>();
    const Weak<UIView> table = list->tableView();
    const Weak<List> watched = list;
    phone.navigation->pushViewController_animated(std::exchange(list, nullptr), true);
    phone.host.advance(1);
    phone.navigation->popViewControllerAnimated(true);
    phone.host.advance(1);
    EXPECT_FALSE(watched.get());
    EXPECT_FALSE(table.get());
}

TEST(ZRTTableViewController, ATableThatOutlivesItsListHasNobodyToAsk) {
    HeadlessHost host;
    auto list = make<List>();
    const Ref<UITableView> table = list->tableView();
    table->reloadData();
    EXPECT_EQ(table->numberOfRowsInSection(0), 10);
    list = nullptr;
    EXPECT_EQ(table->delegate(), nullptr);
    EXPECT_EQ(table->dataSource(), nullptr);
    table->setFrame(CGRectMake(0, 0, 320, 400));
    table->reloadData();
    table->layoutIfNeeded();
    EXPECT_EQ(table->numberOfRowsInSection(0), 0);
}

TEST(ZRTTableViewController, AMemoryWarningTakesNothingAway) {
    const Phone phone("8.4");
    NSNotificationCenter::defaultCenter()->postNotificationName_object(UIApplicationDidReceiveMemoryWarningNotification,
                                                                       nullptr);
    EXPECT_TRUE(phone.list->isViewLoaded());
    EXPECT_EQ(phone.list->tableView()->visibleCells().size(), 10u);
}

} // namespace zr::testing
