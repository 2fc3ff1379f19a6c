#include <Gallery/Look/Look.h>
#include <Gallery/Look/PillButton.h>
#include <Gallery/Pages/PageRowScreen.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>

#include <algorithm>
#include <set>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "LISTS";

// A million rows

constexpr NSInteger kMillion = 1'000'000;

/// 1000000 as "1,000,000".
NSString grouped(NSInteger number) {
    const auto thousands = static_cast<int>(number / 1000), ones = static_cast<int>(number % 1000);
    if (thousands >= 1000)
        return NSString::stringWithFormat("%d,%03d,%03d", thousands / 1000, thousands % 1000, ones);
    return thousands > 0 ? NSString::stringWithFormat("%d,%03d", thousands, ones)
                         : NSString::stringWithFormat("%d", ones);
}

/// The same for a row whenever it is asked for, and without a pattern that the eye could find.
CGFloat heightOfRow(NSInteger row) {
    const auto mixed = static_cast<std::uint64_t>(row + 1) * 0x9E3779B97F4A7C15u;
    return static_cast<CGFloat>(44 + (mixed >> 58));
}

/// Rows of 44 to 107 points. A tapped row is checked, wherever it is meanwhile.
class MillionScreen : public PageRowScreen {
public:
    void viewDidLoad() override {
        PageRowScreen::viewDidLoad();
        addWayToTheEnds();
    }

    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return kMillion; }
    CGFloat tableView_heightForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        return heightOfRow(path.row());
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        const NSInteger row = path.row();
        auto cell = reusedCell("row");
        cell->zrTextLabel()->setText(grouped(row + 1));
        cell->zrAccessoryLabel()->setText(NSString::stringWithFormat("%d points", static_cast<int>(heightOfRow(row))));
        cell->setCellMultSelectBlock([this, row](bool checked) { check(row, checked); });
        cell->setZrAccessoryType(ZRAccessoryTypeCheckMark);
        cell->setCheckBoxSelected(m_checked.contains(row));
        return cell;
    }

private:
    void check(NSInteger row, bool checked) {
        if (checked)
            m_checked.insert(row);
        else
            m_checked.erase(row);
    }
    /// Two buttons that float above the rows.
    void addWayToTheEnds() {
        const CGSize size = view()->bounds().size;
        tableView()->setContentInset(UIEdgeInsetsMake(0, 0, kButtonHeight + Look::kMargin, 0));
        CGFloat left = size.width - Look::kMargin - 2 * kButtonWidth - kButtonGap;
        for (const auto& [title, row] : {std::pair<const char*, NSInteger>{"Start", 0}, {"End", kMillion - 1}}) {
            const auto button = make<PillButton>(
                &PillButton::initWithFrame_title,
                CGRectMake(left, size.height - Look::kMargin - kButtonHeight, kButtonWidth, kButtonHeight), title);
            button->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleTopMargin);
            button->setAction([this, row = row] { goTo(row); });
            view()->addSubview(button);
            left += kButtonWidth + kButtonGap;
        }
    }
    void goTo(NSInteger row) {
        tableView()->scrollToRowAtIndexPath_atScrollPosition_animated(NSIndexPath::indexPathForRow_inSection(row, 0),
                                                                      UITableViewScrollPositionBottom, false);
    }

    static constexpr CGFloat kButtonWidth = 70;
    static constexpr CGFloat kButtonHeight = 40;
    static constexpr CGFloat kButtonGap = 10;

    std::set<NSInteger> m_checked;
};

// Settings

struct Setting {
    const char* title;
    ZRAccessoryType type;
    bool isOn;
};

struct SettingGroup {
    const char* heading;
    std::vector<Setting> settings;
};

