#pragma once

#include <Gallery/Icons/Pen.h>

#include <vector>

namespace zr::icons {

/// A picture of the gallery: its file name without scale and extension, its size in points, and how it is drawn.
struct Icon {
    const char* name;
    double width, height;
    void (*draw)(Pen& pen);
};

std::vector<Icon> allIcons();

} // namespace zr::icons
