#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <ZRPlatform/UIKit/Gestures/UITapGestureRecognizer.h>

namespace zr::testing {

namespace {

const RGBAColor kWhiteColor = rgb(255, 255, 255);
const RGBAColor kSelectedText = rgb(45, 167, 5);

/// Three segments at (20, 100) on a blue window, and what they sent.
class ZRSegmentedControlTest : public ::testing::Test {
protected:
    class Listener : public NSObject {
    public:
        void changed(NSObject* sender) {
            ++count;
            selected = dynamic_cast<ZRSegmentedControl*>(sender)->selectedSegmentIndex();
            if (onChange)
                onChange();
        }
        int count = 0;
        std::int64_t selected = -1;
        std::function<void()> onChange;
    };

    void SetUp() override { show({"Day", "Week", "Month"}); }

    void show(const std::vector<NSString>& items) {
        if (control)
            control->removeFromSuperview();
        control = make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, items);
        control->addTarget_action_forControlEvents(&listener, selector<&Listener::changed>, UIControlEventValueChanged);
        control->setFrame(CGRectMake(20, 100, control->frame().size.width, control->frame().size.height));
        window->addSubview(control);
        host.advance(0);
    }
    void tapAt(CGFloat x) { host.tap({20 + x, 114}); }
    UILabel* label(std::size_t index) const { return control->titleLabels().at(index); }
    /// The look: which segment is white and green, the others being clear and white.
    void expectShown(std::int64_t selected) {
        for (std::size_t i = 0; i < control->titleLabels().size(); ++i) {
            const bool isSelected = static_cast<std::int64_t>(i) == selected;
            EXPECT_EQ(rgba(label(i)->backgroundColor()), isSelected ? kWhiteColor : kClear) << i;
            EXPECT_EQ(rgba(label(i)->textColor()), isSelected ? kSelectedText : kWhiteColor) << i;
        }
    }

    HeadlessHost host{device(480, 320)};
    Ref<UIWindow> window = showWindow(UIColor::blueColor());
    Ref<ZRSegmentedControl> control;
    Listener listener;
};

} // namespace

TEST_F(ZRSegmentedControlTest, LiesAtTheOriginAsWideAsItsSegments) {
    EXPECT_EQ(
        make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a", "b", "c"})->frame(),
        CGRectMake(0, 0, 282, 29));
    EXPECT_EQ(make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a"})->frame(),
              CGRectMake(0, 0, 94, 29));
}

TEST_F(ZRSegmentedControlTest, IsAWhiteOutlineWithItsLabels) {
    EXPECT_TRUE(control->clipsToBounds());
    EXPECT_EQ(control->layer()->borderWidth(), 1);
    EXPECT_EQ(control->layer()->borderColor()->rgba(), kWhiteColor);
    EXPECT_EQ(control->backgroundColor(), UIColor::clearColor());
    EXPECT_EQ(control->titles(), (std::vector<NSString>{"Day", "Week", "Month"}));
    ASSERT_EQ(control->titleLabels().size(), 3u);
    ASSERT_EQ(control->subviews().size(), 3u);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(control->subviews()[i], label(i));
        EXPECT_EQ(label(i)->text(), control->titles()[i]);
        EXPECT_EQ(label(i)->frame(), CGRectMake(static_cast<CGFloat>(i) * 94, 0, 94, 29));
        EXPECT_EQ(label(i)->layer()->borderWidth(), 0.5);
        EXPECT_EQ(label(i)->layer()->borderColor()->rgba(), kWhiteColor);
        EXPECT_EQ(label(i)->textAlignment(), NSTextAlignmentCenter);
        EXPECT_TRUE(label(i)->font()->isEqual(UIFont::systemFontOfSize(13)));
    }
    ASSERT_EQ(control->gestureRecognizers().size(), 1u);
    EXPECT_TRUE(control->gestureRecognizers()[0]->isKindOfClass<UITapGestureRecognizer>());
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    expectShown(0);
}

