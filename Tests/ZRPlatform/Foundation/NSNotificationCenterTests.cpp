#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace zr {

namespace {

class Listener : public NSObject {
public:
    void hear(NSNotification* notification) {
        names.push_back(notification->name());
        lastObject = notification->object();
        lastInfo = notification->userInfo();
        if (onHear)
            onHear();
    }

    std::vector<NSString> names;
    NSObject* lastObject = nullptr;
    NSValue lastInfo;
    std::function<void()> onHear;
};

class CountingListener : public NSObject {
public:
    void hear(NSNotification*) { ++count; }
    std::atomic<int> count{0};
};

using Names = std::vector<NSString>;

class NSNotificationCenterTest : public testing::Test {
protected:
    void observe(Listener& listener, const NSString& name, NSObject* object = nullptr) {
        center->addObserver_selector_name_object(&listener, selector<&Listener::hear>, name, object);
    }
    void post(const NSString& name, NSObject* object = nullptr) { center->postNotificationName_object(name, object); }

    Ref<NSNotificationCenter> center = make<NSNotificationCenter>();
    NSObject senderA, senderB;
};

} // namespace

TEST_F(NSNotificationCenterTest, DeliversNameSenderAndInformation) {
    Listener listener;
    observe(listener, "a");
    center->postNotificationName_object_userInfo("a", &senderA, 7);
    EXPECT_EQ(listener.names, Names{"a"});
    EXPECT_EQ(listener.lastObject, &senderA);
    EXPECT_EQ(listener.lastInfo.intValue(), 7);
    post("a");
    EXPECT_EQ(listener.lastObject, nullptr);
    EXPECT_TRUE(listener.lastInfo.isNil());
}

TEST_F(NSNotificationCenterTest, ANilNameIsEveryNameAndANilObjectEverySender) {
    Listener everything, named, sent, both;
    observe(everything, nullptr);
    observe(named, "a");
    observe(sent, nullptr, &senderA);
    observe(both, "a", &senderA);
    post("a", &senderA);
    post("a", &senderB);
    post("b", &senderA);
    post("a");
    post(nullptr);
    EXPECT_EQ(everything.names.size(), 5u);
    EXPECT_EQ(named.names, (Names{"a", "a", "a"}));
    EXPECT_EQ(sent.names, (Names{"a", "b"}));
    EXPECT_EQ(both.names, (Names{"a"}));
}

TEST_F(NSNotificationCenterTest, DeliversInTheOrderOfRegistrationAndOncePerRegistration) {
    Listener first, second;
    std::string order;
    first.onHear = [&] { order += '1'; };
    second.onHear = [&] { order += '2'; };
    observe(first, "a");
    observe(second, nullptr);
    observe(first, "a");
    post("a");
    EXPECT_EQ(order, "121");
}

TEST_F(NSNotificationCenterTest, AnObserverRemovedDuringAPostIsNotToldAnyMore) {
    Listener first, second;
    first.onHear = [&] { center->removeObserver(&second); };
    observe(first, "a");
    observe(second, "a");
    post("a");
    EXPECT_EQ(first.names.size(), 1u);
    EXPECT_TRUE(second.names.empty());
}

TEST_F(NSNotificationCenterTest, AnObserverAddedDuringAPostIsToldFromTheNextOn) {
    Listener first, second;
    first.onHear = [&] {
        observe(second, "a");
        first.onHear = nullptr;
    };
    observe(first, "a");
    post("a");
    EXPECT_TRUE(second.names.empty());
    post("a");
    EXPECT_EQ(second.names.size(), 1u);
}

TEST_F(NSNotificationCenterTest, AnObserverThatDiesDuringAPostIsNotTold) {
    Listener first;
    auto second = make<Listener>();
    first.onHear = [&] { second = nullptr; };
    observe(first, "a");
    observe(*second, "a");
    post("a");
    EXPECT_FALSE(second);
    post("a");
    EXPECT_EQ(first.names.size(), 2u);
}

TEST_F(NSNotificationCenterTest, RemovingTakesEveryRegistrationOrThoseMadeForTheNameOrSender) {
    Listener listener, other;
    const auto observeAll = [&] {
        center->removeObserver(&listener);
        listener.names.clear();
        observe(listener, "a");
        observe(listener, "b", &senderA);
        observe(listener, nullptr, &senderA);
    };
    const auto heard = [&] {
        listener.names.clear();
        post("a", &senderA);
        post("b", &senderA);
        return listener.names;
    };
    observe(other, "a");
    observeAll();
    EXPECT_EQ(heard(), (Names{"a", "a", "b", "b"}));
    center->removeObserver_name_object(&listener, "a", nullptr);
    EXPECT_EQ(heard(), (Names{"a", "b", "b"}));
    observeAll();
    center->removeObserver_name_object(&listener, nullptr, &senderA);
    EXPECT_EQ(heard(), (Names{"a"}));
    observeAll();
    center->removeObserver_name_object(&listener, "b", &senderA);
    EXPECT_EQ(heard(), (Names{"a", "a", "b"}));
    center->removeObserver_name_object(&listener, "a", &senderB);
    EXPECT_EQ(heard(), (Names{"a", "a", "b"}));
    center->removeObserver(nullptr);
    EXPECT_EQ(heard(), (Names{"a", "a", "b"}));
    center->removeObserver(&listener);
    EXPECT_TRUE(heard().empty());
    EXPECT_FALSE(other.names.empty());
}

TEST_F(NSNotificationCenterTest, HoldsObserversAndSendersWeakly) {
    auto listener = make<Listener>();
    auto sender = make<NSObject>();
    Listener ofSender;
    observe(*listener, "a");
    observe(ofSender, "a", sender);
    EXPECT_EQ(listener->retainCount(), 1u);
    EXPECT_EQ(sender->retainCount(), 1u);
    listener = nullptr;
    sender = nullptr;
    post("a");
    EXPECT_TRUE(ofSender.names.empty());
}

TEST_F(NSNotificationCenterTest, NilObserversAndMessagesAreIgnored) {
    Listener listener;
    center->addObserver_selector_name_object(nullptr, selector<&Listener::hear>, "a", nullptr);
    center->addObserver_selector_name_object(&listener, nullptr, "a", nullptr);
    post("a");
    EXPECT_TRUE(listener.names.empty());
}

TEST_F(NSNotificationCenterTest, ThreadsPostWhileObserversComeAndGo) {
    constexpr int kPosters = 4, kPosts = 300;
    CountingListener always;
    center->addObserver_selector_name_object(&always, selector<&CountingListener::hear>, "a", nullptr);
    std::barrier start(kPosters + 1);
    std::vector<std::thread> threads;
    for (int i = 0; i < kPosters; ++i) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int k = 0; k < kPosts; ++k)
                post("a");
        });
    }
    threads.emplace_back([&] {
        start.arrive_and_wait();
        for (int k = 0; k < kPosts; ++k) {
            const auto passing = make<CountingListener>();
            center->addObserver_selector_name_object(passing, selector<&CountingListener::hear>, "a", nullptr);
            if (k % 2 == 0)
                center->removeObserver(passing);
        }
    });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(always.count, kPosters * kPosts);
}

TEST(NSNotificationCenter, TheDefaultOneIsAlwaysTheSame) {
    ASSERT_NE(NSNotificationCenter::defaultCenter(), nullptr);
    EXPECT_EQ(NSNotificationCenter::defaultCenter(), NSNotificationCenter::defaultCenter());
}

} // namespace zr
