#include "sidescreens/NewInfoFrm.h"

#include "core/ScreenPositions.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Texts.h"

namespace {

/// True if `box` has a text; else tells the user that `what` is missing.
bool IsFilled(const TextBox& box, const char* what) {
    const bool filled = !IsBlank(box.Text());
    if (!filled) {
        ShowMessage(std::string(what) + " has not been entered!", "INFO Create Error", MessageButtons::Ok,
                    MessageIcon::Warning);
    }
    return filled;
}

}  // namespace

void NewInfoFrm::MakeControls() {
    constexpr int Width = 460;
    constexpr int BoxLeft = 92;
    Window.Create("NewInfoFrm", "Floebird Level Set INFO Data", Width, 112);
    Window.Unload = [this] { Unload(); };
    Label1.Create(Window, "Label1", {12, 12, BoxLeft - 16, 22}, "Title");
    TitleBox.Create(Window, "TitleBox", {BoxLeft, 12, Width - BoxLeft - 12, 22});
    TitleBox.SetAccessibleName("Title");
    TitleBox.Change = [this] { TitleBox_Change(); };
    Label2.Create(Window, "Label2", {12, 40, BoxLeft - 16, 22}, "Description");
    DescBox.Create(Window, "DescBox", {BoxLeft, 40, Width - BoxLeft - 12, 22});
    DescBox.SetAccessibleName("Description");
    DescBox.Change = [this] { DescBox_Change(); };
    CreateCmd.Create(Window, "CreateCmd", {Width - 12 - 184, 74, 88, 26}, "Create");
    CreateCmd.Click = [this] { CreateCmd_Click(); };
    CancelCmd.Create(Window, "CancelCmd", {Width - 12 - 88, 74, 88, 26}, "Cancel");
    CancelCmd.Click = [this] { CancelCmd_Click(); };
}

void NewInfoFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::NewInfoFrm, false);
    NewInfo.title.clear();
    NewInfo.description.clear();
}

void NewInfoFrm::TitleBox_Change() { NewInfo.title = TitleBox.Text(); }

void NewInfoFrm::DescBox_Change() { NewInfo.description = DescBox.Text(); }

void NewInfoFrm::CreateCmd_Click() {
    if (!IsFilled(TitleBox, "Title") || !IsFilled(DescBox, "Description")) {
        return;
    }
    CurrentInfo = NewInfo;
    InfoCreated = True;
    Window.Close();
}

void NewInfoFrm::CancelCmd_Click() {
    InfoCreated = False;
    Window.Close();
}

void NewInfoFrm::Unload() {
    StorePosition(Window, ScreenIndex::NewInfoFrm);
    ModalDone = True;
}
