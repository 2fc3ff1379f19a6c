#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

/// @name What a text input would like of a keyboard on the screen
/// @{
enum UITextAutocapitalizationType : NSInteger {
    UITextAutocapitalizationTypeNone,
    UITextAutocapitalizationTypeWords,
    UITextAutocapitalizationTypeSentences,
    UITextAutocapitalizationTypeAllCharacters,
};

enum UITextAutocorrectionType : NSInteger {
    UITextAutocorrectionTypeDefault = 0,
    UITextAutocorrectionTypeNo = 1,
    UITextAutocorrectionTypeYes = 2,
};

enum UIKeyboardType : NSInteger {
    UIKeyboardTypeDefault,
    UIKeyboardTypeASCIICapable,
    UIKeyboardTypeNumbersAndPunctuation,
    UIKeyboardTypeURL,
    UIKeyboardTypeNumberPad,
    UIKeyboardTypePhonePad,
    UIKeyboardTypeNamePhonePad,
    UIKeyboardTypeEmailAddress,
    UIKeyboardTypeDecimalPad,
    UIKeyboardTypeWebSearch = 10,
};

enum UIReturnKeyType : NSInteger {
    UIReturnKeyDefault,
    UIReturnKeyGo,
    UIReturnKeyJoin = 3,
    UIReturnKeyNext,
    UIReturnKeyRoute,
    UIReturnKeySearch,
    UIReturnKeySend,
    UIReturnKeyDone = 9,
    UIReturnKeyEmergencyCall,
};
/// @}

} // namespace zr
#pragma GCC visibility pop
