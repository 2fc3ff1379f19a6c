#pragma once

#include <ZRPlatform/Foundation/Atomic.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// Progress as a circle, clockwise from twelve o'clock: a white wedge that grows inside an outlined disc, or, when it
/// is annular, an arc along a faint ring. Wedge, arc and ring fit the width, the disc both sides; in a view that is
/// wider than tall what fits the width is cut off.
///
/// It observes its own properties and draws itself anew whenever one is set. The properties may be set on any thread;
/// everything else belongs to the main thread.
class ZRRoundProgressView : public UIView {
public:
    /// 37 x 37 points at the origin.
    bool init() override;
    bool initWithFrame(CGRect frame) override;
    ~ZRRoundProgressView() override;

    /// The part that is done, 0..1; 0 at first. Not clamped: beyond 1 the circle stays full, and below 0 what is drawn
    /// reaches from twelve o'clock the long way round, so that -0.25 looks like 0.75.
    float progress() const { return m_progress; }
    virtual void setProgress(float progress);
    /// White at first: the disc's outline, or the arc. The wedge is white whatever this is. Nil draws in the colour
    /// that the context has at that moment.
    Ref<UIColor> progressTintColor() const { return m_progressTintColor; }
    virtual void setProgressTintColor(UIColor* color);
    /// White of alpha 0.1 at first: the disc, or the ring below the arc. Nil draws in the colour that the context has
    /// at that moment.
    Ref<UIColor> backgroundTintColor() const { return m_backgroundTintColor; }
    virtual void setBackgroundTintColor(UIColor* color);
    /// An arc along a ring instead of a wedge in a disc; false at first.
    bool isAnnular() const { return m_annular; }
    virtual void setAnnular(bool annular);

    /// @name Observing itself
    /// @{
    /// The keys that are observed, in this order. A class with keys of its own adds them here and to its key table.
    virtual std::vector<NSString> observableKeypaths() const;
    /// Observes those keys. Called by the initialiser, as the last thing.
    virtual void registerForKVO();
    /// Stops observing them. The destructor calls this class's own, not an override.
    virtual void unregisterFromKVO();
    /// Draws the view anew, whichever key has changed.
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                        const NSKeyValueChange& change, void* context) override;
    /// @}

    /// Always draws the whole view.
    void drawRect(CGRect rect) override;

protected:
    const KeyTable& keyTable() const override;

private:
    void drawPie() const;
    void drawRing() const;

    Atomic<Ref<UIColor>> m_progressTintColor;
    Atomic<Ref<UIColor>> m_backgroundTintColor;
    Atomic<float> m_progress = 0;
    Atomic<bool> m_annular = false;
};

} // namespace zr
#pragma GCC visibility pop
