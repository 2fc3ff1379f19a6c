#include <Tests/ZRPlatform/UIKit/Controls/TextFieldTesting.h>

#include <cmath>

namespace zr {
namespace {

using namespace tests;

class UITextFieldEditing : public FieldOnScreen {
protected:
    UITextFieldEditing() { log->listenTo(field); }

    void editQuietly(const NSString& text) {
        edit(text);
        log->log.clear();
    }

    Ref<FieldLog> log = make<FieldLog>();
};

TEST_F(UITextFieldEditing, ATapBeginsEditingWhereTheFingerLifts) {
    field->setText("HHHH");
    host.tap(above(2));
    EXPECT_TRUE(field->isFirstResponder());
    EXPECT_TRUE(field->isEditing());
    EXPECT_EQ(field->selectedRange(), NSMakeRange(2, 0));
    EXPECT_EQ(log->takeLog(), (Log{"should begin", "begin", "did begin"}));
}

TEST_F(UITextFieldEditing, ADelegateMayRefuseToBeginAndToEnd) {
    log->mayBegin = false;
    EXPECT_FALSE(field->becomeFirstResponder());
    EXPECT_FALSE(field->isEditing());
    log->mayBegin = true;
    EXPECT_TRUE(field->becomeFirstResponder());
    log->mayEnd = false;
    EXPECT_FALSE(field->resignFirstResponder());
    EXPECT_TRUE(field->isEditing());
    log->mayEnd = true;
    log->log.clear();
    EXPECT_TRUE(field->resignFirstResponder());
    EXPECT_EQ(log->takeLog(), (Log{"should end", "end", "did end"}));
}

TEST_F(UITextFieldEditing, LeavingTheScreenEndsEditing) {
    editQuietly("x");
    log->mayEnd = false;
    field->removeFromSuperview();
    EXPECT_FALSE(field->isEditing());
    EXPECT_EQ(log->log.back(), "did end");
    EXPECT_FALSE(host.isTextInputActive());
}

TEST_F(UITextFieldEditing, ADisabledFieldIsNotEdited) {
    field->setEnabled(false);
    host.tap(above(0));
    EXPECT_FALSE(field->isEditing());
    field->setEnabled(true);
    EXPECT_TRUE(field->becomeFirstResponder());
    field->setEnabled(false);
    EXPECT_FALSE(field->isEditing());
}

TEST_F(UITextFieldEditing, TypingInsertsAtTheCaretAndTells) {
    editQuietly("ac");
    field->setSelectedRange({1, 0});
    host.typeText("b");
    EXPECT_EQ(field->text(), "abc");
    EXPECT_EQ(field->selectedRange(), NSMakeRange(2, 0));
    EXPECT_EQ(log->takeLog(), (Log{"1+0 b", "changed"}));
}

TEST_F(UITextFieldEditing, TypingReplacesTheSelection) {
    editQuietly("one two");
    field->setSelectedRange({0, 3});
    host.typeText("1");
    EXPECT_EQ(field->text(), "1 two");
    EXPECT_EQ(log->takeLog().front(), "0+3 1");
}

TEST_F(UITextFieldEditing, ADelegateMayRefuseAChange) {
    editQuietly("abc");
    log->mayChange = false;
    host.typeText("d");
    host.pressKey(UIKey::Backspace);
    EXPECT_EQ(field->text(), "abc");
    EXPECT_EQ(log->takeLog(), (Log{"3+0 d", "2+1 "}));
}

TEST_F(UITextFieldEditing, SettingTheTextSendsNoEventAndPutsTheCaretAtItsEnd) {
    editQuietly("abc");
    field->setText("longer text");
    EXPECT_TRUE(log->log.empty());
    EXPECT_EQ(field->selectedRange(), NSMakeRange(11, 0));
}

TEST_F(UITextFieldEditing, BackspaceAndDeleteTakeWholeCharacters) {
    editQuietly("a👨‍👩‍👧e\u0301");
    host.pressKey(UIKey::Backspace);
    EXPECT_EQ(field->text(), "a👨‍👩‍👧");
    host.pressKey(UIKey::Backspace);
    EXPECT_EQ(field->text(), "a");
    field->setText("👍🏽b");
    host.pressKey(UIKey::Home);
    host.pressKey(UIKey::Delete);
    EXPECT_EQ(field->text(), "b");
    host.pressKey(UIKey::Home);
    log->log.clear();
    host.pressKey(UIKey::Backspace);
    EXPECT_TRUE(log->log.empty());
}

TEST_F(UITextFieldEditing, ArrowsMoveByCharactersAndWords) {
    editQuietly("one 👍🏽 three");
    host.pressKey(UIKey::Home);
    host.pressKey(UIKey::Right);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(1, 0));
    host.pressKey(UIKey::Right, UIKeyModifierControl);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(3, 0));
    host.pressKey(UIKey::Right);
    host.pressKey(UIKey::Right);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(8, 0));
    host.pressKey(UIKey::Left);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(4, 0));
    host.pressKey(UIKey::End);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(14, 0));
    host.pressKey(UIKey::Left, UIKeyModifierControl);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(9, 0));
}

