#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageRowScreen.h>
#include <ZRKitDynamic/ZRAnimation/ZRAnimation.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>

#include <array>
#include <span>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "LISTS";

// Accessories

struct AccessoryRow {
    ZRAccessoryType type;
    const char* title;
    const char* detail;
};

constexpr AccessoryRow kAccessoryRows[] = {
    {ZRAccessoryTypeNone, "None", "Here and in most others taps are counted."},
    {ZRAccessoryTypeImage, "Image", "A picture that the application brings."},
    {ZRAccessoryTypeButton, "Button", "Its taps are not the row’s."},
    {ZRAccessoryTypeLoading, "Loading", "The page turns it, not the kit."},
    {ZRAccessoryTypeCheckBox, "Check box", "A tap of the row checks it too."},
    {ZRAccessoryTypeSwitch, "Switch", "Only its own taps move it."},
    {ZRAccessoryTypeCheckMark, "Check mark", "It comes and goes with taps of the row."},
    {ZRAccessoryTypeListIcon, "List icon", "It tells that a tap leads on."},
};

/// All accessories, each of which tells in its row what was done with it.
class AccessoryScreen : public PageRowScreen {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return std::size(kAccessoryRows); }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) override { return 64; }

    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        const AccessoryRow& row = kAccessoryRows[path.row()];
        // Rows with an accessory that works are few, and are not used for one another.
        auto cell = reusedCell(row.title);
        cell->zrTextLabel()->setText(row.title);
        cell->zrDetailTextLabel()->setText(row.detail);
        cell->zrDetailTextLabel()->setFrame(CGRectMake(0, 0, 0, 24));
        addBlocks(cell, path.row());
        cell->setZrAccessoryType(row.type);
        dressAccessory(cell);
        return cell;
    }

private:
    struct Counts {
        int taps = 0;
        int buttonTaps = 0;
    };

    static void tell(ZRTableViewCell* cell, const NSString& what) {
        cell->zrAccessoryLabel()->setText(what);
        cell->setNeedsLayout();
    }
    static NSString counted(const char* what, int count) { return NSString::stringWithFormat("%s %d", what, count); }

    void addBlocks(ZRTableViewCell* cell, NSInteger index) {
        const Weak<ZRTableViewCell> weak = cell;
        Counts& counts = m_counts[index];
        cell->setCellAccessoryButtonBlock([weak, &counts] { tell(weak, counted("button", ++counts.buttonTaps)); });
        cell->setSwitchValueChangedBlock([weak](bool on) { tell(weak, on ? "on" : "off"); });
        const ZRAccessoryType type = kAccessoryRows[index].type;
        if (type == ZRAccessoryTypeCheckBox || type == ZRAccessoryTypeCheckMark)
            cell->setCellMultSelectBlock([weak](bool checked) { tell(weak, checked ? "checked" : "unchecked"); });
        else
            cell->setCellSelectedBlock([weak, &counts] { tell(weak, counted("tap", ++counts.taps)); });
    }

    static void dressAccessory(ZRTableViewCell* cell) {
        UIView* view = cell->zrAccessoryView();
        if (cell->zrAccessoryType() == ZRAccessoryTypeImage)
            dynamic_cast<UIImageView*>(view)->setImage(UIImage::imageNamed("icon_list_star.png"));
        if (cell->zrAccessoryType() == ZRAccessoryTypeButton)
            dynamic_cast<UIButton*>(view)->setImage_forState(UIImage::imageNamed("icon_list_add.png"),
                                                             UIControlStateNormal);
        if (cell->zrAccessoryType() == ZRAccessoryTypeLoading)
            view->layer()->addAnimation_forKey(ZRAnimation::animationForRotation(1), "turn");
    }

    std::array<Counts, std::size(kAccessoryRows)> m_counts;
};

// Texts

/// A row, and the heights, in points, that suit it: its own and the detail's, which is the mark's where there is no
/// detail.
struct TextRow {
    CGFloat height;
    CGFloat detailHeight;
    bool hasIcon;
    const char* title;
    const char* detail = nullptr;
    const char* mark = nullptr;
    const char* accessory = nullptr;
    bool hasFullLine = false;
};

constexpr const char* kLongDetail = "A second line of text that goes on over the end of its line and is cut at the end "
                                    "of the next one, because there is no room for a third";

constexpr TextRow kMarkRows[] = {
    {50, 44, false, "Title"},
    {50, 44, true, "Icon and title"},
    {60, 20, false, "Title and mark", nullptr, "mark"},
    {60, 20, true, "Icon, title and mark", nullptr, "mark"},
    {64, 30, false, "Title and detail", "detail"},
    {64, 30, true, "Icon, title and detail", "detail"},
    {84, 24, false, "Title, detail and mark", "detail", "mark"},
    {84, 24, true, "Icon, title, detail and mark", "detail", "mark"},
    {104, 44, true, "With a long detail", kLongDetail, "mark"},
};

