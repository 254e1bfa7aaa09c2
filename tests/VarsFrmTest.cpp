#include <sstream>
#include <variant>

#include "tests/ScreenDriver.h"

namespace {

constexpr const char* Vars = "VarsFrm";

class VarsFrmTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        OpenMain(120);
        LevelRecord.interactive_tm(5, 5) = 7;
        LevelRecord.author = "ANNA";
        LevelRecord.back_scrolling = "T";
        LevelRecord.EndComment = ";; last";
    }
};

/// A box, what it shows of its field, what is typed into it, and what the record then holds.
struct Field {
    const char *box, *shown, *typed;
    std::variant<std::string Level::*, Int16 Level::*, double Level::*> field;
    const char* stored;
};

std::string Stored(const Field& row) {
    const auto text = [](const auto& value) {
        std::ostringstream out;
        out << value;
        return out.str();
    };
    return std::visit([&](auto member) { return text(LevelRecord.*member); }, row.field);
}

TEST_F(VarsFrmTest, ShowsAndStoresEveryField) {
    Level& l = LevelRecord;
    l.LevelComment = "; first";
    l.version = "2";
    l.name = "Ice";
    l.start_pos_x = 32;
    l.start_pos_y = 64;
    Int16 colour = 1;
    for (Int16* part : {&l.bkgd_red_top, &l.bkgd_green_top, &l.bkgd_blue_top, &l.bkgd_red_bottom, &l.bkgd_green_bottom,
                        &l.bkgd_blue_bottom}) {
        *part = colour;
        colour = colour + 1;
    }
    l.bkgd_speed = 44;
    l.hor_autoscroll_speed = 0.5;
    l.time = 600;
    l.gravity = 1e20;
    l.height = 20;
    OpenVarsFrm();
    const Field fields[] = {{"CommentBox", "; first", " x ", &Level::LevelComment, " x "},
                            {"VersionBox", "2", "beta", &Level::version, "beta"},
                            {"AuthorBox", "ANNA", "Ben B.", &Level::author, "Ben B."},
                            {"NameBox", "Ice", "Snow", &Level::name, "Snow"},
                            {"StartXBox", "32", "101", &Level::start_pos_x, "101"},
                            {"StartYBox", "64", "102", &Level::start_pos_y, "102"},
                            {"BkgRedTopBox", "1", "999", &Level::bkgd_red_top, "999"},
                            {"BkgGrnTopBox", "2", "104", &Level::bkgd_green_top, "104"},
                            {"BkgBluTopBox", "3", "105", &Level::bkgd_blue_top, "105"},
                            {"BkgRedBtmBox", "4", "106", &Level::bkgd_red_bottom, "106"},
                            {"BkgGrnBtmBox", "5", "107", &Level::bkgd_green_bottom, "107"},
                            {"BkgBluBtmBox", "6", "2.5", &Level::bkgd_blue_bottom, "2"},
                            {"BkgSpeedBox", "44", "1.25", &Level::bkgd_speed, "1.25"},
                            {"ScrollSpeedBox", "0.5", "-3x", &Level::hor_autoscroll_speed, "-3"},
                            {"TimeBox", "600", "32767", &Level::time, "32767"},
                            {"GravityBox", "1E+20", "9", &Level::gravity, "9"},
                            {"EndCommentBox", ";; last", "lost", &Level::EndComment, ";; last"}};
    for (const Field& field : fields) {
        EXPECT_EQ(StateOf(Vars, field.box), field.shown) << field.box;
    }
    EXPECT_EQ(l.height, 15);
    for (const Field& field : fields) {
        TypeInto(Vars, field.box, field.typed);
        EXPECT_EQ(Stored(field), field.stored) << field.box;
    }
}

