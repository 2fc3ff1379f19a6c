#include <ZRPlatform/QuartzCore/Layers/LayerValues.h>

#include <ZRPlatform/QuartzCore/Layers/Homography.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace zr {

CATransform3D LayerValues::toSuperlayer() const {
    const CGFloat anchorX = bounds.origin.x + anchorPoint.x * bounds.size.width;
    const CGFloat anchorY = bounds.origin.y + anchorPoint.y * bounds.size.height;
    if (CATransform3DIsIdentity(transform))
        return CATransform3DMakeTranslation(position.x - anchorX, position.y - anchorY, zPosition);
    CATransform3D t = CATransform3DMakeTranslation(-anchorX, -anchorY, 0);
    t = CATransform3DConcat(t, transform);
    return CATransform3DConcat(t, CATransform3DMakeTranslation(position.x, position.y, zPosition));
}

CGRect LayerValues::frame() const {
    // Sums and differences of the stored numbers, so that a frame that was set reads back exactly.
    if (CATransform3DIsIdentity(transform)) {
        return {{position.x - anchorPoint.x * bounds.size.width, position.y - anchorPoint.y * bounds.size.height},
                bounds.size};
    }
    return Homography::fromTransform(toSuperlayer()).boundingBox(bounds);
}

namespace {

// Key paths into transforms: "transform.rotation.z". A transform is taken apart into translation, rotation (Euler
// angles, x first, then y, then z) and scale; setting one part puts the others back as they were.
struct EulerParts {
    std::array<CGFloat, 3> translation;
    std::array<CGFloat, 3> rotation;
    std::array<CGFloat, 3> scale;
    TransformParts rest;
};

EulerParts eulerParts(const CATransform3D& t) {
    EulerParts parts{};
    if (!decomposeTransform(t, parts.rest)) {
        parts.rest = TransformParts();
        parts.rest.scale[0] = t.m11;
        parts.rest.scale[1] = t.m22;
        parts.rest.scale[2] = t.m33;
        parts.rest.translation[0] = t.m41;
        parts.rest.translation[1] = t.m42;
        parts.rest.translation[2] = t.m43;
    }
    TransformParts rotationOnly;
    std::copy_n(parts.rest.quaternion, 4, rotationOnly.quaternion);
    const CATransform3D r = composeTransform(rotationOnly);
    parts.rotation = {std::atan2(r.m23, r.m33), std::asin(std::clamp<CGFloat>(-r.m13, -1, 1)),
                      std::atan2(r.m12, r.m11)};
    for (int i = 0; i < 3; ++i) {
        parts.translation[i] = parts.rest.translation[i];
        parts.scale[i] = parts.rest.scale[i];
    }
    return parts;
}

CATransform3D transformFromEuler(const EulerParts& parts) {
    TransformParts outer = parts.rest;
    for (int i = 0; i < 3; ++i) {
        outer.translation[i] = parts.translation[i];
        outer.scale[i] = 1;
        outer.shear[i] = 0;
    }
    std::fill_n(outer.quaternion, 3, 0);
    outer.quaternion[3] = 1;
    CATransform3D t = composeTransform(outer);
    t = CATransform3DRotate(t, parts.rotation[2], 0, 0, 1);
    t = CATransform3DRotate(t, parts.rotation[1], 0, 1, 0);
    t = CATransform3DRotate(t, parts.rotation[0], 1, 0, 0);
    TransformParts inner;
    for (int i = 0; i < 3; ++i) {
        inner.scale[i] = parts.scale[i];
        inner.shear[i] = parts.rest.shear[i];
    }
    return CATransform3DConcat(composeTransform(inner), t);
}

std::optional<int> axisIndex(std::string_view axis) {
    if (axis == "x")
        return 0;
    if (axis == "y")
        return 1;
    if (axis == "z")
        return 2;
    return std::nullopt;
}

/// "rotation.z" into "rotation" and "z".
std::pair<std::string_view, std::string_view> splitKey(std::string_view path) {
    const auto dot = path.find('.');
    return dot == std::string_view::npos ? std::pair(path, std::string_view())
                                         : std::pair(path.substr(0, dot), path.substr(dot + 1));
}

NSValue transformValue(const CATransform3D& transform, std::string_view path) {
    if (path.empty())
        return NSValue::valueWithStructure(transform);
    const auto [part, axisName] = splitKey(path);
    const auto axis = axisIndex(axisName);
    if (!axisName.empty() && !axis)
        return {};
    const EulerParts parts = eulerParts(transform);
    if (part == "rotation")
        return parts.rotation[axis.value_or(2)];
    if (part == "scale")
        return axis ? parts.scale[*axis] : (parts.scale[0] + parts.scale[1] + parts.scale[2]) / 3;
    if (part == "translation") {
        return axis ? NSValue(parts.translation[*axis])
                    : NSValue::valueWithStructure(CGSize{parts.translation[0], parts.translation[1]});
    }
    return {};
}

bool setTransformValue(CATransform3D& transform, std::string_view path, const NSValue& value) {
    if (path.empty()) {
        if (const auto* affine = value.structure<CGAffineTransform>())
            transform = CATransform3DMakeAffineTransform(*affine);
        else if (const auto* whole = value.structure<CATransform3D>())
            transform = *whole;
        else
            return false;
        return true;
    }
    const auto [part, axisName] = splitKey(path);
    const auto axis = axisIndex(axisName);
    if (!axisName.empty() && !axis)
        return false;
    EulerParts parts = eulerParts(transform);
    const CGFloat number = value.doubleValue();
    if (part == "rotation") {
        parts.rotation[axis.value_or(2)] = number;
    } else if (part == "scale") {
        if (axis)
            parts.scale[*axis] = number;
        else
            parts.scale = {number, number, number};
    } else if (part == "translation") {
        if (axis)
            parts.translation[*axis] = number;
        else if (const auto* size = value.structure<CGSize>())
            parts.translation = {size->width, size->height, parts.translation[2]};
        else
            return false;
    } else {
        return false;
    }
    transform = transformFromEuler(parts);
    return true;
}

// Key paths into geometry: "position.x", "bounds.size.width". The functions find the number behind the rest of a path.
CGFloat* numberIn(CGPoint& point, std::string_view path) {
    return path == "x" ? &point.x : path == "y" ? &point.y : nullptr;
}
CGFloat* numberIn(CGSize& size, std::string_view path) {
    return path == "width" ? &size.width : path == "height" ? &size.height : nullptr;
}
CGFloat* numberIn(CGRect& rect, std::string_view path) {
    const auto [part, rest] = splitKey(path);
    if (part == "origin")
        return numberIn(rect.origin, rest);
    return part == "size" ? numberIn(rect.size, rest) : nullptr;
}

template <class Structure>
NSValue structureValue(Structure structure, std::string_view path) {
    if (path.empty())
        return NSValue::valueWithStructure(structure);
    if constexpr (std::is_same_v<Structure, CGRect>) {
        if (path == "origin")
            return NSValue::valueWithStructure(structure.origin);
        if (path == "size")
            return NSValue::valueWithStructure(structure.size);
    }
    const CGFloat* number = numberIn(structure, path);
    return number ? NSValue(*number) : NSValue();
}

template <class Structure>
bool setStructureValue(Structure& structure, std::string_view path, const NSValue& value) {
    if constexpr (std::is_same_v<Structure, CGRect>) {
        if (path == "origin" && value.structure<CGPoint>()) {
            structure.origin = *value.structure<CGPoint>();
            return true;
        }
        if (path == "size" && value.structure<CGSize>()) {
            structure.size = *value.structure<CGSize>();
            return true;
        }
    }
    if (path.empty()) {
        if (!value.structure<Structure>())
            return false;
        structure = *value.structure<Structure>();
        return true;
    }
    CGFloat* number = numberIn(structure, path);
    if (number)
        *number = value.doubleValue();
    return number != nullptr;
}

/// Names a member of `LayerValues` and how it is read and written.
struct LayerKey {
    std::string_view name;
    NSValue (*get)(const LayerValues& values, std::string_view rest);
    bool (*set)(LayerValues& values, std::string_view rest, const NSValue& value);
};

template <auto Member>
constexpr LayerKey structureKey(std::string_view name) {
    return {name, [](const LayerValues& v, std::string_view rest) { return structureValue(v.*Member, rest); },
            [](LayerValues& v, std::string_view rest, const NSValue& value) {
                return setStructureValue(v.*Member, rest, value);
            }};
}

template <auto Member>
constexpr LayerKey transformKey(std::string_view name) {
    return {name, [](const LayerValues& v, std::string_view rest) { return transformValue(v.*Member, rest); },
            [](LayerValues& v, std::string_view rest, const NSValue& value) {
                return setTransformValue(v.*Member, rest, value);
            }};
}

template <auto Member>
constexpr LayerKey plainKey(std::string_view name) {
    return {
        name,
        [](const LayerValues& v, std::string_view rest) { return rest.empty() ? detail::box(v.*Member) : NSValue(); },
        [](LayerValues& v, std::string_view rest, const NSValue& value) {
            if (!rest.empty())
                return false;
            v.*Member = value.as<std::remove_reference_t<decltype(v.*Member)>>();
            return true;
        }};
}

constexpr LayerKey kLayerKeys[] = {
    structureKey<&LayerValues::position>("position"),
    structureKey<&LayerValues::bounds>("bounds"),
    structureKey<&LayerValues::anchorPoint>("anchorPoint"),
    plainKey<&LayerValues::zPosition>("zPosition"),
    transformKey<&LayerValues::transform>("transform"),
    transformKey<&LayerValues::sublayerTransform>("sublayerTransform"),
    plainKey<&LayerValues::opacity>("opacity"),
    plainKey<&LayerValues::hidden>("hidden"),
    plainKey<&LayerValues::masksToBounds>("masksToBounds"),
    plainKey<&LayerValues::backgroundColor>("backgroundColor"),
    plainKey<&LayerValues::cornerRadius>("cornerRadius"),
    plainKey<&LayerValues::borderWidth>("borderWidth"),
    plainKey<&LayerValues::borderColor>("borderColor"),
    plainKey<&LayerValues::contents>("contents"),
    structureKey<&LayerValues::contentsRect>("contentsRect"),
    structureKey<&LayerValues::contentsCenter>("contentsCenter"),
};

const LayerKey* findKey(std::string_view name) {
    const auto* found = std::find_if(std::begin(kLayerKeys), std::end(kLayerKeys),
                                     [name](const LayerKey& key) { return key.name == name; });
    return found == std::end(kLayerKeys) ? nullptr : found;
}

template <class Structure, class Combine>
std::optional<NSValue> combineNumbers(const NSValue& a, const NSValue& b, Combine combine) {
    const auto* first = a.structure<Structure>();
    const auto* second = b.structure<Structure>();
    if (!first || !second)
        return std::nullopt;
    if constexpr (std::is_same_v<Structure, CGPoint>)
        return NSValue::valueWithStructure(CGPoint{combine(first->x, second->x), combine(first->y, second->y)});
    else if constexpr (std::is_same_v<Structure, CGSize>)
        return NSValue::valueWithStructure(
            CGSize{combine(first->width, second->width), combine(first->height, second->height)});
    else
        return NSValue::valueWithStructure(
            CGRect{{combine(first->origin.x, second->origin.x), combine(first->origin.y, second->origin.y)},
                   {combine(first->size.width, second->size.width), combine(first->size.height, second->size.height)}});
}

/// Points, sizes and rectangles, number by number.
template <class Combine>
std::optional<NSValue> combineGeometry(const NSValue& a, const NSValue& b, Combine combine) {
    if (auto point = combineNumbers<CGPoint>(a, b, combine))
        return point;
    if (auto size = combineNumbers<CGSize>(a, b, combine))
        return size;
    return combineNumbers<CGRect>(a, b, combine);
}

const CATransform3D* transformIn(const NSValue& value, CATransform3D& storage) {
    if (const auto* affine = value.structure<CGAffineTransform>()) {
        storage = CATransform3DMakeAffineTransform(*affine);
        return &storage;
    }
    return value.structure<CATransform3D>();
}

/// A nil colour counts as the other one without its alpha, so that it fades rather than darkens.
NSValue interpolateColors(CGColor* from, CGColor* to, CGFloat t) {
    const CGColor* some = from ? from : to;
    if (some->pattern() || (from && to && (from->components().empty() || to->components().empty())))
        return t < 0.5 ? NSValue(from) : NSValue(to);
    RGBAColor a = some->rgba(), b = a;
    if (from)
        a = from->rgba();
    else
        a.alpha = 0;
    if (to)
        b = to->rgba();
    else
        b.alpha = 0;
    // A colour that cannot be seen has no hue to fade from.
    if (a.alpha == 0)
        a = {b.red, b.green, b.blue, 0};
    if (b.alpha == 0)
        b = {a.red, a.green, a.blue, 0};
    const auto mix = [t](CGFloat x, CGFloat y) { return x + (y - x) * t; };
    const CGFloat components[] = {mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha)};
    return CGColorCreate(CGColorSpaceCreateDeviceRGB(), components);
}

