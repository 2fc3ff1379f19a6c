#include <Tests/ZRPlatform/UIKit/Hosts/HostFixtures.h>

#include <ZRPlatform/Hosts/Headless/ViewTreeDump.h>
#include <ZRPlatform/UIKit/Controls/UIButton.h>
#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>
#include <ZRPlatform/UIKit/Views/UILabel.h>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace zr::tests::hosts {

using Json = nlohmann::json;
using testing::SizeIs;

namespace {

Json dumped(HeadlessHost& host) { return Json::parse(host.dump()); }
Json firstView(HeadlessHost& host) { return dumped(host)["windows"][0]["subviews"][0]; }

} // namespace

TEST(ViewTreeDump, SaysWhereAViewIsAndHowItLooks) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{10, 20}, {30, 40}}, UIColor::redColor());
    view->setBounds({{1, 2}, {30, 40}});
    view->setTransform({2, 0, 0, 1, 5, 0});
    view->setAlpha(0.5);
    view->setHidden(true);
    const Json json = firstView(host);
    EXPECT_EQ(json["class"], "UIView");
    EXPECT_EQ(json["frame"], Json({0, 20, 60, 40}));
    EXPECT_EQ(json["bounds"], Json({1, 2, 30, 40}));
    EXPECT_EQ(json["center"], Json({25, 40}));
    EXPECT_EQ(json["transform"], Json({2, 0, 0, 1, 5, 0}));
    EXPECT_EQ(json["alpha"], 0.5);
    EXPECT_EQ(json["hidden"], true);
    EXPECT_EQ(json["background"], Json({1, 0, 0, 1}));
    EXPECT_THAT(json["animations"], SizeIs(0));
    EXPECT_THAT(json["subviews"], SizeIs(0));
    EXPECT_FALSE(json.contains("firstResponder"));
}

TEST(ViewTreeDump, ListsVisibleWindowsByLevelAndTheScreen) {
    HeadlessHost host;
    const auto normal = shownWindow();
    const auto alert = make<UIWindow>(&UIWindow::initWithFrame, CGRect{{0, 0}, {50, 50}});
    alert->setWindowLevel(UIWindowLevelAlert);
    alert->setHidden(false);
    const auto hidden = make<UIWindow>(&UIWindow::initWithFrame, CGRect{{0, 0}, {50, 50}});
    host.advance(0.25);
    const Json json = dumped(host);
    EXPECT_EQ(json["time"], 0.25);
    EXPECT_EQ(json["screen"]["bounds"], Json({0, 0, 375, 667}));
    EXPECT_EQ(json["screen"]["scale"], 2);
    ASSERT_THAT(json["windows"], SizeIs(2));
    EXPECT_EQ(json["windows"][0]["keyWindow"], true);
    EXPECT_EQ(json["windows"][1]["keyWindow"], false);
    EXPECT_EQ(json["windows"][1]["level"], 2000);
    EXPECT_EQ(json["windows"][1]["background"], nullptr);
}

TEST(ViewTreeDump, NamesClassesWithoutTheirNamespaceAndPatternsAsSuch) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView<TypedText>(window, {{0, 0}, {9, 9}});
    view->setBackgroundColor(UIColor::colorWithPatternImage(nullptr));
    view->becomeFirstResponder();
    const Json json = firstView(host);
    EXPECT_EQ(json["class"], "TypedText");
    EXPECT_EQ(json["background"], "pattern");
    EXPECT_EQ(json["firstResponder"], true);
}

TEST(ViewTreeDump, ShowsTextAndFontOfLabelsFieldsAndButtons) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto label = addView<UILabel>(window, {{0, 0}, {90, 20}});
    label->setText("a \"label\"");
    label->setFont(UIFont::boldSystemFontOfSize(13));
    const auto field = addView<UITextField>(window, {{0, 30}, {90, 20}});
    field->setText("字段");
    const auto button = addView<UIButton>(window, {{0, 60}, {90, 20}});
    button->setTitle_forState("press", UIControlStateNormal);
    const auto blank = addView<UIButton>(window, {{0, 90}, {90, 20}});
    const Json views = dumped(host)["windows"][0]["subviews"];
    EXPECT_EQ(views[0]["text"], "a \"label\"");
    EXPECT_EQ(views[0]["font"]["size"], 13);
    EXPECT_EQ(views[0]["font"]["name"], label->font()->fontName().utf8());
    EXPECT_EQ(views[1]["text"], "字段");
    EXPECT_EQ(views[1]["font"]["size"], 17);
    EXPECT_EQ(views[2]["text"], "press");
    EXPECT_EQ(views[2]["font"]["size"], button->titleLabel()->font()->pointSize());
    EXPECT_EQ(views[3]["text"], nullptr);
}