TEST_F(VarsFrmTest, EachWidthTypedInRangeStartsTheLevelAnew) {
    OpenVarsFrm();
    const TileMap painted = LevelRecord.interactive_tm;
    TypeInto(Vars, "WidthBox", "12");
    EXPECT_EQ(LevelRecord.width, 12);
    EXPECT_EQ(LevelRecord.interactive_tm, painted);
    const struct {
        const char* text;
        int width, columns;
    } steps[] = {{"120", 120, 120},    {"20", 20, 120},     {"21", 21, 21},
                 {"1023", 1023, 1023}, {"1024", 1024, 102}, {"102x", 102, 102}};
    for (const auto& step : steps) {
        TypeInto(Vars, "WidthBox", step.text);
        EXPECT_EQ(LevelRecord.width, step.width);
        for (const TileMap* layer :
             {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
            EXPECT_EQ(*layer, TileMap(step.columns, 15)) << step.text;
        }
    }
    EXPECT_EQ(StatesOf(Main, {"MapXScroll", "FileNameBox"}), (Texts{"0 of 84", "level.fbl   [Level Width = 102]"}));
    // The ending is painted where it is asked for.
    PrefsRecord.AddEndState = 1;
    PrefsRecord.FloorTile = 30;
    TypeInto(Vars, "WidthBox", "300");
    EXPECT_EQ(LevelRecord.interactive_tm(277, 14), 0);
    EXPECT_EQ(LevelRecord.interactive_tm(278, 14), 30);
}

TEST_F(VarsFrmTest, ClicksStepTheRings) {
    const struct {
        const char* label;
        std::string Level::*field;
        Texts values;
    } rings[] = {{"ParticleBox", &Level::particle_system, {"", "cloud", "snow", ""}},
                 {"ParticleBox", &Level::particle_system, {"Cloud", "", "cloud"}},
                 {"ThemeBox", &Level::theme, {"desert", "", "antarctica", ""}},
                 {"BackScrollCheck", &Level::back_scrolling, {"T", "f", "t"}}};
    OpenVarsFrm();
    for (const auto& ring : rings) {
        LevelRecord.*ring.field = ring.values.front();
        for (std::size_t i = 1; i < ring.values.size(); ++i) {
            ClickOn(Vars, ring.label);
            EXPECT_EQ(LevelRecord.*ring.field, ring.values[i]);
            EXPECT_TRUE(ring.label[0] == 'B' || StateOf(Vars, ring.label) == ring.values[i]);
        }
    }
    for (const auto& [field, state] : {std::pair("true", "off"), {"", "off"}, {"f", "off"}, {"t", "on"}}) {
        CloseScreen(Vars);
        LevelRecord.back_scrolling = field;
        OpenVarsFrm();
        EXPECT_EQ(StateOf(Vars, "BackScrollCheck"), state) << field;
        EXPECT_EQ(LevelRecord.back_scrolling, field);
    }
}

TEST_F(VarsFrmTest, EndingTakesOverTheSelectedTile) {
    PrefsRecord.AddEndState = 2;
    PrefsRecord.IglooState = -1;
    PrefsRecord.FloorTile = 205;
    OpenVarsFrm();
    EXPECT_EQ(PrefsRecord.AddEndState * 1000 + PrefsRecord.IglooState * 100 + PrefsRecord.FloorTile, 26);
    const struct {
        const char* control;
        int tile, addEnd, igloo, floor;
    } steps[] = {{"AddEndCheck", 55, 1, 0, 55}, {"IglooCheck", 204, 1, 1, 204}, {"IglooCheck", 205, 1, 0, 26},
                 {"FloorImg", 37, 1, 0, 37},    {"FloorImg", 0, 1, 0, 26},      {"AddEndCheck", 56, 0, 0, 56}};
    const Level before = LevelRecord;
    for (const auto& step : steps) {
        CurrentTile = step.tile;
        ClickOn(Vars, step.control);
        EXPECT_EQ(PrefsRecord.AddEndState, step.addEnd);
        EXPECT_EQ(PrefsRecord.IglooState, step.igloo);
        EXPECT_EQ(PrefsRecord.FloorTile, step.floor);
        EXPECT_EQ(CellOf(Vars, "FloorImg").Shown(), BlockImgList()[step.floor]);
        EXPECT_EQ(StatesOf(Vars, {"AddEndCheck", "IglooCheck"}),
                  (Texts{step.addEnd == 1 ? "on" : "off", step.igloo == 1 ? "on" : "off"}));
    }
    EXPECT_TRUE(LevelRecord == before);
}

TEST_F(VarsFrmTest, TheFirstAuthorBecomesTheDefault) {
    PrefsRecord.DefaultAuthor = "  ";
    for (const char* author : {"Ben", "Carl"}) {
        OpenVarsFrm();
        TypeInto(Vars, "AuthorBox", author);
        ClickOn(Vars, "CloseCmd");
        EXPECT_EQ(PrefsRecord.DefaultAuthor, "Ben");
    }
}

}  // namespace
