#pragma once

#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/Foundation/NSTypes.h>

#include <compare>
#include <ostream>

#pragma GCC visibility push(default)
namespace zr {

/// Where a row of a list is: its section, and its number in it, both counted from 0. An immutable value that can be
/// nil.
class NSIndexPath {
public:
    NSIndexPath() = default;
    /// Nil.
    NSIndexPath(std::nullptr_t) {}
    /// Numbers are taken as they are: whether there is such a row is the list's business.
    static NSIndexPath indexPathForRow_inSection(NSInteger row, NSInteger section) {
        NSIndexPath path;
        path.m_section = section;
        path.m_row = row;
        return path;
    }

    /// Whether it is no place in a list: what a path is until it is made for a row.
    bool isNil() const { return m_section == NSNotFound; }
    /// The section's number, `NSNotFound` for nil.
    NSInteger section() const { return m_section; }
    /// The row's number in its section, `NSNotFound` for nil.
    NSInteger row() const { return m_row; }

    /// By section, then by row; nil comes last.
    NSComparisonResult compare(const NSIndexPath& other) const {
        return *this < other ? NSOrderedAscending : other < *this ? NSOrderedDescending : NSOrderedSame;
    }
    friend bool operator==(const NSIndexPath&, const NSIndexPath&) = default;
    friend auto operator<=>(const NSIndexPath&, const NSIndexPath&) = default;
    /// "{2, 7}" for row 7 of section 2; "nil".
    NSString description() const;
    friend std::ostream& operator<<(std::ostream& stream, const NSIndexPath& path) {
        return stream << path.description();
    }

private:
    NSInteger m_section = NSNotFound;
    NSInteger m_row = NSNotFound;
};

} // namespace zr
#pragma GCC visibility pop

template <>
struct std::hash<zr::NSIndexPath> {
    std::size_t operator()(const zr::NSIndexPath& path) const noexcept {
        return std::hash<zr::NSInteger>()(path.section()) * 31 + std::hash<zr::NSInteger>()(path.row());
    }
};
