#pragma once

#include <string>

#include "platform/Int16.h"

// Reads world map files into WorldRecord; also the other routines that make and change that record as a whole.

/// Gives WorldRecord its defaults: 18 by 15, start at (3, 3), a single cell, no links, and clears WorldLoaded.
void ResetWorld();

/// Makes the tiles anew by `width` and `height`, all of them tile 9, and sets WorldLoaded. Column `width` and
/// row `height` stay 0. Fault 9 if one of the two is negative.
void BuildBlankWorld();

/// Appends a link to a level at column `x` and row `y` and makes it CurrentLink. Fault 6 beyond 32767 links.
void AddInNewLink(Int16 x, Int16 y);

/// Takes link `index` out; later links move one place down. Without effect outside 1 to LinkCount.
void DeleteLink(int index);

/// Reads the world map at `path`, which becomes WorldPath. The world before is gone in any case.
///
/// First, the file of the WorldPath before must still exist (an empty WorldPath will do); if not, a message
/// names it and nothing is read. WorldLoaded tells success. What the format does not allow gives a number in
/// WorldReadError. Faults: those of Files.h (the file stays open then), those of TextToInt16 for a number, 9
/// for a negative map size, 7 for one beyond memory, 6 for more than 32767 links or comments; all of them
/// leave the record as far as it was read. Never returns when a quoted text is not closed: a screen must be closed
/// then.
void ReadWorldFile(const std::string& path);
