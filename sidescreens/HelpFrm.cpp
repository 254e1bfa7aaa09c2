#include "sidescreens/HelpFrm.h"

#include "core/General.h"
#include "core/ScreenPositions.h"
#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "platform/Files.h"

std::string HelpText;

void HelpFrm::Load() {
    MakeControls();
    const UpdatingGuard updating(Updating);
    RestorePosition(Window, ScreenIndex::HelpFrm, false);
    HelpFileName = JoinPath(ProgramFolder, "FB_Editor.Help");
    if (HelpText.empty()) {
        LoadHelpText();
    }
    HelpBox.SetText(HelpText);
    SaveHelpCmd.SetVisible(false);
}

void HelpFrm::Unload() { StorePosition(Window, ScreenIndex::HelpFrm); }

void HelpFrm::LoadHelpText() {
    try {
        const int file = FreeFileNumber();
        OpenForInput(file, HelpFileName);
        while (!AtEndOfFile(file)) {
            HelpText += LineInput(file) + "\r\n";
        }
        CloseFile(file);
    } catch (const Fault&) {  // without the file the box is empty
    }
}

void HelpFrm::HelpBox_Change() {
    if (!Updating) {
        SaveHelpCmd.SetVisible(true);
    }
}

void HelpFrm::SaveHelpCmd_Click() {
    DummyCmd.SetFocus();
    HelpText = HelpBox.Text();
    DeleteFileQuietly(HelpFileName);
    WriteTextFile(HelpFileName, HelpText);
    SaveHelpCmd.SetVisible(false);
}

void HelpFrm::CloseCmd_Click() {
    DummyCmd.SetFocus();
    Window.Close();
}
