#include <ZRPlatform/Foundation/NSString.h>

#include <gtest/gtest.h>
#include <sstream>

namespace zr {

namespace {

const NSString kNil;

NSString bytes(std::string_view text) { return text; }

} // namespace

TEST(NSString, NilAndEmptyDiffer) {
    EXPECT_TRUE(kNil.isNil());
    EXPECT_TRUE(NSString(static_cast<const char*>(nullptr)).isNil());
    EXPECT_FALSE(NSString("").isNil());
    EXPECT_FALSE(NSString(std::string_view()).isNil());
    EXPECT_FALSE(kNil == NSString(""));
    EXPECT_TRUE(kNil == NSString());
    EXPECT_EQ(kNil.length(), 0u);
    EXPECT_EQ(kNil.utf8(), "");
    EXPECT_STREQ(kNil.UTF8String(), "");
    EXPECT_TRUE(kNil < NSString(""));
    EXPECT_FALSE(NSString("") < kNil);
}

TEST(NSString, CopiesAreTheSameObjectAndEqualTextsNeedNotBe) {
    const NSString text("text");
    const NSString copy = text;
    EXPECT_TRUE(text.isSameObject(copy));
    EXPECT_FALSE(text.isSameObject(NSString("text")));
    EXPECT_TRUE(text == NSString("text"));
    EXPECT_EQ(std::hash<NSString>()(text), std::hash<NSString>()(NSString("text")));
}

TEST(NSString, EachMaximalSubpartOfABrokenSequenceBecomesOneReplacementCharacter) {
    const std::string r = "\xEF\xBF\xBD";
    EXPECT_EQ(bytes("a\xF1\x80\x80\xE1\x80\xC2"
                    "b\x80"
                    "c\x80\xBF"
                    "d")
                  .utf8(),
              "a" + r + r + r + "b" + r + "c" + r + r + "d");
    EXPECT_EQ(bytes("\xC0\xAF\xE0\x80\xBF\xF0\x81\x82"
                    "A")
                  .utf8(),
              r + r + r + r + r + r + r + r + "A");
    EXPECT_EQ(bytes("\xED\xA0\x80\xED\xBF\xBF\xED\xAF"
                    "A")
                  .utf8(),
              r + r + r + r + r + r + r + r + "A");
    EXPECT_EQ(bytes("\xF4\x91\x92\x93\xFF"
                    "A\x80\xBF"
                    "B")
                  .utf8(),
              r + r + r + r + r + "A" + r + r + "B");
    EXPECT_EQ(bytes("\xE1\x80\xE2\xF0\x91\x92\xF1\xBF"
                    "A")
                  .utf8(),
              r + r + r + r + "A");
    EXPECT_EQ(bytes("\xF0\x9F\x98").utf8(), r);
    EXPECT_EQ(bytes("\xC3").utf8(), r);
}

TEST(NSString, WellFormedTextIsKeptAsItIs) {
    const std::string text = "a\x7F\u0080\u07FF\u0800\uD7FF\uE000\uFFFF\U00010000\U0010FFFF";
    EXPECT_EQ(NSString(text).utf8(), text);
    EXPECT_EQ(NSString::stringWithUTF16(NSString(text).utf16()).utf8(), text);
    EXPECT_EQ(bytes(std::string_view("a\0b", 3)).utf8().size(), 3u);
}

TEST(NSString, LengthCountsUTF16CodeUnits) {
    EXPECT_EQ(NSString("abc").length(), 3u);
    EXPECT_EQ(NSString("\u00E9\u4E2D").length(), 2u);
    EXPECT_EQ(NSString("a\U0001F600").length(), 3u);
    EXPECT_EQ(NSString("a\U0001F600").utf16(), u"a\xD83D\xDE00");
}

TEST(NSString, LoneSurrogatesBecomeReplacementCharacters) {
    EXPECT_EQ(NSString::stringWithUTF16(u"a\xD83D"
                                        u"b\xDE00"),
              "a\uFFFD"
              "b\uFFFD");
    EXPECT_EQ(NSString::stringWithUTF16(u"\xDE00\xD83D"), "\uFFFD\uFFFD");
    EXPECT_EQ(NSString::stringWithUTF16(u"\xD83D\xD83D\xDE00"), "\uFFFD\U0001F600");
}

TEST(NSString, StringWithFormatIsPrintfs) {
    EXPECT_EQ(NSString::stringWithFormat("%d %s %.2f%%", 7, "seven", 7.0), "7 seven 7.00%");
    EXPECT_EQ(NSString::stringWithFormat("%s", ""), "");
    EXPECT_EQ(NSString::stringWithFormat("%0300d", 1).length(), 300u);
    EXPECT_EQ(NSString::stringWithFormat("%s", "\xFF"), "\uFFFD");
}

TEST(NSString, IsEqualToStringIsNeverTrueWithNil) {
    EXPECT_TRUE(NSString("a").isEqualToString("a"));
    EXPECT_FALSE(NSString("a").isEqualToString("b"));
    EXPECT_FALSE(NSString("").isEqualToString(nullptr));
    EXPECT_FALSE(kNil.isEqualToString(""));
    EXPECT_FALSE(kNil.isEqualToString(nullptr));
}

TEST(NSString, CompareSortsByCodeUnitSoTenComesBeforeSeven) {
    EXPECT_EQ(NSString("10.0").compare("7.0"), NSOrderedAscending);
    EXPECT_EQ(NSString("8.4").compare("7.0"), NSOrderedDescending);
    EXPECT_EQ(NSString("7.0").compare("7.0"), NSOrderedSame);
    EXPECT_EQ(NSString("7").compare("7.0"), NSOrderedAscending);
    EXPECT_EQ(NSString("a").compare("B"), NSOrderedDescending);
    EXPECT_EQ(NSString("").compare("a"), NSOrderedAscending);
}

TEST(NSString, CompareSortsSurrogatePairsBeforeTheEndOfTheBasicPlane) {
    EXPECT_EQ(NSString("\U0001F600").compare("\uFFFD"), NSOrderedAscending);
}

TEST(NSString, NilComparesAsTheSame) {
    EXPECT_EQ(NSString("a").compare(nullptr), NSOrderedSame);
    EXPECT_EQ(kNil.compare("a"), NSOrderedSame);
    EXPECT_EQ(kNil.compare(nullptr), NSOrderedSame);
}

TEST(NSString, IntValueReadsTheLeadingWholeNumber) {
    EXPECT_EQ(NSString("42").intValue(), 42);
    EXPECT_EQ(NSString(" \t\n-17px").intValue(), -17);
    EXPECT_EQ(NSString("+8.9").intValue(), 8);
    EXPECT_EQ(NSString("007").intValue(), 7);
    for (const char* text : {"", "x1", "- 1", "+-1", "--1", "-", " "})
        EXPECT_EQ(NSString(text).intValue(), 0) << text;
    EXPECT_EQ(kNil.intValue(), 0);
}

TEST(NSString, IntegersAreClamped) {
    EXPECT_EQ(NSString("2147483647").intValue(), 2147483647);
    EXPECT_EQ(NSString("2147483648").intValue(), 2147483647);
    EXPECT_EQ(NSString("-2147483648").intValue(), -2147483647 - 1);
    EXPECT_EQ(NSString("-99999999999999999999").intValue(), -2147483647 - 1);
    EXPECT_EQ(NSString("2147483648").integerValue(), 2147483648);
    EXPECT_EQ(NSString("99999999999999999999").integerValue(), std::numeric_limits<NSInteger>::max());
    EXPECT_EQ(NSString("-99999999999999999999").integerValue(), std::numeric_limits<NSInteger>::min());
    EXPECT_EQ(NSString("-9223372036854775808").integerValue(), std::numeric_limits<NSInteger>::min());
}

TEST(NSString, DoubleValueReadsTheLeadingDecimal) {
    EXPECT_EQ(NSString("8.4").doubleValue(), 8.4);
    EXPECT_EQ(NSString(" +.5s").doubleValue(), 0.5);
    EXPECT_EQ(NSString("-3.").doubleValue(), -3);
    EXPECT_EQ(NSString("1.5e3").doubleValue(), 1500);
    EXPECT_EQ(NSString("1.5e").doubleValue(), 1.5);
    EXPECT_EQ(NSString("1.5e+x").doubleValue(), 1.5);
    EXPECT_EQ(NSString("1e-2").doubleValue(), 0.01);
    EXPECT_EQ(NSString("8.4.1").doubleValue(), 8.4);
    for (const char* text : {"", ".", "e5", "inf", "nan", "0x10", "+-1", "-"})
        EXPECT_EQ(NSString(text).doubleValue(), 0) << text;
    EXPECT_EQ(kNil.doubleValue(), 0);
}

TEST(NSString, DoublesOutOfRangeAreInfiniteOrZero) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(NSString("1e999").doubleValue(), infinity);
    EXPECT_EQ(NSString("-1e99999999999").doubleValue(), -infinity);
    EXPECT_EQ(NSString(std::string(400, '9')).doubleValue(), infinity);
    EXPECT_EQ(NSString("1e-999").doubleValue(), 0);
    EXPECT_EQ(NSString("0." + std::string(400, '0') + "1").doubleValue(), 0);
    EXPECT_EQ(NSString("0e999").doubleValue(), 0);
}

