#include <Gallery/Settings/SampleText.h>

#include <algorithm>
#include <string_view>

namespace zr::gallery::SampleText {

namespace {

/// One text in each language, in their order.
using Text = const char * [std::size(kLanguages)];

constexpr Text kTexts[] = {
    {"Delete photo?", "要删除照片吗？", "حذف الصورة؟", "🗑️ 🖼️ ?"},
    {"It will be removed from all of your devices.", "照片将从您的所有设备中移除。", "ستتم إزالتها من جميع أجهزتك.",
     "📱💻⌚️ ➡️ 🚮"},
    {"Cancel", "取消", "إلغاء", "🙅"},
    {"Delete", "删除", "حذف", "🗑️"},
    {"Connection lost", "连接已断开", "انقطع الاتصال", "📡💔"},
    {"The server did not answer within ten seconds.", "服务器在十秒钟内没有应答。", "لم يستجب الخادم خلال عشر ثوانٍ.",
     "🖥️ 🤐 🔟⏱️"},
    {"Close", "关闭", "إغلاق", "❌"},
    {"Try again", "重试", "أعد المحاولة", "🔁"},
    {"Remove from list?", "要从列表中移除吗？", "إزالة من القائمة؟", "📋➖ ?"},
    {"The file itself stays where it is.", "文件本身会留在原处。", "يبقى الملف في مكانه.", "📄👍"},
    {"Remove", "移除", "إزالة", "➖"},
    {"Do not ask again", "不再询问", "لا تسأل مجددًا", "🔕"},
    {"Did you know?", "您知道吗？", "هل تعلم؟", "💡?"},
    {"A long press opens an album.", "长按即可打开相簿。", "ضغطة مطوّلة تفتح الألبوم.", "👇⏳ ➡️ 📂"},
    {"Next tip", "下一条提示", "نصيحة أخرى", "💡➡️"},
    {"Contacts exported", "通讯录已导出", "تم تصدير جهات الاتصال", "📇✅"},
    {"Exporting contacts", "正在导出通讯录", "جارٍ تصدير جهات الاتصال", "📇📤"},
    {"Edit", "编辑", "تعديل", "✏️"},
    {"Done", "完成", "تم", "✅"},
};

Language currentLanguage = Language::English;

} // namespace

Language language() { return currentLanguage; }

void setLanguage(Language language) { currentLanguage = language; }

const char* name(Language language) {
    constexpr Text names = {"English", "中文", "العربية", "Emoji 🎉"};
    return names[static_cast<int>(language)];
}

const char* translated(const char* english) {
    if (!english)
        return nullptr;
    const auto* text = std::find_if(std::begin(kTexts), std::end(kTexts),
                                    [&](const Text& candidate) { return std::string_view(candidate[0]) == english; });
    return text == std::end(kTexts) ? english : (*text)[static_cast<int>(currentLanguage)];
}

} // namespace zr::gallery::SampleText
