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

/// All pictures, made small, in rows of seven, each with its title and its name below it. A picture of another
/// shape than the first one lies in the middle of its place. `scale`: the sheet's pixels a point, of
/// which there are two at most.
/// Nil without entries.
Ref<CGImage> drawContactSheet(const std::vector<ContactSheetEntry>& entries, CGFloat scale);

/// The pictures in a row, each made 225 x 400 points, a pixel a point. Nil without pictures.
Ref<CGImage> drawSideBySide(const std::vector<Ref<CGImage>>& pictures);

} // namespace zr::gallery
