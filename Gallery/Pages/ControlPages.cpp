#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <ZRKitDynamic/ZRControl/ZRSegmentedControl.h>
#include <ZRKitDynamic/ZRControl/ZRSwitch.h>

#include <algorithm>
#include <map>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "SWITCHES AND SEGMENTS";

/// Writes into the page's log what controls report.
class ControlLog : public NSObject {
public:
    /// `page`: not kept; it keeps the log.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        return init();
    }

    /// From now on a change of the switch is told under this name.
    void follow(ZRSwitch* control, const char* name) {
        m_names[control] = name;
        control->addTarget_action_forControlEvents(this, selector<&ControlLog::switchChanged>,
                                                   UIControlEventValueChanged);
    }
    void follow(ZRSegmentedControl* control) {
        control->addTarget_action_forControlEvents(this, selector<&ControlLog::segmentChanged>,
                                                   UIControlEventValueChanged);
    }

    void switchChanged(ZRSwitch* control) {
        m_page->log(NSString::stringWithFormat("%s: %s", m_names[control], control->isOn() ? "on" : "off"));
    }
    void segmentChanged(ZRSegmentedControl* control) {
        const auto index = static_cast<NSUInteger>(control->selectedSegmentIndex());
        m_page->log(NSString::stringWithFormat("selectedSegmentIndex: %zu, “%s”", static_cast<std::size_t>(index),
                                               control->titleForSegmentAtIndex(index).UTF8String()));
    }

private:
    Weak<PageView> m_page;
    std::map<const ZRSwitch*, const char*> m_names;
};

// Switch

constexpr CGFloat kRowHeight = 52;
constexpr CGSize kSwitchSize{50, 31};

/// A row of `card` with a name on the left and a switch on the right.
Ref<ZRSwitch> addSwitch(UIView* card, int row, const char* name) {
    const CGFloat width = card->bounds().size.width;
    const CGFloat top = row * kRowHeight;
    const auto label = Look::label(name, UIFont::systemFontOfSize(17), Look::titleColor());
    label->setFrame(CGRectMake(12, top, width - kSwitchSize.width - 36, kRowHeight));
    card->addSubview(label);
    if (row > 0)
        card->addSubview(Look::line(CGRectMake(12, top, width - 12, Look::hairline())));

    const CGPoint origin = CGPointMake(width - 12 - kSwitchSize.width, top + (kRowHeight - kSwitchSize.height) / 2);
    auto control = make<ZRSwitch>(&ZRSwitch::initWithFrame, CGRectMake(origin.x, Look::wholePixels(origin.y), 0, 0));
    card->addSubview(control);
    return control;
}

void buildSwitchPage(PageView& page) {
    const auto log = make<ControlLog>(&ControlLog::initWithPage, &page);
    page.keep(log);
    const auto card = Look::card(CGRectMake(0, 0, page.contentWidth(), 5 * kRowHeight));

    const auto off = addSwitch(card, 0, "Off");
    off->setOn_animated(false, true);
    log->follow(off, "Off");
    const auto on = addSwitch(card, 1, "On");
    on->setOn_animated(true, true);
    log->follow(on, "On");
    log->follow(addSwitch(card, 2, "Never set, so it jumps"), "Never set");
    const auto code = addSwitch(card, 3, "Set by code");
    log->follow(code, "Set by code");
    const auto disabled = addSwitch(card, 4, "Disabled");
    disabled->setOn_animated(true, false);
    disabled->setEnabled(false);

    page.addView(card);
    page.addButtons({{"Set animated", [code] { code->setOn_animated(!code->isOn(), true); }},
                     {"Set at once", [code] { code->setOn_animated(!code->isOn(), false); }}});
    page.addLog("UIControlEventValueChanged");
}

// Segmented control

constexpr CGFloat kBarHeight = 53;
constexpr CGFloat kBarGap = 10;
constexpr CGFloat kBarPadding = 12;

