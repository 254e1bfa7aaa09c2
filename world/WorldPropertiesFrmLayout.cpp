#include "world/WorldPropertiesFrm.h"

// Where everything on the world's properties screen stands. Pixels.

namespace {

constexpr int WindowWidth = 480;
constexpr int WindowHeight = 272;
constexpr int LabelLeft = 14;
constexpr int BoxLeft = 100;
constexpr int WideBox = WindowWidth - BoxLeft - 14;
constexpr int NumberBox = 64;
constexpr int ScrollLeft = BoxLeft + NumberBox + 12;

constexpr int RowTop(int row) { return 14 + 27 * row; }

void MakeLabels(WorldPropertiesFrm& form) {
    static constexpr std::array<const char*, 8> Captions{"Filename", "Name",   "Music",       "Comment",
                                                         "Width",    "Height", "Start Pos X", "Start Pos Y"};
    for (int row = 0; row < 8; ++row) {
        Element(form.FieldLabel, row)
            .Create(form.Window, MemberName("FieldLabel", row), {LabelLeft, RowTop(row), BoxLeft - LabelLeft, 22},
                    Element(Captions, row));
    }
}

void MakeTexts(WorldPropertiesFrm& form) {
    form.FNBox.Create(form.Window, "FNBox", {BoxLeft, RowTop(0), WideBox, 22});
    form.FNBox.SetSunken();
    form.FNBox.SetToolTip("(Optional) Click To Select Music");
    form.FNBox.Click = [&form] { form.FNBox_Click(); };
    form.NameBox.Create(form.Window, "NameBox", {BoxLeft, RowTop(1), WideBox, 22});
    form.NameBox.SetAccessibleName("Name");
    form.NameBox.Change = [&form] { form.NameBox_Change(); };
    form.MusicBox.Create(form.Window, "MusicBox", {BoxLeft, RowTop(2), WideBox, 22});
    form.MusicBox.SetSunken();
    form.MusicBox.SetToolTip("(Optional) Click To Select Music");
    form.MusicBox.Click = [&form] { form.MusicBox_Click(); };
    form.CommentBox.Create(form.Window, "CommentBox", {BoxLeft, RowTop(3), WideBox, 22});
    form.CommentBox.SetToolTip("(Optional) Comment");
    form.CommentBox.SetAccessibleName("Comment");
    form.CommentBox.Change = [&form] { form.CommentBox_Change(); };
}

struct NumberRow {
    TextBox WorldPropertiesFrm::*box = nullptr;
    void (WorldPropertiesFrm::*change)() = nullptr;
    const char* name = "";
    const char* accessibleName = "";
    // The bar beside the box, if there is one.
    ScrollBar WorldPropertiesFrm::*bar = nullptr;
    void (WorldPropertiesFrm::*barChange)() = nullptr;
    const char* barName = "";
    ScrollRange range = {};
};

void MakeScroll(WorldPropertiesFrm& form, const NumberRow& row, int top) {
    ScrollBar& bar = form.*row.bar;
    bar.Create(form.Window, row.barName, {ScrollLeft, top + 2, WindowWidth - ScrollLeft - 14, 17},
               Direction::Horizontal, row.range);
    bar.SetAccessibleName(row.accessibleName);
    bar.Change = [&form, change = row.barChange] { (form.*change)(); };
    bar.Scroll = bar.Change;
}

void MakeNumbers(WorldPropertiesFrm& form) {
    static constexpr std::array<NumberRow, 4> Rows{{
        {&WorldPropertiesFrm::WidthBox,
         &WorldPropertiesFrm::WidthBox_Change,
         "WidthBox",
         "Width",
         &WorldPropertiesFrm::XScroll,
         &WorldPropertiesFrm::XScroll_Change,
         "XScroll",
         {.minimum = 19, .maximum = 512, .largeChange = 10, .value = 19}},
        {&WorldPropertiesFrm::HeightBox,
         &WorldPropertiesFrm::HeightBox_Change,
         "HeightBox",
         "Height",
         &WorldPropertiesFrm::YScroll,
         &WorldPropertiesFrm::YScroll_Change,
         "YScroll",
         {.minimum = 16, .maximum = 256, .largeChange = 10, .value = 16}},
        {&WorldPropertiesFrm::StartXBox, &WorldPropertiesFrm::StartXBox_Change, "StartXBox", "Start Pos X"},
        {&WorldPropertiesFrm::StartYBox, &WorldPropertiesFrm::StartYBox_Change, "StartYBox", "Start Pos Y"},
    }};
    for (int i = 0; i < 4; ++i) {
        const NumberRow& row = Element(Rows, i);
        TextBox& box = form.*row.box;
        box.Create(form.Window, row.name, {BoxLeft, RowTop(4 + i), NumberBox, 22});
        box.SetAccessibleName(row.accessibleName);
        box.KeyPress = [&form](int KeyAscii) { return form.NumberBox_KeyPress(KeyAscii); };
        box.Change = [&form, change = row.change] { (form.*change)(); };
        if (row.bar != nullptr) {
            MakeScroll(form, row, RowTop(4 + i));
        }
    }
}

}  // namespace

void WorldPropertiesFrm::MakeControls() {
    Window.Create("WorldPropertiesFrm", "World Properties", WindowWidth, WindowHeight);
    Window.Unload = [this] { Unload(); };
    MakeLabels(*this);
    MakeTexts(*this);
    MakeNumbers(*this);
    OKCmd.Create(Window, "OKCmd", {WindowWidth - 14 - 90, WindowHeight - 40, 90, 26}, "OK");
    OKCmd.Click = [this] { OKCmd_Click(); };
}
