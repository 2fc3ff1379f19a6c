#include <Tests/ZRPlatform/Foundation/Recorder.h>

#include <cmath>
#include <gtest/gtest.h>

namespace zr {

namespace {

struct Size {
    double width = 0, height = 0;
};

enum class Mood : std::uint8_t { Calm = 1, Cross = 2 };

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr NSInteger kLargest = std::numeric_limits<NSInteger>::max();
constexpr NSInteger kSmallest = std::numeric_limits<NSInteger>::min();

/// Equal to every other of its kind.
class Equal : public NSObject {
public:
    bool isEqual(const NSObject* other) const override { return dynamic_cast<const Equal*>(other) != nullptr; }
};

} // namespace

TEST(NSValue, NilIsNilHoweverItIsMade) {
    EXPECT_TRUE(NSValue().isNil());
    EXPECT_TRUE(NSValue(nullptr).isNil());
    EXPECT_TRUE(NSValue(NSString()).isNil());
    EXPECT_TRUE(NSValue(static_cast<NSObject*>(nullptr)).isNil());
    EXPECT_TRUE(NSValue(Ref<NSObject>()).isNil());
    EXPECT_FALSE(NSValue("").isNil());
    EXPECT_FALSE(NSValue(0).isNil());
}

TEST(NSValue, NumbersConvertIntoOneAnother) {
    EXPECT_EQ(NSValue(true).integerValue(), 1);
    EXPECT_EQ(NSValue(true).doubleValue(), 1);
    EXPECT_TRUE(NSValue(-2).boolValue());
    EXPECT_FALSE(NSValue(0.0).boolValue());
    EXPECT_EQ(NSValue(2.9).intValue(), 2);
    EXPECT_EQ(NSValue(-2.9).integerValue(), -2);
    EXPECT_EQ(NSValue(7).floatValue(), 7.0f);
    EXPECT_EQ(NSValue(0.1f).floatValue(), 0.1f);
    EXPECT_EQ(NSNumber::numberWithInteger(kLargest).integerValue(), kLargest);
}

TEST(NSValue, AnythingElseAskedForAsANumberIsZero) {
    const NSValue values[] = {NSValue(), "42", NSValue(make<NSObject>()), NSValue::valueWithStructure(Size{4, 2})};
    for (const NSValue& value : values) {
        EXPECT_EQ(value.integerValue(), 0);
        EXPECT_EQ(value.doubleValue(), 0);
        EXPECT_FALSE(value.boolValue());
    }
}

TEST(NSValue, IntegersFromWildDoublesAreClamped) {
    EXPECT_EQ(NSValue(kNaN).integerValue(), 0);
    EXPECT_EQ(NSValue(kInfinity).integerValue(), kLargest);
    EXPECT_EQ(NSValue(-kInfinity).integerValue(), kSmallest);
    EXPECT_EQ(NSValue(9223372036854775808.0).integerValue(), kLargest);
    EXPECT_EQ(NSValue(-9223372036854775808.0).integerValue(), kSmallest);
    EXPECT_EQ(NSValue(1e10).intValue(), 2147483647);
    EXPECT_EQ(NSValue(-1e10).intValue(), -2147483647 - 1);
    EXPECT_EQ(NSValue(1e10).as<std::uint8_t>(), 255);
    EXPECT_EQ(NSValue(-1).as<std::uint8_t>(), 0);
}

TEST(NSValue, FloatsOutOfRangeAreInfinite) {
    EXPECT_EQ(NSValue(1e300).floatValue(), std::numeric_limits<float>::infinity());
    EXPECT_EQ(NSValue(-1e300).as<float>(), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(NSValue(kNaN).floatValue()));
}

TEST(NSValue, AnUnsignedIntegerComesBackWhole) {
    const NSUInteger largest = std::numeric_limits<NSUInteger>::max();
    EXPECT_EQ(NSValue(largest).as<NSUInteger>(), largest);
}

TEST(NSValue, ComesBackAsWhatItIs) {
    const auto recorder = make<Recorder>();
    EXPECT_EQ(NSValue("text").as<NSString>(), "text");
    EXPECT_EQ(NSValue(recorder).as<Recorder*>(), recorder.get());
    EXPECT_EQ(NSValue(recorder).as<Ref<Recorder>>(), recorder);
    EXPECT_EQ(NSValue(Mood::Cross).as<Mood>(), Mood::Cross);
    EXPECT_EQ(NSValue::valueWithStructure(Size{4, 2}).as<Size>().width, 4);
    EXPECT_EQ(NSValue(3).as<NSValue>().intValue(), 3);
    EXPECT_TRUE(NSValue(1).as<bool>());
}

TEST(NSValue, WhatDoesNotFitIsZeroOrNil) {
    const auto recorder = make<Recorder>();
    EXPECT_TRUE(NSValue(1).as<NSString>().isNil());
    EXPECT_EQ(NSValue(recorder).as<Stranger*>(), nullptr);
    EXPECT_FALSE(NSValue(recorder).as<Ref<Stranger>>());
    EXPECT_EQ(NSValue("a").as<NSObject*>(), nullptr);
    EXPECT_EQ(NSValue(1).as<Size>().width, 0);
    EXPECT_EQ(NSValue(1).structure<Size>(), nullptr);
    EXPECT_EQ(NSValue::valueWithStructure(Size{4, 2}).structure<int>(), nullptr);
}

TEST(NSValue, HoldsObjectsStrongly) {
    auto object = make<NSObject>();
    const Weak<NSObject> weak(object);
    {
        const NSValue value(object);
        object = nullptr;
        EXPECT_NE(weak.get(), nullptr);
    }
    EXPECT_EQ(weak.get(), nullptr);
}

TEST(NSValue, EqualityIsByValue) {
    EXPECT_TRUE(NSValue(1).isEqual(1.0));
    EXPECT_TRUE(NSValue(true).isEqual(1));
    EXPECT_FALSE(NSValue(1).isEqual(1.5));
    EXPECT_TRUE(NSValue(0.5).isEqual(0.5f));
    EXPECT_FALSE(NSValue(kNaN).isEqual(kNaN));
    EXPECT_FALSE(NSValue(9007199254740993).isEqual(9007199254740992.0));
    EXPECT_FALSE(NSValue(kLargest).isEqual(9223372036854775808.0));
    EXPECT_TRUE(NSValue("a").isEqual("a"));
    EXPECT_FALSE(NSValue("a").isEqual("b"));
    EXPECT_FALSE(NSValue("1").isEqual(1));
    EXPECT_FALSE(NSValue(1).isEqual("1"));
    EXPECT_TRUE(NSValue().isEqual(nullptr));
    EXPECT_FALSE(NSValue().isEqual(0));
    EXPECT_FALSE(NSValue(0).isEqual(nullptr));
    EXPECT_TRUE(NSValue(make<Equal>()).isEqual(make<Equal>()));
    EXPECT_FALSE(NSValue(make<NSObject>()).isEqual(make<NSObject>()));
    EXPECT_FALSE(NSValue(make<Equal>()).isEqual(1));
    const NSValue structure = NSValue::valueWithStructure(Size());
    EXPECT_FALSE(structure.isEqual(structure));
}

TEST(NSValue, Describes) {
    EXPECT_EQ(NSValue().description(), "nil");
    EXPECT_EQ(NSValue(true).description(), "true");
    EXPECT_EQ(NSValue(-7).description(), "-7");
    EXPECT_EQ(NSValue(0.1).description(), "0.1");
    EXPECT_EQ(NSValue("text").description(), "text");
    EXPECT_TRUE(NSValue(make<Recorder>()).description().hasPrefix("<Recorder: "));
    EXPECT_EQ(NSValue::valueWithStructure(Size()).description(), "<structure>");
}

TEST(NSValue, PointersToAnythingElseAreNotFlags) {
    EXPECT_FALSE((std::is_constructible_v<NSValue, void*>));
    EXPECT_FALSE((std::is_constructible_v<NSValue, int*>));
    EXPECT_TRUE((std::is_constructible_v<NSValue, bool>));
}

TEST(NSNumber, BoxesEveryKind) {
    EXPECT_EQ(NSNumber::numberWithBool(true).description(), "true");
    EXPECT_EQ(NSNumber::numberWithInt(-3).intValue(), -3);
    EXPECT_EQ(NSNumber::numberWithFloat(0.5f).floatValue(), 0.5f);
    EXPECT_EQ(NSNumber::numberWithDouble(0.1).doubleValue(), 0.1);
}

} // namespace zr
