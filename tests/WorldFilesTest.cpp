#include <set>

#include "platform/Files.h"
#include "tests/ModelTest.h"
#include "world/WorldReader.h"
#include "world/WorldScanner.h"
#include "world/WorldWriter.h"

// World map files, read and written, and the record as a whole.

namespace {

struct ScanCase {
    const char* text;
    std::string taken;  ///< what the routine gives
    std::int64_t pos;   ///< where it leaves the scanner
};

void CheckScans(std::string (*scan)(WorldScanner&), const std::vector<ScanCase>& cases) {
    for (const ScanCase& scanCase : cases) {
        SCOPED_TRACE(scanCase.text);
        WorldScanner in{scanCase.text};
        EXPECT_EQ(scan(in), scanCase.taken);
        EXPECT_EQ(in.pos, scanCase.pos);
    }
}

TEST(WorldScannerTest, RoutinesTakeWhatTheySay) {
    const auto token = [](WorldScanner& in) {
        const int character = in.NextToken();
        return character < 0 ? "" : std::string(1, static_cast<char>(character));
    };
    CheckScans(token, {{"(a", "(", 2}, {" \t\n(a", "(", 5}, {")", ")", -2}, {" \n", "", -2}, {"", "", -2}});
    CheckScans([](WorldScanner& in) { return in.ReadWord(); }, {{"Level (x", "level", 7},
                                                                {"level(x", "level", 7},
                                                                {"level)x", "level", 6},
                                                                {"\n\tTILEMAP\n12", "tilemap", 11},
                                                                {")x", "", 1},
                                                                {"level", "leve", -1},
                                                                {"level ", "level", -1},
                                                                {"level)", "level", -1},
                                                                {" \n", "", -1}});
    CheckScans(
        [](WorldScanner& in) { return std::to_string(in.ReadNumber()); },
        {{" \n 12)3", "12", 6}, {"12(3", "12", 4}, {"-5\t3", "-5", 4}, {"32767)", "32767", -1}, {"123", "12", -1}});
    CheckScans([](WorldScanner& in) { return in.ReadQuoted(); },
               {{" \"a (b)\n;c\")", "a (b)\n;c", 12}, {"\"\")", "", 3}, {"\"a\"", "a", -2}, {"abc)", "", 2}});
    CheckScans([](WorldScanner& in) { return in.ReadFlag(); },
               {{" # t)", "t", 5}, {"#))", ")", 3}, {"t)", "", 2}, {"#", "", -2}});
    CheckScans([](WorldScanner& in) { return in.ReadRestOfLine(); },
               {{" a; )\nb", " a; )", 7}, {"a(b", "a", 2}, {"abc", "ab", -1}, {"ab\n", "ab", -1}});
    WorldScanner ended{"word ", -2};
    EXPECT_EQ(ended.ReadWord(), "");
    EXPECT_LT(ended.NextChar(), 0);
    EXPECT_EQ(ended.pos, -2);
}

class WorldFilesTest : public ModelTest {
protected:
    /// Reads a file of these bytes, as the first one in the program.
    void Read(const std::string& bytes) {
        WorldPath.clear();
        ReadWorldFile(Store("map.fbwm", bytes));
    }

    static void MakeWorld(int width, int height) {
        ResetWorld();
        WorldRecord.width = width;
        WorldRecord.height = height;
        BuildBlankWorld();
    }
};

/// Each case: a file as it may come, and what the program makes of it. What it has written reads back to the same.
TEST_F(WorldFilesTest, GoldenFolders) {
    int cases = 0;
    for (const auto& golden : std::filesystem::directory_iterator(GOLDEN_FOLDER)) {
        if (golden.is_directory() && golden.path().filename().string().starts_with("world-")) {
            SCOPED_TRACE(golden.path());
            ++cases;
            const std::string expected = FileText(golden.path() / "expected.fbwm");
            for (const std::string& input : {FileText(golden.path() / "input.fbwm"), expected}) {
                Read(input);
                EXPECT_EQ(WorldReadError, 0);
                BuildWorldText();
                EXPECT_EQ(WorldOutput, expected);
            }
        }
    }
    EXPECT_GE(cases, 10);
}

/// What the reader takes in and the writer leaves out.
TEST_F(WorldFilesTest, ReadsMoreThanItWrites) {
    WorldChanged = True;
    Read(
        ";; text(floebird-worldmap (levels ; to all\n(level (invisible-teleporter #f)(dest_x 3)(dest_y -4))"
        "\n; later\n(level (; own\n))(level (x 5)(extro-filename \"e\")))(tilemap (width 1)(height 2)(data 5 6)))\n; "
        "below");
    ASSERT_EQ(WorldReadError, 0);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(WorldChanged, False);
    EXPECT_EQ(WorldRecord.CommentCount, 2);
    EXPECT_EQ(WorldRecord.comments[1] + "|" + WorldRecord.comments[2], "; text| belo");
    EXPECT_EQ(WorldRecord.tiles.Columns() * 10 + WorldRecord.tiles.Rows(), 23) << "a spare column and a spare row";
    WorldLink links[3];
    links[0].type = InvisibleLink;
    links[0].invisible_teleporter = "f";
    links[0].dest_x = 3;
    links[0].dest_y = -4;
    links[1].type = CommentLink;  // its own comment gives way to the one before it
    links[2].x = 5;
    links[2].extro_filename = "e";
    links[0].comment = "; to all";
    links[1].comment = links[2].comment = "; later";
    ASSERT_EQ(WorldRecord.LinkCount, 3);
    for (int n = 1; n <= 3; ++n) {
        EXPECT_EQ(WorldRecord.levels[n], links[n - 1]) << n;
    }
}

TEST_F(WorldFilesTest, FailuresHaveNumbers) {
    const auto rows = GoldenRows("world-errors.txt");
    ASSERT_GT(rows.size(), 50U);
    for (const Texts& row : rows) {
        SCOPED_TRACE(row.at(2));
        const int fault = std::stoi(row[1]);
        WorldChanged = True;
        EXPECT_EQ(static_cast<int>(FaultOf([&] { Read(row[2]); }).value_or(FaultNumber{})), fault);
        EXPECT_EQ(WorldReadError, std::stoi(row[0]));
        EXPECT_EQ(WorldLoaded, fault == 0 && WorldReadError == 0 ? True : False);
        EXPECT_EQ(WorldChanged, WorldLoaded == True ? False : True);
        EXPECT_EQ(WorldPath, PathOf("map.fbwm"));
    }
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber + 1) << "files are closed before they are parsed, but not an empty one";
}

