#pragma once

#include <ZRPlatform/Foundation/NSTypes.h>

#pragma GCC visibility push(default)
namespace zr {

/// @name What a text input would like of a keyboard on the screen
/// @{
/// When letters become capitals.
enum UITextAutocapitalizationType : NSInteger {
    UITextAutocapitalizationTypeNone,
    UITextAutocapitalizationTypeWords,
    UITextAutocapitalizationTypeSentences,
    UITextAutocapitalizationTypeAllCharacters,
};

/// Whether words are corrected.
enum UITextAutocorrectionType : NSInteger {
    UITextAutocorrectionTypeDefault = 0,
    UITextAutocorrectionTypeNo = 1,
    UITextAutocorrectionTypeYes = 2,
};

/// Which keys there are.
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

/// What the return key says.
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
