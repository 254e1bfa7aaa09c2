#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "world/WorldFrm.h"

namespace {

/// Sprites behind this one are hidden with all of them, but not one by one when links become fewer.
constexpr int LastClearedSprite = 31;

/// How a link of this type shows on the map.
struct SpriteKind {
    int type;
    int picture;  ///< number in WorldImages
    bool always;  ///< in every mode that shows links, not only where all of them are
    std::string (*toolTip)(const WorldLink& link);
};

std::string Destination(const WorldLink& link) {
    return "X:" + std::to_string(link.dest_x) + " Y:" + std::to_string(link.dest_y);
}

constexpr SpriteKind SpriteKinds[] = {
    {LevelLink, 72, false, [](const WorldLink& link) { return "Map = " + link.name; }},
    {MessageLink, 75, true, [](const WorldLink& link) { return "Message: " + link.message; }},
    {TeleportLink, 74, false,
     [](const WorldLink& link) { return "Teleport to " + Destination(link) + ", Message:" + link.message; }},
    {InvisibleLink, 76, true, [](const WorldLink& link) { return "Invisible Teleport to " + Destination(link); }},
};

bool Between(Int16 first, Int16 number, Int16 last) { return number >= first && number <= last; }

}  // namespace

/// Draws the whole screen from the records. Without a world it only turns the options and check boxes deaf.
void WorldFrm::UpdateWorld() {
    const UpdatingGuard updating(Updating);
    YieldToEventQueue();
    NoWorld = WorldReadError <= 0 && WorldLoaded == False;
    if (NoWorld) {
        return;
    }
    if (WorldReadError > 0) {
        ShowMessage("Error # " + std::to_string(WorldReadError), "World Read Error", MessageButtons::Ok,
                    MessageIcon::Stop);
    } else if (WorldRecord.width < ViewColumns || WorldRecord.height < ViewRows) {
        ShowMessage("World Map Size Error!\r\nWidth = " + std::to_string(WorldRecord.width) +
                        ", Height = " + std::to_string(WorldRecord.height),
                    "World Map Error", MessageButtons::Ok, MessageIcon::Stop);
    } else {
        UpdateView();
    }
}

void WorldFrm::UpdateView() {
    FileNameBox.SetCaption(WorldPath);
    MapXScroll.SetMax(WorldRecord.width - ViewColumns);
    MapYScroll.SetMax(WorldRecord.height - ViewRows);
    FirstCol = MapXScroll.Value();
    LastCol = FirstCol + (ViewColumns - 1);
    FirstRow = MapYScroll.Value();
    LastRow = FirstRow + (ViewRows - 1);
    ShowModePanel();
    DrawPalette();
    DrawLinkList();
    FavCheck.SetValue(FavEdit);
    DrawWorldMap();
}

void WorldFrm::ShowModePanel() {
    TilesFrame.SetVisible(ShowsTiles());
    LinkFrame.SetVisible(WorldMode == LinkMode);
    FavCheck.SetEnabled(ShowsTiles());
}

void WorldFrm::DrawWorldMap() {
    DrawTiles();
    PlaceStartSprite();
    if (ShowsTiles()) {
        HideSprites(0, Sprites - 1);
    } else {
        DrawLinks();
    }
    Int16& complete = PrefsRecord.WorldAutoComplete;
    if (complete != 0) {
        complete = 1;
    }
    AutoCheck.SetValue(complete);
}

void WorldFrm::DrawTiles() {
    const ImageList& pictures = WorldImages();
    const Int16 left = MapXScroll.Value();
    const Int16 top = MapYScroll.Value();
    for (int row = 0; row < ViewRows; ++row) {
        for (int column = 0; column < ViewColumns; ++column) {
            const Int16 tile = WorldRecord.tiles(left + column, top + row);
            Element(Img, CellIndex(column, row)).SetPicture(tile != 0 ? pictures[tile] : Picture());
        }
    }
}

void WorldFrm::PlaceStartSprite() {
    const Int16 sx = WorldRecord.start_pos_x - MapXScroll.Value();
    const Int16 sy = WorldRecord.start_pos_y - MapYScroll.Value();
    const bool shown = WorldMode >= AllLayersMode && Between(0, sx, ViewColumns - 1) && Between(0, sy, ViewRows - 1);
    if (shown) {
        const ImageCell& cell = Element(Img, CellIndex(sx, sy));
        NukImg.Move(cell.Left(), cell.Top());
    }
    NukImg.SetVisible(shown);
}

void WorldFrm::DrawLinks() {
    for (int n = 1; n <= WorldRecord.LinkCount; ++n) {
        DrawLink(n);
    }
    HideSprites(WorldRecord.LinkCount + 1, LastClearedSprite);
}

/// A link without a kind leaves the sprite as it was.
void WorldFrm::DrawLink(int n) {
    const WorldLink& link = WorldRecord.levels[n];
    if (!Between(FirstCol, link.x, LastCol) || !Between(FirstRow, link.y, LastRow)) {
        HideSprites(n, n);
        return;
    }
    for (const SpriteKind& kind : SpriteKinds) {
        if (kind.type == link.type) {
            const ImageCell& cell = Element(Img, CellIndex(link.x - FirstCol, link.y - FirstRow));
            ImageCell& sprite = Element(DotImg, n);
            sprite.Move(cell.Left(), cell.Top());
            sprite.SetPicture(WorldImages()[kind.picture]);
            sprite.SetToolTip(kind.toolTip(link));
            sprite.SetVisible(kind.always || WorldMode == LinkMode || WorldMode == AllLayersMode);
        }
    }
}

void WorldFrm::HideSprites(int first, int last) {
    for (int n = first; n <= last; ++n) {
        Element(DotImg, n).SetVisible(false);
    }
}

void WorldFrm::MapScroll_Change() {
    DummyCmd.SetFocus();
    UpdateWorld();
}

void WorldFrm::Img_MouseMove(int Index) {
    if (WorldLoaded == False) {
        return;
    }
    const Int16 x = MapXScroll.Value() + CellColumn(Index);
    const Int16 y = MapYScroll.Value() + CellRow(Index);
    Element(Img, Index)
        .SetToolTip("Tile = " + std::to_string(WorldRecord.tiles(x, y)) + ", X = " + std::to_string(x) +
                    ", Y = " + std::to_string(y));
    MouseXBox.SetCaption(std::to_string(x));
    MouseYBox.SetCaption(std::to_string(y));
}
