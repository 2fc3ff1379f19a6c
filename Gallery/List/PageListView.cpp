#include <Gallery/List/PageListView.h>

#include <Gallery/List/PageRow.h>
#include <Gallery/Look/Look.h>
#include <Gallery/Look/NavigationBar.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kFirstSectionSpace = 24;
constexpr CGFloat kSectionSpace = 32;
constexpr CGFloat kHeadingHeight = 18;
constexpr CGFloat kHeadingSpace = 7;

} // namespace

bool PageListView::initWithFrame_open(CGRect frame, std::function<void(const Page&)> open) {
    if (!initWithFrame(frame))
        return false;
    m_open = std::move(open);
    setBackgroundColor(Look::pageColor());
    const CGFloat width = frame.size.width;
    const CGRect below = CGRectMake(0, Look::kBarHeight, width, frame.size.height - Look::kBarHeight);
    m_scrollBox = make<ScrollBox>(&ScrollBox::initWithFrame, below);
    addSubview(m_scrollBox);
    addSubview(
        make<NavigationBar>(&NavigationBar::initWithFrame_title, CGRectMake(0, 0, width, Look::kBarHeight), "Gallery"));

    const auto& pages = allPages();
    m_nextY = kFirstSectionSpace - kSectionSpace;
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string_view family = pages[i].family;
        if (i == 0 || pages[i - 1].family != family)
            addSectionHeading(pages[i].family);
        addRow(pages[i], i + 1 == pages.size() || pages[i + 1].family != family);
    }
    m_scrollBox->setContentHeight(m_nextY + kSectionSpace);
    return true;
}

void PageListView::addSectionHeading(const NSString& family) {
    const CGFloat width = bounds().size.width;
    m_nextY += kSectionSpace;
    const auto heading = Look::label(family, UIFont::systemFontOfSize(13), Look::detailColor());
    heading->setFrame(CGRectMake(Look::kMargin, m_nextY, width - 2 * Look::kMargin, kHeadingHeight));
    m_scrollBox->content()->addSubview(heading);
    m_nextY += kHeadingHeight + kHeadingSpace;
    const auto line = Look::line(CGRectMake(0, m_nextY - Look::hairline(), width, Look::hairline()));
    line->setAutoresizingMask(UIViewAutoresizingFlexibleWidth);
    m_scrollBox->content()->addSubview(line);
}

void PageListView::addRow(const Page& page, bool isLast) {
    const CGRect frame = CGRectMake(0, m_nextY, bounds().size.width, PageRow::kHeight);
    const auto row = make<PageRow>(&PageRow::initWithFrame_page_isLast, frame, page, isLast);
    row->setAction([this, &page] { m_open(page); });
    m_scrollBox->content()->addSubview(row);
    m_nextY += PageRow::kHeight;
}

} // namespace zr::gallery
