#include <Gallery/Settings/SettingsScreen.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Settings/SampleText.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr const char* kDevices[] = {"320x480@2", "320x568@2", "375x667@2", "414x736@3"};
constexpr const char* kVersions[] = {"6.1", "7.0", "8.4", "10.3"};

std::function<void(const DeviceProfile&)> reopenAction;

void reopen(const DeviceProfile& profile) {
    if (reopenAction)
        reopenAction(profile);
}

template <class Range, class IsWanted>
std::optional<std::size_t> indexIn(const Range& range, const IsWanted& isWanted) {
    const auto found = std::find_if(std::begin(range), std::end(range), isWanted);
    if (found == std::end(range))
        return std::nullopt;
    return static_cast<std::size_t>(found - std::begin(range));
}

template <class Range, class Name>
std::vector<NSString> namesOf(const Range& range, const Name& name) {
    std::vector<NSString> names;
    for (const auto& each : range)
        names.push_back(name(each));
    return names;
}

} // namespace

bool SettingsScreen::init() {
    setStyle(UITableViewStyleGrouped);
    if (!RowScreen::init())
        return false;
    setTitle("Settings");
    m_choices = {hueChoice(), languageChoice(), deviceChoice(), versionChoice()};
    return true;
}

void SettingsScreen::setReopenAction(std::function<void(const DeviceProfile&)> action) {
    reopenAction = std::move(action);
}

void SettingsScreen::viewDidLoad() {
    RowScreen::viewDidLoad();
    setTextBelowRows("In a window, another device or version opens the gallery anew.");
}

// Choices

SettingsScreen::Choice SettingsScreen::hueChoice() {
    return {"THEME", namesOf(Look::kHues, [](Look::Hue hue) { return Look::name(hue); }),
            static_cast<std::size_t>(Look::hue()), [](std::size_t index) { Look::setHue(Look::kHues[index]); }};
}

SettingsScreen::Choice SettingsScreen::languageChoice() {
    return {"SAMPLE TEXT",
            namesOf(SampleText::kLanguages, [](SampleText::Language language) { return SampleText::name(language); }),
            static_cast<std::size_t>(SampleText::language()),
            [](std::size_t index) { SampleText::setLanguage(SampleText::kLanguages[index]); }};
}

SettingsScreen::Choice SettingsScreen::deviceChoice() {
    const DeviceProfile present = UIDevice::currentDevice()->profile();
    return {"DEVICE",
            {std::begin(kDevices), std::end(kDevices)},
            indexIn(kDevices,
                    [&](const char* device) {
                        return DeviceProfile::profileWithDescription(device)->screenSize == present.screenSize;
                    }),
            [](std::size_t index) {
                DeviceProfile profile = *DeviceProfile::profileWithDescription(kDevices[index]);
                profile.systemVersion = UIDevice::currentDevice()->systemVersion();
                reopen(profile);
            }};
}

SettingsScreen::Choice SettingsScreen::versionChoice() {
    return {
        "SYSTEM VERSION",
        {std::begin(kVersions), std::end(kVersions)},
        indexIn(kVersions,
                [](const char* version) { return UIDevice::currentDevice()->systemVersion() == NSString(version); }),
        [](std::size_t index) {
            DeviceProfile profile = UIDevice::currentDevice()->profile();
            profile.systemVersion = kVersions[index];
            reopen(profile);
        }};
}

// Rows

NSInteger SettingsScreen::numberOfSectionsInTableView(UITableView*) { return static_cast<NSInteger>(m_choices.size()); }

NSString SettingsScreen::tableView_titleForHeaderInSection(UITableView*, NSInteger section) {
    return choiceAt(section).heading;
}

NSInteger SettingsScreen::tableView_numberOfRowsInSection(UITableView*, NSInteger section) {
    return static_cast<NSInteger>(choiceAt(section).names.size());
}

bool SettingsScreen::isChosen(const NSIndexPath& path) {
    return choiceAt(path.section()).chosen == static_cast<std::size_t>(path.row());
}

Ref<UITableViewCell> SettingsScreen::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) {
    const auto cell = reusedCell("choice");
    cell->zrTextLabel()->setText(choiceAt(path.section()).names[static_cast<std::size_t>(path.row())]);
    cell->setZrAccessoryType(isChosen(path) ? ZRAccessoryTypeCheckMark : ZRAccessoryTypeNone);
    return cell;
}

void SettingsScreen::tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) {
    table->deselectRowAtIndexPath_animated(path, false);
    if (isChosen(path))
        return;
    Choice& choice = choiceAt(path.section());
    choice.chosen = static_cast<std::size_t>(path.row());
    // The rows stay the ones they are, so that the touched one can fade.
    for (const NSIndexPath& visible : table->indexPathsForVisibleRows()) {
        if (auto* cell = dynamic_cast<ZRTableViewCell*>(table->cellForRowAtIndexPath(visible)))
            cell->setZrAccessoryType(isChosen(visible) ? ZRAccessoryTypeCheckMark : ZRAccessoryTypeNone);
    }
    choice.choose(*choice.chosen);
}

} // namespace zr::gallery
