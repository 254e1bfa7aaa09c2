#include "tests/ScriptedDialogs.h"

ScriptedDialogs dialogs;

namespace {

template <typename Answer>
std::optional<Answer> Next(std::deque<Answer>& answers) {
    if (answers.empty()) {
        return std::nullopt;
    }
    const Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

std::string ChooseFile(const FileDialogSetup& setup) {
    dialogs.fileDialogs.push_back(setup);
    const std::optional<std::string> file = Next(dialogs.files);
    if (!file) {
        throw Fault(FaultNumber::CancelWasSelected);
    }
    return *file;
}

}  // namespace

Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon icon) {
    dialogs.messages.push_back({text, title, buttons, icon});
    return Next(dialogs.answers).value_or(AnswerOk);
}

std::string InputBox(const std::string& prompt, const std::string& title) {
    dialogs.questions.push_back(title + ": " + prompt);
    return Next(dialogs.inputs).value_or("");
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

void EndWithFault(const Fault& fault, const std::string& advice) {
    dialogs.fatalFault = fault.Number();
    dialogs.advice = advice;
}

void EndProcess() { dialogs.ended = true; }
