#pragma once

#include "platform/Controls.h"
#include "platform/Screen.h"

/// Asks for the title and the description of a new level set. CreateLevelSet waits for it by ModalDone and
/// finds the answer in InfoCreated and CurrentInfo.
struct NewInfoFrm {
    Screen Window;
    Label Label1;
    TextBox TitleBox;
    Label Label2;
    TextBox DescBox;
    Button CreateCmd;
    Button CancelCmd;

    void Load();
    void MakeControls();
    void Unload();

    void TitleBox_Change();
    void DescBox_Change();
    void CreateCmd_Click();
    void CancelCmd_Click();
};
