#include "sidescreens/HelpFrm.h"

// Where everything on the help screen stands. Pixels.

void HelpFrm::MakeControls() {
    Window.Create("HelpFrm", "FB_Editor Help", 640, 500);
    Window.Unload = [this] { Unload(); };
    DummyCmd.Create(Window, "DummyCmd", {-200, -200, 80, 24}, "DummyCmd");
    HelpBox.Create(Window, "HelpBox", {10, 10, 620, 444}, TextArea::Lines::Wrapped);
    HelpBox.SetAccessibleName("Help text");
    DummyCmd.HoldFocusFor({&HelpBox});
    HelpBox.Change = [this] { HelpBox_Change(); };
    SaveHelpCmd.Create(Window, "SaveHelpCmd", {10, 464, 130, 26}, "Save Help File");
    SaveHelpCmd.Click = [this] { SaveHelpCmd_Click(); };
    CloseCmd.Create(Window, "CloseCmd", {540, 464, 90, 26}, "Close");
    CloseCmd.Click = [this] { CloseCmd_Click(); };
}
