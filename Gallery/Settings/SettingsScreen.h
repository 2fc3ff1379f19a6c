#pragma once

#include <Gallery/Look/RowScreen.h>
#include <ZRPlatform/UIKit/Application/DebugAids.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

#include <optional>

namespace zr::gallery {

/// The hue of the bars, the language of the texts that components are shown with, what helps to see how things work,
/// and the device with its system version.
class SettingsScreen : public RowScreen {
public:
    bool init() override;

    /// Called when another device or version is chosen, which the application must be started with. Empty at first;
    /// such a choice then comes to nothing.
    static void setReopenAction(std::function<void(const DeviceProfile&)> action);

    void viewDidLoad() override;

    /// @name Rows
    /// @{
    NSInteger numberOfSectionsInTableView(UITableView* table) override;
    NSString tableView_titleForHeaderInSection(UITableView* table, NSInteger section) override;
    NSInteger tableView_numberOfRowsInSection(UITableView* table, NSInteger section) override;
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    void tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override;
    /// @}

private:
    struct Section {
        const char* heading;
        std::vector<NSString> names;
        /// One of several, or none that is offered; nothing in a section of switches.
        std::optional<std::size_t> chosen;
        std::function<void(std::size_t index)> choose;
        /// One a row in a section of switches.
        std::vector<bool DebugAids::*> switches = {};
    };

    Section& sectionAt(NSInteger section) { return m_sections.at(static_cast<std::size_t>(section)); }
    bool isChosen(const NSIndexPath& path);
    Ref<UITableViewCell> choiceCell(const NSIndexPath& path);
    Ref<UITableViewCell> switchCell(const NSIndexPath& path);
    static Section hueSection();
    static Section languageSection();
    static Section slowMotionSection();
    static Section debugAidSection();
    static Section deviceSection();
    static Section versionSection();

    std::vector<Section> m_sections;
};

} // namespace zr::gallery
