#include <QAccessible>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QWheelEvent>

#include "level/LevelWriter.h"
#include "tests/ScreenDriver.h"

// MainFrm through its window: the map view, the palette, painting, the toolbar, the start position and the reset
// points.

namespace {

using MainFrmTest = ScreenTest;

TEST_F(MainFrmTest, WithoutALevelNothingIsPainted) {
    OpenMain();
    EXPECT_EQ(StatesOf(Main, {"FileNameBox", "MapXScroll"}),
              (Texts{"Click here to open an existing Floebird Level file.", "0 of 32767"}));
    EXPECT_EQ(ToolTipOf(Main, "ObjSelImg(5)"), "Click to select Bouncing Spikey");
    RightClickOn(Main, Img(0, 0));
    MoveOverCell(Main, Img(3, 3));
    EXPECT_EQ(StateOf(Main, "ColBox"), "");
    ScrollTo(Main, "MapXScroll", 32767);
    RightClickOn(Main, Img(17, 0));
    ClickOn(Main, Img(17, 0));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].title + ": " + dialogs.messages[0].text,
              "No Level Width Specified: You must create the level first!\r\nUse the File menu to create a new set or "
              "level.");
    ClickOn(Main, "TB(4)");  // the bar comes back into the level's range
    EXPECT_EQ(StateOf(Main, "MapXScroll"), "102 of 102");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(MainFrmTest, SpritesAndFramesKeepTheirPlaces) {
    OpenMain(40, 3);
    ClickOn(Main, "ResetCheck");
    LevelRecord.start_pos_x = 64;
    LevelRecord.ResetPointCount = 2;
    LevelRecord.reset_points.Resize(2);
    LevelRecord.reset_points[1] = {-5, 0};  // in the column left of the level
    LevelRecord.reset_points[2] = {5 * 32, 64};
    AddBadGuy({0, "snowball", 575, 0, 0});
    UpdateDisplay();
    EXPECT_EQ(MoveOverCell(Main, "ResetImg"), "Reset Point: Index = 2, X = 160, Y = 64");
    // Sprites that take no press let it through, the frame beside the map covers the one at its edge.
    CurrentTile = 7;
    ClickOn(Main, "ModeOption(0)");
    ClickOn(Main, "NukImage");
    ClickOn(Main, "ResetImg");
    EXPECT_EQ(LevelRecord.background_tm(2, 0) * 1000 + LevelRecord.background_tm(5, 2), 7007);
    const auto layerFrame = [] { return WindowOf(Main).grab(QRect(633, 70, 30, 60)).toImage(); };
    const QImage withoutSprite = layerFrame();
    ClickOn(Main, "ModeOption(1)");
    ASSERT_EQ(StateOf(Main, "BGImg(0)"), "shown");
    EXPECT_EQ(layerFrame(), withoutSprite);
    // One that has lost its bad guy, or is hidden while a button holds it, is silent.
    PressCell(Main, "BGImg(0)");
    CurrentMode = 0;
    UpdateDisplay();
    QTest::mouseMove(&WindowOf(Main), QPoint(300, 300));
    ReleaseCell(Main, Img(3, 3));
    ClickOn(Main, "ModeOption(1)");
    ClearBadGuySlots();
    EXPECT_EQ(MoveOverCell(Main, "BGImg(0)"), "");
    RightClickOn(Main, "BGImg(0)");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(MainFrmTest, WheelAndKeysScrollWhatTheyMean) {
    OpenMain(40);
    const auto turn = [](QPoint at, QPoint angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent event(at, WindowOf(Main).mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(&WindowOf(Main), &event);
    };
    turn({300, 300}, {0, -120});
    turn({300, 300}, {0, -60});  // half a notch, as touch pads turn
    turn({300, 300}, {0, -60});
    turn({300, 300}, {-120, 0});
    turn({300, 300}, {0, 120});
    turn({700, 300}, {0, -240});
    turn({700, 630}, {0, -120});  // nothing to scroll there
    EXPECT_EQ(StatesOf(Main, {"MapXScroll", "SelScroll"}), (Texts{"2 of 22", "2 of 43"}));
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_Return}) {
        PressKey(Main, "DummyCmd", key);
    }
    EXPECT_EQ(StatesOf(Main, {"LayerOption(0)", "SelScroll"}), (Texts{"on", "10 of 43"}));
    PressKey(Main, "MapXScroll", Qt::Key_End);
    PressKey(Main, "MapXScroll", Qt::Key_Left);
    CurrentTile = 5;
    PressKey(Main, "BlankTileCmd", Qt::Key_Return);
    EXPECT_EQ(StateOf(Main, "MapXScroll") + std::to_string(CurrentTile), "21 of 220");
    PressKey(Main, "TB(15)", Qt::Key_Space);
    EXPECT_TRUE(IsOpen("HelpFrm"));
}

