#pragma once

#include <ZRPlatform/CoreGraphics/CGImage.h>
#include <ZRPlatform/Foundation/NSString.h>

#include <string>
#include <vector>

namespace zr::gallery {

struct ContactSheetEntry {
    NSString title;
    std::string name;
    Ref<CGImage> picture;
};

/// All pictures, made small, in rows of six, each with its title and its name below it. The pictures are of one size.
/// Nil without entries.
Ref<CGImage> drawContactSheet(const std::vector<ContactSheetEntry>& entries);

} // namespace zr::gallery
