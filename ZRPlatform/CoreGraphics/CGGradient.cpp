#include <ZRPlatform/CoreGraphics/CGGradient.h>

#include <algorithm>

namespace zr {

namespace {

CGFloat stopLocation(const CGFloat* locations, NSUInteger index, NSUInteger count) {
    if (locations)
        return std::isfinite(locations[index]) ? std::clamp(locations[index], CGFloat(0), CGFloat(1)) : 0;
    return count > 1 ? static_cast<CGFloat>(index) / static_cast<CGFloat>(count - 1) : 0;
}

} // namespace

CGGradient::CGGradient(std::vector<Stop> stops) : m_stops(std::move(stops)) {
    std::stable_sort(m_stops.begin(), m_stops.end(),
                     [](const Stop& a, const Stop& b) { return a.location < b.location; });
}

RGBAColor CGGradient::colorAt(CGFloat location) const {
    if (m_stops.empty())
        return {};
    const auto after =
        std::find_if(m_stops.begin(), m_stops.end(), [&](const Stop& stop) { return stop.location > location; });
    if (after == m_stops.begin())
        return after->color;
    const Stop& before = *(after - 1);
    if (after == m_stops.end())
        return before.color;
    const CGFloat part = (location - before.location) / (after->location - before.location);
    const auto blend = [&](CGFloat from, CGFloat to) { return from + (to - from) * part; };
    return {blend(before.color.red, after->color.red), blend(before.color.green, after->color.green),
            blend(before.color.blue, after->color.blue), blend(before.color.alpha, after->color.alpha)};
}

Ref<CGGradient> CGGradientCreateWithColors(CGColorSpaceRef, const std::vector<Ref<CGColor>>& colors,
                                           const CGFloat* locations) {
    std::vector<CGGradient::Stop> stops;
    for (NSUInteger i = 0; i < colors.size(); ++i) {
        if (colors[i])
            stops.push_back({stopLocation(locations, i, colors.size()), colors[i]->rgba()});
    }
    return stops.empty() ? nullptr : Ref<CGGradient>::adopt(new CGGradient(std::move(stops)));
}

Ref<CGGradient> CGGradientCreateWithColorComponents(CGColorSpaceRef space, const CGFloat* components,
                                                    const CGFloat* locations, NSUInteger count) {
    const NSUInteger width = CGColorSpaceGetNumberOfComponents(space) + 1;
    if (width == 1 || !components)
        return nullptr;
    std::vector<Ref<CGColor>> colors;
    for (NSUInteger i = 0; i < count; ++i)
        colors.push_back(CGColorCreate(space, components + i * width));
    return CGGradientCreateWithColors(space, colors, locations);
}

} // namespace zr
