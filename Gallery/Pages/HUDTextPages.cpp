#include <Gallery/Pages/HUDDemo.h>

namespace zr::gallery {

namespace {

constexpr const char* kFamily = "HUD TEXTS";

/// With room for many lines.
class TallHUDDemo : public HUDDemo {
public:
    void buildPage() override {
        addLandscape(330);
        page()->addButtons({{"Show HUD", [this] { show(); }}, {"Hide HUD", [this] { hide(); }}});
        addLog();
    }
};

} // namespace

std::vector<Page> hudTextPages() {
    return {
        {"hud-label", "Label", kFamily, "One line below the indicator", "icon_hud_label.png",
         "The label is one line, in the bold system font of 16 points. The box is as wide as it needs.",
         showsHUD([](ZRProgressHUD* hud) { hud->setLabelText("Sorting pictures"); })},
        {"hud-details", "Details", kFamily, "A smaller text of several lines", "icon_hud_details.png",
         "Below the label there may be details. They wrap where the view leaves no more room at the sides.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Cleaning up");
             hud->setDetailsLabelText("Removing 214 pictures that are in more than one of your albums");
         })},
        {"hud-fonts", "Fonts", kFamily, "Label and details in other fonts", "icon_text_latin.png",
         "Both texts are bold at first, of 16 and 12 points; any font will do.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Printing");
             hud->setLabelFont(UIFont::systemFontOfSize(28));
             hud->setDetailsLabelText("Page 3 of 12, on both sides");
             hud->setDetailsLabelFont(UIFont::italicSystemFontOfSize(15));
         })},
        {"hud-long", "Long texts", kFamily, "What does not fit is cut", "icon_hud_long.png",
         "A label that is too long for its line ends in three dots. Details take as many lines as the view has room "
         "for.",
         showsHUD<TallHUDDemo>([](ZRProgressHUD* hud) {
             hud->setLabelText("Moving the pictures of last summer to the archive");
             hud->setDetailsLabelText(
                 "From the first of next month your pictures are stored in two places instead of one, so that a single "
                 "broken disk no longer loses anything. This takes about a quarter of an hour. You may close this "
                 "window meanwhile: the work goes on in the background, and a message tells you when everything has "
                 "been moved. If you would rather keep a single copy, you can say so in the settings at any time.");
         })},
        {"hud-chinese", "Chinese", kFamily, "文字在任意两个汉字之间换行", "icon_text_chinese.png",
         "Chinese wraps between any two characters.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("正在整理照片");
             hud->setDetailsLabelText("共有二百一十四张照片同时存放在多个相簿中，请稍候，整理完毕以后会自动通知您。");
         })},
        {"hud-arabic", "Arabic", kFamily, "من اليمين إلى اليسار", "icon_text_arabic.png",
         "Arabic runs from right to left and joins its letters; numbers inside it run the other way.",
         showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("جارٍ ترتيب الصور");
             hud->setDetailsLabelText("توجد 214 صورة في أكثر من ألبوم واحد، يُرجى الانتظار إلى أن ينتهي ترتيبها.");
         })},
        {"hud-emoji", "Emoji", kFamily, "👩🏽‍🍳 🍪 🥛 in one line of text", "icon_text_emoji.png",
         "Emoji are pictures in the text, with skin tones and professions.", showsHUD([](ZRProgressHUD* hud) {
             hud->setLabelText("Baking cookies 🍪");
             hud->setDetailsLabelText("👩🏽‍🍳 stirs 🥚🧈🍫 and waits ⏳");
         })},
    };
}

} // namespace zr::gallery
