#pragma once

#include <ZRKitDynamic/ZRColor/ZRColor.h>

namespace zr {

/// The colour of the kit's titles and typed text.
inline Ref<UIColor> kitTextColor() { return ZRColor::zrColorWithRed_green_blue_alpha(55, 63, 58, 1); }

} // namespace zr
