#pragma once

#include <string>

// The `info` file of a level set: its title and description.

extern std::string InfoText;  ///< the text last composed by BuildInfoText

/// Reads the `info` file in the folder of `path` (a level's path, or the `info` file's own) into CurrentInfo.
/// A missing or unreadable file is no failure: what is not read keeps its old value.
void ReadInfoFile(const std::string& path);

/// Composes InfoText from CurrentInfo in the current line ends.
void BuildInfoText();

/// Stores the `info` file at `path`, with LF line ends; without effect for a blank path. Reports no failure.
void WriteInfoFile(const std::string& path);
