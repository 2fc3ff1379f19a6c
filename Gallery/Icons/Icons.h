#pragma once

#include <Gallery/Icons/Pen.h>

#include <span>
#include <vector>

namespace zr::icons {

/// A picture of the gallery: its file name without scale and extension, its size in points, and how it is drawn.
struct Icon {
    const char* name;
    double width, height;
    void (*draw)(Pen& pen);
};

std::vector<Icon> allIcons();

/// Those of one source file each.
std::span<const Icon> overlayIcons();
std::span<const Icon> hudIcons();
std::span<const Icon> controlIcons();
std::span<const Icon> imageIcons();
std::span<const Icon> screenIcons();
std::span<const Icon> listIcons();

} // namespace zr::icons