TEST(ViewTreeDump, ShowsThePresentationAndTheRunningAnimations) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {20, 20}}, UIColor::redColor());
    host.advance(0);
    UIView::animateWithDuration_delay_options_animations_completion(
        2, 0, UIViewAnimationOptionCurveLinear, [&] { view->setAlpha(0); }, nullptr);
    const auto keyframes = CAKeyframeAnimation::animationWithKeyPath("transform.scale");
    keyframes->setValues({1.0, 0.5, 2.0});
    keyframes->setDuration(3);
    view->layer()->addAnimation_forKey(keyframes, "bounce");
    host.advance(1);
    Json json = firstView(host);
    EXPECT_EQ(json["alpha"], 0);
    EXPECT_NEAR(json["presentation"]["opacity"].get<double>(), 0.5, 1e-6);
    EXPECT_EQ(json["presentation"]["position"], Json({10, 10}));
    EXPECT_EQ(json["presentation"]["bounds"], Json({0, 0, 20, 20}));
    EXPECT_THAT(json["presentation"]["transform"], SizeIs(16));
    ASSERT_THAT(json["animations"], SizeIs(2));
    const Json& fade = json["animations"][0];
    EXPECT_EQ(fade["keyPath"], "opacity");
    EXPECT_EQ(fade["duration"], 2);
    const Json& bounce = json["animations"][1];
    EXPECT_EQ(bounce["key"], "bounce");
    EXPECT_EQ(bounce["keyPath"], "transform.scale");
    EXPECT_EQ(bounce["values"], Json({1, 0.5, 2}));
    EXPECT_EQ(bounce["duration"], 3);
    host.advance(5);
    json = firstView(host);
    EXPECT_THAT(json["animations"], SizeIs(0));
    EXPECT_EQ(json["presentation"]["opacity"], 0);
}

TEST(ViewTreeDump, ShowsTheEndsOfBasicAnimationsAndTheChildrenOfGroups) {
    HeadlessHost host;
    const auto window = shownWindow();
    const auto view = addView(window, {{0, 0}, {20, 20}}, UIColor::redColor());
    const auto slide = CABasicAnimation::animationWithKeyPath("position");
    slide->setFromValue(NSValue::valueWithStructure(CGPoint{1, 2}));
    slide->setToValue(NSValue::valueWithStructure(CGPoint{3, 4}));
    const auto tint = CABasicAnimation::animationWithKeyPath("backgroundColor");
    tint->setToValue(UIColor::blueColor()->cgColor());
    const auto group = make<CAAnimationGroup>();
    group->setAnimations({slide, tint});
    group->setRepeatCount(3);
    view->layer()->addAnimation_forKey(group, "both");
    const Json both = firstView(host)["animations"][0];
    EXPECT_EQ(both["class"], "CAAnimationGroup");
    EXPECT_EQ(both["repeatCount"], 3);
    EXPECT_EQ(both["animations"][0]["from"], Json({1, 2}));
    EXPECT_EQ(both["animations"][0]["to"], Json({3, 4}));
    EXPECT_EQ(both["animations"][0]["by"], nullptr);
    EXPECT_EQ(both["animations"][1]["to"], Json({0, 0, 1, 1}));
}

TEST(ViewTreeDump, NumbersThatAreNotFiniteAreNullAndSoIsNoApplication) {
    EXPECT_EQ(dumpViewTrees(nullptr), "null");
    HeadlessHost host;
    const auto window = shownWindow();
    addView(window, {{std::numeric_limits<CGFloat>::infinity(), 0}, {5, 5}});
    EXPECT_EQ(firstView(host)["center"][0], nullptr);
}

} // namespace zr::tests::hosts
