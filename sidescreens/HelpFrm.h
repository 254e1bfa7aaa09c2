#pragma once

#include <string>

#include "platform/Controls.h"
#include "platform/Screen.h"
#include "platform/TextArea.h"

/// The help text as last read or saved. It stays for the whole run, so that the file is read only once.
extern std::string HelpText;

/// Shows the text file beside the program, lets the user edit it and save it back. Edits that are not saved are
/// lost at closing.
struct HelpFrm {
    Screen Window;
    Button DummyCmd;  ///< out of sight; takes the focus from a button that vanishes
    TextArea HelpBox;
    Button SaveHelpCmd;  ///< visible only while there is something to save
    Button CloseCmd;

    bool Updating = false;     ///< HelpBox is being filled, which is no edit
    std::string HelpFileName;  ///< full path; always beside the program, of which it is a part

    void Load();
    void MakeControls();
    void Unload();

    /// A file that cannot be read is no failure: HelpText is then what came before that.
    void LoadHelpText();
    void HelpBox_Change();
    /// The faults of Files.h for a file that cannot be written; the old one has been deleted then.
    void SaveHelpCmd_Click();
    void CloseCmd_Click();
};
