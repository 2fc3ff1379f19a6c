#pragma once

#include <set>
#include <string>
#include <string_view>

namespace zr::gallery {

/// C++ with a blank for every byte of a comment, of a directive and of what stands between quotation marks, and with
/// all lines where they were. Raw strings are not known.
std::string codeOnly(std::string_view text);

/// All words of such code that may be names, keywords too.
std::set<std::string> identifiersOf(std::string_view code);

/// The name that a declaration declares; of a member defined outside of its class, the name of the class. Empty when
/// there is none. The code begins with the declaration.
std::string declaredName(std::string_view code);

} // namespace zr::gallery