/// What tools are told, and what the pointer shows.
TEST_F(MainFrmTest, ToolsKnowCellsAndButtons) {
    OpenMain(40, 2);
    LevelRecord.background_tm(3, 3) = 26;
    AddBadGuy({0, "snowball", 64, 64, 0});
    UpdateDisplay();
    const auto nameOf = [](const char* control) {
        auto* tool = QAccessible::queryAccessibleInterface(&ControlOf<QWidget>(Main, control));
        return tool->text(QAccessible::Name).toStdString() + (tool->state().invisible ? " unseen" : "");
    };
    EXPECT_EQ((Texts{nameOf("DummyCmd"), nameOf("BGUYBox(0)"), nameOf("SetNukCmd")}),
              (Texts{" unseen", "Y of bad guy 1", "Set Nuk Start Pos."}));
    auto* screen = QAccessible::queryAccessibleInterface(&WindowOf(Main));
    Texts found;
    for (int i = 0; i < screen->childCount(); ++i) {
        const QAccessibleInterface* child = screen->child(i);
        if (child->text(QAccessible::Name) == QLatin1String("Img(48)")) {
            found = {child->text(QAccessible::Value).toStdString(), std::to_string(child->rect().width())};
            EXPECT_EQ(screen->indexOfChild(child), i);
        }
    }
    EXPECT_EQ(found, (Texts{"26", "32"}));
    // While the start is being picked the pointer is the same everywhere; the toolbar begins with a separator.
    const auto shapeOver = [](const char* control) { return ControlOf<QWidget>(Main, control).cursor().shape(); };
    const Qt::CursorShape own = shapeOver("BGUXBox(0)");
    ClickOn(Main, "SetNukCmd");
    EXPECT_EQ(shapeOver("BGUXBox(0)"), Qt::BitmapCursor);
    ClickOn(Main, "SetNukCmd");
    EXPECT_EQ(shapeOver("BGUXBox(0)"), own);
    EXPECT_LT(own, Qt::BitmapCursor);
    EXPECT_EQ(ControlOf<QWidget>(Main, "TB").findChildren<QWidget*>().size(), 10 + 7);
}

TEST_F(MainFrmTest, LayersShowOneTileOfACell) {
    OpenMain(40);
    LevelRecord.background_tm(1, 1) = 5;
    LevelRecord.interactive_tm(1, 1) = 6;
    LevelRecord.foreground_tm(1, 1) = 7;
    LevelRecord.interactive_tm(2, 1) = 8;
    LevelRecord.background_tm(3, 1) = 205;
    const struct { int layer, first, second; } cases[] = {{3, 7, 8}, {0, 5, 0}, {1, 6, 8}, {2, 7, 0}};
    for (const auto& [layer, first, second] : cases) {
        ClickOn(Main, Member("LayerOption", layer));
        EXPECT_EQ(TileAt(Main, 1, 1), first);
        EXPECT_EQ(TileAt(Main, 2, 1), second);
        EXPECT_EQ(TileAt(Main, 3, 1), 0);
    }
    ClickOn(Main, "GridCheck");
    EXPECT_EQ(TileAt(Main, 3, 1), 204);
    ClickOn(Main, "LayerOption(0)");
    EXPECT_EQ(MoveOverCell(Main, Img(3, 1)), "Index = 46, Column = 3, Row = 1, Tile # 205");
}

