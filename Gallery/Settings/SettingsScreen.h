#pragma once

#include <Gallery/Look/RowScreen.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

#include <optional>

namespace zr::gallery {

/// The device and its system version, the hue of the bars, and the language of the texts that components are shown
/// with.
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
    /// A section: one of several, or none that is offered.
    struct Choice {
        const char* heading;
        std::vector<NSString> names;
        std::optional<std::size_t> chosen;
        std::function<void(std::size_t index)> choose;
    };

    Choice& choiceAt(NSInteger section) { return m_choices.at(static_cast<std::size_t>(section)); }
    bool isChosen(const NSIndexPath& path);
    static Choice hueChoice();
    static Choice languageChoice();
    static Choice deviceChoice();
    static Choice versionChoice();

    std::vector<Choice> m_choices;
};

} // namespace zr::gallery
