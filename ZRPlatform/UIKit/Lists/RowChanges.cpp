#include <ZRPlatform/UIKit/Lists/Internal/RowChanges.h>

#include <algorithm>

namespace zr {

// One row of things

bool IndexShift::sort() {
    const auto sortOne = [](Indices& indices) {
        std::sort(indices.begin(), indices.end());
        return std::adjacent_find(indices.begin(), indices.end()) == indices.end();
    };
    const bool out = sortOne(m_out);
    return sortOne(m_in) && out;
}

/// The things that stay keep their order: the n-th of them fills the n-th place that nothing new has taken.
std::optional<NSInteger> IndexShift::shifted(NSInteger index, const Indices& gone, const Indices& come) {
    const auto place = std::lower_bound(gone.begin(), gone.end(), index);
    if (place != gone.end() && *place == index)
        return std::nullopt;
    const NSInteger order = index - (place - gone.begin());
    // Of the new ones, as many lie before it as have no more than `order` places between the start and themselves.
    NSInteger low = 0, high = static_cast<NSInteger>(come.size());
    while (low < high) {
        const NSInteger middle = (low + high) / 2;
        if (come[static_cast<std::size_t>(middle)] - middle <= order)
            low = middle + 1;
        else
            high = middle;
    }
    return order + low;
}

bool IndexShift::fits(NSInteger oldCount, NSInteger newCount) const {
    const auto lieWithin = [](const Indices& indices, NSInteger count) {
        return indices.empty() || (indices.front() >= 0 && indices.back() < count);
    };
    return lieWithin(m_out, oldCount) && lieWithin(m_in, newCount) && oldCount + growth() == newCount;
}

// A whole list

namespace {

template <class Key>
bool areAllAtOnce(const std::map<Key, UITableViewRowAnimation>& animations) {
    return std::all_of(animations.begin(), animations.end(),
                       [](const auto& entry) { return entry.second == UITableViewRowAnimationNone; });
}

template <class Key>
UITableViewRowAnimation find(const std::map<Key, UITableViewRowAnimation>& animations, const Key& key,
                             UITableViewRowAnimation otherwise = UITableViewRowAnimationFade) {
    const auto found = animations.find(key);
    return found == animations.end() ? otherwise : found->second;
}

bool contains(NSInteger section, const RowChanges::Counts& counts) {
    return section >= 0 && section < static_cast<NSInteger>(counts.size());
}

bool contains(const NSIndexPath& path, const RowChanges::Counts& counts) {
    return contains(path.section(), counts) && path.row() >= 0 &&
           path.row() < counts[static_cast<std::size_t>(path.section())];
}

NSString noSuchRow(const char* what, const NSIndexPath& path) {
    return NSString::stringWithFormat("there is no row %s to be %s", path.description().UTF8String(), what);
}

} // namespace

bool RowChanges::isAtOnce() const {
    const bool isEmpty = m_insertedRows.empty() && m_deletedRows.empty() && m_reloadedRows.empty() &&
                         m_insertedSections.empty() && m_deletedSections.empty() && m_reloadedSections.empty();
    return !isEmpty && m_movedRows.empty() && m_movedSections.empty() && areAllAtOnce(m_insertedRows) &&
           areAllAtOnce(m_deletedRows) && areAllAtOnce(m_reloadedRows) && areAllAtOnce(m_insertedSections) &&
           areAllAtOnce(m_deletedSections) && areAllAtOnce(m_reloadedSections);
}

NSString RowChanges::settle(const Counts& before, const Counts& after) {
    NSString problem = settleSections(static_cast<NSInteger>(before.size()), static_cast<NSInteger>(after.size()));
    if (problem.isNil())
        problem = settleRows(before, after);
    if (problem.isNil())
        problem = checkCounts(before, after);
    return problem;
}

NSString RowChanges::settleSections(NSInteger before, NSInteger after) {
    for (const auto& [section, animation] : m_deletedSections) {
        m_sections.takeOut(section);
        m_reloadedSections.erase(section);
    }
    for (const auto& [section, animation] : m_insertedSections)
        m_sections.putIn(section);
    for (const auto& [from, to] : m_movedSections) {
        m_sections.takeOut(from);
        m_sections.putIn(to);
        m_sectionMovesFrom[from] = to;
        m_sectionMovesTo[to] = from;
    }
    if (!m_sections.sort())
        return "a section is deleted or moved twice, or two come to one place";
    if (!m_sections.fits(before, after))
        return NSString::stringWithFormat(
            "there were %td sections, %+td by what is inserted and deleted, and there are %td", before,
            m_sections.growth(), after);
    for (const auto& [section, animation] : m_reloadedSections) {
        if (section < 0 || section >= before)
            return NSString::stringWithFormat("there is no section %td to be reloaded", section);
    }
    return nullptr;
}

NSString RowChanges::settleRows(const Counts& before, const Counts& after) {
    NSString problem;
    const auto note = [&problem](const NSString& found) {
        if (problem.isNil())
            problem = found;
    };
    for (const auto& [path, animation] : m_deletedRows) {
        note(takeRowOut(path, before));
        m_reloadedRows.erase(path);
    }
    for (const auto& [path, animation] : m_insertedRows)
        note(putRowIn(path, after));
    for (const auto& [from, to] : m_movedRows) {
        note(takeRowOut(from, before));
        note(putRowIn(to, after));
        m_movesFrom[from] = to;
        m_movesTo[to] = from;
    }
    for (const auto& [path, animation] : m_reloadedRows) {
        if (!contains(path, before))
            note(noSuchRow("reloaded", path));
    }
    for (auto& [section, shift] : m_rows) {
        if (!shift.sort())
            note(NSString::stringWithFormat("a row of section %td is deleted or moved twice, or two come to one place",
                                            section));
    }
    return problem;
}

/// Rows of a section that goes or is reloaded go with it, and need no change of their own.
NSString RowChanges::takeRowOut(const NSIndexPath& path, const Counts& before) {
    if (!contains(path, before))
        return noSuchRow("deleted or moved", path);
    if (survives(path.section()))
        m_rows[path.section()].takeOut(path.row());
    return nullptr;
}

NSString RowChanges::putRowIn(const NSIndexPath& path, const Counts& after) {
    if (!contains(path, after))
        return NSString::stringWithFormat("there is no place %s for a row", path.description().UTF8String());
    const auto old = oldSection(path.section());
    if (old && survives(*old))
        m_rows[*old].putIn(path.row());
    return nullptr;
}

NSString RowChanges::checkCounts(const Counts& before, const Counts& after) const {
    for (NSInteger section = 0; section < static_cast<NSInteger>(before.size()); ++section) {
        const auto now = newSection(section);
        if (!now || !survives(section))
            continue;
        const NSInteger oldCount = before[static_cast<std::size_t>(section)];
        const NSInteger newCount = after[static_cast<std::size_t>(*now)];
        const IndexShift& shift = rowShift(section);
        if (!shift.fits(oldCount, newCount))
            return NSString::stringWithFormat(
                "section %td had %td rows, %+td by what is inserted, deleted and moved, and has %td", *now, oldCount,
                shift.growth(), newCount);
    }
    return nullptr;
}

bool RowChanges::survives(NSInteger oldSection) const {
    return !m_deletedSections.contains(oldSection) && !m_reloadedSections.contains(oldSection);
}

const IndexShift& RowChanges::rowShift(NSInteger oldSection) const {
    static const IndexShift none;
    const auto found = m_rows.find(oldSection);
    return found == m_rows.end() ? none : found->second;
}

std::optional<NSInteger> RowChanges::newSection(NSInteger oldSection) const {
    const auto move = m_sectionMovesFrom.find(oldSection);
    return move == m_sectionMovesFrom.end() ? m_sections.newIndex(oldSection) : move->second;
}

std::optional<NSInteger> RowChanges::oldSection(NSInteger newSection) const {
    const auto move = m_sectionMovesTo.find(newSection);
    return move == m_sectionMovesTo.end() ? m_sections.oldIndex(newSection) : move->second;
}

NSIndexPath RowChanges::newPath(const NSIndexPath& oldPath) const {
    if (const auto move = m_movesFrom.find(oldPath); move != m_movesFrom.end())
        return move->second;
    const auto section = newSection(oldPath.section());
    if (!section || !survives(oldPath.section()))
        return nullptr;
    const auto row = rowShift(oldPath.section()).newIndex(oldPath.row());
    return row ? NSIndexPath::indexPathForRow_inSection(*row, *section) : nullptr;
}

NSIndexPath RowChanges::oldPath(const NSIndexPath& newPath) const {
    if (const auto move = m_movesTo.find(newPath); move != m_movesTo.end())
        return move->second;
    const auto section = oldSection(newPath.section());
    if (!section || !survives(*section))
        return nullptr;
    const auto row = rowShift(*section).oldIndex(newPath.row());
    return row ? NSIndexPath::indexPathForRow_inSection(*row, *section) : nullptr;
}

RowChanges::Animation RowChanges::deletionAnimation(const NSIndexPath& oldPath) const {
    return find(m_deletedRows, oldPath, find(m_reloadedRows, oldPath, sectionDeletionAnimation(oldPath.section())));
}

RowChanges::Animation RowChanges::insertionAnimation(const NSIndexPath& newPath) const {
    const NSIndexPath old = oldPath(newPath);
    return find(m_insertedRows, newPath, find(m_reloadedRows, old, sectionInsertionAnimation(newPath.section())));
}

RowChanges::Animation RowChanges::sectionDeletionAnimation(NSInteger oldSection) const {
    return find(m_deletedSections, oldSection, find(m_reloadedSections, oldSection));
}

RowChanges::Animation RowChanges::sectionInsertionAnimation(NSInteger newSection) const {
    const auto old = oldSection(newSection);
    return old ? find(m_reloadedSections, *old) : find(m_insertedSections, newSection);
}

} // namespace zr
