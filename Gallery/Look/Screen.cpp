#include <Gallery/Look/Screen.h>

#include <Gallery/Look/Look.h>
#include <ZRKitDynamic/ZRColor/ZRColorInstance.h>
#include <ZRPlatform/Foundation/NSNotificationCenter.h>

namespace zr::gallery {

bool Screen::initWithTitle(const NSString& title) {
    if (!init())
        return false;
    setTitle(title);
    return true;
}

Screen::~Screen() { NSNotificationCenter::defaultCenter()->removeObserver(this); }

void Screen::viewDidLoad() {
    ZRTViewController::viewDidLoad();
    NSNotificationCenter::defaultCenter()->addObserver_selector_name_object(this, selector<&Screen::applyTheme>,
                                                                            kChangeThemeNotification, nullptr);
    applyTheme();
}

CGRect Screen::contentFrame() {
    const CGSize size = view()->bounds().size;
    return CGRectMake(0, navigationBarMaxY(), size.width, size.height - navigationBarMaxY());
}

void Screen::applyTheme() {
    if (tNavigationBar())
        tNavigationBar()->backgroundImageView()->setBackgroundColor(Look::barColor(Look::hue()));
}

} // namespace zr::gallery
