#include <Tests/ZRKitDynamic/KitTesting.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewRowButton.h>

#include <cmath>
#include <limits>
#include <memory>

namespace zr::testing {

namespace {

constexpr auto makeAction = ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler<>;

/// Writes down in which order it is filled.
class NotingAction : public ZRTableViewRowAction {
public:
    void setTitle(const NSString& title) override {
        ZRTableViewRowAction::setTitle(title);
        order.push_back("title");
    }
    void setBackgroundColor(UIColor* color) override {
        ZRTableViewRowAction::setBackgroundColor(color);
        order.push_back("colour");
    }
    void setButtonWidth(CGFloat width) override {
        ZRTableViewRowAction::setButtonWidth(width);
        order.push_back("width");
    }
    void setActionBlock(const ZRTableViewRowActionBlock& block) override {
        ZRTableViewRowAction::setActionBlock(block);
        order.push_back("block");
    }

    std::vector<std::string> order;
};

/// Makes no object.
class RefusedAction : public ZRTableViewRowAction {
public:
    bool init() override { return false; }
};

/// A block, and whether anybody still has it.
struct TracedBlock {
    ZRTableViewRowActionBlock make() const {
        return [kept = trace](ZRTableViewRowAction*, const NSIndexPath&) { ++*kept; };
    }
    long holders() const { return trace.use_count() - 1; }

    std::shared_ptr<int> trace = std::make_shared<int>(0);
};

const NSIndexPath kPath = NSIndexPath::indexPathForRow_inSection(3, 1);

} // namespace

TEST(ZRTableViewRowAction, IsEmptyAtFirst) {
    const auto action = make<ZRTableViewRowAction>();
    EXPECT_TRUE(action->title().isNil());
    EXPECT_EQ(action->backgroundColor(), nullptr);
    EXPECT_EQ(action->buttonWidth(), 0);
    EXPECT_FALSE(action->actionBlock());
}

TEST(ZRTableViewRowAction, IsMadeWithAllItNeeds) {
    const TracedBlock block;
    const Ref<UIColor> color = UIColor::colorWithWhite_alpha(0.5, 1);
    const auto action = makeAction(color, 72.5, "Delete", block.make());
    EXPECT_EQ(action->backgroundColor(), color.get());
    EXPECT_EQ(action->buttonWidth(), 72.5);
    EXPECT_EQ(action->title(), "Delete");
    action->actionBlock()(action, kPath);
    EXPECT_EQ(*block.trace, 1);
}

TEST(ZRTableViewRowAction, TakesColourThenBlockThenTitleThenWidth) {
    const auto action = NotingAction::rowActionWithBackgrounColor_buttonWidth_title_handler<NotingAction>(
        UIColor::redColor(), 1, "A", nullptr);
    EXPECT_EQ(action->order, (std::vector<std::string>{"colour", "block", "title", "width"}));
}

TEST(ZRTableViewRowAction, MayBeRefusedByItsClass) {
    EXPECT_EQ(ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler<RefusedAction>(
                  nullptr, 0, nullptr, nullptr),
              nullptr);
}

TEST(ZRTableViewRowAction, BelongsToNobodyElse) {
    EXPECT_EQ(makeAction(nullptr, 1, nullptr, nullptr)->retainCount(), 1u);
}

TEST(ZRTableViewRowAction, TakesNilForEverything) {
    const auto action = makeAction(nullptr, 0, nullptr, nullptr);
    EXPECT_EQ(action->backgroundColor(), nullptr);
    EXPECT_TRUE(action->title().isNil());
    EXPECT_FALSE(action->actionBlock());
}

TEST(ZRTableViewRowAction, CopiesItsTitle) {
    std::string text = "Delete";
    const auto action = makeAction(nullptr, 1, text, nullptr);
    text = "Archive";
    EXPECT_EQ(action->title(), "Delete");
    NSString title = "More";
    action->setTitle(title);
    title = "Less";
    EXPECT_EQ(action->title(), "More");
}

TEST(ZRTableViewRowAction, CopiesItsBlock) {
    int calls = 0;
    ZRTableViewRowActionBlock block = [&calls](ZRTableViewRowAction*, const NSIndexPath&) { ++calls; };
    const auto action = makeAction(nullptr, 1, nullptr, block);
    block = nullptr;
    action->actionBlock()(action, kPath);
    EXPECT_EQ(calls, 1);
}

TEST(ZRTableViewRowAction, LetsGoOfAllAtItsEnd) {
    const TracedBlock block;
    const auto color = UIColor::colorWithWhite_alpha(0.25, 1);
    const auto before = color->retainCount();
    {
        const auto action = makeAction(color, 1, "A", block.make());
        EXPECT_EQ(color->retainCount(), before + 1);
        EXPECT_EQ(block.holders(), 1);
    }
    EXPECT_EQ(color->retainCount(), before);
    EXPECT_EQ(block.holders(), 0);
}

TEST(ZRTableViewRowAction, IsReadAndWrittenByName) {
    const auto action = make<ZRTableViewRowAction>();
    const auto color = UIColor::colorWithWhite_alpha(0.25, 1);
    action->setValue_forKey(NSString("Delete"), "title");
    action->setValue_forKey(color, "backgroundColor");
    action->setValue_forKey(70.0, "buttonWidth");
    EXPECT_EQ(action->title(), "Delete");
    EXPECT_EQ(action->backgroundColor(), color.get());
    EXPECT_EQ(action->buttonWidth(), 70);
    EXPECT_EQ(action->valueForKey("buttonWidth").as<CGFloat>(), 70);
}

TEST(ZRTableViewRowAction, KeepsWidthsAsTheyAre) {
    for (const CGFloat width : {-5.0, 1e300, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(makeAction(nullptr, width, nullptr, nullptr)->buttonWidth(), width);
    EXPECT_TRUE(std::isnan(makeAction(nullptr, std::nan(""), nullptr, nullptr)->buttonWidth()));
}

TEST(ZRTableViewRowButton, CarriesNothingAtFirst) {
    const HeadlessHost host;
    const auto button = UIButton::buttonWithType<ZRTableViewRowButton>(UIButtonTypeCustom);
    EXPECT_EQ(button->action(), nullptr);
    EXPECT_FALSE(button->actionBlock());
}

TEST(ZRTableViewRowButton, KeepsItsActionAndItsBlockToItsEnd) {
    const HeadlessHost host;
    const TracedBlock block;
    const auto action = make<ZRTableViewRowAction>();
    {
        const auto button = UIButton::buttonWithType<ZRTableViewRowButton>(UIButtonTypeCustom);
        button->setAction(action);
        button->setActionBlock(block.make());
        EXPECT_EQ(button->action(), action.get());
        EXPECT_EQ(action->retainCount(), 2u);
        EXPECT_EQ(block.holders(), 1);
        button->actionBlock()(action, kPath);
        EXPECT_EQ(*block.trace, 1);
    }
    EXPECT_EQ(action->retainCount(), 1u);
    EXPECT_EQ(block.holders(), 0);
}

TEST(ZRTableViewRowButton, LetsGoOfWhatIsReplaced) {
    const HeadlessHost host;
    const TracedBlock block;
    const auto action = make<ZRTableViewRowAction>();
    const auto button = UIButton::buttonWithType<ZRTableViewRowButton>(UIButtonTypeCustom);
    button->setAction(action);
    button->setActionBlock(block.make());
    button->setAction(nullptr);
    button->setActionBlock(nullptr);
    EXPECT_EQ(action->retainCount(), 1u);
    EXPECT_EQ(block.holders(), 0);
}

} // namespace zr::testing
