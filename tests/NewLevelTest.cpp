#include "level/NewLevel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/SharedState.h"
#include "level/LevelEnding.h"
#include "tests/Golden.h"
#include "tests/ModelDoubles.h"
#include "tests/ScriptedDialogs.h"

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

void MakeEmptyLayers(int width) {
    LevelRecord.width = width;
    LevelRecord.background_tm = LevelRecord.foreground_tm = LevelRecord.interactive_tm = TileMap(width, 15);
}

struct EndingCase {
    int width, igloo, floor;
    std::vector<Piece> background, foreground, interactive;
};

const EndingCase EndingCases[] = {
    {120, 0, 26, {}, {}, {{116, 116, 0, 13, 132}, {100, 100, 0, 13, 133}, {98, 119, 14, 14, 26}}},
    {120,
     1,
     37,
     {{110, 110, 8, 8, 126}},
     {{113, 113, 8, 8, 127}},
     {{116, 116, 0, 12, 132}, {100, 100, 0, 12, 133}, {98, 119, 13, 13, 34}, {98, 119, 14, 14, 37}}},
    {22,
     1,
     204,
     {{12, 12, 8, 8, 126}},
     {{15, 15, 8, 8, 127}},
     {{18, 18, 0, 13, 132}, {2, 2, 0, 13, 133}, {0, 21, 14, 14, 204}}},
};

TEST(LevelEnding, PaintsThePatternAtTheRightEdge) {
    for (const EndingCase& c : EndingCases) {
        SCOPED_TRACE(c.width * 1000 + c.floor);
        MakeEmptyLayers(c.width);
        PrefsRecord.IglooState = c.igloo;
        PrefsRecord.FloorTile = c.floor;
        AddLevelEnding();
        EXPECT_EQ(LevelRecord.background_tm, MapOf(c.width, c.background));
        EXPECT_EQ(LevelRecord.foreground_tm, MapOf(c.width, c.foreground));
        EXPECT_EQ(LevelRecord.interactive_tm, MapOf(c.width, c.interactive));
    }
}

TEST(LevelEnding, NeedsTwentyTwoColumnsForTheFloor) {
    MakeEmptyLayers(21);
    PrefsRecord.FloorTile = 26;
    try {
        AddLevelEnding();
        FAIL() << "no fault";
    } catch (const Fault& fault) {
        EXPECT_EQ(fault.Number(), FaultNumber::SubscriptOutOfRange);
    }
    EXPECT_EQ(LevelRecord.interactive_tm, MapOf(21, {{17, 17, 0, 13, 132}, {1, 1, 0, 13, 133}}));
}

class NewLevelTest : public testing::Test {
protected:
    void SetUp() override {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        sets = fs::temp_directory_path() / (std::string("fb_editor_NewLevel_") + info->name());
        fs::remove_all(sets);
        fs::create_directories(sets);
        UserLevelsFolder = sets.string();
        LevelRecord = {};
        PrefsRecord = {};
        CurrentInfo = {};
        LevelLoaded = False;
        LogonName = "ANNA            ";
        dialogs = {};
        doubles = {};
    }
    void TearDown() override { fs::remove_all(sets); }

    /// The answer of NewInfoFrm, as the first event of its wait.
    static void AnswerInfo(Int16 created) {
        doubles.onYield = [created] {
            CurrentInfo = {"", "A title", "A description"};
            InfoCreated = created;
            ModalDone = True;
        };
    }

    [[nodiscard]] std::string Set(const std::string& name) const { return (sets / name).string(); }
    static void Touch(const fs::path& path) { std::ofstream(path) << "x"; }

    fs::path sets;
};

TEST_F(NewLevelTest, SetsItsOwnFieldsAndKeepsTheOthers) {
    LevelRecord.start_pos_x = 77;
    LevelRecord.start_pos_y = 78;
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
    MakeEmptyLayers(30);

    ASSERT_TRUE(CreateNewLevel(sets.string()));

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
    EXPECT_EQ(doubles.calls, (std::vector<std::string>{"ClearBadGuySlots", "ShowFileName " + Set("level1.fbl")}));
    EXPECT_TRUE(fs::is_empty(sets));
}

