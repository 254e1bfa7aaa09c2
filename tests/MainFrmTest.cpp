#include <fstream>

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/LevelWriter.h"
#include "platform/Files.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"

// The map view, the palette, painting, the toolbar and the start-up of MainFrm, through its window.

namespace {

constexpr const char* Main = "MainFrm";

std::string Img(int column, int row) { return "Img(" + std::to_string(column * 15 + row) + ")"; }

std::string SelImg(int index) { return "SelImg(" + std::to_string(index) + ")"; }

class MainFrmTest : public ScreenTest {
protected:
    static void Open() {
        LoadMainFrm();
        ShowMainFrm();
    }

    static void OpenWithLevel(int width) {
        Open();
        MakeLevel(width);
        UpdateDisplay();
    }

    static void ShowsTile(int column, int row, int tile) {
        EXPECT_EQ(CellOf(Main, Img(column, row)).Shown(), tile == 0 ? Picture() : BlockImgList()[tile])
            << column << ", " << row << " does not show " << tile;
    }
};

TEST_F(MainFrmTest, FirstStartAsksForALevel) {
    Open();
    EXPECT_EQ(CaptionOf(Main, "FileNameBox"), "Click here to open an existing Floebird Level file.");
    EXPECT_EQ(WindowOf(Main).windowTitle().toStdString(), "FB_Editor V1.09 - Floebird Level Editor by Quillhare");
    for (const char* chosen : {"LayerOption(0)", "ModeOption(0)", "TilesOption(0)"}) {
        EXPECT_TRUE(IsTicked(Main, chosen)) << chosen;
    }
    EXPECT_EQ(ScrollMaxOf(Main, "MapXScroll"), 32767);
    EXPECT_EQ(SelectedBadGuy, -1);
    EXPECT_EQ(ToolTipOf(Main, "ObjSelImg(5)"), "Click to select Bouncing Spikey");
    ClickCell(Main, Img(0, 0), Qt::RightButton);
    MoveOverCell(Main, Img(3, 3));
    EXPECT_EQ(CaptionOf(Main, "ColBox"), "");
    ClickCell(Main, Img(0, 0));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text,
              "You must create the level first!\r\nUse the File menu to create a new set or level.");
    EXPECT_EQ(dialogs.messages[0].title, "No Level Width Specified");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(MainFrmTest, CellsRunDownEachColumn) {
    Open();
    EXPECT_EQ(CellOf(Main, "Img(0)").Left(), 10);
    EXPECT_EQ(CellOf(Main, "Img(0)").Top(), 80);
    EXPECT_EQ(CellOf(Main, "Img(269)").Left(), 10 + 34 * 17);
    EXPECT_EQ(CellOf(Main, "Img(16)").Top(), 80 + 34);
}

TEST_F(MainFrmTest, LayersShowOneTileOfACell) {
    OpenWithLevel(40);
    LevelRecord.background_tm(1, 1) = 5;
    LevelRecord.interactive_tm(1, 1) = 6;
    LevelRecord.foreground_tm(1, 1) = 7;
    LevelRecord.interactive_tm(2, 1) = 8;
    LevelRecord.background_tm(3, 1) = 205;
    const struct {
        const char* option;
        int first;
        int second;
    } cases[] = {
        {"LayerOption(3)", 7, 8}, {"LayerOption(0)", 5, 0}, {"LayerOption(1)", 6, 8}, {"LayerOption(2)", 7, 0}};
    for (const auto& [option, first, second] : cases) {
        ClickOn(Main, option);
        ShowsTile(1, 1, first);
        ShowsTile(2, 1, second);
        ShowsTile(3, 1, 0);
    }
    EXPECT_TRUE(IsShown(Main, "GridBackBox"));
    ClickOn(Main, "GridCheck");
    EXPECT_EQ(PrefsRecord.GridState, 1);
    EXPECT_FALSE(IsShown(Main, "GridBackBox"));
    ShowsTile(3, 1, 204);
    ShowsTile(1, 1, 7);
    ClickOn(Main, "LayerOption(0)");
    MoveOverCell(Main, Img(3, 1));
    EXPECT_EQ(ToolTipOf(Main, Img(3, 1)), "Index = 46, Column = 3, Row = 1, Tile # 205");
}

TEST_F(MainFrmTest, ScrollingMovesTheView) {
    OpenWithLevel(40);
    LevelRecord.background_tm(39, 14) = 9;
    UpdateDisplay();
    EXPECT_EQ(ScrollMaxOf(Main, "MapXScroll"), 22);
    ScrollTo(Main, "MapXScroll", 22);
    ShowsTile(17, 14, 9);
    LevelRecord.background_tm(39, 14) = 77;
    MoveOverCell(Main, Img(17, 14), {31, 15});
    EXPECT_EQ(ToolTipOf(Main, Img(17, 14)), "Index = 269, Column = 39, Row = 14, Tile # 77 (Breakable Block)");
    EXPECT_EQ(CaptionOf(Main, "ColBox"), "39 ");
    EXPECT_EQ(CaptionOf(Main, "RowBox"), "14 ");
    EXPECT_EQ(CaptionOf(Main, "XBox"), "1250.067 ");
    EXPECT_EQ(CaptionOf(Main, "YBox"), "449 ");
    LevelRecord.width = 18;
    UpdateDisplay();
    EXPECT_EQ(ScrollMaxOf(Main, "MapXScroll"), 0);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(MainFrmTest, SpritesStandWhereTheLevelSays) {
    OpenWithLevel(100);
    for (const int x : {0, 33, 576 - 1, 576, 64}) {
        LevelRecord.BadGuyCount += 1;
        LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
        LevelRecord.objects[LevelRecord.BadGuyCount] = {4, "spiky", x, 448, 0};
    }
    LevelRecord.start_pos_x = 64;
    LevelRecord.start_pos_y = 320;
    UpdateDisplay();
    EXPECT_FALSE(IsShown(Main, "BGImg(0)")) << "tile mode on one layer shows no bad guys";
    EXPECT_EQ(CellOf(Main, "NukImage").Left(), 64);
    EXPECT_EQ(CellOf(Main, "NukImage").Top(), 400);
    ClickOn(Main, "LayerOption(3)");
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Left(), 10 + 33 * 34 / 32.0);
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Top(), 80 + 448);
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Shown(), BadGuysList()[5]);
    EXPECT_EQ(CellOf(Main, "BGImg(1)").Left(), 10 + 575 * 34 / 32.0);
    EXPECT_TRUE(IsShown(Main, "BGImg(2)"));
    EXPECT_FALSE(IsShown(Main, "BGImg(3)"));
    ScrollTo(Main, "MapXScroll", 2);
    EXPECT_FALSE(IsShown(Main, "NukImage")) << "a start at the view's left edge is not shown";
    EXPECT_TRUE(IsShown(Main, "BGImg(1)"));
    EXPECT_FALSE(IsShown(Main, "BGImg(2)"));
}

