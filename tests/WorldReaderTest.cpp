#include "world/WorldReader.h"

#include "platform/Events.h"
#include "tests/WorldTest.h"
#include "world/WorldScanner.h"

namespace {

class WorldReaderTest : public WorldTest {};

// --- The scanner ---

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

TEST(WorldScannerTest, TokensAreSingleCharactersBetweenBlanks) {
    const auto token = [](WorldScanner& in) {
        const int character = in.NextToken();
        return character < 0 ? "" : std::string(1, static_cast<char>(character));
    };
    CheckScans(token, {{"(a", "(", 2}, {" \t\n(a", "(", 5}, {")", ")", -2}, {" \n", "", -2}, {"", "", -2}});
    WorldScanner ended{"x", -1};
    EXPECT_LT(ended.NextChar(), 0);
    EXPECT_EQ(ended.pos, -1);
}

TEST(WorldScannerTest, WordsEndAtBlanksAndParentheses) {
    const auto word = [](WorldScanner& in) { return in.ReadWord(); };
    CheckScans(word, {{"Level (x", "level", 7},
                      {"level(x", "level", 7},
                      {"level)x", "level", 6},
                      {"\n\tTILEMAP\n12", "tilemap", 11},
                      {")x", "", 1},
                      {"level", "leve", -1},
                      {"level ", "level", -1},
                      {"level)", "level", -1},
                      {" \n", "", -1},
                      {"", "", -1}});
    WorldScanner ended{"word ", -2};
    EXPECT_EQ(ended.ReadWord(), "");
    EXPECT_EQ(ended.pos, -2);
}

TEST(WorldScannerTest, NumbersAreWordsHoweverTheyAreWritten) {
    const auto number = [](WorldScanner& in) { return std::to_string(in.ReadNumber()); };
    CheckScans(number, {{"12 3", "12", 4},
                        {" \n 12)3", "12", 6},
                        {"12(3", "12", 4},
                        {"-5\t3", "-5", 4},
                        {"+5 3", "5", 4},
                        {"0007 3", "7", 6},
                        {"2.5 3", "2", 5},
                        {"3.5 3", "4", 5},
                        {"1E2 3", "100", 5},
                        {"-32768 ", "-32768", -1},
                        {"32767)", "32767", -1},
                        {"123", "12", -1}});
}

TEST(WorldScannerTest, TextsAndFlags) {
    CheckScans([](WorldScanner& in) { return in.ReadQuoted(); },
               {{" \"a (b)\n;c\")", "a (b)\n;c", 12}, {"\"\")", "", 3}, {"\"a\"", "a", -2}, {"abc)", "", 2}});
    CheckScans([](WorldScanner& in) { return in.ReadFlag(); },
               {{" # t)", "t", 5}, {"#))", ")", 3}, {"t)", "", 2}, {"#", "", -2}});
    CheckScans([](WorldScanner& in) { return in.ReadRestOfLine(); },
               {{" a; )\nb", " a; )", 7}, {"a(b", "a", 2}, {"abc", "ab", -1}, {"ab\n", "ab", -1}});
}

TEST(WorldScannerTest, AnUnclosedTextYieldsForEver) {
    struct Closed {};
    int yields = 0;
    doubles.onYield = [&] {
        if (++yields == 1000) {
            throw Closed{};
        }
    };
    WorldScanner in{"\"abc"};
    EXPECT_THROW(in.ReadQuoted(), Closed);
    doubles = {};
}

// --- Files that read ---

TEST_F(WorldReaderTest, ReadsEveryField) {
    WorldChanged = True;
    Read(
        ";; head\n; second\n(Floebird-WorldMap\n"
        "(levels ; to all\n(level (name \"a.fbl\")(X 1)(y 2)(extro-filename \"e\"))\n"
        "; later\n(level (map-message \"m\")(apply-action-right #a)(apply-action-left #b)(apply-action-up #c)"
        "(apply-action-down #d))\n(LEVEL (teleport-message \"t\")(dest_x 3)(dest_y -4))\n"
        "(level (invisible-teleporter #f))(level (; own\n))(level (x 5)))\n"
        "(tilemap (height 2)(width 3)(data 1 2 3 4\n5 -6))\n"
        "(properties (music \"M.MOD\")(start_pos_y 7)(start_pos_x 6)(name \"N (x)\")))\n");
    ASSERT_EQ(WorldReadError, 0);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(WorldChanged, False);

    World expected{};
    expected.name = "N (x)";
    expected.music = "M.MOD";
    expected.start_pos_x = 6;
    expected.start_pos_y = 7;
    expected.width = 3;
    expected.height = 2;
    expected.tiles = TileMap(3, 2);
    for (int cell = 0; cell < 6; ++cell) {
        expected.tiles(cell % 3, cell / 3) = cell < 5 ? cell + 1 : -6;
    }
    expected.CommentCount = 2;
    expected.comments.Resize(2);
    expected.comments[1] = "; head";
    expected.comments[2] = " second";

    expected.LinkCount = 6;
    expected.levels.Resize(6);
    for (int index = 1; index <= 6; ++index) {
        expected.levels[index].comment = index == 1 ? "; to all" : "; later";
    }
    WorldLink& level = expected.levels[1];
    level.type = LevelLink;
    level.name = "a.fbl";
    level.extro_filename = "e";
    level.x = 1;
    level.y = 2;
    WorldLink& message = expected.levels[2];
    message.type = MessageLink;
    message.message = "m";
    message.apply_action_right = "a";
    message.apply_action_left = "b";
    message.apply_action_up = "c";
    message.apply_action_down = "d";
    WorldLink& teleport = expected.levels[3];
    teleport.type = TeleportLink;
    teleport.message = "t";
    teleport.dest_x = 3;
    teleport.dest_y = -4;
    expected.levels[4].type = InvisibleLink;
    expected.levels[4].invisible_teleporter = "f";
    expected.levels[5].type = CommentLink;  // its own comment gives way to the one before the levels
    expected.levels[6].x = 5;
    EXPECT_EQ(WorldRecord, expected);
}

TEST_F(WorldReaderTest, LineEndsMakeNoDifference) {
    const std::string lines[] = {";; comment",
                                 "; more",
                                 "(floebird-worldmap",
                                 "(tilemap (width 2)",
                                 "(height 2)(data 1 2",
                                 "3 4))",
                                 "(levels (level (; own",
                                 "))",
                                 "(level (name \"a b\")",
                                 "(x 1)))",
                                 ")"};
    World first;
    for (const char* const lineEnd : {"\n", "\r\n", "\r"}) {
        std::string text;
        for (const std::string& line : lines) {
            text += line + lineEnd;
        }
        Read(text);
        EXPECT_EQ(WorldReadError, 0);
        EXPECT_EQ(WorldLoaded, True);
        first = first == World{} ? WorldRecord : first;
        // The first line runs into the second, so that its comment takes up the second one.
        EXPECT_EQ(WorldRecord.CommentCount, lineEnd[0] == '\n' ? 2 : 1);
        WorldRecord.comments = first.comments;
        WorldRecord.CommentCount = first.CommentCount;
        EXPECT_EQ(WorldRecord, first);
    }
}

TEST_F(WorldReaderTest, CommentsStopAtAParenthesis) {
    Read(";; text(floebird-worldmap (tilemap (width 1)(height 1)(data 5)))\n; below");
    EXPECT_EQ(WorldReadError, 0);
    EXPECT_EQ(WorldRecord.comments[1], "; text");
    EXPECT_EQ(WorldRecord.tiles(0, 0), 5);
    EXPECT_EQ(WorldRecord.comments[2], " belo");
}

TEST_F(WorldReaderTest, TheLastKeyThatNamesATypeWins) {
    Read(WorldFile("(level (teleport-message \"a\")(x 1)(name \"b\"))(level (name \"b\")(map-message \"c\"))"));
    EXPECT_EQ(WorldRecord.levels[1].type, LevelLink);
    EXPECT_EQ(WorldRecord.levels[1].message, "a");
    EXPECT_EQ(WorldRecord.levels[2].type, MessageLink);
}

TEST_F(WorldReaderTest, DataTakesTheSizeInForce) {
    std::string numbers;
    for (int i = 0; i < 18 * 15; ++i) {
        numbers += std::to_string(i) + " ";
    }
    Read(WorldFile("", "", "(data " + numbers + ")(width 1)(height 4)"));
    EXPECT_EQ(WorldReadError, 0);
    EXPECT_EQ(WorldRecord.tiles.Columns(), 19);
    EXPECT_EQ(WorldRecord.tiles.Rows(), 16);
    EXPECT_EQ(WorldRecord.tiles(17, 14), 269);
    EXPECT_EQ(WorldRecord.tiles(18, 0), 0);
    EXPECT_EQ(WorldRecord.width, 1);
}

TEST_F(WorldReaderTest, TextWithoutAMapIsNoError) {
    for (const char* const text : {"hello", "; a comment", "(other-list) x\n", ") (floebird-worldmap", " \n", "("}) {
        SCOPED_TRACE(text);
        Read(text);
        EXPECT_EQ(WorldReadError, 0);
        EXPECT_EQ(WorldLoaded, True);
        EXPECT_EQ(WorldRecord.width, 18);
        EXPECT_EQ(WorldRecord.tiles.Columns(), 1);
    }
}

// --- Files that do not ---

TEST_F(WorldReaderTest, FormatErrorsHaveNumbers) {
    const auto level = [](const std::string& keys) { return WorldFile("(level " + keys + ")"); };
    const auto properties = [](const std::string& keys) { return WorldFile("", keys); };
    const auto tilemap = [](const std::string& keys) { return WorldFile("", "", keys); };
    const struct {
        int error;
        std::string text;
    } cases[] = {
        // The end of the text is error 1 wherever it comes, also right behind the last parenthesis.
        {1, "(floebird-worldmap (tilemap (width 1)(height 1)))"},
        {1, "(floebird-worldmap "},
        {1, "(floebird-worldmap (properties (name \"x\") "},
        {1, "(floebird-worldmap (tilemap (width 1) "},
        {1, "(floebird-worldmap (levels (level (x 1)) "},
        {1, "(floebird-worldmap (levels (level (x 1)"},
        {1, "(floebird-worldmap (levels (level (x"},
        {1, "(other"},
        {3, tilemap("(width 0)(data)")},
        {3, tilemap("(height -1)")},
        {4, "(floebird-worldmap (links))\n"},
        {4, "(floebird-worldmap x)\n"},
        {11, properties("(name \"a\" \"b\")")},
        {12, properties("(music ab)")},
        {13, properties("(start_pos_x 1 2)")},
        {14, properties("(start_pos_y 1 2)")},
        {19, properties("(width 1)")},
        {19, properties("x")},
        {21, tilemap("(width 1 2)")},
        {22, tilemap("(height 1 2)")},
        {23, tilemap("(width 0)(height 0)(data)")},
        {24, tilemap("(width 1)(height 1)(data 1 2)")},
        {29, tilemap("(depth 1)")},
        {29, tilemap("; comment")},
        {33, level("(; comment\nx)")},
        {34, level("(name ab)")},
        {35, level("(x 1 2)")},
        {36, level("(y 1 2)")},
        {37, level("(map-message \"a\"b)")},
        {38, level("(teleport-message \"a\"b)")},
        {39, level("(invisible-teleporter #\"t)")},
        {40, level("(dest_x 1 2)")},
        {41, level("(dest_y 1 2)")},
        {42, level("(apply-action-right #tt)")},
        {43, level("(apply-action-left #tt)")},
        {44, level("(apply-action-up #tt)")},
        {45, level("(apply-action-down tt)")},
        {46, level("(extro-filename a b)")},
        {48, level("(;comment\n)")},
        {48, level("(colour 1)")},
        {49, level("; comment\n")},
        {49, WorldFile("(level(x 1))")},
        {49, WorldFile("(point (x 1))")},
        {49, WorldFile("x")},
    };
    for (const auto& [error, text] : cases) {
        SCOPED_TRACE(text);
        Read(text);
        EXPECT_EQ(WorldReadError, error);
        EXPECT_EQ(WorldLoaded, False);
    }
}

TEST_F(WorldReaderTest, AMapBehindABrokenOneCounts) {
    Read("(floebird-worldmap (links (floebird-worldmap (tilemap (width 1)(height 1)(data 8))) rest\n");
    EXPECT_EQ(WorldReadError, 0);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(WorldRecord.tiles(0, 0), 8);
}

TEST_F(WorldReaderTest, OtherFailuresAreFaults) {
    const struct {
        FaultNumber fault;
        std::string text;
    } cases[] = {
        {FaultNumber::Overflow, WorldFile("(level (x 32768))")},
        {FaultNumber::TypeMismatch, WorldFile("(level (x abc))")},
        {FaultNumber::TypeMismatch, WorldFile("(level (x ))")},
        {FaultNumber::TypeMismatch, WorldFile("(level (x 1-))")},
        {FaultNumber::TypeMismatch, WorldFile("", "", "(width 2)(height 2)(data 1 2 3)")},
        {FaultNumber::TypeMismatch, "(floebird-worldmap (tilemap (width 2)(height 2)(data 1 2"},
        {FaultNumber::SubscriptOutOfRange, WorldFile("", "", "(width -1)(data)")},
        {FaultNumber::InputPastEndOfFile, ""},
    };
    for (const auto& [fault, text] : cases) {
        SCOPED_TRACE(text);
        WorldChanged = True;
        try {
            Read(text);
            ADD_FAILURE() << "read without a fault";
        } catch (const Fault& met) {
            EXPECT_EQ(met.Number(), fault);
        }
        EXPECT_EQ(WorldLoaded, False);
        EXPECT_EQ(WorldChanged, True);
        EXPECT_EQ(WorldReadError, 0);
        EXPECT_EQ(WorldPath, Path());
    }
}

TEST_F(WorldReaderTest, TheFileBeforeMustStillExist) {
    Store(WorldFile(""));
    WorldPath = "/nowhere/gone.fbwm";
    NewWorldPending = True;
    WorldReadError = 49;
    ReadWorldFile(Path());
    const std::vector<ScriptedDialogs::Message> box{
        {"/nowhere/gone.fbwm", "Map NOT Found!", MessageButtons::Ok, MessageIcon::Stop}};
    EXPECT_EQ(dialogs.messages, box);
    EXPECT_EQ(WorldPath, "/nowhere/gone.fbwm");
    EXPECT_EQ(WorldLoaded, False);
    EXPECT_EQ(WorldReadError, 0);
    EXPECT_EQ(NewWorldPending, True);

    WorldPath = Path();
    ReadWorldFile(WorldPath);
    EXPECT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(NewWorldPending, False);
}

TEST_F(WorldReaderTest, TheFileIsClosedBeforeParsing) {
    EXPECT_THROW(Read(WorldFile("(level (x abc))")), Fault);
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber);
    EXPECT_THROW(Read(""), Fault);
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber + 1);
}

