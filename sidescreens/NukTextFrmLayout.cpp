#include "sidescreens/NukTextFrm.h"

// Where everything on the level text screen stands. Pixels.

void NukTextFrm::MakeControls() {
    Window.Create("NukTextFrm", "Floebird Level Text Data", 760, 580);
    Window.Unload = [this] { Unload(); };
    Label1.Create(Window, "Label1", {10, 10, 60, 19}, "INFO File");
    InfoNameBox.Create(Window, "InfoNameBox", {74, 10, 676, 19}, "Click to Open an INFO File.");
    InfoNameBox.SetSunken();
    InfoNameBox.Click = [this] { InfoNameBox_Click(); };
    InfoBox.Create(Window, "InfoBox", {10, 35, 740, 104}, TextArea::Lines::Unbroken);
    InfoBox.SetAccessibleName("INFO File");
    WriteInfoCmd.Create(Window, "WriteInfoCmd", {600, 147, 150, 26}, "Save INFO Changes");
    WriteInfoCmd.Click = [this] { WriteInfoCmd_Click(); };
    Label2.Create(Window, "Label2", {10, 158, 200, 19}, "Level Text Data");
    DataBox.Create(Window, "DataBox", {10, 181, 740, 353}, TextArea::Lines::Unbroken);
    DataBox.SetAccessibleName("Level Text Data");
    CloseCmd.Create(Window, "CloseCmd", {660, 544, 90, 26}, "Close");
    CloseCmd.Click = [this] { CloseCmd_Click(); };
}
