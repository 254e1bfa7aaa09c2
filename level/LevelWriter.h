#pragma once

#include <string>

// Turns LevelRecord into the text of a level file, and puts that text on disk. Also holds the line-end texts
// that all writers share. Each user of these sets the line ends first; they stay as last set.

extern std::string NL;                   ///< the line end: CR LF or LF
extern std::string QuoteChar;            ///< one double quote
extern std::string CloseLine;            ///< ")" and the line end
extern std::string CloseCloseLine;       ///< "))" and the line end
extern std::string CloseQuoteLine;       ///< quote, ")" and the line end
extern std::string CloseCloseQuoteLine;  ///< quote, "))" and CR LF: UseUnixLineEnds leaves this one alone
extern std::string LevelText;            ///< the text last composed by BuildLevelText

void UseDosLineEnds();   ///< CR LF, for text shown on the screen
void UseUnixLineEnds();  ///< LF, for files

/// Composes LevelText from LevelRecord in the current line ends. Writes the normalised LevelComment and
/// EndComment back to the record. Fault 9 if `width` is above 0 and the maps are smaller.
void BuildLevelText();

/// "t" if object `index` (from 1) stays on its platform, that is if its flag is exactly 1, else "f".
[[nodiscard]] const char* StayOnPlatformText(int index);

/// Stores the level at `path`, with LF line ends; without effect for a blank path. The old file is deleted
/// before the new one is made, and a failure to write is not reported. Faults of BuildLevelText come through,
/// with the old file untouched.
void WriteLevelFile(std::string path);

/// Puts `text` into a new file at `path`, byte for byte. The faults of Files.h.
void WriteTextFile(const std::string& path, const std::string& text);