TEST_F(MainFrmTest, AtMost32BadGuysAreShown) {
    OpenWithLevel(100);
    LevelRecord.BadGuyCount = 33;
    LevelRecord.objects.Resize(33);
    for (int i = 1; i <= 33; ++i) {
        LevelRecord.objects[i] = {0, "snowball", 10 * i, 32, 0};
    }
    ClickOn(Main, "LayerOption(3)");
    EXPECT_TRUE(IsShown(Main, "BGImg(31)"));
    EXPECT_EQ(CellOf(Main, "BGImg(31)").Left(), 10 + 320 * 34 / 32.0);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(MainFrmTest, OneSpriteServesAllResetPoints) {
    OpenWithLevel(100);
    LevelRecord.ResetPointCount = 2;
    LevelRecord.reset_points.Resize(2);
    LevelRecord.reset_points[1] = {16 * 32, 64};
    LevelRecord.reset_points[2] = {5 * 32, 31};
    UpdateDisplay();
    EXPECT_FALSE(IsShown(Main, "ResetImg"));
    ClickOn(Main, "ResetCheck");
    EXPECT_EQ(CellOf(Main, "ResetImg").Left(), CellOf(Main, Img(16, 2)).Left());
    EXPECT_EQ(CellOf(Main, "ResetImg").Top(), CellOf(Main, Img(16, 2)).Top());
    MoveOverCell(Main, "ResetImg");
    EXPECT_EQ(ToolTipOf(Main, "ResetImg"), "Reset Point: Index = 1, X = 512, Y = 64");
    ScrollTo(Main, "MapXScroll", 17);
    EXPECT_FALSE(IsShown(Main, "ResetImg"));
}

TEST_F(MainFrmTest, PaletteSelectsTiles) {
    OpenWithLevel(40);
    ClickCell(Main, SelImg(5));
    EXPECT_EQ(CurrentTile, 6);
    EXPECT_EQ(CellOf(Main, "CurImg").Shown(), BlockImgList()[6]);
    ClickCell(Main, SelImg(7), Qt::RightButton);
    EXPECT_EQ(CurrentTile, 6);
    ScrollTo(Main, "SelScroll", 43);
    EXPECT_EQ(CellOf(Main, SelImg(31)).Shown(), BlockImgList()[204]);
    ClickCell(Main, SelImg(0));
    EXPECT_EQ(CurrentTile, 173);
    ScrollTo(Main, "SelScroll", 19);
    MoveOverCell(Main, SelImg(0));
    EXPECT_EQ(ToolTipOf(Main, SelImg(0)), "Tile # 77 (Breakable Block)");
    ClickCell(Main, SelImg(0));
    MoveOverCell(Main, "CurImg");
    EXPECT_EQ(ToolTipOf(Main, "CurImg"), "Tile # 77 (Breakable Tile)");
    ClickOn(Main, "BlankTileCmd");
    EXPECT_EQ(CurrentTile, 0);
    EXPECT_EQ(CellOf(Main, "CurImg").Shown(), BlockImgList()[204]);
    ClickOn(Main, "LayerOption(3)");
    EXPECT_FALSE(IsShown(Main, "TileFrame"));
}

class FavoritesTest : public MainFrmTest {
protected:
    void OpenList(char list) {
        OpenWithLevel(40);
        ClickOn(Main, "ModeOption(3)");
        ClickOn(Main, list == 'A' ? "TilesOption(1)" : "TilesOption(2)");
    }

    static void Choose(int tile) { CurrentTile = tile; }
};

TEST_F(FavoritesTest, InsertingMovesTheOthersUp) {
    OpenList('A');
    EXPECT_FALSE(IsShown(Main, "SelScroll"));
    for (const int tile : {10, 20, 30}) {
        Choose(tile);
        ClickCell(Main, SelImg(0));
    }
    EXPECT_EQ(PrefsRecord.FavoritesA[0], 30);
    EXPECT_EQ(PrefsRecord.FavoritesA[2], 10);
    EXPECT_EQ(CellOf(Main, SelImg(1)).Shown(), BlockImgList()[20]);
    EXPECT_EQ(CellOf(Main, SelImg(3)).Shown(), Picture());
    Choose(40);
    ClickCell(Main, SelImg(31));
    EXPECT_EQ(PrefsRecord.FavoritesA[31], 40);
    Choose(50);
    ClickCell(Main, SelImg(5));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0], (ScriptedDialogs::Message{"Favorites A List Full", "Favorites A Error",
                                                             MessageButtons::Ok, MessageIcon::Warning}));
    EXPECT_EQ(CurrentTile, 50);
    EXPECT_EQ(PrefsRecord.FavoritesA[5], 0);
    // In tile mode a cell selects, an empty one the blank tile.
    ClickOn(Main, "ModeOption(0)");
    ClickCell(Main, SelImg(1));
    EXPECT_EQ(CurrentTile, 20);
    ClickCell(Main, SelImg(7));
    EXPECT_EQ(CurrentTile, 0);
}

