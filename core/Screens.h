#pragma once

#include <string>

#include "platform/Int16.h"

// The door between screens: every way in which one module reaches a screen that it may not include.
// Screens.cpp defines these in a few lines each; a test links a double in its place.
//
// Only Load... and Open... make a screen, a side screen only above a loaded one. All others act on a loaded screen, and
// else do nothing: a screen that its user has closed meanwhile does not come back.

// MainFrm, the level editor.
void LoadMainFrm();                    ///< makes the screen and runs its start-up, without showing it
void ShowMainFrm();                    ///< shows it, also after the world editor has hidden it
void SetMapXScrollMax(Int16 maximum);  ///< largest first column of the map view
void UpdateDisplay();                  ///< redraws the whole screen from the records
void ClearBadGuySlots();               ///< forgets which bad guy each sprite shows

// The side screens. What opening one takes from the screen below, its closing gives back before its Unload runs.
void OpenVarsFrm();       ///< the variables of the level; MainFrm is busy until it closes
void OpenBackGndFrm();    ///< the choice of a background; VarsFrm is disabled; sets ModalDone when it closes
void OpenNewInfoFrm();    ///< the texts of a new level set; MainFrm stays enabled; sets ModalDone when it closes
void OpenNukTextFrm();    ///< the texts of the level and of its INFO file; MainFrm is busy until it closes
void OpenBadGuyEditor();  ///< the properties of SelectedBadGuy; MainFrm is disabled until it closes
void OpenHelpFrm();       ///< the help text; MainFrm is disabled until it closes

// The world map editor and its side screens.
void OpenWorldFrm();         ///< MainFrm is busy until it closes, and hidden once it has loaded
void UpdateWorld();          ///< redraws the whole screen from WorldRecord
void OpenLinkForm();         ///< the editor of link CurrentLink; WorldFrm is disabled until it closes
void OpenTypePicker();       ///< the choice of a link's type; LinkForm stays enabled; sets ModalDone when it closes
void OpenWorldProperties();  ///< the scalar fields of the world; WorldFrm is disabled until it closes