TEST(NSString, PrefixAndSuffix) {
    EXPECT_TRUE(NSString("image@2x").hasPrefix("image"));
    EXPECT_FALSE(NSString("image").hasPrefix("image@2x"));
    EXPECT_TRUE(NSString("image@2x").hasSuffix("@2x"));
    EXPECT_FALSE(NSString("image@2x").hasSuffix("@3x"));
    EXPECT_TRUE(NSString("a").hasPrefix("") && NSString("a").hasSuffix(""));
    EXPECT_FALSE(NSString("a").hasPrefix(nullptr) || NSString("a").hasSuffix(nullptr));
    EXPECT_FALSE(kNil.hasPrefix("") || kNil.hasSuffix(""));
}

TEST(NSString, RangeOfStringCountsCodeUnits) {
    EXPECT_EQ(NSString("\U0001F600a\u00E9b").rangeOfString("\u00E9b"), NSMakeRange(3, 2));
    EXPECT_EQ(NSString("abcabc").rangeOfString("bc"), NSMakeRange(1, 2));
    const NSRange notFound{static_cast<NSUInteger>(NSNotFound), 0};
    EXPECT_EQ(NSString("abc").rangeOfString("x"), notFound);
    EXPECT_EQ(NSString("abc").rangeOfString(""), notFound);
    EXPECT_EQ(NSString("abc").rangeOfString(nullptr), notFound);
    EXPECT_EQ(kNil.rangeOfString("a"), notFound);
}

