#include <Gallery/List/ListScreen.h>

#include <Gallery/List/PageCell.h>
#include <Gallery/Pages/PageScreen.h>
#include <Gallery/Settings/SettingsScreen.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

#include <algorithm>
#include <span>

namespace zr::gallery {

namespace {

using Family = std::span<const Page>;

const std::vector<Family>& families() {
    static const std::vector<Family> all = [] {
        std::vector<Family> found;
        const auto& pages = allPages();
        for (auto first = pages.begin(); first != pages.end();) {
            const std::string_view name = first->family;
            const auto end = std::find_if(first, pages.end(), [&](const Page& page) { return page.family != name; });
            found.emplace_back(first, end);
            first = end;
        }
        return found;
    }();
    return all;
}

const Family& familyAt(NSInteger section) { return families().at(static_cast<std::size_t>(section)); }

const Page& pageAt(const NSIndexPath& path) { return familyAt(path.section())[static_cast<std::size_t>(path.row())]; }

} // namespace

bool ListScreen::init() {
    setStyle(UITableViewStyleGrouped);
    if (!RowScreen::init())
        return false;
    setTitle("Gallery");
    return true;
}

void ListScreen::viewDidLoad() {
    RowScreen::viewDidLoad();
    tNavigationBar()->hiddenBackButtonAnimated(false);
    tNavigationBar()->setRightButtonTitle_target_action("Settings", this, selector<&ListScreen::openSettings>);
    setSpaceBelowRows();
}

void ListScreen::openSettings() { navigationController()->pushViewController_animated(make<SettingsScreen>(), true); }

// Rows

NSInteger ListScreen::numberOfSectionsInTableView(UITableView*) { return static_cast<NSInteger>(families().size()); }

NSString ListScreen::tableView_titleForHeaderInSection(UITableView*, NSInteger section) {
    return familyAt(section).front().family;
}

NSInteger ListScreen::tableView_numberOfRowsInSection(UITableView*, NSInteger section) {
    return static_cast<NSInteger>(familyAt(section).size());
}

CGFloat ListScreen::tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) { return PageCell::height; }

Ref<UITableViewCell> ListScreen::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) {
    const auto cell = reusedCell<PageCell>("page");
    cell->showPage(pageAt(path));
    return cell;
}

void ListScreen::tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) {
    table->deselectRowAtIndexPath_animated(path, false);
    navigationController()->pushViewController_animated(makeScreenOfPage(pageAt(path)), true);
}

} // namespace zr::gallery
