#include <Tests/ZRKitDynamic/ZRTableViewCell/SwipeTesting.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace zr::testing {

namespace {

#ifdef NDEBUG
constexpr int kSteps = 12'500;
#else
/// Builds that look for mistakes, with sanitizers for example, take ten times as long over a step.
constexpr int kSteps = 1'250;
#endif
/// A small screen, so that a frame costs little.
constexpr CGFloat kShortSide = 96, kLongSide = 100;
constexpr CGFloat kRow = 20;
constexpr CGFloat kButton = 30;
/// Where a finger touches a row: left of all buttons.
constexpr CGFloat kTouch = 3;
constexpr NSTimeInterval kSettling = 0.2;
constexpr NSTimeInterval kChange = 0.3;
/// Moments that differ by less are one.
constexpr NSTimeInterval kMoment = 1e-6;
/// As many rows as the screen shows, and one for each of the changes under way.
constexpr int kMostCells = static_cast<int>(kLongSide / kRow) + 1 + 2;

/// Rows some of which may not be swiped; one to three buttons: one that does nothing, one that writes
/// itself down, one that deletes its row.
class WalkList : public MessageList {
public:
    /// Labels have nothing to say here, and cost time in every frame.
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        const auto cell = MessageList::tableView_cellForRowAtIndexPath(table, path);
        for (const auto& part : cell->contentView()->subviews())
            part->setHidden(true);
        return cell;
    }
    Actions tableView_zrEditActionsForRowAtIndexPath(ZRTableView*, const NSIndexPath& path) override {
        const int message = messages.at(static_cast<std::size_t>(path.row()));
        Actions given;
        if (message % 3 == 2)
            given.push_back(action(kButton));
        given.push_back(noting(kButton, "note"));
        if (message % 3 > 0)
            given.push_back(action(kButton, "delete", [this](ZRTableViewRowAction*, const NSIndexPath& row) {
                news.push_back("delete " + written(row));
                onDelete(row);
            }));
        return given;
    }
    bool tableView_zrCanEditRowAtIndexPath(ZRTableView*, const NSIndexPath& path) override {
        return mayBeSwiped(messages.at(static_cast<std::size_t>(path.row())));
    }
    static bool mayBeSwiped(int message) { return message % 5 != 4; }
    static CGFloat stripOf(int message) { return kButton * static_cast<CGFloat>(1 + message % 3); }

    std::function<void(const NSIndexPath&)> onDelete;
};

/// What the swipes should have led to.
struct SwipeModel {
    static constexpr int kNone = -1;

    int open = kNone;
    /// The next touch goes into closing.
    bool isRecorded = false;
    bool isLocked = false;
    bool scrolls = true;
    /// When the row that locks the table has closed or left.
    std::optional<NSTimeInterval> freeAt;

    void opens(int message) {
        open = message;
        isRecorded = isLocked = true;
        scrolls = false;
        freeAt.reset();
    }
    void closesBy(NSTimeInterval time) {
        open = kNone;
        freeAt = std::min(freeAt.value_or(time), time);
    }
    void isFree() { *this = SwipeModel(); }
    void passes(NSTimeInterval now) {
        if (freeAt && now > *freeAt - kMoment)
            isFree();
    }
    /// A touch that the table is told of. Whether it counts.
    bool touched(NSTimeInterval now) {
        if (!isRecorded)
            return true;
        isRecorded = false;
        closesBy(now + kSettling);
        return false;
    }
    void ranBlock() {
        isRecorded = false;
        scrolls = true;
    }
};

/// A table next to a simple idea of what it should show, which takes one random step after the other.
class SwipeWalk : public ::testing::TestWithParam<unsigned> {
protected:
    SwipeWalk() : host(device(kShortSide, kLongSide, 1)) {
        window = showWindow(UIColor::blackColor());
        for (int count = 0; count < 30; ++count)
            list->messages.push_back(nextMessage++);
        list->onDelete = [this](const NSIndexPath& path) { deleteRow(path.row()); };
        table = make<ZRTableView>(&UIView::initWithFrame, window->bounds());
        table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
        table->setAutoresizingMask(UIViewAutoresizingFlexibleWidth | UIViewAutoresizingFlexibleHeight);
        table->setRowHeight(kRow);
        table->setScrollsToTop(false); // rows lie below the status bar
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
        host.advance(0);
    }

    int pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    NSInteger pickRow() { return pick(static_cast<int>(list->messages.size())); }
    CGFloat width() const { return table->bounds().size.width; }
    MessageCell* cellOf(int message) const {
        for (const auto& each : table->visibleCells()) {
            if (auto* cell = dynamic_cast<MessageCell*>(each.get()); cell->message == message)
                return cell;
        }
        return nullptr;
    }
    CGPoint inRow(const MessageCell* cell, CGFloat x) const {
        return table->convertPoint_toView({x, CGRectGetMidY(cell->frame())}, nullptr);
    }
    /// A row whose middle can be touched there, and not a button of it; nil when this pick finds none.
    MessageCell* pickCell(CGFloat x) {
        const auto cells = table->visibleCells();
        if (cells.empty())
            return nullptr;
        auto* cell =
            dynamic_cast<MessageCell*>(cells[static_cast<std::size_t>(pick(static_cast<int>(cells.size())))].get());
        const UIView* hit = window->hitTest_withEvent(inRow(cell, x), nullptr);
        const bool isRow = hit && hit->isDescendantOfView(cell) && !hit->isKindOfClass<ZRTableViewRowButton>();
        return isRow ? cell : nullptr;
    }

