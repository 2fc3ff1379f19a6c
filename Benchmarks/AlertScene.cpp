#include <Benchmarks/AlertScene.h>

namespace zr {

AlertScene::AlertScene() {
    window = make<UIWindow>(&UIWindow::initWithFrame, UIScreen::mainScreen()->bounds());
    window->setBackgroundColor(ZRColorInstance::Instance()->backgroundShadowColor_green());
    for (int row = 0; row < 12; ++row) {
        auto label = ZRLabel::zrInitLabelWithFrame_lines_font_text_alignment(
            CGRectMake(15, 64 + row * 44, 345, 44), 1, UIFont::systemFontOfSize(17), "A line of the screen behind",
            NSTextAlignmentLeft);
        label->setBackgroundColor(UIColor::whiteColor());
        window->addSubview(label);
    }
    window->makeKeyAndVisible();
    alert = make<ZRTAlertView>(&ZRTAlertView::initWithTitle_message_delegate_cancelButtonTitle_okButtonTitles,
                               "Delete photo?", "It will be removed from all devices, and cannot be brought back.",
                               nullptr, "Cancel", "Delete");
}

void AlertScene::show(bool animated) {
    alert->showWithAnimation(animated);
    host.advance(0);
}

} // namespace zr
