#pragma once

#include <array>
#include <string>
#include <variant>

#include "level/LevelRecord.h"
#include "platform/Controls.h"
#include "platform/ImageCell.h"
#include "platform/Screen.h"

/// The level's variables. There is no OK and no Cancel: each edit reaches LevelRecord at once. Also holds the
/// choices for the ending of new levels. VarsFrmLayout.cpp makes and places the controls.
struct VarsFrm {
    static constexpr int FixedLabels = 24;

    Screen Window;
    std::array<Label, FixedLabels> FixedLabel;
    Label FileNameBox;
    TextBox CommentBox;
    TextBox VersionBox;
    TextBox AuthorBox;
    TextBox NameBox;
    TextBox WidthBox;
    TextBox HeightBox;  ///< disabled: the game knows one height
    TextBox StartXBox;
    TextBox StartYBox;
    Label BackgroundBox;
    Label MusicBox;
    TextBox BkgRedTopBox;
    TextBox BkgGrnTopBox;
    TextBox BkgBluTopBox;
    TextBox BkgRedBtmBox;
    TextBox BkgGrnBtmBox;
    TextBox BkgBluBtmBox;
    TextBox BkgSpeedBox;
    TextBox ScrollSpeedBox;
    TextBox TimeBox;
    TextBox GravityBox;
    Label ParticleBox;
    Label ThemeBox;
    CheckBox BackScrollCheck;
    TextBox EndCommentBox;  ///< shows its field; what is typed is not stored
    Label NumsBox;
    Button CloseCmd;

    Frame Frame1;
    CheckBox AddEndCheck;
    CheckBox IglooCheck;
    Label Label25;
    ImageCell FloorImg;
    // Without logic: the ending has one sequence and one final.
    Label EndSeqBox;
    ScrollBar SeqScroll;
    Label EndFinalBox;
    ScrollBar FinalScroll;

    /// A box whose text goes to its field at every keystroke: texts as they stand; whole numbers converted, with
    /// no range of their own; real numbers converted unless they do not convert.
    struct FieldBox {
        TextBox VarsFrm::*box;
        std::variant<std::string Level::*, Int16 Level::*, double Level::*> field;
    };

    bool Updating = false;  ///< controls are being filled: guarded handlers do nothing

    void Load();
    void MakeControls();
    void Unload();
    void UpdateVarsDisplay();
    void ShowFields();
    void ShowEndingChoice();

    /// Faults 6 and 13 for a text that is no 16-bit number, where the field is one.
    void FieldBox_Change(const FieldBox& entry);
    void WidthBox_Change();
    void HeightBox_Change();
    [[nodiscard]] bool SizeBox_KeyPress(int KeyAscii);
    void BackScrollCheck_Click();
    void ParticleBox_Click();
    void ThemeBox_Click();
    void ChooseBackground();
    void ChooseMusic();

    void AddEndCheck_Click();
    void IglooCheck_Click();
    void FloorImg_Click();
};
