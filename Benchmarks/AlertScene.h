#pragma once

#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

namespace zr {

/// What the figures are about: a full screen of 750 x 1334 pixels with a coloured background and some content, and the
/// alert over it.
struct AlertScene {
    HeadlessHost host;
    Ref<UIWindow> window;
    Ref<ZRTAlertView> alert;

    AlertScene();
    /// Shows the alert, animated or not.
    void show(bool animated);
};

} // namespace zr
