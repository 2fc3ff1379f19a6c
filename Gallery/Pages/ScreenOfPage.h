#pragma once

#include <Gallery/Pages/Page.h>
#include <Gallery/Source/SourceScreen.h>
#include <ZRPlatform/UIKit/Controllers/UINavigationController.h>

namespace zr::gallery {

/// What every page adds to its kind of screen: its title, and a button that leads to its source.
template <class Base>
class ScreenOfPage : public Base {
public:
    /// `page`: outlives the screen.
    bool initWithPage(const Page& page) {
        m_page = &page;
        return this->initWithTitle(page.title);
    }

    void viewDidLoad() override {
        Base::viewDidLoad();
        showSourceButton();
    }
    /// At the right of the bar, if there is one.
    void showSourceButton() {
        if (this->tNavigationBar())
            this->tNavigationBar()->setRightButtonTitle_target_action("Source", this,
                                                                      selector<&ScreenOfPage::openSource>);
    }

protected:
    const Page& page() const { return *m_page; }

private:
    void openSource() {
        this->navigationController()->pushViewController_animated(
            make<SourceScreen>(&SourceScreen::initWithPage, *m_page), true);
    }

    const Page* m_page = nullptr;
};

} // namespace zr::gallery
