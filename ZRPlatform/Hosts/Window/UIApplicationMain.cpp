#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <iostream>

namespace zr {

int UIApplicationMain(int argc, char** argv, Ref<UIApplicationDelegate> (*makeDelegate)()) {
    std::string error;
    const std::optional<WindowOptions> options = windowOptionsFromArguments(argc, argv, error);
    if (!options) {
        std::cerr << error << std::endl;
        return 1;
    }
    return runInWindow(*options, [makeDelegate](UIApplication* application) {
        const Ref<UIApplicationDelegate> delegate = makeDelegate ? makeDelegate() : nullptr;
        return application->launch(delegate);
    });
}

} // namespace zr
