#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <gtest/gtest.h>
#include <thread>

namespace zr {

namespace {

class Refusing : public NSObject {
public:
    bool init() override { return false; }
    bool initWithNumber(int number) {
        m_number = number;
        return NSObject::init() && number > 0;
    }
    int number() const { return m_number; }

private:
    int m_number = 0;
};

class RefusingLess : public Refusing {
public:
    bool init() override { return true; }
};

/// Is deleted when the test says so.
class Postponed : public NSObject {
public:
    explicit Postponed(std::vector<NSObject*>& waiting) : m_waiting(waiting) {}

protected:
    void destroy() override { m_waiting.push_back(this); }

private:
    std::vector<NSObject*>& m_waiting;
};

Ref<Recorder> recorderThatSets(bool& flag) {
    auto recorder = make<Recorder>();
    recorder->onDestruction = [&flag] { flag = true; };
    return recorder;
}

} // namespace

TEST(NSObject, IsDestroyedWithItsLastReference) {
    bool isDestroyed = false;
    Ref<NSObject> first = recorderThatSets(isDestroyed);
    Ref<NSObject> second = first;
    EXPECT_EQ(first->retainCount(), 2u);
    first = nullptr;
    EXPECT_FALSE(isDestroyed);
    EXPECT_EQ(second->retainCount(), 1u);
    second = nullptr;
    EXPECT_TRUE(isDestroyed);
}

TEST(NSObject, ReferencesTakenWhileItIsDestroyedDoNotDestroyItAgain) {
    int destructions = 0;
    NSUInteger count = 99;
    auto recorder = make<Recorder>();
    recorder->onDestruction = [&, object = recorder.get()] {
        ++destructions;
        const Ref<NSObject> first(object);
        { const Ref<NSObject> second = first; }
        count = object->retainCount();
    };
    recorder = nullptr;
    EXPECT_EQ(destructions, 1);
    EXPECT_EQ(count, 0u);
}

TEST(NSObject, AnObjectOnTheStackCanBeReferredToForAWhile) {
    Recorder recorder;
    { const Ref<NSObject> lent(&recorder); }
    recorder.plain();
    EXPECT_EQ(recorder.messages.size(), 1u);
    EXPECT_EQ(recorder.retainCount(), 1u);
}

TEST(NSObject, MakeGivesNilWhenTheInitialiserRefuses) {
    EXPECT_FALSE(make<Refusing>());
    EXPECT_FALSE(make<Refusing>(&Refusing::initWithNumber, -1));
    const auto object = make<Refusing>(&Refusing::initWithNumber, 3);
    ASSERT_TRUE(object);
    EXPECT_EQ(object->number(), 3);
}

TEST(NSObject, MakeDispatchesTheInitialiserToTheSubclass) {
    EXPECT_TRUE(make<RefusingLess>());
    EXPECT_TRUE(make<RefusingLess>(&NSObject::init));
}

TEST(NSObject, DestroyMayBePostponedAndWeakReferencesReadNilFromThereOn) {
    std::vector<NSObject*> waiting;
    auto object = Ref<NSObject>::adopt(new Postponed(waiting));
    const Weak<NSObject> weak(object);
    object = nullptr;
    ASSERT_EQ(waiting.size(), 1u);
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_FALSE(weak.lock());
    { const Ref<NSObject> late(waiting.front()); }
    EXPECT_EQ(waiting.size(), 1u);
    delete waiting.front();
}

TEST(NSObject, ManyThreadsShareOneCount) {
    std::atomic<int> destructions{0};
    auto recorder = make<Recorder>();
    recorder->onDestruction = [&] { ++destructions; };
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([mine = recorder] {
            for (int k = 0; k < 2000; ++k)
                const Ref<Recorder> copy = mine;
        });
    }
    recorder = nullptr;
    for (auto& thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(destructions, 1);
}

TEST(NSObject, EqualityIsIdentity) {
    Recorder a, b;
    EXPECT_TRUE(a.isEqual(&a));
    EXPECT_FALSE(a.isEqual(&b));
    EXPECT_FALSE(a.isEqual(nullptr));
}

TEST(NSObject, DescriptionNamesTheClassWithoutTheNamespace) {
    Recorder recorder;
    EXPECT_TRUE(recorder.description().hasPrefix("<Recorder: 0x")) << recorder.description();
}

TEST(NSObject, IsKindOfItsClassAndSuperclasses) {
    Recorder recorder;
    const NSObject& object = recorder;
    EXPECT_TRUE(object.isKindOfClass<Recorder>());
    EXPECT_TRUE(object.isKindOfClass<NSObject>());
    EXPECT_FALSE(object.isKindOfClass<Stranger>());
}

TEST(Ref, MovesConvertsAndGivesAway) {
    bool isDestroyed = false;
    Ref<Recorder> recorder = recorderThatSets(isDestroyed);
    Ref<NSObject> object = std::move(recorder);
    EXPECT_EQ(recorder.get(), nullptr);
    EXPECT_EQ(object->retainCount(), 1u);
    EXPECT_TRUE(dynamicCast<Recorder>(object));
    EXPECT_FALSE(dynamicCast<Stranger>(object));
    NSObject* owned = object.leak();
    EXPECT_FALSE(isDestroyed);
    Ref<NSObject>::adopt(owned) = nullptr;
    EXPECT_TRUE(isDestroyed);
}

TEST(Ref, AssigningItselfKeepsTheObject) {
    bool isDestroyed = false;
    Ref<Recorder> recorder = recorderThatSets(isDestroyed);
    const Ref<Recorder>& same = recorder;
    recorder = same;
    EXPECT_FALSE(isDestroyed);
    EXPECT_EQ(recorder->retainCount(), 1u);
}

TEST(SEL, ComparesByMethod) {
    EXPECT_EQ(selector<&Recorder::plain>, selector<&Recorder::plain>);
    EXPECT_FALSE(selector<&Recorder::plain> == selector<&Recorder::with>);
    EXPECT_FALSE(SEL());
    EXPECT_EQ(SEL(), SEL(nullptr));
    EXPECT_TRUE(selector<&Recorder::plain>);
}

TEST(SEL, KnowsWhoUnderstandsIt) {
    Recorder recorder;
    Stranger stranger;
    EXPECT_TRUE(selector<&Recorder::plain>.isAcceptedBy(&recorder));
    EXPECT_FALSE(selector<&Recorder::plain>.isAcceptedBy(&stranger));
    EXPECT_FALSE(selector<&Recorder::plain>.isAcceptedBy(nullptr));
    EXPECT_FALSE(SEL().isAcceptedBy(&recorder));
}

TEST(SEL, SendsWithTheArgumentsTheMethodTakesAndReturnsTheResult) {
    Recorder recorder;
    const NSValue arguments[] = {7, 2, 1};
    EXPECT_EQ(selector<&Recorder::difference>.send(&recorder, arguments).intValue(), 5);
    EXPECT_EQ(selector<&Recorder::difference>.send(&recorder, std::span(arguments, 1)).intValue(), 7);
    EXPECT_TRUE(selector<&Recorder::plain>.send(&recorder, arguments).isNil());
    EXPECT_EQ(recorder.messages, std::vector<std::string>{"plain"});
}

TEST(SEL, AMessageToAnotherClassIsDroppedAndLogged) {
    LogLines log;
    Stranger stranger;
    EXPECT_TRUE(stranger.performSelector(selector<&Recorder::plain>).isNil());
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_TRUE(log.lines.front().starts_with("<Stranger: ")) << log.lines.front();
}

TEST(SEL, AMessageToNilOrANilMessageIsSilent) {
    LogLines log;
    Recorder recorder;
    EXPECT_TRUE(selector<&Recorder::plain>.send(nullptr).isNil());
    EXPECT_TRUE(recorder.performSelector(nullptr).isNil());
    EXPECT_TRUE(log.lines.empty());
}

TEST(NSObject, PerformSelectorPassesTheObjectAndReturnsTheResult) {
    Recorder recorder;
    EXPECT_EQ(recorder.performSelector_withObject(selector<&Recorder::twice>, 21).intValue(), 42);
    recorder.performSelector_withObject(selector<&Recorder::with>, "text");
    recorder.performSelector(selector<&Recorder::with>);
    EXPECT_EQ(recorder.messages, (std::vector<std::string>{"with text", "with nil"}));
}

} // namespace zr
