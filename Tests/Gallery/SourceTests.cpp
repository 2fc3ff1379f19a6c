#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/Source/CodeText.h>
#include <Gallery/Source/PageSource.h>
#include <Gallery/Source/SourceFile.h>
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

namespace zr::test {

namespace {

using gallery::declaredName;
using gallery::LineRange;
using gallery::sourceOfPage;
using gallery::SourceOutline;
using gallery::SourceSection;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string fileOfProject(std::string_view path) {
    std::ifstream file(std::string(ZR_PROJECT_ROOT) + "/" + std::string(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> linesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::string textOf(const SourceSection& section) {
    std::string text;
    for (const std::string_view line : section.text)
        text += std::string(line) + "\n";
    return text;
}

std::string textOf(const std::vector<SourceSection>& sections) {
    std::string text;
    for (const SourceSection& section : sections)
        text += textOf(section);
    return text;
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

constexpr const char* kSample = R"(#include <x>

namespace a {

namespace {

constexpr int kOne = 1'000; // a "comment" {
constexpr CGSize kSize{50, 31};

/// On the class.
/// }
class Panel : public View {
    char brace() { return '{'; }
};

} // namespace

bool Panel::init(const char* text) {
    call("} { \" ;");
    return kOne;
}

std::vector<Page> pages() {
    return {
        {"one", "Title, with {", kOne},
        {
            "two",
            buildTwo(2),
        },
    };
}

} // namespace a
)";

} // namespace

// Reading C++

TEST(CodeText, BlanksCommentsDirectivesAndQuotationsAndKeepsThePlaces) {
    EXPECT_EQ(gallery::codeOnly("#if a\nf(\"\\\"{\", '{', 1'0); // }\n/* x\n{ */ g();"),
              "     \nf(     ,    , 1'0);     \n    \n     g();");
}

TEST(CodeText, TellsTheNameThatADeclarationDeclares) {
    EXPECT_EQ(declaredName("class A : public B {};"), "A");
    EXPECT_EQ(declaredName("enum class Hue { Red };"), "Hue");
    EXPECT_EQ(declaredName("constexpr const char* kFamily = 0;"), "kFamily");
    EXPECT_EQ(declaredName("constexpr Row kRows[] = {};"), "kRows");
    EXPECT_EQ(declaredName("constexpr CGSize kSize{50, 31};"), "kSize");
    EXPECT_EQ(declaredName("std::function<void(int)> shows(const A& a) {}"), "shows");
    EXPECT_EQ(declaredName("template <class D = E>\nstd::vector<D> all(D d) {}"), "all");
    EXPECT_EQ(declaredName("using Setup = std::function<void(A*)>;"), "Setup");
    EXPECT_EQ(declaredName("Ref<A> Demo::make(int b) {}"), "Demo");
    EXPECT_EQ(declaredName("Demo::~Demo() {}"), "Demo");
    EXPECT_EQ(declaredName("{}"), "");
}

TEST(SourceOutline, FindsDeclarationsWithTheirComments) {
    const SourceOutline outline(kSample);
    std::vector<std::string> found;
    for (const gallery::Declaration& each : outline.declarations())
        found.push_back(each.name + " " + std::to_string(each.lines.first) + "-" + std::to_string(each.lines.last));
    EXPECT_THAT(found, ElementsAre("kOne 7-7", "kSize 8-8", "Panel 10-14", "Panel 18-21", "pages 23-31"));
    EXPECT_TRUE(outline.declares("Panel"));
    EXPECT_FALSE(outline.declares("init"));
}

TEST(SourceOutline, FindsEntriesByTheirName) {
    const SourceOutline outline(kSample);
    EXPECT_EQ(outline.entryNamed("one"), (LineRange{25, 25}));
    EXPECT_EQ(outline.entryNamed("two"), (LineRange{26, 29}));
    EXPECT_EQ(outline.entryNamed("Title"), std::nullopt);
    EXPECT_THAT(outline.identifiersIn({26, 29}), ElementsAre("buildTwo"));
}

// The pages' sources

TEST(PageSource, IsThatOfTheFilesLineByLine) {
    for (const gallery::SourceFile& file : gallery::pageSourceFiles())
        EXPECT_EQ(file.text, fileOfProject(file.path)) << file.path;
    for (const gallery::Page& page : gallery::allPages()) {
        for (const SourceSection& section : sourceOfPage(page.name)) {
            const auto lines = linesOf(fileOfProject(section.path));
            ASSERT_LE(section.lines.last, lines.size()) << page.name;
            ASSERT_EQ(section.text.size(), section.lines.last - section.lines.first + 1) << page.name;
            for (std::size_t i = 0; i < section.text.size(); ++i)
                EXPECT_EQ(section.text[i], lines[section.lines.first + i - 1]) << page.name;
        }
    }
}

TEST(PageSource, BeginsWithThePagesEntry) {
    for (const gallery::Page& page : gallery::allPages()) {
        const auto sections = sourceOfPage(page.name);
        ASSERT_FALSE(sections.empty()) << page.name;
        EXPECT_TRUE(contains(textOf(sections.front()), "\"" + std::string(page.name) + "\",")) << page.name;
        EXPECT_TRUE(contains(textOf(sections.front()), page.title)) << page.name;
    }
    EXPECT_THAT(sourceOfPage("no-such-page"), IsEmpty());
}

TEST(PageSource, HoldsTheWholeFunctionOrClassThatMakesThePage) {
    // What entries name: a function of the page's own, a demo's class, or the helper that shows one.
    const std::regex function(R"(\b(build\w+Page)\b)"), demo(R"(\b(shows\w+|makeRowScreen)(?:<(\w+)>)?\()"),
        screen(R"(makeRowScreen<(\w+)>)");
    for (const gallery::Page& page : gallery::allPages()) {
        const auto sections = sourceOfPage(page.name);
        const std::string entry = textOf(sections.front()), all = textOf(sections);
        std::smatch match;
        std::vector<std::string> beginnings;
        if (std::regex_search(entry, match, function))
            beginnings.push_back("void " + match[1].str() + "(PageView& page) {\n");
        else if (std::regex_search(entry, match, screen))
            beginnings.push_back("class " + match[1].str() + " : public PageRowScreen {\n");
        else if (std::regex_search(entry, match, demo)) {
            beginnings.push_back("> " + match[1].str() + "(const ");
            if (match[2].matched)
                beginnings.push_back("class " + match[2].str() + " : public ");
        }
        EXPECT_FALSE(beginnings.empty()) << page.name << "\n" << entry;
        for (const std::string& beginning : beginnings) {
            const std::size_t start = all.find(beginning);
            ASSERT_NE(start, std::string::npos) << page.name << ": " << beginning;
            // As everywhere at the left edge, the next brace there ends it.
            const std::size_t end = all.find("\n}", start);
            ASSERT_NE(end, std::string::npos) << page.name << ": " << beginning;
            const SourceSection* whole = nullptr;
            for (const SourceSection& section : sections) {
                if (contains(textOf(section), all.substr(start, end + 2 - start)))
                    whole = &section;
            }
            ASSERT_TRUE(whole) << page.name << ": " << beginning;
            EXPECT_TRUE(contains(fileOfProject(whole->path), all.substr(start, end + 2 - start))) << page.name;
        }
    }
}

TEST(PageSource, FollowsWhatIsUsedIntoOtherFilesAndLeavesTheRestOut) {
    const std::string alert = textOf(sourceOfPage("alert-checkbox"));
    EXPECT_TRUE(contains(alert, "    Ref<ZRTAlertView> makeAlertOf() {"));
    EXPECT_TRUE(contains(alert, "void AlertDemo::overlayWillGo() {"));
    EXPECT_TRUE(contains(alert, "void OverlayDemo::show() {"));
    EXPECT_FALSE(contains(alert, "class RotationDemo"));
    EXPECT_FALSE(contains(alert, "alert-rotation"));
    EXPECT_FALSE(contains(alert, "HUDDemo"));
    const std::string control = textOf(sourceOfPage("switch"));
    EXPECT_TRUE(contains(control, "Ref<ZRSwitch> addSwitch("));
    EXPECT_TRUE(contains(control, "class ControlLog : public NSObject {"));
    EXPECT_FALSE(contains(control, "buildSegmentsPage"));
}

} // namespace zr::test
