#pragma once

#include <ZRPlatform/Foundation/NSString.h>

namespace zr::gallery {

/// The texts that the pages show their components with, in one language after another.
namespace SampleText {

enum class Language { English, Chinese, Arabic, Emoji };
inline constexpr Language kLanguages[] = {Language::English, Language::Chinese, Language::Arabic, Language::Emoji};

/// English at first. Pages that are open keep their texts.
Language language();
void setLanguage(Language language);
const char* name(Language language);

/// The text in the chosen language; as it is where it has not been translated. Null stays null.
const char* translated(const char* english);

} // namespace SampleText

} // namespace zr::gallery
