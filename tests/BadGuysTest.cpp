#include <QTimer>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"

// Placing, listing, selecting and deleting bad guys on MainFrm.

namespace {

constexpr const char* Main = "MainFrm";
constexpr int Spiky = 4;

std::string Member(const char* name, int index) { return std::string(name) + "(" + std::to_string(index) + ")"; }
std::string Img(int column, int row) { return Member("Img", column * 15 + row); }

class BadGuysTest : public ScreenTest {
protected:
    /// MainFrm in mode `mode`, with a level of `width` columns and `count` spikys, entry i at (32 * i + 1, 64).
    static void Open(int mode, int count, int width = 120) {
        CurrentMode = mode;
        LoadMainFrm();
        ShowMainFrm();
        MakeLevel(width);
        for (int i = 1; i <= count; ++i) {
            Add({Spiky, "spiky", 32 * i + 1, 64, 0});
        }
        UpdateDisplay();
    }

    static void Add(const BadGuy& badGuy) {
        LevelRecord.BadGuyCount += 1;
        LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
        LevelRecord.objects[LevelRecord.BadGuyCount] = badGuy;
    }

    static BadGuy& Last() { return LevelRecord.objects[LevelRecord.BadGuyCount]; }

    /// The rows of the used list that carry the mark of the selection.
    static std::vector<int> MarkedRows() {
        std::vector<int> rows;
        for (int row = 0; row < 9; ++row) {
            if (IsShown(Main, Member("BGIndImg", row))) {
                rows.push_back(row);
            }
        }
        return rows;
    }
};

TEST_F(BadGuysTest, PlacingRoundsTheReadOut) {
    Open(1, 0);
    ScrollTo(Main, "MapXScroll", 5);
    ClickCell(Main, "ObjSelImg(5)");
    const struct {
        QPoint at;
        int x;
        int y;
    } cases[] = {{{0, 0}, 224, 96}, {{7, 8}, 224, 97}, {{8, 22}, 225, 97}, {{23, 31}, 226, 98}};
    for (const auto& c : cases) {
        ClickCell(Main, Img(2, 3), Qt::RightButton, c.at);
        EXPECT_EQ(Last(), (BadGuy{5, "jumpy", c.x, c.y, 0}));
        LevelRecord.BadGuyCount = 0;  // or the next press would meet the sprite
        UpdateDisplay();
    }
    EXPECT_EQ(BadGuyTypeTable[5].CountInUse, 4);
    EXPECT_EQ(CaptionOf(Main, "ObjCntBox(5)"), "4");
}

TEST_F(BadGuysTest, PlacesNothingWithoutAKind) {
    Open(1, 0);
    CurrentObject = -1;
    ClickCell(Main, Img(2, 3));
    EXPECT_EQ(LevelRecord.BadGuyCount, 0);
}

TEST_F(BadGuysTest, PlacesWithoutALevelUnseen) {
    CurrentMode = 1;
    LoadMainFrm();
    ShowMainFrm();
    PressCell(Main, Img(2, 3));
    EXPECT_EQ(LevelRecord.BadGuyCount, 1);
    EXPECT_FALSE(IsShown(Main, "BGImg(0)"));
}

TEST_F(BadGuysTest, MarksTheKindToPlace) {
    Open(1, 0);
    ClickCell(Main, "ObjSelImg(7)");
    EXPECT_EQ(CurrentObject, 7);
    for (int kind = 0; kind < BadGuyTypes; ++kind) {
        EXPECT_EQ(IsShown(Main, Member("ObjIndImg", kind)), kind == 7);
    }
    EXPECT_EQ(ToolTipOf(Main, "ObjSelImg(7)"), "Click to select Fire Ball");
    EXPECT_EQ(CaptionOf(Main, "ObjectLabel(7)"), "Fire Ball");
}

TEST_F(BadGuysTest, UsedListScrollsFromTenEntriesOn) {
    Open(2, 9);
    EXPECT_FALSE(IsEnabled(Main, "BGUScroll"));
    EXPECT_TRUE(IsShown(Main, "BGUXBox(8)"));
    Add({Spiky, "spiky", 400, 64, 0});
    UpdateDisplay();
    EXPECT_TRUE(IsEnabled(Main, "BGUScroll"));
    EXPECT_EQ(ScrollMaxOf(Main, "BGUScroll"), 2);
    ScrollTo(Main, "BGUScroll", 2);
    EXPECT_EQ(TextOf(Main, "BGUXBox(8)"), "400");
    LevelRecord.BadGuyCount = 3;
    UpdateDisplay();
    EXPECT_EQ(ScrollValueOf(Main, "BGUScroll"), 1);
    EXPECT_TRUE(IsShown(Main, "StayCheck(2)"));
    for (const char* name : {"BGUImg", "BGUNameBox", "BGUXBox", "BGUYBox", "LabelX", "LabelY", "StayCheck"}) {
        EXPECT_FALSE(IsShown(Main, Member(name, 3))) << name;
    }
}

TEST_F(BadGuysTest, RowsNameTheKindAndSpritesTheKeyword) {
    Open(2, 0);
    Add({3, "flyingsnowball", 65, 100, 1});
    Add({0, "polarbear", 129, 50, 0});
    UpdateDisplay();
    EXPECT_EQ(CaptionOf(Main, "TotalBGUBox"), "2 ");
    EXPECT_EQ(CaptionOf(Main, "BGUNameBox(0)"), "Flying Snow Ball");
    EXPECT_EQ(TextOf(Main, "BGUXBox(0)"), "65");
    EXPECT_EQ(TextOf(Main, "BGUYBox(0)"), "100");
    EXPECT_TRUE(IsTicked(Main, "StayCheck(0)"));
    EXPECT_EQ(ToolTipOf(Main, "BGUImg(0)"), "BadGuy# 1, Flying Snow Ball, Stay On Platform = YES");
    EXPECT_EQ(ToolTipOf(Main, "BGUImg(1)"), "BadGuy# 2, Snow Ball, Stay On Platform = NO");
    MoveOverCell(Main, "BGImg(0)");
    EXPECT_EQ(ToolTipOf(Main, "BGImg(0)"), "BadGuy# 1, FLYINGSNOWBALL, X = 65, Y = 100, Stay On Platform = YES");
    MoveOverCell(Main, "BGImg(1)");
    EXPECT_EQ(ToolTipOf(Main, "BGImg(1)"), "BadGuy# 2, POLARBEAR, X = 129, Y = 50, Stay On Platform = NO");
}

TEST_F(BadGuysTest, ASpriteSelectsAndBringsItsRowIntoView) {
    Open(0, 16);
    ClickOn(Main, "LayerOption(3)");
    const struct {
        int scroll;
        int clicked;
        int scrollAfter;
        int row;
    } cases[] = {{1, 9, 1, 8}, {1, 10, 2, 8}, {1, 16, 8, 8}, {8, 8, 8, 0}, {8, 7, 1, 6}, {3, 1, 1, 0}, {2, 12, 4, 8}};
    for (const auto& c : cases) {
        ClickOn(Main, "ModeOption(0)");
        EXPECT_FALSE(IsShown(Main, "DelBadGuyCmd"));
        ScrollTo(Main, "BGUScroll", c.scroll);
        ClickCell(Main, Member("BGImg", c.clicked - 1));
        EXPECT_EQ(SelectedBadGuy, c.clicked);
        EXPECT_EQ(CurrentMode, 2);
        EXPECT_TRUE(IsTicked(Main, "ModeOption(2)"));
        EXPECT_TRUE(IsShown(Main, "DelBadGuyCmd"));
        EXPECT_EQ(ScrollValueOf(Main, "BGUScroll"), c.scrollAfter);
        EXPECT_EQ(MarkedRows(), std::vector<int>{c.row});
    }
}

TEST_F(BadGuysTest, ARowSelectsAndScrollsTheMapToIt) {
    Open(2, 1, 60);
    const struct {
        int scroll;
        int x;
        int scrollAfter;
    } cases[] = {
        {0, 17 * 32, 0},        // the last column in view
        {0, 18 * 32, 10},       // the ninth column from the left
        {0, 18 * 32 - 16, 10},  // a half rounds to the even column
        {0, 17 * 32 - 16, 0},   // and so down here
        {10, 10 * 32, 10},      // the first column in view
        {10, 9 * 32, 1},        // the one before it
        {10, 3 * 32, 0},        // near the left end
        {0, 59 * 32, 60 - 18},  // near the right end
    };
    for (const auto& c : cases) {
        LevelRecord.objects[1].x = c.x;
        ScrollTo(Main, "MapXScroll", c.scroll);
        ClickCell(Main, "BGUImg(0)");
        EXPECT_EQ(ScrollValueOf(Main, "MapXScroll"), c.scrollAfter) << c.scroll << " " << c.x;
        EXPECT_EQ(SelectedBadGuy, 1);
        EXPECT_FALSE(IsShown(Main, "DelBadGuyCmd"));
    }
    ClickOn(Main, "ModeOption(2)");
    EXPECT_TRUE(IsShown(Main, "DelBadGuyCmd"));
}

TEST_F(BadGuysTest, ModesKeepOrEndTheSelection) {
    Open(2, 3);
    ClickCell(Main, "BGImg(1)");
    for (const char* mode : {"ModeOption(0)", "ModeOption(3)"}) {
        ClickOn(Main, mode);
        EXPECT_EQ(SelectedBadGuy, 2);
        EXPECT_FALSE(IsShown(Main, "DelBadGuyCmd"));
        ClickOn(Main, "ModeOption(2)");
        EXPECT_TRUE(IsShown(Main, "DelBadGuyCmd"));
    }
    ClickOn(Main, "ModeOption(1)");
    EXPECT_EQ(SelectedBadGuy, -1);
    ClickOn(Main, "ModeOption(2)");
    EXPECT_FALSE(IsShown(Main, "DelBadGuyCmd"));
    EXPECT_EQ(MarkedRows(), std::vector<int>{});
}

TEST_F(BadGuysTest, DeletingKeepsTheSelectionAndTheCounters) {
    Open(2, 5);
    BadGuyTypeTable[Spiky].CountInUse = 5;
    ClickCell(Main, "BGImg(3)");
    ClickOn(Main, "DelBadGuyCmd");
    EXPECT_EQ(LevelRecord.BadGuyCount, 4);
    EXPECT_EQ(LevelRecord.objects.Last(), 4);
    EXPECT_EQ(Last().x, 32 * 5 + 1);
    EXPECT_EQ(SelectedBadGuy, 4);
    EXPECT_EQ(MarkedRows(), std::vector<int>{3});
    ClickOn(Main, "DelBadGuyCmd");
    EXPECT_EQ(SelectedBadGuy, 4);  // names no entry any more
    EXPECT_EQ(Last().x, 32 * 3 + 1);
    EXPECT_FALSE(IsShown(Main, "BGUImg(3)"));
    ClickOn(Main, "DelBadGuyCmd");  // and yet takes the last one
    EXPECT_EQ(LevelRecord.BadGuyCount, 2);
    EXPECT_EQ(Last().x, 32 * 2 + 1);
    EXPECT_EQ(BadGuyTypeTable[Spiky].CountInUse, 5);
}

TEST_F(BadGuysTest, TypedNumbersGoToTheEntryAtOnce) {
    Open(2, 12);
    ScrollTo(Main, "BGUScroll", 3);
    BadGuy& fifth = LevelRecord.objects[5];
    const struct {
        const char* typed;
        const char* shown;
        int value;
    } cases[] = {{"700", "700", 700}, {"-1a2", "12", 12}, {"32767", "32767", 32767}, {"32768", "32768", 3276}};
    for (const auto& c : cases) {
        TypeInto(Main, "BGUXBox(2)", c.typed);
        EXPECT_EQ(TextOf(Main, "BGUXBox(2)"), c.shown);
        EXPECT_EQ(fifth.x, c.value);
        TypeInto(Main, "BGUYBox(2)", c.typed);
        EXPECT_EQ(fifth.y, c.value);
    }
    ControlOf<QWidget>(Main, "BGUXBox(2)").setFocus();
    for (int i = 0; i < 5; ++i) {
        PressKey(Main, "BGUXBox(2)", Qt::Key_Backspace);
    }
    EXPECT_EQ(TextOf(Main, "BGUXBox(2)"), "");
    EXPECT_EQ(fifth.x, 3);  // an empty box keeps what was there
    EXPECT_EQ(LevelRecord.objects[4].x, 32 * 4 + 1);
    EXPECT_EQ(LevelRecord.objects[6].x, 32 * 6 + 1);
}

TEST_F(BadGuysTest, EnterMovesTheSpriteAndLeavesTheList) {
    Open(2, 1);
    TypeInto(Main, "BGUXBox(0)", "0065");
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Left(), 10 + 33 * 34 / 32.0);
    PressKey(Main, "BGUXBox(0)", Qt::Key_Return);
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Left(), 10 + 65 * 34 / 32.0);
    EXPECT_EQ(TextOf(Main, "BGUXBox(0)"), "0065");
}

