#include "sidescreens/NukTextFrm.h"

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "level/LevelWriter.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"

namespace {

constexpr auto Saved = static_cast<std::size_t>(ScreenIndex::NukTextFrm);

}  // namespace

void NukTextFrm::Load() {
    MakeControls();
    Window.Restore(PrefsRecord.ScreenLeft[Saved], PrefsRecord.ScreenTop[Saved], false);
    InfoName = InfoPath.empty() ? LevelPath : InfoPath;
    ShowInfo();
    BuildLevelText();
    DataBox.SetText(LevelText);
}

void NukTextFrm::Unload() {
    PrefsRecord.ScreenLeft[Saved] = Window.Left();
    PrefsRecord.ScreenTop[Saved] = Window.Top();
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
