#include <QCursor>
#include <QTimer>
#include <QWindow>
#include <chrono>
#include <functional>
#include <thread>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "platform/Pictures.h"
#include "tests/ScreenDriver.h"

namespace {

constexpr const char* Vars = "VarsFrm";

class VarsFrmTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        MakeLevel(120);
        LevelRecord.interactive_tm(5, 5) = 7;
        LoadMainFrm();
        ShowMainFrm();
    }
};

struct Field {
    const char* box;
    const char* shown;
    const char* typed;
    std::function<bool()> stored;
};

void FillRecord() {
    Level& l = LevelRecord;
    l.LevelComment = "; first";
    l.version = "2";
    l.author = "ANNA";
    l.name = "Ice";
    l.start_pos_x = 32;
    l.start_pos_y = 64;
    l.bkgd_red_top = 1;
    l.bkgd_green_top = 2;
    l.bkgd_blue_top = 3;
    l.bkgd_red_bottom = 4;
    l.bkgd_green_bottom = 5;
    l.bkgd_blue_bottom = 6;
    l.bkgd_speed = 44;
    l.hor_autoscroll_speed = 0.5;
    l.time = 600;
    l.gravity = 1e20;
    l.EndComment = ";; last";
    l.back_scrolling = "T";
    l.background = "ocean.png";
    l.music = "fortress2.mod";
    l.particle_system = "snow";
    l.theme = "antarctica";
    l.height = 20;
}

