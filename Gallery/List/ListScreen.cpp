#include <Gallery/List/ListScreen.h>

#include <Gallery/List/PageCell.h>
#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageScreen.h>
#include <Gallery/Settings/SettingsScreen.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kSearchFieldHeight = 34;
constexpr CGFloat kSearchFieldMargin = 9;
constexpr CGFloat kNothingFoundTop = 60;
constexpr CGFloat kNothingFoundHeight = 44;

} // namespace

bool ListScreen::init() {
    setStyle(UITableViewStyleGrouped);
    if (!RowScreen::init())
        return false;
    setTitle("Gallery");
    m_families = familiesMatching("");
    return true;
}

void ListScreen::viewDidLoad() {
    RowScreen::viewDidLoad();
    tNavigationBar()->hiddenBackButtonAnimated(false);
    tNavigationBar()->setRightButtonTitle_target_action("Settings", this, selector<&ListScreen::openSettings>);
    setSpaceBelowRows();
    addSearchField();
}

void ListScreen::viewWillDisappear(bool animated) {
    RowScreen::viewWillDisappear(animated);
    m_searchField->resignFirstResponder();
}

void ListScreen::openSettings() { navigationController()->pushViewController_animated(make<SettingsScreen>(), true); }

// Search

/// Above the table, where it stays in reach however far the rows are scrolled.
void ListScreen::addSearchField() {
    const CGFloat width = view()->bounds().size.width;
    const CGRect rows = tableView()->frame();
    m_searchField =
        make<SearchField>(&UIView::initWithFrame, CGRectMake(Look::kMargin, rows.origin.y + kSearchFieldMargin,
                                                             width - 2 * Look::kMargin, kSearchFieldHeight));
    m_searchField->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_searchField->setSearchAction([this](const NSString& words) { search(words); });
    view()->addSubview(m_searchField);

    const CGFloat stripHeight = kSearchFieldHeight + 2 * kSearchFieldMargin;
    tableView()->setFrame(CGRectMake(0, rows.origin.y + stripHeight, width, rows.size.height - stripHeight));
    // So that a drag leaves the field even where there are too few rows to scroll.
    tableView()->setAlwaysBounceVertical(true);
    const auto line =
        Look::line(CGRectMake(0, rows.origin.y + stripHeight - Look::hairline(), width, Look::hairline()));
    line->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    view()->addSubview(line);

    m_nothingFound = Look::label("", UIFont::systemFontOfSize(15), Look::detailColor(), 2, NSTextAlignmentCenter);
    m_nothingFound->setFrame(
        CGRectMake(Look::kMargin, kNothingFoundTop, width - 2 * Look::kMargin, kNothingFoundHeight));
    m_nothingFound->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_nothingFound->setHidden(true);
    tableView()->addSubview(m_nothingFound);
}

void ListScreen::search(const NSString& words) {
    m_families = familiesMatching(words.utf8());
    m_nothingFound->setText(NSString::stringWithFormat("No page is called “%s”.", words.UTF8String()));
    m_nothingFound->setHidden(!m_families.empty());
    tableView()->reloadData();
    tableView()->setContentOffset(CGPointZero);
}

// Rows

NSInteger ListScreen::numberOfSectionsInTableView(UITableView*) { return static_cast<NSInteger>(m_families.size()); }

NSString ListScreen::tableView_titleForHeaderInSection(UITableView*, NSInteger section) {
    return familyAt(section).name;
}

NSInteger ListScreen::tableView_numberOfRowsInSection(UITableView*, NSInteger section) {
    return static_cast<NSInteger>(familyAt(section).pages.size());
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

void ListScreen::scrollViewWillBeginDragging(UIScrollView*) { m_searchField->resignFirstResponder(); }

} // namespace zr::gallery
