#include "platform/Dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <cstdlib>

#include "platform/TextCoding.h"

namespace {

constexpr int InputBoxWidth = 360;  // pixels; room for the title

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
    switch (buttons) {
        case MessageButtons::Ok: return QMessageBox::Ok;
        case MessageButtons::YesNo: return QMessageBox::Yes | QMessageBox::No;
        case MessageButtons::YesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None: return QMessageBox::NoIcon;
        case MessageIcon::Stop: return QMessageBox::Critical;
        case MessageIcon::Question: return QMessageBox::Question;
        case MessageIcon::Warning: return QMessageBox::Warning;
    }
    return QMessageBox::NoIcon;
}

int AnswerOf(int button) {
    switch (button) {
        case QMessageBox::Yes: return AnswerYes;
        case QMessageBox::No: return AnswerNo;
        case QMessageBox::Cancel: return AnswerCancel;
        default: return AnswerOk;
    }
}

/// The window that a dialog stays in front of: without one, a click on the waiting window would cover it.
QWidget* Owner() { return QApplication::activeWindow(); }

std::string RunFileDialog(const FileDialogSetup& setup, QFileDialog::AcceptMode mode) {
    QFileDialog dialog(Owner());
    // The plain dialog looks the same everywhere, and takes a proposed name with a path.
    dialog.setOptions(QFileDialog::DontUseNativeDialog | QFileDialog::DontConfirmOverwrite |
                      QFileDialog::DontUseCustomDirectoryIcons);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    dialog.setNameFilter(ShownText(setup.filter.substr(setup.filter.find('|') + 1)));
    dialog.setFilter(QDir::AllDirs | QDir::Files | QDir::Hidden | QDir::NoDot);
    dialog.setDirectory(ShownText(setup.folder));
    // Into the box itself: the dialog's own way to propose a path would leave the start folder for the path's.
    if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit")); name != nullptr) {
        name->setText(ShownText(setup.proposedName));
        name->selectAll();
    }
    if (dialog.exec() != QDialog::Accepted) {
        throw Fault(FaultNumber::CancelWasSelected);
    }
    return TextBytes(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

}  // namespace

Int16 MessageBox(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon icon) {
    // The toolkit breaks lines at LF only.
    const QString lines = ShownText(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox box(IconOf(icon), ShownText(title), lines, ButtonsOf(buttons), Owner());
    box.setTextFormat(Qt::PlainText);
    return AnswerOf(box.exec());
}

std::string InputBox(const std::string& prompt, const std::string& title) {
    QInputDialog dialog(Owner());
    dialog.setWindowTitle(ShownText(title));
    dialog.setLabelText(ShownText(prompt));
    dialog.resize(dialog.sizeHint().expandedTo({InputBoxWidth, 0}));
    return dialog.exec() == QDialog::Accepted ? TextBytes(dialog.textValue()) : std::string();
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return RunFileDialog(setup, QFileDialog::AcceptOpen); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return RunFileDialog(setup, QFileDialog::AcceptSave); }

void EndWithFault(const Fault& fault) {
    MessageBox(FaultMessage(fault), "FB_Editor", MessageButtons::Ok, MessageIcon::Stop);
    std::_Exit(EXIT_FAILURE);
}

void EndProcess() { std::_Exit(EXIT_SUCCESS); }
