#pragma once

#include <string>

#include "platform/Int16.h"

// The door between screens: every way in which one module reaches a screen that it may not include.
// Screens.cpp defines these in a line or two each; a test links a double in its place.
//
// Only Load... and Open... make a screen, a side screen only above a loaded one. All others act on a loaded screen, and
// else do nothing: a screen that its user has closed meanwhile does not come back.

// MainFrm, the level editor.
void LoadMainFrm();                          ///< makes the screen and runs its start-up, without showing it
void ShowMainFrm();                          ///< shows it, also after the world editor has hidden it
void SetMapXScrollMax(Int16 maximum);        ///< largest first column of the map view
void ShowFileName(const std::string& text);  ///< puts `text` into FileNameBox
void UpdateDisplay();                        ///< redraws the whole screen from the records
void EnableMainFrm(bool enabled);            ///< whether it takes input
void SetMainFrmBusy(bool busy);              ///< disabled under the hourglass, as while a side screen is open
void ClearBadGuySlots();                     ///< forgets which bad guy each sprite shows

// The side screens.
void OpenVarsFrm();                ///< the variables of the level; MainFrm is busy until it closes
void EnableVarsFrm(bool enabled);  ///< whether it takes input
void OpenBackGndFrm();             ///< the choice of a background; sets ModalDone when it closes
void OpenNewInfoFrm();             ///< the texts of a new level set; sets ModalDone when it closes
void OpenNukTextFrm();             ///< the texts of the level and of its INFO file; MainFrm is busy until it closes
void OpenBadGuyEditor();           ///< the properties of SelectedBadGuy; MainFrm is disabled until it closes
void OpenHelpFrm();                ///< the help text; MainFrm is disabled until it closes

// The world map editor and its side screens.
bool OpenWorldFrm();                ///< loads and shows it; false if its user has closed it in a long read
void EnableWorldFrm(bool enabled);  ///< whether it takes input
void UpdateWorld();                 ///< redraws the whole screen from WorldRecord
void OpenLinkForm();                ///< the editor of link CurrentLink; WorldFrm is enabled when it closes
void OpenTypePicker();              ///< the choice of a link's type; sets ModalDone when it closes
void OpenWorldProperties();         ///< the scalar fields of the world; WorldFrm is enabled when it closes
