#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace zr {

namespace {

struct Point {
    double x = 0, y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

class Gauge : public NSObject {
public:
    float progress() const { return m_progress; }
    void setProgress(float progress) { setObservable(m_progress, progress, "progress"); }
    const NSString& title() const { return m_title; }
    void setTitle(const NSString& title) { setObservable(m_title, title, "title"); }
    Gauge* next() const { return m_next; }
    void setNext(Gauge* next) { setObservable(m_next, next, "next"); }
    Point place() const { return m_place; }
    void setPlace(const Point& place) { m_place = place; }
    bool isOn() const { return true; }
    NSString URL() const { return m_title; }
    void setURL(const NSString& text) { m_title = text; }
    /// May be written on any thread.
    int steps() const { return m_steps; }
    void setSteps(int steps) { setObservable(m_steps, steps, "steps"); }

    const KeyTable& keyTable() const override {
        static const KeyTable table(
            NSObject::keyTable(),
            {key<&Gauge::progress, &Gauge::setProgress>("progress"), key<&Gauge::title, &Gauge::setTitle>("title"),
             key<&Gauge::next, &Gauge::setNext>("next"), key<&Gauge::place, &Gauge::setPlace>("place"),
             key<&Gauge::steps, &Gauge::setSteps>("steps"), key<&Gauge::URL, &Gauge::setURL>("URL"),
             key<&Gauge::isOn>("on")});
        return table;
    }

private:
    float m_progress = 0;
    NSString m_title;
    Ref<Gauge> m_next;
    Point m_place;
    std::atomic<int> m_steps{0};
};

class LabelledGauge : public Gauge {
public:
    NSString label() const { return "label"; }
    const NSString& shownTitle() const { return m_shown; }

    const KeyTable& keyTable() const override {
        static const KeyTable table(Gauge::keyTable(),
                                    {key<&LabelledGauge::label>("label"), key<&LabelledGauge::shownTitle>("title")});
        return table;
    }

private:
    NSString m_shown = "shown";
};

struct Told {
    NSString key;
    NSObject* object;
    NSValue newValue, oldValue;
    void* context;
};

class Watcher : public NSObject {
public:
    void observeValueForKeyPath_ofObject_change_context(const NSString& keyPath, NSObject* object,
                                                        const NSKeyValueChange& change, void* context) override {
        told.push_back({keyPath, object, change.newValue, change.oldValue, context});
        if (onTold)
            onTold();
    }