TEST(NSString, SubstringsAreCutToTheString) {
    const NSString text("hello");
    EXPECT_EQ(text.substringWithRange({1, 3}), "ell");
    EXPECT_EQ(text.substringWithRange({3, 100}), "lo");
    EXPECT_EQ(text.substringWithRange({9, 1}), "");
    EXPECT_EQ(text.substringWithRange({1, std::numeric_limits<NSUInteger>::max()}), "ello");
    EXPECT_EQ(text.substringFromIndex(2), "llo");
    EXPECT_EQ(text.substringFromIndex(9), "");
    EXPECT_EQ(text.substringToIndex(2), "he");
    EXPECT_EQ(text.substringToIndex(9), "hello");
    EXPECT_TRUE(kNil.substringFromIndex(0).isNil());
    EXPECT_FALSE(text.substringToIndex(0).isNil());
}

TEST(NSString, SubstringsNeverSplitASurrogatePair) {
    const NSString text("a\U0001F600b");
    EXPECT_EQ(text.substringToIndex(2), "a");
    EXPECT_EQ(text.substringToIndex(3), "a\U0001F600");
    EXPECT_EQ(text.substringFromIndex(2), "b");
    EXPECT_EQ(text.substringWithRange({1, 1}), "");
    EXPECT_EQ(text.substringWithRange({2, 1}), "");
    EXPECT_EQ(text.substringWithRange({2, 0}), "");
    EXPECT_EQ(text.substringWithRange({1, 2}), "\U0001F600");
}

TEST(NSString, ReplacingARange) {
    const NSString text("hello");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({1, 3}, "ipp"), "hippo");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({5, 0}, "!"), "hello!");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({9, 9}, "!"), "hello!");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({0, 4}, nullptr), "o");
    EXPECT_TRUE(kNil.stringByReplacingCharactersInRange_withString({0, 0}, "a").isNil());
}

TEST(NSString, ReplacingReplacesASurrogatePairWhole) {
    const NSString text("a\U0001F600b");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({2, 1}, "x"), "axb");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({1, 1}, "x"), "axb");
    EXPECT_EQ(text.stringByReplacingCharactersInRange_withString({2, 0}, "x"), "ax\U0001F600b");
}

TEST(NSString, Appending) {
    EXPECT_EQ(NSString("a").stringByAppendingString("b"), "ab");
    EXPECT_EQ(NSString("a").stringByAppendingString(nullptr), "a");
    EXPECT_TRUE(kNil.stringByAppendingString("b").isNil());
}

TEST(NSString, Components) {
    using Texts = std::vector<NSString>;
    EXPECT_EQ(NSString("8.4.1").componentsSeparatedByString("."), (Texts{"8", "4", "1"}));
    EXPECT_EQ(NSString(",a,,b,").componentsSeparatedByString(","), (Texts{"", "a", "", "b", ""}));
    EXPECT_EQ(NSString("a--b").componentsSeparatedByString("--"), (Texts{"a", "b"}));
    EXPECT_EQ(NSString("").componentsSeparatedByString(","), (Texts{""}));
    EXPECT_EQ(NSString("ab").componentsSeparatedByString(""), (Texts{"ab"}));
    EXPECT_EQ(NSString("ab").componentsSeparatedByString(nullptr), (Texts{"ab"}));
    EXPECT_TRUE(kNil.componentsSeparatedByString(",").empty());
}

