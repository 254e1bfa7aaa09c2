#include "level/LevelEnding.h"

#include "core/SharedState.h"

namespace {

constexpr int IglooRow = 8;
constexpr int IglooBack = 126;
constexpr int IglooFront = 127;
constexpr int EndMarker = 132;
constexpr int SequenceMarker = 133;
constexpr int FloorRow = 14;
constexpr int FloorColumns = 22;  // counted from the right edge

// The one floor that has a second row on top of it.
constexpr int TwoRowFloor = 37;
constexpr int TwoRowFloorTop = 34;

}  // namespace

void AddLevelEnding() {
    const Int16 width = LevelRecord.width;
    const Int16 floor = PrefsRecord.FloorTile;
    TileMap& interactive = LevelRecord.interactive_tm;
    if (PrefsRecord.IglooState > 0) {
        LevelRecord.background_tm(width - 10, IglooRow) = IglooBack;
        LevelRecord.foreground_tm(width - 7, IglooRow) = IglooFront;
    }
    for (int row = 0; row < FloorRow; ++row) {
        interactive(width - 4, row) = EndMarker;
        interactive(width - 20, row) = SequenceMarker;
    }
    for (int column = width - FloorColumns; column < width; ++column) {
        if (floor == TwoRowFloor) {
            interactive(column, FloorRow - 1) = TwoRowFloorTop;
        }
        interactive(column, FloorRow) = floor;
    }
}