    // Time

    void pass(NSTimeInterval seconds) {
        host.advance(seconds);
        model.passes(host.time());
        followLockingCell();
    }
    /// What becomes of the cell that locks the table is the list's business: it may be gone, or about to go.
    void followLockingCell() {
        if (!model.isLocked)
            return;
        const bool isShown = !table->indexPathForCell(locking).isNil();
        const bool isGone = locking->superview() != table.get() || locking->reuses != lockedReuses;
        if (isGone || (isShown && width() != lockedWidth))
            model.isFree();
        else if (!isShown && model.open != SwipeModel::kNone)
            model.closesBy(host.time() + kChange);
    }
    /// A finger that comes into a change of the content's place holds a list that is elsewhere.
    bool isShifting() const { return table->layer()->animationForKey("bounds"); }
    /// A finger that stops a flight touches nothing.
    void waitForRest() {
        while (table->isDecelerating() || isShifting())
            pass(kChange);
    }
    /// No more than two changes at a time, each of which may have a cell on its way out.
    void noteChange() {
        std::erase_if(changes, [this](NSTimeInterval end) { return end < host.time() + kMoment; });
        while (changes.size() >= 2) {
            pass(kChange);
            changes.clear();
        }
    }

    // Touches

    void swipe() {
        if (model.isLocked || isShifting())
            waitForRest();
        const CGFloat start = width() - 5;
        MessageCell* cell = pickCell(start);
        if (!cell)
            return;
        const int message = cell->message;
        const NSIndexPath path = table->indexPathForCell(cell);
        const CGFloat distance = pick(80);
        const CGPoint point = inRow(cell, start);
        host.touchDown(point);
        host.touchMove({point.x - 10, point.y});
        host.touchMove({point.x - 10 - distance, point.y});
        host.touchUp();
        if (model.isLocked) {
            // Nobody takes the drag, so that it is a tap.
            if (model.touched(host.time()))
                expected.push_back("selected " + written(path));
        } else if (WalkList::mayBeSwiped(message)) {
            if (distance > kButton) {
                model.opens(message);
                locking = cell;
                lockedReuses = cell->reuses;
                lockedWidth = width();
            }
            strips.push_back(host.time() + kSettling);
        }
    }

    void tap() {
        waitForRest();
        const MessageCell* cell = pickCell(kTouch);
        if (!cell)
            return;
        if (model.touched(host.time()))
            expected.push_back("selected " + written(table->indexPathForCell(cell)));
        host.tap(inRow(cell, kTouch));
    }

    void fling() {
        waitForRest();
        const MessageCell* cell = pickCell(kTouch);
        if (!cell)
            return;
        const CGPoint point = inRow(cell, kTouch);
        const CGFloat way = 40 + pick(100);
        host.touchDown(point);
        model.touched(host.time());
        host.touchMove({point.x, point.y + (pick(2) == 0 ? way : -way)}, 0.05);
        host.touchUp();
        pass(0);
    }

    void tapButton() {
        waitForRest();
        MessageCell* cell = cellOf(model.open);
        if (!cell)
            return;
        const int message = model.open;
        const int index = pick(1 + message % 3);
        const CGFloat x = width() - WalkList::stripOf(message) + kButton * (static_cast<CGFloat>(index) + 0.5);
        if (window->hitTest_withEvent(inRow(cell, x), nullptr) != cell->button(static_cast<std::size_t>(index)))
            return;
        const int kind = index + (message % 3 == 2 ? 0 : 1);
        const std::string path = written(table->indexPathForCell(cell));
        if (kind == 2)
            noteChange();
        host.tap(inRow(cell, x));
        if (kind == 1)
            expected.push_back("note " + path);
        if (kind == 2)
            expected.push_back("delete " + path);
        if (kind > 0)
            model.ranBlock();
    }

    // Changes

