#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/Foundation/NSKeyValueCoding.h>

namespace zr::tests {

namespace {

class Receiver : public NSObject {
public:
    void plain() { log.push_back("plain"); }
    void withSender(UIControl* sender) {
        log.push_back("sender");
        lastSender = sender;
    }
    void withEvent(UIControl* sender, UIEvent* event) {
        log.push_back(event ? "event" : "no event");
        lastSender = sender;
    }

    News log;
    UIControl* lastSender = nullptr;
};

/// A view that takes messages that were sent to nobody in particular.
class ReceivingView : public UIView {
public:
    void received() { ++count; }

    int count = 0;
};

constexpr SEL kPlain = selector<&Receiver::plain>, kSender = selector<&Receiver::withSender>,
              kEvent = selector<&Receiver::withEvent>;

} // namespace

TEST(UIControlActions, TakeNothingTheSenderOrTheEventToo) {
    auto control = make<UIControl>();
    auto receiver = make<Receiver>();
    for (const SEL action : {kPlain, kSender, kEvent})
        control->addTarget_action_forControlEvents(receiver, action, UIControlEventValueChanged);
    control->sendActionsForControlEvents(UIControlEventValueChanged);
    EXPECT_EQ(receiver->log, (News{"plain", "sender", "no event"}));
    EXPECT_EQ(receiver->lastSender, control.get());
}

TEST(UIControlActions, ComeInTheOrderOfRegistrationAndOncePerPair) {
    auto control = make<UIControl>();
    auto receiver = make<Receiver>();
    control->addTarget_action_forControlEvents(receiver, kSender, UIControlEventTouchDown);
    control->addTarget_action_forControlEvents(receiver, kPlain, UIControlEventValueChanged);
    control->addTarget_action_forControlEvents(receiver, kSender, UIControlEventValueChanged);
    control->sendActionsForControlEvents(UIControlEventValueChanged | UIControlEventTouchDown);
    EXPECT_EQ(receiver->log, (News{"sender", "plain"}));
    EXPECT_EQ(control->allControlEvents(), UIControlEventTouchDown | UIControlEventValueChanged);
}

TEST(UIControlActions, OnlyTheEventsAskedForAreSent) {
    auto control = make<UIControl>();
    auto receiver = make<Receiver>();
    control->addTarget_action_forControlEvents(receiver, kPlain, UIControlEventTouchUpInside);
    control->sendActionsForControlEvents(UIControlEventAllEvents & ~NSUInteger{UIControlEventTouchUpInside});
    EXPECT_TRUE(receiver->log.empty());
    control->sendActionsForControlEvents(UIControlEventTouchUpInside);
    EXPECT_EQ(receiver->log, (News{"plain"}));
}

TEST(UIControlActions, RemovingByTargetActionAndEvents) {
    auto control = make<UIControl>();
    auto a = make<Receiver>(), b = make<Receiver>();
    const auto addAll = [&] {
        for (const auto& receiver : {a, b}) {
            control->addTarget_action_forControlEvents(receiver, kPlain, UIControlEventTouchDown);
            control->addTarget_action_forControlEvents(receiver, kSender, UIControlEventTouchDown);
        }
    };
    const auto count = [&] {
        return control->actionsForTarget_forControlEvent(a, UIControlEventAllEvents).size() * 10 +
               control->actionsForTarget_forControlEvent(b, UIControlEventAllEvents).size();
    };
    addAll();
    EXPECT_EQ(count(), 22u);
    control->removeTarget_action_forControlEvents(a, kPlain, UIControlEventTouchUpInside);
    EXPECT_EQ(count(), 22u);
    control->removeTarget_action_forControlEvents(a, kPlain, UIControlEventTouchDown);
    EXPECT_EQ(count(), 12u);
    control->removeTarget_action_forControlEvents(b, nullptr, UIControlEventAllEvents);
    EXPECT_EQ(count(), 10u);
    addAll();
    control->removeTarget_action_forControlEvents(nullptr, kPlain, UIControlEventAllEvents);
    EXPECT_EQ(count(), 11u);
    control->removeTarget_action_forControlEvents(nullptr, nullptr, UIControlEventAllEvents);
    EXPECT_EQ(count(), 0u);
    EXPECT_EQ(control->allControlEvents(), 0u);
}

TEST(UIControlActions, TargetsAreNotKept) {
    auto control = make<UIControl>();
    auto receiver = make<Receiver>();
    auto other = make<Receiver>();
    control->addTarget_action_forControlEvents(receiver, kPlain, UIControlEventTouchDown);
    control->addTarget_action_forControlEvents(other, kPlain, UIControlEventTouchUpInside);
    EXPECT_EQ(receiver->retainCount(), 1u);
    EXPECT_EQ(control->allTargets(), (std::vector<NSObject*>{receiver, other}));
    receiver = nullptr;
    EXPECT_EQ(control->allTargets(), (std::vector<NSObject*>{other}));
    EXPECT_EQ(control->allControlEvents(), NSUInteger{UIControlEventTouchUpInside});
    control->sendActionsForControlEvents(UIControlEventTouchDown); // to nobody
}

namespace {

class Remover : public NSObject {
public:
    void remove(UIControl* control) {
        control->removeTarget_action_forControlEvents(nullptr, kPlain, UIControlEventAllEvents);
    }
};

} // namespace

TEST(UIControlActions, ATargetRemovedMeanwhileIsNotTold) {
    auto control = make<UIControl>();
    auto remover = make<Remover>();
    auto receiver = make<Receiver>();
    control->addTarget_action_forControlEvents(remover, selector<&Remover::remove>, UIControlEventTouchDown);
    control->addTarget_action_forControlEvents(receiver, kPlain, UIControlEventTouchDown);
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_TRUE(receiver->log.empty());
}

TEST(UIControlActions, ANilActionIsNotAdded) {
    auto control = make<UIControl>();
    control->addTarget_action_forControlEvents(make<Receiver>(), nullptr, UIControlEventTouchDown);
    EXPECT_TRUE(control->allTargets().empty());
}

TEST(UIControlActions, WithoutATargetTheFirstResponderUpwardsThatTakesIt) {
    auto outer = make<ReceivingView>(), inner = make<ReceivingView>();
    auto plain = make<UIView>();
    auto control = make<UIControl>();
    outer->addSubview(inner);
    inner->addSubview(plain);
    plain->addSubview(control);
    control->addTarget_action_forControlEvents(nullptr, selector<&ReceivingView::received>, UIControlEventTouchDown);
    EXPECT_EQ(control->allTargets(), (std::vector<NSObject*>{nullptr}));
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(inner->count, 1);
    EXPECT_EQ(outer->count, 0);
    const HeadlessHost host; // with an application it goes the same way
    control->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(inner->count, 2);
}

namespace {

/// A sender in one branch of the window's views, and what may be first responder in another.
class ActionWithoutTarget : public OnScreen {
protected:
    class FirstResponder : public UIView {
    public:
        bool canBecomeFirstResponder() const override { return true; }
    };

