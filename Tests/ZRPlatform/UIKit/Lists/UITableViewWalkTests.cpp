#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

#include <algorithm>
#include <random>
#include <set>

namespace zr::tests {

namespace {

#ifdef NDEBUG
constexpr int kSteps = 2000;
#else
/// Builds that look for mistakes, with sanitizers for example, take ten times as long over a step.
constexpr int kSteps = 200;
#endif

/// A section that is told from others by its number, with rows that are told from others by theirs.
struct WalkSection {
    int name;
    std::vector<int> items;
};

/// A list with titles over some sections, and rows of all heights, none included.
class WalkList : public NumberList {
public:
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        return heightOf(itemAt(path));
    }
    NSString tableView_titleForHeaderInSection(UITableView*, NSInteger section) override {
        return names.at(static_cast<std::size_t>(section)) % 2 == 0 ? "Title" : NSString();
    }
    static CGFloat heightOf(int item) { return item % 7 == 0 ? 0 : 30 + 10 * (item % 4); }
    static CGFloat headerOf(int name) { return name % 2 == 0 ? 28 : 0; }

    std::vector<int> names;
};

/// A table next to a simple idea of what it should show, which takes one random step after the other.
class TableWalk : public TableOnScreen<WalkList>, public ::testing::WithParamInterface<unsigned> {
protected:
    TableWalk() {
        for (int section = 0; section < 4; ++section)
            model.push_back(newSection());
        tell();
        showTable(CGRectMake(0, 0, 320, 300));
        table->setAllowsMultipleSelection(true);
    }

    std::mt19937 random{GetParam()};
    std::vector<WalkSection> model;
    std::set<int> selected;
    int nextName = 0;
    int nextItem = 0;

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    UITableViewRowAnimation pickAnimation() { return static_cast<UITableViewRowAnimation>(pick(7)); }
    WalkSection newSection() {
        WalkSection section{nextName++, {}};
        for (int count = pick(20); count > 0; --count)
            section.items.push_back(nextItem++);
        return section;
    }
    void tell() {
        list->sections.clear();
        list->names.clear();
        for (const auto& section : model) {
            list->sections.push_back(section.items);
            list->names.push_back(section.name);
        }
    }
    static NSIndexPath pathOf(const std::vector<WalkSection>& sections, int item) {
        for (std::size_t s = 0; s < sections.size(); ++s) {
            const auto& items = sections[s].items;
            const auto found = std::find(items.begin(), items.end(), item);
            if (found != items.end())
                return rowPath(static_cast<NSInteger>(s), found - items.begin());
        }
        return nullptr;
    }
    static NSInteger indexOf(const std::vector<WalkSection>& sections, int name) {
        const auto found = std::find_if(sections.begin(), sections.end(),
                                        [name](const WalkSection& section) { return section.name == name; });
        return found - sections.begin();
    }
    void forget(const std::vector<int>& items) {
        for (const int item : items)
            selected.erase(item);
    }

    // The steps

    void changeRows() {
        const auto before = model;
        std::vector<int> deleted, moved, inserted, reloaded;
        for (auto& section : model) {
            std::erase_if(section.items, [&](int item) {
                const int fate = pick(12);
                if (fate == 0)
                    deleted.push_back(item);
                if (fate == 1)
                    moved.push_back(item);
                if (fate == 2)
                    reloaded.push_back(item);
                return fate < 2;
            });
        }
        if (model.empty())
            return;
        for (int count = pick(4); count > 0; --count)
            inserted.push_back(nextItem++);
        for (const auto& coming : {moved, inserted}) {
            for (const int item : coming) {
                auto& items = model[static_cast<std::size_t>(pick(static_cast<int>(model.size())))].items;
                items.insert(items.begin() + pick(static_cast<int>(items.size()) + 1), item);
            }
        }
        forget(deleted);
        tell();
        table->beginUpdates();
        for (const int item : inserted)
            table->insertRowsAtIndexPaths_withRowAnimation({pathOf(model, item)}, pickAnimation());
        for (const int item : moved)
            table->moveRowAtIndexPath_toIndexPath(pathOf(before, item), pathOf(model, item));
        for (const int item : reloaded)
            table->reloadRowsAtIndexPaths_withRowAnimation({pathOf(before, item)}, pickAnimation());
        for (const int item : deleted)
            table->deleteRowsAtIndexPaths_withRowAnimation({pathOf(before, item)}, pickAnimation());
        table->endUpdates();
    }

    void changeSections() {
        const auto before = model;
        std::vector<WalkSection> moved, inserted;
        std::vector<int> deleted, reloaded;
        std::erase_if(model, [&](WalkSection& section) {
            const int fate = pick(6);
            if (fate == 0) {
                deleted.push_back(section.name);
                forget(section.items);
            }
            if (fate == 1)
                moved.push_back(section);
            if (fate == 2) {
                reloaded.push_back(section.name);
                forget(section.items);
                section.items = newSection().items;
            }
            return fate < 2;
        });
        if (pick(2) == 0 && model.size() < 8)
            inserted.push_back(newSection());
        for (const auto& coming : {moved, inserted}) {
            for (const WalkSection& section : coming)
                model.insert(model.begin() + pick(static_cast<int>(model.size()) + 1), section);
        }
        tell();
        table->beginUpdates();
        for (const WalkSection& section : moved)
            table->moveSection_toSection(indexOf(before, section.name), indexOf(model, section.name));
        for (const WalkSection& section : inserted)
            table->insertSections_withRowAnimation({indexOf(model, section.name)}, pickAnimation());
        for (const int name : deleted)
            table->deleteSections_withRowAnimation({indexOf(before, name)}, pickAnimation());
        for (const int name : reloaded)
            table->reloadSections_withRowAnimation({indexOf(before, name)}, pickAnimation());
        table->endUpdates();
    }