TEST_F(WorldFilesTest, TheFileBeforeMustStillExist) {
    const std::string path = Store("map.fbwm", "(floebird-worldmap )\n");
    WorldPath = "/nowhere/gone.fbwm";
    NewWorldPending = True;
    WorldReadError = 49;
    ReadWorldFile(path);
    EXPECT_EQ(dialogs.messages,
              (std::vector<Message>{{"/nowhere/gone.fbwm", "Map NOT Found!", MessageButtons::Ok, MessageIcon::Stop}}));
    EXPECT_EQ(WorldPath, "/nowhere/gone.fbwm");
    EXPECT_EQ(WorldLoaded, False);
    EXPECT_EQ(WorldReadError, 0);
    EXPECT_EQ(NewWorldPending, True);
    WorldPath = path;
    ReadWorldFile(WorldPath);
    EXPECT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(NewWorldPending, False);
}

TEST_F(WorldFilesTest, BlankWorldsHaveASpareColumnAndRow) {
    MakeWorld(19, 16);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(WorldRecord.tiles.Columns(), 20);
    EXPECT_EQ(WorldRecord.tiles.Rows(), 17);
    for (int row = 0; row <= 16; ++row) {
        for (int column = 0; column <= 19; ++column) {
            EXPECT_EQ(WorldRecord.tiles(column, row), column < 19 && row < 16 ? 9 : 0);
        }
    }
    WorldRecord.width = 20;
    EXPECT_EQ(FaultOf(BuildWorldText), std::nullopt) << "the spare column is there to be written";
    WorldRecord.width = 21;
    EXPECT_EQ(FaultOf(BuildWorldText), FaultNumber::SubscriptOutOfRange);
}

TEST_F(WorldFilesTest, LinksComeAndGo) {
    ResetWorld();
    for (int x = 1; x <= 4; ++x) {
        AddInNewLink(x, 10 * x);
        EXPECT_EQ(CurrentLink, x);
    }
    EXPECT_EQ(WorldRecord.levels[4].y, 40);
    EXPECT_EQ(WorldChanged, False);
    const std::pair<int, std::vector<int>> steps[] = {{0, {1, 2, 3, 4}}, {5, {1, 2, 3, 4}}, {2, {1, 3, 4}}, {3, {1, 3}},
                                                      {1, {3}},          {1, {}},           {1, {}}};
    for (const auto& [deleted, left] : steps) {
        DeleteLink(deleted);
        std::vector<int> found;
        for (int index = 1; index <= WorldRecord.levels.Last(); ++index) {
            found.push_back(WorldRecord.levels[index].x);
        }
        EXPECT_EQ(found, left);
        EXPECT_EQ(WorldRecord.LinkCount, WorldRecord.levels.Last());
    }
    EXPECT_EQ(CurrentLink, 4);
    AddInNewLink(0, 0);
    WorldLink fresh{};
    fresh.type = LevelLink;
    EXPECT_EQ(WorldRecord.levels[1], fresh);
}

TEST_F(WorldFilesTest, HeaderComment) {
    MakeWorld(1, 1);
    const std::string own = ";; Created by Quillhare FB_Editor";
    for (const auto& [before, after] :
         {std::pair<const char*, std::string>("", own), {"; one", own}, {"  ;; mine  ", ";; mine"}}) {
        WorldRecord.comments[0] = before;
        BuildWorldText();
        EXPECT_EQ(WorldRecord.comments[0], after);
        EXPECT_EQ(WorldOutput.substr(0, WorldOutput.find("\n(")), after);
    }
}

