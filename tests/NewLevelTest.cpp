#include "level/NewLevel.h"

#include "platform/Files.h"
#include "tests/ModelTest.h"

// New levels.

namespace {

class NewLevelTest : public ModelTest {
protected:
    void SetUp() override {
        ModelTest::SetUp();
        LogonName = "ANNA            ";
    }
};

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
        std::filesystem::remove(folder / "level42.fbl");
        EXPECT_TRUE(CreateNewLevel(folder.string().append(separator)));
        EXPECT_EQ(LevelPath, PathOf("level42.fbl"));
    }
}

}  // namespace
