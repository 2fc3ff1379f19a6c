#include <ZRPlatform/UIKit/Application/DebugAids.h>

#include <algorithm>

namespace zr {

bool DebugAids::show(std::string_view names) {
    DebugAids shown = *this;
    for (std::size_t start = 0; start <= names.size();) {
        const std::size_t end = std::min(names.find(',', start), names.size());
        const auto* found = std::ranges::find(kDebugAidNames, names.substr(start, end - start), &DebugAidName::name);
        if (found == std::end(kDebugAidNames))
            return false;
        shown.*(found->shows) = true;
        start = end + 1;
    }
    *this = shown;
    return true;
}

} // namespace zr
