#include <ZRPlatform/QuartzCore/Layers/CALayer.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSTimer.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/QuartzCore/Layers/Homography.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zr {

CALayer::CALayer() {
    static const Ref<CGColor> black = [] {
        const CGFloat components[] = {0, 0, 0, 1};
        return CGColorCreate(CGColorSpaceCreateDeviceRGB(), components);
    }();
    m_values.borderColor = black;
}

CALayer::~CALayer() {
    removeAllAnimations();
    for (const auto& sublayer : m_sublayers)
        sublayer->m_superlayer = nullptr;
}

const KeyTable& CALayer::keyTable() const {
    static const KeyTable table(NSObject::keyTable(),
                                {key<&CALayer::position, &CALayer::setPosition>("position"),
                                 key<&CALayer::bounds, &CALayer::setBounds>("bounds"),
                                 key<&CALayer::frame, &CALayer::setFrame>("frame"),
                                 key<&CALayer::anchorPoint, &CALayer::setAnchorPoint>("anchorPoint"),
                                 key<&CALayer::zPosition, &CALayer::setZPosition>("zPosition"),
                                 key<&CALayer::transform, &CALayer::setTransform>("transform"),
                                 key<&CALayer::opacity, &CALayer::setOpacity>("opacity"),
                                 key<&CALayer::isHidden, &CALayer::setHidden>("hidden"),
                                 key<&CALayer::masksToBounds, &CALayer::setMasksToBounds>("masksToBounds"),
                                 key<&CALayer::backgroundColor, &CALayer::setBackgroundColor>("backgroundColor"),
                                 key<&CALayer::cornerRadius, &CALayer::setCornerRadius>("cornerRadius"),
                                 key<&CALayer::borderWidth, &CALayer::setBorderWidth>("borderWidth"),
                                 key<&CALayer::borderColor, &CALayer::setBorderColor>("borderColor"),
                                 key<&CALayer::contents, &CALayer::setContents>("contents")});
    return table;
}

NSValue CALayer::valueForLayerKeyPath(const NSString& keyPath) const {
    return layerValueForKeyPath(m_values, keyPath.utf8());
}

// Geometry and look

template <class T>
void CALayer::change(const char* key, T LayerValues::*member, const T& value) {
    if (m_values.*member == value)
        return;
    Ref<CAAnimation> action;
    if (m_delegate && !CATransaction::actionsDisabled())
        action = m_delegate->actionForLayer_forKey(this, key);
    m_values.*member = value;
    CATransaction::setNeedsFrame();
    if (action)
        addAnimation_forKey(action, key);
}

void CALayer::setPosition(CGPoint position) { change("position", &LayerValues::position, position); }

void CALayer::setBounds(CGRect bounds) {
    const CGSize oldSize = m_values.bounds.size;
    change("bounds", &LayerValues::bounds, bounds);
    if (!(oldSize == bounds.size))
        setNeedsLayout();
}

void CALayer::setAnchorPoint(CGPoint point) { change("anchorPoint", &LayerValues::anchorPoint, point); }
void CALayer::setZPosition(CGFloat z) { change("zPosition", &LayerValues::zPosition, z); }
void CALayer::setTransform(const CATransform3D& transform) { change("transform", &LayerValues::transform, transform); }

void CALayer::setAffineTransform(const CGAffineTransform& transform) {
    setTransform(CATransform3DMakeAffineTransform(transform));
}

void CALayer::setSublayerTransform(const CATransform3D& transform) {
    change("sublayerTransform", &LayerValues::sublayerTransform, transform);
}

void CALayer::setFrame(CGRect frame) {
    frame = CGRectStandardize(frame);
    CGSize size = frame.size;
    if (!CATransform3DIsIdentity(m_values.transform)) {
        const CGAffineTransform inverse = CGAffineTransformInvert(affineTransform());
        const CGRect box = CGRectApplyAffineTransform({{0, 0}, size}, inverse);
        size = box.size;
    }
    setBounds({m_values.bounds.origin, size});
    const CGPoint anchor = m_values.anchorPoint;
    setPosition({frame.origin.x + anchor.x * frame.size.width, frame.origin.y + anchor.y * frame.size.height});
}

void CALayer::setOpacity(float opacity) { change("opacity", &LayerValues::opacity, opacity); }
void CALayer::setHidden(bool hidden) { change("hidden", &LayerValues::hidden, hidden); }
void CALayer::setMasksToBounds(bool masks) { change("masksToBounds", &LayerValues::masksToBounds, masks); }