TEST_F(BadGuysTest, StayBoxChangesItsEntryOnly) {
    Open(2, 12);
    ScrollTo(Main, "BGUScroll", 2);
    ClickOn(Main, "StayCheck(1)");
    for (int i = 1; i <= 12; ++i) {
        EXPECT_EQ(LevelRecord.objects[i].stay_on_platform, i == 3 ? 1 : 0);
    }
}

TEST_F(BadGuysTest, OnlyTheSelectedSpriteBlinks) {
    Open(2, 3);
    ClickCell(Main, "BGImg(1)");
    auto* timer = WindowOf(Main).findChild<QTimer*>("BGTimer");
    EXPECT_EQ(timer->interval(), 250);
    int shown = CellOf(Main, "BGImg(1)").Border();
    for (int tick = 0; tick < 4; ++tick) {
        QMetaObject::invokeMethod(timer, "timeout");
        EXPECT_NE(CellOf(Main, "BGImg(1)").Border(), shown);
        shown = CellOf(Main, "BGImg(1)").Border();
        EXPECT_EQ(CellOf(Main, "BGImg(0)").Border(), 0);
        EXPECT_EQ(CellOf(Main, "BGImg(2)").Border(), 0);
    }
}

TEST_F(BadGuysTest, ThirtyTwoSpritesAtMost) {
    Open(2, 0);
    for (int i = 1; i <= 33; ++i) {
        Add({Spiky, "spiky", i, 0, 0});
    }
    UpdateDisplay();
    EXPECT_TRUE(IsShown(Main, "BGImg(31)"));
    EXPECT_EQ(CellOf(Main, "BGImg(31)").Left(), 10 + 32 * 34 / 32.0);
    LevelRecord.objects[1].x = 0;  // on the view's edge: not shown
    LevelRecord.objects[2].x = 18 * 32;
    UpdateDisplay();
    EXPECT_TRUE(IsShown(Main, "BGImg(30)"));
    EXPECT_FALSE(IsShown(Main, "BGImg(31)"));
}

TEST_F(BadGuysTest, TileModeOnOneLayerHidesThem) {
    Open(0, 3);
    EXPECT_FALSE(IsShown(Main, "BGImg(0)"));
    ClickOn(Main, "LayerOption(3)");
    EXPECT_TRUE(IsShown(Main, "BGImg(2)"));
    ClickOn(Main, "LayerOption(1)");
    EXPECT_FALSE(IsShown(Main, "BGImg(2)"));
}

}  // namespace
