#pragma once

#include <array>

#include "platform/Controls.h"
#include "platform/Screen.h"

/// The name, music, comment, size and start of the world in memory; each edit reaches WorldRecord at once.
/// Closing it after NewWorldPending was set makes the new world's tiles. The tiles of a world that was there
/// before keep their size, whatever the numbers say.
///
/// A start position that is no 16-bit number is fault 13 or 6. Filling the controls is fault 380 for a width
/// above 512 or a height above 256, which the scroll bars do not reach.
struct WorldPropertiesFrm {
    Screen Window;
    std::array<Label, 8> FieldLabel;
    Label FNBox;
    TextBox NameBox;
    Label MusicBox;
    TextBox CommentBox;
    TextBox WidthBox;
    ScrollBar XScroll;
    TextBox HeightBox;
    ScrollBar YScroll;
    TextBox StartXBox;
    TextBox StartYBox;
    Button OKCmd;

    bool Updating = false;  ///< controls are being filled: their handlers do nothing

    void Load();
    void MakeControls();
    void UpdatePropertiesDisplay();
    void Unload();

    [[nodiscard]] bool NumberBox_KeyPress(int KeyAscii);
    void FNBox_Click();
    void NameBox_Change();
    void MusicBox_Click();
    void CommentBox_Change();
    void WidthBox_Change();
    void HeightBox_Change();
    void XScroll_Change();
    void YScroll_Change();
    void StartXBox_Change();
    void StartYBox_Change();
    void OKCmd_Click() { Window.Close(); }
};