void CALayer::setBackgroundColor(CGColorRef color) {
    change("backgroundColor", &LayerValues::backgroundColor, Ref<CGColor>(color));
}

void CALayer::setCornerRadius(CGFloat radius) { change("cornerRadius", &LayerValues::cornerRadius, radius); }
void CALayer::setBorderWidth(CGFloat width) { change("borderWidth", &LayerValues::borderWidth, width); }
void CALayer::setBorderColor(CGColorRef color) {
    change("borderColor", &LayerValues::borderColor, Ref<CGColor>(color));
}
void CALayer::setContents(CGImageRef image) { change("contents", &LayerValues::contents, Ref<CGImage>(image)); }
void CALayer::setContentsRect(CGRect rect) { change("contentsRect", &LayerValues::contentsRect, rect); }
void CALayer::setContentsCenter(CGRect rect) { change("contentsCenter", &LayerValues::contentsCenter, rect); }

void CALayer::setContentsScale(CGFloat scale) {
    m_contentsScale = scale > 0 ? scale : 1;
    CATransaction::setNeedsFrame();
}

void CALayer::setContentsGravity(const NSString& gravity) {
    m_contentsGravity = gravity;
    CATransaction::setNeedsFrame();
}

void CALayer::setOpaque(bool opaque) {
    m_opaque = opaque;
    CATransaction::setNeedsFrame();
}

// Tree

void CALayer::addSublayer(CALayer* layer) { insertSublayer_atIndex(layer, m_sublayers.size()); }

void CALayer::insertSublayer_atIndex(CALayer* layer, NSUInteger index) {
    for (const CALayer* ancestor = this; ancestor; ancestor = ancestor->m_superlayer) {
        if (ancestor == layer)
            return;
    }
    if (!layer)
        return;
    const Ref<CALayer> keep = layer;
    layer->removeFromSuperlayer();
    m_sublayers.insert(m_sublayers.begin() + std::min<NSUInteger>(index, m_sublayers.size()), keep);
    layer->m_superlayer = this;
    if (layer->m_needsLayout || layer->m_subtreeNeedsLayout)
        layer->markSubtree(&CALayer::m_subtreeNeedsLayout);
    if (layer->m_needsDisplay || layer->m_subtreeNeedsDisplay)
        layer->markSubtree(&CALayer::m_subtreeNeedsDisplay);
    setNeedsLayout();
}

void CALayer::removeFromSuperlayer() {
    if (!m_superlayer)
        return;
    const Ref<CALayer> keep = this;
    auto& siblings = m_superlayer->m_sublayers;
    siblings.erase(std::find(siblings.begin(), siblings.end(), keep));
    m_superlayer->setNeedsLayout();
    m_superlayer = nullptr;
}

// Layout and display

void CALayer::markSubtree(bool CALayer::*flag) {
    for (CALayer* ancestor = m_superlayer; ancestor && !(ancestor->*flag); ancestor = ancestor->m_superlayer)
        ancestor->*flag = true;
    CATransaction::setNeedsFrame();
}

void CALayer::setNeedsLayout() {
    m_needsLayout = true;
    markSubtree(&CALayer::m_subtreeNeedsLayout);
}

void CALayer::setNeedsDisplay() {
    m_needsDisplay = true;
    markSubtree(&CALayer::m_subtreeNeedsDisplay);
}

void CALayer::layoutIfNeeded() {
    CALayer* start = this;
    for (CALayer* ancestor = this; ancestor; ancestor = ancestor->m_superlayer) {
        if (ancestor->m_needsLayout)
            start = ancestor;
    }
    if (start != this) {
        start->layoutIfNeeded();
        return;
    }
    const Ref<CALayer> keep = this;
    m_subtreeNeedsLayout = false;
    if (std::exchange(m_needsLayout, false) && m_delegate)
        m_delegate->layoutSublayersOfLayer(this);
    const auto sublayers = m_sublayers;
    for (const auto& sublayer : sublayers) {
        if (sublayer->m_needsLayout || sublayer->m_subtreeNeedsLayout)
            sublayer->layoutIfNeeded();
    }
}

void CALayer::displayIfNeeded() {
    const Ref<CALayer> keep = this;
    m_subtreeNeedsDisplay = false;
    if (std::exchange(m_needsDisplay, false) && m_delegate)
        m_delegate->displayLayer(this);
    const auto sublayers = m_sublayers;
    for (const auto& sublayer : sublayers) {
        if (sublayer->m_needsDisplay || sublayer->m_subtreeNeedsDisplay)
            sublayer->displayIfNeeded();
    }
}

