#pragma once

#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTNavigationController/ZRTNavigationBar.h>

namespace zr::testing {

class BarDelegate : public NSObject, public ZRTNavigationBarDelegate {
public:
    void zrTNavigationBar_backButtonClicked(ZRTNavigationBar* bar, UIButton* button) override {
        bars.push_back(bar);
        buttons.push_back(button);
        if (onClick)
            onClick();
    }
    std::vector<ZRTNavigationBar*> bars;
    std::vector<UIButton*> buttons;
    std::function<void()> onClick;
};

class SilentDelegate : public NSObject, public ZRTNavigationBarDelegate {};

/// A bar of 320 x 64 points at the top of the screen.
class ZRTNavigationBarTest : public ::testing::Test {
protected:
    class Target : public NSObject {
    public:
        void tapped(UIButton* button) { buttons.push_back(button); }
        std::vector<UIButton*> buttons;
    };

    void SetUp() override { window->addSubview(bar); }

    static Ref<ZRTNavigationBar> makeBar(CGFloat width, CGFloat height) {
        return make<ZRTNavigationBar>(&UIView::initWithFrame, CGRectMake(0, 0, width, height));
    }
    static Ref<UIButton> makeButton(CGFloat width, CGFloat height) {
        auto button = make<UIButton>();
        button->setFrame(CGRectMake(77, 77, width, height));
        return button;
    }
    static CGFloat seenAlpha(const UIView* view) { return view->layer()->presentationValues().opacity; }
    /// A quarter of the way there is where an animation that eases in and out is far from half of the half.
    static constexpr double kEasedQuarter = 0.12916;

    static void expectStyled(UIButton* button) {
        EXPECT_EQ(rgba(button->titleColorForState(UIControlStateNormal)), rgb(255, 255, 255));
        EXPECT_EQ(rgba(button->titleColorForState(UIControlStateHighlighted)), rgb(255, 255, 255, 0.3));
        EXPECT_EQ(rgba(button->titleColorForState(UIControlStateDisabled)), rgb(255, 255, 255, 0.3));
        EXPECT_TRUE(button->titleLabel()->font()->isEqual(UIFont::systemFontOfSize(15)));
        EXPECT_EQ(button->titleLabel()->textAlignment(), NSTextAlignmentRight);
        EXPECT_EQ(button->titleLabel()->backgroundColor(), UIColor::clearColor());
        EXPECT_EQ(button->backgroundColor(), UIColor::clearColor());
        EXPECT_EQ(button->autoresizingMask(), 45u);
    }

    HeadlessHost host{device(320, 568)};
    Ref<UIWindow> window = showWindow(UIColor::whiteColor());
    Ref<ZRTNavigationBar> bar = makeBar(320, 64);
    BarDelegate delegate;
    Target target;
};

} // namespace zr::testing