    std::vector<Told> told;
    std::function<void()> onTold;
};

/// Counts on any thread.
class CountingWatcher : public NSObject {
public:
    void observeValueForKeyPath_ofObject_change_context(const NSString&, NSObject*, const NSKeyValueChange&,
                                                        void*) override {
        ++count;
    }
    std::atomic<int> count{0};
};

constexpr NSUInteger kNewAndOld = NSKeyValueObservingOptionNew | NSKeyValueObservingOptionOld;

} // namespace

TEST(KeyValueCoding, ReadsAndWritesEveryKindOfValue) {
    const auto gauge = make<Gauge>();
    const auto next = make<Gauge>();
    gauge->setValue_forKey(0.5, "progress");
    gauge->setValue_forKey("Speed", "title");
    gauge->setValue_forKey(next, "next");
    gauge->setValue_forKey(NSValue::valueWithStructure(Point{1, 2}), "place");
    EXPECT_EQ(gauge->progress(), 0.5f);
    EXPECT_EQ(gauge->title(), "Speed");
    EXPECT_EQ(gauge->next(), next.get());
    EXPECT_EQ(gauge->place(), (Point{1, 2}));
    EXPECT_EQ(gauge->valueForKey("progress").doubleValue(), 0.5);
    EXPECT_EQ(gauge->valueForKey("title").stringValue(), "Speed");
    EXPECT_EQ(gauge->valueForKey("next").objectValue(), next.get());
    EXPECT_EQ(*gauge->valueForKey("place").structure<Point>(), (Point{1, 2}));
    EXPECT_TRUE(gauge->valueForKey("on").boolValue());
}

TEST(KeyValueCoding, AValueOfTheWrongTypeSetsZeroOrNil) {
    const auto gauge = make<Gauge>();
    gauge->setProgress(1);
    gauge->setTitle("Speed");
    gauge->setNext(gauge);
    gauge->setPlace({1, 2});
    gauge->setValue_forKey("0.5", "progress");
    gauge->setValue_forKey(1, "title");
    gauge->setValue_forKey(make<Recorder>(), "next");
    gauge->setValue_forKey(nullptr, "place");
    EXPECT_EQ(gauge->progress(), 0);
    EXPECT_TRUE(gauge->title().isNil());
    EXPECT_EQ(gauge->next(), nullptr);
    EXPECT_EQ(gauge->place(), Point());
}

TEST(KeyValueCoding, AnUnknownOrReadOnlyKeyIsLogged) {
    LogLines log;
    const auto gauge = make<Gauge>();
    EXPECT_TRUE(gauge->valueForKey("colour").isNil());
    EXPECT_TRUE(gauge->valueForKey(nullptr).isNil());
    gauge->setValue_forKey(1, "colour");
    gauge->setValue_forKey(false, "on");
    EXPECT_TRUE(gauge->isOn());
    ASSERT_EQ(log.lines.size(), 4u);
    EXPECT_NE(log.lines[0].find("has no key \"colour\""), std::string::npos);
    EXPECT_NE(log.lines[3].find("cannot be set the key \"on\""), std::string::npos);
}

TEST(KeyValueCoding, ASubclassAddsKeysAndReplacesThose) {
    const auto gauge = make<LabelledGauge>();
    gauge->setTitle("hidden");
    gauge->setProgress(0.25f);
    EXPECT_EQ(gauge->valueForKey("label").stringValue(), "label");
    EXPECT_EQ(gauge->valueForKey("progress").floatValue(), 0.25f);
    EXPECT_EQ(gauge->valueForKey("title").stringValue(), "shown");
}

TEST(KeyValueCoding, RespondsToGettersAndToSettersOfWritableKeys) {
    const auto gauge = make<Gauge>();
    EXPECT_TRUE(gauge->respondsToSelector("progress"));
    EXPECT_TRUE(gauge->respondsToSelector("setProgress:"));
    EXPECT_TRUE(gauge->respondsToSelector("on"));
    EXPECT_TRUE(gauge->respondsToSelector("setURL:"));
    EXPECT_FALSE(gauge->respondsToSelector("setOn:"));
    EXPECT_FALSE(gauge->respondsToSelector("setProgress"));
    EXPECT_FALSE(gauge->respondsToSelector("setprogress:"));
    EXPECT_FALSE(gauge->respondsToSelector("colour"));
    EXPECT_FALSE(gauge->respondsToSelector("set:"));
    EXPECT_FALSE(gauge->respondsToSelector(""));
    EXPECT_FALSE(gauge->respondsToSelector(nullptr));
    EXPECT_FALSE(make<NSObject>()->respondsToSelector("progress"));
}

TEST(KeyValueCoding, KeyPathsGoThroughObjects) {
    const auto gauge = make<Gauge>();
    gauge->setNext(make<Gauge>());
    gauge->next()->setNext(make<Gauge>());
    gauge->setValue_forKeyPath("End", "next.next.title");
    EXPECT_EQ(gauge->next()->next()->title(), "End");
    EXPECT_EQ(gauge->valueForKeyPath("next.next.title").stringValue(), "End");
    gauge->setValue_forKeyPath("Start", "title");
    EXPECT_EQ(gauge->valueForKeyPath("title").stringValue(), "Start");
}

TEST(KeyValueCoding, AKeyPathThroughNilIsNilAndSetsNothing) {
    LogLines log;
    const auto gauge = make<Gauge>();
    EXPECT_TRUE(gauge->valueForKeyPath("next.title").isNil());
    gauge->setValue_forKeyPath("End", "next.title");
    EXPECT_TRUE(log.lines.empty());
    EXPECT_TRUE(gauge->valueForKeyPath("title.length").isNil());
    EXPECT_TRUE(gauge->valueForKeyPath(nullptr).isNil());
    EXPECT_TRUE(gauge->valueForKeyPath("next.").isNil());
    EXPECT_TRUE(gauge->valueForKeyPath(".next").isNil());
}

TEST(KeyValueObserving, TellsOldAndNewAfterTheValueIsStored) {
    const auto gauge = make<Gauge>();
    Watcher watcher;
    float seen = -1;
    watcher.onTold = [&] { seen = gauge->progress(); };
    int context = 0;
    gauge->addObserver_forKeyPath_options_context(&watcher, "progress", kNewAndOld, &context);
    gauge->setProgress(0.5f);
    ASSERT_EQ(watcher.told.size(), 1u);
    EXPECT_EQ(watcher.told[0].key, "progress");
    EXPECT_EQ(watcher.told[0].object, gauge.get());
    EXPECT_EQ(watcher.told[0].oldValue.floatValue(), 0);
    EXPECT_FALSE(watcher.told[0].oldValue.isNil());
    EXPECT_EQ(watcher.told[0].newValue.floatValue(), 0.5f);
    EXPECT_EQ(watcher.told[0].context, &context);
    EXPECT_EQ(seen, 0.5f);
}

TEST(KeyValueObserving, TellsAlsoWhenTheValueIsTheSame) {
    const auto gauge = make<Gauge>();
    Watcher watcher;
    gauge->addObserver_forKeyPath_options_context(&watcher, "progress", 0, nullptr);
    gauge->setProgress(0);
    gauge->setProgress(0);
    EXPECT_EQ(watcher.told.size(), 2u);
}

TEST(KeyValueObserving, LeavesOutTheValuesNotAskedFor) {
    const auto gauge = make<Gauge>();
    Watcher onlyNew, onlyOld;
    gauge->addObserver_forKeyPath_options_context(&onlyNew, "title", NSKeyValueObservingOptionNew, nullptr);
    gauge->addObserver_forKeyPath_options_context(&onlyOld, "title", NSKeyValueObservingOptionOld, nullptr);
    gauge->setTitle("a");
    gauge->setTitle("b");
    EXPECT_EQ(onlyNew.told[1].newValue.stringValue(), "b");
    EXPECT_TRUE(onlyNew.told[1].oldValue.isNil());
    EXPECT_TRUE(onlyOld.told[1].newValue.isNil());
    EXPECT_EQ(onlyOld.told[1].oldValue.stringValue(), "a");
}

TEST(KeyValueObserving, InitialTellsAtOnceWithoutAnOldValue) {
    const auto gauge = make<Gauge>();
    gauge->setTitle("a");
    Watcher watcher;
    gauge->addObserver_forKeyPath_options_context(&watcher, "title", kNewAndOld | NSKeyValueObservingOptionInitial,
                                                  nullptr);
    ASSERT_EQ(watcher.told.size(), 1u);
    EXPECT_EQ(watcher.told[0].newValue.stringValue(), "a");
    EXPECT_TRUE(watcher.told[0].oldValue.isNil());
}

TEST(KeyValueObserving, TellsObserversOfThatKeyOnlyAndSettingByKeyCounts) {
    const auto gauge = make<Gauge>();
    Watcher watcher;
    gauge->addObserver_forKeyPath_options_context(&watcher, "title", 0, nullptr);
    gauge->setProgress(1);
    EXPECT_TRUE(watcher.told.empty());
    gauge->setValue_forKey("a", "title");
    EXPECT_EQ(watcher.told.size(), 1u);
}

TEST(KeyValueObserving, EachRegistrationIsTakenBackByItselfTheLatestFirst) {
    const auto gauge = make<Gauge>();
    Watcher watcher;
    int first = 0, second = 0;
    gauge->addObserver_forKeyPath_options_context(&watcher, "title", 0, &first);
    gauge->addObserver_forKeyPath_options_context(&watcher, "title", 0, &second);
    gauge->setTitle("a");
    ASSERT_EQ(watcher.told.size(), 2u);
    EXPECT_EQ(watcher.told[0].context, &first);
    EXPECT_EQ(watcher.told[1].context, &second);
    gauge->removeObserver_forKeyPath(&watcher, "title");
    gauge->setTitle("b");
    ASSERT_EQ(watcher.told.size(), 3u);
    EXPECT_EQ(watcher.told[2].context, &first);
    gauge->removeObserver_forKeyPath(&watcher, "title");
    gauge->removeObserver_forKeyPath(&watcher, "title");
    gauge->setTitle("c");
    EXPECT_EQ(watcher.told.size(), 3u);
}

TEST(KeyValueObserving, AnObserverRemovedByAnotherIsNotToldAnyMore) {
    const auto gauge = make<Gauge>();
    Watcher first, second;
    first.onTold = [&] { gauge->removeObserver_forKeyPath(&second, "title"); };
    gauge->addObserver_forKeyPath_options_context(&first, "title", 0, nullptr);
    gauge->addObserver_forKeyPath_options_context(&second, "title", 0, nullptr);
    gauge->setTitle("a");
    EXPECT_EQ(first.told.size(), 1u);
    EXPECT_TRUE(second.told.empty());
}

TEST(KeyValueObserving, ADeadObserverIsForgotten) {
    const auto gauge = make<Gauge>();
    auto dying = make<Watcher>();
    Watcher living;
    gauge->addObserver_forKeyPath_options_context(dying, "title", 0, nullptr);
    gauge->addObserver_forKeyPath_options_context(&living, "title", 0, nullptr);
    EXPECT_EQ(dying->retainCount(), 1u);
    dying = nullptr;
    gauge->setTitle("a");
    gauge->setTitle("b");
    EXPECT_EQ(living.told.size(), 2u);
}

TEST(KeyValueObserving, AnObserverMayDropTheObservedObject) {
    auto gauge = make<Gauge>();
    Watcher watcher;
    watcher.onTold = [&] { gauge = nullptr; };
    gauge->addObserver_forKeyPath_options_context(&watcher, "title", kNewAndOld, nullptr);
    gauge->setTitle("a");
    EXPECT_FALSE(gauge);
    EXPECT_EQ(watcher.told.size(), 1u);
}

TEST(KeyValueObserving, UnknownKeysAndNilObserversAreIgnored) {
    LogLines log;
    const auto gauge = make<Gauge>();
    Watcher watcher;
    gauge->addObserver_forKeyPath_options_context(&watcher, "next.title", 0, nullptr);
    gauge->addObserver_forKeyPath_options_context(nullptr, "title", 0, nullptr);
    gauge->addObserver_forKeyPath_options_context(&watcher, nullptr, 0, nullptr);
    gauge->removeObserver_forKeyPath(nullptr, "title");
    gauge->setTitle("a");
    EXPECT_TRUE(watcher.told.empty());
    EXPECT_EQ(log.lines.size(), 1u);
}

TEST(KeyValueObserving, AnObserverThatHandlesNothingIsLogged) {
    LogLines log;
    const auto gauge = make<Gauge>();
    Recorder recorder;
    gauge->addObserver_forKeyPath_options_context(&recorder, "title", 0, nullptr);
    gauge->setTitle("a");
    ASSERT_EQ(log.lines.size(), 1u);
    EXPECT_NE(log.lines[0].find("\"title\""), std::string::npos);
}

TEST(KeyValueObserving, TellsOnTheThreadThatSetsTheValue) {
    const auto gauge = make<Gauge>();
    Watcher watcher;
    std::thread::id told;
    watcher.onTold = [&] { told = std::this_thread::get_id(); };
    gauge->addObserver_forKeyPath_options_context(&watcher, "progress", 0, nullptr);
    std::thread setter([&] { gauge->setProgress(1); });
    const std::thread::id expected = setter.get_id();
    setter.join();
    EXPECT_EQ(told, expected);
}

TEST(KeyValueObserving, EightThreadsSetWhileObserversComeAndGo) {
    constexpr int kThreads = 8, kSteps = 300;
    const auto gauge = make<Gauge>();
    CountingWatcher always;
    gauge->addObserver_forKeyPath_options_context(&always, "steps", kNewAndOld, nullptr);
    std::barrier start(kThreads + 2);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int step = 0; step < kSteps; ++step)
                gauge->setSteps(step);
        });
    }
    for (int i = 0; i < 2; ++i) {
        threads.emplace_back([&] {
            start.arrive_and_wait();
            for (int step = 0; step < kSteps; ++step) {
                const auto passing = make<CountingWatcher>();
                gauge->addObserver_forKeyPath_options_context(passing, "steps", kNewAndOld, nullptr);
                if (step % 2 == 0)
                    gauge->removeObserver_forKeyPath(passing, "steps");
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(always.count, kThreads * kSteps);
}

} // namespace zr
