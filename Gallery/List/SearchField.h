#pragma once

#include <ZRPlatform/UIKit/Controls/UITextField.h>

namespace zr::gallery {

/// A white field with a magnifying glass, for words to look for. While there are any it shows a button that clears
/// them; the return key ends editing.
class SearchField : public UITextField, public UITextFieldDelegate {
public:
    bool initWithFrame(CGRect frame) override;

    /// Called with the words after each change that the user makes.
    void setSearchAction(std::function<void(const NSString& words)> action) { m_searchAction = std::move(action); }

    CGRect leftViewRectForBounds(CGRect bounds) const override;
    bool textFieldShouldReturn(UITextField* field) override;

private:
    void wordsChanged();

    std::function<void(const NSString&)> m_searchAction;
};

} // namespace zr::gallery
