#pragma once

#include <array>
#include <string>

#include "core/MapGrid.h"
#include "level/LevelRecord.h"
#include "platform/Controls.h"
#include "platform/ImageCell.h"
#include "platform/Int16.h"
#include "platform/Screen.h"

/// The note that tool tips add to a tile's number: " (Breakable Block)" or " (Invisible Block)", or nothing.
/// One place says " (Breakable Tile)" instead.
[[nodiscard]] const char* TileNote(int tile, const char* breakable = " (Breakable Block)");

/// The level position that the read-outs show for a pixel within a cell (0 to 31), along either axis. It rises
/// by a fifteenth for each pixel, since it once divided by the display's units; placed bad guys get the same
/// value, and people know it by heart.
[[nodiscard]] float MapReadOut(Int16 tile, int pixelInCell);

/// The level editor: a view of 18 by 15 tiles with sprites over it, the palette or one of the bad guys' lists
/// beside it, and the toolbar. Its sources follow its duties: MapView.cpp, TilePalette.cpp, TilePainting.cpp,
/// BadGuys.cpp, ResetPoints.cpp, Toolbar.cpp; MainFrm.cpp opens and closes it, MainFrmLayout.cpp makes and
/// places the controls.
struct MainFrm {
    static constexpr int Sprites = 32;
    static constexpr int PaletteCells = 32;
    static constexpr int UsedRows = 9;

    /// What a bad guy's sprite shows. The first free one has index -1 and stands at (-32, -32).
    struct BGSlot {
        Int16 object = -1;  ///< entry of LevelRecord.objects, from 1
        Int16 picture;      ///< number in BadGuysList
        Int16 left = -32;   ///< screen pixels
        Int16 top = -32;
    };

    Screen Window;
    ToolBar TB;
    Label FileNameBox;
    Button DummyCmd;  ///< out of sight; takes the focus after a press of another button

    // The map.
    ImageCell GridBackBox;
    std::array<ImageCell, ViewCells> Img;  ///< down each column first
    std::array<ImageCell, Sprites> BGImg;
    ImageCell NukImage;
    ImageCell ResetImg;
    ScrollBar MapXScroll;
    Timer BGTimer;

    Frame LayerFrame;
    std::array<OptionButton, 4> LayerOption;
    CheckBox GridCheck;
    CheckBox ResetCheck;
    CheckBox AutoCheck;
    Button SetNukCmd;
    Frame ModeFrame;
    std::array<OptionButton, 4> ModeOption;
    Frame CordsFrame;
    Label ColBox;
    Label RowBox;
    Label XBox;
    Label YBox;
    std::array<Label, 4> CordsLabel;

    // The palette.
    Frame TileFrame;
    std::array<ImageCell, PaletteCells> SelImg;
    ScrollBar SelScroll;
    ImageCell CurImg;
    std::array<OptionButton, 3> TilesOption;
    Button BlankTileCmd;

    // The kinds of bad guys.
    Frame ObjectFrame;
    std::array<ImageCell, 10> ObjSelImg;
    std::array<Label, 10> ObjectLabel;
    std::array<Label, 10> ObjCntBox;
    std::array<ImageCell, 10> ObjIndImg;

    // The bad guys in use.
    Frame BGUFrame;
    std::array<ImageCell, UsedRows> BGUImg;
    std::array<Label, UsedRows> BGUNameBox;
    std::array<TextBox, UsedRows> BGUXBox;
    std::array<TextBox, UsedRows> BGUYBox;
    std::array<Label, UsedRows> LabelX;
    std::array<Label, UsedRows> LabelY;
    std::array<CheckBox, UsedRows> StayCheck;
    std::array<ImageCell, UsedRows> BGIndImg;
    ScrollBar BGUScroll;
    Label TotalBGULabel;
    Label TotalBGUBox;
    Button DelBadGuyCmd;

