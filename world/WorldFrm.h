#pragma once

#include <array>

#include "core/MapGrid.h"
#include "platform/Controls.h"
#include "platform/ImageCell.h"
#include "platform/Int16.h"
#include "platform/Pictures.h"
#include "platform/Screen.h"

/// The world map editor: a view of 18 by 15 tiles with the links and the hero's start over it, the palette or
/// the list of links beside it, and the toolbar. Its sources follow its duties: WorldView.cpp,
/// WorldPainting.cpp, LinkList.cpp, WorldFiles.cpp; WorldFrm.cpp opens and closes it, WorldFrmLayout.cpp makes
/// and places the controls.
///
/// What a click cannot reach in WorldRecord, in the favorites, in WorldImages or in DotImg is fault 9; no
/// routine traps it but OpenWorldDialog and SaveWorldAsDialog.
struct WorldFrm {
    /// What WorldMode says: what the panel and the map show, and what a click on the map does.
    enum MapMode { TableMode = 0, FavoritesMode = 1, LinkMode = 2, AllLayersMode = 3, StartMode = 4 };

    static constexpr int Sprites = 64;
    static constexpr int PaletteCells = 36;
    static constexpr int LinkRows = 16;

    Screen Window;
    ToolBar WTB;
    Label FileNameBox;
    Button DummyCmd;  ///< out of sight; takes the focus from the scroll bars

    // The map.
    Picture BlankImg;                       ///< what each cell shows while there is no world
    std::array<ImageCell, ViewCells> Img;   ///< down each column first
    ImageCell NukImg;                       ///< the hero's start
    std::array<ImageCell, Sprites> DotImg;  ///< by link number
    ScrollBar MapXScroll;
    ScrollBar MapYScroll;

    Frame Frame2;
    std::array<OptionButton, 5> ModeOption;
    CheckBox FavCheck;
    Frame CordsFrame;
    CheckBox AutoCheck;
    std::array<Label, 2> CordsLabel;
    Label MouseXBox;
    Label MouseYBox;

    // The palette.
    Frame TilesFrame;
    std::array<ImageCell, PaletteCells> TileImg;  ///< along each row first
    ScrollBar TileScroll;
    ImageCell CurrentImg;
    Label TileIndexLabel;
    Label TileIndexBox;

    // The list of links.
    Frame LinkFrame;
    std::array<Label, 7> LinkHeading;
    std::array<ImageCell, LinkRows> LinkIndImg;
    std::array<Label, LinkRows> LinkNumBox;
    std::array<Label, LinkRows> LinkTypeBox;
    ScrollBar LinkScroll;
    Label Line1;
    Label LinkXBox;
    Label LinkYBox;
    Label LinkDXBox;
    Label LinkDYBox;
    Label LinkNameBox;

    bool Updating = false;  ///< controls are being filled
    bool NoWorld = false;   ///< there was none to draw
    Int16 WorldMode;        ///< a MapMode
    Int16 FavEdit;          ///< 1 while clicks on the favorites assign them
    Int16 FirstCol;         ///< the map columns and rows in view
    Int16 LastCol;
    Int16 FirstRow;
    Int16 LastRow;

    // Opening and closing.
    void Load();
    void MakeControls();
    void RestoreWorld();
    void RestoreScroll();
    void ClearReadOuts();
    void Unload();

    // The view.
    void UpdateWorld();
    void UpdateView();
    [[nodiscard]] bool ShowsTiles() const { return WorldMode == TableMode || WorldMode == FavoritesMode; }
    void ShowModePanel();
    void DrawWorldMap();
    void DrawTiles();
    void PlaceStartSprite();
    void DrawLinks();
    void DrawLink(int n);
    void HideSprites(int first, int last);
    void MapScroll_Change();
    void Img_MouseMove(int Index);

    // Painting.
    /// Whether the options and check boxes ignore their clicks.
    [[nodiscard]] bool IsDeaf() const { return Updating || NoWorld; }
    void ModeOption_Click(int Index);
    void FavCheck_Click();
    void AutoCheck_Click();
    void Img_MouseDown(int Index, int Button);
    void PaintTile(Int16 x, Int16 y);
    void PickTile(Int16 x, Int16 y);
    void EditLinkAt(Int16 x, Int16 y, int Button);
    void SetStart(Int16 x, Int16 y);
    void DrawPalette();
    [[nodiscard]] Int16 PaletteTile(int Index) const;
    void ShowCurrentTile();
    void TileScroll_Change();
    void TileImg_Click(int Index);

    // The list of links, and their sprites as handles.
    void DrawLinkList();
    void DrawLinkRow(int row);
    void ShowLinkPosition();
    void LinkRow_Click(int Index);
    void LinkScroll_Change();
    void DotImg_MouseDown(int Index, int Button);
    void DotImg_MouseMove(int Index);

    // The toolbar and the files.
    void WTB_ButtonClick(int Position);
    void FileNameBox_Click();
    void ClearWorld();
    void NewWorld();
    void OpenWorldDialog();
    void SaveWorldAsDialog();
};
