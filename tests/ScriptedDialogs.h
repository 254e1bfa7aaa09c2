#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

/// Answers dialogs from a script and writes down what was asked. Stands in for platform/Dialogs.cpp.
struct ScriptedDialogs {
    struct Message {
        std::string text;
        std::string title;
        MessageButtons buttons;
        MessageIcon icon;

        bool operator==(const Message&) const = default;
    };

    std::vector<Message> messages;             ///< all message boxes shown
    std::deque<int> answers;                   ///< for the next message boxes; AnswerOk when used up
    std::vector<std::string> questions;        ///< title and prompt of all input boxes shown
    std::deque<std::string> inputs;            ///< for the next input boxes; empty when used up
    std::vector<FileDialogSetup> fileDialogs;  ///< all file dialogs shown
    std::deque<std::string> files;             ///< for the next file dialogs; cancelled when used up
    std::optional<FaultNumber> fatalFault;     ///< the fault that would have ended the process
    std::string advice;                        ///< what its message would have added
    bool ended = false;                        ///< the process would have ended without a fault
};

/// The script in force. A test assigns {} to start afresh.
extern ScriptedDialogs dialogs;
