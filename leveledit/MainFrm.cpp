#include "leveledit/MainFrm.h"

#include <algorithm>

#include "core/ScreenPositions.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Texts.h"

void MainFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::MainFrm, true);
    Window.SetTitle(TitleText);
    RestoreControls();
    RestoreLevel();
    PickingStart = false;
    SelectedBadGuy = -1;
    ClearSpriteBlink();
    UpdateDisplay();
    DummyCmd.SetFocus();
}

void MainFrm::RestoreControls() {
    Element(LayerOption, CurrentLayer).Select();
    Element(ModeOption, CurrentMode).Select();
    Element(TilesOption, CurrentTileSet).Select();
    DelBadGuyCmd.SetVisible(false);
    for (std::size_t kind = 0; kind < BadGuyTypeTable.size(); ++kind) {
        ObjectLabel[kind].SetCaption(BadGuyTypeTable[kind].DisplayName);
        ObjSelImg[kind].SetToolTip("Click to select " + BadGuyTypeTable[kind].DisplayName);
    }
    for (std::size_t row = 0; row < UsedRows; ++row) {
        BGUXBox[row].SetToolTip("Digits 0-9 Only, Press ENTER to Update Display");
        BGUYBox[row].SetToolTip("Digits 0-9 Only, Press ENTER to Update Display");
    }
    GridCheck.SetValue(PrefsRecord.GridState != 0 ? 1 : 0);
    AutoCheck.SetValue(PrefsRecord.AutoState != 0 ? 1 : 0);
    ResetCheck.SetValue(PrefsRecord.ResetState != 0 ? 1 : 0);
    // Once more, and without the clamp: what another version has saved stays in the variable.
    CurrentTileSet = PrefsRecord.SavedTileSet;
}

void MainFrm::RestoreLevel() {
    if (IsBlank(LevelPath)) {
        return;
    }
    LoadPrefMap();
    if (LevelLoaded == False) {
        OfferAnotherLevel();
        return;
    }
    CurrentTile = PrefsRecord.SavedTile;
    ScrollPaletteToTile();
    MapXScroll.SetValue(std::clamp<int>(PrefsRecord.SavedScroll, 0, MapXScroll.Max()));
}

void MainFrm::OfferAnotherLevel() {
    LastMsgResult = ShowMessage("Do you wish to select anothe level now?", "Level Load Error",
                                MessageButtons::YesNoCancel, MessageIcon::Question);
    if (LastMsgResult == AnswerYes) {
        LoadLevelDialog();
    } else if (LastMsgResult == AnswerCancel) {
        YieldToEventQueue();
        Window.Close();
        EndProcess();
    }
}

void MainFrm::Unload() {
    StorePosition(Window, ScreenIndex::MainFrm);
    PrefsRecord.SavedTile = CurrentTile;
    PrefsRecord.SavedLayer = CurrentLayer;
    PrefsRecord.SavedMode = CurrentMode;
    PrefsRecord.SavedObject = CurrentObject;
    PrefsRecord.SavedScroll = MapXScroll.Value();
    PrefsRecord.GridState = GridCheck.Value();
    PrefsRecord.SavedTileSet = CurrentTileSet;
    SavePreferences();
}