std::vector<SettingGroup> settingGroups() {
    constexpr auto toggle = ZRAccessoryTypeSwitch, box = ZRAccessoryTypeCheckBox, mark = ZRAccessoryTypeCheckMark;
    return {
        {"NOTIFICATIONS",
         {{"Messages", toggle, true},
          {"Calls", toggle, true},
          {"Mail", toggle, false},
          {"Calendar", toggle, true},
          {"News", toggle, false},
          {"Updates", toggle, false}}},
        {"BACKUP",
         {{"Photos", box, true},
          {"Videos", box, false},
          {"Music", box, false},
          {"Documents", box, true},
          {"Contacts", box, true},
          {"Bookmarks", box, false}}},
        {"LANGUAGES",
         {{"English", mark, true}, {"中文", mark, true}, {"العربية", mark, false}, {"Français", mark, false}}},
        {"PRIVACY",
         {{"Location", toggle, false},
          {"Camera", toggle, true},
          {"Microphone", toggle, true},
          {"Share statistics", box, false},
          {"Share crash reports", box, true}}},
    };
}

/// Switches, check boxes and check marks, below a row that counts what is on. That is the screen's to know: a row that
/// has scrolled away and back is shown by another cell.
class SettingListScreen : public PageRowScreen {
public:
    bool init() override {
        setStyle(UITableViewStyleGrouped);
        return PageRowScreen::init();
    }

    NSInteger numberOfSectionsInTableView(UITableView*) override {
        return kFirstGroup + static_cast<NSInteger>(m_groups.size());
    }
    NSString tableView_titleForHeaderInSection(UITableView*, NSInteger section) override {
        return section < kFirstGroup ? NSString() : NSString(groupAt(section).heading);
    }
    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger section) override {
        return section < kFirstGroup ? 1 : static_cast<NSInteger>(groupAt(section).settings.size());
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) override {
        if (path.section() < kFirstGroup)
            return countCell();
        const Setting& setting = settingAt(path);
        auto cell = reusedCell(NSString::stringWithFormat("type %d", static_cast<int>(setting.type)));
        cell->zrTextLabel()->setText(setting.title);
        const auto set = [this, path](bool on) { setOn(path, on); };
        if (setting.type == ZRAccessoryTypeSwitch)
            cell->setSwitchValueChangedBlock(set);
        else
            cell->setCellMultSelectBlock(set);
        cell->setZrAccessoryType(setting.type);
        if (auto* control = dynamic_cast<ZRSwitch*>(cell->zrAccessoryView()))
            control->setOn_animated(setting.isOn, false);
        else
            cell->setCheckBoxSelected(setting.isOn);
        return cell;
    }

private:
    static constexpr NSInteger kFirstGroup = 1;

    SettingGroup& groupAt(NSInteger section) { return m_groups.at(static_cast<std::size_t>(section - kFirstGroup)); }
    Setting& settingAt(const NSIndexPath& path) {
        return groupAt(path.section()).settings.at(static_cast<std::size_t>(path.row()));
    }
    void setOn(const NSIndexPath& path, bool on) {
        settingAt(path).isOn = on;
        const auto countPath = NSIndexPath::indexPathForRow_inSection(0, 0);
        if (auto* cell = dynamic_cast<ZRTableViewCell*>(tableView()->cellForRowAtIndexPath(countPath)))
            showCount(cell);
    }
    Ref<ZRTableViewCell> countCell() {
        auto cell = reusedCell("count");
        cell->zrTextLabel()->setText("Switched on");
        showCount(cell);
        return cell;
    }
    void showCount(ZRTableViewCell* cell) const {
        std::ptrdiff_t on = 0;
        std::size_t all = 0;
        for (const SettingGroup& group : m_groups) {
            on += std::ranges::count_if(group.settings, &Setting::isOn);
            all += group.settings.size();
        }
        cell->zrAccessoryLabel()->setText(
            NSString::stringWithFormat("%d of %d", static_cast<int>(on), static_cast<int>(all)));
        cell->setNeedsLayout();
    }

    std::vector<SettingGroup> m_groups = settingGroups();
};

} // namespace

std::vector<Page> longListPages() {
    return {
        {"list-million", "A million rows", kFamily, "Of many heights", "icon_list_million.png",
         "Only the rows in sight exist. A tap checks a row.", nullptr, 1.1, makeRowScreen<MillionScreen>},
        {"list-settings", "Settings in groups", kFamily, "Switches and check boxes", "icon_list_settings.png",
         "What is switched on stays so while rows leave the screen and come back.", nullptr, 1.1,
         makeRowScreen<SettingListScreen>},
    };
}

} // namespace zr::gallery
