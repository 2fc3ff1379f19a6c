#include <Gallery/List/ListScreen.h>

#include <Gallery/List/PageRow.h>
#include <Gallery/Look/RowList.h>
#include <Gallery/Pages/PageScreen.h>
#include <Gallery/Settings/SettingsScreen.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr::gallery {

void ListScreen::viewDidLoad() {
    Screen::viewDidLoad();
    tNavigationBar()->hiddenBackButtonAnimated(false);
    tNavigationBar()->setRightButtonTitle_target_action("Settings", this, selector<&ListScreen::openSettings>);

    const auto rows = make<RowList>(&RowList::initWithFrame, contentFrame());
    const auto& pages = allPages();
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string_view family = pages[i].family;
        if (i == 0 || pages[i - 1].family != family)
            rows->addHeading(pages[i].family);
        const bool isLast = i + 1 == pages.size() || pages[i + 1].family != family;
        const auto row = make<PageRow>(&PageRow::initWithPage_isLast, pages[i], isLast);
        row->setAction([this, page = &pages[i]] { openPage(*page); });
        rows->addRow(row);
    }
    view()->addSubview(rows);
}

void ListScreen::openPage(const Page& page) {
    navigationController()->pushViewController_animated(make<PageScreen>(&PageScreen::initWithPage, page), true);
}

void ListScreen::openSettings() {
    navigationController()->pushViewController_animated(make<SettingsScreen>(&Screen::initWithTitle, "Settings"), true);
}

} // namespace zr::gallery