/// A bar in one of the theme's colours, with a control in its middle.
Ref<UIView> makeBar(CGRect frame, UIColor* color, ZRSegmentedControl* control) {
    auto bar = make<UIView>(&UIView::initWithFrame, frame);
    bar->setBackgroundColor(color);
    bar->setOpaque(false);
    bar->layer()->setCornerRadius(Look::kCornerRadius);
    const CGSize size = control->bounds().size;
    const CGFloat scale = std::min<CGFloat>(1, (frame.size.width - 2 * kBarPadding) / size.width);
    control->setTransform(CGAffineTransformMakeScale(scale, scale));
    control->setCenter(CGPointMake(Look::wholePixels((frame.size.width - size.width) / 2) + size.width / 2,
                                   Look::wholePixels((frame.size.height - size.height) / 2) + size.height / 2));
    bar->addSubview(control);
    return bar;
}

void buildSegmentsPage(PageView& page) {
    const std::vector<NSString> titles[] = {
        {"All"},
        {"All", "Unread"},
        {"Day", "Week", "Month"},
        {"Spring", "Summer", "Autumn", "Winter"},
        {"Mon", "Tue", "Wed", "Thu", "Fri"},
    };
    const auto log = make<ControlLog>(&ControlLog::initWithPage, &page);
    page.keep(log);
    const CGFloat step = kBarHeight + kBarGap;
    Ref<ZRSegmentedControl> renamed;
    const auto bars =
        make<UIView>(&UIView::initWithFrame, CGRectMake(0, 0, page.contentWidth(), std::size(titles) * step - kBarGap));
    for (std::size_t i = 0; i < std::size(titles); ++i) {
        const auto control = make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, titles[i]);
        control->setSelectedSegmentIndex(static_cast<std::int64_t>(i / 2));
        log->follow(control);
        if (titles[i].size() == 3)
            renamed = control;
        const CGRect frame = CGRectMake(0, static_cast<CGFloat>(i) * step, page.contentWidth(), kBarHeight);
        bars->addSubview(makeBar(frame, Look::barColor(Look::kHues[i % std::size(Look::kHues)]), control));
    }
    page.addView(bars);
    // By code, and without an event.
    page.addButton("Other titles", [renamed] {
        const bool isDay = renamed->titleForSegmentAtIndex(0) == NSString("Day");
        const char* const others[] = {isDay ? "Today" : "Day", isDay ? "Soon" : "Week", isDay ? "Later" : "Month"};
        for (NSUInteger i = 0; i < std::size(others); ++i)
            renamed->setTitle_forSegmentAtIndex(others[i], i);
    });
    page.addLog("UIControlEventValueChanged");
}

void buildDisabledSegmentsPage(PageView& page) {
    const auto log = make<ControlLog>(&ControlLog::initWithPage, &page);
    page.keep(log);
    const auto control =
        make<ZRSegmentedControl>(&ZRSegmentedControl::initWithItems, std::vector<NSString>{"Day", "Week", "Month"});
    log->follow(control);
    const auto enable = [control](bool enabled) {
        control->setEnabled(enabled);
        control->setAlpha(enabled ? 1 : 0.4);
    };
    enable(false);
    const CGRect frame = CGRectMake(0, 0, page.contentWidth(), kBarHeight);
    page.addView(makeBar(frame, Look::barColor(Look::Hue::Green), control));
    page.addButtons({{"Disable", [enable] { enable(false); }}, {"Enable", [enable] { enable(true); }}});
    page.addButton("Select the next by code", [control] {
        const auto count = static_cast<std::int64_t>(control->titles().size());
        control->setSelectedSegmentIndex((control->selectedSegmentIndex() + 1) % count);
    });
    page.addLog("UIControlEventValueChanged");
}

} // namespace

std::vector<Page> controlPages() {
    return {
        {"switch", "Switch", kFamily, "By tap, by drag and by code", "icon_switch.png",
         "A tap toggles the switch; a finger that drags takes the knob along and decides when it leaves. Code sets it "
         "silently.",
         buildSwitchPage},
        {"segments", "Segmented control", kFamily, "One to five segments on a bar", "icon_segments.png",
         "A white pill on a coloured bar; a tap selects a segment. Each is 94 points wide, so those that are too wide "
         "for the screen are scaled down here.",
         buildSegmentsPage},
        {"segments-disabled", "Disabled segments", kFamily, "Out of reach but for code", "icon_segments.png",
         "A disabled control takes no taps and no keys; code still selects. It looks the same, so the page makes it "
         "faint.",
         buildDisabledSegmentsPage},
    };
}

} // namespace zr::gallery
