#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>

#include <optional>

#pragma GCC visibility push(default)
namespace zr {

/// Where the upper edge of what is shown is, on the device.
enum UIInterfaceOrientation : NSInteger {
    UIInterfaceOrientationPortrait = 1,
    UIInterfaceOrientationPortraitUpsideDown = 2,
    UIInterfaceOrientationLandscapeRight = 3,
    UIInterfaceOrientationLandscapeLeft = 4,
};

/// Orientations, to be added up.
enum UIInterfaceOrientationMask : NSUInteger {
    UIInterfaceOrientationMaskPortrait = 1 << UIInterfaceOrientationPortrait,
    UIInterfaceOrientationMaskPortraitUpsideDown = 1 << UIInterfaceOrientationPortraitUpsideDown,
    UIInterfaceOrientationMaskLandscapeRight = 1 << UIInterfaceOrientationLandscapeRight,
    UIInterfaceOrientationMaskLandscapeLeft = 1 << UIInterfaceOrientationLandscapeLeft,
    UIInterfaceOrientationMaskLandscape =
        UIInterfaceOrientationMaskLandscapeRight | UIInterfaceOrientationMaskLandscapeLeft,
    UIInterfaceOrientationMaskAll = UIInterfaceOrientationMaskPortrait | UIInterfaceOrientationMaskPortraitUpsideDown |
                                    UIInterfaceOrientationMaskLandscape,
    UIInterfaceOrientationMaskAllButUpsideDown =
        UIInterfaceOrientationMaskPortrait | UIInterfaceOrientationMaskLandscape,
};

/// The device that the program believes to run on. Chosen at start.
struct DeviceProfile {
    /// Points, in portrait.
    CGSize screenSize{375, 667};
    /// Pixels a point.
    CGFloat scale = 2;
    /// What `UIDevice::systemVersion` tells.
    NSString systemVersion = "8.4";
    /// How the interface stands.
    UIInterfaceOrientation orientation = UIInterfaceOrientationPortrait;

    /// "375x667@2", and any other size by number; nothing when the text says something else or a number is not within
    /// 1..16384 points or 0.5..8 pixels a point, or the screen has more than 64 million pixels.
    static std::optional<DeviceProfile> profileWithDescription(const NSString& description);
    /// The framework version number that goes with the system version: that of the newest known version not above it.
    double foundationVersionNumber() const;
};

/// The device's name and system version.
class UIDevice : public NSObject {
public:
    /// The one of the process.
    static UIDevice* currentDevice();
    /// The version of the system that the program believes to run on, for example "8.4".
    const NSString& systemVersion() const;

    /// What the device is like.
    const DeviceProfile& profile() const { return m_profile; }
    /// Takes effect for everything that asks from now on; hosts set it before the application starts.
    void setProfile(const DeviceProfile& profile);

private:
    DeviceProfile m_profile;
};

} // namespace zr
#pragma GCC visibility pop
