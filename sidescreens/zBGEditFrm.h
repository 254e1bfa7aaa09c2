#pragma once

#include "platform/Controls.h"
#include "platform/ImageCell.h"
#include "platform/Screen.h"

/// The properties of SelectedBadGuy, over MainFrm's map: scroll bars move it, and the map follows each step.
/// Every change goes straight into the level.
struct zBGEditFrm {
    Screen Window;
    Button DummyCmd;  ///< out of sight; holds the focus at the start
    ImageCell zBGImg;
    Label zNameBox;
    Label IndexLabel;
    Label zBGNumBox;
    Label XLabel;
    Label zXBox;  ///< `x` when the screen opened: what one may want to go back to
    Label YLabel;
    Label zYBox;  ///< `y` when the screen opened
    Label XScrollLabel;
    ScrollBar zBGXScroll;
    Label YScrollLabel;
    ScrollBar zBGYScroll;
    CheckBox zStayCheck;
    Button CloseCmd;

    bool Updating = false;  ///< the controls are being filled: their handlers do nothing

    /// Fault 6 for a level of more than 1024 columns or rows, fault 9 for a kind that is not in BadGuyTypeTable,
    /// fault 380 for a position outside the scroll bars, which end a pixel before the last column and row.
    void Load();
    void MakeControls();
    void Unload();

    void UpdateBadGuyDisplay();
    void zStayCheck_Click();
    void zBGXScroll_Change();
    void zBGXScroll_Scroll() { zBGXScroll_Change(); }
    void zBGYScroll_Change();
    void zBGYScroll_Scroll() { zBGYScroll_Change(); }
    void CloseCmd_Click() { Window.Close(); }
};
