#include <Gallery/Pages/AlertDemo.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Look/TapControl.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRColor/ZRColor.h>
#include <ZRKitDynamic/ZRLabel/ZRLabel.h>
#include <ZRPlatform/UIKit/Images/UIBezierPath.h>

#include <cmath>
#include <numbers>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "ALERTS OF ONE’S OWN";

// Own contents

/// A star that is lit or not.
class Star : public TapControl {
public:
    static constexpr CGFloat kSide = 44;

    bool initWithFrame(CGRect frame) override {
        if (!TapControl::initWithFrame(frame))
            return false;
        setOpaque(false);
        return true;
    }
    void setLit(bool lit) {
        m_isLit = lit;
        setNeedsDisplay();
    }

    void drawRect(CGRect) override {
        // As wide as a third of the control, and the points between the tips half as far out.
        constexpr CGFloat kTips = 15;
        const auto path = UIBezierPath::bezierPath();
        for (int corner = 0; corner < 10; ++corner) {
            const CGFloat angle = std::numbers::pi * (corner / 5.0 - 0.5);
            const CGFloat radius = corner % 2 ? kTips / 2 : kTips;
            const CGPoint point =
                CGPointMake(kSide / 2 + radius * std::cos(angle), kSide / 2 + radius * std::sin(angle));
            corner ? path->addLineToPoint(point) : path->moveToPoint(point);
        }
        path->closePath();
        const auto gold = ZRColor::zrColorWithRed_green_blue_alpha(253, 161, 0, 1);
        (m_isLit ? gold.get() : Look::separatorColor())->setFill();
        path->fill();
    }

private:
    bool m_isLit = false;
};

/// Asks for one to five stars. It cannot be sent without any.
class RatingAlert : public ZRBaseAlert {
public:
    virtual bool initWithQuestion_delegate(const char* question, Delegate<ZRTAlertViewDelegate> delegate) {
        if (!initWithDelegate_cancelButtonTitle_okButtonTitles(delegate, SampleText::translated("Not now"),
                                                               SampleText::translated("Send")))
            return false;
        setAlertViewSize(CGSizeMake(270, 152));
        okButton()->setEnabled(false);
        m_question = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            CGRectZero, 1, UIFont::boldSystemFontOfSize(18), SampleText::translated(question), NSTextAlignmentCenter);
        backgroundAlert()->addSubview(m_question);
        for (int star = 1; star <= kMostStars; ++star)
            addStar(star);
        return true;
    }

    /// 0 before the first touch.
    int rating() const { return m_rating; }
    void setRating(int rating) {
        m_rating = rating;
        for (int i = 0; i < kMostStars; ++i)
            m_stars[static_cast<std::size_t>(i)]->setLit(i < rating);
        okButton()->setEnabled(rating > 0);
    }

    void layoutAletViewAndButtons() override {
        ZRBaseAlert::layoutAletViewAndButtons();
        const CGFloat width = backgroundAlert()->bounds().size.width;
        m_question->setFrame(CGRectMake(15, 18, width - 30, 26));
        CGFloat x = (width - kMostStars * Star::kSide) / 2;
        for (const auto& star : m_stars) {
            star->setFrame(CGRectMake(x, 52, Star::kSide, Star::kSide));
            x += Star::kSide;
        }
    }

private:
    static constexpr int kMostStars = 5;

    void addStar(int rating) {
        const auto star = make<Star>(&UIView::initWithFrame, CGRectZero);
        star->setAction([this, rating] { setRating(rating); });
        backgroundAlert()->addSubview(star);
        m_stars.push_back(star);
    }

    Ref<UILabel> m_question;
    std::vector<Ref<Star>> m_stars;
    int m_rating = 0;
};

class RatingDemo : public OverlayDemo {
protected:
    const char* showTitle() const override { return "Show alert"; }
    Ref<ZRBaseAlert> makeOverlay() override {
        return make<RatingAlert>(&RatingAlert::initWithQuestion_delegate, "How do you like it?", this);
    }
    void overlayWillGo() override {
        page()->log(NSString::stringWithFormat("rating: %d", static_cast<RatingAlert*>(overlay())->rating()));
    }
};

void buildRatingPage(PageView& page) {
    const auto demo = make<RatingDemo>(&OverlayDemo::initWithPage, &page);
    addOverlayDemo(page, demo);
}

// At once

/// Goes at once, when a button or the screen beside the panel is touched.
class PromptAlert : public ZRTAlertView {
public:
    /// Of a touch beside the panel; the buttons have 0 and 1.
    static constexpr NSInteger kOutside = 2;

    void buttonClicked(UIControl* button) override { dismissWithButtonIndex_animated(button->tag(), false); }
    void touchesEnded_withEvent(const TouchSet& touches, UIEvent*) override {
        if (!CGRectContainsPoint(backgroundAlert()->frame(), touches.front()->locationInView(this)))
            dismissWithButtonIndex_animated(kOutside, false);
    }
};

/// Shows the alert with one index after another counting as that which cancels.
class PromptDemo : public AlertDemo {
public:
    void buildPage() override {
        page()->addHeading("SHOW, CANCELLING WITH THE INDEX");
        std::vector<PageButton> buttons;
        for (const NSInteger index : {NSInteger(0), NSInteger(1), PromptAlert::kOutside})
            buttons.push_back({NSString::stringWithFormat("%td", index), [this, index] { showCancelledBy(index); }});
        page()->addButtons(buttons);
        addLog();
    }

protected:
    Ref<ZRTAlertView> makeAlert() override {
        const Ref<ZRTAlertView> alert = makeAlertOf<PromptAlert>();
        alert->setCancelButtonIndex(m_cancelButtonIndex);
        return alert;
    }
    void presentOverlay(ZRBaseAlert* overlay) override { overlay->showWithAnimation(false); }
    void overlayWillGo() override {
        page()->log(NSString::stringWithFormat("cancelButtonIndex: %td", alert()->cancelButtonIndex()));
    }

private:
    void showCancelledBy(NSInteger index) {
        m_cancelButtonIndex = index;
        show();
    }

    NSInteger m_cancelButtonIndex = PromptAlert::kOutside;
};

} // namespace

std::vector<Page> alertOwnPages() {
    return {
        {"alert-own", "Own contents", kFamily, "Stars in the panel", "icon_list_star.png",
         "A subclass of the base that all alerts have puts what it likes into the panel. It cannot be sent before a "
         "star was touched.",
         buildRatingPage},
        {"alert-at-once", "At once", kFamily, "No animation, an index of its own", "icon_alert_two_buttons.png",
         "It comes and goes without an animation. A touch beside the panel dismisses it with the index 2, and any of "
         "the three indices can be the one that cancels.",
         showsAlert<PromptDemo>({"Leave without saving?", "Your last changes will be lost.", "Stay", "Leave"})},
    };
}

} // namespace zr::gallery