TEST_F(NewLevelTest, TakesTheFirstFreeName) {
    Touch(sets / "level1.fbl");
    Touch(sets / "level3.fbl");
    for (int time = 0; time < 2; ++time) {  // the first one is not saved, so the second finds the same name
        ASSERT_TRUE(CreateNewLevel(sets.string()));
        EXPECT_EQ(LevelPath, Set("level2.fbl"));
    }
    ASSERT_TRUE(CreateNewLevel(sets.string() + "/"));
    EXPECT_EQ(LevelPath, Set("level2.fbl"));
    ASSERT_TRUE(CreateNewLevel(""));
    EXPECT_EQ(LevelPath, "/level1.fbl");
}

TEST_F(NewLevelTest, AFullFolderLeavesTheLevelButForItsLists) {
    for (int n = 1; n <= 99; ++n) {
        Touch(sets / ("level" + std::to_string(n) + ".fbl"));
    }
    LevelPath = Set("level5.fbl");
    LevelRecord.name = "Old";
    LevelRecord.BadGuyCount = LevelRecord.ResetPointCount = 1;
    NewLevelCommand();
    EXPECT_EQ(LevelRecord.BadGuyCount, 0);
    EXPECT_EQ(LevelRecord.ResetPointCount, 0);
    EXPECT_EQ(LevelRecord.name, "Old");
    EXPECT_EQ(LevelPath, Set("level5.fbl"));
    EXPECT_EQ(LevelLoaded, False);
    EXPECT_EQ(doubles.calls, (std::vector<std::string>{"ClearBadGuySlots"}));
    EXPECT_EQ(dialogs.messages, (std::vector<ScriptedDialogs::Message>{{"User Terminated or\r\nDisk Error Occured!",
                                                                        "Floebird Level Creation Error",
                                                                        MessageButtons::Ok, MessageIcon::Stop}}));
    fs::remove(sets / "level99.fbl");
    EXPECT_TRUE(CreateNewLevel(sets.string()));
    EXPECT_EQ(LevelPath, Set("level99.fbl"));
}

TEST_F(NewLevelTest, TakesTheAuthorFromThePreferencesOrTheUser) {
    PrefsRecord.DefaultAuthor = " Ben B. ";
    CreateNewLevel(sets.string());
    EXPECT_EQ(LevelRecord.author, "Ben B.");
    EXPECT_EQ(LogonName, "ANNA            ");
    PrefsRecord.DefaultAuthor = "  ";
    CreateNewLevel(sets.string());
    EXPECT_EQ(LevelRecord.author, "ANNA");
    EXPECT_EQ(LogonName, "ANNA");
}

TEST_F(NewLevelTest, PaintsTheEndingOnlyIfAsked) {
    PrefsRecord.IglooState = 1;
    PrefsRecord.FloorTile = 30;
    CreateNewLevel(sets.string());
    EXPECT_EQ(LevelRecord.background_tm, TileMap(120, 15));
    EXPECT_EQ(LevelRecord.interactive_tm, TileMap(120, 15));
    PrefsRecord.AddEndState = 1;
    CreateNewLevel(sets.string());
    EXPECT_EQ(LevelRecord.background_tm, MapOf(120, {{110, 110, 8, 8, 126}}));
    EXPECT_EQ(LevelRecord.interactive_tm(98, 14), 30);
}

TEST_F(NewLevelTest, CommandAsksOnlyAboutALevelInMemory) {
    LevelPath = Set("level7.fbl");
    NewLevelCommand();
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(LevelPath, Set("level1.fbl"));
    EXPECT_EQ(doubles.calls, (std::vector<std::string>{"ClearBadGuySlots", "ShowFileName " + Set("level1.fbl"),
                                                       "UpdateDisplay", "OpenVarsFrm"}));
    for (const int refusal : {AnswerNo, AnswerCancel}) {
        doubles = {};
        dialogs = {};
        dialogs.answers = {refusal};
        NewLevelCommand();
        EXPECT_TRUE(doubles.calls.empty());
        EXPECT_EQ(LastMsgResult, refusal);
        EXPECT_EQ(dialogs.messages,
                  (std::vector<ScriptedDialogs::Message>{
                      {"Create a new level from scratch?\r\nCreating will erase current level if not saved first!",
                       "Create New Level", MessageButtons::YesNoCancel, MessageIcon::Question}}));
    }
    dialogs.answers = {AnswerYes};
    LevelRecord.name = "Old";
    NewLevelCommand();
    EXPECT_EQ(LevelRecord.name, "Give Me A Name");
}

