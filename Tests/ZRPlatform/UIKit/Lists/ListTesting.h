#pragma once

#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Lists/UITableView.h>

#include <map>
#include <string>

namespace zr::tests {

inline NSIndexPath rowPath(NSInteger section, NSInteger row) {
    return NSIndexPath::indexPathForRow_inSection(row, section);
}
using Paths = std::vector<NSIndexPath>;

inline std::string written(const NSIndexPath& path) { return path.description().utf8(); }

/// Counts itself, and knows what it shows.
class RowCell : public UITableViewCell {
public:
    RowCell() { ++alive; }
    ~RowCell() override { --alive; }
    void prepareForReuse() override {
        UITableViewCell::prepareForReuse();
        ++reuses;
    }

    int item = -1;
    int reuses = 0;
    inline static int alive = 0;
};

/// A list of numbers in sections, as data source and delegate. Writes down what it is asked and told when it listens.
class NumberList : public NSObject, public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger numberOfSectionsInTableView(UITableView*) override { return static_cast<NSInteger>(sections.size()); }
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger section) override {
        ++countQuestions;
        return static_cast<NSInteger>(sections.at(static_cast<std::size_t>(section)).size());
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        ++cellsAsked;
        Ref<RowCell> cell = dynamicCast<RowCell>(table->dequeueReusableCellWithIdentifier("row"));
        if (!cell)
            cell = make<RowCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault, "row");
        cell->item = itemAt(path);
        return cell;
    }
    NSString tableView_titleForHeaderInSection(UITableView*, NSInteger section) override {
        const auto found = titles.find(section);
        return found == titles.end() ? NSString() : found->second;
    }

    int itemAt(const NSIndexPath& path) const {
        return sections.at(static_cast<std::size_t>(path.section())).at(static_cast<std::size_t>(path.row()));
    }
    /// `count` numbers from `first` on, as the only section.
    void fill(int count, int first = 0) { sections = {numbers(count, first)}; }
    static std::vector<int> numbers(int count, int first = 0) {
        std::vector<int> all;
        for (int i = 0; i < count; ++i)
            all.push_back(first + i);
        return all;
    }
    std::vector<int>& section(int index) { return sections.at(static_cast<std::size_t>(index)); }

    std::vector<std::vector<int>> sections;
    std::map<NSInteger, NSString> titles;
    int cellsAsked = 0;
    int countQuestions = 0;
};

/// A list whose delegate gives heights by number.
class UnevenList : public NumberList {
public:
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        ++heightsAsked;
        return heightOf(itemAt(path));
    }

    std::function<CGFloat(int item)> heightOf = [](int item) -> CGFloat { return 40 + 10 * (item % 3); };
    int heightsAsked = 0;
};

/// What is logged while it exists.
class LogLines {
public:
    LogLines() {
        setLogHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    ~LogLines() { setLogHandler(nullptr); }

    std::vector<std::string> lines;
};

/// A table over a screen of 320 x 480 points, whose list lives as long.
template <class List = NumberList>
class TableOnScreen : public OnScreen {
protected:
    Ref<UITableView> showTable(CGRect frame = CGRectMake(0, 0, 320, 480),
                               UITableViewStyle style = UITableViewStylePlain) {
        table = make<UITableView>(&UITableView::initWithFrame_style, frame, style);
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
        host.advance(0);
        return table;
    }
    void scrollTo(CGFloat y) {
        table->setContentOffset({0, y});
        host.advance(0);
    }
    /// The numbers that the visible cells show.
    std::vector<int> shownItems() const {
        std::vector<int> items;
        for (const auto& cell : table->visibleCells())
            items.push_back(dynamicCast<RowCell>(cell)->item);
        return items;
    }
    RowCell* cellAt(NSInteger row, NSInteger section = 0) const {
        return dynamic_cast<RowCell*>(table->cellForRowAtIndexPath(rowPath(section, row)));
    }

    Ref<List> list = make<List>();
    Ref<UITableView> table;
};

} // namespace zr::tests
