#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <Tests/ZRPlatform/UIKit/Images/ImageTesting.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCell.h>
#include <ZRPlatform/Foundation/NSBundle.h>

#include <limits>

namespace zr::testing {

inline constexpr CGFloat kNaN = std::numeric_limits<CGFloat>::quiet_NaN();
/// The colour of separators, and of rows that are touched.
inline const RGBAColor kLine = rgb(215, 217, 215);
inline const RGBAColor kWhite = rgb(255, 255, 255);

inline Ref<ZRTableViewCell> makeCell(std::int64_t style = 0, const NSString& identifier = "row") {
    return make<ZRTableViewCell>(&UITableViewCell::initWithStyle_reuseIdentifier,
                                 static_cast<UITableViewCellStyle>(style), identifier);
}

inline Ref<UIImage> squareImage() { return tests::plainImage(32, 32, tests::kRed); }

/// The cell's hairline: what lies in the cell itself beside the content view.
inline UIView* lineOf(const UITableViewCell* cell) {
    for (const Ref<UIView>& view : cell->subviews()) {
        if (view != cell->contentView() && rgba(view->backgroundColor()) == kLine)
            return view;
    }
    return nullptr;
}

/// The accessory's pictures as the application's, each of its own width.
class AccessoryImages {
public:
    AccessoryImages() {
        CGFloat side = 20;
        for (const char* name : {"icon_list_loading.png", "icon_list_check.png", "list_icon_1.png",
                                 "checkbox_1_normal.png", "checkbox_1_press.png"}) {
            const auto image = tests::plainImage(static_cast<NSUInteger>(side), 8, tests::kRed);
            m_folder.write(name, UIImagePNGRepresentation(image));
            m_widths[name] = side++;
        }
        NSBundle::setMainBundlePath(m_folder.path());
    }
    ~AccessoryImages() { NSBundle::setMainBundlePath(nullptr); }
    CGFloat widthOf(const std::string& name) const { return m_widths.at(name); }

private:
    tests::TemporaryFolder m_folder;
    std::map<std::string, CGFloat> m_widths;
};

/// A list of cells, each made ready by the test.
class CellList : public NSObject, public UITableViewDataSource, public UITableViewDelegate {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return rows; }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        auto cell = dynamicCast<ZRTableViewCell>(table->dequeueReusableCellWithIdentifier("row"));
        if (!cell)
            cell = makeCell();
        if (prepare)
            prepare(cell, path.row());
        return cell;
    }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) override { return 60; }
    void tableView_didSelectRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        selected.push_back(path.row());
        if (onSelect)
            onSelect();
    }

    NSInteger rows = 20;
    std::vector<NSInteger> selected;
    std::function<void(ZRTableViewCell*, NSInteger row)> prepare;
    std::function<void()> onSelect;
};

/// A table of rows 60 points high that fills a screen of 320 x 480 points.
class CellsOnScreen : public ::testing::Test {
protected:
    explicit CellsOnScreen(const NSString& version = "8.4") : host(device(320, 480, 2, version)) {}

    void show(std::function<void(ZRTableViewCell*, NSInteger)> prepare) {
        list->prepare = std::move(prepare);
        table = make<UITableView>(&UITableView::initWithFrame_style, window->bounds(), UITableViewStylePlain);
        table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
        table->setDataSource(list);
        table->setDelegate(list);
        window->addSubview(table);
        host.advance(0);
    }
    ZRTableViewCell* cellAt(NSInteger row) const {
        return dynamic_cast<ZRTableViewCell*>(
            table->cellForRowAtIndexPath(NSIndexPath::indexPathForRow_inSection(row, 0)));
    }
    /// Left in the row, where nothing of it takes touches.
    static CGPoint inRow(NSInteger row) { return {100, static_cast<CGFloat>(row) * 60 + 30}; }
    /// A finger on the row until it counts as no drag.
    void press(NSInteger row) {
        host.touchDown(inRow(row));
        host.advance(0.2);
    }
    static RGBAColor seen(const UIView* view) { return view->layer()->presentationValues().backgroundColor->rgba(); }

    HeadlessHost host;
    Ref<UIWindow> window = showWindow(UIColor::blackColor());
    Ref<CellList> list = make<CellList>();
    Ref<UITableView> table;
};

} // namespace zr::testing