TEST_F(NewLevelTest, ALevelSetIsItsInfoFile) {
    fs::create_directory(sets / "bare");
    fs::create_directories(sets / "odd" / "info");
    fs::create_directory(sets / "full");
    Touch(sets / "full" / "info");
    EXPECT_FALSE(LevelSetExists("none"));
    EXPECT_FALSE(LevelSetExists("bare"));
    EXPECT_FALSE(LevelSetExists("odd"));
    EXPECT_TRUE(LevelSetExists("full"));
    EXPECT_TRUE(LevelSetExists("full/"));
}

TEST_F(NewLevelTest, CreatesASetWithItsInfoFileAndAFirstLevelInMemory) {
    LevelLoaded = True;  // not asked about
    dialogs.answers = {AnswerYes};
    dialogs.inputs = {"my-set"};
    AnswerInfo(True);
    CreateLevelSet();
    EXPECT_EQ(dialogs.messages, (std::vector<ScriptedDialogs::Message>{
                                    {"Do you wish to start a new Floebird Level Set?", "Create New Level Set",
                                     MessageButtons::YesNoCancel, MessageIcon::Question}}));
    EXPECT_EQ(FileBytes(sets / "my-set" / "info"),
              ";Generated by Quillhare's FB_Editor\n(floebird-level-subset\n  (title \"A title\")\n"
              "  (description \"A description\")\n)\n");
    EXPECT_EQ(LevelPath, Set("my-set/level1.fbl"));
    EXPECT_FALSE(fs::exists(LevelPath));
    EXPECT_EQ(doubles.calls, (std::vector<std::string>{"OpenNewInfoFrm", "ClearBadGuySlots",
                                                       "ShowFileName " + LevelPath, "UpdateDisplay", "OpenVarsFrm"}));
}

TEST_F(NewLevelTest, EveryRefusalEndsTheSet) {
    fs::create_directory(sets / "taken");
    Touch(sets / "taken" / "info");
    struct Refusal {
        int answer;
        std::string name;
        std::size_t messages;
        std::vector<std::string> calls;
    };
    const Refusal refusals[] = {
        {AnswerNo, "new", 1, {}},
        {AnswerCancel, "new", 1, {}},
        {AnswerYes, "", 1, {}},
        {AnswerYes, "taken", 2, {}},
        {AnswerYes, "new", 1, {"OpenNewInfoFrm"}},
    };
    for (const Refusal& refusal : refusals) {
        dialogs = {};
        doubles = {};
        dialogs.answers = {refusal.answer};
        dialogs.inputs = {refusal.name};
        AnswerInfo(False);
        CreateLevelSet();
        EXPECT_EQ(doubles.calls, refusal.calls) << refusal.name;
        ASSERT_EQ(dialogs.messages.size(), refusal.messages) << refusal.name;
        if (refusal.messages == 2) {
            EXPECT_EQ(dialogs.messages[1],
                      (ScriptedDialogs::Message{"The Name Specified already exists!", "Level Set Creation Error",
                                                MessageButtons::Ok, MessageIcon::Stop}));
        }
    }
    EXPECT_FALSE(fs::exists(sets / "new"));
}

TEST_F(NewLevelTest, AFolderThatCannotBeMadeIsAFault) {
    fs::create_directory(sets / "bare");
    struct Failure {
        std::string parent;
        std::string name;
        FaultNumber fault;
    };
    const Failure failures[] = {
        {sets.string(), "bare", FaultNumber::PathFileAccessError},
        {sets.string(), std::string(300, 'n'), FaultNumber::PathFileAccessError},
        {sets.string(), "a/b", FaultNumber::PathNotFound},
        {(sets / "gone").string(), "new", FaultNumber::PathNotFound},
    };
    for (const Failure& failure : failures) {
        UserLevelsFolder = failure.parent;
        dialogs.answers = {AnswerYes};
        dialogs.inputs = {failure.name};
        AnswerInfo(True);
        try {
            CreateLevelSet();
            ADD_FAILURE() << "no fault for " << failure.name;
        } catch (const Fault& fault) {
            EXPECT_EQ(fault.Number(), failure.fault) << failure.name;
        }
    }
    EXPECT_TRUE(fs::is_empty(sets / "bare"));
    EXPECT_EQ(LevelLoaded, False);
}

}  // namespace