TEST(NSString, PrintsItself) {
    std::ostringstream stream;
    stream << NSString("a") << kNil;
    EXPECT_EQ(stream.str(), "a(nil)");
}

TEST(NSStringPaths, AppendingAComponentPutsOneSlashBetween) {
    for (const char* path : {"a", "a/", "a//"}) {
        for (const char* component : {"b", "/b", "//b", "b/"})
            EXPECT_EQ(NSString(path).stringByAppendingPathComponent(component), "a/b") << path << ' ' << component;
    }
    EXPECT_EQ(NSString("").stringByAppendingPathComponent("b"), "b");
    EXPECT_EQ(NSString("").stringByAppendingPathComponent("/b"), "/b");
    EXPECT_EQ(NSString("/").stringByAppendingPathComponent("b"), "/b");
    EXPECT_EQ(NSString("/").stringByAppendingPathComponent("/"), "/");
    EXPECT_EQ(NSString("a/").stringByAppendingPathComponent(""), "a");
    EXPECT_EQ(NSString("").stringByAppendingPathComponent(""), "");
    EXPECT_EQ(NSString("a").stringByAppendingPathComponent("b/c"), "a/b/c");
}

TEST(NSStringPaths, AppendingAnExtensionPutsADotBetween) {
    EXPECT_EQ(NSString("a/b").stringByAppendingPathExtension("png"), "a/b.png");
    EXPECT_EQ(NSString("a/b//").stringByAppendingPathExtension("png"), "a/b.png");
    EXPECT_EQ(NSString("a/b").stringByAppendingPathExtension(""), "a/b.");
    EXPECT_EQ(NSString("a.tar").stringByAppendingPathExtension("gz"), "a.tar.gz");
    EXPECT_EQ(NSString("").stringByAppendingPathExtension("png"), "");
    EXPECT_EQ(NSString("/").stringByAppendingPathExtension("png"), "/");
}

TEST(NSStringPaths, TakingApart) {
    struct Case {
        const char *path, *last, *extension, *parent, *stem;
    };
    const Case cases[] = {
        {"/a/b.png", "b.png", "png", "/a", "/a/b"},
        {"/a/b/", "b", "", "/a", "/a/b"},
        {"/a", "a", "", "/", "/a"},
        {"/", "/", "", "/", "/"},
        {"///", "/", "", "/", "/"},
        {"", "", "", "", ""},
        {"b.png", "b.png", "png", "", "b"},
        {"b.png/", "b.png", "png", "", "b"},
        {"a//b.c", "b.c", "c", "a", "a//b"},
        {".profile", ".profile", "", "", ".profile"},
        {"/a/.profile", ".profile", "", "/a", "/a/.profile"},
        {".profile.txt", ".profile.txt", "txt", "", ".profile"},
        {"a.b/c", "c", "", "a.b", "a.b/c"},
        {"a.tar.gz", "a.tar.gz", "gz", "", "a.tar"},
        {"a..png", "a..png", "png", "", "a."},
        {"a/b.", "b.", "", "a", "a/b"},
        {"..", "..", "", "", ".."},
        {"a/..", "..", "", "a", "a/.."},
    };
    for (const Case& each : cases) {
        const NSString path(each.path);
        EXPECT_EQ(path.lastPathComponent(), each.last) << path;
        EXPECT_EQ(path.pathExtension(), each.extension) << path;
        EXPECT_EQ(path.stringByDeletingLastPathComponent(), each.parent) << path;
        EXPECT_EQ(path.stringByDeletingPathExtension(), each.stem) << path;
    }
}

TEST(NSStringPaths, OfNilAreNil) {
    EXPECT_TRUE(kNil.stringByAppendingPathComponent("a").isNil());
    EXPECT_TRUE(NSString("a").stringByAppendingPathComponent(nullptr).isNil());
    EXPECT_TRUE(kNil.stringByAppendingPathExtension("a").isNil());
    EXPECT_TRUE(NSString("a").stringByAppendingPathExtension(nullptr).isNil());
    EXPECT_TRUE(kNil.lastPathComponent().isNil());
    EXPECT_TRUE(kNil.pathExtension().isNil());
    EXPECT_TRUE(kNil.stringByDeletingLastPathComponent().isNil());
    EXPECT_TRUE(kNil.stringByDeletingPathExtension().isNil());
    EXPECT_FALSE(kNil.isAbsolutePath());
}

TEST(NSStringPaths, AnAbsolutePathBeginsWithASlash) {
    EXPECT_TRUE(NSString("/a").isAbsolutePath());
    EXPECT_FALSE(NSString("a/b").isAbsolutePath());
    EXPECT_FALSE(NSString("").isAbsolutePath());
}

} // namespace zr
