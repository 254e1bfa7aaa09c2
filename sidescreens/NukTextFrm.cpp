#include "sidescreens/NukTextFrm.h"

#include "core/General.h"
#include "core/LineEnds.h"
#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "level/LevelWriter.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

void NukTextFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::NukTextFrm, false);
    InfoName = InfoPath.empty() ? LevelPath : InfoPath;
    ShowInfo();
    BuildLevelText();
    DataBox.SetText(LevelText);
}

void NukTextFrm::Unload() {
    StorePosition(Window, ScreenIndex::NukTextFrm);
    InfoPath = InfoName;
    SetMainFrmBusy(false);
}

/// Reads the INFO file at InfoName and shows its text, in the line ends that the boxes break at.
void NukTextFrm::ShowInfo() {
    if (!InfoName.empty()) {  // until there is a file the box asks for a click
        InfoNameBox.SetCaption(InfoName);
    }
    ReadInfoFile(InfoName);
    UseDosLineEnds();
    BuildInfoText();
    InfoBox.SetText(InfoText);
}

void NukTextFrm::InfoNameBox_Click() {
    try {
        InfoName = OpenFileDialog({"info|info", FolderOf(InfoName), ""});
        ShowInfo();
    } catch (const Fault&) {  // cancelled
    }
}

void NukTextFrm::WriteInfoCmd_Click() {
    UseUnixLineEnds();
    BuildInfoText();
    const std::string path = FolderOf(InfoName) + "info";
    if (QueryFile(path) == "info") {
        DeleteExistingFile(path);
    }
    WriteTextFile(path, InfoText);
}