TEST_F(FavoritesTest, ListsDifferInTheTileAfterARemoval) {
    for (const char list : {'A', 'B'}) {
        ResetState();
        auto& favorites = list == 'A' ? PrefsRecord.FavoritesA : PrefsRecord.FavoritesB;
        for (int i = 0; i < 32; ++i) {
            favorites[static_cast<std::size_t>(i)] = 100 + i;
        }
        OpenList(list);
        Choose(105);
        ClickCell(Main, SelImg(20));
        EXPECT_EQ(favorites[5], 106);
        EXPECT_EQ(favorites[31], 0);
        EXPECT_EQ(CurrentTile, list == 'A' ? 106 : 121) << list;
        Choose(131);
        ClickCell(Main, SelImg(30));
        EXPECT_EQ(CurrentTile, 0) << list;
        CloseScreen(Main);
        DeliverEvents();
    }
}

TEST_F(MainFrmTest, PressPaintsAndClickCompletes) {
    OpenWithLevel(40);
    ClickOn(Main, "AutoCheck");
    CurrentTile = 85;
    PressCell(Main, Img(2, 3));
    EXPECT_EQ(LevelRecord.background_tm(2, 3), 85);
    EXPECT_EQ(LevelRecord.background_tm(3, 3), 0);
    ReleaseCell(Main, Img(2, 3));
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(LevelRecord.background_tm(2 + i % 4, 3 + i / 4), 85 + i);
        ShowsTile(2 + i % 4, 3 + i / 4, 85 + i);
    }
    EXPECT_EQ(LevelRecord.interactive_tm, TileMap(40, 15));
    // A press that is not released on its cell paints without completing.
    PressCell(Main, Img(10, 3));
    ReleaseCell(Main, Img(11, 3));
    EXPECT_EQ(LevelRecord.background_tm(10, 3), 85);
    EXPECT_EQ(LevelRecord.background_tm(11, 3), 0);
    ClickOn(Main, "LayerOption(3)");
    ClickCell(Main, Img(0, 0));
    EXPECT_EQ(LevelRecord.background_tm(0, 0), 0);
}

