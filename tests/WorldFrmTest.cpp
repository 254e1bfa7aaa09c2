#include "world/LinkForm.h"

#include <QCoreApplication>
#include <QTimer>
#include <QWheelEvent>

#include "tests/ScreenDriver.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

// The world map editor and its side screens, through their windows.

namespace {

constexpr const char* Picker = "zTypeFrm";
constexpr const char* Properties = "WorldPropertiesFrm";

class WorldFrmTest : public ScreenTest {
protected:
    static void SetMode(int mode) { ClickOn(Editor, Member("ModeOption", mode)); }

    /// Opens the link editor on a link of `type` at (2, 3).
    static WorldLink& OpenLink(int type) {
        OpenWorld();
        WorldLink& link = AddLink(2, 3, type);
        SetMode(2);
        ClickOn(Editor, "LinkTypeBox(0)");
        return link;
    }

    /// Clicks TypeBox and does `answer` once the picker is open. Comes back when the waiting is over.
    template <typename Answer>
    static std::string AskForType(Answer answer) {
        QTimer::singleShot(0, answer);
        ClickOn(LinkEditor, "TypeBox");
        return StateOf(LinkEditor, "TypeBox");
    }
};

TEST_F(WorldFrmTest, WithoutAWorldItIsDeaf) {
    PrefsRecord.WorldAutoComplete = 0;
    OpenWorldFrm();
    EXPECT_EQ(StatesOf(Editor, {"MapXScroll", "MapYScroll"}), (Texts{"0 of 1", "0 of 3"}));
    SetMode(2);
    ClickOn(Editor, "AutoCheck");
    EXPECT_EQ(PrefsRecord.WorldAutoComplete, 0);
    MoveOverCell(Editor, Img(3, 3));
    ClickOn(Editor, Img(3, 3));
    RightClickOn(Editor, Img(3, 3));
    EXPECT_EQ(StatesOf(Editor, {"TilesFrame", "MouseXBox"}), (Texts{"shown", ""}));
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, AllIsFoundAsItWasLeft) {
    const std::string path = PathOf("a.fbwm");
    OpenWorld();
    BuildWorldText();
    WriteWorldFile(path);
    CloseScreen(Editor);
    const struct {
        int mode, x, y, shownMode;
        const char *shownX, *shownY;
    } cases[] = {{5, 100, 100, 0, "22", "15"}, {-1, -1, 0, 0, "0", "0"}, {2, 1, 4, 2, "1", "4"}};
    for (const auto& saved : cases) {
        SCOPED_TRACE(saved.mode);
        WorldPath = path;
        PrefsRecord.SavedWorldMode = saved.mode;
        PrefsRecord.SavedWorldX = saved.x;
        PrefsRecord.SavedWorldY = saved.y;
        OpenWorldFrm();
        EXPECT_EQ(StatesOf(Editor, {Member("ModeOption", saved.shownMode), "MapXScroll", "MapYScroll", "FileNameBox"}),
                  (Texts{"on", std::string(saved.shownX) + " of 22", std::string(saved.shownY) + " of 15", path}));
        ScrollTo(Editor, "MapXScroll", 7);
        CloseScreen(Editor);
        EXPECT_EQ(PrefsRecord.SavedWorldX, 7);
    }
}

TEST_F(WorldFrmTest, TheViewFollowsItsScrollBars) {
    OpenWorld();
    EXPECT_EQ(PlaceOf(Editor, Img(17, 14)), QPointF(12 + 34 * 17, 90 + 34 * 14));
    WorldRecord.tiles(39, 29) = 71;
    WorldRecord.tiles(38, 29) = 0;
    UpdateWorld();
    ScrollTo(Editor, "MapXScroll", 22);
    ScrollTo(Editor, "MapYScroll", 15);
    EXPECT_EQ(TileAt(Editor, 17, 14) * 100 + TileAt(Editor, 16, 14) * 10 + TileAt(Editor, 15, 14), 7109);
    EXPECT_EQ(MoveOverCell(Editor, Img(17, 14)), "Tile = 71, X = 39, Y = 29");
    OpenWorld(18, 15);
    UpdateWorld();
    EXPECT_EQ(StatesOf(Editor, {"MapXScroll", "MapYScroll"}), Texts(2, "0 of 0"));
    EXPECT_EQ(dialogs.messages.size(), 0U);
    for (const auto& [width, height] : {std::pair(17, 15), {18, 14}}) {
        OpenWorld(width, height);
        WorldRecord.tiles(0, 0) = 5;
        UpdateWorld();
        EXPECT_EQ(TileAt(Editor, 0, 0), 9) << "too small a map is not drawn";
        ASSERT_FALSE(dialogs.messages.empty());
        EXPECT_EQ(dialogs.messages.back(), (Message{"World Map Size Error!\r\nWidth = " + std::to_string(width) +
                                                        ", Height = " + std::to_string(height),
                                                    "World Map Error", MessageButtons::Ok, MessageIcon::Stop}));
    }
    EXPECT_EQ(dialogs.messages.size(), 2U);
}

TEST_F(WorldFrmTest, SpritesShowByTypeAndMode) {
    OpenWorld();
    AddLink(0, 0, LevelLink).name = "a/b.fbl";
    AddLink(17, 14, MessageLink).message = "Hello";
    AddLink(3, 4, TeleportLink).message = "Jump";
    AddLink(6, 6, CommentLink);
    AddLink(18, 0, MessageLink);
    const struct {
        int n, picture, column, row;
        const char* toolTip;
        bool always;
    } sprites[] = {{1, 72, 0, 0, "Map = a/b.fbl", false},
                   {2, 75, 17, 14, "Message: Hello", true},
                   {3, 74, 3, 4, "Teleport to X:0 Y:0, Message:Jump", false}};
    for (const int mode : {2, 3, 4, 1}) {
        SetMode(mode);
        for (const auto& sprite : sprites) {
            SCOPED_TRACE("mode " + std::to_string(mode) + ", link " + std::to_string(sprite.n));
            const std::string name = Member("DotImg", sprite.n);
            const bool shown = mode == 2 || mode == 3 || (mode == 4 && sprite.always);
            ASSERT_EQ(StateOf(Editor, name), shown ? "shown" : "hidden");
            if (shown) {
                EXPECT_EQ(CellOf(Editor, name).Shown(), WorldImages()[sprite.picture]);
                EXPECT_EQ(ToolTipOf(Editor, name), sprite.toolTip);
                EXPECT_EQ(PlaceOf(Editor, name), PlaceOf(Editor, Img(sprite.column, sprite.row)));
            }
        }
        EXPECT_EQ(StatesOf(Editor, {"DotImg(4)", "DotImg(5)"}), Texts(2, "hidden"));
    }
}

TEST_F(WorldFrmTest, StampsKeepOffTheEdges) {
    PrefsRecord.WorldAutoComplete = 1;
    OpenWorld(18, 15);
    WorldCurrentTile = 49;
    const struct { int x, y, written; } cases[] = {{15, 12, 9}, {16, 12, 1}, {15, 13, 1}, {0, 0, 9}};
    for (const auto& place : cases) {
        OpenWorld(18, 15);
        ClickOn(Editor, Img(place.x, place.y));
        int written = 0;
        for (int i = 0; i < 18 * 15; ++i) {
            written += WorldRecord.tiles(i % 18, i / 18) != 9 ? 1 : 0;
        }
        EXPECT_EQ(written, place.written) << place.x << ", " << place.y;
    }
    for (int i = 0; i < 9; ++i) {
        EXPECT_EQ(TileAt(Editor, i % 3, i / 3), 49 + i);
    }
    EXPECT_EQ(WorldChanged, True);
    // The stamp of the start moves the start; without AutoCheck, tile 58 moves nothing else.
    OpenWorld();
    UpdateWorld();
    WorldCurrentTile = 58;
    ScrollTo(Editor, "MapXScroll", 3);
    const struct {
        int scroll, column, row, startX, startY, below;
    } starts[] = {{0, 4, 5, 7, 6, 59}, {0, 1, 1, 4, 2, 9}, {15, 2, 14, 5, 30, 59}};
    for (const auto& start : starts) {
        ScrollTo(Editor, "MapYScroll", start.scroll);
        ClickOn(Editor, Img(start.column, start.row));
        EXPECT_EQ(WorldRecord.start_pos_x * 100 + WorldRecord.start_pos_y, start.startX * 100 + start.startY);
        EXPECT_EQ(WorldRecord.tiles(start.column + 3, start.row + start.scroll + 1), start.below);
        ClickOn(Editor, "AutoCheck");
    }
}

TEST_F(WorldFrmTest, PaletteShowsUpTo35AndSelectsTheTrueTile) {
    OpenWorld();
    WorldRecord.tiles(2, 2) = 76;
    RightClickOn(Editor, Img(2, 2));
    EXPECT_EQ(WorldCurrentTile, 76);
    EXPECT_EQ(CellOf(Editor, "CurrentImg").Shown(), WorldImages()[76]);
    EXPECT_EQ(CellOf(Editor, "TileImg(34)").Shown(), WorldImages()[35]);
    EXPECT_EQ(CellOf(Editor, "TileImg(35)").Shown(), WorldImages()[1]);
    EXPECT_EQ(ToolTipOf(Editor, "TileImg(35)"), "Tile # 1");
    ScrollTo(Editor, "TileScroll", 10);
    WorldCurrentTile = 0;
    ClickOn(Editor, "TileImg(35)");
    EXPECT_EQ(WorldCurrentTile, 76);
    // Favorites take the current tile only while they are edited.
    ScrollTo(Editor, "TileScroll", 1);
    SetMode(1);
    ClickOn(Editor, "FavCheck");
    ClickOn(Editor, "TileImg(5)");
    EXPECT_EQ(PrefsRecord.WorldFavorites[9], 76);
    ClickOn(Editor, "FavCheck");
    ClickOn(Editor, "TileImg(5)");
    EXPECT_EQ(WorldCurrentTile, 76);
    EXPECT_EQ(WorldChanged, False);
}

TEST_F(WorldFrmTest, ClicksInLinkModeFindOrMakeALink) {
    OpenWorld();
    AddLink(2, 3, NoLink);
    AddLink(4, 4, TeleportLink);
    AddLink(4, 4, MessageLink);
    SetMode(2);
    const struct {
        int column, row;
        Qt::MouseButton button;
        int current, count;
    } clicks[] = {{2, 3, Qt::RightButton, 1, 3},
                  {2, 3, Qt::LeftButton, 4, 4},
                  {9, 9, Qt::RightButton, 0, 4},
                  {9, 9, Qt::LeftButton, 5, 5}};
    for (const auto& click : clicks) {
        ClickOn(Editor, Img(click.column, click.row), click.button);
        EXPECT_EQ(CurrentLink, click.current);
        EXPECT_EQ(WorldRecord.LinkCount, click.count);
        ASSERT_TRUE(IsOpen(LinkEditor));
        ClickOn(LinkEditor, "CancelCmd");
        DeliverEvents();
    }
    EXPECT_EQ(WorldRecord.levels[5].type, LevelLink);
    // A sprite takes the click: left selects, right edits.
    ClickOn(Editor, "DotImg(2)");
    EXPECT_FALSE(IsOpen(LinkEditor));
    EXPECT_EQ(CurrentLink, 2 + 1) << "the later of two on one cell lies on top";
}

TEST_F(WorldFrmTest, TheListShowsSixteenLinks) {
    OpenWorld();
    SetMode(2);
    for (int n = 1; n <= 16; ++n) {
        AddLink(n, 0, n % 6);
    }
    UpdateWorld();
    EXPECT_EQ(StatesOf(Editor, {"LinkScroll", "LinkNumBox(15)", "LinkTypeBox(0)", "LinkTypeBox(5)"}),
              (Texts{"disabled", "16", "Comment", ""}));
    // Sprites select and scroll the list.
    while (WorldRecord.LinkCount < 40) {
        AddLink(1 + WorldRecord.LinkCount % 17, 1 + WorldRecord.LinkCount / 17, MessageLink);
    }
    const struct {
        int before, link;
        const char* after;
    } cases[] = {
        {0, 16, "1 of 24"}, {0, 40, "24 of 24"}, {24, 24, "24 of 24"}, {24, 23, "8 of 24"}, {20, 3, "0 of 24"}};
    for (const auto& scroll : cases) {
        SetMode(2);
        ScrollTo(Editor, "LinkScroll", scroll.before);
        SetMode(3);
        const std::string sprite = Member("DotImg", scroll.link);
        EXPECT_EQ(MoveOverCell(Editor, sprite),
                  "Link # " + std::to_string(scroll.link) + ", Left Click to Select, Right Click to Edit");
        ClickOn(Editor, sprite);
        EXPECT_EQ(CurrentLink, scroll.link);
        EXPECT_EQ(StatesOf(Editor, {"ModeOption(2)", "LinkScroll"}), (Texts{"on", scroll.after}));
    }
}

TEST_F(WorldFrmTest, CancelledAndFailedOpeningsLoseTheWorld) {
    OpenWorld(20, 16);
    AddLink(1, 1, MessageLink);
    ClickOn(Editor, "WTB(5)");
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << "there is no path to save to";
    SetMode(3);
    EXPECT_EQ(StateOf(Editor, "DotImg(1)"), "shown");
    ClickOn(Editor, "FileNameBox");
    EXPECT_EQ(WorldLoaded, False);
    EXPECT_EQ(StatesOf(Editor, {"DotImg(1)", "NukImg"}), Texts(2, "hidden"));
    // An unreadable number ends the dialog silently, an error comes back at every drawing.
    const std::string bad = Store("bad.fbwm", "(floebird-worldmap (tilemap (width many)))\n");
    dialogs.files = {bad, Store("worse.fbwm", "(floebird-worldmap (sizes))\n")};
    ClickOn(Editor, "FileNameBox");
    EXPECT_EQ(WorldPath, bad);
    EXPECT_TRUE(dialogs.messages.empty());
    ClickOn(Editor, "FileNameBox");
    SetMode(2);
    const Message error{"Error # 4", "World Read Error", MessageButtons::Ok, MessageIcon::Stop};
    EXPECT_EQ(dialogs.messages, std::vector(2, error));
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, ASaveUnderANewNameShowsIt) {
    OpenWorld();
    dialogs.files = {PathOf("new.fbwm")};
    ClickOn(Editor, "WTB(6)");
    EXPECT_EQ(StateOf(Editor, "FileNameBox"), PathOf("new.fbwm"));
    // The wheel: up and down, and sideways with the shift key.
    for (const Qt::KeyboardModifier modifier : {Qt::NoModifier, Qt::ShiftModifier, Qt::ShiftModifier}) {
        QWheelEvent event(QPointF(300, 300), WindowOf(Editor).mapToGlobal(QPointF(300, 300)), {}, {0, -120},
                          Qt::NoButton, modifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&WindowOf(Editor), &event);
    }
    EXPECT_EQ(StatesOf(Editor, {"MapXScroll", "MapYScroll"}), (Texts{"2 of 22", "1 of 15"}));
}

TEST_F(WorldFrmTest, ClosingAsksAboutChangesButAlwaysCloses) {
    for (const auto& [answer, saved] : {std::pair(AnswerYes, true), {AnswerNo, false}, {AnswerCancel, false}}) {
        Restart();
        dialogs.answers = {answer};
        OpenWorld();
        WorldPath = PathOf("a.fbwm");
        WorldCurrentTile = 4;
        ClickOn(Editor, Img(0, 0));
        CloseScreen(Editor);
        EXPECT_FALSE(IsOpen(Editor));
        EXPECT_EQ(dialogs.messages, (std::vector<Message>{{"Save World Map Changes?", "World Map Changed",
                                                           MessageButtons::YesNoCancel, MessageIcon::Question}}));
        EXPECT_EQ(std::filesystem::exists(WorldPath), saved);
    }
}

TEST_F(WorldFrmTest, LinkTypesEnableTheirFields) {
    const Texts fields{"MessageBox", "NameBox",      "ExtroBox",        "DestXBox",
                       "DestYBox",   "ApplyUpCheck", "ApplyRightCheck", "XBox"};
    const std::pair<const char*, const char*> types[] = {
        {"Level Link", "-NE----X"}, {"Message", "M----URX"}, {"Teleport", "M--XY--X"}, {"Invisible", "M--XY--X"}};
    const WorldLink& link = OpenLink(LevelLink);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(AskForType([&] { ClickOn(Picker, Member("TypeBox", i)); }), types[i].first);
        for (std::size_t field = 0; field < fields.size(); ++field) {
            EXPECT_EQ(ControlOf<QWidget>(LinkEditor, fields[field]).isEnabled(), types[i].second[field] != '-')
                << types[i].first << " " << fields[field];
        }
    }
    EXPECT_EQ(AskForType([] { CloseScreen(Picker); }), "Invisible");
    // While the picker is open its asker is alive: it may be closed.
    AskForType([] {
        CloseScreen(LinkEditor);
        EXPECT_TRUE(WindowOf(Editor).takesInput);
        ClickOn(Editor, "LinkTypeBox(0)");
        AskForType([] { ClickOn(Picker, "TypeBox(2)"); });
    });
    EXPECT_EQ(link.type, LevelLink) << "only OK writes back";
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(link.type, TeleportLink);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, LinkEditsReachTheListThroughOk) {
    const WorldLink& link = OpenLink(MessageLink);
    WorldChanged = False;
    TypeInto(LinkEditor, "XBox", "9");
    ClickOn(LinkEditor, "CancelCmd");
    DeliverEvents();
    EXPECT_EQ(link.x, 2);
    EXPECT_EQ(WorldChanged, True);
    ClickOn(Editor, "LinkTypeBox(0)");
    TypeInto(LinkEditor, "CommentBox", "; note");
    TypeInto(LinkEditor, "XBox", "1x2-");
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(link.comment + std::to_string(link.x), "; note12");
}