TEST_F(ZRSegmentedControlTest, IsRoundedFromTheFirstLayoutOn) {
    const auto fresh = make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a"});
    EXPECT_EQ(fresh->layer()->cornerRadius(), 0);
    fresh->layoutIfNeeded();
    EXPECT_EQ(fresh->layer()->cornerRadius(), 14.5);
    fresh->setFrame(CGRectMake(0, 0, 300, 50));
    label(0)->setFrame(CGRectZero);
    fresh->layoutIfNeeded();
    EXPECT_EQ(fresh->layer()->cornerRadius(), 25);
    control->setNeedsLayout();
    control->layoutIfNeeded();
    EXPECT_EQ(label(0)->frame(), CGRectMake(0, 0, 94, 29));
}

TEST_F(ZRSegmentedControlTest, ATapSelectsTheSegmentUnderIt) {
    const struct {
        CGFloat x;
        std::int64_t selected;
    } taps[] = {{93.9, 0}, {94, 1}, {187.9, 1}, {188, 2}, {281.5, 2}, {0, 0}};
    for (const auto& tap : taps) {
        tapAt(tap.x);
        EXPECT_EQ(control->selectedSegmentIndex(), tap.selected) << tap.x;
        expectShown(tap.selected);
    }
    EXPECT_EQ(listener.count, 3);
}

TEST_F(ZRSegmentedControlTest, ATapBeyondTheLastSegmentSelectsIt) {
    control->setFrame(CGRectMake(20, 100, 450, 29)); // wider than its segments
    tapAt(400);
    EXPECT_EQ(control->selectedSegmentIndex(), 2);
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSegmentedControlTest, ADragSelectsNothing) {
    host.touchDown({30, 114});
    host.touchMove({250, 114}, 0.2);
    host.touchUp();
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSegmentedControlTest, TargetsHearOfAChangeBeforeItShows) {
    listener.onChange = [this] {
        EXPECT_EQ(control->selectedSegmentIndex(), 2);
        expectShown(0);
    };
    tapAt(200);
    EXPECT_EQ(listener.count, 1);
    EXPECT_EQ(listener.selected, 2);
    expectShown(2);
}

TEST_F(ZRSegmentedControlTest, ByCodeItSendsAsByTaps) {
    control->setSelectedSegmentIndex(1);
    EXPECT_EQ(listener.count, 1);
    EXPECT_EQ(listener.selected, 1);
    expectShown(1);
}

TEST_F(ZRSegmentedControlTest, IndicesOutOfRangeSelectTheNearestSegment) {
    control->setSelectedSegmentIndex(7);
    EXPECT_EQ(control->selectedSegmentIndex(), 2);
    EXPECT_EQ(listener.count, 1);
    control->setSelectedSegmentIndex(INT64_MAX);
    EXPECT_EQ(listener.count, 1);
    control->setSelectedSegmentIndex(-3);
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    EXPECT_EQ(listener.count, 2);
    control->setSelectedSegmentIndex(INT64_MIN);
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    EXPECT_EQ(listener.count, 2);
}

TEST_F(ZRSegmentedControlTest, TheSelectedOneAgainSendsNothingButIsShown) {
    label(0)->setBackgroundColor(UIColor::redColor());
    label(1)->setTextColor(UIColor::redColor());
    label(2)->setFrame(CGRectZero);
    control->setSelectedSegmentIndex(0);
    EXPECT_EQ(listener.count, 0);
    expectShown(0);
    EXPECT_EQ(label(2)->frame(), CGRectMake(188, 0, 94, 29));
    tapAt(10);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSegmentedControlTest, WhatATargetSelectsMeanwhileDoesNotLast) {
    listener.onChange = [this] {
        if (listener.count == 1)
            control->setSelectedSegmentIndex(2);
    };
    control->setSelectedSegmentIndex(1);
    EXPECT_EQ(listener.count, 2);
    EXPECT_EQ(control->selectedSegmentIndex(), 1);
    expectShown(1);
}

