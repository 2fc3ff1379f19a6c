#include <ZRPlatform/UIKit/Views/UIView.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>
#include <ZRPlatform/Foundation/NSRunLoop.h>
#include <ZRPlatform/Foundation/NSThread.h>
#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>
#include <ZRPlatform/UIKit/Application/UIApplication.h>
#include <ZRPlatform/UIKit/Controllers/UIViewController.h>
#include <ZRPlatform/UIKit/Gestures/UIGestureRecognizer.h>
#include <ZRPlatform/UIKit/Views/Internal/ViewDrawing.h>

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <memory>

namespace zr {

// Construction

UIView::UIView() : m_layer(make<CALayer>()) {
    m_layer->setDelegate(this);
    m_layer->setContentsScale(UIScreen::mainScreen()->scale());
}

UIView::~UIView() {
    if (m_superview)
        removeFromSuperview();
    letGoOfGestureRecognizers();
    for (const auto& subview : m_subviews) {
        subview->moveToWindow(nullptr);
        subview->m_superview = nullptr;
    }
    m_layer->setDelegate(nullptr);
    m_layer->removeAllAnimations();
}

void UIView::destroy() {
    if (NSThread::isMainThread()) {
        UIResponder::destroy();
        return;
    }
    // The block deletes the view as it goes, so that a run loop that ends without running it leaks nothing.
    std::shared_ptr<UIView> last(this, [](UIView* view) { view->UIResponder::destroy(); });
    NSRunLoop::mainRunLoop()->performBlock([last = std::move(last)] {});
}

bool UIView::init() { return initWithFrame(CGRectZero); }

bool UIView::initWithFrame(CGRect frame) {
    assert(NSThread::isMainThread());
    if (!UIResponder::init())
        return false;
    m_layer->setFrame(frame);
    if (m_draws)
        m_layer->setNeedsDisplay();
    return true;
}

const KeyTable& UIView::keyTable() const {
    static const KeyTable table(
        UIResponder::keyTable(),
        {key<&UIView::frame, &UIView::setFrame>("frame"), key<&UIView::bounds, &UIView::setBounds>("bounds"),
         key<&UIView::center, &UIView::setCenter>("center"),
         key<&UIView::transform, &UIView::setTransform>("transform"), key<&UIView::alpha, &UIView::setAlpha>("alpha"),
         key<&UIView::isHidden, &UIView::setHidden>("hidden"), key<&UIView::isOpaque, &UIView::setOpaque>("opaque"),
         key<&UIView::backgroundColor, &UIView::setBackgroundColor>("backgroundColor"),
         key<&UIView::tintColor, &UIView::setTintColor>("tintColor"),
         key<&UIView::clipsToBounds, &UIView::setClipsToBounds>("clipsToBounds"),
         key<&UIView::contentMode, &UIView::setContentMode>("contentMode"), key<&UIView::tag, &UIView::setTag>("tag"),
         key<&UIView::isUserInteractionEnabled, &UIView::setUserInteractionEnabled>("userInteractionEnabled"),
         key<&UIView::superview>("superview"), key<&UIView::layer>("layer")});
    return table;
}

// Geometry

CGRect UIView::frame() const { return m_layer->frame(); }

void UIView::setFrame(CGRect frame) {
    const CGSize oldSize = m_layer->bounds().size;
    m_layer->setFrame(frame);
    boundsSizeChanged(oldSize);
}

CGRect UIView::bounds() const { return m_layer->bounds(); }

void UIView::setBounds(CGRect bounds) {
    const CGSize oldSize = m_layer->bounds().size;
    m_layer->setBounds(CGRectStandardize(bounds));
    boundsSizeChanged(oldSize);
}

CGPoint UIView::center() const { return m_layer->position(); }
void UIView::setCenter(CGPoint center) { m_layer->setPosition(center); }
CGAffineTransform UIView::transform() const { return m_layer->affineTransform(); }
void UIView::setTransform(const CGAffineTransform& transform) { m_layer->setAffineTransform(transform); }

void UIView::boundsSizeChanged(CGSize oldSize) {
    if (m_layer->bounds().size == oldSize)
        return;
    if (m_autoresizesSubviews)
        resizeSubviews(oldSize);
    setNeedsLayout();
    // What was never drawn for want of a size is drawn now, whatever the content mode.
    if (m_contentMode == UIViewContentModeRedraw || !m_layer->contents())
        setNeedsDisplay();
}

namespace {

/// One direction of an autoresized view: where it begins and how long it is, and which parts give way.
struct Span {
    CGFloat start;
    CGFloat length;
};

Span autoresizedSpan(Span span, CGFloat oldTotal, CGFloat newTotal, bool flexibleStart, bool flexibleLength,
                     bool flexibleEnd) {
    const std::array<CGFloat, 3> parts{span.start, span.length, oldTotal - span.start - span.length};
    const std::array<bool, 3> flexible{flexibleStart, flexibleLength, flexibleEnd};
    CGFloat sum = 0;
    int count = 0;
    for (int i = 0; i < 3; ++i) {
        if (flexible[i]) {
            sum += parts[i];
            ++count;
        }
    }
    if (count == 0)
        return span;
    const CGFloat change = newTotal - oldTotal;
    const auto share = [&](int i) -> CGFloat {
        if (!flexible[i])
            return 0;
        return sum != 0 ? change * parts[i] / sum : change / count;
    };
    return {span.start + share(0), span.length + share(1)};
}

} // namespace

void UIView::resizeSubviews(CGSize oldSize) {
    const CGSize newSize = m_layer->bounds().size;
    const auto subviews = m_subviews;
    for (const auto& subview : subviews) {
        const NSUInteger mask = subview->m_autoresizingMask;
        if (mask == 0)
            continue;
        const CGRect frame = subview->frame();
        const Span x =
            autoresizedSpan({frame.origin.x, frame.size.width}, oldSize.width, newSize.width,
                            mask & UIViewAutoresizingFlexibleLeftMargin, mask & UIViewAutoresizingFlexibleWidth,
                            mask & UIViewAutoresizingFlexibleRightMargin);
        const Span y =
            autoresizedSpan({frame.origin.y, frame.size.height}, oldSize.height, newSize.height,
                            mask & UIViewAutoresizingFlexibleTopMargin, mask & UIViewAutoresizingFlexibleHeight,
                            mask & UIViewAutoresizingFlexibleBottomMargin);
        subview->setFrame({{x.start, y.start}, {std::max<CGFloat>(x.length, 0), std::max<CGFloat>(y.length, 0)}});
    }
}

CGSize UIView::sizeThatFits(CGSize) const { return bounds().size; }

void UIView::sizeToFit() {
    CGRect newBounds = bounds();
    newBounds.size = sizeThatFits(newBounds.size);
    const CGPoint origin = frame().origin;
    setBounds(newBounds);
    const CGRect moved = frame();
    setCenter({center().x + origin.x - moved.origin.x, center().y + origin.y - moved.origin.y});
}

// Look

void UIView::setAlpha(CGFloat alpha) { m_layer->setOpacity(std::clamp<float>(alpha, 0, 1)); }

void UIView::setHidden(bool hidden) {
    m_layer->setHidden(hidden);
    if (hidden && UIApplication::sharedApplication())
        UIApplication::sharedApplication()->cancelTouchesInView(this);
}

void UIView::setBackgroundColor(UIColor* color) {
    m_backgroundColor = color;
    m_layer->setBackgroundColor(color ? color->cgColor() : nullptr);
}

void UIView::setClipsToBounds(bool clips) { m_layer->setMasksToBounds(clips); }

void UIView::setContentMode(UIViewContentMode mode) {
    static constexpr std::array kGravities{kCAGravityResize,     kCAGravityResizeAspect, kCAGravityResizeAspectFill,
                                           kCAGravityResize,     kCAGravityCenter,       kCAGravityTop,
                                           kCAGravityBottom,     kCAGravityLeft,         kCAGravityRight,
                                           kCAGravityTopLeft,    kCAGravityTopRight,     kCAGravityBottomLeft,
                                           kCAGravityBottomRight};
    if (mode < 0 || static_cast<std::size_t>(mode) >= kGravities.size())
        return;
    m_contentMode = mode;
    m_layer->setContentsGravity(kGravities[mode]);
}

UIColor* UIView::tintColor() const {
    for (const UIView* view = this; view; view = view->m_superview) {
        if (view->m_tintColor)
            return view->m_tintColor;
    }
    static UIColor* const systemBlue = UIColor::colorWithRed_green_blue_alpha(0, 122 / 255.0, 1, 1).leak();
    return systemBlue;
}

void UIView::setTintColor(UIColor* color) {
    m_tintColor = color;
    tellTintColorChanged();
}

void UIView::tellTintColorChanged() {
    tintColorDidChange();
    const auto subviews = m_subviews;
    for (const auto& subview : subviews) {
        if (!subview->m_tintColor)
            subview->tellTintColorChanged();
    }
}

// Tree

UIView* UIView::superview() const { return m_superview; }
UIWindow* UIView::window() const { return m_window; }

void UIView::addSubview(UIView* view) { insertSubview(view, m_subviews.size()); }

void UIView::insertSubview_atIndex(UIView* view, NSInteger index) {
    insertSubview(view, std::clamp<NSInteger>(index, 0, m_subviews.size()));
}

namespace {

std::size_t indexOf(const std::vector<Ref<UIView>>& views, const UIView* view) {
    return std::find_if(views.begin(), views.end(), [view](const Ref<UIView>& v) { return v.get() == view; }) -
           views.begin();
}

} // namespace

void UIView::insertSubview_belowSubview(UIView* view, UIView* sibling) {
    insertSubview(view, indexOf(m_subviews, sibling));
}

void UIView::insertSubview_aboveSubview(UIView* view, UIView* sibling) {
    insertSubview(view, std::min(indexOf(m_subviews, sibling) + 1, m_subviews.size()));
}

void UIView::bringSubviewToFront(UIView* view) {
    if (view && view->m_superview == this)
        insertSubview(view, m_subviews.size());
}

void UIView::sendSubviewToBack(UIView* view) {
    if (view && view->m_superview == this)
        insertSubview(view, 0);
}

void UIView::insertSubview(UIView* view, std::size_t index) {
    if (!view || isDescendantOfView(view))
        return;
    const Ref<UIView> keep = view;
    if (view->m_superview == this) {
        // Only the order changes.
        const std::size_t old = indexOf(m_subviews, view);
        m_subviews.erase(m_subviews.begin() + old);
        if (old < index)
            --index;
        m_subviews.insert(m_subviews.begin() + index, keep);
    } else {
        view->willMoveToSuperview(this);
        if (view->m_superview) {
            view->m_superview->willRemoveSubview(view);
            auto& former = view->m_superview->m_subviews;
            former.erase(former.begin() + indexOf(former, view));
        }
        index = std::min(index, m_subviews.size());
        m_subviews.insert(m_subviews.begin() + index, keep);
        view->m_superview = this;
    }

    // Layers that belong to no view keep their places: the view's layer goes right below the next view's.
    view->m_layer->removeFromSuperlayer();
    NSUInteger layerIndex = m_layer->sublayers().size();
    if (index + 1 < m_subviews.size()) {
        const auto& layers = m_layer->sublayers();
        layerIndex = std::find(layers.begin(), layers.end(), m_subviews[index + 1]->m_layer) - layers.begin();
    }
    m_layer->insertSublayer_atIndex(view->m_layer, layerIndex);

    if (view->m_window != m_window)
        view->moveToWindow(m_window);
    setNeedsLayout();
    view->didMoveToSuperview();
    didAddSubview(view);
}

void UIView::removeFromSuperview() {
    if (!m_superview)
        return;
    const Ref<UIView> keep = this;
    const Ref<UIView> parent = m_superview;
    willMoveToSuperview(nullptr);
    parent->willRemoveSubview(this);
    moveToWindow(nullptr);
    if (const std::size_t index = indexOf(parent->m_subviews, this); index < parent->m_subviews.size())
        parent->m_subviews.erase(parent->m_subviews.begin() + index);
    m_layer->removeFromSuperlayer();
    m_superview = nullptr;
    parent->setNeedsLayout();
    didMoveToSuperview();
}

void UIView::moveToWindow(UIWindow* window) {
    if (m_window == window)
        return;
    if (m_window && UIApplication::sharedApplication())
        UIApplication::sharedApplication()->viewLeavesWindow(this);
    // Each of the messages may move the view elsewhere, and with it the rest of this.
    const Ref<UIView> keep = this;
    const UIView* parent = m_superview;
    const Ref<UIViewController> controller = m_viewController;
    if (controller)
        controller->viewWillMoveToWindow(window);
    willMoveToWindow(window);
    if (m_superview != parent || (window && m_superview && m_superview->m_window != window))
        return;
    m_window = window;
    const auto subviews = m_subviews;
    for (const auto& subview : subviews) {
        if (m_window == window && subview->m_superview == this)
            subview->moveToWindow(window);
    }
    if (m_window == window)
        didMoveToWindow();
    if (window && m_window == window)
        tintColorDidChange();
    if (controller)
        controller->viewDidMoveToWindow();
}

bool UIView::isDescendantOfView(const UIView* view) const {
    for (const UIView* ancestor = this; ancestor; ancestor = ancestor->m_superview) {
        if (ancestor == view)
            return true;
    }
    return false;
}

UIView* UIView::viewWithTag(NSInteger tag) {
    if (m_tag == tag)
        return this;
    for (const auto& subview : m_subviews) {
        if (UIView* found = subview->viewWithTag(tag))
            return found;
    }
    return nullptr;
}

// Layout and drawing

void UIView::setNeedsLayout() { m_layer->setNeedsLayout(); }
void UIView::layoutIfNeeded() { m_layer->layoutIfNeeded(); }

void UIView::layoutSublayersOfLayer(CALayer*) {
    const Ref<UIView> keep = this;
    const Ref<UIViewController> controller = m_viewController;
    if (controller)
        controller->viewWillLayoutSubviews();
    layoutSubviews();
    if (controller)
        controller->viewDidLayoutSubviews();
}

void UIView::setNeedsDisplay() {
    if (!m_draws)
        return;
    if (NSThread::isMainThread())
        m_layer->setNeedsDisplay();
    else
        NSRunLoop::mainRunLoop()->performBlock([layer = m_layer] { layer->setNeedsDisplay(); });
}

void UIView::displayLayer(CALayer* layer) {
    const Ref<UIView> keep = this;
    const Ref<CGImage> picture =
        drawIntoBitmap(bounds(), contentScaleFactor(), [this](CGRect rect) { drawRect(rect); });
    CATransaction::beginWithoutActions();
    layer->setContents(picture);
    CATransaction::endWithoutActions();
}

// Touches

UIView* UIView::hitTest_withEvent(CGPoint point, UIEvent* event) {
    if (isHidden() || alpha() < CGFloat(0.01f) || !m_userInteractionEnabled || !pointInside_withEvent(point, event))
        return nullptr;
    for (std::size_t i = m_subviews.size(); i-- > 0;) {
        UIView* subview = m_subviews[i];
        if (UIView* hit = subview->hitTest_withEvent(convertPoint_toView(point, subview), event))
            return hit;
    }
    return this;
}

bool UIView::pointInside_withEvent(CGPoint point, UIEvent*) { return CGRectContainsPoint(bounds(), point); }

UIResponder* UIView::nextResponder() const {
    if (m_viewController)
        return m_viewController;
    return m_superview;
}

bool UIView::isFocused() const {
    const UIApplication* application = UIApplication::sharedApplication();
    return application && application->focusedView() == this;
}

bool UIView::endEditing(bool force) {
    UIWindow* window = m_window;
    const Ref<UIView> view = window ? dynamic_cast<UIView*>(window->firstResponder()) : nullptr;
    if (!view || !view->isDescendantOfView(this) || view->resignFirstResponder())
        return true;
    if (force)
        window->dropFirstResponder(view);
    return force;
}

// Conversion

namespace {

/// The layer whose coordinates a view stands for in a conversion that starts at `start`.
const CALayer* conversionLayer(const UIView* view, const UIView* start) {
    if (view)
        return view->layer();
    const UIView* root = start;
    while (root->superview())
        root = root->superview();
    return root->layer();
}

template <class Convert>
CGRect convertCorners(CGRect rect, Convert convert) {
    rect = CGRectStandardize(rect);
    const CGFloat right = rect.origin.x + rect.size.width, bottom = rect.origin.y + rect.size.height;
    const std::array corners{convert(rect.origin), convert(CGPoint{right, rect.origin.y}),
                             convert(CGPoint{right, bottom}), convert(CGPoint{rect.origin.x, bottom})};
    // A rectangle that is only moved keeps its size to the last digit.
    const CGPoint movement{corners[0].x - rect.origin.x, corners[0].y - rect.origin.y};
    if (convert(CGPoint{0, 0}) == movement && convert(CGPoint{1, 0}) == CGPoint{movement.x + 1, movement.y} &&
        convert(CGPoint{0, 1}) == CGPoint{movement.x, movement.y + 1})
        return {corners[0], rect.size};
    const auto [minX, maxX] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [minY, maxY] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    return {{minX, minY}, {maxX - minX, maxY - minY}};
}

} // namespace

CGPoint UIView::convertPoint_toView(CGPoint point, const UIView* view) const {
    return m_layer->convertPoint_toLayer(point, conversionLayer(view, this));
}

CGPoint UIView::convertPoint_fromView(CGPoint point, const UIView* view) const {
    return m_layer->convertPoint_fromLayer(point, conversionLayer(view, this));
}

CGRect UIView::convertRect_toView(CGRect rect, const UIView* view) const {
    return convertCorners(rect, [&](CGPoint corner) { return convertPoint_toView(corner, view); });
}

CGRect UIView::convertRect_fromView(CGRect rect, const UIView* view) const {
    return convertCorners(rect, [&](CGPoint corner) { return convertPoint_fromView(corner, view); });
}

} // namespace zr