TEST_F(VarsFrmTest, ShowsAndStoresEveryField) {
    FillRecord();
    OpenVarsFrm();
    const Level& l = LevelRecord;
    const Field fields[] = {
        {"CommentBox", "; first", " x ", [&] { return l.LevelComment == " x "; }},
        {"VersionBox", "2", "beta", [&] { return l.version == "beta"; }},
        {"AuthorBox", "ANNA", "Ben B.", [&] { return l.author == "Ben B."; }},
        {"NameBox", "Ice", "Snow", [&] { return l.name == "Snow"; }},
        {"StartXBox", "32", "101", [&] { return l.start_pos_x == 101; }},
        {"StartYBox", "64", "102", [&] { return l.start_pos_y == 102; }},
        {"BkgRedTopBox", "1", "999", [&] { return l.bkgd_red_top == 999; }},
        {"BkgGrnTopBox", "2", "104", [&] { return l.bkgd_green_top == 104; }},
        {"BkgBluTopBox", "3", "105", [&] { return l.bkgd_blue_top == 105; }},
        {"BkgRedBtmBox", "4", "106", [&] { return l.bkgd_red_bottom == 106; }},
        {"BkgGrnBtmBox", "5", "107", [&] { return l.bkgd_green_bottom == 107; }},
        {"BkgBluBtmBox", "6", "2.5", [&] { return l.bkgd_blue_bottom == 2; }},
        {"BkgSpeedBox", "44", "1.25", [&] { return l.bkgd_speed == 1.25; }},
        {"ScrollSpeedBox", "0.5", "-3x", [&] { return l.hor_autoscroll_speed == -3; }},
        {"TimeBox", "600", "32767", [&] { return l.time == 32767; }},
        {"GravityBox", "1E+20", "9", [&] { return l.gravity == 9; }},
        {"EndCommentBox", ";; last", "lost", [&] { return l.EndComment == ";; last"; }},
    };
    for (const Field& field : fields) {
        EXPECT_EQ(TextOf(Vars, field.box), field.shown) << field.box;
    }
    EXPECT_EQ(CaptionOf(Vars, "FileNameBox"), "level.fbl");
    EXPECT_EQ(CaptionOf(Vars, "BackgroundBox"), "ocean.png");
    EXPECT_EQ(CaptionOf(Vars, "MusicBox"), "fortress2.mod");
    EXPECT_EQ(CaptionOf(Vars, "ParticleBox"), "snow");
    EXPECT_EQ(CaptionOf(Vars, "ThemeBox"), "antarctica");
    EXPECT_EQ(CaptionOf(Vars, "NumsBox"), "Number of Reset Points = 0, Number of BadGuys = 0");
    EXPECT_EQ(TextOf(Vars, "WidthBox"), "120");
    EXPECT_EQ(TextOf(Vars, "HeightBox"), "15");
    EXPECT_FALSE(IsEnabled(Vars, "HeightBox"));
    EXPECT_EQ(l.height, 15);
    for (const Field& field : fields) {
        TypeInto(Vars, field.box, field.typed);
        EXPECT_TRUE(field.stored()) << field.box;
    }
    PressKey(Vars, "BkgRedTopBox", Qt::Key_Home);
    PressKey(Vars, "BkgRedTopBox", Qt::Key_Minus);
    EXPECT_EQ(l.bkgd_red_top, -999);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(VarsFrmTest, EachWidthTypedInRangeStartsTheLevelAnew) {
    OpenVarsFrm();
    const TileMap painted = LevelRecord.interactive_tm;
    struct Step {
        Qt::Key key;
        int width;
        int layerColumns;
    };
    ControlOf<QWidget>(Vars, "WidthBox").setFocus();
    TypeInto(Vars, "WidthBox", "");
    const Step steps[] = {{Qt::Key_1, 1, 121}, {Qt::Key_2, 12, 121}};
    for (const Step& step : steps) {
        PressKey(Vars, "WidthBox", step.key);
        EXPECT_EQ(LevelRecord.width, step.width);
        EXPECT_EQ(LevelRecord.interactive_tm, painted);
    }
    const Step further[] = {{Qt::Key_0, 120, 121},         {Qt::Key_Backspace, 12, 121}, {Qt::Key_Backspace, 1, 121},
                            {Qt::Key_0, 10, 121},          {Qt::Key_2, 102, 103},        {Qt::Key_3, 1023, 1024},
                            {Qt::Key_Backspace, 102, 103}, {Qt::Key_4, 1024, 103},       {Qt::Key_X, 1024, 103}};
    for (const Step& step : further) {
        PressKey(Vars, "WidthBox", step.key);
        EXPECT_EQ(LevelRecord.width, step.width);
        for (const TileMap* layer :
             {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
            EXPECT_EQ(*layer, TileMap(step.layerColumns - 1, 15));
        }
    }
    EXPECT_EQ(ScrollMaxOf("MainFrm", "MapXScroll"), 102 - 18);
    EXPECT_EQ(CaptionOf("MainFrm", "FileNameBox"), "level.fbl   [Level Width = 102]");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(VarsFrmTest, EnterShowsTheRecordAgain) {
    FillRecord();
    OpenVarsFrm();
    TypeInto(Vars, "EndCommentBox", "lost");
    LevelRecord.height = 20;
    const TileMap painted = LevelRecord.interactive_tm;
    PressKey(Vars, "WidthBox", Qt::Key_Return);
    EXPECT_EQ(LevelRecord.height, 15);
    EXPECT_EQ(LevelRecord.interactive_tm, painted);
    EXPECT_EQ(TextOf(Vars, "EndCommentBox"), ";; last");
}

// A refresh yields before it fills the boxes: what is typed just then belongs to no field, and is overwritten.
TEST_F(VarsFrmTest, TypingIntoARefreshIsLost) {
    FillRecord();
    OpenVarsFrm();
    bool typed = false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // the next yield looks at the queue again
    QTimer::singleShot(0, [&] {
        TypeInto(Vars, "AuthorBox", "x");
        TypeInto(Vars, "WidthBox", "30");
        ClickOn(Vars, "BackScrollCheck");
        ClickOn(Vars, "AddEndCheck");
        ClickOn(Vars, "ThemeBox");
        typed = true;
    });
    const Level before = LevelRecord;
    PressKey(Vars, "WidthBox", Qt::Key_Return);
    EXPECT_TRUE(typed);
    EXPECT_TRUE(LevelRecord == before);
    EXPECT_EQ(PrefsRecord.AddEndState, 0);
    EXPECT_EQ(TextOf(Vars, "AuthorBox"), "ANNA");
    EXPECT_EQ(TextOf(Vars, "WidthBox"), "120");
    EXPECT_TRUE(IsTicked(Vars, "BackScrollCheck"));
    EXPECT_FALSE(IsTicked(Vars, "AddEndCheck"));
}

TEST_F(VarsFrmTest, ClicksStepTheRings) {
    struct Ring {
        const char* label;
        std::string Level::*field;
        std::vector<std::string> values;
    };
    const Ring rings[] = {
        {"ParticleBox", &Level::particle_system, {"", "cloud", "snow", "", "cloud"}},
        {"ParticleBox", &Level::particle_system, {"Cloud", "", "cloud"}},
        {"ThemeBox", &Level::theme, {"", "antarctica", "", "antarctica"}},
        {"ThemeBox", &Level::theme, {"desert", "", "antarctica"}},
    };
    OpenVarsFrm();
    for (const Ring& ring : rings) {
        LevelRecord.*ring.field = ring.values.front();
        for (std::size_t i = 1; i < ring.values.size(); ++i) {
            ClickOn(Vars, ring.label);
            EXPECT_EQ(LevelRecord.*ring.field, ring.values[i]);
            EXPECT_EQ(CaptionOf(Vars, ring.label), ring.values[i]);
        }
    }
}

TEST_F(VarsFrmTest, BackScrollingIsOneLetter) {
    for (const auto& [field, ticked] :
         {std::pair("true", false), {"", false}, {"f", false}, {"t", true}, {"T", true}}) {
        LevelRecord.back_scrolling = field;
        OpenVarsFrm();
        EXPECT_EQ(IsTicked(Vars, "BackScrollCheck"), ticked) << field;
        EXPECT_EQ(LevelRecord.back_scrolling, field);
        ClickOn(Vars, "BackScrollCheck");
        EXPECT_EQ(LevelRecord.back_scrolling, ticked ? "f" : "t");
        CloseScreen(Vars);
    }
}

TEST_F(VarsFrmTest, EndingTakesOverTheSelectedTile) {
    PrefsRecord.AddEndState = 2;
    PrefsRecord.IglooState = -1;
    PrefsRecord.FloorTile = 205;
    OpenVarsFrm();
    EXPECT_EQ(PrefsRecord.AddEndState, 0);
    EXPECT_EQ(PrefsRecord.IglooState, 0);
    EXPECT_EQ(PrefsRecord.FloorTile, 26);
    struct Step {
        const char* control;
        int tile;
        int addEnd, igloo, floor;
    };
    const Step steps[] = {
        {"AddEndCheck", 55, 1, 0, 55}, {"IglooCheck", 204, 1, 1, 204}, {"IglooCheck", 205, 1, 0, 26},
        {"FloorImg", 37, 1, 0, 37},    {"FloorImg", 0, 1, 0, 26},      {"AddEndCheck", 56, 0, 0, 56},
    };
    const Level before = LevelRecord;
    for (const Step& step : steps) {
        CurrentTile = step.tile;
        step.control == std::string("FloorImg") ? ClickCell(Vars, step.control) : ClickOn(Vars, step.control);
        EXPECT_EQ(PrefsRecord.AddEndState, step.addEnd);
        EXPECT_EQ(PrefsRecord.IglooState, step.igloo);
        EXPECT_EQ(PrefsRecord.FloorTile, step.floor);
        EXPECT_EQ(CellOf(Vars, "FloorImg").Shown(), BlockImgList()[step.floor]);
        EXPECT_EQ(IsTicked(Vars, "AddEndCheck"), step.addEnd == 1);
        EXPECT_EQ(IsTicked(Vars, "IglooCheck"), step.igloo == 1);
    }
    EXPECT_TRUE(LevelRecord == before);
}

TEST_F(VarsFrmTest, ANewWidthPaintsTheEndingWhereAskedFor) {
    PrefsRecord.AddEndState = 1;
    PrefsRecord.FloorTile = 30;
    OpenVarsFrm();
    TypeInto(Vars, "WidthBox", "300");
    EXPECT_EQ(LevelRecord.interactive_tm(5, 5), 0);
    EXPECT_EQ(LevelRecord.interactive_tm(277, 14), 0);
    EXPECT_EQ(LevelRecord.interactive_tm(278, 14), 30);
    EXPECT_EQ(LevelRecord.interactive_tm(299, 14), 30);
}

TEST_F(VarsFrmTest, TheBarsOfTheEndingDoNothing) {
    OpenVarsFrm();
    const Level level = LevelRecord;
    const Preferences prefs = PrefsRecord;
    for (const char* bar : {"SeqScroll", "FinalScroll"}) {
        EXPECT_EQ(ScrollMaxOf(Vars, bar), 32767);
        ScrollTo(Vars, bar, 20000);
        EXPECT_EQ(ScrollValueOf(Vars, bar), 20000);
    }
    EXPECT_EQ(CaptionOf(Vars, "EndSeqBox"), "EndSeqBox");
    EXPECT_EQ(CaptionOf(Vars, "EndFinalBox"), "EndFinalBox");
    EXPECT_TRUE(LevelRecord == level);
    EXPECT_TRUE(PrefsRecord == prefs);
}

TEST_F(VarsFrmTest, MusicIsANameWithoutItsFolder) {
    LevelRecord.music = "old.mod";
    MusicFolder = folder.string();
    OpenVarsFrm();
    ClickOn(Vars, "MusicBox");  // cancelled
    EXPECT_EQ(LevelRecord.music, "old.mod");
    ASSERT_EQ(dialogs.fileDialogs.size(), 1U);
    EXPECT_EQ(dialogs.fileDialogs[0].filter, "*.mod|*.mod");
    EXPECT_EQ(dialogs.fileDialogs[0].folder, folder.string());
    EXPECT_EQ(dialogs.fileDialogs[0].proposedName, "old.mod");
    dialogs.files = {"/music/new.mod"};
    ClickOn(Vars, "MusicBox");
    EXPECT_EQ(LevelRecord.music, "new.mod");
    EXPECT_EQ(CaptionOf(Vars, "MusicBox"), "new.mod");
}

TEST_F(VarsFrmTest, MainFrmRestsWhileItIsOpen) {
    PrefsRecord.ScreenLeft[3] = 40;
    PrefsRecord.ScreenTop[3] = 50;
    ClickOn("MainFrm", "TB(10)");
    ASSERT_TRUE(IsOpen(Vars));
    EXPECT_FALSE(WindowOf("MainFrm").takesInput);
    EXPECT_EQ(WindowOf("MainFrm").cursor().shape(), Qt::WaitCursor);
    EXPECT_EQ(WindowOf(Vars).windowHandle()->transientParent(), WindowOf("MainFrm").windowHandle());
    CloseScreen("MainFrm");
    ClickOn("MainFrm", "TB(17)");
    EXPECT_TRUE(IsOpen("MainFrm"));
    EXPECT_EQ(WindowOf(Vars).pos(), QPoint(40, 50));
    WindowOf(Vars).move(60, 70);
    ClickOn(Vars, "CloseCmd");
    EXPECT_FALSE(IsOpen(Vars));
    EXPECT_TRUE(WindowOf("MainFrm").takesInput);
    EXPECT_EQ(WindowOf("MainFrm").cursor().shape(), Qt::ArrowCursor);
    EXPECT_EQ(PrefsRecord.ScreenLeft[3], 60);
    EXPECT_EQ(PrefsRecord.ScreenTop[3], 70);
}

TEST_F(VarsFrmTest, TheFirstAuthorBecomesTheDefault) {
    PrefsRecord.DefaultAuthor = "  ";
    OpenVarsFrm();
    TypeInto(Vars, "AuthorBox", "Ben");
    EXPECT_EQ(PrefsRecord.DefaultAuthor, "  ");
    CloseScreen(Vars);
    EXPECT_EQ(PrefsRecord.DefaultAuthor, "Ben");
    OpenVarsFrm();
    TypeInto(Vars, "AuthorBox", "Carl");
    CloseScreen(Vars);
    EXPECT_EQ(PrefsRecord.DefaultAuthor, "Ben");
}

}  // namespace
