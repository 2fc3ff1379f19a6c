#include <Gallery/Pages/AlertDemo.h>

namespace zr::gallery {

namespace {
constexpr const char* kFamily = "ALERTS WITH LONG TEXTS";
} // namespace

std::vector<Page> alertTextPages() {
    return {
        {"alert-long-latin", "Latin", kFamily, "Words wrap, the panel grows", "icon_text_latin.png",
         "A long message wraps between words, and the panel grows with it.",
         showsAlert({"Terms of service have changed",
                     "From the first of next month your pictures are stored in two places instead of one, so that a "
                     "single broken disk no longer loses anything. You need not do anything. If you would rather keep "
                     "a single copy, you can say so in the settings at any time.",
                     "Not now", "Accept"})},
        {"alert-long-chinese", "Chinese", kFamily, "文字在任意两个汉字之间换行", "icon_text_chinese.png",
         "Chinese wraps between any two characters, but no line begins with a full stop or a comma.",
         showsAlert(
             {"要删除这些照片吗？",
              "选中的二百一十四张照片将从您的所有设备中移除。在三十天之内，您仍然可以在“最近删除”相簿中找回它们；"
              "超过期限以后，照片将被永久删除，无法恢复。",
              "取消", "删除"})},
        {"alert-long-arabic", "Arabic", kFamily, "من اليمين إلى اليسار", "icon_text_arabic.png",
         "Arabic runs from right to left and joins its letters; numbers and Latin names inside it run the other way.",
         showsAlert(
             {"هل تريد حذف الصور؟",
              "ستتم إزالة 214 صورة محددة من جميع أجهزتك. يمكنك استعادتها خلال 30 يومًا من ألبوم Recently Deleted، "
              "وبعد ذلك تُحذف نهائيًا ولا يمكن استرجاعها.",
              "إلغاء", "حذف"})},
        {"alert-long-emoji", "Emoji", kFamily, "👍🏽 👨‍👩‍👧‍👦 🇳🇱 in one line of text",
         "icon_text_emoji.png",
         "Emoji are pictures in the text: with skin tones, flags, and families that are one picture of several parts.",
         showsAlert({"Party at eight 🎉",
                     "🍕 Pizza from the oven, 🎸 live music, and 🎂 for the birthday child. The whole family is welcome "
                     "👨‍👩‍👧‍👦, so are friends from 🇳🇱 🇯🇵 🇧🇷. Thumbs up if you come "
                     "👍🏽👍👍🏿",
                     "😢 No", "🥳 Yes"})},
    };
}

} // namespace zr::gallery
