#pragma once

#include <Gallery/Look/Row.h>
#include <Gallery/Pages/Page.h>

namespace zr::gallery {

/// One line of the list: icon, title, detail, an arrow, and the hairline to the next row. Grey while pressed.
class PageRow : public Row {
public:
    bool initWithPage_isLast(const Page& page, bool isLast);
};

} // namespace zr::gallery
