#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/Int16.h"

// Lines of text files and the values in them, as level and `info` files have them.

/// A file in reading, line by line. Every read has one of its own, so that one which starts in a yield of another
/// disturbs nothing.
struct LineReader {
    int ReadFileNum = 0;         ///< number of the open input file; 0 before it is opened
    std::string FirstLine;       ///< what the first line read delivered; the whole file in LF mode
    std::string CurrentLine;     ///< the line under examination
    std::int64_t LinePos = 1;    ///< LF mode: position in FirstLine of the next line, from 1; -1 at the end of the file
    std::size_t TilePos = 1;     ///< position in CurrentLine of the next character of tile data, from 1
    bool LfMode = false;         ///< lines are cut out of FirstLine at LF, instead of read from the file
    bool LastLineIsOut = false;  ///< LF mode: a last line without an LF has been delivered
    bool TextIsUsedUp = false;   ///< the last call for a line found none that is new
};

/// Opens the file at `path` with a fresh `in` and delivers its first line into CurrentLine. A first line of more than
/// `longestDosLine` characters holds the whole file: LF mode. The faults of FreeFileNumber, OpenForInput and LineInput.
/// The file stays open.
void ReadFirstLine(LineReader& in, const std::string& path, std::size_t longestDosLine);

/// Delivers the next line into CurrentLine, after a yield. At the end of the file LinePos becomes -1. In LF
/// mode a last line of two or more characters without an LF is delivered again at every call.
void ReadNextLine(LineReader& in);

/// ReadNextLine for loops over lines that have no end of their own: false at the end of the file, and
/// RestIfTextIsUsedUp before that.
bool ReadLineBeforeEnd(LineReader& in);

/// Once the text is used up, that is behind the end of the file or when its last line has come again, nothing but an
/// event can change anything, and this sleeps until one comes.
void RestIfTextIsUsedUp(const LineReader& in);

/// `value` with the character of a digit behind it. Fault 6 beyond 32767.
[[nodiscard]] inline Int16 AppendDigit(Int16 value, int character) { return value * 10 + (character - '0'); }

// Value scanners. `start` counts from 1; each stops at ")" or at the end of `line`.

/// All digits, taken as one number; everything else is skipped, signs and points too. Fault 6 beyond 32767,
/// also when `line` itself has more than 32767 characters.
[[nodiscard]] Int16 ParseIntValue(std::string_view line, std::size_t start);

/// What stands between the first two double quotes; empty without quotes. The ")" ends the value within
/// quotes too.
[[nodiscard]] std::string ParseStringValue(std::string_view line, std::size_t start);

/// The digits and points, taken as one number; never negative. Fault 13 if that is no number.
[[nodiscard]] double ParseFloatValue(std::string_view line, std::size_t start);
