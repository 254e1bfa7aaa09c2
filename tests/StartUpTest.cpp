#include "core/StartUp.h"

#include "core/General.h"
#include "tests/ModelTest.h"

namespace {

using StartUpTest = ModelTest;

TEST_F(StartUpTest, ClampsDifferOnPurpose) {
    const struct {
        Int16 Preferences::*saved;
        Int16* selection;
        int value;
        int restored;
    } cases[] = {
        {&Preferences::SavedLayer, &CurrentLayer, 3, 3},     {&Preferences::SavedLayer, &CurrentLayer, 4, 1},
        {&Preferences::SavedLayer, &CurrentLayer, -1, -1},   {&Preferences::SavedMode, &CurrentMode, 2, 2},
        {&Preferences::SavedMode, &CurrentMode, 3, 0},       {&Preferences::SavedMode, &CurrentMode, -7, -7},
        {&Preferences::SavedObject, &CurrentObject, 9, 9},   {&Preferences::SavedObject, &CurrentObject, 10, -1},
        {&Preferences::SavedObject, &CurrentObject, -2, -2}, {&Preferences::SavedTileSet, &CurrentTileSet, 2, 2},
        {&Preferences::SavedTileSet, &CurrentTileSet, 3, 0}, {&Preferences::SavedTileSet, &CurrentTileSet, -1, 0},
    };
    for (const auto& [saved, selection, value, restored] : cases) {
        PrefsRecord.*saved = value;
        RestoreSelections();
        EXPECT_EQ(*selection, restored) << "saved " << value;
    }
}

TEST_F(StartUpTest, FoldersLieBelowTheGame) {
    EXPECT_EQ(GameFolder, JoinPath(ProgramFolder(), "Floebird"));
    EXPECT_EQ(UserLevelsFolder, GameFolder + "/.floebird/levels");
    EXPECT_EQ(BackgroundFolder, GameFolder + "/data/images/background");
    EXPECT_EQ(MusicFolder, GameFolder + "/data/music");
    EXPECT_EQ(WorldMapsFolder, GameFolder + "/data/levels/worldmaps");
    EXPECT_EQ(LogonName.size(), 16U);
}

TEST_F(StartUpTest, MainLoadsThePreferencesThenTheScreen) {
    const std::string path = JoinPath(WritableProgramFolder(), "FB_Editor.Preferences");
    std::filesystem::remove(path);
    Main();
    EXPECT_EQ(doubles.calls, (std::vector<std::string>{"LoadMainFrm", "ShowMainFrm"}));
    EXPECT_TRUE(std::filesystem::exists(path));
    std::filesystem::remove(path);
}

}  // namespace
