#include "sidescreens/VarsFrm.h"

// Where everything on the variables screen stands. Pixels; those in the frame count from its corner. The
// controls are made in the order in which the eye and the Tab key go through them.

namespace {

constexpr int WindowWidth = 560;
constexpr int WindowHeight = 576;

constexpr int RowHeight = 27;
constexpr int BoxHeight = 22;
constexpr int Row(int row) { return 12 + RowHeight * row; }

// Two columns of captions with their boxes.
constexpr int LeftCaption = 14;
constexpr int LeftBox = 90;
constexpr int RightCaption = 276;
constexpr int RightBox = 356;
constexpr int HalfWidth = 170;
constexpr int RightWidth = WindowWidth - RightBox - 14;
constexpr int FullWidth = WindowWidth - LeftBox - 14;
constexpr int NumberWidth = 66;

// The colours: a box for each part.
constexpr int ColourWidth = 52;
constexpr int ColourLeft(int part) { return LeftBox + part * (ColourWidth + 7); }

constexpr Place LeftPlace(int row, int width) { return {LeftBox, Row(row), width, BoxHeight}; }
constexpr Place RightPlace(int row, int width) { return {RightBox, Row(row), width, BoxHeight}; }
constexpr Place ColourPlace(int row, int part) { return {ColourLeft(part), Row(row), ColourWidth, BoxHeight}; }

struct Caption {
    const char* text;
    int left;
    int row;
};

constexpr std::array<Caption, VarsFrm::FixedLabels> Captions{{
    {"Filename", LeftCaption, 0}, {"Comment", LeftCaption, 1},     {"Version", LeftCaption, 2},
    {"Author", RightCaption, 2},  {"Name", LeftCaption, 3},        {"Width", LeftCaption, 4},
    {"Height", RightCaption, 4},  {"Start Pos X", LeftCaption, 5}, {"Start Pos Y", RightCaption, 5},
    {"BkGnd", LeftCaption, 6},    {"Music", RightCaption, 6},      {"Red", ColourLeft(0), 7},
    {"Green", ColourLeft(1), 7},  {"Blue", ColourLeft(2), 7},      {"Top", LeftCaption, 8},
    {"Bottom", LeftCaption, 9},   {"Bkg Speed", LeftCaption, 10},  {"Scroll Speed", RightCaption, 10},
    {"TIME", LeftCaption, 11},    {"Gravity", RightCaption, 11},   {"Particle", LeftCaption, 12},
    {"Theme", RightCaption, 12},  {"Comment", LeftCaption, 14},    {"Stats", LeftCaption, 15},
}};

struct TextBoxLayout {
    TextBox VarsFrm::*box = nullptr;
    const char* name = "";
    const char* accessibleName = "";
    Place place;
    const char* toolTip = "";
};

constexpr TextBoxLayout UpperBoxes[] = {
    {&VarsFrm::CommentBox, "CommentBox", "Comment above the level", LeftPlace(1, FullWidth)},
    {&VarsFrm::VersionBox, "VersionBox", "Version", LeftPlace(2, NumberWidth)},
    {&VarsFrm::AuthorBox, "AuthorBox", "Author", RightPlace(2, RightWidth)},
    {&VarsFrm::NameBox, "NameBox", "Name", LeftPlace(3, FullWidth)},
    {&VarsFrm::WidthBox, "WidthBox", "Width", LeftPlace(4, NumberWidth),
     "Width in number of Tiles wide (Will FORCE a new level creation if changed!)"},
    {&VarsFrm::HeightBox, "HeightBox", "Height", RightPlace(4, NumberWidth),
     "Must be 15, Floebird V1.2 only supports height of 15."},
    {&VarsFrm::StartXBox, "StartXBox", "Start Pos X", LeftPlace(5, NumberWidth), "Nuk's Column Starting Position"},
    {&VarsFrm::StartYBox, "StartYBox", "Start Pos Y", RightPlace(5, NumberWidth), "Nuk's Row Starting Position"},
};

constexpr TextBoxLayout LowerBoxes[] = {
    {&VarsFrm::BkgRedTopBox, "BkgRedTopBox", "Red Top", ColourPlace(8, 0)},
    {&VarsFrm::BkgGrnTopBox, "BkgGrnTopBox", "Green Top", ColourPlace(8, 1)},
    {&VarsFrm::BkgBluTopBox, "BkgBluTopBox", "Blue Top", ColourPlace(8, 2)},
    {&VarsFrm::BkgRedBtmBox, "BkgRedBtmBox", "Red Bottom", ColourPlace(9, 0)},
    {&VarsFrm::BkgGrnBtmBox, "BkgGrnBtmBox", "Green Bottom", ColourPlace(9, 1)},
    {&VarsFrm::BkgBluBtmBox, "BkgBluBtmBox", "Blue Bottom", ColourPlace(9, 2)},
    {&VarsFrm::BkgSpeedBox, "BkgSpeedBox", "Bkg Speed", LeftPlace(10, NumberWidth)},
    {&VarsFrm::ScrollSpeedBox, "ScrollSpeedBox", "Scroll Speed", RightPlace(10, NumberWidth)},
    {&VarsFrm::TimeBox, "TimeBox", "TIME", LeftPlace(11, NumberWidth)},
    {&VarsFrm::GravityBox, "GravityBox", "Gravity", RightPlace(11, NumberWidth)},
};

void MakeTextBox(VarsFrm& form, const TextBoxLayout& entry) {
    TextBox& box = form.*entry.box;
    box.Create(form.Window, entry.name, entry.place);
    box.SetAccessibleName(entry.accessibleName);
    box.SetToolTip(entry.toolTip);
}

void MakeFixedLabels(VarsFrm& form) {
    for (int i = 0; i < VarsFrm::FixedLabels; ++i) {
        const Caption& caption = Element(Captions, i);
        const int width = caption.row == 7 ? ColourWidth : LeftBox - LeftCaption - 4;
        Element(form.FixedLabel, i)
            .Create(form.Window, "Label" + std::to_string(i + 1), {caption.left, Row(caption.row), width, BoxHeight},
                    caption.text);
    }
}

void MakeClickLabel(VarsFrm& form, Label& label, const char* name, Place place, const char* toolTip,
                    void (VarsFrm::*click)()) {
    label.Create(form.Window, name, place);
    label.SetSunken();
    label.SetToolTip(toolTip);
    label.Click = [&form, click] { (form.*click)(); };
}

void MakeFileLabels(VarsFrm& form) {
    MakeClickLabel(form, form.BackgroundBox, "BackgroundBox", LeftPlace(6, HalfWidth),
                   "Click to change Background Image", &VarsFrm::ChooseBackground);
    MakeClickLabel(form, form.MusicBox, "MusicBox", RightPlace(6, RightWidth), "Click to change the Music",
                   &VarsFrm::ChooseMusic);
}

void MakeRings(VarsFrm& form) {
    MakeClickLabel(form, form.ParticleBox, "ParticleBox", LeftPlace(12, HalfWidth), "Click to toggle Particle type",
                   &VarsFrm::ParticleBox_Click);
    MakeClickLabel(form, form.ThemeBox, "ThemeBox", RightPlace(12, RightWidth), "Click to toggle Theme type",
                   &VarsFrm::ThemeBox_Click);
}

void MakeSizeHandlers(VarsFrm& form) {
    form.WidthBox.Change = [&form] { form.WidthBox_Change(); };
    form.HeightBox.Change = [&form] { form.HeightBox_Change(); };
    form.HeightBox.SetEnabled(false);
    for (TextBox* box : {&form.WidthBox, &form.HeightBox}) {
        box->KeyPress = [&form](int KeyAscii) { return form.SizeBox_KeyPress(KeyAscii); };
    }
}

void MakeReadOnly(VarsFrm& form, Label& label, const char* name, int row, const char* toolTip) {
    label.Create(form.Window, name, LeftPlace(row, FullWidth));
    label.SetSunken();
    label.SetToolTip(toolTip);
}

void MakeEndingScroll(VarsFrm& form, Label& label, ScrollBar& bar, const char* labelName, const char* barName,
                      int top) {
    label.Create(form.Frame1, labelName, {RightCaption - LeftCaption, top, 76, 20}, labelName);
    bar.Create(form.Frame1, barName, {RightBox - LeftCaption, top + 1, 176, 17}, Direction::Horizontal, {});
    bar.SetAccessibleName(labelName);
}

void MakeEndingFrame(VarsFrm& form) {
    const char* const when = "Only when new level is created or width changed.";
    form.Frame1.Create(form.Window, "Frame1", {LeftCaption, Row(16) + 4, WindowWidth - 2 * LeftCaption, 88},
                       "New Level Creation");
    form.AddEndCheck.Create(form.Frame1, "AddEndCheck", {12, 22, 100, 20}, "Add Ending");
    form.AddEndCheck.SetToolTip(when);
    form.AddEndCheck.Click = [&form] { form.AddEndCheck_Click(); };
    form.IglooCheck.Create(form.Frame1, "IglooCheck", {12, 50, 100, 20}, "Add Igloo");
    form.IglooCheck.SetToolTip(when);
    form.IglooCheck.Click = [&form] { form.IglooCheck_Click(); };
    form.Label25.Create(form.Frame1, "Label25", {118, 22, 110, 20}, "Ending Floor Tile");
    form.FloorImg.Create(form.Frame1, "FloorImg", {118, 44, 32, 32});
    form.FloorImg.SetToolTip("Click to use thbe Current Selected Tile");
    form.FloorImg.Click = [&form] { form.FloorImg_Click(); };
    MakeEndingScroll(form, form.EndSeqBox, form.SeqScroll, "EndSeqBox", "SeqScroll", 22);
    MakeEndingScroll(form, form.EndFinalBox, form.FinalScroll, "EndFinalBox", "FinalScroll", 50);
}

}  // namespace

