#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <ZRPlatform/UIKit/Text/Internal/PangoTextEngine.h>

#include <atomic>

namespace zr {

namespace {
std::atomic<TextEngine*> g_engine{nullptr};
} // namespace

TextEngine& TextEngine::current() {
    TextEngine* engine = g_engine.load(std::memory_order_acquire);
    return engine ? *engine : PangoTextEngine::shared();
}

void TextEngine::setCurrent(TextEngine* engine) { g_engine.store(engine, std::memory_order_release); }

} // namespace zr
