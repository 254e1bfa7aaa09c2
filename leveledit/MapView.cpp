#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "leveledit/MainFrm.h"
#include "platform/Conversions.h"

namespace {

constexpr int EmptyCellTile = 204;  // its picture is the empty square of the grid
constexpr int ViewWidth = ViewColumns * TileSize;
constexpr float TwipsPerPixel = 15.0F;

/// The one of three tiles that lies on top and is not empty.
Int16 Topmost(Int16 foreground, Int16 interactive, Int16 background) {
    if (foreground != 0) {
        return foreground;
    }
    return interactive != 0 ? interactive : background;
}

/// The tile that a level pixel lies in, from 0; pixels above or left of the level lie in negative ones.
int TileOf(Int16 pixel) { return (pixel < 0 ? pixel - (TileSize - 1) : pixel) / TileSize; }

}  // namespace

const char* TileNote(int tile, const char* breakable) {
    switch (tile) {
        case 77:
        case 78: return breakable;
        case 112: return " (Invisible Block)";
        default: return "";
    }
}

float MapReadOut(Int16 tile, int pixelInCell) {
    return static_cast<float>(tile * TileSize) + static_cast<float>(pixelInCell) / TwipsPerPixel;
}

void MainFrm::UpdateDisplay() {
    if (!LevelPath.empty()) {  // until then the box asks for a click
        FileNameBox.SetCaption(LevelPath + "   [Level Width = " + std::to_string(LevelRecord.width) + "]");
    }
    UpdateUsedScroll();
    ShowModeFrame();
    DrawMap();
}

void MainFrm::ShowModeFrame() {
    ObjectFrame.SetVisible(CurrentMode == PlaceBadGuysMode);
    BGUFrame.SetVisible(CurrentMode == EditBadGuysMode);
    TileFrame.SetVisible(CurrentMode == TileMode || CurrentMode == EditFavoritesMode);
    switch (CurrentMode) {
        case TileMode:
        case EditFavoritesMode: DrawTilePalette(); break;
        case PlaceBadGuysMode: UpdateObjCounts(); break;
        case EditBadGuysMode: UpdateUsedList(); break;
        default: break;
    }
}

void MainFrm::DrawMap() {
    if (LevelLoaded == False) {
        return;
    }
    const UpdatingGuard updating(Updating);
    PlaceResetSprite();
    // Before all that depends on it: a bar beyond a narrower level moves here, and draws the map itself then.
    MapXScroll.SetMax(LevelRecord.width - ViewColumns);
    const Int16 viewLeft = MapXScroll.Value() * TileSize;
    const Int16 viewRight = viewLeft + ViewWidth;
    DrawTiles();
    PlaceBadGuySprites(viewLeft, viewRight);
    PlaceStartSprite(viewLeft, viewRight);
    GridBackBox.SetVisible(PrefsRecord.GridState == 0);
}

/// One sprite serves all reset points: it shows the first one in view.
void MainFrm::PlaceResetSprite() {
    if (PrefsRecord.ResetState < 1 || LevelRecord.ResetPointCount < 1) {
        ResetImg.SetVisible(false);
        return;
    }
    const Int16 firstColumn = MapXScroll.Value();
    for (int i = 1; i <= LevelRecord.ResetPointCount; ++i) {
        const ResetPoint& point = LevelRecord.reset_points[i];
        const int column = TileOf(point.x) - firstColumn;
        if (column < 0 || column >= ViewColumns) {
            ResetImg.SetVisible(false);
            continue;
        }
        const ImageCell& cell = Element(Img, CellIndex(column, TileOf(point.y)));
        ResetImg.Move(cell.Left(), cell.Top());
        ShownResetIndex = i;
        ShownResetX = point.x;
        ShownResetY = point.y;
        ResetImg.SetVisible(true);
        return;
    }
}

/// The tile that the view shows at column `x` of the level: that of the selected layer, or of all layers the
/// topmost.
Int16 MainFrm::ShownTile(int x, int row) const {
    if (const TileMap* layer = EditedLayer()) {
        return (*layer)(x, row);
    }
    return Topmost(LevelRecord.foreground_tm(x, row), LevelRecord.interactive_tm(x, row),
                   LevelRecord.background_tm(x, row));
}

/// The layer that is selected, or null for all of them.
TileMap* MainFrm::EditedLayer() const {
    switch (CurrentLayer) {
        case BackgroundLayer: return &LevelRecord.background_tm;
        case InteractiveLayer: return &LevelRecord.interactive_tm;
        case ForegroundLayer: return &LevelRecord.foreground_tm;
        default: return nullptr;
    }
}

