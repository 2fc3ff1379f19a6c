#pragma once

#include <ZRPlatform/Foundation/Atomic.h>
#include <ZRPlatform/UIKit/Views/UIView.h>

#include <vector>

#pragma GCC visibility push(default)
namespace zr {

/// Progress as a pill that grows from the left inside an outlined, pill-shaped track. Its ends follow the ends of the
/// track; the left one shows whole as soon as there is any progress.
///
/// It observes its own properties and draws itself anew whenever one is set. The properties may be set on any thread;
/// everything else belongs to the main thread.
class ZRBarProgressView : public UIView {
public:
    /// 120 x 20 points at the origin.
    bool init() override;
    bool initWithFrame(CGRect frame) override;
    ~ZRBarProgressView() override;

    /// The part that is done, 0..1; 0 at first. Kept as it is: below 0 looks like 0, above 1 like 1.
    float progress() const { return m_progress; }
    virtual void setProgress(float progress);
    /// The outline of the track, white at first. Nil draws in the colour that the context has at that moment.
    Ref<UIColor> lineColor() const { return m_lineColor; }
    virtual void setLineColor(UIColor* color);
    /// The inside of the track, clear at first. Nil counts as for the outline.
    Ref<UIColor> progressRemainingColor() const { return m_progressRemainingColor; }
    virtual void setProgressRemainingColor(UIColor* color);
    /// The pill, white at first. Nil counts as for the outline.
    Ref<UIColor> progressColor() const { return m_progressColor; }
    virtual void setProgressColor(UIColor* color);

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

    /// Draws a bar of the rectangle's size at the origin.
    void drawRect(CGRect rect) override;

protected:
    const KeyTable& keyTable() const override;

private:
    void drawTrack(CGSize size) const;
    void drawPill(CGSize size) const;

    Atomic<Ref<UIColor>> m_lineColor;
    Atomic<Ref<UIColor>> m_progressRemainingColor;
    Atomic<Ref<UIColor>> m_progressColor;
    Atomic<float> m_progress = 0;
};

} // namespace zr
#pragma GCC visibility pop
