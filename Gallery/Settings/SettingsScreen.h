#pragma once

#include <Gallery/Look/Screen.h>
#include <ZRPlatform/UIKit/Application/UIDevice.h>

namespace zr::gallery {

class RowList;

/// The device and its system version, the hue of the bars, and the language of the texts that components are shown
/// with. Made with the title.
class SettingsScreen : public Screen {
public:
    void viewDidLoad() override;

    /// Called when another device or version is chosen, which the application must be started with. Empty at first;
    /// such a choice then comes to nothing.
    static void setReopenAction(std::function<void(const DeviceProfile&)> action);

private:
    void addChoices(RowList* rows, const NSString& heading, const std::vector<NSString>& names, std::size_t chosen,
                    const std::function<void(std::size_t index)>& choose);
    void addDevices(RowList* rows);
    void addVersions(RowList* rows);
    void addHues(RowList* rows);
    void addLanguages(RowList* rows);
};

} // namespace zr::gallery