TEST_F(MainFrmTest, RightButtonPicksATile) {
    OpenWithLevel(40);
    LevelRecord.foreground_tm(4, 4) = 203;
    ClickOn(Main, "LayerOption(2)");
    ClickCell(Main, Img(4, 4), Qt::RightButton);
    EXPECT_EQ(CurrentTile, 203);
    EXPECT_EQ(ScrollValueOf(Main, "SelScroll"), 43);
    ClickCell(Main, Img(5, 4), Qt::RightButton);
    EXPECT_EQ(CurrentTile, 0);
    EXPECT_EQ(ScrollValueOf(Main, "SelScroll"), 0);
    CurrentTile = 9;
    ClickOn(Main, "LayerOption(3)");
    ClickCell(Main, Img(4, 4), Qt::RightButton);
    EXPECT_EQ(CurrentTile, 9);
}

/// Each shape with the guards that let it in and keep it out, on all layers.
TEST_F(MainFrmTest, ShapesKeepTheirGuards) {
    const struct {
        int starter;
        int columns;  // x + columns may reach the width
        int lowest;   // lowest row that takes the shape; 14 for shapes without a bound
        int tiles;    // written beside the starter
    } shapes[] = {{50, 2, 13, 3},  {53, 2, 14, 1},  {55, 2, 14, 1},  {57, 2, 14, 1},  {59, 2, 14, 1},  {85, 4, 13, 7},
                  {106, 3, 13, 5}, {115, 2, 12, 3}, {122, 2, 14, 1}, {124, 2, 14, 1}, {134, 2, 14, 1}, {136, 2, 12, 3}};
    OpenWithLevel(21);
    ClickOn(Main, "AutoCheck");
    ScrollTo(Main, "MapXScroll", 3);
    const auto written = [](int layer, int starter, int x, int y) {
        MakeLevel(21);
        ClickOn(Main, "LayerOption(" + std::to_string(layer) + ")");
        CurrentTile = starter;
        ClickCell(Main, Img(x - 3, y));
        const TileMap* maps[] = {&LevelRecord.background_tm, &LevelRecord.interactive_tm, &LevelRecord.foreground_tm};
        int count = -1;  // the starter itself
        for (int column = 0; column <= 21; ++column) {
            for (int row = 0; row <= 15; ++row) {
                count += (*maps[layer])(column, row) != 0 ? 1 : 0;
            }
        }
        return count;
    };
    for (const auto& shape : shapes) {
        const bool downward = shape.starter == 53 || shape.starter == 55;
        for (int layer = 0; layer < 3; ++layer) {
            SCOPED_TRACE("starter " + std::to_string(shape.starter) + " on layer " + std::to_string(layer));
            EXPECT_EQ(written(layer, shape.starter, 21 - shape.columns, 0), shape.tiles);
            EXPECT_EQ(written(layer, shape.starter, 22 - shape.columns, 0), downward && layer == 2 ? 1 : 0);
            EXPECT_EQ(written(layer, shape.starter, 5, shape.lowest), shape.tiles);
            if (shape.lowest < 14) {
                EXPECT_EQ(written(layer, shape.starter, 5, shape.lowest + 1), 0);
            }
        }
    }
    EXPECT_EQ(written(0, 50, 5, 5), 3);
    EXPECT_EQ(LevelRecord.background_tm(6, 5), 49);
    EXPECT_EQ(LevelRecord.background_tm(6, 6), 52);
    EXPECT_EQ(written(0, 136, 5, 5), 3);
    EXPECT_EQ(LevelRecord.background_tm(6, 6), 139);
}