void MainFrm::DrawTiles() {
    const Picture empty = PrefsRecord.GridState == 0 ? Picture() : BlockImgList()[EmptyCellTile];
    const Int16 firstColumn = MapXScroll.Value();
    for (int row = 0; row < ViewRows; ++row) {
        for (int column = 0; column < ViewColumns; ++column) {
            const Int16 tile = ShownTile(firstColumn + column, row);
            const bool shown = tile != 0 && tile <= LastTile;
            Element(Img, CellIndex(column, row)).SetPicture(shown ? BlockImgList()[tile] : empty);
        }
    }
}

void MainFrm::PlaceBadGuySprites(Int16 viewLeft, Int16 viewRight) {
    const bool shown = CurrentMode != TileMode || CurrentLayer == AllLayers;
    std::size_t slot = 0;
    for (int i = 1; shown && i <= LevelRecord.BadGuyCount; ++i) {
        const Int16 x = LevelRecord.objects[i].x;
        if (x > viewLeft && x < viewRight) {
            PlaceBadGuySprite(slot, i, viewLeft);
            if (++slot == Sprites) {
                return;
            }
        }
    }
    BGSlots[slot].object = -1;
    BGSlots[slot].left = BGSlots[slot].top = -TileSize;
    for (; slot < Sprites; ++slot) {
        BGImg[slot].SetVisible(false);
    }
}

/// Along x a sprite follows the pitch of the cells. Along y it keeps the level's scale, and so drifts up from
/// the grid towards the bottom.
void MainFrm::PlaceBadGuySprite(std::size_t slot, int object, Int16 viewLeft) {
    const BadGuy& badGuy = LevelRecord.objects[object];
    ImageCell& sprite = BGImg[slot];
    const Int16 stretched = (badGuy.x - viewLeft) * CellPitch;
    sprite.Move(Img[0].Left() + static_cast<double>(stretched) / TileSize, Img[0].Top() + int{badGuy.y});
    const Int16 picture = badGuy.kind + 1;
    BGSlots[slot] = {object, picture, RoundToInt16(sprite.Left()), RoundToInt16(sprite.Top())};
    sprite.SetPicture(BadGuysList()[picture]);
    sprite.SetVisible(true);
    BGBlink[slot] = object == SelectedBadGuy;
}

/// The start position's sprite stands at the level's own scale, without the margin of the cells.
void MainFrm::PlaceStartSprite(Int16 viewLeft, Int16 viewRight) {
    const bool inView = LevelRecord.start_pos_x > viewLeft && LevelRecord.start_pos_x < viewRight;
    if (inView) {
        NukImage.Move(LevelRecord.start_pos_x - viewLeft, Img[0].Top() + int{LevelRecord.start_pos_y});
    }
    NukImage.SetVisible(inView);
}

void MainFrm::ClearSpriteBlink() {
    BGBlink.fill(false);
    BlinkPhase = 0;
}

void MainFrm::ClearBGSlots() { BGSlots.fill({}); }

void MainFrm::BGTimer_Timer() {
    BlinkPhase = BlinkPhase == 0 ? 1 : 0;
    for (std::size_t slot = 0; slot < Sprites; ++slot) {
        BGImg[slot].SetBorder(BGBlink[slot] ? BlinkPhase : 0);
    }
}

void MainFrm::LayerOption_Click(int Index) {
    CurrentLayer = Index;
    UpdateDisplay();
}

void MainFrm::GridCheck_Click() {
    if (!Updating) {
        PrefsRecord.GridState = GridCheck.Value();
        DrawMap();
    }
}

void MainFrm::ResetCheck_Click() {
    if (!Updating) {
        PrefsRecord.ResetState = ResetCheck.Value();
        UpdateDisplay();
    }
}

void MainFrm::Img_MouseMove(int Index, int X, int Y) {
    if (LevelLoaded == False) {
        return;
    }
    const Int16 x = LevelColumn(Index);
    const Int16 row = CellRow(Index);
    const Int16 tile = ShownTile(x, row);
    Element(Img, Index)
        .SetToolTip("Index = " + std::to_string(Index) + ", Column = " + std::to_string(x) +
                    ", Row = " + std::to_string(row) + ", Tile # " + std::to_string(tile) + TileNote(tile));
    ColBox.SetCaption(std::to_string(x) + " ");
    RowBox.SetCaption(std::to_string(row) + " ");
    XBox.SetCaption(SingleToText(MapReadOut(x, X)) + " ");
    YBox.SetCaption(SingleToText(MapReadOut(row, Y)) + " ");
}

void MainFrm::ResetImg_MouseMove() {
    ResetImg.SetToolTip("Reset Point: Index = " + std::to_string(ShownResetIndex) +
                        ", X = " + std::to_string(ShownResetX) + ", Y = " + std::to_string(ShownResetY));
}
