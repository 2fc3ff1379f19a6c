#include "App.h"

#include "ListScreen.h"

using namespace zr;

bool App::applicationDidFinishLaunching(UIApplication*) {
    m_window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    m_window->setRootViewController(
        make<UINavigationController>(&UINavigationController::initWithRootViewController, make<ListScreen>()));
    m_window->makeKeyAndVisible();
    return true;
}