constexpr TextRow kPlainRows[] = {
    {64, 30, false, "Title and detail", "detail"},
    {64, 30, true, "Icon, title and detail", "detail"},
    {80, 40, true, "With a long detail", kLongDetail},
    {50, 44, false, "With a text at the right", nullptr, nullptr, "12 MB"},
    {64, 30, true, "With all but a mark", "detail", nullptr, "12 MB"},
    {50, 44, false, "A title that is far too long for its row and ends early", nullptr, nullptr, "Yesterday"},
    {64, 30, false, "标题、图标与详细信息", "第二行文字", nullptr, "昨天"},
    {50, 44, true, "With a line of full length", nullptr, nullptr, nullptr, true},
};

std::span<const TextRow> textRows(NSInteger section) {
    if (section == 0)
        return kMarkRows;
    return kPlainRows;
}

/// Every combination of what a row can be made of.
class TextScreen : public PageRowScreen {
public:
    NSInteger numberOfSectionsInTableView(UITableView*) override { return 2; }
    NSString tableView_titleForHeaderInSection(UITableView*, NSInteger section) override {
        return section == 0 ? "STYLE 2, WHICH HAS A MARK" : "ALL OTHER STYLES";
    }
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger section) override {
        return static_cast<NSInteger>(textRows(section).size());
    }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        return rowAt(path).height;
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        const TextRow& row = rowAt(path);
        const bool hasMark = path.section() == 0;
        auto cell = hasMark ? reusedCell("mark", ZRTableViewCellStyleMark) : reusedCell("plain");
        // The row before may have had another height.
        cell->zrImageView()->setFrame(CGRectZero);
        cell->zrImageView()->setContentMode(UIViewContentModeCenter);
        cell->zrImageView()->setImage(row.hasIcon ? UIImage::imageNamed("icon_list_texts.png") : nullptr);
        cell->zrTextLabel()->setText(row.title);
        cell->zrDetailTextLabel()->setText(row.detail);
        cell->zrDetailTextLabel()->setFrame(CGRectMake(0, 0, 0, row.detailHeight));
        if (hasMark)
            cell->zrMarkTextLabel()->setText(row.mark);
        cell->zrAccessoryLabel()->setText(row.accessory);
        cell->setShowFullLine(row.hasFullLine);
        return cell;
    }

private:
    static const TextRow& rowAt(const NSIndexPath& path) {
        return textRows(path.section())[static_cast<std::size_t>(path.row())];
    }
};

// Rows of one's own

/// What rows can be besides.
class OwnRowScreen : public PageRowScreen {
public:
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return std::size(kTitles); }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath&) override { return 76; }

    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        const NSInteger row = path.row();
        auto cell = reusedCell(kTitles[row]);
        cell->zrTextLabel()->setText(kTitles[row]);
        cell->zrDetailTextLabel()->setText(kDetails[row]);
        cell->zrDetailTextLabel()->setFrame(CGRectMake(0, 0, 0, 40));
        switch (row) {
        case 0:
            cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
            cell->setShowSelectedStyle(true);
            break;
        case 1:
            cell->setZrAccessoryView(makeBadge("3"));
            break;
        case 2:
            cell->setShowFullLine(true);
            break;
        default:
            cell->zrTextLabel()->setTextColor(Look::cursorColor());
            cell->zrTextLabel()->setFont(UIFont::boldSystemFontOfSize(17));
        }
        return cell;
    }

private:
    static constexpr const char* kTitles[] = {"A switch, and a row that darkens", "A view of one’s own",
                                              "A line over the whole width", "Fonts and colours"};
    static constexpr const char* kDetails[] = {
        "Touched beside its switch, it shows the touch as other rows do.",
        "Any view can stand at the right; it keeps its size.",
        "It begins at the left edge, not where the title does.",
        "The labels are the application’s to change, and so is every other view of a row.",
    };

    static Ref<UIView> makeBadge(const NSString& text) {
        const CGRect frame = CGRectMake(0, 0, 28, 28);
        auto badge = make<UIView>(&UIView::initWithFrame, frame);
        badge->setOpaque(false);
        badge->setBackgroundColor(Look::cursorColor());
        badge->layer()->setCornerRadius(frame.size.height / 2);
        const auto label =
            Look::label(text, UIFont::boldSystemFontOfSize(15), UIColor::whiteColor(), 1, NSTextAlignmentCenter);
        label->setFrame(frame);
        badge->addSubview(label);
        return badge;
    }
};

} // namespace

std::vector<Page> cellPages() {
    return {
        {"list-accessories", "Accessories", kFamily, "What rows show at their right", "icon_list_accessories.png",
         "A row darkens under a finger and fades back. What is done with its accessory is told beside it.", nullptr,
         1.1, makeRowScreen<AccessoryScreen>},
        {"list-texts", "Texts in rows", kFamily, "Icon, title, detail, mark", "icon_list_texts.png",
         "A row places what it has. Its hairline begins where the icon or the title does.", nullptr, 1.1,
         makeRowScreen<TextScreen>},
        {"list-own", "Rows of one’s own", kFamily, "A badge, a full line, other fonts", "icon_list_star.png",
         "What else can be done with a row.", nullptr, 1.1, makeRowScreen<OwnRowScreen>},
    };
}

} // namespace zr::gallery
