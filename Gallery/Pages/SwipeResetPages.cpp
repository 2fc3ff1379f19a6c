#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kRowHeight = 68;
constexpr CGFloat kActionWidth = 84;
constexpr const char* kIdentifier = "album";

struct Album {
    const char* name;
    const char* count;
    bool isPinned = false;
};

/// A list of albums. Each row's actions leave it in its place and close it: one at once, the other softly.
class SwipeResetDemo : public NSObject, public UITableViewDataSource, public ZRTableViewDataSource {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        return init();
    }

    void build() {
        m_page->addHeading("SWIPE TO THE LEFT");
        m_table = make<ZRTableView>(&UIView::initWithFrame,
                                    CGRectMake(0, 0, m_page->contentWidth(), kRowHeight * std::size(m_albums)));
        m_table->layer()->setCornerRadius(Look::kCornerRadius);
        m_table->setRowHeight(kRowHeight);
        m_table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
        m_table->registerClass_forCellReuseIdentifier<ZRTableViewCellSlip>(kIdentifier);
        m_table->setDataSource(this);
        m_page->addView(m_table);
        m_page->addLog("HOW THE ROW WAS CLOSED");
    }
    /// Swipes the first row as a finger would.
    void show() {
        if (auto* cell = cellAt(NSIndexPath::indexPathForRow_inSection(0, 0))) {
            cell->cellSwipedAnimationWithPoint({-100, 0});
            cell->finishedCellSwipedAnimationWithPoint({-100, 0});
        }
    }

    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override { return std::size(m_albums); }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        const auto cell = dynamicCast<ZRTableViewCellSlip>(table->dequeueReusableCellWithIdentifier(kIdentifier));
        fill(cell, m_albums[path.row()]);
        return cell;
    }
    bool tableView_zrCanEditRowAtIndexPath(ZRTableView*, const NSIndexPath&) override { return true; }
    std::vector<Ref<ZRTableViewRowAction>> tableView_zrEditActionsForRowAtIndexPath(ZRTableView*,
                                                                                    const NSIndexPath&) override {
        return {makeAction(
                    "Softly", Look::barColor(Look::Hue::Orange),
                    [](ZRTableViewCellSlip* cell) { cell->removeCellSwipped(); }, "removeCellSwipped"),
                makeAction(
                    "At once", Look::barColor(Look::Hue::Green),
                    [](ZRTableViewCellSlip* cell) { cell->resetSwipButton(); }, "resetSwipButton")};
    }

private:
    using Closing = void (*)(ZRTableViewCellSlip* cell);

    static void fill(ZRTableViewCellSlip* cell, const Album& album) {
        cell->zrTextLabel()->setText(SampleText::translated(album.name));
        cell->zrDetailTextLabel()->setText(SampleText::translated(album.isPinned ? "Pinned" : "Not pinned"));
        cell->zrAccessoryLabel()->setText(SampleText::translated(album.count));
        cell->setNeedsLayout();
    }

    Ref<ZRTableViewRowAction> makeAction(const char* title, UIColor* color, Closing close, const char* name) {
        return ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(
            color, kActionWidth, SampleText::translated(title),
            [this, close, name](ZRTableViewRowAction*, const NSIndexPath& path) { pin(path, close, name); });
    }

    void pin(const NSIndexPath& path, Closing close, const char* name) {
        ZRTableViewCellSlip* cell = path.isNil() ? nullptr : cellAt(path);
        if (!cell)
            return;
        Album& album = m_albums[path.row()];
        album.isPinned = !album.isPinned;
        fill(cell, album);
        close(cell);
        m_page->log(name);
    }

    ZRTableViewCellSlip* cellAt(const NSIndexPath& path) const {
        return dynamic_cast<ZRTableViewCellSlip*>(m_table->cellForRowAtIndexPath(path));
    }

    Weak<PageView> m_page;
    Ref<ZRTableView> m_table;
    Album m_albums[4] = {
        {"Last summer", "214 photos"}, {"Mountains", "38 photos"}, {"Cats", "1,027 photos"}, {"Receipts", "9 photos"}};
};

void buildResetPage(PageView& page) {
    const auto demo = make<SwipeResetDemo>(&SwipeResetDemo::initWithPage, &page);
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->show(); });
    demo->build();
}

} // namespace

std::vector<Page> swipeResetPages() {
    return {
        {"swipe-reset", "Rows that stay", "LISTS", "An action pins and closes its row", "icon_list_swipe.png",
         "Both actions pin the album, or let it go. As the row stays in its place, the action closes it: within 0.2 "
         "seconds, or at once.",
         buildResetPage},
    };
}

} // namespace zr::gallery
