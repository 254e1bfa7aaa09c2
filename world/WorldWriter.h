#pragma once

#include <string>

// Turns WorldRecord into the text of a world map file, and puts that text on disk.

extern std::string WorldOutput;  ///< the text last composed by BuildWorldText

/// Composes WorldOutput from WorldRecord, in LF line ends (an `extro-filename` line alone ends in CR LF, as
/// CloseCloseQuoteLine does). The header comment is put in order in the record too. Fault 9 if the tiles are
/// fewer than `width` and `height` say, fault 6 if one of these has nothing below it; WorldOutput then stays.
void BuildWorldText();

/// Stores WorldOutput at `path` and clears WorldChanged; without effect for an empty path. The old file is
/// deleted before the new one is made. A failure shows a message.
void WriteWorldFile(const std::string& path);
