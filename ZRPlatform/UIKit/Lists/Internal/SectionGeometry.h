#pragma once

#include <ZRPlatform/CoreGraphics/CGGeometry.h>
#include <ZRPlatform/Foundation/NSIndexPath.h>

#include <functional>
#include <vector>

namespace zr {

/// A height that a list can cope with: a million points at the most, and 0 for numbers that are negative or none.
CGFloat boundedHeight(CGFloat height);
/// The same for rows and for what heads and ends a section, which there may be millions of: less than half a point, a
/// pixel, is 0.
CGFloat boundedRowHeight(CGFloat height);

/// From a y coordinate downwards, in points.
struct Extent {
    CGFloat top = 0;
    CGFloat height = 0;

    CGFloat bottom() const { return top + height; }
    friend bool operator==(const Extent&, const Extent&) = default;
};

/// The heights of one section's rows. Equal ones take no memory, others 8 bytes a row: where each row ends. Rows
/// without height are there, and are never seen.
class RowHeights {
public:
    RowHeights() = default;
    RowHeights(NSInteger count, CGFloat height) : m_count(count), m_height(height) {}
    /// Asks for each height once, in order. Ends with the last row that there is memory for.
    RowHeights(NSInteger count, const std::function<CGFloat(NSInteger row)>& heightOfRow);

    NSInteger count() const { return m_count; }
    CGFloat total() const { return top(m_count); }
    /// Relative to the first row's top. `row` may be the number behind the last one's.
    CGFloat top(NSInteger row) const;
    CGFloat height(NSInteger row) const { return top(row + 1) - top(row); }
    /// The first row whose bottom lies below `y`; `count` when there is none.
    NSInteger firstRowEndingBelow(CGFloat y) const;

private:
    NSInteger m_count = 0;
    /// Of each row, as long as there are no ends.
    CGFloat m_height = 0;
    std::vector<CGFloat> m_ends;
};

/// One section: header, rows, footer.
struct SectionHeights {
    CGFloat header = 0;
    CGFloat footer = 0;
    RowHeights rows;
};

/// Where everything in a list is. Sections follow one another; numbers are not checked, so they must be those of
/// sections and rows there are.
class SectionGeometry {
public:
    /// An empty list that begins at `top`.
    explicit SectionGeometry(CGFloat top = 0) : m_top(top) {}

    void append(SectionHeights section);
    /// The sections stay as they are and follow one another from `top`.
    void moveTo(CGFloat top) { m_top = top; }

    NSInteger numberOfSections() const { return static_cast<NSInteger>(m_sections.size()); }
    NSInteger numberOfRows(NSInteger section) const { return m_sections[section].rows.count(); }
    bool hasSection(NSInteger section) const { return section >= 0 && section < numberOfSections(); }
    bool hasRow(const NSIndexPath& path) const;

    /// The whole list.
    Extent all() const { return {m_top, m_ends.empty() ? 0 : m_ends.back()}; }
    Extent section(NSInteger section) const;
    Extent header(NSInteger section) const;
    /// All rows of the section.
    Extent rows(NSInteger section) const;
    Extent row(const NSIndexPath& path) const;
    Extent footer(NSInteger section) const;
    /// The header, held at `visibleTop` for as long as rows of its section are below that.
    Extent stuckHeader(NSInteger section, CGFloat visibleTop) const;
    /// The footer, held at `visibleBottom` for as long as rows of its section are above that.
    Extent stuckFooter(NSInteger section, CGFloat visibleBottom) const;

    /// Nil between the rows, above them and below.
    NSIndexPath rowAt(CGFloat y) const;
    /// Those that have height and lie in the extent, at least in part, in order.
    std::vector<NSIndexPath> rowsIn(Extent extent) const;
    std::vector<NSInteger> sectionsIn(Extent extent) const;

private:
    NSInteger firstSectionEndingBelow(CGFloat y) const;
    CGFloat sectionTop(NSInteger section) const { return m_top + (section == 0 ? 0 : m_ends[section - 1]); }

    CGFloat m_top;
    std::vector<SectionHeights> m_sections;
    /// Relative to the top.
    std::vector<CGFloat> m_ends;
};

} // namespace zr
