#include <ZRPlatform/CoreGraphics/CGColor.h>

#include <ZRPlatform/CoreGraphics/CGImage.h>

#include <algorithm>

namespace zr {

namespace {

Ref<CGColorSpace> sharedSpace(CGColorSpaceModel model) {
    static const Ref<CGColorSpace> gray = Ref<CGColorSpace>::adopt(new CGColorSpace(kCGColorSpaceModelMonochrome));
    static const Ref<CGColorSpace> rgb = Ref<CGColorSpace>::adopt(new CGColorSpace(kCGColorSpaceModelRGB));
    static const Ref<CGColorSpace> pattern = Ref<CGColorSpace>::adopt(new CGColorSpace(kCGColorSpaceModelPattern));
    switch (model) {
    case kCGColorSpaceModelMonochrome:
        return gray;
    case kCGColorSpaceModelRGB:
        return rgb;
    case kCGColorSpaceModelPattern:
        return pattern;
    }
    return nullptr;
}

} // namespace

Ref<CGColorSpace> CGColorSpaceCreateDeviceRGB() { return sharedSpace(kCGColorSpaceModelRGB); }

Ref<CGColorSpace> CGColorSpaceCreateDeviceGray() { return sharedSpace(kCGColorSpaceModelMonochrome); }

CGColorSpaceModel CGColorSpaceGetModel(CGColorSpaceRef space) {
    return space ? space->model() : kCGColorSpaceModelMonochrome;
}

NSUInteger CGColorSpaceGetNumberOfComponents(CGColorSpaceRef space) {
    if (!space || space->model() == kCGColorSpaceModelPattern)
        return 0;
    return space->model() == kCGColorSpaceModelRGB ? 3 : 1;
}

CGColor::CGColor(CGColorSpaceRef space, std::vector<CGFloat> components) :
    m_space(space), m_components(std::move(components)) {
    const NSUInteger count = CGColorSpaceGetNumberOfComponents(space);
    if (count == 0)
        m_components.clear();
    else
        m_components.resize(count + 1, 1);
}

CGColor::CGColor(CGImage* pattern) : m_space(sharedSpace(kCGColorSpaceModelPattern)), m_pattern(pattern) {}

CGColor::~CGColor() = default;

RGBAColor CGColor::rgba() const {
    switch (m_components.size()) {
    case 4:
        return {m_components[0], m_components[1], m_components[2], m_components[3]};
    case 2:
        return {m_components[0], m_components[0], m_components[0], m_components[1]};
    default:
        return {};
    }
}

CGImage* CGColor::pattern() const { return m_pattern; }

bool CGColor::isEqual(const NSObject* other) const {
    const auto* color = dynamic_cast<const CGColor*>(other);
    return color && CGColorSpaceGetModel(m_space) == CGColorSpaceGetModel(color->m_space) &&
           m_components == color->m_components && m_pattern.get() == color->m_pattern.get();
}

Ref<CGColor> CGColorCreate(CGColorSpaceRef space, const CGFloat* components) {
    const NSUInteger count = CGColorSpaceGetNumberOfComponents(space);
    if (count == 0 || !components)
        return nullptr;
    return Ref<CGColor>::adopt(new CGColor(space, std::vector<CGFloat>(components, components + count + 1)));
}

Ref<CGColor> CGColorCreateCopyWithAlpha(CGColorRef color, CGFloat alpha) {
    if (!color || color->components().empty())
        return nullptr;
    std::vector<CGFloat> components = color->components();
    components.back() = alpha;
    return Ref<CGColor>::adopt(new CGColor(color->colorSpace(), std::move(components)));
}

CGColorSpaceRef CGColorGetColorSpace(CGColorRef color) { return color ? color->colorSpace() : nullptr; }

const CGFloat* CGColorGetComponents(CGColorRef color) {
    return color && !color->components().empty() ? color->components().data() : nullptr;
}

NSUInteger CGColorGetNumberOfComponents(CGColorRef color) { return color ? color->components().size() : 0; }

CGFloat CGColorGetAlpha(CGColorRef color) { return color ? color->alpha() : 0; }

bool CGColorEqualToColor(CGColorRef a, CGColorRef b) { return a == b || (a && b && a->isEqual(b)); }

} // namespace zr