    UITableViewRowAnimation pickAnimation() { return static_cast<UITableViewRowAnimation>(pick(7)); }
    void deleteRow(NSInteger row) {
        list->messages.erase(list->messages.begin() + row);
        table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(row)}, pickAnimation());
        changes.push_back(host.time() + kChange);
    }
    void changeRows() {
        noteChange();
        const int kind = list->messages.size() < 4 ? 0 : list->messages.size() > 60 ? 1 : pick(4);
        if (kind == 0) {
            const NSInteger row = pick(static_cast<int>(list->messages.size()) + 1);
            list->messages.insert(list->messages.begin() + row, nextMessage++);
            table->insertRowsAtIndexPaths_withRowAnimation({rowPath(row)}, pickAnimation());
        } else if (kind == 1) {
            deleteRow(pickRow());
        } else if (kind == 2) {
            const NSInteger from = pickRow(), to = pickRow();
            const int message = list->messages[static_cast<std::size_t>(from)];
            list->messages.erase(list->messages.begin() + from);
            list->messages.insert(list->messages.begin() + to, message);
            table->moveRowAtIndexPath_toIndexPath(rowPath(from), rowPath(to));
        } else {
            table->reloadRowsAtIndexPaths_withRowAnimation({rowPath(pickRow())}, pickAnimation());
        }
        changes.push_back(host.time() + kChange);
    }

    void scroll() {
        const CGFloat most = std::max<CGFloat>(table->contentSize().height - table->bounds().size.height, 0);
        table->setContentOffset({0, static_cast<CGFloat>(pick(static_cast<int>(most) + 1))});
    }
    void rotate() {
        isUpright = !isUpright;
        host.rotate(isUpright ? UIInterfaceOrientationPortrait : UIInterfaceOrientationLandscapeLeft);
    }
    void reset() {
        // One that the table has recorded is the table's to close.
        if (MessageCell* cell = cellOf(model.open); cell && !model.isRecorded) {
            cell->resetSwipButton();
            model.isFree();
        }
    }

    void step() {
        switch (pick(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            swipe();
            break;
        case 4:
        case 5:
            tap();
            break;
        case 6:
            fling();
            break;
        case 7:
        case 8:
            tapButton();
            break;
        case 9:
        case 10:
            changeRows();
            break;
        case 11:
            UIView::performWithoutAnimation([this] { changeRows(); });
            break;
        case 12:
            scroll();
            break;
        case 13:
            if (pick(4) == 0)
                rotate();
            else if (pick(4) == 0)
                table->reloadData();
            break;
        case 14:
            reset();
            break;
        default:
            pass(pick(4) * 0.1);
        }
        pass(0);
    }
    // What should be

    void expectRows() {
        const CGRect bounds = table->bounds();
        CGFloat top = 0;
        std::vector<NSIndexPath> visible;
        for (std::size_t row = 0; row < list->messages.size(); ++row) {
            const int message = list->messages[row];
            const NSIndexPath path = rowPath(static_cast<NSInteger>(row));
            if (top + kRow > CGRectGetMinY(bounds) && top < CGRectGetMaxY(bounds)) {
                visible.push_back(path);
                const auto* cell = dynamic_cast<const MessageCell*>(table->cellForRowAtIndexPath(path));
                ASSERT_NE(cell, nullptr);
                ASSERT_EQ(cell->message, message);
                ASSERT_EQ(cell->frame(), CGRectMake(0, top, bounds.size.width, kRow));
                expectRow(cell);
            }
            top += kRow;
        }
        EXPECT_EQ(table->indexPathsForVisibleRows(), visible);
        EXPECT_EQ(table->contentSize().height, top);
        EXPECT_LE(MessageCell::alive, kMostCells);
    }
    void expectRow(const MessageCell* cell) {
        const CGFloat rest = width() / 2;
        const bool isOpen = cell->message == model.open;
        const CGFloat strip = WalkList::stripOf(cell->message);
        EXPECT_EQ(cell->contentX(), isOpen ? rest - strip : rest) << "message " << cell->message;
        if (isOpen) {
            ASSERT_NE(cell->strip(), nullptr);
            EXPECT_EQ(cell->strip()->frame(), CGRectMake(width() - strip, 0, strip, kRow));
        } else if (!model.freeAt && strips.empty()) {
            EXPECT_EQ(cell->strip(), nullptr) << "message " << cell->message;
        }
    }
    void expectSwipes() {
        std::erase_if(strips, [this](NSTimeInterval end) { return end < host.time() + kMoment; });
        EXPECT_EQ(table->zrIsSwipped(), model.isLocked);
        EXPECT_EQ(table->isScrollEnabled(), model.scrolls);
        EXPECT_EQ(list->news, expected);
        list->news.clear();
        expected.clear();
    }

    HeadlessHost host;
    std::mt19937 random{GetParam()};
    Ref<UIWindow> window;
    Ref<WalkList> list = make<WalkList>();
    Ref<ZRTableView> table;
    SwipeModel model;
    News expected;
    int nextMessage = 0;
    bool isUpright = true;
    /// When changes are over, and strips of rows that close.
    std::vector<NSTimeInterval> changes;
    std::vector<NSTimeInterval> strips;
    /// The cell that locked the table last, how often it had been used again, and how wide the table was then.
    Ref<MessageCell> locking;
    int lockedReuses = 0;
    CGFloat lockedWidth = 0;
};

} // namespace

TEST_P(SwipeWalk, ShowsWhatTheListHasAndWhatWasSwiped) {
    for (int count = 0; count < kSteps; ++count) {
        step();
        expectSwipes();
        expectRows();
        ASSERT_FALSE(HasFailure()) << "step " << count;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, SwipeWalk, ::testing::Range(1u, 9u));

} // namespace zr::testing
