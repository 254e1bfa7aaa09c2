#include "core/SharedState.h"
#include "leveledit/AutoComplete.h"
#include "leveledit/MainFrm.h"
#include "platform/Dialogs.h"

namespace {

constexpr int ResetPointTile = 131;  // not a tile to paint: a click with it adds a reset point

}  // namespace

void MainFrm::AutoCheck_Click() {
    if (!Updating) {
        PrefsRecord.AutoState = AutoCheck.Value();
    }
}

/// A press on the map. Paints, so that the tile is seen at once, or places a bad guy; the click that follows
/// the release does the rest.
void MainFrm::Img_MouseDown(int Index, int Button, int X, int Y) {
    const int row = CellRow(Index);
    if (CurrentMode == PlaceBadGuysMode) {
        if (CurrentObject >= 0) {
            PlaceBadGuy(LevelColumn(Index), row, X, Y);
        }
    } else if (CurrentMode != TileMode || LevelLoaded == False) {
        return;
    } else if (Button == LeftButton) {
        PressTile(LevelColumn(Index), row);
    } else if (Button == RightButton) {
        PickTile(LevelColumn(Index), row);
    }
}

/// The column of the level that a cell of the view shows. Fault 6 beyond 16 bits, as the bar allows without a level.
Int16 MainFrm::LevelColumn(int Index) const { return MapXScroll.Value() + CellColumn(Index); }

void MainFrm::PressTile(Int16 x, Int16 row) {
    TileMap* layer = EditedLayer();
    if (PickingStart || CurrentTile == ResetPointTile || layer == nullptr) {
        return;
    }
    if (Int16& tile = (*layer)(x, row); tile != CurrentTile) {
        tile = CurrentTile;
        UpdateDisplay();
    }
}

void MainFrm::PickTile(Int16 x, Int16 row) {
    if (const TileMap* layer = EditedLayer()) {
        CurrentTile = (*layer)(x, row);
    }
    ScrollPaletteToTile();
}

void MainFrm::Img_Click(int Index) {
    const int row = CellRow(Index);
    if (LevelRecord.width == 0) {
        ShowMessage("You must create the level first!\r\nUse the File menu to create a new set or level.",
                    "No Level Width Specified", MessageButtons::Ok, MessageIcon::Stop);
    } else if (PickingStart) {
        TakeStartPosition(LevelColumn(Index), row);
    } else if (CurrentMode == TileMode && CurrentTile == ResetPointTile) {
        AddResetPoint(LevelColumn(Index), row);
    } else if (CurrentMode == TileMode) {
        PaintTile(LevelColumn(Index), row);
        UpdateDisplay();
    }
}

void MainFrm::PaintTile(Int16 x, Int16 row) {
    using Completion = void (*)(Int16 tile, Int16 x, Int16 y);
    static constexpr Completion Completions[] = {AutoCompleteBackground, AutoCompleteInteractive,
                                                 AutoCompleteForeground};
    TileMap* layer = EditedLayer();
    if (layer == nullptr) {
        return;
    }
    (*layer)(x, row) = CurrentTile;
    if (PrefsRecord.AutoState == 1) {
        Completions[CurrentLayer](CurrentTile, x, row);
    }
}
