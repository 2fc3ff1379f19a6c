#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowButton.h>

#include <map>
#include <string>

namespace zr::testing {

using Actions = std::vector<Ref<ZRTableViewRowAction>>;
using News = std::vector<std::string>;

inline NSIndexPath rowPath(NSInteger row) { return NSIndexPath::indexPathForRow_inSection(row, 0); }
inline std::string written(const NSIndexPath& path) { return path.description().utf8(); }

inline Ref<ZRTableViewRowAction> action(CGFloat width, const NSString& title = "Action",
                                        const ZRTableViewRowActionBlock& block = nullptr) {
    return ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(UIColor::redColor(), width,
                                                                                       title, block);
}

/// Knows what it shows, and how many there are.
class MessageCell : public ZRTableViewCellSlip {
public:
    MessageCell() { ++alive; }
    ~MessageCell() override { --alive; }
    void prepareForReuse() override {
        ZRTableViewCellSlip::prepareForReuse();
        ++reuses;
    }

    UIView* strip() const {
        for (const auto& view : subviews()) {
            if (subviewOfClass<ZRTableViewRowButton>(view))
                return view;
        }
        return nullptr;
    }
    ZRTableViewRowButton* button(std::size_t index) const {
        return dynamic_cast<ZRTableViewRowButton*>(strip()->subviews().at(index).get());
    }
    CGFloat contentX() const { return contentView()->center().x; }
    CGFloat seenContentX() const { return contentView()->layer()->presentationValues().position.x; }
    CGFloat stripX() const { return strip()->center().x; }
    CGFloat seenStripX() const { return strip()->layer()->presentationValues().position.x; }

    int message = -1;
    int reuses = 0;
    inline static int alive = 0;
};

/// One section of numbered messages, as data source and delegate. Each has two buttons of 70 points, unless a test says
/// otherwise.
class MessageList : public NSObject,
                    public UITableViewDataSource,
                    public UITableViewDelegate,
                    public ZRTableViewDataSource {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override {
        return static_cast<NSInteger>(messages.size());
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        Ref<MessageCell> cell = dynamicCast<MessageCell>(table->dequeueReusableCellWithIdentifier("message"));
        if (!cell)
            cell = make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault,
                                     "message");
        cell->message = messages.at(static_cast<std::size_t>(path.row()));
        return cell;
    }
    void tableView_didSelectRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        news.push_back("selected " + written(path));
    }
    Actions tableView_zrEditActionsForRowAtIndexPath(ZRTableView* table, const NSIndexPath& path) override {
        askedForActions.push_back(path);
        return actions ? actions(table, path) : Actions{action(70), action(70)};
    }
    bool tableView_zrCanEditRowAtIndexPath(ZRTableView*, const NSIndexPath& path) override {
        askedWhether.push_back(path);
        return canEdit(path);
    }
    /// An action that writes down what its block is given.
    Ref<ZRTableViewRowAction> noting(CGFloat width, const std::string& title) {
        return action(width, title, [this](ZRTableViewRowAction* tapped, const NSIndexPath& path) {
            news.push_back(tapped->title().utf8() + " " + written(path));
        });
    }
    void fill(int count) {
        messages.clear();
        for (int i = 0; i < count; ++i)
            messages.push_back(i);
    }

    std::vector<int> messages;
    std::function<Actions(ZRTableView*, const NSIndexPath&)> actions;
    std::function<bool(const NSIndexPath&)> canEdit = [](const NSIndexPath&) { return true; };
    std::vector<NSIndexPath> askedForActions;
    std::vector<NSIndexPath> askedWhether;
    News news;
};

/// Keeps a cell of its own for every message.
class KeepingList : public MessageList {
public:
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        Ref<MessageCell>& cell = cells[messages.at(static_cast<std::size_t>(path.row()))];
        if (!cell)
            cell = make<MessageCell>(&UITableViewCell::initWithStyle_reuseIdentifier, UITableViewCellStyleDefault,
                                     nullptr);
        return cell;
    }

    std::map<int, Ref<MessageCell>> cells;
};

/// A table of twenty messages, 60 points each, over a screen of 320 x 480 points. Content views rest at x = 160.
class SwipeTest : public ::testing::Test {
protected:
    static constexpr CGFloat kRowHeight = 60;
    /// How far a finger moves before a drag begins. From there on distances count.
    static constexpr CGFloat kThreshold = 10;
    static constexpr CGFloat kStart = 300;
    static constexpr CGFloat kRest = 160;
    /// As long as rows take to open and close.
    static constexpr NSTimeInterval kSettling = 0.2;

