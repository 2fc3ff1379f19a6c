#include <ZRKitDynamic/ZRTNavigationController/ZRTTableViewController.h>

#include <ZRKitDynamic/SystemVersionInternal.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/UIKit/Controllers/UITabBarController.h>

namespace zr {

namespace {

constexpr CGFloat kRowHeight = 50;
constexpr CGFloat kTabBarHeight = 49;

} // namespace

// Construction

bool ZRTTableViewController::init() {
    if (!ZRTViewController::init())
        return false;
    createTableViewIfNeed();
    return true;
}

bool ZRTTableViewController::initWithNibName_bundle(const NSString& nibName, NSBundle* bundle) {
    if (!ZRTViewController::initWithNibName_bundle(nibName, bundle))
        return false;
    createTableViewIfNeed();
    return true;
}

bool ZRTTableViewController::initWithStyle(UITableViewStyle style) {
    // First, because the initialiser makes the table.
    setStyle(style);
    if (!ZRTViewController::init())
        return false;
    createTableViewIfNeed();
    return true;
}

const KeyTable& ZRTTableViewController::keyTable() const {
    using Self = ZRTTableViewController;
    static const KeyTable table(ZRTViewController::keyTable(), {key<&Self::tableView, &Self::setTableView>("tableView"),
                                                                key<&Self::style, &Self::setStyle>("style")});
    return table;
}

void ZRTTableViewController::createTableViewIfNeed() {
    if (m_tableView)
        return;
    const auto table = make<ZRTableView>(&UITableView::initWithFrame_style, CGRectZero, m_style);
    table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
    table->setDelegate(this);
    table->setDataSource(this);
    table->setSeparatorColor(ZRColor::zrColorWithRed_green_blue_alpha(215, 217, 215, 1));
    table->setBackgroundColor(UIColor::clearColor());
    table->setShowsVerticalScrollIndicator(false);
    setTableView(table);
}

// View

void ZRTTableViewController::viewDidLoad() {
    ZRTViewController::viewDidLoad();
    setAutomaticallyAdjustsScrollViewInsets(false);
    if (!m_tableView)
        return;
    const CGFloat top = navigationBarMaxY();
    const CGSize size = view()->frame().size;
    const CGFloat tabBarHeight = tabBarController() && systemVersionSortsFrom7() ? kTabBarHeight : 0;
    m_tableView->setFrame(CGRectMake(0, top, size.width, size.height - top - tabBarHeight));
    view()->addSubview(m_tableView);
}

// Rows

CGFloat ZRTTableViewController::tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) {
    return kRowHeight;
}

NSInteger ZRTTableViewController::tableView_numberOfRowsInSection(UITableView*, NSInteger) { return 0; }

Ref<UITableViewCell> ZRTTableViewController::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath&) {
    return nullptr;
}

} // namespace zr
