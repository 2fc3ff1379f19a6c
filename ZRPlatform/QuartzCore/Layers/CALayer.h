#pragma once

#include <ZRPlatform/CoreGraphics/CGContext.h>
#include <ZRPlatform/Foundation/Weak.h>
#include <ZRPlatform/QuartzCore/Animations/CAAnimation.h>
#include <ZRPlatform/QuartzCore/Layers/LayerValues.h>

#include <optional>
#include <utility>
#include <vector>

#pragma GCC visibility push(default)
namespace zr {

class CALayer;
class NSTimer;

/// The contents are stretched over the bounds.
inline constexpr const char* kCAGravityResize = "resize";
/// The contents keep their shape and are as large as fits into the bounds, in the middle.
inline constexpr const char* kCAGravityResizeAspect = "resizeAspect";
/// The contents keep their shape and are as large as covers the bounds, in the middle.
inline constexpr const char* kCAGravityResizeAspectFill = "resizeAspectFill";
/// The contents keep their size (see `contentsScale`), and lie in the middle, or at the edge or in the corner of the
/// name.
inline constexpr const char* kCAGravityCenter = "center";
inline constexpr const char* kCAGravityTop = "top";
inline constexpr const char* kCAGravityBottom = "bottom";
inline constexpr const char* kCAGravityLeft = "left";
inline constexpr const char* kCAGravityRight = "right";
inline constexpr const char* kCAGravityTopLeft = "topLeft";
inline constexpr const char* kCAGravityTopRight = "topRight";
inline constexpr const char* kCAGravityBottomLeft = "bottomLeft";
inline constexpr const char* kCAGravityBottomRight = "bottomRight";

/// What a layer asks its owner; for a view's layer that is the view.
class CALayerDelegate {
public:
    virtual ~CALayerDelegate() = default;
    /// Places the sublayers. Called when layout was asked for, the superlayer's before its sublayers'.
    virtual void layoutSublayersOfLayer(CALayer*) {}
    /// Renews the contents. Called when display was asked for.
    virtual void displayLayer(CALayer*) {}
    /// The animation that a change of `key` is to make, from what shows now; nil to change at once. Called before the
    /// change.
    virtual Ref<CAAnimation> actionForLayer_forKey(CALayer*, const char* /*key*/) { return nullptr; }
};

/// A rectangle that shows: background, contents, border, and sublayers in front. Values set change the model at once;
/// what is seen is the presentation: the model with the running animations applied.
///
/// Main thread only, like everything in QuartzCore.
class CALayer : public NSObject {
public:
    CALayer();
    ~CALayer() override;

    /// @name Geometry, in points
    /// Numbers that are not finite are kept, and draw nothing.
    /// @{
    /// Where the anchor point lies in the superlayer.
    CGPoint position() const { return m_values.position; }
    void setPosition(CGPoint position);
    /// The layer's own coordinates: its size, and what lies at its top left corner. Setting it leaves the anchor point
    /// where it is.
    CGRect bounds() const { return m_values.bounds; }
    void setBounds(CGRect bounds);
    /// The place in the bounds that `position` is the place of and that transforms turn about, 0..1 of them; (0.5,
    /// 0.5), the middle, at first.
    CGPoint anchorPoint() const { return m_values.anchorPoint; }
    void setAnchorPoint(CGPoint point);
    /// A layer of a greater one lies before its siblings, whatever their order, and nearer to the eye where they share
    /// a perspective; 0 at first.
    CGFloat zPosition() const { return m_values.zPosition; }
    void setZPosition(CGFloat z);
    /// Of the layer and its sublayers, about the anchor point; the identity at first.
    const CATransform3D& transform() const { return m_values.transform; }
    void setTransform(const CATransform3D& transform);
    /// The transform's two-dimensional part; the identity for one that has perspective or leaves the plane. Setting it
    /// sets `transform`.
    CGAffineTransform affineTransform() const { return CATransform3DGetAffineTransform(m_values.transform); }
    void setAffineTransform(const CGAffineTransform& transform);
    /// Of the sublayers alone, about the anchor point, after their own; for a perspective that they share. The identity
    /// at first.
    const CATransform3D& sublayerTransform() const { return m_values.sublayerTransform; }
    void setSublayerTransform(const CATransform3D& transform);
    /// The box around the transformed bounds. Setting it sets bounds' size and position, through the inverse transform.
    CGRect frame() const { return m_values.frame(); }
    void setFrame(CGRect frame);
    /// @}