TEST_F(MainFrmTest, FilesOpenAndSave) {
    OpenWithLevel(30);
    WriteLevelFile((folder / "a.fbl").string());
    dialogs.files = {(folder / "a.fbl").string(), (folder / "b.fbl").string()};
    ScrollTo(Main, "MapXScroll", 5);
    ClickOn(Main, "FileNameBox");
    ASSERT_EQ(dialogs.fileDialogs.size(), 1U);
    EXPECT_EQ(dialogs.fileDialogs[0].filter, "*.fbl|*.fbl");
    EXPECT_EQ(dialogs.fileDialogs[0].folder, UserLevelsFolder);
    EXPECT_EQ(dialogs.fileDialogs[0].proposedName, "level.fbl");
    EXPECT_EQ(ScrollValueOf(Main, "MapXScroll"), 0);
    EXPECT_EQ(CaptionOf(Main, "FileNameBox"), (folder / "a.fbl").string() + "   [Level Width = 30]");
    CurrentTile = 12;
    ClickCell(Main, Img(0, 0));
    ClickOn(Main, "TB(8)");
    EXPECT_EQ(LevelPath, (folder / "b.fbl").string());
    EXPECT_EQ(CaptionOf(Main, "FileNameBox"), (folder / "a.fbl").string() + "   [Level Width = 30]");
    EXPECT_NE(FileText(folder / "a.fbl"), FileText(folder / "b.fbl"));
    ClickOn(Main, "TB(2)");  // cancelled
    EXPECT_EQ(LevelPath, (folder / "b.fbl").string());
    LevelPath = (folder / "a.fbl").string();
    ClickOn(Main, "TB(7)");
    EXPECT_EQ(FileText(folder / "a.fbl"), FileText(folder / "b.fbl"));
    EXPECT_EQ(WindowOf(Main).windowTitle().toStdString(), TitleText);
    EXPECT_EQ(WindowOf(Main).cursor().shape(), Qt::ArrowCursor);
}

/// A level that names a width but never got its maps: composing its text faults.
TEST_F(MainFrmTest, SavingWithoutMapsIsFatalButNotFromSaveAs) {
    Open();
    LevelRecord.width = 20;
    dialogs.files = {(folder / "new.fbl").string()};
    ClickOn(Main, "TB(8)");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    EXPECT_EQ(WindowOf(Main).cursor().shape(), Qt::ArrowCursor);
    ClickOn(Main, "TB(7)");
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::SubscriptOutOfRange);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
}

