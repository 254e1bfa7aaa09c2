#include "tests/WorldScreens.h"
#include "world/WorldWriter.h"

// The world map editor through its window: opening and closing, the view, painting, the list of links, files.

namespace {

using WorldFrmTest = WorldScreenTest;

using Message = ScriptedDialogs::Message;

TEST_F(WorldFrmTest, TakesThePlaceOfTheLevelEditor) {
    MakeWorld(40, 30);
    LoadMainFrm();
    ShowMainFrm();
    ClickOn("MainFrm", "TB(13)");
    EXPECT_TRUE(IsOpen(Editor));
    EXPECT_FALSE(IsOpen("MainFrm"));
    ClickOn(Editor, "WTB(10)");
    EXPECT_FALSE(IsOpen(Editor));
    ASSERT_TRUE(IsOpen("MainFrm"));
    EXPECT_TRUE(WindowOf("MainFrm").takesInput);
    EXPECT_EQ(WindowOf("MainFrm").cursor().shape(), Qt::ArrowCursor);
}

TEST_F(WorldFrmTest, WithoutAWorldItIsDeaf) {
    PrefsRecord.WorldAutoComplete = 0;
    OpenWorldFrm();
    EXPECT_EQ(ScrollMaxOf(Editor, "MapXScroll"), 1);
    EXPECT_EQ(ScrollMaxOf(Editor, "MapYScroll"), 3);
    ClickOn(Editor, Mode(2));
    EXPECT_TRUE(IsShown(Editor, "TilesFrame"));
    ClickOn(Editor, "AutoCheck");
    EXPECT_EQ(PrefsRecord.WorldAutoComplete, 0);
    MoveOverCell(Editor, Img(3, 3));
    EXPECT_EQ(CaptionOf(Editor, "MouseXBox"), "");
    ClickCell(Editor, Img(3, 3));
    ClickCell(Editor, Img(3, 3), Qt::RightButton);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(WorldFrmTest, AllIsFoundAsItWasLeft) {
    MakeWorld(40, 30);
    BuildWorldText();
    WriteWorldFile((folder / "a.fbwm").string());
    const struct {
        int mode, x, y, shownMode, shownX, shownY;
    } cases[] = {{3, 15, 10, 3, 15, 10}, {5, 100, 100, 0, 22, 15}, {-1, -1, 0, 0, 0, 0}, {2, 1, 4, 2, 1, 4}};
    for (const auto& saved : cases) {
        SCOPED_TRACE(saved.mode);
        WorldPath = (folder / "a.fbwm").string();
        PrefsRecord.SavedWorldMode = saved.mode;
        PrefsRecord.SavedWorldX = saved.x;
        PrefsRecord.SavedWorldY = saved.y;
        CurrentLink = 5;
        OpenWorldFrm();
        EXPECT_TRUE(IsTicked(Editor, Mode(saved.shownMode)));
        EXPECT_EQ(ScrollValueOf(Editor, "MapXScroll"), saved.shownX);
        EXPECT_EQ(ScrollValueOf(Editor, "MapYScroll"), saved.shownY);
        EXPECT_EQ(CurrentLink, -1);
        EXPECT_EQ(CaptionOf(Editor, "FileNameBox"), WorldPath);
        ScrollTo(Editor, "MapXScroll", 7);
        CloseScreen(Editor);
        DeliverEvents();
        EXPECT_EQ(PrefsRecord.SavedWorldMode, saved.shownMode);
        EXPECT_EQ(PrefsRecord.SavedWorldX, 7);
        EXPECT_EQ(PrefsRecord.SavedWorldY, saved.shownY);
    }
}

TEST_F(WorldFrmTest, ModesShowTheirPanels) {
    PrefsRecord.WorldAutoComplete = 7;
    OpenWithWorld();
    const struct {
        bool tiles, links;
    } panels[] = {{true, false}, {true, false}, {false, true}, {false, false}, {false, false}};
    for (int mode = 4; mode >= 0; --mode) {
        ClickOn(Editor, Mode(mode));
        EXPECT_EQ(IsShown(Editor, "TilesFrame"), panels[mode].tiles) << mode;
        EXPECT_EQ(IsShown(Editor, "LinkFrame"), panels[mode].links) << mode;
        EXPECT_EQ(IsEnabled(Editor, "FavCheck"), mode < 2) << mode;
    }
    EXPECT_TRUE(IsTicked(Editor, "AutoCheck")) << "a value of no use becomes 1";
}

TEST_F(WorldFrmTest, TheViewFollowsItsScrollBars) {
    OpenWithWorld();
    EXPECT_EQ(CellOf(Editor, "Img(269)").Left(), 12 + 34 * 17);
    EXPECT_EQ(CellOf(Editor, "Img(269)").Top(), 90 + 34 * 14);
    WorldRecord.tiles(39, 29) = 71;
    WorldRecord.tiles(38, 29) = 0;
    WorldRecord.start_pos_x = 30;
    WorldRecord.start_pos_y = 20;
    ClickOn(Editor, Mode(3));
    EXPECT_FALSE(IsShown(Editor, "NukImg"));
    ScrollTo(Editor, "MapXScroll", 22);
    ScrollTo(Editor, "MapYScroll", 15);
    ShowsTile(17, 14, 71);
    ShowsTile(16, 14, 0);
    ShowsTile(15, 14, 9);
    ASSERT_TRUE(IsShown(Editor, "NukImg"));
    StandsOn("NukImg", 8, 5);
    MoveOverCell(Editor, Img(17, 14));
    EXPECT_EQ(ToolTipOf(Editor, Img(17, 14)), "Tile = 71, X = 39, Y = 29");
    EXPECT_EQ(CaptionOf(Editor, "MouseXBox"), "39");
    EXPECT_EQ(CaptionOf(Editor, "MouseYBox"), "29");
    ClickOn(Editor, Mode(2));
    EXPECT_FALSE(IsShown(Editor, "NukImg"));
    MakeWorld(18, 15);
    UpdateWorld();
    EXPECT_EQ(ScrollMaxOf(Editor, "MapXScroll"), 0);
    EXPECT_EQ(ScrollMaxOf(Editor, "MapYScroll"), 0);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, TooSmallAMapIsNotDrawn) {
    OpenWithWorld();
    const std::pair<int, int> sizes[] = {{17, 15}, {18, 14}};
    for (const auto& [width, height] : sizes) {
        MakeWorld(width, height);
        WorldRecord.tiles(0, 0) = 5;
        UpdateWorld();
        ShowsTile(0, 0, 9);
        ASSERT_FALSE(dialogs.messages.empty());
        EXPECT_EQ(dialogs.messages.back(), (Message{"World Map Size Error!\r\nWidth = " + std::to_string(width) +
                                                        ", Height = " + std::to_string(height),
                                                    "World Map Error", MessageButtons::Ok, MessageIcon::Stop}));
    }
    EXPECT_EQ(dialogs.messages.size(), 2U);
}

TEST_F(WorldFrmTest, SpritesShowByTypeAndMode) {
    OpenWithWorld();
    AddLink(0, 0, LevelLink).name = "a/b.fbl";
    AddLink(17, 14, MessageLink).message = "Hello";
    WorldLink& teleport = AddLink(3, 4, TeleportLink);
    teleport.message = "Jump";
    teleport.dest_x = 7;
    teleport.dest_y = 8;
    WorldLink& invisible = AddLink(5, 6, InvisibleLink);
    invisible.dest_x = -1;
    AddLink(6, 6, CommentLink);
    AddLink(18, 0, MessageLink);
    const struct {
        int n, picture, column, row;
        const char* toolTip;
        bool always;
    } sprites[] = {{1, 72, 0, 0, "Map = a/b.fbl", false},
                   {2, 75, 17, 14, "Message: Hello", true},
                   {3, 74, 3, 4, "Teleport to X:7 Y:8, Message:Jump", false},
                   {4, 76, 5, 6, "Invisible Teleport to X:-1 Y:0", true}};
    for (const int mode : {2, 3, 4, 1}) {
        ClickOn(Editor, Mode(mode));
        for (const auto& sprite : sprites) {
            SCOPED_TRACE("mode " + std::to_string(mode) + ", link " + std::to_string(sprite.n));
            const std::string name = Member("DotImg", sprite.n);
            const bool shown = mode == 2 || mode == 3 || (mode == 4 && sprite.always);
            ASSERT_EQ(IsShown(Editor, name), shown);
            if (shown) {
                EXPECT_EQ(CellOf(Editor, name).Shown(), WorldImages()[sprite.picture]);
                EXPECT_EQ(ToolTipOf(Editor, name), sprite.toolTip);
                StandsOn(name, sprite.column, sprite.row);
            }
        }
        EXPECT_FALSE(IsShown(Editor, "DotImg(5)"));
        EXPECT_FALSE(IsShown(Editor, "DotImg(6)"));
    }
}

TEST_F(WorldFrmTest, LateSpritesStayUntilAModeWithoutLinks) {
    OpenWithWorld();
    for (int n = 1; n <= 63; ++n) {
        AddLink(n % 18, n / 18, MessageLink);
    }
    ClickOn(Editor, Mode(3));
    EXPECT_TRUE(IsShown(Editor, "DotImg(63)"));
    while (WorldRecord.LinkCount > 20) {
        DeleteLink(WorldRecord.LinkCount);
    }
    UpdateWorld();
    EXPECT_TRUE(IsShown(Editor, "DotImg(20)"));
    EXPECT_FALSE(IsShown(Editor, "DotImg(21)"));
    EXPECT_FALSE(IsShown(Editor, "DotImg(31)"));
    EXPECT_TRUE(IsShown(Editor, "DotImg(32)"));
    ClickOn(Editor, Mode(0));
    EXPECT_FALSE(IsShown(Editor, "DotImg(32)"));
    EXPECT_FALSE(IsShown(Editor, "DotImg(63)"));
}

TEST_F(WorldFrmTest, BlockStampKeepsOffTheEdges) {
    PrefsRecord.WorldAutoComplete = 1;
    OpenWithWorld(18, 15);
    WorldCurrentTile = 49;
    const struct { int x, y, written; } cases[] = {{15, 12, 9}, {16, 12, 1}, {15, 13, 1}, {0, 0, 9}};
    for (const auto& place : cases) {
        MakeWorld(18, 15);
        ClickCell(Editor, Img(place.x, place.y));
        int written = 0;
        for (int i = 0; i < 18 * 15; ++i) {
            written += WorldRecord.tiles(i % 18, i / 18) != 9 ? 1 : 0;
        }
        EXPECT_EQ(written, place.written) << place.x << ", " << place.y;
    }
    ShowsTile(1, 0, 50);
    ShowsTile(0, 2, 55);
    ShowsTile(2, 2, 57);
    EXPECT_EQ(WorldChanged, True);
    ClickOn(Editor, "AutoCheck");
    ClickCell(Editor, Img(8, 8));
    ShowsTile(8, 8, 49);
    ShowsTile(9, 8, 9);
}

TEST_F(WorldFrmTest, StartStampMovesTheStart) {
    PrefsRecord.WorldAutoComplete = 1;
    OpenWithWorld();
    WorldCurrentTile = 58;
    ScrollTo(Editor, "MapXScroll", 3);
    ClickCell(Editor, Img(4, 5));
    EXPECT_EQ(WorldRecord.start_pos_x, 7);
    EXPECT_EQ(WorldRecord.start_pos_y, 6);
    EXPECT_EQ(WorldRecord.tiles(7, 6), 59);
    ClickOn(Editor, "AutoCheck");
    ClickCell(Editor, Img(1, 1));
    EXPECT_EQ(WorldRecord.start_pos_x, 4);
    EXPECT_EQ(WorldRecord.tiles(4, 2), 9);
    ClickOn(Editor, "AutoCheck");
    ScrollTo(Editor, "MapYScroll", 15);
    ClickCell(Editor, Img(2, 14));
    EXPECT_EQ(WorldRecord.start_pos_y, WorldRecord.height);
    EXPECT_EQ(WorldRecord.tiles(5, 30), 59) << "the spare row takes it";
    ClickOn(Editor, Mode(4));
    ClickCell(Editor, Img(0, 0), Qt::RightButton);
    EXPECT_EQ(WorldRecord.start_pos_x, 3);
    EXPECT_EQ(WorldRecord.start_pos_y, 15);
    StandsOn("NukImg", 0, 0);
}

TEST_F(WorldFrmTest, RightButtonPicksATile) {
    OpenWithWorld();
    WorldRecord.tiles(2, 2) = 76;
    ClickCell(Editor, Img(2, 2), Qt::RightButton);
    EXPECT_EQ(WorldCurrentTile, 76);
    EXPECT_EQ(CellOf(Editor, "CurrentImg").Shown(), WorldImages()[76]);
    EXPECT_EQ(CaptionOf(Editor, "TileIndexBox"), "76");
    ClickCell(Editor, Img(4, 4), Qt::MiddleButton);
    EXPECT_EQ(WorldRecord.tiles(4, 4), 9);
    EXPECT_EQ(WorldChanged, False);
    ClickOn(Editor, Mode(3));
    ClickCell(Editor, Img(4, 4));
    EXPECT_EQ(WorldRecord.tiles(4, 4), 9);
    CloseScreen(Editor);
    DeliverEvents();
    OpenWorldFrm();
    EXPECT_EQ(CellOf(Editor, "CurrentImg").Shown(), WorldImages()[76]) << "the tile is still selected";
}

TEST_F(WorldFrmTest, PaletteShowsUpTo35AndSelectsTheTrueTile) {
    OpenWithWorld();
    EXPECT_EQ(CellOf(Editor, "TileImg(34)").Shown(), WorldImages()[35]);
    EXPECT_EQ(CellOf(Editor, "TileImg(35)").Shown(), WorldImages()[1]);
    EXPECT_EQ(ToolTipOf(Editor, "TileImg(35)"), "Tile # 1");
    ScrollTo(Editor, "TileScroll", 10);
    ClickCell(Editor, "TileImg(35)");
    EXPECT_EQ(WorldCurrentTile, 76);
    EXPECT_EQ(CellOf(Editor, "CurrentImg").Shown(), WorldImages()[76]);
    // Favorites take the current tile only while they are edited.
    ScrollTo(Editor, "TileScroll", 1);
    ClickOn(Editor, Mode(1));
    ClickOn(Editor, "FavCheck");
    ClickCell(Editor, "TileImg(5)");
    EXPECT_EQ(PrefsRecord.WorldFavorites[9], 76);
    WorldCurrentTile = 12;
    ClickCell(Editor, "TileImg(6)");
    EXPECT_EQ(CellOf(Editor, "TileImg(6)").Shown(), WorldImages()[12]);
    EXPECT_EQ(CellOf(Editor, "TileImg(5)").Shown(), WorldImages()[1]) << "a tile above 35";
    EXPECT_EQ(CellOf(Editor, "CurrentImg").Shown(), WorldImages()[76]);
    ClickOn(Editor, "FavCheck");
    ClickCell(Editor, "TileImg(5)");
    EXPECT_EQ(WorldCurrentTile, 76);
    ClickOn(Editor, "FavCheck");
    ClickOn(Editor, Mode(0));
    ClickCell(Editor, "TileImg(0)");
    EXPECT_EQ(WorldCurrentTile, 5);
    EXPECT_EQ(WorldChanged, False);
}

TEST_F(WorldFrmTest, ClicksInLinkModeFindOrMakeALink) {
    OpenWithWorld();
    AddLink(2, 3, NoLink);
    AddLink(4, 4, TeleportLink);
    AddLink(4, 4, MessageLink);
    ClickOn(Editor, Mode(2));
    const struct {
        int column, row;
        Qt::MouseButton button;
        int current, count;
    } clicks[] = {
        {2, 3, Qt::RightButton, 1, 3},
        {2, 3, Qt::LeftButton, 4, 4},
        {9, 9, Qt::RightButton, 0, 4},
        {9, 9, Qt::LeftButton, 5, 5},
    };
    for (const auto& click : clicks) {
        SCOPED_TRACE(click.current);
        ClickCell(Editor, Img(click.column, click.row), click.button);
        EXPECT_EQ(CurrentLink, click.current);
        EXPECT_EQ(WorldRecord.LinkCount, click.count);
        ASSERT_TRUE(IsOpen(LinkEditor));
        EXPECT_FALSE(WindowOf(Editor).takesInput);
        ClickOn(LinkEditor, "CancelCmd");
        EXPECT_TRUE(WindowOf(Editor).takesInput);
        DeliverEvents();
    }
    EXPECT_EQ(WorldRecord.levels[5].type, LevelLink);
    // A sprite takes the click: left selects, right edits.
    ClickCell(Editor, "DotImg(2)");
    EXPECT_FALSE(IsOpen(LinkEditor));
    EXPECT_EQ(CurrentLink, 2 + 1) << "the later of two on one cell lies on top";
}

TEST_F(WorldFrmTest, TheListShowsSixteenLinks) {
    OpenWithWorld();
    ClickOn(Editor, Mode(2));
    EXPECT_FALSE(IsShown(Editor, "LinkNumBox(0)"));
    for (int n = 1; n <= 16; ++n) {
        AddLink(n, 0, n % 6);
    }
    UpdateWorld();
    EXPECT_FALSE(IsEnabled(Editor, "LinkScroll"));
    EXPECT_EQ(CaptionOf(Editor, "LinkNumBox(15)"), "16");
    EXPECT_EQ(CaptionOf(Editor, "LinkTypeBox(0)"), "Comment");
    EXPECT_EQ(CaptionOf(Editor, "LinkTypeBox(5)"), "");
    AddLink(17, 0, TeleportLink).dest_x = 33;
    UpdateWorld();
    EXPECT_TRUE(IsEnabled(Editor, "LinkScroll"));
    EXPECT_EQ(ScrollMaxOf(Editor, "LinkScroll"), 1);
    ScrollTo(Editor, "LinkScroll", 1);
    EXPECT_EQ(CaptionOf(Editor, "LinkNumBox(15)"), "17");
    ClickOn(Editor, "LinkNumBox(15)");
    EXPECT_EQ(CurrentLink, 17);
    EXPECT_EQ(CaptionOf(LinkEditor, "LinkNumBox"), "17");
    ClickOn(LinkEditor, "CancelCmd");
    EXPECT_TRUE(IsShown(Editor, "LinkIndImg(15)"));
    EXPECT_EQ(CaptionOf(Editor, "LinkXBox"), "17");
    EXPECT_EQ(CaptionOf(Editor, "LinkDXBox"), "33");
    CurrentLink = 2;
    UpdateWorld();
    EXPECT_FALSE(IsShown(Editor, "LinkIndImg(15)"));
    EXPECT_TRUE(IsShown(Editor, "LinkIndImg(0)"));
    EXPECT_FALSE(IsShown(Editor, "LinkDXBox"));
    DeleteLink(17);
    CurrentLink = 17;
    UpdateWorld();
    EXPECT_EQ(ScrollValueOf(Editor, "LinkScroll"), 0);
    EXPECT_EQ(CaptionOf(Editor, "LinkXBox"), "2") << "no row is marked, so the position stays";
}

TEST_F(WorldFrmTest, SpritesSelectAndScrollTheList) {
    OpenWithWorld();
    for (int n = 1; n <= 40; ++n) {
        AddLink(n % 18, n / 18, MessageLink);
    }
    ClickOn(Editor, Mode(4));
    const struct {
        int before, link, after;
    } cases[] = {{0, 15, 0}, {0, 16, 1}, {0, 40, 24}, {24, 24, 24}, {24, 23, 8}, {20, 3, 0}};
    for (const auto& scroll : cases) {
        SCOPED_TRACE(scroll.link);
        ClickOn(Editor, Mode(2));
        ScrollTo(Editor, "LinkScroll", scroll.before);
        ClickOn(Editor, Mode(3));
        const std::string sprite = Member("DotImg", scroll.link);
        MoveOverCell(Editor, sprite);
        EXPECT_EQ(ToolTipOf(Editor, sprite),
                  "Link # " + std::to_string(scroll.link) + ", Left Click to Select, Right Click to Edit");
        ClickCell(Editor, sprite);
        EXPECT_EQ(CurrentLink, scroll.link);
        EXPECT_TRUE(IsTicked(Editor, Mode(2)));
        EXPECT_EQ(ScrollValueOf(Editor, "LinkScroll"), scroll.after);
        EXPECT_EQ(ToolTipOf(Editor, sprite), "Message: ");
    }
    ClickCell(Editor, "DotImg(7)", Qt::RightButton);
    EXPECT_EQ(CaptionOf(LinkEditor, "LinkNumBox"), "7");
}

TEST_F(WorldFrmTest, FilesOpenAndSave) {
    OpenWithWorld(20, 16);
    AddLink(1, 1, MessageLink);
    const std::string a = (folder / "a.fbwm").string();
    const std::string b = (folder / "b.fbwm").string();
    ClickOn(Editor, "WTB(5)");
    EXPECT_TRUE(std::filesystem::is_empty(folder)) << "there is no path to save to";
    dialogs.files = {a, b};
    ClickOn(Editor, "WTB(6)");
    EXPECT_EQ(WorldPath, a);
    EXPECT_EQ(CaptionOf(Editor, "FileNameBox"), "");
    WorldCurrentTile = 4;
    ClickCell(Editor, Img(0, 0));
    EXPECT_EQ(WorldChanged, True);
    ClickOn(Editor, "WTB(6)");
    EXPECT_EQ(WorldChanged, False);
    ClickOn(Editor, Mode(3));
    EXPECT_EQ(CaptionOf(Editor, "FileNameBox"), b);
    dialogs.files = {a};
    ClickOn(Editor, "WTB(3)");
    for (const FileDialogSetup& setup : dialogs.fileDialogs) {
        EXPECT_EQ(setup.filter, "*.fbwm|*.fbwm");
        EXPECT_EQ(setup.folder, WorldMapsFolder);
    }
    EXPECT_EQ(dialogs.fileDialogs.size(), 3U);
    EXPECT_EQ(CaptionOf(Editor, "FileNameBox"), a);
    EXPECT_TRUE(IsTicked(Editor, Mode(0)));
    ShowsTile(0, 0, 9);
    ClickOn(Editor, "WTB(5)");
    EXPECT_NE(FileText(a), FileText(b));
    // Cancelling comes too late for the world.
    ClickOn(Editor, Mode(3));
    EXPECT_TRUE(IsShown(Editor, "DotImg(1)"));
    ClickOn(Editor, "FileNameBox");
    EXPECT_EQ(WorldLoaded, False);
    EXPECT_EQ(WorldPath, a);
    EXPECT_EQ(CellOf(Editor, Img(5, 5)).Shown(), CellOf(Editor, Img(0, 0)).Shown());
    EXPECT_FALSE(IsShown(Editor, "DotImg(1)"));
    EXPECT_FALSE(IsShown(Editor, "NukImg"));
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(WorldFrmTest, AReadErrorComesBackAtEveryDrawing) {
    OpenWithWorld();
    WriteFile(folder / "bad.fbwm", "(floebird-worldmap (sizes))\n");
    dialogs.files = {(folder / "bad.fbwm").string()};
    ClickOn(Editor, "FileNameBox");
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0], (Message{"Error # 4", "World Read Error", MessageButtons::Ok, MessageIcon::Stop}));
    ScrollTo(Editor, "MapXScroll", 1);
    EXPECT_EQ(dialogs.messages.size(), 2U);
    ClickOn(Editor, Mode(2));
    EXPECT_EQ(dialogs.messages.size(), 3U) << "the options are not deaf after an error";
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, AnUnreadableNumberEndsTheDialogSilently) {
    OpenWithWorld();
    WriteFile(folder / "bad.fbwm", "(floebird-worldmap (tilemap (width many)))\n");
    dialogs.files = {(folder / "bad.fbwm").string()};
    ClickOn(Editor, "FileNameBox");
    EXPECT_EQ(WorldPath, (folder / "bad.fbwm").string());
    EXPECT_EQ(WorldLoaded, False);
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(WorldFrmTest, ClosingAsksAboutChangesButAlwaysCloses) {
    const struct {
        int answer;
        bool saved;
    } cases[] = {{AnswerYes, true}, {AnswerNo, false}, {AnswerCancel, false}};
    for (const auto& [answer, saved] : cases) {
        SCOPED_TRACE(answer);
        dialogs = {};
        dialogs.answers = {answer};
        WorldPath = "";
        OpenWithWorld();
        WorldPath = (folder / (std::to_string(answer) + ".fbwm")).string();
        WorldCurrentTile = 4;
        ClickCell(Editor, Img(0, 0));
        CloseScreen(Editor);
        DeliverEvents();
        EXPECT_FALSE(IsOpen(Editor));
        ASSERT_EQ(dialogs.messages.size(), 1U);
        EXPECT_EQ(dialogs.messages[0], (Message{"Save World Map Changes?", "World Map Changed",
                                                MessageButtons::YesNoCancel, MessageIcon::Question}));
        EXPECT_EQ(std::filesystem::exists(WorldPath), saved);
        WorldChanged = False;
    }
}

/// What ends the program, and with which number.
TEST_F(WorldFrmTest, ActionsThatAreFatal) {
    const struct {
        const char* what;
        void (*prepare)();
        void (*act)();
        FaultNumber fault;
    } cases[] = {
        {"favorites behind the table", [] { ClickOn(Editor, Mode(1)); }, [] { ScrollTo(Editor, "TileScroll", 11); },
         FaultNumber::SubscriptOutOfRange},
        {"a palette cell behind the pictures", [] { ScrollTo(Editor, "TileScroll", 12); },
         [] { ClickCell(Editor, "TileImg(28)"); }, FaultNumber::SubscriptOutOfRange},
        {"an empty favorites entry", [] { ClickOn(Editor, Mode(1)); }, [] { ClickCell(Editor, "TileImg(0)"); },
         FaultNumber::SubscriptOutOfRange},
        {"picking an empty cell", [] { WorldRecord.tiles(1, 1) = 0; },
         [] { ClickCell(Editor, Img(1, 1), Qt::RightButton); }, FaultNumber::SubscriptOutOfRange},
        {"a tile without a picture", [] { WorldRecord.tiles(17, 14) = 77; }, [] { ClickOn(Editor, Mode(3)); },
         FaultNumber::SubscriptOutOfRange},
        {"a 64th link",
         [] {
             for (int n = 1; n <= 64; ++n) {
                 AddLink(30, 20, LevelLink);
             }
         },
         [] { ClickOn(Editor, Mode(2)); }, FaultNumber::SubscriptOutOfRange},
        {"drawing behind the tiles", [] { WorldRecord.width = 41; }, [] { ScrollTo(Editor, "MapXScroll", 22); }, {}},
        {"drawing further behind the tiles",
         [] {
             WorldRecord.width = 42;
             UpdateWorld();
         },
         [] { ScrollTo(Editor, "MapXScroll", 24); }, FaultNumber::SubscriptOutOfRange},
        {"saving more than the tiles", [] { WorldRecord.height = 32; }, [] { ClickOn(Editor, "WTB(5)"); },
         FaultNumber::SubscriptOutOfRange},
        {"a link type out of the table",
         [] {
             AddLink(1, 1, 6);
             ClickOn(Editor, Mode(3));
         },
         [] { ClickOn(Editor, Mode(2)); }, FaultNumber::SubscriptOutOfRange},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        SetUp();
        OpenWithWorld();
        row.prepare();
        ASSERT_EQ(dialogs.fatalFault, std::nullopt);
        row.act();
        EXPECT_EQ(dialogs.fatalFault.value_or(FaultNumber{}), row.fault);
        TearDown();
    }
}

TEST_F(WorldFrmTest, ABadSavedWorldIsFatalAtOpening) {
    WriteFile(folder / "bad.fbwm", "(floebird-worldmap (tilemap (width many)))\n");
    WorldPath = (folder / "bad.fbwm").string();
    LoadMainFrm();
    ShowMainFrm();
    ClickOn("MainFrm", "TB(13)");
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::TypeMismatch);
}

}  // namespace
