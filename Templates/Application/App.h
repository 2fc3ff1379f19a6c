#pragma once

#include <ZRPlatform/UIKit/UIKit.h>

/// Opens a window with the list in it.
class App : public zr::UIApplicationDelegate {
public:
    bool applicationDidFinishLaunching(zr::UIApplication* application) override;

private:
    zr::Ref<zr::UIWindow> m_window;
};
