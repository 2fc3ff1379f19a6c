#include <Gallery/Look/Look.h>
#include <Gallery/Pages/PageView.h>
#include <Gallery/Settings/SampleText.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableView.h>
#include <ZRKitDynamic/ZRTableViewCell/ZRTableViewCellSlip.h>

namespace zr::gallery {

namespace {

constexpr CGFloat kRowHeight = 80;
/// Half a row tells that there are more.
constexpr CGFloat kVisibleRows = 3.5;
constexpr const char* kIdentifier = "message";

enum class Deed { More, Flag, Delete, Nothing };

struct Button {
    Deed deed;
    CGFloat width;
};

struct Message {
    const char* sender;
    const char* text;
    const char* time;
    /// Without any the row cannot be swiped.
    std::vector<Button> buttons;
    bool isFlagged = false;
};

std::vector<Message> messages() {
    return {
        {"Anna Keller",
         "One action: it deletes the row, and the others close up over it.",
         "9:41",
         {{Deed::Delete, 80}}},
        {"Ben Ito",
         "Two actions: a flag comes and goes, and the row closes by itself.",
         "9:30",
         {{Deed::Flag, 80}, {Deed::Delete, 80}}},
        {"Carla Rossi",
         "Three actions, all of them of one width.",
         "9:12",
         {{Deed::More, 70}, {Deed::Flag, 70}, {Deed::Delete, 70}}},
        {"David Moss",
         "Three actions of several widths, which leave a gap and overlap.",
         "8:55",
         {{Deed::More, 76}, {Deed::Flag, 60}, {Deed::Delete, 70}}},
        {"Emma Jansen", "This row cannot be swiped.", "8:20", {}},
        {"Farid Nasser", "An action that does nothing leaves the row open.", "7:58", {{Deed::Nothing, 90}}},
        {"Grace Lee", "One more to be deleted.", "7:30", {{Deed::Delete, 80}}},
        {"Hugo Blanc", "Nor can this one.", "6:02", {}},
    };
}

const char* titleOf(Deed deed) {
    switch (deed) {
    case Deed::More:
        return "More";
    case Deed::Flag:
        return "Flag";
    case Deed::Delete:
        return "Delete";
    case Deed::Nothing:
        break;
    }
    return "Nothing";
}

UIColor* colorOf(Deed deed) {
    switch (deed) {
    case Deed::Flag:
        return Look::barColor(Look::Hue::Orange);
    case Deed::Delete:
        return Look::barColor(Look::Hue::Red);
    case Deed::More:
    case Deed::Nothing:
        break;
    }
    return Look::detailColor();
}

/// A list of messages, and what its buttons do.
class SwipeListDemo : public NSObject,
                      public UITableViewDataSource,
                      public UITableViewDelegate,
                      public ZRTableViewDataSource {
public:
    /// `page`: not kept; it keeps the demo.
    virtual bool initWithPage(PageView* page) {
        m_page = page;
        return init();
    }

    void build() {
        m_page->addHeading("SWIPE TO THE LEFT");
        m_table = make<ZRTableView>(&UIView::initWithFrame,
                                    CGRectMake(0, 0, m_page->contentWidth(), kRowHeight * kVisibleRows));
        m_table->layer()->setCornerRadius(Look::kCornerRadius);
        m_table->setRowHeight(kRowHeight);
        m_table->setSeparatorStyle(UITableViewCellSeparatorStyleNone);
        m_table->registerClass_forCellReuseIdentifier<ZRTableViewCellSlip>(kIdentifier);
        m_table->setDataSource(this);
        m_table->setDelegate(this);
        m_page->addView(m_table);
        m_page->addButton("Bring all back", [this] {
            m_messages = messages();
            m_table->reloadData();
        });
        m_page->addLog("TAPS");
    }
    /// Swipes the row with three actions as a finger would.
    void show() {
        const auto path = NSIndexPath::indexPathForRow_inSection(2, 0);
        if (auto* cell = dynamic_cast<ZRTableViewCellSlip*>(m_table->cellForRowAtIndexPath(path))) {
            cell->cellSwipedAnimationWithPoint({-100, 0});
            cell->finishedCellSwipedAnimationWithPoint({-100, 0});
        }
    }

    NSInteger tableView_numberOfRowsInSection(UITableView*, NSInteger) override {
        return static_cast<NSInteger>(m_messages.size());
    }
    Ref<UITableViewCell> tableView_cellForRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        const auto cell = dynamicCast<ZRTableViewCellSlip>(table->dequeueReusableCellWithIdentifier(kIdentifier));
        fill(cell, messageAt(path));
        return cell;
    }
    void tableView_didSelectRowAtIndexPath(UITableView* table, const NSIndexPath& path) override {
        table->deselectRowAtIndexPath_animated(path, false);
        log("Tap", path);
    }
    bool tableView_zrCanEditRowAtIndexPath(ZRTableView*, const NSIndexPath& path) override {
        return !path.isNil() && !messageAt(path).buttons.empty();
    }
    std::vector<Ref<ZRTableViewRowAction>> tableView_zrEditActionsForRowAtIndexPath(ZRTableView*,
                                                                                    const NSIndexPath& path) override {
        std::vector<Ref<ZRTableViewRowAction>> actions;
        if (!path.isNil()) {
            for (const Button& button : messageAt(path).buttons)
                actions.push_back(actionFor(button));
        }
        return actions;
    }

private:
    Message& messageAt(const NSIndexPath& path) { return m_messages.at(static_cast<std::size_t>(path.row())); }

