#include "world/LinkForm.h"

#include <algorithm>

#include "core/General.h"
#include "core/ModalWaits.h"
#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Texts.h"
#include "world/WorldReader.h"

namespace {

/// Which controls a link of this type uses.
struct FieldUse {
    int type;
    bool message;
    bool level;  ///< name and extro text
    bool destination;
    bool actions;
};

constexpr FieldUse FieldUses[] = {
    {LevelLink, false, true, false, false},
    {MessageLink, true, false, false, true},
    {TeleportLink, true, false, true, false},
    {InvisibleLink, true, false, true, false},
};

}  // namespace

std::string GetLevelLinkName(const std::string& path) {
    if (IsBlank(path) || path.size() <= UserLevelsFolder.size()) {
        return "";
    }
    std::string name = path.substr(UserLevelsFolder.size() + 1);
    std::ranges::replace(name, '\\', '/');
    return name;
}

int CheckFromFlag(const std::string& flag) { return LowerCase(flag) == "f" ? 0 : 1; }

void LinkForm::Load() {
    MakeControls();
    Updating = false;
    RestorePosition(Window, ScreenIndex::LinkForm, true);
    WorkingLink = WorldRecord.levels[CurrentLink];
    UpdateLinkDisplay();
    FocusFirstField();
}

void LinkForm::UpdateLinkDisplay() {
    Updating = true;
    YieldToEventQueue();
    LinkNumBox.SetCaption(std::to_string(CurrentLink));
    TypeBox.SetCaption(std::string(Element(LinkTypeTable, WorkingLink.type)));
    NameBox.SetCaption(WorkingLink.name);
    ExtroBox.SetCaption(WorkingLink.extro_filename);
    MessageBox.SetText(WorkingLink.message);
    CommentBox.SetText(WorkingLink.comment);
    XBox.SetText(std::to_string(WorkingLink.x));
    YBox.SetText(std::to_string(WorkingLink.y));
    DestXBox.SetText(std::to_string(WorkingLink.dest_x));
    DestYBox.SetText(std::to_string(WorkingLink.dest_y));
    ApplyLeftCheck.SetValue(CheckFromFlag(WorkingLink.apply_action_left));
    ApplyRightCheck.SetValue(CheckFromFlag(WorkingLink.apply_action_right));
    ApplyUpCheck.SetValue(CheckFromFlag(WorkingLink.apply_action_up));
    ApplyDownCheck.SetValue(CheckFromFlag(WorkingLink.apply_action_down));
    EnableFields();
    Updating = false;
}

/// A comment, and a link without a type, leave the controls as they were.
void LinkForm::EnableFields() {
    for (const FieldUse& use : FieldUses) {
        if (use.type == WorkingLink.type) {
            MessageBox.SetEnabled(use.message);
            ExtroBox.SetEnabled(use.level);
            NameBox.SetEnabled(use.level);
            DestXBox.SetEnabled(use.destination);
            DestYBox.SetEnabled(use.destination);
            for (CheckBox* check : {&ApplyLeftCheck, &ApplyRightCheck, &ApplyUpCheck, &ApplyDownCheck}) {
                check->SetEnabled(use.actions);
            }
        }
    }
}

/// Where its user will want to begin, by the type of the link.
void LinkForm::FocusFirstField() {
    switch (WorkingLink.type) {
        case CommentLink: CommentBox.SetFocus(); break;
        case LevelLink: NameBox.SetFocus(); break;
        case NoLink: TypeBox.SetFocus(); break;
        default: MessageBox.SetFocus(); break;
    }
}

/// Also after Cancel the world counts as changed.
void LinkForm::Unload() {
    StorePosition(Window, ScreenIndex::LinkForm);
    WorldChanged = True;
    EnableWorldFrm(true);
    UpdateWorld();
}

bool LinkForm::CordsBox_KeyPress(int KeyAscii) {
    return PassesNumberBox(KeyAscii, [this] { UpdateLinkDisplay(); });
}

void LinkForm::TakeNumber(const TextBox& box, Int16& field) const {
    if (!Updating) {
        field = TextToInt16(box.Text());
    }
}

void LinkForm::TakeText(const TextBox& box, std::string& field) const {
    if (!Updating) {
        field = box.Text();
    }
}

/// A flag is either switched off or left to the game: "t" is never stored.
void LinkForm::TakeFlag(const CheckBox& box, std::string& field) const {
    if (!Updating) {
        field = box.Value() == 0 ? "f" : "";
    }
}

/// This screen stays enabled while the picker is open: it may be closed meanwhile, or ask once more.
void LinkForm::TypeBox_Click() {
    ShowTypePickerModal();
    if (LinkTypeChoice >= 0) {
        WorkingLink.type = LinkTypeChoice;
        UpdateLinkDisplay();
    }
}

void LinkForm::NameBox_Click() {
    if (Updating) {
        return;
    }
    try {
        const std::string& folder = IsBlank(LevelPath) ? UserLevelsFolder : LevelPath;
        WorkingLink.name = GetLevelLinkName(OpenFileDialog({"*.fbl|*.fbl", folder, ""}));
        UpdateLinkDisplay();
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

/// The path stays whole, and as the system spells it.
void LinkForm::ExtroBox_Click() {
    if (Updating) {
        return;
    }
    try {
        WorkingLink.extro_filename = OpenFileDialog({"*.txt|*.txt", LevelsFolder, WorkingLink.extro_filename});
        UpdateLinkDisplay();
    } catch (const Fault&) {  // cancelled, or a failure that is not reported
    }
}

void LinkForm::OKCmd_Click() {
    WorldRecord.levels[CurrentLink] = WorkingLink;
    Window.Close();
}

void LinkForm::DelCmd_Click() {
    DeleteLink(CurrentLink);
    Window.Close();
}
