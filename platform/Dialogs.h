#pragma once

#include <string>

#include "platform/Fault.h"
#include "platform/Int16.h"

// Questions to the user. Each call returns when the user has answered. Texts are bytes.

enum class MessageIcon { None, Stop, Question, Warning };
enum class MessageButtons { Ok, YesNo, YesNoCancel };

/// The answer of a message box.
inline constexpr int AnswerOk = 1;
inline constexpr int AnswerCancel = 2;
inline constexpr int AnswerYes = 6;
inline constexpr int AnswerNo = 7;

/// Shows a message and gives the button pressed. Closing the box counts as its last button's answer where
/// that is Cancel or OK; a box of Yes and No can only be answered.
Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon icon);

/// Asks for one line of text; empty when cancelled.
std::string InputBox(const std::string& prompt, const std::string& title);

/// What a file dialog starts with.
struct FileDialogSetup {
    std::string filter;        ///< as the dialogs of this program spell it: "*.fbl|*.fbl", shown text and pattern
    std::string folder;        ///< where the dialog starts; a missing folder, or a file's path, is no failure
    std::string proposedName;  ///< file name, full path, or empty
};

/// The full path of the file chosen. Fault 32755 when cancelled.
std::string OpenFileDialog(const FileDialogSetup& setup);

/// The same for a file to be written, which may exist (no question is asked) or not.
std::string SaveFileDialog(const FileDialogSetup& setup);

/// Tells the user of a fault that met no trap, in a box titled "FB_Editor", and ends the process with exit
/// status 1, at once: nothing is saved, no screen is asked. `advice`, if any, stands below the message behind an empty
/// line. (A test's double returns.)
void EndWithFault(const Fault& fault, const std::string& advice = "");

/// Ends the process with exit status 0, at once. (A test's double throws or returns.)
void EndProcess();