    bool Updating = false;                ///< controls are being filled: the check boxes ignore their clicks
    bool PickingStart = false;            ///< the next click on the map sets the start position
    std::array<bool, Sprites> BGBlink{};  ///< the sprite shows the selected bad guy
    int BlinkPhase = 0;                   ///< 0 or 1
    std::array<BGSlot, Sprites> BGSlots;
    Int16 ShownResetIndex;  ///< the reset point that ResetImg shows, from 1
    Int16 ShownResetX;      ///< level pixels
    Int16 ShownResetY;

    // Opening and closing.
    void Load();
    void MakeControls();
    void RestoreControls();
    void RestoreLevel();
    void Unload();
    void OfferAnotherLevel();

    // The map view.
    void UpdateDisplay();
    void ShowModeFrame();
    void DrawMap();
    void PlaceResetSprite();
    void DrawTiles();
    [[nodiscard]] Int16 ShownTile(int x, int row) const;
    [[nodiscard]] TileMap* EditedLayer() const;
    void PlaceBadGuySprites(Int16 viewLeft, Int16 viewRight);
    void PlaceBadGuySprite(std::size_t slot, int object, Int16 viewLeft);
    void PlaceStartSprite(Int16 viewLeft, Int16 viewRight);
    void ClearSpriteBlink();
    void ClearBGSlots();
    void BGTimer_Timer();
    void MapXScroll_Change() { UpdateDisplay(); }
    void MapXScroll_Scroll() { UpdateDisplay(); }
    void LayerOption_Click(int Index);
    void GridCheck_Click();
    void ResetCheck_Click();
    void FileNameBox_Click() { LoadLevelDialog(); }
    void Img_MouseMove(int Index, int X, int Y);
    void ResetImg_MouseMove();

    // The palette.
    void DrawTilePalette();
    void ScrollPaletteToTile();
    [[nodiscard]] bool KnowsTileSet() const;
    [[nodiscard]] Int16 PaletteTile(int Index) const;
    void ToggleFavoriteA(int Index);
    void ToggleFavoriteB(int Index);
    void TilesOption_Click(int Index);
    void SelScroll_Change() { DrawTilePalette(); }
    void SelScroll_Scroll() { DrawTilePalette(); }
    void SelImg_MouseDown(int Index, int Button);
    void SelImg_MouseMove(int Index);
    void CurImg_MouseMove();
    void BlankTileCmd_Click();

    // Painting.
    void AutoCheck_Click();
    void Img_MouseDown(int Index, int Button, int X, int Y);
    void Img_Click(int Index);
    [[nodiscard]] Int16 LevelColumn(int Index) const;
    void PressTile(Int16 x, Int16 row);
    void PickTile(Int16 x, Int16 row);
    void PaintTile(Int16 x, Int16 row);

    // Bad guys.
    void ModeOption_Click(int Index);
    void ObjSelImg_Click(int Index);
    void PlaceBadGuy(Int16 x, Int16 row, int X, int Y);
    void UpdateObjCounts();
    void UpdateUsedScroll();
    void UpdateUsedList();
    void FillUsedRow(int row, int entry);
    void ShowUsedRow(int row, bool visible);
    void BGUScroll_Change() { UpdateUsedList(); }
    void BGUScroll_Scroll() { UpdateUsedList(); }
    void BGImg_MouseDown(int Index, int Button);
    void BGImg_MouseMove(int Index);
    void BGUImg_Click(int Index);
    void StayCheck_Click(int Index);
    [[nodiscard]] bool BGUBox_KeyPress(int KeyAscii);
    void BGUXBox_Change(int Index);
    void BGUYBox_Change(int Index);
    void DelBadGuyCmd_Click();

    // Reset points and the start position.
    void SetNukCmd_Click();
    void TakeStartPosition(Int16 x, Int16 row);
    void AddResetPoint(Int16 x, Int16 row);

    // The toolbar and the files.
    void TB_ButtonClick(int Position);
    void LoadPrefMap();
    void LoadLevelDialog();
    void SaveLevelDialog();
    void SaveCommand();
};
