#include "tests/ScreenDriver.h"

// Placing, listing, selecting and deleting bad guys on MainFrm.

namespace {

constexpr int Spiky = 4;

class BadGuysTest : public ScreenTest {
protected:
    /// MainFrm in mode `mode`, with a level and `count` spikys, entry i at (32 * i + 1, 64).
    static void Open(int mode, int count, int width = 120) {
        OpenMain(width, mode);
        for (int i = 1; i <= count; ++i) {
            AddBadGuy({Spiky, "spiky", 32 * i + 1, 64, 0});
        }
        UpdateDisplay();
    }

    static BadGuy& Last() { return LevelRecord.objects[LevelRecord.BadGuyCount]; }

    /// The rows of the used list that carry the mark of the selection.
    static std::vector<int> MarkedRows() {
        std::vector<int> rows;
        for (int row = 0; row < 9; ++row) {
            if (StateOf(Main, Member("BGIndImg", row)) == "shown") {
                rows.push_back(row);
            }
        }
        return rows;
    }

    static bool CanDelete() { return StateOf(Main, "DelBadGuyCmd") != "hidden"; }
};

TEST_F(BadGuysTest, PlacingRoundsTheReadOut) {
    Open(1, 0);
    CurrentObject = -1;
    ClickOn(Main, Img(2, 3));
    EXPECT_EQ(LevelRecord.BadGuyCount, 0);
    ScrollTo(Main, "MapXScroll", 5);
    ClickOn(Main, "ObjSelImg(5)");
    const struct {
        QPoint at, place;
    } cases[] = {{{0, 0}, {224, 96}}, {{7, 8}, {224, 97}}, {{8, 22}, {225, 97}}, {{23, 31}, {226, 98}}};
    for (const auto& c : cases) {
        ClickOn(Main, Img(2, 3), Qt::RightButton, c.at);
        EXPECT_EQ(Last(), (BadGuy{5, "jumpy", c.place.x(), c.place.y(), 0}));
        LevelRecord.BadGuyCount = 0;  // or the next press would meet the sprite
        UpdateDisplay();
    }
    EXPECT_EQ(BadGuyTypeTable[5].CountInUse, 4);
    EXPECT_EQ(StateOf(Main, "ObjCntBox(5)"), "4");
}

TEST_F(BadGuysTest, ASpriteSelectsAndBringsItsRowIntoView) {
    Open(0, 16);
    ClickOn(Main, "LayerOption(3)");
    const struct {
        int scroll, clicked, scrollAfter, row;
    } cases[] = {{1, 9, 1, 8}, {1, 10, 2, 8}, {1, 16, 8, 8}, {8, 8, 8, 0}, {8, 7, 1, 6}, {3, 1, 1, 0}, {2, 12, 4, 8}};
    for (const auto& c : cases) {
        ClickOn(Main, "ModeOption(0)");
        EXPECT_FALSE(CanDelete());
        ScrollTo(Main, "BGUScroll", c.scroll);
        ClickOn(Main, Member("BGImg", c.clicked - 1));
        EXPECT_EQ(SelectedBadGuy, c.clicked);
        EXPECT_TRUE(CanDelete());
        EXPECT_EQ(StatesOf(Main, {"ModeOption(2)", "BGUScroll"}),
                  (Texts{"on", std::to_string(c.scrollAfter) + " of 8"}));
        EXPECT_EQ(MarkedRows(), std::vector<int>{c.row});
    }
    // The selection outlasts the other modes but one.
    for (const auto& [mode, selected] : {std::pair("ModeOption(3)", 12), {"ModeOption(1)", -1}}) {
        ClickOn(Main, mode);
        EXPECT_EQ(SelectedBadGuy, selected);
        EXPECT_FALSE(CanDelete());
        ClickOn(Main, "ModeOption(2)");
        EXPECT_EQ(CanDelete(), selected > 0);
    }
    EXPECT_EQ(MarkedRows(), std::vector<int>{});
}

TEST_F(BadGuysTest, ARowSelectsAndScrollsTheMapToIt) {
    Open(2, 1, 60);
    const struct {
        int scroll, x, scrollAfter;
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
        ClickOn(Main, "BGUImg(0)");
        EXPECT_EQ(StateOf(Main, "MapXScroll"), std::to_string(c.scrollAfter) + " of 42") << c.x;
        EXPECT_EQ(SelectedBadGuy, 1);
        EXPECT_FALSE(CanDelete());
    }
}

TEST_F(BadGuysTest, DeletingKeepsTheSelectionAndTheCounters) {
    Open(2, 5);
    BadGuyTypeTable[Spiky].CountInUse = 5;
    ClickOn(Main, "BGImg(3)");
    for (const auto& [count, lastX] : {std::pair(4, 161), {3, 97}, {2, 65}}) {  // then it names no entry any more
        ClickOn(Main, "DelBadGuyCmd");
        EXPECT_EQ(LevelRecord.BadGuyCount, count);
        EXPECT_EQ(LevelRecord.objects.Last(), count);
        EXPECT_EQ(Last().x, lastX);
        EXPECT_EQ(SelectedBadGuy, 4);
        EXPECT_EQ(StateOf(Main, "BGUImg(3)"), count == 4 ? "shown" : "hidden");
        EXPECT_EQ(MarkedRows(), count == 4 ? std::vector{3} : std::vector<int>{});
    }
    EXPECT_EQ(BadGuyTypeTable[Spiky].CountInUse, 5);
}

TEST_F(BadGuysTest, TypedNumbersGoToTheEntryAtOnce) {
    Open(2, 12);
    ScrollTo(Main, "BGUScroll", 3);
    BadGuy& fifth = LevelRecord.objects[5];
    const struct {
        const char *typed, *shown;
        int value;
    } cases[] = {{"-1a2", "12", 12}, {"32767", "32767", 32767}, {"32768", "32768", 3276}, {"0066", "0066", 66}};
    for (const auto& c : cases) {
        TypeInto(Main, "BGUXBox(2)", c.typed);
        TypeInto(Main, "BGUYBox(2)", c.typed);
        EXPECT_EQ(StatesOf(Main, {"BGUXBox(2)", "BGUYBox(2)"}), Texts(2, c.shown));
        EXPECT_EQ(fifth.x, c.value);
        EXPECT_EQ(fifth.y, c.value);
    }
    TypeInto(Main, "BGUXBox(2)", "3");
    PressKey(Main, "BGUXBox(2)", Qt::Key_Backspace);
    EXPECT_EQ(StateOf(Main, "BGUXBox(2)"), "");
    EXPECT_EQ(fifth.x, 3);  // an empty box keeps what was there
    EXPECT_EQ(LevelRecord.objects[4].x, 32 * 4 + 1);
    EXPECT_EQ(LevelRecord.objects[6].x, 32 * 6 + 1);
}

}  // namespace
