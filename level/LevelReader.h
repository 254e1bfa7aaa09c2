#pragma once

#include <string>
#include <string_view>

#include "platform/Int16.h"

// Reads level files into LevelRecord.

/// Reads the level at `path` and the `info` file beside it. `path` becomes LevelPath whatever follows. Sets
/// LevelLoaded at success; any failure, of whatever kind, shows one message, and the record keeps what was
/// stored until then. The caller sets ResetPointCount and BadGuyCount to 0 first.
void ReadLevelFile(std::string path);

/// The row of BadGuyTypeTable whose keyword is `name`, with 1 added to its count in use (fault 6 beyond
/// 32767); -1, and nothing counted, for an unknown one.
Int16 FindBadGuyType(std::string_view name);
