#include "level/NewLevel.h"

#include "level/LevelEnding.h"
#include "platform/Files.h"
#include "tests/ModelTest.h"

namespace fs = std::filesystem;

// New levels, level sets and the generated ending.

namespace {

struct Piece {
    int firstColumn, lastColumn, firstRow, lastRow;
    int tile;
};

TileMap MapOf(int width, const std::vector<Piece>& pieces) {
    TileMap map(width, 15);
    for (const Piece& piece : pieces) {
        for (int column = piece.firstColumn; column <= piece.lastColumn; ++column) {
            for (int row = piece.firstRow; row <= piece.lastRow; ++row) {
                map(column, row) = piece.tile;
            }
        }
    }
    return map;
}

class NewLevelTest : public ModelTest {
protected:
    void SetUp() override {
        ModelTest::SetUp();
        LogonName = "ANNA            ";
    }

    /// The answer of NewInfoFrm, as the first event of its wait.
    static void AnswerInfo(Int16 created) {
        doubles.onYield = [created] {
            CurrentInfo = {"", "A title", "A description"};
            InfoCreated = created;
            ModalDone = True;
        };
    }
};

TEST_F(NewLevelTest, EndingIsPaintedAtTheRightEdge) {
    using Pieces = std::vector<Piece>;
    const struct {
        int width, igloo, floor;
        Pieces background, foreground, interactive;
        std::optional<FaultNumber> fault;
    } cases[] = {
        {120, 0, 26, {}, {}, {{116, 116, 0, 13, 132}, {100, 100, 0, 13, 133}, {98, 119, 14, 14, 26}}, {}},
        {120,
         1,
         37,
         {{110, 110, 8, 8, 126}},
         {{113, 113, 8, 8, 127}},
         {{116, 116, 0, 12, 132}, {100, 100, 0, 12, 133}, {98, 119, 13, 13, 34}, {98, 119, 14, 14, 37}},
         {}},
        {22,
         1,
         204,
         {{12, 12, 8, 8, 126}},
         {{15, 15, 8, 8, 127}},
         {{18, 18, 0, 13, 132}, {2, 2, 0, 13, 133}, {0, 21, 14, 14, 204}},
         {}},
        {21, 0, 26, {}, {}, {{17, 17, 0, 13, 132}, {1, 1, 0, 13, 133}}, FaultNumber::SubscriptOutOfRange},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.width * 1000 + c.floor);
        LevelRecord.width = c.width;
        LevelRecord.background_tm = LevelRecord.foreground_tm = LevelRecord.interactive_tm = TileMap(c.width, 15);
        PrefsRecord.IglooState = c.igloo;
        PrefsRecord.FloorTile = c.floor;
        EXPECT_EQ(FaultOf(AddLevelEnding), c.fault);
        EXPECT_EQ(LevelRecord.background_tm, MapOf(c.width, c.background));
        EXPECT_EQ(LevelRecord.foreground_tm, MapOf(c.width, c.foreground));
        EXPECT_EQ(LevelRecord.interactive_tm, MapOf(c.width, c.interactive));
    }
}

TEST_F(NewLevelTest, EmptiesItsListsAndKeepsSomeFields) {
    LevelRecord.start_pos_x = LevelRecord.bkgd_red_top = 77;
    LevelRecord.theme = "antarctica";
    LevelRecord.EndComment = ";; end";
    LevelRecord.BadGuyCount = LevelRecord.ResetPointCount = 2;
    LevelRecord.particle_system = "old";
    ASSERT_TRUE(CreateNewLevel(folder.string()));
    EXPECT_EQ(LevelRecord.start_pos_x + LevelRecord.bkgd_red_top, 154);
    EXPECT_EQ(LevelRecord.theme + LevelRecord.EndComment, "antarctica;; end");
    EXPECT_EQ(LevelRecord.BadGuyCount + LevelRecord.ResetPointCount, 0);
    EXPECT_EQ(LevelRecord.author + LevelRecord.particle_system, "ANNAsnow");
    EXPECT_EQ(LogonName.size(), 16U);
    PrefsRecord.DefaultAuthor = " Ben B. ";
    CreateNewLevel(folder.string());
    EXPECT_EQ(LevelRecord.author, "Ben B.");
}

TEST_F(NewLevelTest, TakesTheFirstFreeNameOfTwoDigits) {
    for (int n = 1; n <= 99; ++n) {
        Store("level" + std::to_string(n) + ".fbl", "x");
    }
    LevelPath = PathOf("level5.fbl");
    LevelRecord.name = "Old";
    LevelRecord.BadGuyCount = LevelRecord.ResetPointCount = 1;
    NewLevelCommand();
    EXPECT_EQ(LevelRecord.BadGuyCount + LevelRecord.ResetPointCount, 0);
    EXPECT_EQ(LevelRecord.name, "Old");
    EXPECT_EQ(dialogs.messages,
              (std::vector<Message>{{"User Terminated or\r\nDisk Error Occured!", "Floebird Level Creation Error",
                                     MessageButtons::Ok, MessageIcon::Stop}}));
    // The first one is not saved, so the second finds the same name.
    for (const std::string_view separator : {std::string_view(), PathSeparator}) {
        fs::remove(folder / "level42.fbl");
        EXPECT_TRUE(CreateNewLevel(folder.string().append(separator)));
        EXPECT_EQ(LevelPath, PathOf("level42.fbl"));
    }
}

TEST_F(NewLevelTest, ASetIsMadeUnlessItIsRefused) {
    fs::create_directory(folder / "taken");
    Store("taken/info", "x");
    const std::string path = PathOf("new/level1.fbl");
    const struct {
        int answer;
        const char* name;
        Int16 created;
        Texts messages, calls;
    } cases[] = {
        {AnswerNo, "new", True, {"Create New Level Set"}, {}},
        {AnswerYes, "", True, {"Create New Level Set"}, {}},
        {AnswerYes, "taken", True, {"Create New Level Set", "Level Set Creation Error"}, {}},
        {AnswerYes, "new", False, {"Create New Level Set"}, {"OpenNewInfoFrm"}},
        {AnswerYes,
         "new",
         True,
         {"Create New Level Set"},
         {"OpenNewInfoFrm", "ClearBadGuySlots", "ShowFileName " + path, "UpdateDisplay", "OpenVarsFrm"}},
    };
    for (const auto& c : cases) {
        EXPECT_FALSE(fs::exists(folder / "new"));
        dialogs = {};
        doubles = {};
        LevelLoaded = True;  // not asked about
        dialogs.answers = {c.answer};
        dialogs.inputs = {c.name};
        AnswerInfo(c.created);
        CreateLevelSet();
        EXPECT_EQ(doubles.calls, c.calls);
        Texts titles;
        for (const Message& message : dialogs.messages) {
            titles.push_back(message.title);
        }
        EXPECT_EQ(titles, c.messages);
    }
    EXPECT_NE(FileText(folder / "new" / "info").find("(title \"A title\")"), std::string::npos);
    EXPECT_EQ(LevelPath, path);
    EXPECT_FALSE(fs::exists(path)) << "the first level is in memory only";
}

}  // namespace
