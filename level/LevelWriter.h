#pragma once

#include <string>

// Turns LevelRecord into the text of a level file, and puts that text on disk.

extern std::string LevelText;  ///< the text last composed by BuildLevelText

/// Composes LevelText from LevelRecord in the current line ends, both as they are at the call: what happens in its
/// yields comes too late for this text. Writes the normalised LevelComment and EndComment back to the record. Fault 9
/// if `width` is above 0 and the maps are smaller, fault 6 for the least of all widths; LevelText is then what it was.
void BuildLevelText();

/// Stores the level at `path`, with LF line ends; without effect for a blank path. The old file is deleted
/// before the new one is made, and a failure to write is not reported. Faults of BuildLevelText come through,
/// with the old file untouched.
void WriteLevelFile(std::string path);
