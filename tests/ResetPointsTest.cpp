#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"

// The start position and the reset points on MainFrm.

namespace {

constexpr const char* Main = "MainFrm";
constexpr int ResetPointTile = 131;
constexpr int MarkerTile = 81;

std::string Img(int column, int row) { return "Img(" + std::to_string(column * 15 + row) + ")"; }

class ResetPointsTest : public ScreenTest {
protected:
    static void Open(int layer = 0) {
        CurrentLayer = layer;
        LoadMainFrm();
        ShowMainFrm();
        MakeLevel(120);
        UpdateDisplay();
        CurrentTile = ResetPointTile;
    }

    /// Makes the list consist of one point in that column.
    static void Only(int column) {
        LevelRecord.ResetPointCount = 1;
        LevelRecord.reset_points.Resize(1);
        LevelRecord.reset_points[1] = {column * 32, 0};
    }
};

TEST_F(ResetPointsTest, PickingTheStartIsOfferedTakenBackAndDone) {
    Open();
    CurrentTile = 5;
    const auto pointer = [] { return WindowOf(Main).cursor().shape(); };
    EXPECT_EQ(CaptionOf(Main, "SetNukCmd"), "Set Nuk Start Pos.");
    ClickOn(Main, "SetNukCmd");
    EXPECT_EQ(CaptionOf(Main, "SetNukCmd"), "Select Desired Nuk Position");
    EXPECT_EQ(pointer(), Qt::BitmapCursor);
    ClickOn(Main, "SetNukCmd");
    EXPECT_EQ(CaptionOf(Main, "SetNukCmd"), "Set Starting Position");
    EXPECT_EQ(pointer(), Qt::ArrowCursor);

    ClickOn(Main, "SetNukCmd");
    ScrollTo(Main, "MapXScroll", 10);
    ClickCell(Main, Img(3, 14));
    EXPECT_EQ(LevelRecord.start_pos_x, 13 * 32);
    EXPECT_EQ(LevelRecord.start_pos_y, 448);
    EXPECT_EQ(CaptionOf(Main, "SetNukCmd"), "Set Starting Position");
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
    EXPECT_EQ(LevelRecord.background_tm(13, 14), 0);  // the click was no stroke of the brush
    EXPECT_EQ(CellOf(Main, "NukImage").Left(), 3 * 32);
    EXPECT_EQ(CellOf(Main, "NukImage").Top(), 80 + 448);

    ClickCell(Main, Img(5, 5));  // and the next one is
    EXPECT_EQ(LevelRecord.start_pos_x, 13 * 32);
    EXPECT_EQ(LevelRecord.background_tm(15, 5), 5);
}

TEST_F(ResetPointsTest, StartAtTheLeftEdgeOfTheViewIsNotShown) {
    Open();
    ClickOn(Main, "SetNukCmd");
    ClickCell(Main, Img(0, 3));
    EXPECT_FALSE(IsShown(Main, "NukImage"));
    LevelRecord.start_pos_x = 1;
    UpdateDisplay();
    EXPECT_TRUE(IsShown(Main, "NukImage"));
}

TEST_F(ResetPointsTest, PickingWhilePlacingBadGuysDoesBoth) {
    Open();
    ClickOn(Main, "ModeOption(1)");
    ClickOn(Main, "SetNukCmd");
    ClickCell(Main, Img(3, 4));
    EXPECT_EQ(LevelRecord.BadGuyCount, 1);
    EXPECT_EQ(LevelRecord.start_pos_x, 3 * 32);
}

TEST_F(ResetPointsTest, NeighboursAreTenColumnsApart) {
    Open();
    const struct {
        int existing;
        int clicked;
        bool accepted;
    } cases[] = {{12, 3, false}, {12, 2, true}, {5, 14, false}, {5, 15, true}, {0, 5, false}, {0, 10, true}};
    for (const auto& c : cases) {
        dialogs = {};
        Only(c.existing);
        ClickCell(Main, Img(c.clicked, 7));
        EXPECT_EQ(LevelRecord.ResetPointCount, c.accepted ? 2 : 1) << c.existing << " " << c.clicked;
        const std::vector<ScriptedDialogs::Message> refusal{{"Another reset point is within 10 tiles",
                                                             "Reset Point Setting Error", MessageButtons::Ok,
                                                             MessageIcon::Warning}};
        EXPECT_EQ(dialogs.messages, c.accepted ? decltype(refusal){} : refusal);
    }
}

TEST_F(ResetPointsTest, MarkerGoesAboveIntoTheFirstFreeLayer) {
    const struct {
        int row;
        int interactive;
        int foreground;
        int interactiveAfter;
        int foregroundAfter;
    } cases[] = {{5, 0, 0, MarkerTile, 0}, {5, 7, 0, 7, MarkerTile}, {5, 7, 8, 7, 8}, {1, 0, 8, MarkerTile, 8}};
    Open(3);
    for (const auto& c : cases) {
        LevelRecord.ResetPointCount = 0;
        LevelRecord.interactive_tm(4, c.row - 1) = c.interactive;
        LevelRecord.foreground_tm(4, c.row - 1) = c.foreground;
        ClickCell(Main, Img(4, c.row));
        ASSERT_EQ(LevelRecord.ResetPointCount, 1);
        EXPECT_EQ(LevelRecord.reset_points[1], (ResetPoint{4 * 32, c.row * 32}));
        EXPECT_EQ(LevelRecord.interactive_tm(4, c.row - 1), c.interactiveAfter);
        EXPECT_EQ(LevelRecord.foreground_tm(4, c.row - 1), c.foregroundAfter);
        EXPECT_EQ(LevelRecord.interactive_tm(4, c.row), 0);
    }
}

TEST_F(ResetPointsTest, TheTopRowHasNoMarker) {
    Open();
    ClickCell(Main, Img(4, 0));
    EXPECT_EQ(LevelRecord.ResetPointCount, 1);
    EXPECT_EQ(LevelRecord.interactive_tm, TileMap(120, LevelRows));
    EXPECT_EQ(LevelRecord.background_tm, TileMap(120, LevelRows));
}

TEST_F(ResetPointsTest, OnlyTileModeAddsThem) {
    Open();
    for (const char* mode : {"ModeOption(1)", "ModeOption(2)", "ModeOption(3)"}) {
        ClickOn(Main, mode);
        ClickCell(Main, Img(4, 4));
    }
    EXPECT_EQ(LevelRecord.ResetPointCount, 0);
}

TEST_F(ResetPointsTest, OneSpriteShowsTheFirstInView) {
    Open();
    LevelRecord.ResetPointCount = 3;
    LevelRecord.reset_points.Resize(3);
    LevelRecord.reset_points[1] = {50 * 32, 0};
    LevelRecord.reset_points[2] = {13 * 32 + 31, 3 * 32};
    LevelRecord.reset_points[3] = {2 * 32, 64};
    EXPECT_FALSE(IsShown(Main, "ResetImg"));
    ClickOn(Main, "ResetCheck");
    EXPECT_TRUE(IsShown(Main, "ResetImg"));
    EXPECT_EQ(CellOf(Main, "ResetImg").Left(), 10 + 13 * 34);
    EXPECT_EQ(CellOf(Main, "ResetImg").Top(), 80 + 3 * 34);
    MoveOverCell(Main, "ResetImg");
    EXPECT_EQ(ToolTipOf(Main, "ResetImg"), "Reset Point: Index = 2, X = 447, Y = 96");
    ScrollTo(Main, "MapXScroll", 14);
    EXPECT_FALSE(IsShown(Main, "ResetImg"));
    ScrollTo(Main, "MapXScroll", 33);
    EXPECT_TRUE(IsShown(Main, "ResetImg"));
    ClickOn(Main, "ResetCheck");
    EXPECT_FALSE(IsShown(Main, "ResetImg"));
    EXPECT_EQ(PrefsRecord.ResetState, 0);
}

}  // namespace