// --- The record as a whole ---

TEST_F(WorldReaderTest, BlankWorldsHaveASpareColumnAndRow) {
    ResetWorld();
    WorldRecord.width = 19;
    WorldRecord.height = 16;
    BuildBlankWorld();
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_EQ(WorldRecord.tiles.Columns(), 20);
    EXPECT_EQ(WorldRecord.tiles.Rows(), 17);
    for (int row = 0; row <= 16; ++row) {
        for (int column = 0; column <= 19; ++column) {
            EXPECT_EQ(WorldRecord.tiles(column, row), column < 19 && row < 16 ? 9 : 0);
        }
    }
}

TEST_F(WorldReaderTest, LinksComeAndGo) {
    ResetWorld();
    for (int x = 1; x <= 4; ++x) {
        AddInNewLink(x, 10 * x);
        EXPECT_EQ(CurrentLink, x);
    }
    EXPECT_EQ(WorldRecord.levels[4].type, LevelLink);
    EXPECT_EQ(WorldRecord.levels[4].y, 40);
    EXPECT_EQ(WorldChanged, False);
    const auto columns = [] {
        std::vector<int> found;
        for (int index = 1; index <= WorldRecord.levels.Last(); ++index) {
            found.push_back(WorldRecord.levels[index].x);
        }
        EXPECT_EQ(WorldRecord.LinkCount, WorldRecord.levels.Last());
        return found;
    };
    const struct {
        int deleted;
        std::vector<int> left;
    } steps[] = {{0, {1, 2, 3, 4}}, {5, {1, 2, 3, 4}}, {2, {1, 3, 4}}, {3, {1, 3}}, {1, {3}}, {1, {}}, {1, {}}};
    for (const auto& [deleted, left] : steps) {
        DeleteLink(deleted);
        EXPECT_EQ(columns(), left);
    }
    EXPECT_EQ(CurrentLink, 4);
    AddInNewLink(0, 0);
    WorldLink fresh{};
    fresh.type = LevelLink;
    EXPECT_EQ(WorldRecord.levels[1], fresh);
}

}  // namespace
