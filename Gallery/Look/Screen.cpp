#include <Gallery/Look/Screen.h>

#include <Gallery/Look/Look.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>

namespace zr::gallery {

template <class KitScreen>
bool ScreenOf<KitScreen>::initWithTitle(const NSString& title) {
    if (!this->init())
        return false;
    this->setTitle(title);
    return true;
}

template <class KitScreen>
ScreenOf<KitScreen>::~ScreenOf() {
    NSNotificationCenter::defaultCenter()->removeObserver(this);
}

template <class KitScreen>
void ScreenOf<KitScreen>::viewDidLoad() {
    KitScreen::viewDidLoad();
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(this, selector<&ScreenOf::applyTheme>,
                                                                            kChangeThemeNotification, nullptr);
    applyTheme();
}

template <class KitScreen>
void ScreenOf<KitScreen>::applyTheme() {
    if (this->tNavigationBar())
        this->tNavigationBar()->backgroundImageView()->setBackgroundColor(Look::barColor(Look::hue()));
}

template class ScreenOf<ZRTViewController>;
template class ScreenOf<ZRTTableViewController>;

} // namespace zr::gallery
