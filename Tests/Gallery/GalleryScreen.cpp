#include <Tests/Gallery/GalleryScreen.h>

#include <Gallery/GalleryApplication.h>
#include <Gallery/Look/Look.h>
#include <gtest/gtest.h>

namespace zr::test {

namespace {

void collect(UIView* view, std::vector<UIView*>& views) {
    if (view->isHidden())
        return;
    views.push_back(view);
    for (const Ref<UIView>& subview : view->subviews())
        collect(subview, views);
}

} // namespace

GalleryScreen::GalleryScreen(const std::string& page, const DeviceProfile& profile,
                             gallery::SampleText::Language language) :
    host(profile) {
    const auto* opened = page.empty() ? nullptr : gallery::pageNamed(page);
    EXPECT_EQ(opened == nullptr, page.empty()) << page;
    // What another test has chosen in this process is not this one's.
    gallery::SampleText::setLanguage(language);
    gallery::Look::setHue(gallery::Look::Hue::Green);
    host.launch(make<gallery::GalleryApplication>(&gallery::GalleryApplication::initWithPage, opened));
}

std::vector<UIView*> GalleryScreen::views() const {
    std::vector<UIView*> views;
    for (UIWindow* window : host.application()->windows())
        collect(window, views);
    return views;
}

ZRProgressHUD* GalleryScreen::hud() const {
    const auto huds = all<ZRProgressHUD>();
    return huds.empty() ? nullptr : huds.back();
}

CGFloat GalleryScreen::seenAlpha() const { return hud() ? hud()->layer()->presentationValues().opacity : 0; }

float GalleryScreen::seenProgress() const {
    const Ref<UIView> indicator = hud() ? hud()->indicator() : nullptr;
    if (!indicator || !indicator->respondsToSelector("progress"))
        return -1;
    return indicator->valueForKey("progress").floatValue();
}

UILabel* GalleryScreen::labelWithText(const std::string& text) const {
    for (UILabel* label : all<UILabel>()) {
        if (label->text() == NSString(text))
            return label;
    }
    return nullptr;
}

void GalleryScreen::tapButton(const std::string& title) {
    const UILabel* label = labelWithText(title);
    ASSERT_TRUE(label) << title;
    host.tap(middleOf(label));
}

CGPoint GalleryScreen::middleOf(const UIView* view) {
    const CGRect bounds = view->bounds();
    return view->convertPoint_toView({CGRectGetMidX(bounds), CGRectGetMidY(bounds)}, nullptr);
}

} // namespace zr::test
