#pragma once

#include <ZRPlatform/UIKit/Lists/Internal/Scroller.h>
#include <ZRPlatform/UIKit/Lists/UIScrollView.h>

namespace zr {

/// The delegate, if there is one, is kept while it is told.
template <class Message>
void Scroller::tell(Message message) {
    const Ref<NSObject> keep = m_view.m_delegate.object();
    if (UIScrollViewDelegate* delegate = m_view.delegate())
        message(delegate);
}

} // namespace zr
