#pragma once

#include <ZRPlatform/UIKit/Events/UITouch.h>
#include <ZRPlatform/UIKit/Lists/Internal/RowChanges.h>

#include <set>

namespace zr {

/// Which rows are selected, and which one a finger is on.
class RowSelection {
public:
    const std::set<NSIndexPath>& rows() const { return m_rows; }
    bool contains(const NSIndexPath& path) const { return m_rows.contains(path); }
    void insert(const NSIndexPath& path) { m_rows.insert(path); }
    void erase(const NSIndexPath& path) { m_rows.erase(path); }

    /// The row that is highlighted; nil when none is.
    const NSIndexPath& touchedRow() const { return m_touchedRow; }
    bool follows(const UITouch* touch) const { return !m_touchedRow.isNil() && m_touch.get() == touch; }
    bool hasTouch() const { return !m_touchedRow.isNil() && m_touch.get(); }
    void beginTouch(UITouch* touch, const NSIndexPath& path) {
        m_touch = touch;
        m_touchedRow = path;
    }
    void endTouch() {
        m_touch = nullptr;
        m_touchedRow = nullptr;
    }

    /// A row that is deleted or reloaded can be touched no more.
    bool losesTouch(const RowChanges& changes) const {
        return !m_touchedRow.isNil() && (changes.isReloaded(m_touchedRow) || changes.newPath(m_touchedRow).isNil());
    }
    /// Rows keep their selection, and the finger, where they go.
    void follow(const RowChanges& changes) {
        std::set<NSIndexPath> moved;
        for (const NSIndexPath& path : m_rows) {
            if (const NSIndexPath now = changes.newPath(path); !now.isNil())
                moved.insert(now);
        }
        m_rows = std::move(moved);
        if (!m_touchedRow.isNil())
            m_touchedRow = changes.newPath(m_touchedRow);
    }
    /// A finger loses its row as the cell goes.
    void clear() { m_rows.clear(); }

private:
    std::set<NSIndexPath> m_rows;
    Weak<UITouch> m_touch;
    NSIndexPath m_touchedRow;
};

} // namespace zr
