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
    const Int16 x = MapXScroll.Value() + CellColumn(Index);
    if (CurrentMode == 1) {
        PlaceBadGuy(x, row, X, Y);
    } else if (CurrentMode == 0 && Button == LeftButton) {
        PressTile(x, row);
    } else if (CurrentMode == 0 && Button == RightButton) {
        PickTile(x, row);
    }
}

void MainFrm::PressTile(Int16 x, Int16 row) {
    TileMap* layer = EditedLayer();
    if (PickingStart || CurrentTile == ResetPointTile || LevelLoaded == False || layer == nullptr) {
        return;
    }
    if (Int16& tile = (*layer)(x, row); tile != CurrentTile) {
        tile = CurrentTile;
        UpdateDisplay();
    }
}

void MainFrm::PickTile(Int16 x, Int16 row) {
    if (LevelLoaded == False) {
        return;
    }
    if (const TileMap* layer = EditedLayer()) {
        CurrentTile = (*layer)(x, row);
    }
    ScrollPaletteToTile();
}

void MainFrm::Img_Click(int Index) {
    const int column = CellColumn(Index);
    const int row = CellRow(Index);
    const Int16 x = MapXScroll.Value() + column;
    if (LevelRecord.width == 0) {
        MessageBox("You must create the level first!\r\nUse the File menu to create a new set or level.",
                   "No Level Width Specified", MessageButtons::Ok, MessageIcon::Stop);
    } else if (PickingStart) {
        TakeStartPosition(x, row);
    } else if (CurrentMode == 0 && CurrentTile == ResetPointTile) {
        AddResetPoint(x, row);
    } else if (CurrentMode == 0) {
        PaintTile(x, row);
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
