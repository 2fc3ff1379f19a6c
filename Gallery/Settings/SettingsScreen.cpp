#include <Gallery/Settings/SettingsScreen.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr const char* kDevices[] = {"320x480@2", "320x568@2", "375x667@2", "414x736@3"};
constexpr const char* kVersions[] = {"6.1", "7.0", "8.4", "10.3"};

struct SlowMotion {
    const char* name;
    int factor;
};
constexpr SlowMotion kSlowMotions[] = {{"1×", 1}, {"1/4", 4}, {"1/10", 10}};

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
    m_sections = {hueSection(),      languageSection(), slowMotionSection(),
                  debugAidSection(), deviceSection(),   versionSection()};
    return true;
}

void SettingsScreen::setReopenAction(std::function<void(const DeviceProfile&)> action) {
    reopenAction = std::move(action);
}

void SettingsScreen::viewDidLoad() {
    RowScreen::viewDidLoad();
    setTextBelowRows("In a window, another device or version opens the gallery anew.");
}

// Sections

SettingsScreen::Section SettingsScreen::hueSection() {
    return {"THEME", namesOf(Look::kHues, [](Look::Hue hue) { return Look::name(hue); }),
            static_cast<std::size_t>(Look::hue()), [](std::size_t index) { Look::setHue(Look::kHues[index]); }};
}

SettingsScreen::Section SettingsScreen::languageSection() {
    return {"SAMPLE TEXT",
            namesOf(SampleText::kLanguages, [](SampleText::Language language) { return SampleText::name(language); }),
            static_cast<std::size_t>(SampleText::language()),
            [](std::size_t index) { SampleText::setLanguage(SampleText::kLanguages[index]); }};
}

SettingsScreen::Section SettingsScreen::slowMotionSection() {
    const int present = UIApplication::sharedApplication()->debugAids().slowMotion;
    return {"SLOW MOTION", namesOf(kSlowMotions, [](const SlowMotion& motion) { return motion.name; }),
            indexIn(kSlowMotions, [&](const SlowMotion& motion) { return motion.factor == present; }),
            [](std::size_t index) {
                DebugAids aids = UIApplication::sharedApplication()->debugAids();
                aids.slowMotion = kSlowMotions[index].factor;
                UIApplication::sharedApplication()->setDebugAids(aids);
            }};
}

SettingsScreen::Section SettingsScreen::debugAidSection() {
    return {"SHOW",
            {"Touches", "Layer borders", "Repainted areas", "Frame times"},
            std::nullopt,
            nullptr,
            {&DebugAids::showsTouches, &DebugAids::showsLayerBorders, &DebugAids::showsDamage,
             &DebugAids::showsFrameTimes}};
}

SettingsScreen::Section SettingsScreen::deviceSection() {
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

SettingsScreen::Section SettingsScreen::versionSection() {
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

NSInteger SettingsScreen::numberOfSectionsInTableView(UITableView*) {
    return static_cast<NSInteger>(m_sections.size());
}

NSString SettingsScreen::tableView_titleForHeaderInSection(UITableView*, NSInteger section) {
    return sectionAt(section).heading;
}

NSInteger SettingsScreen::tableView_numberOfRowsInSection(UITableView*, NSInteger section) {
    return static_cast<NSInteger>(sectionAt(section).names.size());
}

bool SettingsScreen::isChosen(const NSIndexPath& path) {
    return sectionAt(path.section()).chosen == static_cast<std::size_t>(path.row());
}

Ref<UITableViewCell> SettingsScreen::tableView_cellForRowAtIndexPath(UITableView*, const NSIndexPath& path) {
    return sectionAt(path.section()).switches.empty() ? choiceCell(path) : switchCell(path);
}

Ref<UITableViewCell> SettingsScreen::choiceCell(const NSIndexPath& path) {
    const auto cell = reusedCell("choice");
    cell->zrTextLabel()->setText(sectionAt(path.section()).names[static_cast<std::size_t>(path.row())]);
    cell->setZrAccessoryType(isChosen(path) ? ZRAccessoryTypeCheckMark : ZRAccessoryTypeNone);
    return cell;
}

Ref<UITableViewCell> SettingsScreen::switchCell(const NSIndexPath& path) {
    const auto index = static_cast<std::size_t>(path.row());
    bool DebugAids::*const aid = sectionAt(path.section()).switches[index];
    const auto cell = reusedCell("switch");
    cell->zrTextLabel()->setText(sectionAt(path.section()).names[index]);
    cell->setSwitchValueChangedBlock([aid](bool on) {
        DebugAids aids = UIApplication::sharedApplication()->debugAids();
        aids.*aid = on;
        UIApplication::sharedApplication()->setDebugAids(aids);
    });
    cell->setZrAccessoryType(ZRAccessoryTypeSwitch);
    if (auto* control = dynamic_cast<ZRSwitch*>(cell->zrAccessoryView()))
        control->setOn_animated(UIApplication::sharedApplication()->debugAids().*aid, false);
    return cell;
}

void SettingsScreen::tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) {
    table->deselectRowAtIndexPath_animated(path, false);
    if (isChosen(path) || !sectionAt(path.section()).switches.empty())
        return;
    Section& section = sectionAt(path.section());
    section.chosen = static_cast<std::size_t>(path.row());
    // The rows stay the ones they are, so that the touched one can fade.
    for (const NSIndexPath& visible : table->indexPathsForVisibleRows()) {
        auto* cell = dynamic_cast<ZRTableViewCell*>(table->cellForRowAtIndexPath(visible));
        if (cell && sectionAt(visible.section()).switches.empty())
            cell->setZrAccessoryType(isChosen(visible) ? ZRAccessoryTypeCheckMark : ZRAccessoryTypeNone);
    }
    section.choose(*section.chosen);
}

} // namespace zr::gallery
