#include "world/LinkForm.h"

// Where everything on the link editor stands. Pixels; those in a frame count from its corner.

namespace {

constexpr int WindowWidth = 524;
constexpr int WindowHeight = 312;
constexpr int LabelLeft = 14;
constexpr int BoxLeft = 100;
constexpr int WideBox = WindowWidth - BoxLeft - 14;

constexpr int RowTop(int row) { return 14 + 27 * row; }

void MakeFieldLabels(LinkForm& form) {
    static constexpr std::array<const char*, 6> Captions{"Link #",    "Link Type", "Name (Link)",
                                                         "ExtroFile", "Message",   "Comment"};
    for (int row = 0; row < 6; ++row) {
        Element(form.FieldLabel, row)
            .Create(form.Window, MemberName("FieldLabel", row), {LabelLeft, RowTop(row), BoxLeft - LabelLeft, 22},
                    Element(Captions, row));
    }
}

void MakeFields(LinkForm& form) {
    form.LinkNumBox.Create(form.Window, "LinkNumBox", {BoxLeft, RowTop(0), 60, 22});
    form.TypeBox.Create(form.Window, "TypeBox", {BoxLeft, RowTop(1), 160, 22});
    form.TypeBox.SetToolTip("Click to select the type of Link.");
    form.TypeBox.Click = [&form] { form.TypeBox_Click(); };
    form.NameBox.Create(form.Window, "NameBox", {BoxLeft, RowTop(2), WideBox, 22});
    form.NameBox.SetToolTip("Click to select the desired Level to link to.");
    form.NameBox.Click = [&form] { form.NameBox_Click(); };
    form.ExtroBox.Create(form.Window, "ExtroBox", {BoxLeft, RowTop(3), WideBox, 22});
    form.ExtroBox.SetToolTip("Click to select desired Extro text file link.");
    form.ExtroBox.Click = [&form] { form.ExtroBox_Click(); };
    for (Label* box : {&form.LinkNumBox, &form.TypeBox, &form.NameBox, &form.ExtroBox}) {
        box->SetSunken();
    }
    form.MessageBox.Create(form.Window, "MessageBox", {BoxLeft, RowTop(4), WideBox, 22});
    form.MessageBox.SetToolTip("Optional Message");
    form.MessageBox.SetAccessibleName("Message");
    form.MessageBox.Change = [&form] { form.MessageBox_Change(); };
    form.CommentBox.Create(form.Window, "CommentBox", {BoxLeft, RowTop(5), WideBox, 22});
    form.CommentBox.SetToolTip("Comment text for script.");
    form.CommentBox.SetAccessibleName("Comment");
    form.CommentBox.Change = [&form] { form.CommentBox_Change(); };
}

struct CordsBox {
    TextBox LinkForm::*box;
    void (LinkForm::*change)();
    const char* name;
    const char* caption;
    int left;
    int top;
};

void MakeCords(LinkForm& form) {
    static constexpr std::array<CordsBox, 4> Boxes{{
        {&LinkForm::XBox, &LinkForm::XBox_Change, "XBox", "X", 10, 22},
        {&LinkForm::YBox, &LinkForm::YBox_Change, "YBox", "Y", 10, 50},
        {&LinkForm::DestXBox, &LinkForm::DestXBox_Change, "DestXBox", "DestX", 92, 22},
        {&LinkForm::DestYBox, &LinkForm::DestYBox_Change, "DestYBox", "DestY", 92, 50},
    }};
    form.Frame2.Create(form.Window, "Frame2", {LabelLeft, 182, 208, 84}, "Cords");
    for (int i = 0; i < 4; ++i) {
        const CordsBox& place = Element(Boxes, i);
        const int labelWidth = i < 2 ? 14 : 42;
        Element(form.CordsLabel, i)
            .Create(form.Frame2, MemberName("CordsLabel", i), {place.left, place.top, labelWidth, 22}, place.caption);
        TextBox& box = form.*place.box;
        box.Create(form.Frame2, place.name, {place.left + labelWidth, place.top, 58, 22});
        box.SetAccessibleName(place.caption);
        box.KeyPress = [&form](int KeyAscii) { return form.CordsBox_KeyPress(KeyAscii); };
        box.Change = [&form, change = place.change] { (form.*change)(); };
    }
}

struct ActionCheck {
    CheckBox LinkForm::*box;
    void (LinkForm::*click)();
    const char* name;
    const char* caption;
    int left;
    int top;
};

void MakeActions(LinkForm& form) {
    static constexpr std::array<ActionCheck, 4> Checks{{
        {&LinkForm::ApplyLeftCheck, &LinkForm::ApplyLeftCheck_Click, "ApplyLeftCheck", "Apply Action Left", 12, 23},
        {&LinkForm::ApplyRightCheck, &LinkForm::ApplyRightCheck_Click, "ApplyRightCheck", "Apply Action Right", 142,
         23},
        {&LinkForm::ApplyUpCheck, &LinkForm::ApplyUpCheck_Click, "ApplyUpCheck", "Apply Action Up", 12, 51},
        {&LinkForm::ApplyDownCheck, &LinkForm::ApplyDownCheck_Click, "ApplyDownCheck", "Apply Action Down", 142, 51},
    }};
    form.Frame1.Create(form.Window, "Frame1", {232, 182, 278, 84}, "Actions");
    for (const ActionCheck& place : Checks) {
        CheckBox& box = form.*place.box;
        box.Create(form.Frame1, place.name, {place.left, place.top, 130, 20}, place.caption);
        box.Click = [&form, click = place.click] { (form.*click)(); };
    }
}

void MakeButtons(LinkForm& form) {
    form.DelCmd.Create(form.Window, "DelCmd", {LabelLeft, 276, 130, 26}, "Delete This Link");
    form.DelCmd.Click = [&form] { form.DelCmd_Click(); };
    form.OKCmd.Create(form.Window, "OKCmd", {322, 276, 90, 26}, "OK");
    form.OKCmd.Click = [&form] { form.OKCmd_Click(); };
    form.CancelCmd.Create(form.Window, "CancelCmd", {420, 276, 90, 26}, "Cancel");
    form.CancelCmd.Click = [&form] { form.CancelCmd_Click(); };
}

}  // namespace

void LinkForm::MakeControls() {
    Window.Create("LinkForm", "Level Link Data", WindowWidth, WindowHeight);
    Window.Unload = [this] { Unload(); };
    MakeFieldLabels(*this);
    MakeFields(*this);
    MakeCords(*this);
    MakeActions(*this);
    MakeButtons(*this);
}
