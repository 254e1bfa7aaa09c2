#include "sidescreens/VarsFrm.h"

#include "core/General.h"
#include "core/ModalWaits.h"
#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "level/LevelEnding.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Texts.h"

namespace {

constexpr int DefaultFloorTile = 26;

// A width or height that is being typed counts within these bounds only.
constexpr int NarrowestLevel = 21;
constexpr int WidestLevel = 1023;
constexpr int LowestLevel = 15;

constexpr VarsFrm::FieldBox FieldBoxes[] = {
    {&VarsFrm::CommentBox, &Level::LevelComment},
    {&VarsFrm::VersionBox, &Level::version},
    {&VarsFrm::AuthorBox, &Level::author},
    {&VarsFrm::NameBox, &Level::name},
    {&VarsFrm::StartXBox, &Level::start_pos_x},
    {&VarsFrm::StartYBox, &Level::start_pos_y},
    {&VarsFrm::BkgRedTopBox, &Level::bkgd_red_top},
    {&VarsFrm::BkgGrnTopBox, &Level::bkgd_green_top},
    {&VarsFrm::BkgBluTopBox, &Level::bkgd_blue_top},
    {&VarsFrm::BkgRedBtmBox, &Level::bkgd_red_bottom},
    {&VarsFrm::BkgGrnBtmBox, &Level::bkgd_green_bottom},
    {&VarsFrm::BkgBluBtmBox, &Level::bkgd_blue_bottom},
    {&VarsFrm::BkgSpeedBox, &Level::bkgd_speed},
    {&VarsFrm::ScrollSpeedBox, &Level::hor_autoscroll_speed},
    {&VarsFrm::TimeBox, &Level::time},
    {&VarsFrm::GravityBox, &Level::gravity},
};

std::string ShownValue(const std::string& field) { return field; }
std::string ShownValue(Int16 field) { return std::to_string(field); }
std::string ShownValue(double field) { return DoubleToPlainText(field); }  // as it is taken back

void Store(const std::string& text, std::string& field) { field = text; }
void Store(const std::string& text, Int16& field) { field = TextToInt16(text); }
void Store(const std::string& text, double& field) {
    try {
        field = TextToDouble(text);
    } catch (const Fault&) {  // what is no number is not taken
    }
}

/// Makes the layers anew, all empty, if `width` and `height` are those of a level. False if they are not.
bool RemakeLayers() {
    Level& level = LevelRecord;
    if (level.height < LowestLevel || level.width < NarrowestLevel || level.width > WidestLevel) {
        return false;
    }
    level.background_tm = level.foreground_tm = level.interactive_tm = TileMap(level.width, level.height);
    return true;
}

void CorrectFlag(Int16& flag) {
    if (flag != 1) {
        flag = 0;
    }
}

}  // namespace

void VarsFrm::Load() {
    MakeControls();
    for (const FieldBox& entry : FieldBoxes) {
        (this->*entry.box).Change = [this, &entry] { FieldBox_Change(entry); };
    }
    RestorePosition(Window, ScreenIndex::VarsFrm, false);
    CorrectFlag(PrefsRecord.AddEndState);
    CorrectFlag(PrefsRecord.IglooState);
    UpdateVarsDisplay();
}

void VarsFrm::Unload() {
    StorePosition(Window, ScreenIndex::VarsFrm);
    if (IsBlank(PrefsRecord.DefaultAuthor)) {
        PrefsRecord.DefaultAuthor = LevelRecord.author;
    }
}

void VarsFrm::UpdateVarsDisplay() {
    const UpdatingGuard updating(Updating);
    YieldToEventQueue();
    ShowFields();
    ShowEndingChoice();
    NumsBox.SetCaption("Number of Reset Points = " + std::to_string(LevelRecord.ResetPointCount) +
                       ", Number of BadGuys = " + std::to_string(LevelRecord.BadGuyCount));
    YieldToEventQueue();
}