    static void fill(ZRTableViewCellSlip* cell, const Message& message) {
        cell->zrTextLabel()->setText(message.sender);
        cell->zrDetailTextLabel()->setText(message.text);
        cell->zrAccessoryLabel()->setText(message.isFlagged ? "flagged" : message.time);
        cell->setNeedsLayout();
    }

    Ref<ZRTableViewRowAction> actionFor(const Button& button) {
        const Deed deed = button.deed;
        ZRTableViewRowActionBlock block;
        if (deed != Deed::Nothing)
            block = [this, deed](ZRTableViewRowAction*, const NSIndexPath& path) { perform(deed, path); };
        return ZRTableViewRowAction::rowActionWithBackgrounColor_buttonWidth_title_handler(
            colorOf(deed), button.width, SampleText::translated(titleOf(deed)), block);
    }

    /// The row may be on its way out already.
    void perform(Deed deed, const NSIndexPath& path) {
        if (path.isNil())
            return;
        log(titleOf(deed), path);
        if (deed == Deed::Delete) {
            m_messages.erase(m_messages.begin() + path.row());
            m_table->deleteRowsAtIndexPaths_withRowAnimation({path}, UITableViewRowAnimationLeft);
            return;
        }
        auto* cell = dynamic_cast<ZRTableViewCellSlip*>(m_table->cellForRowAtIndexPath(path));
        if (!cell)
            return;
        if (deed == Deed::Flag) {
            messageAt(path).isFlagged = !messageAt(path).isFlagged;
            fill(cell, messageAt(path));
        }
        cell->removeCellSwipped();
    }

    void log(const char* what, const NSIndexPath& path) {
        m_page->log(NSString::stringWithFormat("%s: %s", what, messageAt(path).sender));
    }

    Weak<PageView> m_page;
    Ref<ZRTableView> m_table;
    std::vector<Message> m_messages = messages();
};

void buildSwipePage(PageView& page) {
    const auto demo = make<SwipeListDemo>(&SwipeListDemo::initWithPage, &page);
    page.keep(demo);
    page.setShowAction([demo = demo.get()] { demo->show(); });
    demo->build();
}

} // namespace

std::vector<Page> swipeListPages() {
    return {
        {"list-swipe", "Swipe to reveal", "LISTS", "Buttons behind the rows", "icon_list_swipe.png",
         "A row let go further left than one button is wide stays open until the next touch. Meanwhile the list does "
         "not scroll.",
         buildSwipePage},
    };
}

} // namespace zr::gallery
