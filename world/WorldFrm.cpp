#include "world/WorldFrm.h"

#include <algorithm>

#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Texts.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

void WorldFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::WorldFrm, true);
    ShowModePanel();
    Window.Show();
    YieldToEventQueue();
    FavEdit = 0;
    FileNameBox.SetCaption("");
    RestoreWorld();
    Element(ModeOption, WorldMode).Select();
    ClearReadOuts();
    CurrentLink = -1;
    UpdateWorld();
    RestoreScroll();  // once more: now the maxima are those of the map
    if (WorldCurrentTile != 0) {
        ShowCurrentTile();
    }
    DummyCmd.SetFocus();
}

void WorldFrm::RestoreWorld() {
    if (IsBlank(WorldPath)) {
        return;
    }
    ReadWorldFile(WorldPath);
    const Int16 mode = PrefsRecord.SavedWorldMode;
    WorldMode = mode >= 0 && mode < static_cast<int>(ModeOption.size()) ? mode : Int16(TableMode);
    ShowModePanel();
    RestoreScroll();
}

/// As far as the maxima allow.
void WorldFrm::RestoreScroll() {
    if (IsBlank(WorldPath)) {
        return;
    }
    MapXScroll.SetValue(std::clamp<int>(PrefsRecord.SavedWorldX, 0, MapXScroll.Max()));
    MapYScroll.SetValue(std::clamp<int>(PrefsRecord.SavedWorldY, 0, MapYScroll.Max()));
}

void WorldFrm::ClearReadOuts() {
    for (Label* box : {&MouseXBox, &MouseYBox, &LinkNameBox, &LinkXBox, &LinkYBox, &LinkDXBox, &LinkDYBox}) {
        box->SetCaption("");
    }
    for (int row = 0; row < LinkRows; ++row) {
        Element(LinkNumBox, row).SetCaption("");
        Element(LinkTypeBox, row).SetCaption("");
    }
}

/// Cancel is no more than a No here.
void WorldFrm::Unload() {
    StorePosition(Window, ScreenIndex::WorldFrm);
    PrefsRecord.SavedWorldMode = WorldMode;
    PrefsRecord.SavedWorldX = MapXScroll.Value();
    PrefsRecord.SavedWorldY = MapYScroll.Value();
    SavePreferences();
    if (WorldChanged == True) {
        LastMsgResult = ShowMessage("Save World Map Changes?", "World Map Changed", MessageButtons::YesNoCancel,
                                    MessageIcon::Question);
        if (LastMsgResult == AnswerYes) {
            BuildWorldText();
            WriteWorldFile(WorldPath);
        }
    }
    ShowMainFrm();
}
