#include <Tests/ZRPlatform/CoreGraphics/MemoryLimit.h>
#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::testing {

namespace {

constexpr rlim_t kMegabytes = 1024 * 1024;

/// A hundred million rows of two heights in the first section, and ten in the second.
class EndlessList : public NSObject, public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger numberOfSectionsInTableView(UITableView*) override { return 2; }
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger section) override {
        return section == 0 ? 99'999'990 : 10;
    }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        return path.row() % 2 == 0 ? 40 : 50;
    }
};

/// Runs in a child process, which it ends with 0 when the list ends where memory does.
[[noreturn]] void showEndlessList() {
    HeadlessHost host;
    const auto list = make<EndlessList>();
    const auto table = make<UITableView>(&UIView::initWithFrame, CGRectMake(0, 0, 320, 480));
    table->setDataSource(list);
    table->setDelegate(list);
    const tests::LogLines log;
    if (!leaveMemory(64 * kMegabytes))
        std::_Exit(2);
    const NSInteger rows = table->numberOfRowsInSection(0);
    if (rows < 1'000'000 || rows > 8'000'000)
        std::_Exit(3);
    if (table->numberOfRowsInSection(1) != 0)
        std::_Exit(4);
    const CGFloat height = static_cast<CGFloat>(rows / 2) * 90 + (rows % 2 == 0 ? 0 : 40);
    if (table->contentSize().height != height)
        std::_Exit(5);
    std::_Exit(log.lines.size() == 1 ? 0 : 1);
}

} // namespace

TEST(RowHeightsMemory, AListEndsWhereThereIsNoMemoryForItsHeights) {
    EXPECT_EXIT(showEndlessList(), ::testing::ExitedWithCode(0), "");
}

} // namespace zr::testing
