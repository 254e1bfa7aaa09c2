#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "level/NewLevel.h"
#include "leveledit/MainFrm.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"

namespace {

FileDialogSetup LevelDialog() { return {"*.fbl|*.fbl", UserLevelsFolder, LevelPath}; }

}  // namespace

void MainFrm::TB_ButtonClick(int Position) {
    switch (Position) {
        case 2: LoadLevelDialog(); break;
        case 4: NewLevelCommand(); break;
        case 5: CreateLevelSet(); break;
        case 7: SaveCommand(); break;
        case 8: SaveLevelDialog(); break;
        case 10: OpenVarsFrm(); break;
        case 11: OpenNukTextFrm(); break;
        case 13: OpenWorldFrm(); break;
        case 15: OpenHelpFrm(); break;
        case 17: Window.Close(); break;
        default: break;
    }
}

void MainFrm::LoadPrefMap() {
    LevelRecord.BadGuyCount = 0;
    LevelRecord.ResetPointCount = 0;
    ReadLevelFile(LevelPath);
    UpdateDisplay();
}

void MainFrm::LoadLevelDialog() {
    try {
        LevelPath = OpenFileDialog(LevelDialog());
        MapXScroll.SetValue(0);
        LoadPrefMap();
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

void MainFrm::SaveLevelDialog() {
    try {
        LevelPath = SaveFileDialog(LevelDialog());
        {
            const Hourglass busy(Window);
            YieldToEventQueue();
            WriteLevelFile(LevelPath);
        }
        YieldToEventQueue();
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

void MainFrm::SaveCommand() {
    Window.SetTitle("Saving " + LevelPath + "...");
    {
        const Hourglass busy(Window);
        YieldToEventQueue();
        WriteLevelFile(LevelPath);
    }
    Window.SetTitle(TitleText);
}
