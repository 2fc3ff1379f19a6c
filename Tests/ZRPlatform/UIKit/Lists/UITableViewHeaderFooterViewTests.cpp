#include <Tests/ZRPlatform/UIKit/Lists/ListTesting.h>

namespace zr::tests {

namespace {

using HeaderFooter = OnScreen;

Ref<UIView> coloured(UIColor* color) {
    auto view = make<UIView>();
    view->setBackgroundColor(color);
    return view;
}

} // namespace

TEST_F(HeaderFooter, BeginsWithAnEmptyLineOfText) {
    const auto view =
        make<UITableViewHeaderFooterView>(&UITableViewHeaderFooterView::initWithFrame, CGRectMake(10, 20, 200, 30));
    EXPECT_TRUE(view->reuseIdentifier().isNil());
    EXPECT_EQ(view->backgroundView(), nullptr);
    EXPECT_EQ(view->frame(), CGRectMake(10, 20, 200, 30));
    view->layoutIfNeeded();
    EXPECT_EQ(view->contentView()->frame(), CGRectMake(0, 0, 200, 30));
    EXPECT_EQ(view->textLabel()->frame(), CGRectMake(15, 0, 170, 30));
    EXPECT_EQ(view->textLabel()->superview(), view->contentView());
    view->setFrame(CGRectMake(0, 0, 20, 30));
    view->layoutIfNeeded();
    EXPECT_EQ(view->textLabel()->frame().size.width, 0);
}

TEST_F(HeaderFooter, ItsBackgroundLiesBehindItsContent) {
    const auto view = place(make<UITableViewHeaderFooterView>(&UITableViewHeaderFooterView::initWithFrame, CGRectZero),
                            CGRectMake(0, 0, 200, 30));
    const auto first = coloured(UIColor::redColor()), second = coloured(UIColor::greenColor());
    view->setBackgroundView(first);
    EXPECT_EQ(host.pixel({100, 15}), kRedOnScreen);
    EXPECT_EQ(first->frame(), CGRectMake(0, 0, 200, 30));
    view->contentView()->setBackgroundColor(UIColor::blueColor());
    EXPECT_EQ(host.pixel({100, 15}), kBlueOnScreen);
    view->contentView()->setBackgroundColor(nullptr);
    view->setBackgroundView(second);
    EXPECT_EQ(first->superview(), nullptr);
    view->setFrame(CGRectMake(0, 0, 300, 40));
    EXPECT_EQ(host.pixel({299, 39}), kGreenOnScreen);
    view->setBackgroundView(second);
    EXPECT_EQ(second->superview(), view.get());

    window->insertSubview_atIndex(second, 0);
    view->setBackgroundView(nullptr);
    EXPECT_EQ(second->superview(), window.get()) << "it is elsewhere now";
    EXPECT_EQ(view->backgroundView(), nullptr);
}

} // namespace zr::tests
