#pragma once

#include <Tests/ZRPlatform/UIKit/Controls/ControlTesting.h>

#include <ZRPlatform/UIKit/Controls/UITextField.h>
#include <ZRPlatform/UIKit/Text/TextEngine.h>

#include <string>
#include <vector>

namespace zr::tests {

/// Writes down what a field says, and answers as told.
class FieldLog : public NSObject, public UITextFieldDelegate {
public:
    bool textFieldShouldBeginEditing(UITextField*) override { return note("should begin", mayBegin); }
    void textFieldDidBeginEditing(UITextField*) override { log.push_back("did begin"); }
    bool textFieldShouldEndEditing(UITextField*) override { return note("should end", mayEnd); }
    void textFieldDidEndEditing(UITextField*) override { log.push_back("did end"); }
    bool textField_shouldChangeCharactersInRange_replacementString(UITextField*, NSRange range,
                                                                   const NSString& text) override {
        return note(std::to_string(range.location) + "+" + std::to_string(range.length) + " " + text.utf8(), mayChange);
    }
    bool textFieldShouldClear(UITextField*) override { return note("should clear", mayClear); }
    bool textFieldShouldReturn(UITextField*) override { return note("should return", mayReturn); }

    void begin() { log.push_back("begin"); }
    void changed() { log.push_back("changed"); }
    void end() { log.push_back("end"); }
    void exit() { log.push_back("exit"); }

    void listenTo(UITextField* field) {
        field->setDelegate(this);
        field->addTarget_action_forControlEvents(this, selector<&FieldLog::begin>, UIControlEventEditingDidBegin);
        field->addTarget_action_forControlEvents(this, selector<&FieldLog::changed>, UIControlEventEditingChanged);
        field->addTarget_action_forControlEvents(this, selector<&FieldLog::end>, UIControlEventEditingDidEnd);
    }
    std::vector<std::string> takeLog() { return std::exchange(log, {}); }

    bool mayBegin = true, mayEnd = true, mayChange = true, mayClear = true, mayReturn = true;
    std::vector<std::string> log;

private:
    bool note(const std::string& message, bool answer) {
        log.push_back(message);
        return answer;
    }
};

using Log = std::vector<std::string>;

/// A rounded field 200 points wide at (10, 10), of a plain font: a capital H is as wide as every other.
class FieldOnScreen : public OnScreen {
protected:
    FieldOnScreen() {
        field = place(make<UITextField>(&UIView::initWithFrame, CGRectZero), CGRectMake(10, 10, 200, 30));
        field->setBorderStyle(UITextBorderStyleRoundedRect);
    }

    void edit(const NSString& text) {
        field->setText(text);
        field->becomeFirstResponder();
    }
    /// The window's point over the character boundary `index` of a text of capital Hs.
    CGPoint above(int index) const {
        const CGFloat letter = letterWidth();
        return {10 + 7 + letter * index, 25};
    }
    CGFloat letterWidth() const { return TextEngine::current().layout({"H", field->font()})->size().width; }
    int pixelsOf(FramePixel colour, CGRect rect) {
        const Ref<CGImage> frame = host.snapshot();
        int count = 0;
        for (auto y = static_cast<NSUInteger>(rect.origin.y * 2); y < (rect.origin.y + rect.size.height) * 2; ++y) {
            for (auto x = static_cast<NSUInteger>(rect.origin.x * 2); x < (rect.origin.x + rect.size.width) * 2; ++x) {
                const Pixel pixel = pixelOf(frame.get(), x, y);
                count += pixel.red == colour.red && pixel.green == colour.green && pixel.blue == colour.blue ? 1 : 0;
            }
        }
        return count;
    }

    Ref<UITextField> field;
};

} // namespace zr::tests
