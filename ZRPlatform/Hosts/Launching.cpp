#include <ZRPlatform/Hosts/Internal/Launching.h>

#include <ZRPlatform/Foundation/NSNotificationCenter.h>

namespace zr {

bool launchApplication(UIApplication* application, UIApplicationDelegate* delegate) {
    application->setDelegate(delegate);
    if (!delegate || !delegate->applicationDidFinishLaunching(application))
        return false;
    NSNotificationCenter::defaultCenter()->postNotificationName_object(UIApplicationDidFinishLaunchingNotification,
                                                                       application);
    return true;
}

void terminateApplication(UIApplication* application) {
    if (Ref<UIApplicationDelegate> delegate = application->delegate())
        delegate->applicationWillTerminate(application);
}

} // namespace zr