TEST_F(MainFrmTest, ScrollingMovesTheView) {
    OpenMain(40);
    LevelRecord.background_tm(39, 14) = 77;
    ScrollTo(Main, "MapXScroll", 22);
    EXPECT_EQ(TileAt(Main, 17, 14), 77);
    EXPECT_EQ(MoveOverCell(Main, Img(17, 14), {31, 15}),
              "Index = 269, Column = 39, Row = 14, Tile # 77 (Breakable Block)");
    EXPECT_EQ(StatesOf(Main, {"MapXScroll", "ColBox", "RowBox", "XBox", "YBox"}),
              (Texts{"22 of 22", "39 ", "14 ", "1250.067 ", "449 "}));
}

TEST_F(MainFrmTest, PaletteSelectsTiles) {
    OpenMain(40);
    const struct {
        int scroll;
        const char* cell;
        Qt::MouseButton button;
        int tile, picture;
    } cases[] = {{0, "SelImg(5)", Qt::LeftButton, 6, 6},       {0, "SelImg(7)", Qt::RightButton, 6, 6},
                 {43, "SelImg(0)", Qt::LeftButton, 173, 173},  {43, "SelImg(31)", Qt::LeftButton, 204, 204},
                 {19, "BlankTileCmd", Qt::LeftButton, 0, 204}, {19, "SelImg(0)", Qt::LeftButton, 77, 77}};
    for (const auto& c : cases) {
        ScrollTo(Main, "SelScroll", c.scroll);
        ClickOn(Main, c.cell, c.button);
        EXPECT_EQ(CurrentTile, c.tile);
        EXPECT_EQ(CellOf(Main, "CurImg").Shown(), BlockImgList()[c.picture]);
    }
    EXPECT_EQ(MoveOverCell(Main, "CurImg"), "Tile # 77 (Breakable Tile)");
    CurrentTileSet = 7;  // as the preferences may say: the palette stays as it is, and deaf
    ClickOn(Main, "SelImg(5)");
    EXPECT_EQ(CurrentTile, 77);
    EXPECT_EQ(MoveOverCell(Main, "SelImg(5)"), "");
    CurrentTileSet = 0;
    // The right button picks a tile off the map.
    LevelRecord.foreground_tm(4, 4) = 203;
    const struct {
        int layer, column, tile;
        const char* scroll;
    } picks[] = {{2, 4, 203, "43 of 43"}, {2, 5, 0, "0 of 43"}, {3, 4, 0, "hidden"}};
    for (const auto& pick : picks) {
        ClickOn(Main, Member("LayerOption", pick.layer));
        RightClickOn(Main, Img(pick.column, 4));
        EXPECT_EQ(CurrentTile, pick.tile);
        EXPECT_EQ(StateOf(Main, "SelScroll"), pick.scroll);
    }
}

TEST_F(MainFrmTest, FavoritesMoveUpAndClose) {
    OpenMain(40, 3);
    ClickOn(Main, "TilesOption(1)");
    EXPECT_EQ(StateOf(Main, "SelScroll"), "hidden");
    for (const auto& [tile, cell] : {std::pair(10, 0), {20, 0}, {30, 0}, {40, 31}, {50, 5}}) {
        CurrentTile = tile;
        ClickOn(Main, Member("SelImg", cell));
    }
    const auto& a = PrefsRecord.FavoritesA;
    EXPECT_EQ((std::vector<int>{a[0], a[1], a[2], a[5], a[31]}), (std::vector<int>{30, 20, 10, 0, 40}));
    EXPECT_EQ(dialogs.messages, (std::vector<Message>{{"Favorites A List Full", "Favorites A Error", MessageButtons::Ok,
                                                       MessageIcon::Warning}}));
    // The lists differ in the tile after a removal.
    for (const bool isA : {true, false}) {
        auto& favorites = isA ? PrefsRecord.FavoritesA : PrefsRecord.FavoritesB;
        for (std::size_t i = 0; i < 32; ++i) {
            favorites[i] = 100 + static_cast<int>(i);
        }
        ClickOn(Main, isA ? "TilesOption(1)" : "TilesOption(2)");
        CurrentTile = 105;
        ClickOn(Main, "SelImg(20)");
        EXPECT_EQ(favorites[5], 106);
        EXPECT_EQ(favorites[31], 0);
        EXPECT_EQ(CurrentTile, isA ? 106 : 121);
        CurrentTile = 131;
        ClickOn(Main, "SelImg(30)");
        EXPECT_EQ(CurrentTile, 0);
    }
}