    void reload() {
        model[static_cast<std::size_t>(pick(static_cast<int>(model.size())))] = newSection();
        tell();
        table->reloadData();
        selected.clear();
    }

    void scroll() {
        table->setContentOffset({0, static_cast<CGFloat>(pick(static_cast<int>(table->contentSize().height) + 1))});
    }

    /// Further than a tap.
    void drag() {
        const CGFloat way = 20 + pick(180);
        host.touchDown({160, 200});
        host.touchMove({160, pick(2) == 0 ? 200 - way : 200 + way}, 0.1);
        host.touchUp();
        host.advance(pick(3) * 0.3);
    }

    void tap() {
        host.advance(5); // a finger that stops a flight taps nothing
        const auto cells = table->visibleCells();
        if (cells.empty())
            return;
        const auto& cell = cells[static_cast<std::size_t>(pick(static_cast<int>(cells.size())))];
        const CGPoint middle = table->convertPoint_fromView({160, cell->bounds().size.height / 2}, cell);
        const UIView* hit = table->hitTest_withEvent(middle, nullptr);
        if (!hit || !hit->isDescendantOfView(cell))
            return; // below a header, or at the edge
        const int item = dynamicCast<RowCell>(cell)->item;
        if (!selected.erase(item))
            selected.insert(item);
        host.tap(table->convertPoint_toView(middle, window));
    }

    void step() {
        switch (pick(12)) {
        case 0:
        case 1:
        case 2:
            changeRows();
            break;
        case 3:
            changeSections();
            break;
        case 4:
            if (!model.empty() && pick(4) == 0)
                reload();
            break;
        case 5:
        case 6:
            scroll();
            break;
        case 7:
        case 8:
            drag();
            break;
        case 9:
            tap();
            break;
        case 10:
            UIView::performWithoutAnimation([this] { changeRows(); });
            break;
        default:
            host.advance(pick(5) * 0.1);
        }
        host.advance(0);
    }

    // What should be

    void expectSelection() {
        std::set<int> seen;
        for (const NSIndexPath& path : table->indexPathsForSelectedRows())
            seen.insert(list->itemAt(path));
        EXPECT_EQ(seen, selected);
    }
    void expectRows() {
        const CGRect bounds = table->bounds();
        CGFloat top = 0;
        std::vector<int> visible;
        for (const auto& section : model) {
            top += WalkList::headerOf(section.name);
            for (const int item : section.items) {
                const CGFloat height = WalkList::heightOf(item);
                const NSIndexPath path = pathOf(model, item);
                ASSERT_EQ(table->rectForRowAtIndexPath(path), CGRectMake(0, top, 320, height));
                if (height > 0 && top + height > bounds.origin.y && top < CGRectGetMaxY(bounds)) {
                    visible.push_back(item);
                    const UITableViewCell* cell = table->cellForRowAtIndexPath(path);
                    ASSERT_NE(cell, nullptr);
                    ASSERT_EQ(cell->frame(), CGRectMake(0, top, 320, height));
                    ASSERT_EQ(cell->isSelected(), selected.contains(item));
                    ASSERT_EQ(cell->superview(), table.get());
                    ASSERT_EQ(table->indexPathForRowAtPoint({1, top}), path);
                }
                top += height;
            }
        }
        EXPECT_EQ(shownItems(), visible);
        EXPECT_EQ(table->contentSize().height, top);
    }
    /// When nothing moves any more, there is nothing in the table but what is in sight.
    void expectRest() {
        host.advance(5);
        std::size_t headers = 0;
        for (NSInteger section = 0; section < table->numberOfSections(); ++section)
            headers += table->headerViewForSection(section) ? 1 : 0;
        EXPECT_EQ(table->subviews().size(), table->visibleCells().size() + headers);
        for (const auto& cell : table->visibleCells())
            EXPECT_EQ(cell->alpha(), 1);
    }
};

} // namespace

TEST_P(TableWalk, ShowsWhatTheListHasWhateverIsDoneToIt) {
    const LogLines log;
    for (int count = 0; count < kSteps; ++count) {
        step();
        expectSelection();
        expectRows();
        if (count % 20 == 0)
            expectRest();
        ASSERT_FALSE(HasFailure()) << "step " << count;
    }
    EXPECT_EQ(log.lines, std::vector<std::string>{}) << "all changes added up";
}

INSTANTIATE_TEST_SUITE_P(Seeds, TableWalk, ::testing::Range(1u, 5u));

} // namespace zr::tests
