#pragma once

#include <array>

#include "platform/Controls.h"
#include "platform/Screen.h"

/// The picker for the type of a link. Its answer is LinkTypeChoice: a type, or -1 for none. It sets ModalDone
/// when it closes; ShowTypePickerModal waits for that.
struct zTypeFrm {
    Screen Window;
    std::array<Label, 4> TypeBox;  ///< types 2 to 5
    Button CancelCmd;

    void Load();
    void MakeControls();
    void Unload();
    void TypeBox_Click(int Index);
};
