#include <QAccessible>
#include <QImage>
#include <QPixmap>
#include <QTest>

#include "platform/Controls.h"
#include "tests/ScreenDriver.h"

// What no story of MainFrm can tell: how its cells lie over each other, what tools are told, and the table of shapes.

namespace {

using MainFrmTest = ScreenTest;

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
    ASSERT_TRUE(WindowOf(Main).IsShown(CellOf(Main, "BGImg(0)")));
    EXPECT_EQ(layerFrame(), withoutSprite);
    // One that has lost its bad guy, or is hidden while a button holds it, is silent.
    PressCell(Main, "BGImg(0)", {5, 5});
    CurrentMode = 0;
    UpdateDisplay();
    QTest::mouseMove(&WindowOf(Main), QPoint(300, 300));
    ReleaseCell(Main, Img(3, 3));
    ClickOn(Main, "ModeOption(1)");
    ClearBadGuySlots();
    EXPECT_EQ(MoveOverCell(Main, "BGImg(0)", {5, 5}), "");
    ClickOn(Main, "BGImg(0)", Qt::RightButton, {5, 5});
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
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
        ClickOn(Main, MemberName("LayerOption", layer));
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

}  // namespace
