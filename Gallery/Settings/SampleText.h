#pragma once

#include <ZRPlatform/Foundation/NSString.h>

namespace zr::gallery {

/// The texts that the pages show their components with, in one language after another.
namespace SampleText {

enum class Language { English, Chinese, Arabic, Emoji };
inline constexpr Language kLanguages[] = {Language::English, Language::Chinese, Language::Arabic, Language::Emoji};

/// More than a panel of the default size has room for.
inline constexpr const char* kLongMessage =
    "Every picture that you take is kept twice: on this phone, and in the safe at home, as soon as both are on the "
    "same "
    "network. Pictures that you delete here go to the album of deleted ones first, where they stay for thirty days. "
    "After that they are gone, here and at home. If you would rather keep them for ever, say so in the settings of the "
    "album. Albums that you share are counted for each of those who share them, so that a wedding with two hundred "
    "guests does not fill the safe of the bride.";

/// English at first. Pages that are open keep their texts.
Language language();
void setLanguage(Language language);
const char* name(Language language);

/// The text in the chosen language; as it is where it has not been translated. Null stays null.
const char* translated(const char* english);

} // namespace SampleText

} // namespace zr::gallery
