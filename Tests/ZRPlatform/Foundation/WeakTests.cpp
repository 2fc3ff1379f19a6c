#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace zr {

namespace {

class Listener {
public:
    virtual void hear(int) {}

protected:
    ~Listener() = default;
};

class ListeningObject : public NSObject, public Listener {
public:
    void hear(int number) override { heard += number; }
    int heard = 0;
};

} // namespace

TEST(Weak, ReadsNilOnceTheObjectIsGone) {
    auto object = make<Recorder>();
    const Weak<Recorder> weak(object);
    const Weak<Recorder> copy = weak;
    EXPECT_EQ(weak.get(), object.get());
    EXPECT_EQ(object->retainCount(), 1u);
    EXPECT_EQ(weak.lock().get(), object.get());
    object = nullptr;
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_EQ(copy.get(), nullptr);
    EXPECT_FALSE(weak.lock());
}

TEST(Weak, NilReadsNil) {
    EXPECT_EQ(Weak<Recorder>().get(), nullptr);
    EXPECT_EQ(Weak<Recorder>(nullptr).get(), nullptr);
    EXPECT_EQ(Weak<Recorder>(Ref<Recorder>()).get(), nullptr);
    EXPECT_FALSE(Weak<Recorder>().lock());
}

TEST(Weak, ReadsNilFromTheBeginningOfTheDestructor) {
    auto object = make<Recorder>();
    const Weak<Recorder> weak(object);
    bool isNil = false;
    object->onDestruction = [&] { isNil = weak.get() == nullptr && !weak.lock(); };
    object = nullptr;
    EXPECT_TRUE(isNil);
}

TEST(Weak, OneMadeInTheDestructorIsNilFromTheStart) {
    auto object = make<Recorder>();
    Weak<Recorder> weak;
    bool isNil = false;
    object->onDestruction = [&, self = object.get()] {
        weak = self;
        isNil = weak.get() == nullptr;
    };
    object = nullptr;
    EXPECT_TRUE(isNil);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(Weak, ReadsNilOnceAnObjectOnTheStackIsGone) {
    Weak<Recorder> weak;
    {
        Recorder recorder;
        weak = &recorder;
        EXPECT_EQ(weak.get(), &recorder);
        EXPECT_EQ(weak.lock().get(), &recorder);
    }
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(Weak, LockingRacesTheLastReleaseSafely) {
    for (int round = 0; round < 300; ++round) {
        std::atomic<int> destructions{0};
        auto object = make<Recorder>();
        object->onDestruction = [&] { ++destructions; };
        object->messages.emplace_back("alive");
        const Weak<Recorder> weak(object);
        std::barrier start(3);
        const auto lock = [&] {
            start.arrive_and_wait();
            for (int i = 0; i < 20; ++i) {
                const Ref<Recorder> strong = weak.lock();
                if (!strong)
                    return;
                EXPECT_EQ(strong->messages.front(), "alive");
            }
        };
        std::thread first(lock), second(lock);
        start.arrive_and_wait();
        object = nullptr;
        first.join();
        second.join();
        ASSERT_EQ(destructions, 1);
        ASSERT_FALSE(weak.lock());
    }
}

TEST(Weak, ManyThreadsMayMakeTheFirstOneAtOnce) {
    for (int round = 0; round < 100; ++round) {
        auto object = make<Recorder>();
        std::vector<Weak<Recorder>> weaks(8);
        std::vector<std::thread> threads;
        for (auto& weak : weaks)
            threads.emplace_back([&weak, &object] { weak = object.get(); });
        for (auto& thread : threads)
            thread.join();
        for (const auto& weak : weaks)
            ASSERT_EQ(weak.get(), object.get());
        object = nullptr;
        for (const auto& weak : weaks)
            ASSERT_EQ(weak.get(), nullptr);
    }
}

TEST(Delegate, IsHeldWeaklyAndReachedThroughItsProtocol) {
    auto object = make<ListeningObject>();
    const Delegate<Listener> delegate(object);
    ASSERT_NE(delegate.get(), nullptr);
    delegate->hear(4);
    EXPECT_EQ(object->heard, 4);
    EXPECT_EQ(object->retainCount(), 1u);
    EXPECT_EQ(delegate.object().get(), object.get());
    object = nullptr;
    EXPECT_EQ(delegate.get(), nullptr);
    EXPECT_FALSE(delegate.object());
    EXPECT_EQ(Delegate<Listener>(nullptr).get(), nullptr);
}

} // namespace zr
