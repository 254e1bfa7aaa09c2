#include "level/NewLevel.h"

#include "level/LevelEnding.h"
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

TEST_F(NewLevelTest, SetsItsOwnFieldsAndKeepsTheOthers) {
    LevelRecord.start_pos_x = LevelRecord.start_pos_y = 77;
    LevelRecord.bkgd_red_top = LevelRecord.bkgd_green_top = LevelRecord.bkgd_blue_top = 9;
    LevelRecord.hor_autoscroll_speed = 0.5;
    LevelRecord.theme = "antarctica";
    LevelRecord.back_scrolling = "t";
    LevelRecord.EndComment = ";; end";
    LevelRecord.objects.Resize(3);
    LevelRecord.reset_points.Resize(2);
    Level expected = LevelRecord;
    LevelRecord.BadGuyCount = 3;
    LevelRecord.ResetPointCount = 2;
    BadGuyTypeTable[4].CountInUse = 3;
    LevelRecord.LevelComment = LevelRecord.particle_system = LevelRecord.author = "old";
    LevelRecord.width = 30;
    LevelRecord.background_tm = LevelRecord.foreground_tm = LevelRecord.interactive_tm = TileMap(30, 15);

    ASSERT_TRUE(CreateNewLevel(folder.string()));

    expected.LevelComment = ";Floebird-Level";
    expected.version = "1";
    expected.author = "ANNA";
    expected.name = "Give Me A Name";
    expected.width = 120;
    expected.height = 15;
    expected.background = "ocean.png";
    expected.music = "fortress2.mod";
    expected.bkgd_red_bottom = expected.bkgd_green_bottom = expected.bkgd_blue_bottom = 255;
    expected.bkgd_speed = 44;
    expected.time = 600;
    expected.gravity = 8;
    expected.particle_system = "snow";
    expected.background_tm = expected.foreground_tm = expected.interactive_tm = TileMap(120, 15);
    EXPECT_TRUE(LevelRecord == expected);
    EXPECT_EQ(BadGuyTypeTable[4].CountInUse, 0);
    EXPECT_EQ(LevelLoaded, True);
    EXPECT_EQ(doubles.calls, (Texts{"ClearBadGuySlots", "ShowFileName " + PathOf("level1.fbl")}));
    EXPECT_TRUE(fs::is_empty(folder));

    PrefsRecord.DefaultAuthor = " Ben B. ";
    PrefsRecord.AddEndState = 1;
    PrefsRecord.FloorTile = 30;
    CreateNewLevel(folder.string());
    EXPECT_EQ(LevelRecord.author, "Ben B.");
    EXPECT_EQ(LevelRecord.interactive_tm(98, 14), 30);
}

TEST_F(NewLevelTest, TakesTheFirstFreeName) {
    Store("level1.fbl", "x");
    Store("level3.fbl", "x");
    for (const char* separator : {"", "", "/"}) {  // the first one is not saved, so the second finds the same name
        ASSERT_TRUE(CreateNewLevel(folder.string() + separator));
        EXPECT_EQ(LevelPath, PathOf("level2.fbl"));
    }
    ASSERT_TRUE(CreateNewLevel(""));
    EXPECT_EQ(LevelPath, "/level1.fbl");
}

TEST_F(NewLevelTest, AFullFolderLeavesTheLevelButForItsLists) {
    for (int n = 1; n <= 99; ++n) {
        Store("level" + std::to_string(n) + ".fbl", "x");
    }
    LevelPath = PathOf("level5.fbl");
    LevelRecord.name = "Old";
    LevelRecord.BadGuyCount = LevelRecord.ResetPointCount = 1;
    NewLevelCommand();
    EXPECT_EQ(LevelRecord.BadGuyCount + LevelRecord.ResetPointCount, 0);
    EXPECT_EQ(LevelRecord.name, "Old");
    EXPECT_EQ(LevelPath, PathOf("level5.fbl"));
    EXPECT_EQ(LevelLoaded, False);
    EXPECT_EQ(doubles.calls, (Texts{"ClearBadGuySlots"}));
    EXPECT_EQ(dialogs.messages,
              (std::vector<Message>{{"User Terminated or\r\nDisk Error Occured!", "Floebird Level Creation Error",
                                     MessageButtons::Ok, MessageIcon::Stop}}));
    fs::remove(folder / "level99.fbl");
    EXPECT_TRUE(CreateNewLevel(folder.string()));
    EXPECT_EQ(LevelPath, PathOf("level99.fbl"));
}

TEST_F(NewLevelTest, CommandAsksOnlyAboutALevelInMemory) {
    const Texts made{"ClearBadGuySlots", "ShowFileName " + PathOf("level1.fbl"), "UpdateDisplay", "OpenVarsFrm"};
    LevelPath = PathOf("level7.fbl");
    NewLevelCommand();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(doubles.calls, made);
    for (const int answer : {AnswerNo, AnswerCancel, AnswerYes}) {
        doubles = {};
        dialogs = {};
        dialogs.answers = {answer};
        NewLevelCommand();
        EXPECT_EQ(doubles.calls, answer == AnswerYes ? made : Texts());
        EXPECT_EQ(LastMsgResult, answer);
        EXPECT_EQ(dialogs.messages,
                  (std::vector<Message>{
                      {"Create a new level from scratch?\r\nCreating will erase current level if not saved first!",
                       "Create New Level", MessageButtons::YesNoCancel, MessageIcon::Question}}));
    }
}

TEST_F(NewLevelTest, ASetIsMadeUnlessItIsRefused) {
    fs::create_directory(folder / "taken");
    fs::create_directories(folder / "odd" / "info");
    EXPECT_FALSE(LevelSetExists("odd"));
    EXPECT_FALSE(LevelSetExists("none"));
    Store("taken/info", "x");
    EXPECT_TRUE(LevelSetExists("taken/"));
    const Message question{"Do you wish to start a new Floebird Level Set?", "Create New Level Set",
                           MessageButtons::YesNoCancel, MessageIcon::Question};
    const Message taken{"The Name Specified already exists!", "Level Set Creation Error", MessageButtons::Ok,
                        MessageIcon::Stop};
    const std::string path = PathOf("new/level1.fbl");
    const struct {
        int answer;
        const char* name;
        Int16 created;
        std::vector<Message> messages;
        Texts calls;
    } cases[] = {
        {AnswerNo, "new", True, {question}, {}},
        {AnswerCancel, "new", True, {question}, {}},
        {AnswerYes, "", True, {question}, {}},
        {AnswerYes, "taken", True, {question, taken}, {}},
        {AnswerYes, "new", False, {question}, {"OpenNewInfoFrm"}},
        {AnswerYes,
         "new",
         True,
         {question},
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
        EXPECT_EQ(dialogs.messages, c.messages);
    }
    EXPECT_NE(FileText(folder / "new" / "info").find("(title \"A title\")"), std::string::npos);
    EXPECT_EQ(LevelPath, path);
    EXPECT_FALSE(fs::exists(path)) << "the first level is in memory only";
}

}  // namespace
