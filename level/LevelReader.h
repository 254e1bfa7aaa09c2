#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Int16.h"

// Reads level files into LevelRecord. Also the home of the line reader and the value scanners, which the
// `info` files share. Only one file can be in reading at a time: the working state is process-wide, and a
// read that starts inside a yield of another one disturbs it.

extern int ReadFileNum;          ///< number of the open input file
extern std::string CurrentLine;  ///< the line under examination
extern std::int64_t LinePos;     ///< LF mode: position in the file of the next line, from 1; -1 at the end of the file

/// Reads the level at `path` and the `info` file beside it. `path` becomes LevelPath whatever follows. Sets
/// LevelLoaded at success; any failure, of whatever kind, shows one message, and the record keeps what was
/// stored until then. The caller sets ResetPointCount and BadGuyCount to 0 first.
void ReadLevelFile(std::string path);

/// Opens the file at `path` and delivers its first line into CurrentLine. A first line of more than
/// `longestDosLine` characters holds the whole file: LF mode, in which the lines are cut out of it at LF. The faults
/// of FreeFileNumber, OpenForInput and LineInput.
void ReadFirstLine(const std::string& path, std::size_t longestDosLine);

/// Delivers the next line into CurrentLine, after a yield. At the end of the file LinePos becomes -1. In LF
/// mode a last line of two or more characters without an LF is delivered again at every call.
void ReadNextLine();

/// To be called by loops over lines that have no end of their own: once the text is used up, that is behind the end of
/// the file or when its last line has come again, nothing but an event can change anything, and this sleeps until one
/// comes.
void RestIfTextIsUsedUp();

/// The row of BadGuyTypeTable whose keyword is `name`, with 1 added to its count in use (fault 6 beyond
/// 32767); -1, and nothing counted, for an unknown one.
Int16 FindBadGuyType(std::string_view name);

// Value scanners. `start` counts from 1; each stops at ")" or at the end of `line`.

/// All digits, taken as one number; everything else is skipped, signs and points too. Fault 6 beyond 32767,
/// also when `line` itself has more than 32767 characters.
[[nodiscard]] Int16 ParseIntValue(std::string_view line, std::size_t start);

/// What stands between the first two double quotes; empty without quotes. The ")" ends the value within
/// quotes too.
[[nodiscard]] std::string ParseStringValue(std::string_view line, std::size_t start);

/// The digits and points, taken as one number; never negative. Fault 13 if that is no number.
[[nodiscard]] double ParseFloatValue(std::string_view line, std::size_t start);