    ActionWithoutTarget() {
        for (const auto& branch : {senders, others})
            window->addSubview(branch);
        senders->addSubview(sender);
        others->addSubview(inner);
        inner->addSubview(first);
    }

    bool send() { return host.application()->sendAction_to_from_forEvent(kReceived, nullptr, sender, nullptr); }

    static constexpr SEL kReceived = selector<&ReceivingView::received>;
    Ref<ReceivingView> senders = make<ReceivingView>(), others = make<ReceivingView>(), inner = make<ReceivingView>();
    Ref<UIControl> sender = make<UIControl>();
    Ref<FirstResponder> first = make<FirstResponder>();
};

} // namespace

TEST_F(ActionWithoutTarget, GoesUpwardsFromTheFirstResponder) {
    ASSERT_TRUE(first->becomeFirstResponder());
    EXPECT_TRUE(send());
    EXPECT_EQ(inner->count, 1);
    sender->addTarget_action_forControlEvents(nullptr, kReceived, UIControlEventTouchDown);
    sender->sendActionsForControlEvents(UIControlEventTouchDown);
    EXPECT_EQ(inner->count, 2);
    EXPECT_EQ(others->count, 0);
    EXPECT_EQ(senders->count, 0);
}

TEST_F(ActionWithoutTarget, GoesUpwardsFromTheSenderWhenNobodyThereTakesIt) {
    EXPECT_TRUE(send()); // without a first responder
    EXPECT_EQ(senders->count, 1);
    window->addSubview(first);
    ASSERT_TRUE(first->becomeFirstResponder());
    EXPECT_TRUE(send());
    EXPECT_EQ(senders->count, 2);
    EXPECT_EQ(inner->count + others->count, 0);
}

TEST_F(ActionWithoutTarget, IsDroppedWhenNobodyTakesIt) {
    window->addSubview(first);
    window->addSubview(sender);
    ASSERT_TRUE(first->becomeFirstResponder());
    EXPECT_FALSE(send());
    EXPECT_EQ(senders->count + inner->count + others->count, 0);
}

class UIControlOnScreen : public OnScreen {};

TEST_F(UIControlOnScreen, ATouchHandsOverItsEvent) {
    auto control = place(make<UIControl>(), {{0, 0}, {100, 100}});
    auto receiver = make<Receiver>();
    control->addTarget_action_forControlEvents(receiver, kEvent, UIControlEventTouchUpInside);
    host.tap({50, 50});
    EXPECT_EQ(receiver->log, (News{"event"}));
    EXPECT_EQ(receiver->lastSender, control.get());
}

TEST(UIControlState, IsASum) {
    auto control = make<UIControl>();
    EXPECT_EQ(control->state(), NSUInteger{UIControlStateNormal});
    control->setSelected(true);
    control->setHighlighted(true);
    EXPECT_EQ(control->state(), NSUInteger{UIControlStateSelected | UIControlStateHighlighted});
    control->setEnabled(false);
    EXPECT_EQ(control->state(),
              NSUInteger{UIControlStateSelected | UIControlStateHighlighted | UIControlStateDisabled});
}

TEST(UIControlState, CanBeReadAndSetByKey) {
    auto control = make<UIControl>();
    control->setValue_forKey(true, "selected");
    control->setValue_forKey(false, "enabled");
    EXPECT_TRUE(control->isSelected());
    EXPECT_FALSE(control->isEnabled());
    EXPECT_EQ(control->valueForKey("state").integerValue(), UIControlStateSelected | UIControlStateDisabled);
}

} // namespace zr::tests
