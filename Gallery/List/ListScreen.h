#pragma once

#include <Gallery/List/PageFilter.h>
#include <Gallery/List/SearchField.h>
#include <Gallery/Look/RowScreen.h>

namespace zr::gallery {

/// The gallery's first screen: all pages by family, a field that searches them, and the way to the settings.
class ListScreen : public RowScreen {
public:
    bool init() override;

    void viewDidLoad() override;
    void viewWillDisappear(bool animated) override;

    /// @name Rows
    /// @{
    NSInteger numberOfSectionsInTableView(UITableView* table) override;
    NSString tableView_titleForHeaderInSection(UITableView* table, NSInteger section) override;
    NSInteger tableView_numberOfRowsInSection(UITableView* table, NSInteger section) override;
    CGFloat tableView_heightForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    void tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    void scrollViewWillBeginDragging(UIScrollView* scrollView) override;
    /// @}

private:
    void addSearchField();
    void search(const NSString& words);
    void openSettings();
    const FamilyPages& familyAt(NSInteger section) const { return m_families.at(static_cast<std::size_t>(section)); }
    const Page& pageAt(const NSIndexPath& path) const {
        return *familyAt(path.section()).pages.at(static_cast<std::size_t>(path.row()));
    }

    std::vector<FamilyPages> m_families;
    Ref<SearchField> m_searchField;
    Ref<UILabel> m_nothingFound;
};

} // namespace zr::gallery