TEST_F(UITextFieldEditing, ShiftExtendsTheSelectionAndAnArrowAloneEndsIt) {
    editQuietly("abcd");
    host.pressKey(UIKey::Left, UIKeyModifierShift);
    host.pressKey(UIKey::Left, UIKeyModifierShift);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(2, 2));
    EXPECT_EQ(field->selectedText(), "cd");
    host.pressKey(UIKey::Left);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(2, 0));
    host.pressKey(UIKey::Home, UIKeyModifierShift);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 2));
    host.pressKey(UIKey::Right);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(2, 0));
}

TEST_F(UITextFieldEditing, ArrowsFollowTheEyeInHebrew) {
    editQuietly("אבג");
    host.pressKey(UIKey::Home);
    host.pressKey(UIKey::Left);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(1, 0));
    host.pressKey(UIKey::Right);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 0));
}

TEST_F(UITextFieldEditing, ATapMovesTheCaretAndADragTakesItAlong) {
    editQuietly("HHHHHHHH");
    host.touchDown(above(3));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(3, 0));
    host.touchMove(above(6));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(6, 0));
    host.touchUp();
    EXPECT_EQ(field->selectedRange(), NSMakeRange(6, 0));
}

TEST_F(UITextFieldEditing, ADoubleTapSelectsAWordAndATripleTapEverything) {
    editQuietly("HHH HHHH");
    host.tap(above(1));
    host.tap(above(1));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 3));
    host.tap(above(1));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 8));
}

TEST_F(UITextFieldEditing, ADragAfterADoubleTapSelectsWholeWords) {
    editQuietly("HHH HHH HHH");
    const auto startOn = [this](int letter) {
        host.advance(1);
        host.tap(above(letter));
        host.touchDown(above(letter));
    };
    startOn(5);
    EXPECT_EQ(field->selectedRange(), NSMakeRange(4, 3));
    host.touchMove(above(9));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(4, 7));
    host.touchMove(above(1));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 7)) << "the word it began with stays";
    host.touchMove(above(5));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(4, 3));
    host.touchCancel();
    host.touchMove(above(9));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(4, 3));
    EXPECT_TRUE(field->isEditing());
}

TEST_F(UITextFieldEditing, ADoubleTapTellsNothingAboutTheWordsOfASecret) {
    field->setSecureTextEntry(true);
    editQuietly("my secret");
    host.tap({25, 25});
    host.tap({25, 25});
    EXPECT_EQ(field->selectedRange(), NSMakeRange(0, 9));
}

TEST_F(UITextFieldEditing, ClipboardKeysCopyCutAndPaste) {
    editQuietly("one two");
    EXPECT_TRUE(host.clipboardKey('a'));
    EXPECT_TRUE(host.clipboardKey('c'));
    EXPECT_EQ(host.clipboardText(), "one two");
    field->setSelectedRange({3, 4});
    EXPECT_TRUE(host.clipboardKey('x'));
    EXPECT_EQ(field->text(), "one");
    EXPECT_EQ(host.clipboardText(), " two");
    EXPECT_TRUE(host.clipboardKey('v'));
    EXPECT_EQ(field->text(), "one two");
}

TEST_F(UITextFieldEditing, CopyCutAndPasteWorkFromCodeToo) {
    editQuietly("one two");
    field->setSelectedRange({0, 4});
    field->cut();
    EXPECT_EQ(field->text(), "two");
    EXPECT_EQ(host.clipboardText(), "one ");
    field->paste();
    EXPECT_EQ(field->text(), "one two");
}

TEST_F(UITextFieldEditing, PastingLeavesLineBreaksOut) {
    editQuietly("");
    host.setClipboardText("a\nb\r\nc\u2028d");
    host.clipboardKey('v');
    EXPECT_EQ(field->text(), "abcd");
}

TEST_F(UITextFieldEditing, SecretTextDoesNotReachTheClipboard) {
    field->setSecureTextEntry(true);
    editQuietly("secret");
    field->selectAll();
    EXPECT_TRUE(field->selectedText().isNil());
    host.clipboardKey('c');
    host.clipboardKey('x');
    field->copy();
    field->cut();
    EXPECT_TRUE(host.clipboardText().isNil());
    EXPECT_EQ(field->text(), "secret");
}

TEST_F(UITextFieldEditing, AnInputMethodComposesUntilItsTextIsTyped) {
    editQuietly("ab");
    field->setSelectedRange({1, 0});
    host.setMarkedText("ni");
    EXPECT_EQ(field->text(), "anib");
    EXPECT_EQ(field->markedRange(), NSMakeRange(1, 2));
    EXPECT_EQ(field->selectedRange(), NSMakeRange(3, 0));
    host.setMarkedText("nih");
    EXPECT_EQ(field->text(), "anihb");
    host.typeText("你");
    EXPECT_EQ(field->text(), "a你b");
    EXPECT_EQ(field->markedRange().length, 0u);
    host.setMarkedText("x");
    host.setMarkedText("");
    EXPECT_EQ(field->text(), "a你b");
    host.setMarkedText("y");
    field->unmarkText();
    EXPECT_EQ(field->text(), "a你yb");
    EXPECT_EQ(field->markedRange().length, 0u);
}