TEST_F(MainFrmTest, TooNarrowALevelIsFatal) {
    Open();
    MakeLevel(21);
    LevelRecord.background_tm = TileMap(10, 15);
    ClickOn(Main, "GridCheck");
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::SubscriptOutOfRange);
}

/// Whole runs of the program, from the preferences to the preferences.
class RunTest : public MainFrmTest {
protected:
    RunTest() { std::filesystem::remove(preferences); }
    ~RunTest() override { std::filesystem::remove(preferences); }

    static void Start() { ::Main(); }

    static void Close() {
        CloseScreen(Main);
        DeliverEvents();
    }

    std::string preferences = JoinPath(WritableProgramFolder(), "FB_Editor.Preferences");
};

TEST_F(RunTest, AllIsFoundAsItWasLeft) {
    Start();
    EXPECT_EQ(std::filesystem::file_size(preferences), 0U);
    MakeLevel(60);
    const std::string path = (folder / "level1.fbl").string();
    WriteLevelFile(path);
    dialogs.files = {path};
    ClickOn(Main, "TB(2)");
    ClickOn(Main, "LayerOption(2)");
    ClickOn(Main, "ModeOption(2)");
    ClickOn(Main, "TilesOption(1)");
    ClickOn(Main, "GridCheck");
    ClickOn(Main, "AutoCheck");
    ScrollTo(Main, "MapXScroll", 42);
    CurrentTile = 99;
    PrefsRecord.FavoritesA[3] = 44;
    ClickOn(Main, "TB(17)");
    DeliverEvents();
    EXPECT_FALSE(IsOpen(Main));
    LevelRecord = {};
    PrefsRecord = {};
    Start();
    EXPECT_EQ(LevelPath, path);
    EXPECT_EQ(LevelRecord.width, 60);
    for (const char* ticked : {"LayerOption(2)", "ModeOption(2)", "TilesOption(1)", "GridCheck", "AutoCheck"}) {
        EXPECT_TRUE(IsTicked(Main, ticked)) << ticked;
    }
    EXPECT_FALSE(IsTicked(Main, "ResetCheck"));
    EXPECT_EQ(CurrentTile, 99);
    EXPECT_EQ(ScrollValueOf(Main, "MapXScroll"), 42);
    EXPECT_EQ(PrefsRecord.FavoritesA[3], 44);
    EXPECT_EQ(dialogs.messages.size(), 0U);
}

TEST_F(RunTest, AFailedLoadAsksForAnotherLevel) {
    PrefsRecord.LevelPath = (folder / "gone.fbl").string();
    PrefsRecord.SavedScroll = 7;
    PrefsRecord.SavedTileSet = 9;
    SavePreferences();
    dialogs.answers = {AnswerOk, AnswerNo};
    Start();
    ASSERT_EQ(dialogs.messages.size(), 2U);
    EXPECT_EQ(dialogs.messages[0].title, "NUK File Read Error");
    EXPECT_EQ(dialogs.messages[1],
              (ScriptedDialogs::Message{"Do you wish to select anothe level now?", "Level Load Error",
                                        MessageButtons::YesNoCancel, MessageIcon::Question}));
    EXPECT_EQ(CurrentTileSet, 9);
    EXPECT_TRUE(IsTicked(Main, "TilesOption(0)"));
    Close();
    dialogs.answers = {AnswerOk, AnswerCancel};
    PrefsRecord.SavedScroll = 0;
    dialogs.endThrows = true;
    EXPECT_THROW(Start(), ProcessEnded);
    LoadPreferences();
    EXPECT_EQ(LevelPath, (folder / "gone.fbl").string());
}

TEST_F(RunTest, ASavedOptionThatDoesNotExistIsFatal) {
    PrefsRecord.SavedLayer = -1;
    SavePreferences();
    EXPECT_THROW(Start(), Fault);
}

}  // namespace