/// Showing the fields also puts the record's height back to the one that the game knows.
void VarsFrm::ShowFields() {
    LevelRecord.height = LevelRows;
    FileNameBox.SetCaption(LevelPath);
    for (const FieldBox& entry : FieldBoxes) {
        (this->*entry.box).SetText(std::visit([](auto field) { return ShownValue(LevelRecord.*field); }, entry.field));
    }
    WidthBox.SetText(ShownValue(LevelRecord.width));
    HeightBox.SetText(ShownValue(LevelRecord.height));
    BackgroundBox.SetCaption(LevelRecord.background);
    MusicBox.SetCaption(LevelRecord.music);
    ParticleBox.SetCaption(LevelRecord.particle_system);
    ThemeBox.SetCaption(LevelRecord.theme);
    EndCommentBox.SetText(LevelRecord.EndComment);
    BackScrollCheck.SetValue(UpperCase(LevelRecord.back_scrolling) == "T" ? 1 : 0);
}

void VarsFrm::ShowEndingChoice() {
    AddEndCheck.SetValue(PrefsRecord.AddEndState);
    IglooCheck.SetValue(PrefsRecord.IglooState);
    if (PrefsRecord.FloorTile < 1 || PrefsRecord.FloorTile > LastTile) {
        PrefsRecord.FloorTile = DefaultFloorTile;
    }
    FloorImg.SetPicture(BlockImgList()[PrefsRecord.FloorTile]);
}

void VarsFrm::FieldBox_Change(const FieldBox& entry) {
    if (!Updating) {
        const std::string text = (this->*entry.box).Text();
        std::visit([&](auto field) { Store(text, LevelRecord.*field); }, entry.field);
    }
}

/// A width within the bounds starts the level anew, even if it is the old one.
void VarsFrm::WidthBox_Change() {
    if (Updating) {
        return;
    }
    LevelRecord.height = LevelRows;
    LevelRecord.width = TextToInt16(WidthBox.Text());
    if (RemakeLayers()) {
        if (PrefsRecord.AddEndState > 0) {
            AddLevelEnding();
        }
        UpdateVarsDisplay();
        UpdateDisplay();
    }
}

/// Out of the user's reach as long as the box is disabled. Paints no ending.
void VarsFrm::HeightBox_Change() {
    if (Updating) {
        return;
    }
    LevelRecord.height = TextToInt16(HeightBox.Text());
    if (RemakeLayers()) {
        UpdateVarsDisplay();
        UpdateDisplay();
    }
}

bool VarsFrm::SizeBox_KeyPress(int KeyAscii) {
    return PassesNumberBox(KeyAscii, [this] { UpdateVarsDisplay(); });
}

void VarsFrm::BackScrollCheck_Click() {
    if (!Updating) {
        LevelRecord.back_scrolling = BackScrollCheck.Value() == 0 ? "f" : "t";
    }
}

/// none -> cloud -> snow -> none; what a file may say beyond these counts as the last one.
void VarsFrm::ParticleBox_Click() {
    if (Updating) {
        return;
    }
    std::string& particles = LevelRecord.particle_system;
    if (particles.empty()) {
        particles = "cloud";
    } else if (particles == "cloud") {
        particles = "snow";
    } else {
        particles.clear();
    }
    UpdateVarsDisplay();
}

void VarsFrm::ThemeBox_Click() {
    if (!Updating) {
        LevelRecord.theme = LevelRecord.theme.empty() ? "antarctica" : "";
        UpdateVarsDisplay();
    }
}

void VarsFrm::ChooseBackground() {
    OpenAndWait(OpenBackGndFrm);
    BackgroundBox.SetCaption(LevelRecord.background);
}

void VarsFrm::ChooseMusic() {
    try {
        LevelRecord.music = FileNameOf(OpenFileDialog({"*.mod|*.mod", MusicFolder, LevelRecord.music}));
        MusicBox.SetCaption(LevelRecord.music);
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

// Either box takes over the tile selected in the palette as well, also when it is being cleared.

void VarsFrm::AddEndCheck_Click() {
    if (!Updating) {
        PrefsRecord.AddEndState = AddEndCheck.Value();
        FloorImg_Click();
    }
}

void VarsFrm::IglooCheck_Click() {
    if (!Updating) {
        PrefsRecord.IglooState = IglooCheck.Value();
        FloorImg_Click();
    }
}

void VarsFrm::FloorImg_Click() {
    PrefsRecord.FloorTile = CurrentTile;
    UpdateVarsDisplay();
}