TEST_F(ZRSegmentedControlTest, ItsSelectionIsAKeyThatCanBeObserved) {
    control->setValue_forKey(std::int64_t(1), "selectedSegmentIndex");
    EXPECT_EQ(control->selectedSegmentIndex(), 1);
    EXPECT_EQ(control->valueForKey("selectedSegmentIndex").integerValue(), 1);
    KeyWatcher<std::int64_t> watcher(control, "selectedSegmentIndex",
                                     [this] { return control->selectedSegmentIndex(); });
    control->setSelectedSegmentIndex(7);
    control->setSelectedSegmentIndex(2);
    EXPECT_EQ(watcher.values, (std::vector<std::int64_t>{2, 2}));
    // One that a target changes meanwhile is told with the value that lasts.
    listener.count = 0;
    listener.onChange = [this] {
        if (listener.count == 1)
            control->setSelectedSegmentIndex(0);
    };
    control->setSelectedSegmentIndex(1);
    EXPECT_EQ(watcher.values.back(), 1);
}

TEST_F(ZRSegmentedControlTest, SendsNoEventButThatItsValueChanged) {
    EventCounter others(control, UIControlEventAllEvents & ~NSUInteger(UIControlEventValueChanged));
    control->setSelectedSegmentIndex(1);
    EXPECT_EQ(others.count, 0);
    EXPECT_EQ(listener.count, 1);
}

TEST_F(ZRSegmentedControlTest, ATapGoesThroughTheSetter) {
    class Segments : public ZRSegmentedControl {
    public:
        void setSelectedSegmentIndex(std::int64_t index) override {
            asked.push_back(index);
            ZRSegmentedControl::setSelectedSegmentIndex(index);
        }
        std::vector<std::int64_t> asked;
    };
    const auto special = make<Segments>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a", "b"});
    window->addSubview(special);
    host.tap({100, 10});
    EXPECT_EQ(special->asked, (std::vector<std::int64_t>{1}));
}

TEST_F(ZRSegmentedControlTest, TitlesAndLabelsThatAreSetCountFromThenOn) {
    control->setTitles({"a", "b", "c", "d"});
    EXPECT_EQ(label(0)->text(), "Day");
    EXPECT_EQ(control->frame().size.width, 282);
    control->setSelectedSegmentIndex(9);
    EXPECT_EQ(control->selectedSegmentIndex(), 3);
    const auto other = make<UILabel>();
    control->setTitleLabels({nullptr, other});
    control->setSelectedSegmentIndex(1);
    control->setNeedsLayout();
    control->layoutIfNeeded();
    control->setTitle_forSegmentAtIndex("A", 0);
    control->setTitle_forSegmentAtIndex("B", 1);
    EXPECT_EQ(rgba(other->textColor()), kSelectedText);
    EXPECT_EQ(other->frame(), CGRectMake(94, 0, 94, 29));
    EXPECT_EQ(other->text(), "B");
    EXPECT_EQ(control->titleForSegmentAtIndex(0), "A");
}

TEST_F(ZRSegmentedControlTest, TitlesCanBeReplaced) {
    control->setTitle_forSegmentAtIndex("Year", 2);
    EXPECT_EQ(control->titleForSegmentAtIndex(2), "Year");
    EXPECT_EQ(label(2)->text(), "Year");
    control->setTitle_forSegmentAtIndex("", 1);
    EXPECT_EQ(label(1)->text(), "");
    const std::vector<NSString> before = control->titles();
    control->setTitle_forSegmentAtIndex("Decade", 3);
    control->setTitle_forSegmentAtIndex(nullptr, 0);
    EXPECT_EQ(control->titles(), before);
    EXPECT_EQ(label(0)->text(), "Day");
    EXPECT_TRUE(control->titleForSegmentAtIndex(3).isNil());
    EXPECT_EQ(control->titleForSegmentAtIndex(0), "Day");
}

TEST_F(ZRSegmentedControlTest, WithoutSegmentsKeepsAnyIndexFromZeroOn) {
    show({});
    EXPECT_EQ(control->frame().size, CGSizeMake(0, 29));
    control->setSelectedSegmentIndex(7);
    EXPECT_EQ(control->selectedSegmentIndex(), 7);
    EXPECT_EQ(listener.count, 1);
    control->setSelectedSegmentIndex(-7);
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    EXPECT_EQ(listener.count, 2);
    control->setTitle_forSegmentAtIndex("Day", 0);
    EXPECT_TRUE(control->titleForSegmentAtIndex(0).isNil());
    host.snapshot();
}

