#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace zr::tests::hosts {

/// Writes down what it is touched with: phase, time and place.
class TouchLog : public UIView {
public:
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent*) override { log("began", touches); }
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent*) override { log("moved", touches); }
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent*) override { log("ended", touches); }
    void touchesCancelled_withEvent(const TouchSet& touches, UIEvent*) override { log("cancelled", touches); }

    std::vector<std::string> lines;
    std::vector<std::pair<NSTimeInterval, CGPoint>> moves;

private:
    void log(const char* phase, const TouchSet& touches) {
        for (const UITouch* touch : touches) {
            const CGPoint place = touch->locationInView(nullptr);
            std::ostringstream line;
            line << phase << " " << place.x << " " << place.y;
            lines.push_back(line.str());
            if (touch->phase() == UITouchPhaseMoved)
                moves.emplace_back(secondsFromNanoseconds(Clock::current().now()), place);
        }
    }
};

/// A first responder that keeps what is typed.
class TypedText : public UIView, public UITextInput {
public:
    bool canBecomeFirstResponder() const override { return true; }
    void insertText(const NSString& text) override { pieces.push_back(text.utf8()); }
    void deleteBackward() override { pieces.push_back("<delete>"); }
    bool hasText() const override { return !pieces.empty(); }
    void setMarkedText_selectedRange(const NSString& text, NSRange range) override {
        pieces.push_back("marked " + text.utf8() + " " + std::to_string(range.location));
    }
    void unmarkText() override {}
    CGRect caretRectOnScreen() const override { return {}; }
    NSString selectedText() const override { return "selected"; }
    void selectAll() override { pieces.push_back("<all>"); }
    bool keyPressed(UIKey key, unsigned modifiers) override {
        pieces.push_back("key " + std::to_string(static_cast<int>(key)) + " " + std::to_string(modifiers));
        return true;
    }

    std::vector<std::string> pieces;
};

/// A white window that fills the screen.
inline Ref<UIWindow> shownWindow() {
    auto window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->setBackgroundColor(UIColor::whiteColor());
    window->makeKeyAndVisible();
    return window;
}

template <class View = UIView>
Ref<View> addView(UIView* parent, CGRect frame, UIColor* color = nullptr) {
    auto view = make<View>(&View::initWithFrame, frame);
    view->setBackgroundColor(color);
    parent->addSubview(view);
    return view;
}

inline std::string bytesOf(const CGImage& image) {
    std::string bytes;
    for (NSUInteger y = 0; y < image.height(); ++y)
        bytes.append(reinterpret_cast<const char*>(image.row(y)), image.width() * 4);
    return bytes;
}

inline std::string contentsOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A path for a file of this test alone, which does not exist yet.
inline std::string outputFile(const std::string& name) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const auto folder = std::filesystem::path(ZR_TEST_OUTPUT) / test->test_suite_name() / test->name();
    std::filesystem::create_directories(folder);
    std::filesystem::remove(folder / name);
    return (folder / name).string();
}

inline constexpr FramePixel kWhite{255, 255, 255};
inline constexpr FramePixel kRed{255, 0, 0};
inline constexpr FramePixel kBlue{0, 0, 255};

} // namespace zr::tests::hosts
