#include "level/NewLevel.h"

#include "core/General.h"
#include "core/ModalWaits.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "level/LevelEnding.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Texts.h"

namespace {

constexpr int LastLevelNumber = 99;

/// The path of the first level name that no file in `folder` has; empty if there is none.
std::string FirstFreePath(const std::string& folder) {
    for (int n = 1; n <= LastLevelNumber; ++n) {
        const std::string name = "level" + std::to_string(n) + ".fbl";
        std::string path = JoinPath(folder, name);
        if (QueryFile(path) != name) {
            return path;
        }
    }
    return {};
}

std::string AuthorOfNewLevels() {
    if (!IsBlank(PrefsRecord.DefaultAuthor)) {
        return std::string(Trim(PrefsRecord.DefaultAuthor));
    }
    return std::string(Trim(LogonName));
}

void FillNewLevel() {
    Level& level = LevelRecord;
    level.author = AuthorOfNewLevels();
    level.LevelComment = ";Floebird-Level";
    level.background = "ocean.png";
    level.particle_system = "snow";
    level.music = "fortress2.mod";
    level.bkgd_speed = 44.0;
    level.bkgd_red_bottom = level.bkgd_green_bottom = level.bkgd_blue_bottom = 255;
    level.gravity = 8.0;
    level.name = "Give Me A Name";
    level.time = 600;
    level.version = "1";
    level.height = 15;
    level.width = 120;
    level.background_tm = level.foreground_tm = level.interactive_tm = TileMap(level.width, level.height);
}

std::string SetFolder(const std::string& name) { return JoinPath(UserLevelsFolder, name); }

void ShowNewLevel() {
    UpdateDisplay();
    OpenVarsFrm();
}

}  // namespace

bool CreateNewLevel(const std::string& folder) {
    for (BadGuyType& type : BadGuyTypeTable) {
        type.CountInUse = 0;
    }
    LevelRecord.BadGuyCount = 0;
    LevelRecord.ResetPointCount = 0;
    ClearBadGuySlots();
    const std::string path = FirstFreePath(folder);
    if (path.empty()) {
        return false;
    }
    LevelPath = path;
    FillNewLevel();
    if (PrefsRecord.AddEndState > 0) {
        AddLevelEnding();
    }
    LevelLoaded = True;
    return true;
}

bool LevelSetExists(const std::string& name) { return QueryFile(JoinPath(SetFolder(name), "info")) == "info"; }

void NewLevelCommand() {
    if (LevelLoaded != False) {
        LastMsgResult =
            ShowMessage("Create a new level from scratch?\r\nCreating will erase current level if not saved first!",
                        "Create New Level", MessageButtons::YesNoCancel, MessageIcon::Question);
        if (LastMsgResult != AnswerYes) {
            return;
        }
    }
    if (!CreateNewLevel(FolderOf(LevelPath))) {
        ShowMessage("User Terminated or\r\nDisk Error Occured!", "Floebird Level Creation Error", MessageButtons::Ok,
                    MessageIcon::Stop);
        return;
    }
    ShowNewLevel();
}

void CreateLevelSet() {
    LastMsgResult = ShowMessage("Do you wish to start a new Floebird Level Set?", "Create New Level Set",
                                MessageButtons::YesNoCancel, MessageIcon::Question);
    if (LastMsgResult != AnswerYes) {
        return;
    }
    const std::string name = InputBox("Enter Floebird Level Set Name", "Creating A New Level Set");
    if (name.empty()) {
        return;
    }
    if (LevelSetExists(name)) {
        ShowMessage("The Name Specified already exists!", "Level Set Creation Error", MessageButtons::Ok,
                    MessageIcon::Stop);
        return;
    }
    if (!ShowNewInfoModal()) {
        return;
    }
    const std::string folder = SetFolder(name);
    MakeFolder(folder);
    WriteInfoFile(JoinPath(folder, "info"));
    CreateNewLevel(folder);
    ShowNewLevel();
}