// Animations

void CALayer::addAnimation_forKey(CAAnimation* animation, const NSString& key) {
    if (!animation)
        return;
    // The new one is in place before the old one is told: what it does then is done to the new one.
    const auto replaced = takeAnimation(key);
    m_animations.push_back({key, animation->copy(), false, nullptr});
    CATransaction::addPendingAnimation(this);
    if (replaced)
        tellStopped(*replaced, false);
}

/// Nothing when there is none of that key, and there is none of a nil one. It is not told.
std::optional<CALayer::RunningAnimation> CALayer::takeAnimation(const NSString& key) {
    const auto found = std::find_if(m_animations.begin(), m_animations.end(), [&](const RunningAnimation& running) {
        return !key.isNil() && running.key == key;
    });
    if (found == m_animations.end())
        return std::nullopt;
    const RunningAnimation taken = *found;
    m_animations.erase(found);
    return taken;
}

CALayer::RunningAnimation* CALayer::find(const CAAnimation* animation) {
    const auto found = std::find_if(m_animations.begin(), m_animations.end(),
                                    [&](const RunningAnimation& running) { return running.animation == animation; });
    return found == m_animations.end() ? nullptr : &*found;
}

void CALayer::startAnimations(NSTimeInterval now) {
    std::vector<Ref<CAAnimation>> waiting;
    for (const auto& running : m_animations) {
        if (!running.started)
            waiting.push_back(running.animation);
    }
    // Whoever is told of a start may add and remove animations.
    for (const auto& animation : waiting) {
        if (RunningAnimation* running = find(animation))
            start(*running, now);
    }
}

void CALayer::start(RunningAnimation& running, NSTimeInterval now) {
    const Ref<CAAnimation> animation = running.animation;
    running.started = true;
    if (animation->beginTime() == 0)
        animation->setBeginTime(now);
    if (const double end = animation->endTime(); std::isfinite(end)) {
        const Weak<CALayer> weakSelf = this;
        running.end = NSTimer::scheduledTimerWithTimeInterval_repeats_block(
            end - now, false, [weakSelf, animation = animation.get()](NSTimer*) {
                if (const Ref<CALayer> self = weakSelf.lock())
                    self->animationReachedEnd(animation);
            });
    }
    const Ref<NSObject> keep = animation->delegate().object();
    if (CAAnimationDelegate* delegate = animation->delegate())
        delegate->animationDidStart(animation);
}

void CALayer::animationReachedEnd(CAAnimation* animation) {
    RunningAnimation* found = find(animation);
    if (!found)
        return;
    const RunningAnimation ended = *found;
    if (animation->isRemovedOnCompletion())
        m_animations.erase(m_animations.begin() + (found - m_animations.data()));
    tellStopped(ended, true);
}

void CALayer::tellStopped(const RunningAnimation& running, bool finished) {
    if (running.end)
        running.end->invalidate();
    CATransaction::setNeedsFrame();
    const Ref<NSObject> keep = running.animation->delegate().object();
    if (CAAnimationDelegate* delegate = running.animation->delegate())
        delegate->animationDidStop_finished(running.animation, finished);
}

void CALayer::removeAnimationForKey(const NSString& key) {
    if (const auto removed = takeAnimation(key))
        tellStopped(*removed, false);
}

void CALayer::removeAllAnimations() {
    const auto removed = std::exchange(m_animations, {});
    for (const auto& running : removed)
        tellStopped(running, false);
}

CAAnimation* CALayer::animationForKey(const NSString& key) const {
    for (const auto& running : m_animations) {
        if (!key.isNil() && running.key == key)
            return running.animation;
    }
    return nullptr;
}

std::vector<NSString> CALayer::animationKeys() const {
    std::vector<NSString> keys;
    for (const auto& running : m_animations) {
        if (!running.key.isNil())
            keys.push_back(running.key);
    }
    return keys;
}

std::vector<std::pair<NSString, CAAnimation*>> CALayer::keyedAnimations() const {
    std::vector<std::pair<NSString, CAAnimation*>> animations;
    for (const auto& running : m_animations)
        animations.emplace_back(running.key, running.animation);
    return animations;
}