void VarsFrm::MakeControls() {
    Window.Create("VarsFrm", "FB_Editor Map Variables", WindowWidth, WindowHeight);
    Window.Unload = [this] { Unload(); };
    MakeFixedLabels(*this);
    MakeReadOnly(*this, FileNameBox, "FileNameBox", 0, "Current loaded level's path/filename");
    for (const TextBoxLayout& entry : UpperBoxes) {
        MakeTextBox(*this, entry);
    }
    MakeSizeHandlers(*this);
    MakeFileLabels(*this);
    for (const TextBoxLayout& entry : LowerBoxes) {
        MakeTextBox(*this, entry);
    }
    MakeRings(*this);
    BackScrollCheck.Create(Window, "BackScrollCheck", LeftPlace(13, FullWidth), "Enable Back Scrolling");
    BackScrollCheck.SetToolTip("Allow Nuk to go backwards in game play");
    BackScrollCheck.Click = [this] { BackScrollCheck_Click(); };
    MakeTextBox(*this, {&VarsFrm::EndCommentBox, "EndCommentBox", "Comment below the level", LeftPlace(14, FullWidth)});
    MakeReadOnly(*this, NumsBox, "NumsBox", 15, "");
    MakeEndingFrame(*this);
    CloseCmd.Create(Window, "CloseCmd", {WindowWidth - 14 - 88, WindowHeight - 38, 88, 26}, "Close");
    CloseCmd.SetToolTip("Close Window");
    CloseCmd.Click = [this] { Window.Close(); };
}
