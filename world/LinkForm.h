#pragma once

#include <array>
#include <string>

#include "platform/Controls.h"
#include "platform/Screen.h"
#include "world/WorldRecord.h"

/// The name under which a link leads to the level at `path`: what stands behind UserLevelsFolder and its
/// separator, with "/" between folders. As many characters as that folder has are taken off any path,
/// wherever it leads; nothing is left of one that is no longer.
[[nodiscard]] std::string GetLevelLinkName(const std::string& path);

/// The state of a check box for a link's flag text: 0 for "f" or "F", 1 for any other.
[[nodiscard]] int CheckFromFlag(const std::string& flag);

/// The link editor: shows entry CurrentLink of WorldRecord.levels and works on a copy of it, which only OK
/// writes back. Closing it, by whatever way, marks the world as changed and gives WorldFrm back to its user.
///
/// A coordinate box that holds no 16-bit number is fault 13 or 6 at the keystroke that made it so.
struct LinkForm {
    Screen Window;
    std::array<Label, 6> FieldLabel;
    Label LinkNumBox;
    Label TypeBox;
    Label NameBox;
    Label ExtroBox;
    TextBox MessageBox;
    TextBox CommentBox;
    Frame Frame2;
    std::array<Label, 4> CordsLabel;
    TextBox XBox;
    TextBox YBox;
    TextBox DestXBox;
    TextBox DestYBox;
    Frame Frame1;
    CheckBox ApplyLeftCheck;
    CheckBox ApplyRightCheck;
    CheckBox ApplyUpCheck;
    CheckBox ApplyDownCheck;
    Button OKCmd;
    Button CancelCmd;
    Button DelCmd;

    WorldLink WorkingLink;  ///< what the controls show and change
    bool Updating = false;  ///< controls are being filled: their handlers do nothing

    void Load();
    void MakeControls();
    void UpdateLinkDisplay();
    void EnableFields();
    void FocusFirstField();
    void Unload();

    [[nodiscard]] bool CordsBox_KeyPress(int KeyAscii);
    void TakeNumber(const TextBox& box, Int16& field) const;
    void TakeText(const TextBox& box, std::string& field) const;
    void TakeFlag(const CheckBox& box, std::string& field) const;

    void TypeBox_Click();
    void NameBox_Click();
    void ExtroBox_Click();
    void MessageBox_Change() { TakeText(MessageBox, WorkingLink.message); }
    void CommentBox_Change() { TakeText(CommentBox, WorkingLink.comment); }
    void XBox_Change() { TakeNumber(XBox, WorkingLink.x); }
    void YBox_Change() { TakeNumber(YBox, WorkingLink.y); }
    void DestXBox_Change() { TakeNumber(DestXBox, WorkingLink.dest_x); }
    void DestYBox_Change() { TakeNumber(DestYBox, WorkingLink.dest_y); }
    void ApplyLeftCheck_Click() { TakeFlag(ApplyLeftCheck, WorkingLink.apply_action_left); }
    void ApplyRightCheck_Click() { TakeFlag(ApplyRightCheck, WorkingLink.apply_action_right); }
    void ApplyUpCheck_Click() { TakeFlag(ApplyUpCheck, WorkingLink.apply_action_up); }
    void ApplyDownCheck_Click() { TakeFlag(ApplyDownCheck, WorkingLink.apply_action_down); }
    void OKCmd_Click();
    void CancelCmd_Click() { Window.Close(); }
    void DelCmd_Click();
};
