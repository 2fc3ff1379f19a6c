#include <ZRKitDynamic/ZRKitDynamic.h>
#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>
#include <ZRPlatform/UIKit/UIKit.h>

#include <iostream>

using namespace zr;

/// Shows a window in the kit's green, and writes the colour that it has on the screen.
int main() {
    HeadlessHost host;
    const auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->setBackgroundColor(ZRColorInstance::Instance()->backgroundShadowColor_green());
    window->makeKeyAndVisible();
    std::cout << NSString("green: ") << host.pixel({187, 300}) << '\n';
}
