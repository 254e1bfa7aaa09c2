#include "core/StartUp.h"

#include "core/General.h"
#include "core/LineEnds.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Texts.h"

namespace {

constexpr std::array<std::string_view, BadGuyTypes> DisplayNames{
    "Snow Ball",       "Bouncing Ball", "Mr. IceBlock", "Flying Snow Ball", "Spikey",
    "Bouncing Spikey", "Mr. Bomb",      "Fire Ball",    "Stalactite",       "Fish",
};

/// Fixed when the program is built; without a choice then, where the game's own installer puts it if it has, else the
/// folder beside the program.
std::string FixedGameFolder() {
    std::string chosen = FB_GAME_FOLDER;
    if (!chosen.empty()) {
        return chosen;
    }
#ifdef _WIN32
    if (std::string installed = "C:\\Program Files\\Floebird"; FolderExists(installed)) {
        return installed;
    }
#endif
    return JoinPath(ProgramFolder, "Floebird");
}

void Start() {
    InitConstants();
    UseDosLineEnds();
    LoadPreferences();
    RestoreSelections();
    LoadMainFrm();
    ShowMainFrm();
}

std::string AdviceForNextStart() {
    const std::string preferences = PreferencesPath();
    if (QueryFile(preferences).empty()) {
        return "";  // it is not they that end the start
    }
    const std::string level = IsBlank(LevelPath) ? "" : "The level that was being opened:\n" + LevelPath + "\n\n";
    return level + "If this happens at every start, delete the preferences:\n" + preferences;
}

}  // namespace

void InitConstants() {
    GetLogonName();
    LevelLoaded = False;
    TitleText = "FB_Editor V1.09 - Floebird Level Editor by Quillhare";
    GameFolder = FixedGameFolder();
    DataFolder = JoinPath(GameFolder, "data");
    LevelsFolder = JoinPath(DataFolder, "levels");
    UserLevelsFolder = JoinPath(JoinPath(GameFolder, ".floebird"), "levels");
    ImagesFolder = JoinPath(DataFolder, "images");
    BackgroundFolder = JoinPath(ImagesFolder, "background");
    MusicFolder = JoinPath(DataFolder, "music");
    WorldMapsFolder = JoinPath(LevelsFolder, "worldmaps");
    FileNotFoundText = "File Specified Not Found!\r\nPlease choose another file.";
    CurrentTile = 0;
    for (std::size_t row = 0; row < BadGuyTypeTable.size(); ++row) {
        BadGuyTypeTable[row] = {std::string(DisplayNames[row]), 0};
    }
}

void RestoreSelections() {
    CurrentLayer = PrefsRecord.SavedLayer > AllLayers ? Int16(InteractiveLayer) : PrefsRecord.SavedLayer;
    CurrentMode = PrefsRecord.SavedMode > EditBadGuysMode ? Int16(TileMode) : PrefsRecord.SavedMode;
    CurrentObject = PrefsRecord.SavedObject > BadGuyTypes - 1 ? Int16(-1) : PrefsRecord.SavedObject;
    const bool knownTileSet = PrefsRecord.SavedTileSet >= AllTiles && PrefsRecord.SavedTileSet <= FavoriteTilesB;
    CurrentTileSet = knownTileSet ? PrefsRecord.SavedTileSet : Int16(AllTiles);
}

void Main() {
    try {
        WithMemoryFaults(Start);
    } catch (const Fault& fault) {
        EndWithFault(fault, AdviceForNextStart());
    }
}