    explicit SwipeTest(const NSString& version = "8.4") : host(device(320, 480, 2, version)) {
        window = showWindow(UIColor::blackColor());
        list->fill(20);
        table = makeTable(list);
    }

    template <class Table = ZRTableView, class List>
    Ref<ZRTableView> makeTable(const Ref<List>& source) {
        const auto made = make<Table>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 480));
        made->setRowHeight(kRowHeight);
        made->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
        made->setDataSource(source);
        made->setDelegate(source);
        window->addSubview(made);
        host.advance(0);
        return made;
    }

    template <class List>
    void showOther() {
        table->removeFromSuperview();
        list = make<List>();
        list->fill(20);
        table = makeTable(list);
    }
    void deleteRow(NSInteger row, UITableViewRowAnimation animation) {
        list->messages.erase(list->messages.begin() + row);
        table->deleteRowsAtIndexPaths_withRowAnimation({rowPath(row)}, animation);
    }

    MessageCell* cell(NSInteger row) const {
        return dynamic_cast<MessageCell*>(table->cellForRowAtIndexPath(rowPath(row)));
    }
    CGFloat middleOfRow(NSInteger row) const {
        return kRowHeight * static_cast<CGFloat>(row) + kRowHeight / 2 - table->contentOffset().y;
    }
    /// Begins a drag in the row: the distances of `drag` count from here.
    void beginDrag(NSInteger row, CGFloat start = kStart) {
        m_dragY = middleOfRow(row);
        m_dragX = start - kThreshold;
        host.touchDown({start, m_dragY});
        host.touchMove({m_dragX, m_dragY});
    }
    /// So far to the left.
    void drag(CGFloat distance, CGFloat down = 0) { host.touchMove({m_dragX - distance, m_dragY + down}); }
    void letGo() { host.touchUp(); }
    void settle() { host.advance(kSettling); }
    void swipe(NSInteger row, CGFloat distance = 100) {
        beginDrag(row);
        drag(distance);
        letGo();
    }
    void swipeOpen(NSInteger row) {
        swipe(row);
        settle();
    }
    void tapRow(NSInteger row) { host.tap({20, middleOfRow(row)}); }
    void tapButton(NSInteger row, std::size_t index) { host.tap(middleOnScreen(cell(row)->button(index))); }
    NSIndexPath selectedRow() const { return table->indexPathForSelectedRow(); }
    News news() { return std::exchange(list->news, {}); }
    void giveActions(const Actions& given) {
        list->actions = [given](ZRTableView*, const NSIndexPath&) { return given; };
    }

    /// Nothing shows of a swipe, and the table is free.
    void expectClosed(NSInteger row) const {
        EXPECT_EQ(cell(row)->contentX(), kRest);
        EXPECT_EQ(cell(row)->seenContentX(), kRest);
        EXPECT_EQ(cell(row)->strip(), nullptr);
        EXPECT_FALSE(table->zrIsSwipped());
        EXPECT_TRUE(table->isScrollEnabled());
    }
    void expectOpen(NSInteger row, CGFloat stripWidth = 140) const {
        EXPECT_EQ(cell(row)->contentX(), kRest - stripWidth);
        ASSERT_NE(cell(row)->strip(), nullptr);
        EXPECT_EQ(cell(row)->stripX(), 320 - stripWidth / 2);
        EXPECT_TRUE(table->zrIsSwipped());
    }
    /// Rows are at rest, can be swiped and selected, and the list scrolls.
    void expectFreeTable() {
        for (const auto& each : table->visibleCells()) {
            EXPECT_EQ(each->contentView()->center().x, table->bounds().size.width / 2);
            EXPECT_EQ(dynamicCast<MessageCell>(each)->strip(), nullptr);
        }
        EXPECT_FALSE(table->zrIsSwipped());
        EXPECT_TRUE(table->isScrollEnabled());
        tapRow(6);
        EXPECT_EQ(selectedRow(), rowPath(6)) << "no touch goes into closing what is not open";
        giveActions({action(70), action(70)});
        beginDrag(5, 280);
        drag(100);
        letGo();
        settle();
        EXPECT_TRUE(table->zrIsSwipped());
        EXPECT_EQ(cell(5)->contentX(), table->bounds().size.width / 2 - 140);
    }

    HeadlessHost host;
    Ref<UIWindow> window;
    Ref<MessageList> list = make<MessageList>();
    Ref<ZRTableView> table;

private:
    CGFloat m_dragX = 0;
    CGFloat m_dragY = 0;
};

} // namespace zr::testing