LayerValues CALayer::presentationValues() const {
    LayerValues values = m_values;
    const NSTimeInterval now = CACurrentMediaTime();
    for (const auto& running : m_animations) {
        // One that has not started yet shows its first moment.
        const bool waits = !running.started && running.animation->beginTime() == 0;
        running.animation->apply(values, waits ? 0 : now);
    }
    return values;
}

Ref<CALayer> CALayer::presentationLayer() const {
    auto layer = make<CALayer>();
    layer->m_values = presentationValues();
    layer->m_contentsScale = m_contentsScale;
    layer->m_contentsGravity = m_contentsGravity;
    layer->m_opaque = m_opaque;
    return layer;
}

NSTimeInterval CALayer::nextChangeTime() const {
    NSTimeInterval next = std::numeric_limits<double>::infinity();
    const NSTimeInterval now = CACurrentMediaTime();
    for (const auto& running : m_animations) {
        const bool isStill = !(running.animation->speed() > 0);
        next = std::min(next, running.started || isStill ? running.animation->nextChangeTime(now) : now);
    }
    return next;
}

namespace {

/// Whether the animation, or one in its group, is of a place or a size.
bool isGeometric(const CAAnimation* animation) {
    if (const auto* group = dynamic_cast<const CAAnimationGroup*>(animation)) {
        return std::any_of(group->animations().begin(), group->animations().end(),
                           [](const Ref<CAAnimation>& child) { return isGeometric(child); });
    }
    const auto* property = dynamic_cast<const CAPropertyAnimation*>(animation);
    if (!property)
        return true;
    for (const char* key : {"position", "bounds", "anchorPoint", "transform", "sublayerTransform"}) {
        if (property->keyPath().hasPrefix(key))
            return true;
    }
    return false;
}

} // namespace

bool CALayer::isMoving() const {
    const NSTimeInterval now = CACurrentMediaTime();
    return std::any_of(m_animations.begin(), m_animations.end(), [now](const RunningAnimation& running) {
        const CAAnimation* animation = running.animation;
        return animation->speed() > 0 && (!running.started || animation->endTime() > now) && isGeometric(animation);
    });
}

// Conversion

namespace {

/// From the layer's coordinates to its root's superlayer's.
CATransform3D transformToRoot(const CALayer* layer) {
    CATransform3D t = CATransform3DIdentity;
    for (; layer; layer = layer->superlayer()) {
        t = CATransform3DConcat(t, layer->modelValues().toSuperlayer());
        if (const CALayer* superlayer = layer->superlayer();
            superlayer && !CATransform3DIsIdentity(superlayer->sublayerTransform())) {
            const CGRect bounds = superlayer->bounds();
            const CGPoint anchor = superlayer->anchorPoint();
            const CGFloat x = bounds.origin.x + anchor.x * bounds.size.width;
            const CGFloat y = bounds.origin.y + anchor.y * bounds.size.height;
            t = CATransform3DConcat(t, CATransform3DMakeTranslation(-x, -y, 0));
            t = CATransform3DConcat(t, superlayer->sublayerTransform());
            t = CATransform3DConcat(t, CATransform3DMakeTranslation(x, y, 0));
        }
    }
    return t;
}

bool isTranslation(const CATransform3D& t) {
    CATransform3D moved = CATransform3DMakeTranslation(t.m41, t.m42, t.m43);
    return t == moved;
}

} // namespace

CGPoint CALayer::convertPoint_toLayer(CGPoint point, const CALayer* layer) const {
    if (layer == this)
        return point;
    const CATransform3D here = transformToRoot(this);
    const CATransform3D there = transformToRoot(layer);
    if (isTranslation(here) && isTranslation(there))
        return {point.x + here.m41 - there.m41, point.y + here.m42 - there.m42};
    const auto inRoot = Homography::fromTransform(here).apply(point);
    const auto back = Homography::fromTransform(there).inverse();
    if (!inRoot || !back)
        return {NAN, NAN};
    return back->apply(*inRoot).value_or(CGPoint{NAN, NAN});
}

CGPoint CALayer::convertPoint_fromLayer(CGPoint point, const CALayer* layer) const {
    if (layer)
        return layer->convertPoint_toLayer(point, this);
    const CATransform3D here = transformToRoot(this);
    if (isTranslation(here))
        return {point.x - here.m41, point.y - here.m42};
    const auto back = Homography::fromTransform(here).inverse();
    return back ? back->apply(point).value_or(CGPoint{NAN, NAN}) : CGPoint{NAN, NAN};
}

} // namespace zr
