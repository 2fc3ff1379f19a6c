#include <ZRPlatform/Foundation/Atomic.h>
#include <ZRPlatform/Foundation/NSObject.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/Weak.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace zr {

namespace {

/// Too large for one instruction, and whole only when all parts agree.
struct Large {
    double parts[8] = {};
    bool isWhole() const {
        for (const double part : parts) {
            if (part != parts[0])
                return false;
        }
        return true;
    }
};

Large largeOf(double value) {
    Large large;
    for (double& part : large.parts)
        part = value;
    return large;
}

} // namespace

TEST(Atomic, HoldsWhatWasWrittenLast) {
    Atomic<int> number = 3;
    EXPECT_EQ(number, 3);
    number = 4;
    EXPECT_EQ(number.load(), 4);
    EXPECT_EQ(number.exchange(5), 4);
    EXPECT_EQ(number, 5);
    Atomic<NSString> text;
    EXPECT_TRUE(text.load().isNil());
    text = "text";
    EXPECT_EQ(text.load(), "text");
    EXPECT_EQ(text.exchange(nullptr), "text");
    EXPECT_TRUE(text.load().isNil());
    const Atomic<float> zero;
    EXPECT_EQ(zero, 0);
}

TEST(Atomic, KeepsAnObjectUntilItIsReplaced) {
    Atomic<Ref<NSObject>> field;
    field = make<NSObject>();
    const Weak<NSObject> first = field.load();
    EXPECT_NE(first, nullptr);
    field = make<NSObject>();
    EXPECT_EQ(first, nullptr);
}

TEST(Atomic, LetsGoOfWhatItReplacedOutsideItsLock) {
    // The end of the object uses the field that held it.
    static Atomic<Ref<NSObject>> field;
    class Last : public NSObject {
    public:
        ~Last() override { field = nullptr; }
    };
    field = make<Last>();
    field = make<NSObject>();
    EXPECT_EQ(field.load(), nullptr);
}

TEST(Atomic, WhatIsReadWasWrittenWhole) {
    Atomic<Large> large;
    Atomic<NSString> text = NSString("0");
    std::vector<std::thread> writers;
    for (int writer = 1; writer <= 4; ++writer) {
        writers.emplace_back([&, writer] {
            for (int i = 0; i < 2000; ++i) {
                large = largeOf(writer);
                text = NSString(std::string(std::size_t(writer), static_cast<char>('0' + writer)));
            }
        });
    }
    for (int i = 0; i < 2000; ++i) {
        EXPECT_TRUE(large.load().isWhole());
        const std::string read = text.load().utf8();
        EXPECT_EQ(read.find_first_not_of(read[0]), std::string::npos);
    }
    for (std::thread& writer : writers)
        writer.join();
}

} // namespace zr
