#include <ZRPlatform/Hosts/Headless/ViewTreeDump.h>

#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <cxxabi.h>
#include <typeinfo>

namespace zr {

namespace {

using Json = nlohmann::ordered_json;

/// Without namespaces: "ZRTAlertView".
std::string className(const NSObject& object) {
    const char* mangled = typeid(object).name();
    int status = 0;
    const std::unique_ptr<char, void (*)(void*)> demangled(abi::__cxa_demangle(mangled, nullptr, nullptr, &status),
                                                           std::free);
    const std::string name = demangled ? demangled.get() : mangled;
    const std::size_t end = name.find('<');
    const std::size_t colons = name.rfind("::", end);
    return colons == std::string::npos ? name : name.substr(colons + 2);
}

Json json(CGPoint point) { return {point.x, point.y}; }
Json json(CGSize size) { return {size.width, size.height}; }
Json json(CGRect rect) { return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height}; }
Json json(const CGAffineTransform& t) { return {t.a, t.b, t.c, t.d, t.tx, t.ty}; }
Json json(const CATransform3D& t) {
    return {t.m11, t.m12, t.m13, t.m14, t.m21, t.m22, t.m23, t.m24,
            t.m31, t.m32, t.m33, t.m34, t.m41, t.m42, t.m43, t.m44};
}
Json json(const NSString& text) { return text.isNil() ? Json() : Json(text.utf8()); }

Json json(CGColorRef color) {
    if (!color)
        return nullptr;
    if (CGColorSpaceGetModel(color->colorSpace()) == kCGColorSpaceModelPattern)
        return "pattern";
    const RGBAColor parts = color->rgba();
    return {parts.red, parts.green, parts.blue, parts.alpha};
}

Json json(const NSValue& value);

/// Null when the value is none of the structures that layers have.
template <class... Structures>
Json jsonOfStructure(const NSValue& value) {
    Json result;
    const auto tryOne = [&](const auto* structure) {
        if (structure)
            result = json(*structure);
    };
    (tryOne(value.structure<Structures>()), ...);
    return result;
}

Json json(const NSValue& value) {
    if (value.isNil())
        return nullptr;
    if (NSObject* object = value.objectValue()) {
        const auto* color = dynamic_cast<CGColor*>(object);
        return color ? json(const_cast<CGColorRef>(color)) : Json(className(*object));
    }
    if (const NSString text = value.stringValue(); !text.isNil())
        return json(text);
    Json structure = jsonOfStructure<CGPoint, CGSize, CGRect, CGAffineTransform, CATransform3D>(value);
    return structure.is_null() ? Json(value.doubleValue()) : structure;
}

template <class Values>
Json jsonList(const Values& values) {
    Json list = Json::array();
    for (const auto& value : values)
        list.push_back(json(value));
    return list;
}

Json describeAnimation(const CAAnimation& animation, const NSString& key) {
    Json result{{"key", json(key)}, {"class", className(animation)}};
    if (const auto* property = dynamic_cast<const CAPropertyAnimation*>(&animation))
        result["keyPath"] = json(property->keyPath());
    if (const auto* basic = dynamic_cast<const CABasicAnimation*>(&animation)) {
        result["from"] = json(basic->fromValue());
        result["to"] = json(basic->toValue());
        result["by"] = json(basic->byValue());
    }
    if (const auto* keyframes = dynamic_cast<const CAKeyframeAnimation*>(&animation)) {
        result["values"] = jsonList(keyframes->values());
        result["keyTimes"] = keyframes->keyTimes();
    }
    result["beginTime"] = animation.beginTime();
    result["duration"] = animation.duration();
    result["repeatCount"] = animation.repeatCount();
    result["autoreverses"] = animation.autoreverses();
    if (const auto* group = dynamic_cast<const CAAnimationGroup*>(&animation)) {
        Json children = Json::array();
        for (const auto& child : group->animations())
            children.push_back(describeAnimation(*child, nullptr));
        result["animations"] = std::move(children);
    }
    return result;
}

Json describeAnimations(const CALayer& layer) {
    Json list = Json::array();
    for (const auto& [key, animation] : layer.keyedAnimations())
        list.push_back(describeAnimation(*animation, key));
    return list;
}

Json describePresentation(const CALayer& layer) {
    const LayerValues values = layer.presentationValues();
    return {{"position", json(values.position)},
            {"bounds", json(values.bounds)},
            {"opacity", values.opacity},
            {"transform", json(values.transform)}};
}

Json describeFont(const UIFont* font) {
    if (!font)
        return nullptr;
    return {{"name", json(font->fontName())}, {"size", font->pointSize()}};
}

void describeText(UIView& view, Json& result) {
    if (const auto* label = dynamic_cast<UILabel*>(&view)) {
        result["text"] = json(label->text());
        result["font"] = describeFont(label->font());
    } else if (const auto* field = dynamic_cast<UITextField*>(&view)) {
        result["text"] = json(field->text());
        result["font"] = describeFont(field->font());
    } else if (auto* button = dynamic_cast<UIButton*>(&view)) {
        // A button without a title has no label yet, and looking at it must not make one.
        const NSString title = button->currentTitle();
        result["text"] = json(title);
        result["font"] = title.isNil() ? Json() : describeFont(button->titleLabel()->font());
    }
}

Json describeView(UIView& view) {
    Json result{{"class", className(view)},
                {"frame", json(view.frame())},
                {"bounds", json(view.bounds())},
                {"center", json(view.center())},
                {"transform", json(view.transform())},
                {"alpha", view.alpha()},
                {"hidden", view.isHidden()},
                {"background", json(view.backgroundColor() ? view.backgroundColor()->cgColor() : nullptr)}};
    if (const auto* window = dynamic_cast<UIWindow*>(&view)) {
        result["level"] = window->windowLevel();
        result["keyWindow"] = window->isKeyWindow();
    }
    describeText(view, result);
    if (view.isFirstResponder())
        result["firstResponder"] = true;
    result["presentation"] = describePresentation(*view.layer());
    result["animations"] = describeAnimations(*view.layer());
    Json subviews = Json::array();
    for (const auto& subview : view.subviews())
        subviews.push_back(describeView(*subview));
    result["subviews"] = std::move(subviews);
    return result;
}

} // namespace

std::string dumpViewTrees(UIApplication* application) {
    if (!application)
        return "null";
    Json windows = Json::array();
    for (UIWindow* window : application->windows())
        windows.push_back(describeView(*window));
    const UIScreen& screen = *UIScreen::mainScreen();
    const Json whole{{"time", secondsFromNanoseconds(Clock::current().now())},
                     {"screen", {{"bounds", json(screen.bounds())}, {"scale", screen.scale()}}},
                     {"windows", std::move(windows)}};
    return whole.dump(2) + "\n";
}

} // namespace zr