TEST_F(UITextFieldEditing, ReturnAsksTheDelegateAndEndsEditingWhereSomebodyListens) {
    editQuietly("x");
    host.pressKey(UIKey::Return);
    EXPECT_EQ(log->takeLog(), (Log{"should return"}));
    EXPECT_TRUE(field->isEditing());
    field->addTarget_action_forControlEvents(log.get(), selector<&FieldLog::exit>, UIControlEventEditingDidEndOnExit);
    log->mayReturn = false;
    host.pressKey(UIKey::Return);
    EXPECT_EQ(log->takeLog(), (Log{"should return"}));
    log->mayReturn = true;
    host.pressKey(UIKey::Return);
    EXPECT_EQ(log->takeLog(), (Log{"should return", "exit", "should end", "end", "did end"}));
}

TEST_F(UITextFieldEditing, TheClearButtonClears) {
    const CGPoint button{10 + 200 - 15, 25};
    editQuietly("text");
    host.tap(button);
    EXPECT_EQ(field->text(), "text");
    field->setClearButtonMode(UITextFieldViewModeWhileEditing);
    log->log.clear();
    log->mayClear = false;
    host.tap(button);
    EXPECT_EQ(field->text(), "text");
    EXPECT_EQ(log->takeLog(), (Log{"should clear"}));
    log->mayClear = true;
    host.tap(button);
    EXPECT_EQ(field->text(), "");
    EXPECT_EQ(log->takeLog(), (Log{"should clear", "changed"}));
}

TEST_F(UITextFieldEditing, AFingerThatLeavesTheClearButtonClearsNothing) {
    editQuietly("text");
    field->setClearButtonMode(UITextFieldViewModeAlways);
    host.touchDown({195, 25});
    host.touchMove({195, 300});
    host.touchUp();
    EXPECT_EQ(field->text(), "text");
}

TEST_F(UITextFieldEditing, ClearsOnBeginEditingWhenToldSo) {
    field->setText("old");
    field->setClearsOnBeginEditing(true);
    field->becomeFirstResponder();
    EXPECT_EQ(field->text(), "");
}

TEST_F(UITextFieldEditing, SelectionsAreCutToTheTextAndWidenedToWholeCharacters) {
    editQuietly("a👍🏽b");
    field->setSelectedRange({2, 1});
    EXPECT_EQ(field->selectedRange(), NSMakeRange(1, 4));
    field->setSelectedRange({5, 100});
    EXPECT_EQ(field->selectedRange(), NSMakeRange(5, 1));
    field->setSelectedRange({100, 100});
    EXPECT_EQ(field->selectedRange(), NSMakeRange(6, 0));
}

TEST_F(UITextFieldEditing, ADelegateMayDropTheFieldWhileEditingEnds) {
    class Dropper : public NSObject, public UITextFieldDelegate {
    public:
        void textFieldDidEndEditing(UITextField* ended) override {
            ended->removeFromSuperview();
            *owner = nullptr;
        }
        Ref<UITextField>* owner = nullptr;
    };
    const auto dropper = make<Dropper>();
    dropper->owner = &field;
    field->setDelegate(dropper);
    field->becomeFirstResponder();
    UITextField* borrowed = field;
    EXPECT_TRUE(borrowed->resignFirstResponder());
    EXPECT_EQ(field, nullptr);
}

TEST_F(UITextFieldEditing, OneFieldIsEditedAlsoWhenEndingTheFirstBeginsAThird) {
    class Starter : public NSObject, public UITextFieldDelegate {
    public:
        void textFieldDidEndEditing(UITextField*) override { next->becomeFirstResponder(); }
        Ref<UITextField> next;
    };
    const auto second = place(make<UITextField>(), CGRectMake(10, 50, 200, 30));
    const auto third = place(make<UITextField>(), CGRectMake(10, 90, 200, 30));
    const auto starter = make<Starter>();
    starter->next = third;
    field->setDelegate(starter);
    field->becomeFirstResponder();
    EXPECT_FALSE(second->becomeFirstResponder());
    EXPECT_FALSE(field->isEditing());
    EXPECT_FALSE(second->isEditing());
    EXPECT_FALSE(second->isFirstResponder());
    EXPECT_TRUE(third->isEditing());
    EXPECT_TRUE(third->isFirstResponder());
    host.typeText("x");
    EXPECT_EQ(third->text(), "x");
    EXPECT_EQ(second->text(), "");
}

TEST_F(UITextFieldEditing, AFieldOfNoSizeIsTolerated) {
    field->setFrame(CGRectMake(std::nan(""), 0, std::nan(""), 30));
    edit("text");
    host.typeText("x");
    host.advance(1);
    EXPECT_EQ(field->text(), "textx");
}

} // namespace
} // namespace zr
