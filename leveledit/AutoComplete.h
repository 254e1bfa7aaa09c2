#pragma once

#include "platform/Int16.h"

// Completes a shape of several tiles when its first tile is painted. `tile` already stands at (x, y); a tile
// that starts no shape, or one whose guards fail, changes nothing, so that no shape is ever left half.
// Positions are columns and rows from 0. Fault 9 where a shape reaches beyond the layer.

void AutoCompleteBackground(Int16 tile, Int16 x, Int16 y);
void AutoCompleteInteractive(Int16 tile, Int16 x, Int16 y);
void AutoCompleteForeground(Int16 tile, Int16 x, Int16 y);
