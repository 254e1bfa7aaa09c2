#include <algorithm>

#include "core/SharedState.h"
#include "leveledit/MainFrm.h"
#include "platform/Dialogs.h"

namespace {

constexpr int PaletteColumns = 4;
constexpr int NoTilePicture = 204;

using Favorites = std::array<Int16, MainFrm::PaletteCells>;

bool HasPicture(int tile) { return tile >= 1 && tile <= LastTile; }

/// Takes CurrentTile out of the list at the place where it stands, or puts it in at `index` if it is not
/// there. Gives the place it was taken from, or -1. A full list takes no more and says so.
int ToggleFavorite(Favorites& list, int index, const char* name) {
    const auto found = std::find(list.begin(), list.end(), CurrentTile);
    if (found != list.end()) {
        std::move(found + 1, list.end(), found);
        list.back() = 0;
        return static_cast<int>(found - list.begin());
    }
    if (list.back() > 0) {
        const std::string favorites = std::string("Favorites ") + name;
        ShowMessage(favorites + " List Full", favorites + " Error", MessageButtons::Ok, MessageIcon::Warning);
        return -1;
    }
    const auto place = list.begin() + index;
    std::move_backward(place, list.end() - 1, list.end());
    *place = CurrentTile;
    return -1;
}

}  // namespace

void MainFrm::DrawTilePalette() {
    TileFrame.SetVisible(!LayerOption[AllLayers].Selected());
    if (KnowsTileSet()) {
        SelScroll.SetVisible(CurrentTileSet == AllTiles);
        for (int i = 0; i < PaletteCells; ++i) {
            const Int16 tile = PaletteTile(i);
            Element(SelImg, i).SetPicture(HasPicture(tile) ? BlockImgList()[tile] : Picture());
            Element(SelImg, i).SetFramed(!HasPicture(tile));
        }
    }
    if (CurrentTileSet == AllTiles && CurrentTile == 0) {
        CurImg.SetToolTip("No Tile Selected");
    }
    CurImg.SetPicture(BlockImgList()[HasPicture(CurrentTile) ? static_cast<int>(CurrentTile) : NoTilePicture]);
}

/// A tile set of another version's preferences leaves the palette as it stands, and deaf.
bool MainFrm::KnowsTileSet() const {
    return CurrentTileSet >= AllTiles && CurrentTileSet < static_cast<int>(TilesOption.size());
}

/// The number of the tile in palette cell `Index`; 0 for an empty cell of a list.
Int16 MainFrm::PaletteTile(int Index) const {
    switch (CurrentTileSet) {
        case FavoriteTilesA: return Element(PrefsRecord.FavoritesA, Index);
        case FavoriteTilesB: return Element(PrefsRecord.FavoritesB, Index);
        default: return SelScroll.Value() * PaletteColumns + Index + 1;
    }
}

void MainFrm::ScrollPaletteToTile() {
    const int row = (CurrentTile - 1) / PaletteColumns;
    SelScroll.SetValue(std::clamp<int>(row, 0, SelScroll.Max()));
    DrawTilePalette();
}

void MainFrm::ToggleFavoriteA(int Index) {
    if (const int removed = ToggleFavorite(PrefsRecord.FavoritesA, Index, "A"); removed >= 0) {
        CurrentTile = Element(PrefsRecord.FavoritesA, removed);
    }
}

/// List B takes the next tile from the clicked cell, not from the one that the tile was removed from.
void MainFrm::ToggleFavoriteB(int Index) {
    if (ToggleFavorite(PrefsRecord.FavoritesB, Index, "B") >= 0) {
        CurrentTile = Element(PrefsRecord.FavoritesB, Index);
    }
}

void MainFrm::TilesOption_Click(int Index) {
    CurrentTileSet = Index;
    DrawTilePalette();
}

void MainFrm::SelImg_MouseDown(int Index, int Button) {
    if (Button != LeftButton || !KnowsTileSet() || (CurrentMode != TileMode && CurrentMode != EditFavoritesMode)) {
        return;
    }
    const bool editing = CurrentMode == EditFavoritesMode;
    if (editing && CurrentTileSet == FavoriteTilesA) {
        ToggleFavoriteA(Index);
    } else if (editing && CurrentTileSet == FavoriteTilesB) {
        ToggleFavoriteB(Index);
    } else {
        CurrentTile = PaletteTile(Index);
    }
    DrawTilePalette();
}

void MainFrm::SelImg_MouseMove(int Index) {
    if (!KnowsTileSet()) {
        return;
    }
    const Int16 tile = PaletteTile(Index);
    Element(SelImg, Index).SetToolTip("Tile # " + std::to_string(tile) + TileNote(tile));
}

void MainFrm::CurImg_MouseMove() {
    if (CurrentMode == TileMode) {
        CurImg.SetToolTip(HasPicture(CurrentTile)
                              ? "Tile # " + std::to_string(CurrentTile) + TileNote(CurrentTile, " (Breakable Tile)")
                              : "No Tile Selected");
    } else if (CurrentMode == EditFavoritesMode) {
        const auto holds = [](const Favorites& list) {
            return std::find(list.begin(), list.end(), CurrentTile) != list.end();
        };
        const bool favorite = (CurrentTileSet == FavoriteTilesA && holds(PrefsRecord.FavoritesA)) ||
                              (CurrentTileSet == FavoriteTilesB && holds(PrefsRecord.FavoritesB));
        CurImg.SetToolTip(favorite ? "Click to Remove Tile from Favorites" : "Click to Add Tile to Favorites");
    }
}

void MainFrm::BlankTileCmd_Click() {
    DummyCmd.SetFocus();
    CurrentTile = 0;
    DrawTilePalette();
}
