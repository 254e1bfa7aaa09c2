#include "platform/Dialogs.h"

#include <QApplication>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <cstdlib>

#include "platform/EventQueue.h"
#include "platform/FileDialog.h"
#include "platform/OneLine.h"
#include "platform/TextCoding.h"

namespace {

// Pixels; room for the title and the window manager's buttons beside it.
constexpr int InputBoxWidth = 360;
constexpr int TitlePixels = 14;
constexpr int TitleButtonsWidth = 120;

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

/// The window that a dialog stays in front of: the dialog that is open already, or the screen that is in front.
QWidget* Owner() {
    QWidget* const dialog = QApplication::activeModalWidget();
    return dialog != nullptr ? dialog : FrontWindow();
}

std::string RunFileDialog(const FileDialogSetup& setup, FileDialog::Purpose purpose) {
    FileDialog dialog(setup, purpose, Owner());
    if (dialog.exec() != QDialog::Accepted) {
        throw Fault(FaultNumber::CancelWasSelected);
    }
    return dialog.Chosen();
}

/// Makes `box` as wide as its title needs: window managers set it in letters of their own, and cut it off.
void MakeRoomForTitle(QMessageBox& box) {
    QFont bold = box.font();
    bold.setBold(true);
    bold.setPixelSize(TitlePixels);
    const int width = QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + TitleButtonsWidth;
    if (auto* grid = qobject_cast<QGridLayout*>(box.layout()); grid != nullptr) {
        grid->addItem(new QSpacerItem(width, 0), grid->rowCount(), 0, 1, grid->columnCount());
    }
}

}  // namespace

Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon icon) {
    // The toolkit breaks lines at LF only.
    const QString lines = ShownText(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    QMessageBox box(IconOf(icon), ShownText(title), lines, ButtonsOf(buttons), Owner());
    box.setTextFormat(Qt::PlainText);
    MakeRoomForTitle(box);
    return AnswerOf(box.exec());
}

std::string InputBox(const std::string& prompt, const std::string& title) {
    QInputDialog dialog(Owner());
    dialog.setWindowTitle(ShownText(title));
    dialog.setLabelText(ShownText(prompt));
    dialog.resize(dialog.sizeHint().expandedTo({InputBoxWidth, 0}));
    if (auto* edit = dialog.findChild<QLineEdit*>(); edit != nullptr) {
        KeepFirstLineIn(*edit);
    }
    return dialog.exec() == QDialog::Accepted ? TextBytes(dialog.textValue()) : std::string();
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return RunFileDialog(setup, FileDialog::Purpose::Open); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return RunFileDialog(setup, FileDialog::Purpose::Save); }

void EndWithFault(const Fault& fault, const std::string& advice) {
    const std::string text = FaultMessage(fault) + (advice.empty() ? "" : "\n\n" + advice);
    ShowMessage(text, "FB_Editor", MessageButtons::Ok, MessageIcon::Stop);
    std::_Exit(EXIT_FAILURE);
}

void EndProcess() { std::_Exit(EXIT_SUCCESS); }
