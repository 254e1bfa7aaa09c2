#pragma once

/// Sets the logon name, the texts, the folders and the tables of SharedState.h, and LevelLoaded to false.
void InitConstants();

/// Copies the saved selections into the working ones, each with its own clamp.
void RestoreSelections();

/// Starts the program: constants, preferences, selections; then loads and shows MainFrm. Returns before the
/// first event is handled. A fault ends the process, with advice on how to start again: what the preferences say is
/// what the start does, and it would do the same the next time.
void Main();
