#pragma once

#include <ZRPlatform/UIKit/Application/UIApplication.h>

namespace zr {

/// Makes `delegate` the application's, lets it start, and tells everybody. False when it refused, or is nil.
bool launchApplication(UIApplication* application, UIApplicationDelegate* delegate);
/// Tells the delegate, if there is one, that the end has come. The application lets go of it as it goes.
void terminateApplication(UIApplication* application);

} // namespace zr
