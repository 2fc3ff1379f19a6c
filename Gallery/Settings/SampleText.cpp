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
    {"A double tap opens an album.", "轻点两下即可打开相簿。", "نقرتان متتاليتان تفتحان الألبوم.",
     "👆👆 ➡️ 📂"},
    {"Next tip", "下一条提示", "نصيحة أخرى", "💡➡️"},
    {"Downloading", "正在下载", "جارٍ التنزيل", "📥"},
    {"Mountains.zip", "群山.zip", "الجبال.zip", "🏔️📦"},
    {"of 24 MB", "（共 24 MB）", "من 24 ميغابايت", "➗ 💾"},
    {"Stop", "停止", "إيقاف", "🛑"},
    {"Synchronizing", "正在同步", "جارٍ المزامنة", "🔄"},
    {"Your notes are being compared.", "正在比对您的笔记。", "تجري مقارنة ملاحظاتك.", "📝 🔍 📝"},
    {"Please wait", "请稍候", "يُرجى الانتظار", "⏳"},
    {"Rename album", "重命名相簿", "إعادة تسمية الألبوم", "📒✏️"},
    {"Everybody who shares it sees the new name.", "共享此相簿的每个人都会看到新名称。",
     "كل من يشاركك الألبوم يرى الاسم الجديد.", "👥 👀 🏷️🆕"},
    {"Rename", "重命名", "تسمية", "✏️"},
    {"Name", "名称", "الاسم", "🏷️"},
    {"Unlock notes", "解锁笔记", "فتح الملاحظات", "🔓📝"},
    {"Enter the password of this notebook.", "请输入此笔记本的密码。", "أدخل كلمة مرور هذا الدفتر.",
     "⌨️ 🔑 📓"},
    {"Unlock", "解锁", "فتح", "🔓"},
    {"Password", "密码", "كلمة المرور", "🔑"},
    {"Backup finished", "备份完成", "اكتمل النسخ الاحتياطي", "💾✅"},
    {"214 photos were copied.", "已复制 214 张照片。", "تم نسخ 214 صورة.", "2️⃣1️⃣4️⃣ 🖼️ ➡️ 💾"},
    {"OK", "好", "حسنًا", "👌"},
    {"Leave without saving?", "不保存就离开吗？", "المغادرة دون حفظ؟", "🚪🚫💾 ?"},
    {"Your last changes will be lost.", "您最近的更改将会丢失。", "ستفقد آخر تغييراتك.", "✏️ ➡️ 💨"},
    {"Stay", "留下", "بقاء", "🪑"},
    {"Leave", "离开", "مغادرة", "🚪"},
    {"One moment", "请稍等", "لحظة من فضلك", "☝️⏱️"},
    {"Looking for printers", "正在查找打印机", "جارٍ البحث عن طابعات", "🔍🖨️"},
    {"Reload map?", "要重新载入地图吗？", "إعادة تحميل الخريطة؟", "🗺️🔁 ?"},
    {"Only this view waits for the answer.", "只有此视图在等待答复。", "هذا العرض وحده ينتظر الجواب.",
     "🖼️ ⏳ 💬"},
    {"Later", "以后", "لاحقًا", "🕓"},
    {"Reload", "重新载入", "تحميل", "🔁"},
    {"Storage almost full", "储存空间将满", "أوشكت المساحة على الامتلاء", "💾🈵"},
    {"Less than one gigabyte is left on this phone.", "此手机的可用空间不足 1 GB。",
     "بقي أقل من غيغابايت واحد على هذا الهاتف.", "📱 ⬇️ 1️⃣ 💾"},
    {"Tidy up", "清理", "تنظيف", "🧹"},
    {"Pictures are sent as soon as there is a network.", "一有网络便会发送照片。", "تُرسَل الصور فور توفّر شبكة.",
     "🖼️ ➡️ 📶"},
    {"Welcome back", "欢迎回来", "مرحبًا بعودتك", "👋😀"},
    {"Start", "开始", "ابدأ", "▶️"},
    {"How your pictures are kept", "照片如何保存", "كيف تُحفظ صورك", "🖼️🔒"},
    {kLongMessage,
     "您拍摄的每张照片都会保存两份：一份在此手机上，一份在家中的保险箱里，只要两者处于同一网络。"
     "您在这里删除的照片会先进入“最近删除”相簿，保留三十天，之后在这里和家中都会消失。"
     "如果您想永久保留它们，请在相簿的设置中说明。共享的相簿会计入每一位共享者的空间，"
     "这样，一场有两百位宾客的婚礼就不会占满新娘的保险箱。",
     "تُحفظ كل صورة تلتقطها مرتين: على هذا الهاتف، وفي الخزنة في المنزل، ما إن يكونا على الشبكة نفسها. "
     "وتذهب الصور التي تحذفها هنا أولًا إلى ألبوم المحذوفات، حيث تبقى ثلاثين يومًا، ثم تزول هنا وفي المنزل. "
     "إن كنت تفضّل الاحتفاظ بها دائمًا، فاذكر ذلك في إعدادات الألبوم. "
     "وتُحسب الألبومات المشتركة على كل من يشارك فيها، كي لا يملأ عرس بمئتي ضيف خزنة العروس.",
     "📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 "
     "👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉 "
     "📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 📷 📱 🏠 🔒 📶 "
     "👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉 👰 🤵 🎂 👥 🎉"},
    {"More", "更多", "المزيد", "➕"},
    {"Copied to the album of last summer", "已拷贝到去年夏天的相簿", "نُسخت إلى ألبوم الصيف الماضي",
     "📋 ➡️ 📒☀️"},
    {"Contacts exported", "通讯录已导出", "تم تصدير جهات الاتصال", "📇✅"},
    {"Exporting contacts", "正在导出通讯录", "جارٍ تصدير جهات الاتصال", "📇📤"},
    {"Flag", "旗标", "علامة", "🚩"},
    {"Nothing", "无操作", "لا شيء", "🚫"},
    {"Edit", "编辑", "تعديل", "✏️"},
    {"Done", "完成", "تم", "✅"},
    {"Saving", "正在保存", "جارٍ الحفظ", "💾"},
    {"Signing in", "正在登录", "جارٍ تسجيل الدخول", "🔑🚪"},
    {"Loading", "正在载入", "جارٍ التحميل", "⏳"},
    {"Uploading", "正在上传", "جارٍ الرفع", "📤"},
    {"Copying", "正在拷贝", "جارٍ النسخ", "📄📄"},
    {"Charging", "正在充电", "جارٍ الشحن", "🔋"},
    {"Saved to the album", "已存入相簿", "حُفظت في الألبوم", "📒✅"},
    {"Sorting pictures", "正在整理照片", "جارٍ ترتيب الصور", "🖼️🗂️"},
    {"Cleaning up", "正在清理", "جارٍ التنظيف", "🧹"},
    {"Removing 214 pictures that are in more than one of your albums", "正在移除同时存放在多个相簿中的 214 张照片",
     "تجري إزالة 214 صورة موجودة في أكثر من ألبوم واحد", "🗑️ 🖼️ × 214 📒📒"},
    {"Printing", "正在打印", "جارٍ الطباعة", "🖨️"},
    {"Page 3 of 12, on both sides", "第 3 页，共 12 页，双面", "الصفحة 3 من 12، على الوجهين", "📄 3 / 12"},
    {"Watering", "正在浇水", "جارٍ السقي", "🚿"},
    {"Two more rows of tulips", "还有两行郁金香", "بقي صفّان من الزنبق", "🌷🌷"},
    {"Listening", "正在聆听", "جارٍ الاستماع", "👂"},
    {"Closing the accounts", "正在结账", "جارٍ إقفال الحسابات", "📚🔒"},
    {"Searching", "正在查找", "جارٍ البحث", "🔍"},
    {"Comparing", "正在比对", "تجري المقارنة", "⚖️"},
    {"Getting ready", "正在准备", "جارٍ التحضير", "🏁"},
    {"below", "个小于", "أصغر من", "<"},
    {"Counting primes", "正在数质数", "جارٍ عدّ الأعداد الأولية", "🔢"},
    {"How do you like it?", "您喜欢吗？", "هل أعجبك؟", "🤔⭐?"},
    {"Not now", "以后再说", "ليس الآن", "🙅"},
    {"Send", "发送", "إرسال", "📤"},
    {"Every picture is kept twice: on this phone, and at home as soon as there is a network.",
     "每张照片都会保存两份：一份在此手机上，一有网络便会在家中也保存一份。",
     "تُحفظ كل صورة مرتين: على هذا الهاتف، وفي المنزل حالما تتوفر شبكة.", "🖼️ ➡️ 📱 ➕ 🏠 📶"},
    {"Green", "绿色", "أخضر", "💚"},
    {"Red", "红色", "أحمر", "❤️"},
    {"Orange", "橙色", "برتقالي", "🧡"},
    {"Follow", "关注", "متابعة", "➕"},
    {"Following", "已关注", "تتم المتابعة", "☑️"},
    {"Carla Rossi", "卡拉·罗西", "كارلا روسي", "👩🏽"},
    {"Last summer", "去年夏天", "الصيف الماضي", "☀️🏖️"},
    {"Mountains", "山", "الجبال", "🏔️"},
    {"Cats", "猫", "القطط", "🐈"},
    {"Receipts", "收据", "الإيصالات", "🧾"},
    {"214 photos", "214 张照片", "214 صورة", "🖼️ × 214"},
    {"38 photos", "38 张照片", "38 صورة", "🖼️ × 38"},
    {"1,027 photos", "1,027 张照片", "1027 صورة", "🖼️ × 1027"},
    {"9 photos", "9 张照片", "9 صور", "🖼️ × 9"},
    {"Pinned", "已置顶", "مثبّت", "📌"},
    {"Not pinned", "未置顶", "غير مثبّت", "➖"},
    {"Softly", "缓缓", "بهدوء", "🐢"},
    {"At once", "立即", "فورًا", "⚡"},
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
