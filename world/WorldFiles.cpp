#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "world/WorldFrm.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

namespace {

FileDialogSetup WorldDialog() { return {"*.fbwm|*.fbwm", WorldMapsFolder, ""}; }

}  // namespace

void WorldFrm::WTB_ButtonClick(int Position) {
    switch (Position) {
        case 1: NewWorld(); break;
        case 3:
            ClearWorld();
            OpenWorldDialog();
            UpdateWorld();
            break;
        case 5:
            BuildWorldText();
            WriteWorldFile(WorldPath);
            break;
        case 6:
            BuildWorldText();
            SaveWorldAsDialog();
            break;
        case 8:
            Window.SetEnabled(false);
            OpenWorldProperties();
            break;
        case 10: Window.Close(); break;
        default: break;
    }
}

void WorldFrm::FileNameBox_Click() {
    ClearWorld();
    OpenWorldDialog();
}

/// Gives up the world in memory and empties the screen. WorldPath stays.
void WorldFrm::ClearWorld() {
    ResetWorld();
    for (ImageCell& cell : Img) {
        cell.SetPicture(BlankImg);
    }
    NukImg.SetVisible(false);
    HideSprites(0, Sprites - 1);
    WorldMode = 0;
    ShowModePanel();
    ModeOption[0].Select();
    MapXScroll.SetValue(0);
    MapYScroll.SetValue(0);
}

void WorldFrm::NewWorld() {
    LastMsgResult = ShowMessage("Do you wish to create a new world?", "Floebird New World Creation",
                                MessageButtons::YesNo, MessageIcon::Question);
    if (LastMsgResult != AnswerYes) {
        return;
    }
    ClearWorld();
    NewWorldPending = True;
    Window.SetEnabled(false);
    OpenWorldProperties();
}

void WorldFrm::OpenWorldDialog() {
    try {
        const std::string path = OpenFileDialog(WorldDialog());
        ReadWorldFile(path);
        if (WorldLoaded == True) {
            WorldPath = path;
        }
        UpdateWorld();
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

void WorldFrm::SaveWorldAsDialog() {
    try {
        WorldPath = SaveFileDialog(WorldDialog());
        FileNameBox.SetCaption(WorldPath);
        WriteWorldFile(WorldPath);
    } catch (const Fault&) {  // cancelled
    }
}