TEST_F(WorldFrmTest, LinkFlagsAreSwitchedOffOrLeft) {
    WorldLink& link = OpenLink(MessageLink);
    ClickOn(LinkEditor, "CancelCmd");
    DeliverEvents();
    link.apply_action_left = "F";
    link.apply_action_right = "t";
    link.apply_action_down = "f";
    ClickOn(Editor, "LinkTypeBox(0)");
    EXPECT_EQ(StatesOf(LinkEditor, {"ApplyLeftCheck", "ApplyRightCheck", "ApplyUpCheck", "ApplyDownCheck"}),
              (Texts{"off", "on", "on", "off"}));
    ClickOn(LinkEditor, "ApplyUpCheck");
    ClickOn(LinkEditor, "ApplyDownCheck");
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ((Texts{link.apply_action_left, link.apply_action_right, link.apply_action_up, link.apply_action_down}),
              (Texts{"F", "t", "f", ""}));
}

TEST_F(WorldFrmTest, LevelNamesStartBehindTheirFolder) {
    UserLevelsFolder = "/game/.floebird/levels";
    const std::pair<const char*, const char*> names[] = {
        {"/game/.floebird/levels\\mine\\level1.fbl", "mine/level1.fbl"},
        {"/game/data/levels/world1/level1.fbl", "1/level1.fbl"},
        {"/game/.floebird/levels/", ""},
        {"/game/x.fbl", ""}};
    for (const auto& [path, name] : names) {
        EXPECT_EQ(GetLevelLinkName(path), name) << path;
    }
}

