#pragma once

#include <string>

#include "platform/Controls.h"
#include "platform/Screen.h"
#include "platform/TextArea.h"

/// Shows the `info` file and the level's file as they would be written now, and writes the `info` file. Typing
/// into the boxes changes nothing but the boxes: what is written comes from CurrentInfo.
struct NukTextFrm {
    Screen Window;
    Label Label1;
    Label InfoNameBox;
    TextArea InfoBox;
    Button WriteInfoCmd;
    Label Label2;
    TextArea DataBox;
    Button CloseCmd;

    std::string InfoName;  ///< full path of the INFO file on show, or of a level beside it

    /// Fault 9 if the level has a width and no maps.
    void Load();
    void MakeControls();
    void Unload();

    void ShowInfo();
    void InfoNameBox_Click();
    /// The faults of Files.h; there is no trap.
    void WriteInfoCmd_Click();
    void CloseCmd_Click() { Window.Close(); }
};