TEST_F(ZRSegmentedControlTest, AThousandSegmentsAndNilTitles) {
    std::vector<NSString> items(1000);
    items[0] = "First";
    show(items);
    EXPECT_EQ(control->frame().size.width, 94000);
    control->setSelectedSegmentIndex(999);
    expectShown(999);
    EXPECT_TRUE(label(999)->text().isNil());
    control->setFrame(CGRectMake(20 - 94 * 996, 100, 94000, 29));
    tapAt(10);
    EXPECT_EQ(control->selectedSegmentIndex(), 996);
    host.snapshot();
}

TEST_F(ZRSegmentedControlTest, IsPaintedAsAPillOfSegments) {
    EXPECT_EQ(host.pixel({40, 105}), (FramePixel{255, 255, 255})); // the selected one
    EXPECT_EQ(host.pixel({150, 105}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(host.pixel({150, 100}), (FramePixel{255, 255, 255})); // the outline, one point
    EXPECT_EQ(host.pixel({150, 100.5}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({150, 101}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(host.pixel({20, 100}), (FramePixel{0, 0, 255})); // outside of the round end
    // Between two segments lie both labels' borders, half a point each.
    EXPECT_EQ(host.pixel({207.5, 105}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({208, 105}), (FramePixel{255, 255, 255}));
    EXPECT_EQ(host.pixel({208.5, 105}), (FramePixel{0, 0, 255}));
    EXPECT_EQ(host.pixel({207, 105}), (FramePixel{0, 0, 255}));
}

TEST_F(ZRSegmentedControlTest, DisabledItCanOnlyBeSetByCode) {
    control->setEnabled(false);
    tapAt(220);
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    control->setEnabled(true);
    host.touchDown({240, 114});
    control->setEnabled(false);
    host.touchUp();
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    control->setSelectedSegmentIndex(1);
    EXPECT_EQ(control->selectedSegmentIndex(), 1);
    control->setEnabled(true);
    tapAt(220);
    EXPECT_EQ(control->selectedSegmentIndex(), 2);
}

TEST_F(ZRSegmentedControlTest, RemovedDuringItsTouchSelectsNothing) {
    host.touchDown({220, 114});
    control->removeFromSuperview();
    host.touchUp();
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
    EXPECT_EQ(listener.count, 0);
}

TEST_F(ZRSegmentedControlTest, ResizedToNothingDuringItsTouchSelectsWhereTheFingerIs) {
    host.touchDown({220, 114});
    control->setFrame(CGRectMake(20, 100, 0, 0));
    host.touchUp();
    host.snapshot();
    EXPECT_EQ(control->selectedSegmentIndex(), 2);
}

TEST_F(ZRSegmentedControlTest, ScaledToNothingDuringItsTouchItStaysWithinItsSegments) {
    host.touchDown({220, 114});
    control->setTransform(CGAffineTransformMakeScale(0, 0));
    host.touchUp();
    host.snapshot();
    EXPECT_EQ(control->selectedSegmentIndex(), 0);
}

TEST_F(ZRSegmentedControlTest, MayBeDroppedByWhomItTellsOfACodesChange) {
    auto lone = make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"a", "b"});
    ZRSegmentedControl* plain = lone;
    const Weak<ZRSegmentedControl> weak = lone;
    lone->addTarget_action_forControlEvents(&listener, selector<&Listener::changed>, UIControlEventValueChanged);
    listener.onChange = [&] { lone = nullptr; };
    plain->setSelectedSegmentIndex(1);
    EXPECT_EQ(weak, nullptr);
}

TEST_F(ZRSegmentedControlTest, MayBeDroppedByWhomItTells) {
    const Weak<ZRSegmentedControl> weak = control;
    listener.onChange = [this] {
        control->removeFromSuperview();
        control = nullptr;
    };
    tapAt(200);
    EXPECT_EQ(listener.count, 1);
    host.advance(1);
    EXPECT_EQ(weak, nullptr);
    show({"Day"});
}

} // namespace zr::testing
