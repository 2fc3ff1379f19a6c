#include <ZRPlatform/UIKit/Application/UIDevice.h>

#include <ZRPlatform/Foundation/NSLog.h>
#include <ZRPlatform/UIKit/Application/UIScreen.h>

#include <cstdio>
#include <utility>

namespace zr {

std::optional<DeviceProfile> DeviceProfile::profileWithDescription(const NSString& description) {
    double width = 0, height = 0, pixels = 0;
    int read = 0;
    const int count = std::sscanf(description.UTF8String(), "%lfx%lf@%lf%n", &width, &height, &pixels, &read);
    if (count != 3 || static_cast<std::size_t>(read) != description.utf8().size())
        return std::nullopt;
    const auto isSide = [](double side) { return side >= 1 && side <= 16384; };
    if (!isSide(width) || !isSide(height) || !(pixels >= 0.5 && pixels <= 8))
        return std::nullopt;
    if (width * height * pixels * pixels > 64e6)
        return std::nullopt;
    DeviceProfile profile;
    profile.screenSize = {CGFloat(width), CGFloat(height)};
    profile.scale = CGFloat(pixels);
    return profile;
}

double DeviceProfile::foundationVersionNumber() const {
    static constexpr std::pair<double, double> kNumbers[] = {
        {6.1, 993.00}, {7.0, 1047.20}, {7.1, 1047.25}, {8.0, 1140.11}, {8.4, 1144.17}, {9.0, 1240.1}, {10.0, 1280.25}};
    double number = kNumbers[0].second;
    for (const auto& [version, foundation] : kNumbers) {
        if (systemVersion.doubleValue() >= version)
            number = foundation;
    }
    return number;
}

UIDevice* UIDevice::currentDevice() {
    static UIDevice* const device = make<UIDevice>().leak();
    return device;
}

const NSString& UIDevice::systemVersion() const { return m_profile.systemVersion; }

void UIDevice::setProfile(const DeviceProfile& profile) {
    m_profile = profile;
    setFoundationVersionNumber(profile.foundationVersionNumber());
}

UIScreen* UIScreen::mainScreen() {
    static UIScreen* const screen = make<UIScreen>().leak();
    return screen;
}

CGRect UIScreen::bounds() const {
    const DeviceProfile& profile = UIDevice::currentDevice()->profile();
    const bool landscape = profile.orientation == UIInterfaceOrientationLandscapeLeft ||
                           profile.orientation == UIInterfaceOrientationLandscapeRight;
    const CGSize size = profile.screenSize;
    if (landscape && profile.systemVersion.intValue() >= 8)
        return {{0, 0}, {size.height, size.width}};
    return {{0, 0}, size};
}

CGFloat UIScreen::scale() const { return UIDevice::currentDevice()->profile().scale; }

} // namespace zr