TEST_F(WorldFilesTest, LinksAreWrittenByType) {
    const std::string level = "     (level (name \"one.fbl\")\n           (x  4)\n           (y  5))\n";
    const std::string place = "           (x 4)\n           (y 5)\n";
    const std::string target = "           (dest_x 6)\n           (dest_y -7))\n";
    const struct {
        int type;
        void (*change)(WorldLink& link);
        std::string text;
        int readError;  ///< what reading the text gives
    } cases[] = {
        {NoLink, [](WorldLink&) {}, "     (level ", 48},
        {9, [](WorldLink&) {}, "     (level ", 48},
        {CommentLink, [](WorldLink&) {}, "     (level         ;; comment\n", 49},
        {LevelLink, [](WorldLink&) {}, level, 0},
        {LevelLink, [](WorldLink& link) { link.extro_filename = " e f "; },
         "     (level (name \"one.fbl\")\n           (x  4)\n           (y  5)\n           (extro-filename \"e "
         "f\"))\r\n",
         0},
        {LevelLink, [](WorldLink& link) { link.name = "a\"b"; },
         "     (level (name \"a\"b\")\n           (x  4)\n           (y  5))\n", 34},
        {MessageLink, [](WorldLink&) {}, "     (level  (map-message \"hello\")\n" + place + ")\n", 0},
        {MessageLink,
         [](WorldLink& link) {
             link.apply_action_up = "u";
             link.apply_action_down = "d";
             link.apply_action_left = "l";
             link.apply_action_right = "r";
         },
         "     (level  (map-message \"hello\")\n" + place +
             "           (apply-action-left #l)\n           (apply-action-right #r)\n           (apply-action-up #u)\n"
             "           (apply-action-down #d)\n)\n",
         0},
        {TeleportLink, [](WorldLink&) {}, "     (level " + place + "           (teleport-message \"hello\")\n" + target,
         0},
        {InvisibleLink, [](WorldLink&) {}, "     (level " + place + "           (invisible-teleporter #\")\n" + target,
         0},
        {InvisibleLink, [](WorldLink& link) { link.invisible_teleporter = "t"; },
         "     (level " + place + "           (invisible-teleporter #\"t)\n" + target, 39},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        MakeWorld(1, 1);
        AddInNewLink(4, 5);
        WorldLink& link = WorldRecord.levels[1];
        link = {};
        link.type = c.type;
        link.comment = ";; comment";
        link.name = "one.fbl";
        link.message = "hello";
        link.x = 4;
        link.y = 5;
        link.dest_x = 6;
        link.dest_y = -7;
        c.change(link);
        AddInNewLink(4, 5);
        WorldRecord.levels[2].name = "one.fbl";
        BuildWorldText();
        const std::size_t start = WorldOutput.find("(levels\n") + 8;
        EXPECT_EQ(WorldOutput.substr(start), c.text + level + "      ))\n");
        Read(WorldOutput);
        EXPECT_EQ(WorldReadError, c.readError);
    }
}

TEST_F(WorldFilesTest, StoresWhatWasComposed) {
    MakeWorld(2, 2);
    BuildWorldText();
    WorldChanged = True;
    WriteWorldFile("");
    EXPECT_EQ(WorldChanged, True);
    const std::string path = Store("map.fbwm", std::string(1000, 'x'));
    WriteWorldFile(path);
    EXPECT_EQ(FileText(path), WorldOutput);
    EXPECT_EQ(WorldChanged, False);
    EXPECT_TRUE(dialogs.messages.empty());
    WorldChanged = True;
    WriteWorldFile("/nowhere/at/all.fbwm");
    EXPECT_EQ(dialogs.messages, (std::vector<Message>{{"Error Saving World Map Data!", "FB_Editor - Save World Map",
                                                       MessageButtons::Ok, MessageIcon::Stop}}));
    EXPECT_EQ(WorldChanged, True);
}

/// The worlds of the sample game are what the editor would write, and lead somewhere.
TEST_F(WorldFilesTest, SampleGame) {
    const std::filesystem::path game = SAMPLE_GAME_FOLDER;
    int worlds = 0;
    for (const auto& file : std::filesystem::directory_iterator(game / "data/levels/worldmaps")) {
        SCOPED_TRACE(file.path().filename());
        ++worlds;
        const std::string bytes = FileText(file.path());
        Read(bytes);
        EXPECT_EQ(WorldReadError, 0);
        BuildWorldText();
        EXPECT_EQ(WorldOutput, bytes);
        std::set<int> types;
        for (int n = 1; n <= WorldRecord.LinkCount; ++n) {
            const WorldLink& link = WorldRecord.levels[n];
            types.insert(link.type);
            EXPECT_TRUE(link.type != LevelLink || exists(game / ".floebird/levels" / link.name)) << link.name;
            EXPECT_NE(WorldRecord.tiles(link.x, link.y), 9) << "link " << n << " is in the sea";
        }
        EXPECT_EQ(types, (std::set<int>{LevelLink, MessageLink, TeleportLink})) << "all types that read back";
        EXPECT_TRUE(exists(game / "data/music" / WorldRecord.music));
    }
    EXPECT_EQ(worlds, 2);
}

}  // namespace