bool isNumber(const NSValue& value) {
    return !value.isNil() && !value.objectValue() && value.stringValue().isNil() && !value.structure<CGPoint>() &&
           !value.structure<CGSize>() && !value.structure<CGRect>() && !value.structure<CATransform3D>() &&
           !value.structure<CGAffineTransform>();
}

} // namespace

NSValue layerValueForKeyPath(const LayerValues& values, std::string_view keyPath) {
    const auto [name, rest] = splitKey(keyPath);
    const LayerKey* layerKey = findKey(name);
    return layerKey ? layerKey->get(values, rest) : NSValue();
}

bool setLayerValueForKeyPath(LayerValues& values, std::string_view keyPath, const NSValue& value) {
    const auto [name, rest] = splitKey(keyPath);
    const LayerKey* layerKey = findKey(name);
    return layerKey && layerKey->set(values, rest, value);
}

NSValue interpolateValues(const NSValue& from, const NSValue& to, CGFloat t) {
    const auto mix = [t](CGFloat a, CGFloat b) { return t == 1 ? b : a + (b - a) * t; };
    if (auto geometry = combineGeometry(from, to, mix))
        return *geometry;
    CATransform3D storage[2];
    const auto* first = transformIn(from, storage[0]);
    const auto* second = transformIn(to, storage[1]);
    if (first && second)
        return NSValue::valueWithStructure(interpolateTransforms(*first, *second, t));
    auto* fromColor = from.as<CGColor*>();
    auto* toColor = to.as<CGColor*>();
    if ((fromColor && (toColor || to.isNil())) || (toColor && from.isNil()))
        return interpolateColors(fromColor, toColor, t);
    if (isNumber(from) && isNumber(to))
        return mix(from.doubleValue(), to.doubleValue());
    return t < 0.5 ? from : to;
}

NSValue addValues(const NSValue& value, const NSValue& amount, int sign) {
    const auto add = [sign](CGFloat a, CGFloat b) { return a + sign * b; };
    if (auto geometry = combineGeometry(value, amount, add))
        return *geometry;
    CATransform3D storage[2];
    const auto* first = transformIn(value, storage[0]);
    const auto* second = transformIn(amount, storage[1]);
    if (first && second)
        return NSValue::valueWithStructure(
            CATransform3DConcat(*first, sign > 0 ? *second : CATransform3DInvert(*second)));
    return isNumber(value) && isNumber(amount) ? NSValue(add(value.doubleValue(), amount.doubleValue())) : value;
}

} // namespace zr
