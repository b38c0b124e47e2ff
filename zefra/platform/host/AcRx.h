#pragma once
// The messages that the host sends to an application's entry point, and
// what the entry point answers.

namespace AcRx {

enum AppMsgCode : int {
    kNullMsg = 0,
    kInitAppMsg = 1,    // the application was loaded
    kUnloadAppMsg = 2,  // the application is about to be unloaded
    kLoadDwgMsg = 3,    // a drawing was opened
    kUnloadDwgMsg = 4,  // a drawing is being closed
    kInvkSubrMsg = 5,   // a subroutine of the application is called
};

enum AppRetCode : int { kRetOK = 0, kRetError = 3 };

}  // namespace AcRx
