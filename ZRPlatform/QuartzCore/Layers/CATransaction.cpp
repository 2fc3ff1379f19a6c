#include <ZRPlatform/QuartzCore/Layers/CATransaction.h>

#include <ZRPlatform/Foundation/NSLog.h>

#include <algorithm>

namespace zr {

namespace {

/// Main thread only. Never destroyed, so that layers may go at any time during exit.
struct TransactionState {
    bool needsFrame = false;
    int actionsDisabled = 0;
    std::function<void()> frameHandler;
    std::vector<Weak<CALayer>> layersWithNewAnimations;
};

TransactionState& state() {
    static auto* theState = new TransactionState;
    return *theState;
}

/// More rounds of layout asking for layout than this are an endless loop.
constexpr int kMaximalRounds = 100;

} // namespace

void CATransaction::setNeedsFrame() {
    TransactionState& s = state();
    if (std::exchange(s.needsFrame, true))
        return;
    if (s.frameHandler)
        s.frameHandler();
}

bool CATransaction::needsFrame() { return state().needsFrame; }

void CATransaction::setFrameHandler(std::function<void()> handler) { state().frameHandler = std::move(handler); }

void CATransaction::commit(const std::vector<CALayer*>& roots) {
    // The callbacks may drop a window, and with it a root.
    const std::vector<Ref<CALayer>> kept(roots.begin(), roots.end());
    bool again = true;
    for (int round = 0; again && round < kMaximalRounds; ++round) {
        for (const auto& root : kept)
            root->layoutIfNeeded();
        for (const auto& root : kept)
            root->displayIfNeeded();
        again = std::any_of(kept.begin(), kept.end(), [](const Ref<CALayer>& root) {
            return root->m_needsLayout || root->m_subtreeNeedsLayout || root->m_needsDisplay ||
                   root->m_subtreeNeedsDisplay;
        });
    }
    if (again)
        NSLog("a view asks for layout or display in every round of its own layout; going on without");

    // From here on a change is one for the next frame.
    state().needsFrame = false;
    const auto layers = std::exchange(state().layersWithNewAnimations, {});
    const NSTimeInterval now = CACurrentMediaTime();
    for (const auto& layer : layers) {
        if (const Ref<CALayer> alive = layer.lock())
            alive->startAnimations(now);
    }
}

void CATransaction::beginWithoutActions() { ++state().actionsDisabled; }
void CATransaction::endWithoutActions() { --state().actionsDisabled; }
bool CATransaction::actionsDisabled() { return state().actionsDisabled > 0; }

void CATransaction::addPendingAnimation(CALayer* layer) {
    state().layersWithNewAnimations.push_back(layer);
    setNeedsFrame();
}

} // namespace zr
