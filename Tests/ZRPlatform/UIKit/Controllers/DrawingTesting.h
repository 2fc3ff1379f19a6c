#pragma once

#include <ZRPlatform/UIKit/UIKit.h>

#include <map>

namespace zr::tests {

/// The bitmaps of a view and of all that is in it. A view that is drawn anew has another one.
inline std::map<const CALayer*, Ref<CGImage>> bitmapsIn(const UIView* view) {
    std::map<const CALayer*, Ref<CGImage>> bitmaps;
    const std::function<void(const CALayer*)> collect = [&](const CALayer* layer) {
        if (CGImage* contents = layer->contents())
            bitmaps[layer] = contents;
        for (const auto& sublayer : layer->sublayers())
            collect(sublayer);
    };
    collect(view->layer());
    return bitmaps;
}

} // namespace zr::tests