    /// @name Look
    /// @{
    /// From 0 (invisible) to 1, for the layer and its sublayers as one picture; 1 at first.
    float opacity() const { return m_values.opacity; }
    void setOpacity(float opacity);
    /// Whether neither the layer nor its sublayers show; false at first.
    bool isHidden() const { return m_values.hidden; }
    void setHidden(bool hidden);
    /// Whether sublayers and contents are cut to the bounds, rounded by the corner radius; false at first.
    bool masksToBounds() const { return m_values.masksToBounds; }
    void setMasksToBounds(bool masks);
    /// Fills the bounds below the contents; kept. Nil, at first, for none.
    CGColorRef backgroundColor() const { return m_values.backgroundColor; }
    void setBackgroundColor(CGColorRef color);
    /// Points; rounds the background, the border and, with `masksToBounds`, the rest. Cut to half the shorter side.
    CGFloat cornerRadius() const { return m_values.cornerRadius; }
    void setCornerRadius(CGFloat radius);
    /// Points, drawn inside the bounds, over contents and sublayers.
    CGFloat borderWidth() const { return m_values.borderWidth; }
    void setBorderWidth(CGFloat width);
    /// Kept; opaque black at first.
    CGColorRef borderColor() const { return m_values.borderColor; }
    void setBorderColor(CGColorRef color);
    /// The bitmap that shows, placed by `contentsGravity`; kept. Nil shows nothing.
    CGImageRef contents() const { return m_values.contents; }
    void setContents(CGImageRef image);
    /// Pixels of the contents a point, for gravities that do not resize; 1 at first, and for what is not above 0.
    CGFloat contentsScale() const { return m_contentsScale; }
    void setContentsScale(CGFloat scale);
    /// How the contents lie in bounds of another size: one of the names above. Stretched at first.
    const NSString& contentsGravity() const { return m_contentsGravity; }
    void setContentsGravity(const NSString& gravity);
    /// The part of the contents that shows, 0..1 in both directions; all at first.
    CGRect contentsRect() const { return m_values.contentsRect; }
    void setContentsRect(CGRect rect);
    /// The part of `contentsRect` that is stretched, 0..1 of it; what is left and right, above and below of it keeps
    /// its size in that direction. All at first.
    CGRect contentsCenter() const { return m_values.contentsCenter; }
    void setContentsCenter(CGRect rect);
    /// A promise that background or contents cover the bounds without transparency; used to leave out what is behind.
    /// False at first.
    bool isOpaque() const { return m_opaque; }
    void setOpaque(bool opaque);
    /// @}

    /// @name Tree
    /// A layer keeps its sublayers; the superlayer is not kept.
    /// @{
    /// The layer that this one is in; nil for none.
    CALayer* superlayer() const { return m_superlayer; }
    /// From back to front, as far as no `zPosition` changes that.
    const std::vector<Ref<CALayer>>& sublayers() const { return m_sublayers; }
    /// Puts the layer in front of the others. Nil is ignored; so is a layer that contains this one. A layer that has
    /// another superlayer is taken from it.
    void addSublayer(CALayer* layer);
    /// Puts the layer at a place among the sublayers, 0 the lowest; `index` beyond the end adds it last.
    void insertSublayer_atIndex(CALayer* layer, NSUInteger index);
    /// Takes the layer out of its superlayer, which keeps it no longer; nothing happens without one.
    void removeFromSuperlayer();
    /// @}

