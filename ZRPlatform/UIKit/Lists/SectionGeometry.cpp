#include <ZRPlatform/UIKit/Lists/Internal/SectionGeometry.h>

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

namespace zr {

namespace {

constexpr CGFloat kTallest = 1'000'000;
constexpr CGFloat kLowestRow = 0.5;

} // namespace

CGFloat boundedHeight(CGFloat height) { return std::isfinite(height) ? std::clamp<CGFloat>(height, 0, kTallest) : 0; }

CGFloat boundedRowHeight(CGFloat height) { return height < kLowestRow ? 0 : boundedHeight(height); }

// One section's rows

RowHeights::RowHeights(NSInteger count, const std::function<CGFloat(NSInteger)>& heightOfRow) : m_count(count) {
    for (NSInteger row = 0; row < m_count; ++row) {
        const CGFloat height = heightOfRow(row);
        if (row == 0)
            m_height = height;
        if (m_ends.empty() && height == m_height)
            continue;
        try {
            while (std::ssize(m_ends) < row)
                m_ends.push_back(static_cast<CGFloat>(m_ends.size() + 1) * m_height);
            m_ends.push_back((row == 0 ? 0 : m_ends.back()) + height);
        } catch (const std::bad_alloc&) {
            m_count = std::ssize(m_ends);
        }
    }
}

CGFloat RowHeights::top(NSInteger row) const {
    if (m_ends.empty())
        return static_cast<CGFloat>(row) * m_height;
    return row == 0 ? 0 : m_ends[static_cast<std::size_t>(row - 1)];
}

NSInteger RowHeights::firstRowEndingBelow(CGFloat y) const {
    if (!m_ends.empty())
        return std::upper_bound(m_ends.begin(), m_ends.end(), y) - m_ends.begin();
    if (y >= total())
        return m_count;
    if (y < 0)
        return m_height > 0 ? 0 : m_count;
    auto row = std::min(static_cast<NSInteger>(y / m_height), m_count - 1);
    // The division may be off by one.
    while (row > 0 && top(row) > y)
        --row;
    while (row < m_count && top(row + 1) <= y)
        ++row;
    return row;
}

// The sections

void SectionGeometry::append(SectionHeights section) {
    const CGFloat top = m_ends.empty() ? 0 : m_ends.back();
    m_ends.push_back(top + section.header + section.rows.total() + section.footer);
    m_sections.push_back(std::move(section));
}

bool SectionGeometry::hasRow(const NSIndexPath& path) const {
    return hasSection(path.section()) && path.row() >= 0 && path.row() < numberOfRows(path.section());
}

Extent SectionGeometry::section(NSInteger section) const {
    const CGFloat top = sectionTop(section);
    return {top, m_top + m_ends[section] - top};
}

Extent SectionGeometry::header(NSInteger section) const { return {sectionTop(section), m_sections[section].header}; }

Extent SectionGeometry::rows(NSInteger section) const {
    return {header(section).bottom(), m_sections[section].rows.total()};
}

Extent SectionGeometry::row(const NSIndexPath& path) const {
    const RowHeights& heights = m_sections[path.section()].rows;
    return {header(path.section()).bottom() + heights.top(path.row()), heights.height(path.row())};
}

Extent SectionGeometry::footer(NSInteger section) const { return {rows(section).bottom(), m_sections[section].footer}; }

Extent SectionGeometry::stuckHeader(NSInteger section, CGFloat visibleTop) const {
    const Extent place = header(section);
    const CGFloat lowest = std::max(place.top, rows(section).bottom() - place.height);
    return {std::clamp(visibleTop, place.top, lowest), place.height};
}

Extent SectionGeometry::stuckFooter(NSInteger section, CGFloat visibleBottom) const {
    const Extent place = footer(section);
    const CGFloat highest = std::min(place.top, rows(section).top);
    return {std::clamp(visibleBottom - place.height, highest, place.top), place.height};
}

NSInteger SectionGeometry::firstSectionEndingBelow(CGFloat y) const {
    return std::upper_bound(m_ends.begin(), m_ends.end(), y - m_top) - m_ends.begin();
}

NSIndexPath SectionGeometry::rowAt(CGFloat y) const {
    const NSInteger section = firstSectionEndingBelow(y);
    if (!hasSection(section))
        return nullptr;
    const Extent all = rows(section);
    if (y < all.top || y >= all.bottom())
        return nullptr;
    const NSInteger row = m_sections[section].rows.firstRowEndingBelow(y - all.top);
    const NSIndexPath path = NSIndexPath::indexPathForRow_inSection(row, section);
    return hasRow(path) ? path : nullptr;
}

// Both go from each one that shows straight to the next that does: between them there may be millions without height.

std::vector<NSInteger> SectionGeometry::sectionsIn(Extent extent) const {
    std::vector<NSInteger> found;
    NSInteger section = firstSectionEndingBelow(extent.top);
    while (hasSection(section) && sectionTop(section) < extent.bottom()) {
        found.push_back(section);
        const auto next = std::upper_bound(m_ends.begin() + section, m_ends.end(), m_ends[section]);
        section = next - m_ends.begin();
    }
    return found;
}

std::vector<NSIndexPath> SectionGeometry::rowsIn(Extent extent) const {
    std::vector<NSIndexPath> found;
    for (const NSInteger section : sectionsIn(extent)) {
        const RowHeights& heights = m_sections[section].rows;
        const CGFloat top = header(section).bottom();
        NSInteger row = heights.firstRowEndingBelow(std::max<CGFloat>(extent.top - top, 0));
        while (row < heights.count() && top + heights.top(row) < extent.bottom()) {
            found.push_back(NSIndexPath::indexPathForRow_inSection(row, section));
            row = heights.firstRowEndingBelow(heights.top(row + 1));
        }
    }
    return found;
}

} // namespace zr
