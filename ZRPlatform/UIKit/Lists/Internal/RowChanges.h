#pragma once

#include <ZRPlatform/Foundation/NSIndexPath.h>
#include <ZRPlatform/Foundation/NSIndexSet.h>
#include <ZRPlatform/Foundation/NSString.h>
#include <ZRPlatform/UIKit/Lists/UITableViewRowAnimation.h>

#include <map>
#include <optional>
#include <vector>

namespace zr {

/// Places taken out of a row of things and places put in; the others close up and make room, in their order.
class IndexShift {
public:
    /// Numbers before the change.
    void takeOut(NSInteger index) { m_out.push_back(index); }
    /// Numbers after it.
    void putIn(NSInteger index) { m_in.push_back(index); }
    /// To be called before anything is asked. False when a place is taken out twice or filled twice.
    bool sort();

    /// Where the thing is afterwards; none when it was taken out.
    std::optional<NSInteger> newIndex(NSInteger oldIndex) const { return shifted(oldIndex, m_out, m_in); }
    /// Where it was before; none when it was put in.
    std::optional<NSInteger> oldIndex(NSInteger newIndex) const { return shifted(newIndex, m_in, m_out); }
    NSInteger growth() const { return static_cast<NSInteger>(m_in.size()) - static_cast<NSInteger>(m_out.size()); }
    bool fits(NSInteger oldCount, NSInteger newCount) const;

private:
    using Indices = std::vector<NSInteger>;
    static std::optional<NSInteger> shifted(NSInteger index, const Indices& gone, const Indices& come);

    Indices m_out;
    Indices m_in;
};

/// What is inserted, deleted, moved and reloaded between two states of a list. What goes is named by its place before
/// all of the changes, what comes by its place after all of them, in whatever order they are told.
class RowChanges {
public:
    using Animation = UITableViewRowAnimation;
    using Counts = std::vector<NSInteger>;

    void insertRow(const NSIndexPath& path, Animation animation) { m_insertedRows.insert_or_assign(path, animation); }
    void deleteRow(const NSIndexPath& path, Animation animation) { m_deletedRows.insert_or_assign(path, animation); }
    void reloadRow(const NSIndexPath& path, Animation animation) { m_reloadedRows.insert_or_assign(path, animation); }
    void moveRow(const NSIndexPath& from, const NSIndexPath& to) { m_movedRows.emplace_back(from, to); }
    void insertSection(NSInteger section, Animation animation) {
        m_insertedSections.insert_or_assign(section, animation);
    }
    void deleteSection(NSInteger section, Animation animation) {
        m_deletedSections.insert_or_assign(section, animation);
    }
    void reloadSection(NSInteger section, Animation animation) {
        m_reloadedSections.insert_or_assign(section, animation);
    }
    void moveSection(NSInteger from, NSInteger to) { m_movedSections.emplace_back(from, to); }

    /// Whether everything that changes does so without an animation. Other heights and nothing else are animated.
    bool isAtOnce() const;
    /// To be called before anything below is asked, with the number of rows of each section before and after. What does
    /// not add up, in words; nil when all does, and only then the rest may be asked.
    NSString settle(const Counts& before, const Counts& after);

    /// Where the row is afterwards; nil when it was deleted, or its section was deleted or reloaded.
    NSIndexPath newPath(const NSIndexPath& oldPath) const;
    /// Where it was before; nil when it was inserted, or its section was inserted or reloaded.
    NSIndexPath oldPath(const NSIndexPath& newPath) const;
    /// None for one that was deleted; a reloaded one has its place.
    std::optional<NSInteger> newSection(NSInteger oldSection) const;
    std::optional<NSInteger> oldSection(NSInteger newSection) const;
    /// Both by their places before.
    bool isReloaded(const NSIndexPath& oldPath) const { return m_reloadedRows.contains(oldPath); }
    bool isReloaded(NSInteger oldSection) const { return m_reloadedSections.contains(oldSection); }
    /// How a row that is there no more or reloaded goes, by its place before, and how one that was not there or is
    /// reloaded comes, by its place after.
    Animation deletionAnimation(const NSIndexPath& oldPath) const;
    Animation insertionAnimation(const NSIndexPath& newPath) const;
    Animation sectionDeletionAnimation(NSInteger oldSection) const;
    Animation sectionInsertionAnimation(NSInteger newSection) const;

private:
    /// The changes of the rows that stay in one section, or of those of a section before and another one after.
    using RowShifts = std::map<NSInteger, IndexShift>;
    using RowAnimations = std::map<NSIndexPath, Animation>;
    using SectionAnimations = std::map<NSInteger, Animation>;

    NSString settleSections(NSInteger before, NSInteger after);
    NSString settleRows(const Counts& before, const Counts& after);
    NSString checkCounts(const Counts& before, const Counts& after) const;
    NSString takeRowOut(const NSIndexPath& path, const Counts& before);
    NSString putRowIn(const NSIndexPath& path, const Counts& after);
    /// The section keeps its rows, apart from those that are changed one by one.
    bool survives(NSInteger oldSection) const;
    const IndexShift& rowShift(NSInteger oldSection) const;

    RowAnimations m_insertedRows, m_deletedRows, m_reloadedRows;
    SectionAnimations m_insertedSections, m_deletedSections, m_reloadedSections;
    std::vector<std::pair<NSIndexPath, NSIndexPath>> m_movedRows;
    std::vector<std::pair<NSInteger, NSInteger>> m_movedSections;

    IndexShift m_sections;
    /// By the section's number before.
    RowShifts m_rows;
    std::map<NSIndexPath, NSIndexPath> m_movesFrom, m_movesTo;
    std::map<NSInteger, NSInteger> m_sectionMovesFrom, m_sectionMovesTo;
};

} // namespace zr
