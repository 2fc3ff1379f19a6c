#include <ZRPlatform/QuartzCore/Composition/Internal/Scene.h>

#include <pixman.h>

#include <algorithm>
#include <unordered_map>

namespace zr {

PixelRect intersection(const PixelRect& a, const PixelRect& b) {
    const int left = std::max(a.x, b.x), top = std::max(a.y, b.y);
    const int right = std::min(a.right(), b.right()), bottom = std::min(a.bottom(), b.bottom());
    if (right <= left || bottom <= top)
        return {};
    return {left, top, right - left, bottom - top};
}

PixelRect unionOf(const PixelRect& a, const PixelRect& b) {
    if (a.isEmpty())
        return b;
    if (b.isEmpty())
        return a;
    const int left = std::min(a.x, b.x), top = std::min(a.y, b.y);
    return {left, top, std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top};
}

std::vector<PixelRect> withoutOverlaps(const std::vector<PixelRect>& rects, PixelRect screen) {
    std::vector<pixman_box32_t> boxes;
    for (const PixelRect& rect : rects) {
        const PixelRect visible = intersection(rect, screen);
        if (!visible.isEmpty())
            boxes.push_back({visible.x, visible.y, visible.right(), visible.bottom()});
    }
    pixman_region32_t region;
    pixman_region32_init_rects(&region, boxes.data(), static_cast<int>(boxes.size()));
    int count = 0;
    const pixman_box32_t* result = pixman_region32_rectangles(&region, &count);
    std::vector<PixelRect> separate;
    for (int i = 0; i < count; ++i)
        separate.push_back({result[i].x1, result[i].y1, result[i].x2 - result[i].x1, result[i].y2 - result[i].y1});
    pixman_region32_fini(&region);
    return separate;
}

std::vector<PixelRect> damageBetween(const Scene& before, const Scene& after, PixelRect screen) {
    std::unordered_map<const void*, const SceneNode*> formerNodes;
    for (const SceneNode& node : before.nodes)
        formerNodes.emplace(node.identity, &node);

    std::vector<PixelRect> damage;
    const auto parentOf = [](const Scene& scene, const SceneNode& node) {
        return node.parent < 0 ? nullptr : scene.nodes[node.parent].identity;
    };
    int lastFormerIndex = -1;
    for (const SceneNode& node : after.nodes) {
        const auto found = formerNodes.find(node.identity);
        if (found == formerNodes.end()) {
            damage.push_back(node.extent);
            continue;
        }
        const SceneNode& former = *found->second;
        formerNodes.erase(found);
        // Painting order: a layer that used to come before its present predecessor has moved past it.
        const bool moved = former.index < lastFormerIndex || parentOf(before, former) != parentOf(after, node);
        lastFormerIndex = std::max(lastFormerIndex, former.index);
        const bool groupChanged =
            former.opacity != node.opacity || former.clipsToShape != node.clipsToShape ||
            (node.clipsToShape && !(former.toScreen == node.toScreen && former.bounds == node.bounds &&
                                    former.cornerRadius == node.cornerRadius));
        if (moved || groupChanged) {
            damage.push_back(former.subtreeExtent);
            damage.push_back(node.subtreeExtent);
        } else if (!node.looksLike(former)) {
            damage.push_back(former.extent);
            damage.push_back(node.extent);
        }
    }
    for (const auto& [identity, former] : formerNodes)
        damage.push_back(former->extent);
    return withoutOverlaps(damage, screen);
}

} // namespace zr
