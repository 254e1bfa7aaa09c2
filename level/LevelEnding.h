#pragma once

/// Paints the arrangement that ends a level at its right edge: two columns of marker tiles, the floor below
/// them, and the igloo if IglooState is above 0. Takes `width`, IglooState and FloorTile as they stand and
/// relies on layers that have just been made; nothing is cleared. Whether an ending is wanted at all
/// (AddEndState) is up to the caller. Fault 9 if `width` is below 22, with what fits of igloo and markers painted.
void AddLevelEnding();
