#pragma once

#include <string>

#include "platform/Int16.h"

// The door between screens: every way in which one module reaches a screen that it may not include.
// Screens.cpp defines these in a line or two each; a test links a double in its place.

// MainFrm, the level editor.
void LoadMainFrm();                          ///< makes the screen and runs its start-up, without showing it
void ShowMainFrm();                          ///< shows it, or brings it back after HideMainFrm
void SetMapXScrollMax(Int16 maximum);        ///< largest first column of the map view
void ShowFileName(const std::string& text);  ///< puts `text` into FileNameBox
void UpdateDisplay();                        ///< redraws the whole screen from the records
void EnableMainFrm(bool enabled);            ///< whether it takes input
void SetMainFrmBusy(bool busy);              ///< hourglass and no input, or default pointer and input

// The side screens.
void OpenBadGuyEditor();  ///< the properties of SelectedBadGuy
void OpenHelpFrm();
void OpenNukTextFrm();  ///< the texts of the level and of its INFO file
