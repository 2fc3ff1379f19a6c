#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageScreen.h>
#include <ZRKitDynamic/ZRGesture/ZRSwipeGesture.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "SCREENS AND GESTURES";

// Vertical drag

/// Tells after each touch, so that failing shows too, of which targets are not told.
class WatchedSwipe : public ZRSwipeGesture, public UIGestureRecognizerDelegate {
public:
    void setState(UIGestureRecognizerState state) override {
        ZRSwipeGesture::setState(state);
        tell();
    }
    void touchesBegan_withEvent(const TouchSet& touches, UIEvent* event) override {
        ZRSwipeGesture::touchesBegan_withEvent(touches, event);
        tell();
    }
    void touchesMoved_withEvent(const TouchSet& touches, UIEvent* event) override {
        ZRSwipeGesture::touchesMoved_withEvent(touches, event);
        tell();
    }
    /// The page must not scroll away under the finger.
    bool gestureRecognizer_shouldBeRequiredToFailByGestureRecognizer(UIGestureRecognizer*,
                                                                     UIGestureRecognizer*) override {
        return true;
    }

    std::function<void()> changed;

private:
    void tell() {
        if (changed)
            changed();
    }
};

/// A field to drag in, with a mark at each of the gesture's points, and its state and points in words.
class SwipeField : public UIView {
public:
    bool initWithFrame(CGRect frame) override {
        if (!UIView::initWithFrame(frame))
            return false;
        const auto card = Look::card(bounds());
        card->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
        addSubview(card);
        m_begin = addMark(Look::green());
        m_cur = addMark(Look::cursorColor());
        m_words = Look::label("", UIFont::systemFontOfSize(15), Look::titleColor(), 3);
        m_words->setFrame(CGRectMake(12, 10, frame.size.width - 24, 60));
        m_words->setUserInteractionEnabled(false);
        addSubview(m_words);

        m_swipe = make<WatchedSwipe>();
        m_swipe->setDelegate(m_swipe);
        m_swipe->changed = [this] { show(); };
        addGestureRecognizer(m_swipe);
        show();
        return true;
    }

private:
    static constexpr CGFloat kMarkSize = 16;

    Ref<UIView> addMark(UIColor* color) {
        auto mark = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, kMarkSize, kMarkSize));
        mark->layer()->setCornerRadius(kMarkSize / 2);
        mark->setBackgroundColor(color);
        mark->setOpaque(false);
        mark->setHidden(true);
        mark->setUserInteractionEnabled(false);
        addSubview(mark);
        return mark;
    }

    void show() {
        constexpr const char* kNames[] = {"possible", "began", "changed", "ended", "cancelled", "failed"};
        const CGPoint begin = m_swipe->beginPoint(), cur = m_swipe->curPoint();
        m_words->setText(NSString::stringWithFormat("state: %s\nbegan at %.0f, %.0f\nnow at %.0f, %.0f",
                                                    kNames[m_swipe->state()], begin.x, begin.y, cur.x, cur.y));
        showMark(m_begin, begin);
        showMark(m_cur, cur);
    }
    static void showMark(UIView* mark, CGPoint point) {
        mark->setHidden(point == CGPointZero);
        mark->setCenter(point);
    }

    Ref<WatchedSwipe> m_swipe;
    Ref<UIView> m_begin;
    Ref<UIView> m_cur;
    Ref<UILabel> m_words;
};

void buildSwipePage(PageView& page) {
    page.addHeading("DRAG HERE");
    page.addView(make<SwipeField>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), 260)));
}

// Stack

const Page& stackPage();

/// A screen of the page that was opened from another one.
class FurtherScreen : public PageScreen {
public:
    /// `number`: how many screens there are, down to the page's first one.
    virtual bool initWithNumber(int number) {
        m_number = number;
        return initWithPage(stackPage());
    }
    int number() const { return m_number; }

private:
    int m_number = 0;
};

int numberOf(PageView& page) {
    const auto* further = dynamic_cast<FurtherScreen*>(page.screen());
    return further ? further->number() : 1;
}

Ref<PageScreen> nextScreen(PageView& page) {
    return make<FurtherScreen>(&FurtherScreen::initWithNumber, numberOf(page) + 1);
}

/// Without it one screen would look like the other.
void addNumber(PageView& page) {
    const auto band = make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), 60));
    const auto hue = static_cast<std::size_t>(numberOf(page)) % std::size(Look::kHues);
    band->setBackgroundColor(Look::barColor(Look::kHues[hue]));
    band->setOpaque(false);
    band->layer()->setCornerRadius(Look::kCornerRadius);
    const auto label = Look::label(NSString::stringWithFormat("Screen %d", numberOf(page)),
                                   UIFont::boldSystemFontOfSize(24), UIColor::whiteColor(), 1, NSTextAlignmentCenter);
    label->setFrame(band->bounds());
    band->addSubview(label);
    page.addView(band);
}

void present(PageView& page, UIViewController* controller) {
    page.screen()->presentViewController_animated_completion(controller, true, nullptr);
}

void buildStackPage(PageView& page) {
    addNumber(page);
    page.addButton("Push another", [&page] {
        if (UINavigationController* navigation = page.screen()->navigationController())
            navigation->pushViewController_animated(nextScreen(page), true);
    });
    page.addButton("Present a stack", [&page] {
        present(page,
                make<UINavigationController>(&UINavigationController::initWithRootViewController, nextScreen(page)));
    });
    page.addButton("Present a screen without a bar", [&page] { present(page, nextScreen(page)); });
    page.addButton("Back", [&page] { page.screen()->popViewControllerWithAnimated(true); });
    page.addText(
        "A finger from the left edge carries a pushed screen away. The first screen of a presented stack leads "
        "back by dismissing it.");
}

const Page& stackPage() {
    static const Page page = {"screen-stack",   "Stack",
                              kFamily,          "Pushed, popped and presented",
                              "icon_stack.png", "Screens are pushed, popped and presented.",
                              buildStackPage};
    return page;
}

} // namespace

std::vector<Page> screenPages() {
    return {
        stackPage(),
        {"vertical-drag", "Vertical drag", kFamily, "A gesture that waits for 30 points", "icon_vertical_drag.png",
         "The gesture begins once a finger has moved 30 points up or down, and fails as soon as it has moved as far to "
         "the side without rising or sinking by half of that.",
         buildSwipePage},
    };
}

} // namespace zr::gallery
