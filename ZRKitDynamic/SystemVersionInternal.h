#pragma once

#include <ZRPlatform/UIKit/Application/UIDevice.h>

namespace zr {

/// Whether bars reach under the status bar. Compared as text, not as a number: version 10.0 sorts before 7.0 and fails.
inline bool systemVersionSortsFrom7() {
    return UIDevice::currentDevice()->systemVersion().compare("7.0") != NSOrderedAscending;
}

} // namespace zr
