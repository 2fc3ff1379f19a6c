#include <Gallery/Settings/SettingsScreen.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Look/RowList.h>
#include <Gallery/Settings/ChoiceRow.h>
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

} // namespace

void SettingsScreen::setReopenAction(std::function<void(const DeviceProfile&)> action) {
    reopenAction = std::move(action);
}

void SettingsScreen::viewDidLoad() {
    Screen::viewDidLoad();
    const auto rows = make<RowList>(&RowList::initWithFrame, contentFrame());
    addHues(rows);
    addLanguages(rows);
    addDevices(rows);
    addVersions(rows);
    rows->addNote("In a window, another device or version opens the gallery anew.");
    view()->addSubview(rows);
}

void SettingsScreen::addChoices(RowList* rows, const NSString& heading, const std::vector<NSString>& names,
                                std::size_t chosen, const std::function<void(std::size_t)>& choose) {
    rows->addHeading(heading);
    std::vector<ChoiceRow*> choices;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto row = make<ChoiceRow>(&ChoiceRow::initWithName_isLast, names[i], i + 1 == names.size());
        row->setChosen(i == chosen);
        rows->addRow(row);
        choices.push_back(row);
    }
    for (std::size_t i = 0; i < choices.size(); ++i) {
        choices[i]->setAction([choices, i, choose] {
            if (choices[i]->isChosen())
                return;
            for (ChoiceRow* choice : choices)
                choice->setChosen(choice == choices[i]);
            choose(i);
        });
    }
}

void SettingsScreen::addHues(RowList* rows) {
    std::vector<NSString> names;
    for (const Look::Hue hue : Look::kHues)
        names.push_back(Look::name(hue));
    addChoices(rows, "THEME", names, static_cast<std::size_t>(Look::hue()),
               [](std::size_t index) { Look::setHue(Look::kHues[index]); });
}

void SettingsScreen::addLanguages(RowList* rows) {
    std::vector<NSString> names;
    for (const SampleText::Language language : SampleText::kLanguages)
        names.push_back(SampleText::name(language));
    addChoices(rows, "SAMPLE TEXT", names, static_cast<std::size_t>(SampleText::language()),
               [](std::size_t index) { SampleText::setLanguage(SampleText::kLanguages[index]); });
}

void SettingsScreen::addDevices(RowList* rows) {
    const DeviceProfile present = UIDevice::currentDevice()->profile();
    const auto* chosen = std::find_if(std::begin(kDevices), std::end(kDevices), [&](const char* device) {
        return DeviceProfile::profileWithDescription(device)->screenSize == present.screenSize;
    });
    addChoices(rows, "DEVICE", {std::begin(kDevices), std::end(kDevices)},
               static_cast<std::size_t>(chosen - std::begin(kDevices)), [](std::size_t index) {
                   DeviceProfile profile = *DeviceProfile::profileWithDescription(kDevices[index]);
                   profile.systemVersion = UIDevice::currentDevice()->systemVersion();
                   reopen(profile);
               });
}

void SettingsScreen::addVersions(RowList* rows) {
    const auto* chosen = std::find_if(std::begin(kVersions), std::end(kVersions), [](const char* version) {
        return UIDevice::currentDevice()->systemVersion() == NSString(version);
    });
    addChoices(rows, "SYSTEM VERSION", {std::begin(kVersions), std::end(kVersions)},
               static_cast<std::size_t>(chosen - std::begin(kVersions)), [](std::size_t index) {
                   DeviceProfile profile = UIDevice::currentDevice()->profile();
                   profile.systemVersion = kVersions[index];
                   reopen(profile);
               });
}

} // namespace zr::gallery