TEST_F(MainFrmTest, APressThatIsReleasedElsewhereDoesNotComplete) {
    OpenMain(40);
    ClickOn(Main, "AutoCheck");
    CurrentTile = 85;
    PressCell(Main, Img(10, 3));
    ReleaseCell(Main, Img(11, 3));
    EXPECT_EQ(LevelRecord.background_tm(10, 3), 85);
    EXPECT_EQ(LevelRecord.background_tm(11, 3), 0);
}

/// Each shape with the guards that let it in and keep it out, on all layers.
TEST_F(MainFrmTest, ShapesKeepTheirGuards) {
    const struct {
        int starter;
        int columns;        // x + columns may reach the width
        int lowest;         // lowest row that takes the shape; 14 for shapes without a bound
        const char* tiles;  // written, column by column
    } shapes[] = {{50, 2, 13, "50 51 49 52 "},
                  {53, 2, 14, "53 54 "},
                  {55, 2, 14, "55 56 "},
                  {57, 2, 14, "57 58 "},
                  {59, 2, 14, "59 60 "},
                  {85, 4, 13, "85 89 86 90 87 91 88 92 "},
                  {106, 3, 13, "106 109 107 110 108 111 "},
                  {115, 2, 12, "115 117 116 118 "},
                  {122, 2, 14, "122 123 "},
                  {124, 2, 14, "124 125 "},
                  {134, 2, 14, "134 135 "},
                  {136, 2, 12, "136 138 137 139 "}};
    OpenMain(21);
    ClickOn(Main, "AutoCheck");
    ScrollTo(Main, "MapXScroll", 3);
    const auto written = [](int layer, int starter, int x, int y) {
        MakeLevel(21);
        ClickOn(Main, Member("LayerOption", layer));
        CurrentTile = starter;
        ClickOn(Main, Img(x - 3, y));
        const TileMap* maps[] = {&LevelRecord.background_tm, &LevelRecord.interactive_tm, &LevelRecord.foreground_tm};
        std::string tiles;
        for (int cell = 0; cell < 22 * 16; ++cell) {
            const int tile = (*maps[layer])(cell / 16, cell % 16);
            tiles += tile == 0 ? "" : std::to_string(tile) + " ";
        }
        return tiles;
    };
    for (const auto& shape : shapes) {
        const bool downward = shape.starter == 53 || shape.starter == 55;
        const std::string alone = std::to_string(shape.starter) + " ";
        for (int layer = 0; layer < 3; ++layer) {
            SCOPED_TRACE(alone + "on layer " + std::to_string(layer));
            EXPECT_EQ(written(layer, shape.starter, 21 - shape.columns, 0), shape.tiles);
            EXPECT_EQ(written(layer, shape.starter, 22 - shape.columns, 0),
                      downward && layer == 2 ? shape.tiles : alone);
            EXPECT_EQ(written(layer, shape.starter, 5, shape.lowest), shape.tiles);
            if (shape.lowest < 14) {
                EXPECT_EQ(written(layer, shape.starter, 5, shape.lowest + 1), alone);
            }
        }
    }
}

