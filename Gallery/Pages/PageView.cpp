#include <Gallery/Pages/PageView.h>

#include <Gallery/Look/Look.h>
#include <Gallery/Look/PillButton.h>

#include <algorithm>

namespace zr::gallery {

namespace {

constexpr CGFloat kButtonHeight = 44;
constexpr CGFloat kButtonGap = 10;
constexpr CGFloat kLogHeight = 112;
constexpr std::size_t kLogLineCount = 4;

} // namespace

bool PageView::initWithFrame_screen(CGRect frame, ZRTViewController* screen) {
    if (!initWithFrame(frame))
        return false;
    m_screen = screen;
    m_nextY = 20;
    return true;
}

void PageView::build(const Page& page) {
    addText(page.description);
    page.build(*this);
}

void PageView::showComponent() {
    if (m_showAction)
        m_showAction();
}

void PageView::close() {
    if (m_closeAction)
        m_closeAction();
}

CGFloat PageView::contentWidth() const { return bounds().size.width - 2 * Look::kMargin; }

void PageView::addText(const NSString& text) {
    const auto label = Look::label(text, UIFont::systemFontOfSize(15), Look::detailColor(), 0);
    place(label, Look::heightOfLabel(label, contentWidth()), 20);
}

void PageView::addHeading(const NSString& text) {
    const auto label = Look::label(text, UIFont::systemFontOfSize(13), Look::detailColor());
    place(label, Look::heightOfLabel(label, contentWidth()), 7);
}

void PageView::addButton(const NSString& title, std::function<void()> action) {
    addButtons({{title, std::move(action)}});
}

void PageView::addButtons(const std::vector<PageButton>& buttons) {
    const auto count = static_cast<CGFloat>(buttons.size());
    const CGFloat step = (contentWidth() + kButtonGap) / count;
    const auto row = make<UIView>();
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const CGFloat left = Look::wholePixels(static_cast<CGFloat>(i) * step);
        const CGFloat right = Look::wholePixels(static_cast<CGFloat>(i + 1) * step) - kButtonGap;
        const auto button = make<PillButton>(&PillButton::initWithFrame_title,
                                             CGRectMake(left, 0, right - left, kButtonHeight), buttons[i].title);
        button->setAction(buttons[i].action);
        row->addSubview(button);
    }
    place(row, kButtonHeight, 20);
}

void PageView::addView(UIView* view) { place(view, view->frame().size.height, 20); }

void PageView::addLog(const NSString& heading) {
    addHeading(heading);
    const auto card = Look::card(CGRectZero);
    m_logLabel = Look::label("", UIFont::systemFontOfSize(13), Look::detailColor(), 0);
    m_logLabel->setText("Nothing yet.");
    m_logLabel->setFrame(CGRectMake(12, 10, contentWidth() - 24, Look::heightOfLabel(m_logLabel, contentWidth())));
    card->addSubview(m_logLabel);
    place(card, kLogHeight, 20);
}

void PageView::log(const NSString& line) {
    if (!m_logLabel)
        return;
    if (m_logLines.size() == kLogLineCount)
        m_logLines.erase(m_logLines.begin());
    m_logLines.push_back(line);
    NSString text = "";
    for (const NSString& logged : m_logLines)
        text = text.stringByAppendingString(text.length() ? "\n" : "").stringByAppendingString(logged);
    m_logLabel->setTextColor(Look::titleColor());
    m_logLabel->setText(text);
    const CGFloat width = contentWidth() - 24;
    m_logLabel->setFrame(CGRectMake(12, 10, width, std::min(Look::heightOfLabel(m_logLabel, width), kLogHeight - 20)));
}

void PageView::place(UIView* view, CGFloat height, CGFloat spaceAfter) {
    view->setFrame(CGRectMake(Look::kMargin, m_nextY, contentWidth(), height));
    // The column stays as wide as it was made, in the middle of a screen that turns.
    view->setAutoresizingMask(UIViewAutoresizingFlexibleLeftMargin | UIViewAutoresizingFlexibleRightMargin);
    addSubview(view);
    m_nextY += height + spaceAfter;
    setContentSize(CGSizeMake(0, m_nextY));
}

} // namespace zr::gallery