    /// @name Layout and display
    /// Carried out at the end of the run loop turn.
    /// @{
    /// Asks for the delegate's `layoutSublayersOfLayer`.
    void setNeedsLayout();
    /// Whether that was asked for, and has not been done.
    bool needsLayout() const { return m_needsLayout; }
    /// Lays out now what asked for it: this layer, those below it, and those above it.
    void layoutIfNeeded();
    /// Asks for the delegate's `displayLayer`.
    void setNeedsDisplay();
    /// Whether that was asked for, and has not been done.
    bool needsDisplay() const { return m_needsDisplay; }
    /// Displays now this layer and those below it, if they asked for it.
    void displayIfNeeded();
    /// Who lays out, displays and animates the layer: a view's layer has the view. Not kept; the owner clears it before
    /// it goes. Nil at first.
    CALayerDelegate* delegate() const { return m_delegate; }
    void setDelegate(CALayerDelegate* delegate) { m_delegate = delegate; }
    /// @}

    /// @name Animations
    /// @{
    /// Runs a copy of the animation. One already there under the same key is replaced (and told it did not finish); a
    /// nil key never replaces.
    void addAnimation_forKey(CAAnimation* animation, const NSString& key);
    /// Takes the animation away and tells its delegate that it did not finish; nothing without one.
    void removeAnimationForKey(const NSString& key);
    /// The same for all of them, those without a key too.
    void removeAllAnimations();
    /// The layer's own copy, running; nil when there is none.
    CAAnimation* animationForKey(const NSString& key) const;
    /// Keys in the order of adding; animations without a key are left out.
    std::vector<NSString> animationKeys() const;
    /// Whether any animation is there, running, waiting, or kept after its end.
    bool hasAnimations() const { return !m_animations.empty(); }
    /// All of them with their keys, oldest first; those without one have a nil key.
    std::vector<std::pair<NSString, CAAnimation*>> keyedAnimations() const;
    /// What shows now: the model with the animations applied at the clock's time.
    LayerValues presentationValues() const;
    /// What was set, whatever the animations show.
    const LayerValues& modelValues() const { return m_values; }
    /// A copy of this layer (without sublayers and animations) with the presentation's values.
    Ref<CALayer> presentationLayer() const;
    /// When a running animation next changes what shows, by `CACurrentMediaTime`: now while one glides, infinite when
    /// none changes anything any more.
    NSTimeInterval nextChangeTime() const;
    /// Whether a running animation changes where the layer or its sublayers are, or how large.
    bool isMoving() const;
    /// @}

    /// @name Conversion
    /// By the model's geometry. A nil layer stands for the root's superlayer.
    /// @{
    /// From this layer's coordinates into those of `layer`; not-a-number where a transform allows no answer.
    CGPoint convertPoint_toLayer(CGPoint point, const CALayer* layer) const;
    /// From the coordinates of `layer` into this one's, likewise.
    CGPoint convertPoint_fromLayer(CGPoint point, const CALayer* layer) const;
    /// @}

    /// The model's value of what an animation names so: "position.x", "transform.rotation.z". Nil for an unknown one.
    NSValue valueForLayerKeyPath(const NSString& keyPath) const;

protected:
    const KeyTable& keyTable() const override;

private:
    friend class CATransaction;

    struct RunningAnimation {
        NSString key;
        Ref<CAAnimation> animation;
        bool started = false;
        /// Fires at the end; nil for an animation that has none.
        Ref<NSTimer> end;
    };

    template <class T>
    void change(const char* key, T LayerValues::*member, const T& value);
    RunningAnimation* find(const CAAnimation* animation);
    std::optional<RunningAnimation> takeAnimation(const NSString& key);
    void startAnimations(NSTimeInterval now);
    void start(RunningAnimation& running, NSTimeInterval now);
    void animationReachedEnd(CAAnimation* animation);
    static void tellStopped(const RunningAnimation& running, bool finished);
    void markSubtree(bool CALayer::*flag);

    LayerValues m_values;
    CGFloat m_contentsScale = 1;
    NSString m_contentsGravity = kCAGravityResize;
    bool m_opaque = false;
    bool m_needsLayout = false;
    bool m_needsDisplay = false;
    bool m_subtreeNeedsLayout = false;
    bool m_subtreeNeedsDisplay = false;
    CALayer* m_superlayer = nullptr;
    std::vector<Ref<CALayer>> m_sublayers;
    CALayerDelegate* m_delegate = nullptr;
    std::vector<RunningAnimation> m_animations;
};

} // namespace zr
#pragma GCC visibility pop