TEST_F(MainFrmTest, SavingUnderANewNameKeepsTheOldOneOnTheScreen) {
    OpenMain(30);
    const std::string a = PathOf("a.fbl");
    const std::string b = PathOf("b.fbl");
    WriteLevelFile(a);
    dialogs.files = {a, b, PathOf("new.fbl")};
    ScrollTo(Main, "MapXScroll", 5);
    ClickOn(Main, "FileNameBox");
    ClickOn(Main, "TB(8)");
    EXPECT_EQ(LevelPath, b);
    EXPECT_EQ(StatesOf(Main, {"MapXScroll", "FileNameBox"}), (Texts{"0 of 12", a + "   [Level Width = 30]"}));
    // A level that names a width but never got its maps cannot be composed: no fault here, as there is in saving.
    LevelRecord.background_tm = {};
    ClickOn(Main, "TB(8)");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(folder / "new.fbl"));
}

TEST_F(MainFrmTest, PickingTheStartIsOfferedTakenBackAndDone) {
    OpenMain(120);
    CurrentTile = 5;
    for (const char* caption :
         {"Select Desired Nuk Position", "Set Starting Position", "Select Desired Nuk Position"}) {
        ClickOn(Main, "SetNukCmd");
        EXPECT_EQ(StateOf(Main, "SetNukCmd"), caption);
    }
    ScrollTo(Main, "MapXScroll", 10);
    ClickOn(Main, Img(3, 14));
    EXPECT_EQ(StateOf(Main, "SetNukCmd"), "Set Starting Position");
    ClickOn(Main, Img(5, 5));  // the click before was no stroke of the brush, this one is
    EXPECT_EQ(LevelRecord.background_tm(13, 14), 0);
    EXPECT_EQ(LevelRecord.background_tm(15, 5), 5);
    EXPECT_EQ(LevelRecord.start_pos_x, 13 * 32);
    EXPECT_EQ(LevelRecord.start_pos_y, 448);
}

TEST_F(MainFrmTest, ResetPointsKeepTheirDistance) {
    OpenMain(120);
    CurrentTile = 131;
    const struct {
        int existing, clicked;
        bool accepted;
    } cases[] = {{12, 3, false}, {12, 2, true}, {5, 14, false}, {5, 15, true}, {0, 5, false}, {0, 10, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.clicked);
        dialogs = {};
        LevelRecord.ResetPointCount = 1;
        LevelRecord.reset_points.Resize(1);
        LevelRecord.reset_points[1] = {c.existing * 32, 0};
        ClickOn(Main, Img(c.clicked, 7));
        EXPECT_EQ(LevelRecord.ResetPointCount, c.accepted ? 2 : 1);
        const Message refusal{"Another reset point is within 10 tiles", "Reset Point Setting Error", MessageButtons::Ok,
                              MessageIcon::Warning};
        EXPECT_EQ(dialogs.messages, std::vector<Message>(c.accepted ? 0 : 1, refusal));
    }
}

TEST_F(MainFrmTest, MarkersGoAboveResetPointsIntoTheFirstFreeLayer) {
    OpenMain(120);
    ClickOn(Main, "LayerOption(3)");
    CurrentTile = 131;
    const struct {
        int row, interactive, foreground, interactiveAfter, foregroundAfter;
    } cases[] = {{5, 0, 0, 81, 0}, {5, 7, 0, 7, 81}, {5, 7, 8, 7, 8}, {1, 0, 8, 81, 8}, {0, 0, 0, 0, 0}};
    for (const auto& c : cases) {
        MakeLevel(120);
        const int above = std::max(c.row - 1, 0);
        LevelRecord.interactive_tm(4, above) = c.interactive;
        LevelRecord.foreground_tm(4, above) = c.foreground;
        LevelRecord.ResetPointCount = 0;
        ClickOn(Main, Img(4, c.row));
        ASSERT_EQ(LevelRecord.ResetPointCount, 1);
        EXPECT_EQ(LevelRecord.reset_points[1], (ResetPoint{4 * 32, c.row * 32}));
        EXPECT_EQ(LevelRecord.interactive_tm(4, above), c.interactiveAfter);
        EXPECT_EQ(LevelRecord.foreground_tm(4, above), c.foregroundAfter);
        EXPECT_EQ(LevelRecord.background_tm, TileMap(120, 15));
    }
}

}  // namespace
