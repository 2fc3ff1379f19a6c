#pragma once

#include <Gallery/Look/Row.h>
#include <ZRPlatform/UIKit/Views/UIImageView.h>

namespace zr::gallery {

/// One of several choices in a list, with a check mark when it is the chosen one.
class ChoiceRow : public Row {
public:
    bool initWithName_isLast(const NSString& name, bool isLast);

    /// Not at first.
    bool isChosen() const { return !m_mark->isHidden(); }
    void setChosen(bool chosen) { m_mark->setHidden(!chosen); }

private:
    Ref<UIImageView> m_mark;
};

} // namespace zr::gallery