TEST_F(WorldFrmTest, ANewWorldIsMadeWhenItsPropertiesClose) {
    OpenWorld();
    dialogs.answers = {AnswerNo, AnswerYes};
    ClickOn(Editor, "WTB(1)");
    EXPECT_EQ(WorldLoaded, True);
    ClickOn(Editor, "WTB(1)");
    ScrollTo(Properties, "XScroll", 512);
    EXPECT_EQ(StatesOf(Properties, {"WidthBox", "HeightBox"}), (Texts{"512", "16"}));
    EXPECT_EQ(WorldLoaded, False);
    CloseScreen(Properties);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(NewWorldPending, False);
    EXPECT_EQ(WorldRecord.tiles.Columns() * 100 + WorldRecord.tiles.Rows(), 51317);
    EXPECT_EQ(StateOf(Editor, "MapXScroll"), "0 of 494");
}

TEST_F(WorldFrmTest, SizesHaveTheirLimits) {
    OpenWorld();
    ClickOn(Editor, "WTB(8)");
    const struct {
        const char *box, *text;
        bool taken;
    } cases[] = {{"WidthBox", "18", false},   {"WidthBox", "19", true},    {"WidthBox", "1023", true},
                 {"WidthBox", "1024", false}, {"HeightBox", "15", false},  {"HeightBox", "16", true},
                 {"HeightBox", "256", true},  {"HeightBox", "257", false}, {"WidthBox", "120", true},
                 {"HeightBox", "30", true}};
    for (const auto& [box, text, taken] : cases) {
        SCOPED_TRACE(std::string(box) + " " + text);
        const bool width = box[0] == 'W';
        dialogs.messages.clear();
        TypeInto(Properties, box, text);
        EXPECT_EQ((width ? WorldRecord.width : WorldRecord.height) == std::stoi(text), taken);
        ASSERT_FALSE(dialogs.messages.empty()) << "the first digit alone is refused";
        const std::string what = width ? "World Map Width" : "World Map Height";
        EXPECT_EQ(dialogs.messages.back(), (Message{what + "\r\nMust be between 19 and 1023", what + " Error",
                                                    MessageButtons::Ok, MessageIcon::Stop}));
    }
    EXPECT_EQ(StateOf(Properties, "XScroll").substr(0, 3), "40 ") << "the bar waits for the next refresh";
    TypeInto(Properties, "HeightBox", "9");
    PressKey(Properties, "HeightBox", Qt::Key_Return);
    EXPECT_EQ(StateOf(Properties, "HeightBox"), "30");
    EXPECT_EQ(StateOf(Properties, "XScroll").substr(0, 4), "120 ");
    EXPECT_EQ(WorldRecord.tiles.Columns(), 41) << "the tiles stay as they were";
}

}  // namespace
