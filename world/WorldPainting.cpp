#include "core/SharedState.h"
#include "world/WorldFrm.h"
#include "world/WorldReader.h"

namespace {

constexpr int FavoritesMode = 1;
constexpr int PaletteColumns = 4;
constexpr int LastShownTile = 35;  // the palette shows the first tile in place of later ones
constexpr int BlockTile = 49;      // the first of nine, row by row
constexpr int BlockSize = 3;
constexpr int StartTile = 58;  // the upper part of the start marker
constexpr int LowerStartTile = 59;

/// The first link at a cell; 0 for none.
Int16 LinkAt(Int16 x, Int16 y) {
    for (int n = 1; n <= WorldRecord.LinkCount; ++n) {
        if (WorldRecord.levels[n].x == x && WorldRecord.levels[n].y == y) {
            return n;
        }
    }
    return 0;
}

/// Too near the map's end there is no block, and the one tile stays alone.
void StampBlock(Int16 x, Int16 y) {
    if (x + (BlockSize - 1) >= WorldRecord.width || y + (BlockSize - 1) >= WorldRecord.height) {
        return;
    }
    for (int i = 0; i < BlockSize * BlockSize; ++i) {
        WorldRecord.tiles(x + i % BlockSize, y + i / BlockSize) = BlockTile + i;
    }
}

}  // namespace

void WorldFrm::ModeOption_Click(int Index) {
    if (!Updating) {
        WorldMode = Index;
        UpdateWorld();
    }
}

void WorldFrm::FavCheck_Click() {
    if (!Updating) {
        FavEdit = FavCheck.Value();
    }
}

void WorldFrm::AutoCheck_Click() {
    if (!Updating) {
        PrefsRecord.WorldAutoComplete = AutoCheck.Value();
    }
}

void WorldFrm::Img_MouseDown(int Index, int Button) {
    if (WorldLoaded == False) {
        return;
    }
    const Int16 x = MapXScroll.Value() + CellColumn(Index);
    const Int16 y = MapYScroll.Value() + CellRow(Index);
    switch (WorldMode) {
        case 0:
        case FavoritesMode:
            if (Button == LeftButton) {
                PaintTile(x, y);
            } else if (Button == RightButton) {
                PickTile(x, y);
            }
            break;
        case 2: EditLinkAt(x, y, Button); break;
        case 4: SetStart(x, y); break;
        default: break;
    }
}

void WorldFrm::PaintTile(Int16 x, Int16 y) {
    const bool complete = PrefsRecord.WorldAutoComplete == 1;
    WorldRecord.tiles(x, y) = WorldCurrentTile;
    if (WorldCurrentTile == BlockTile && complete) {
        StampBlock(x, y);
    }
    if (WorldCurrentTile == StartTile) {
        WorldRecord.start_pos_x = x;
        WorldRecord.start_pos_y = y + 1;
        if (complete) {
            WorldRecord.tiles(x, y + 1) = LowerStartTile;  // in the map's last row this is its spare one
        }
    }
    WorldChanged = True;
    DrawWorldMap();
}

void WorldFrm::PickTile(Int16 x, Int16 y) {
    WorldCurrentTile = WorldRecord.tiles(x, y);
    ShowCurrentTile();
}

/// The right button makes no link: where there is none, it opens the editor on entry 0, which nothing shows.
void WorldFrm::EditLinkAt(Int16 x, Int16 y, int Button) {
    CurrentLink = LinkAt(x, y);
    if (Button == LeftButton && (CurrentLink == 0 || WorldRecord.levels[CurrentLink].type == NoLink)) {
        AddInNewLink(x, y);
    }
    ShowLinkEditor();
}

void WorldFrm::SetStart(Int16 x, Int16 y) {
    WorldRecord.start_pos_x = x;
    WorldRecord.start_pos_y = y;
    WorldChanged = True;
    DrawWorldMap();
}

void WorldFrm::DrawPalette() {
    if (!TilesFrame.Visible()) {
        return;
    }
    for (int i = 0; i < PaletteCells; ++i) {
        const Int16 tile = PaletteTile(i);
        const int shown = tile == 0 || tile > LastShownTile ? 1 : static_cast<int>(tile);
        Element(TileImg, i).SetPicture(WorldImages()[shown]);
        Element(TileImg, i).SetFramed(tile == 0);
        Element(TileImg, i).SetToolTip("Tile # " + std::to_string(shown));
    }
    TileIndexBox.SetCaption(std::to_string(WorldCurrentTile));
}

/// The number of the tile in palette cell `Index`, which changes nothing outside the modes of tiles.
Int16 WorldFrm::PaletteTile(int Index) const {
    const Int16 place = TileScroll.Value() * PaletteColumns + Index;
    switch (WorldMode) {
        case 0: return place + 1;
        case FavoritesMode: return Element(PrefsRecord.WorldFavorites, place);
        default: return WorldCurrentTile;
    }
}

void WorldFrm::ShowCurrentTile() {
    CurrentImg.SetPicture(WorldImages()[WorldCurrentTile]);
    TileIndexBox.SetCaption(std::to_string(WorldCurrentTile));
}

void WorldFrm::TileScroll_Change() {
    DummyCmd.SetFocus();
    UpdateWorld();
}

void WorldFrm::TileImg_Click(int Index) {
    if (FavEdit == 1 && WorldMode == FavoritesMode) {
        Element(PrefsRecord.WorldFavorites, TileScroll.Value() * PaletteColumns + Index) = WorldCurrentTile;
        DrawPalette();
    } else if (FavEdit == 0 || WorldMode < FavoritesMode) {
        WorldCurrentTile = PaletteTile(Index);
        ShowCurrentTile();
    }
}
