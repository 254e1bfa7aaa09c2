#pragma once

#include <string>

// New levels and level sets. A new level is made in memory only; its file comes with the first save. A level
// set is a folder of UserLevelsFolder that holds an `info` file and the levels.

/// Fills LevelRecord for a new level, and LevelPath with the first of "level1.fbl" to "level99.fbl" that is
/// free in `folder` (with or without a separator at its end; empty is the root). Fields that a new level does
/// not set keep the value of the level before: the start position, the top colours, the autoscroll speed,
/// theme, back scrolling and the end comment. False if no name is free: the lists of bad guys and reset points
/// are emptied then, and nothing else has changed.
bool CreateNewLevel(const std::string& folder);

/// True if there is a level set `name`, that is one with an `info` file. A mere folder does not count.
[[nodiscard]] bool LevelSetExists(const std::string& name);

/// The command of the toolbar: asks if a level is in memory, makes a new one beside it and opens VarsFrm.
void NewLevelCommand();

/// The command of the toolbar: asks for a name, a title and a description, makes the set's folder with its
/// `info` file and a first level in memory, and opens VarsFrm. Asks nothing about the level in memory. Faults
/// 75 and 76 if the folder cannot be made, also because it exists without an `info` file.
void CreateLevelSet();
