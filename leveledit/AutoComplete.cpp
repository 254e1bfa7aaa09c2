#include "leveledit/AutoComplete.h"

#include <vector>

#include "core/SharedState.h"

namespace {

struct ShapeTile {
    int dx;
    int dy;
    int tile;
};

enum class ForegroundGuard { AsOtherLayers, RowAgainstWidth };

constexpr int AnyRow = 32767;

/// A shape and where it may be laid: x + `columns` must not pass the level's width, and y not `lowestRow`.
struct Shape {
    int starter;
    int columns;
    int lowestRow;
    ForegroundGuard foreground;
    std::vector<ShapeTile> tiles;
};

// The guards are looser in places than the shapes need, and tighter in others: levels were made with them.
const Shape Shapes[] = {
    {50, 2, 13, ForegroundGuard::AsOtherLayers, {{1, 0, 49}, {0, 1, 51}, {1, 1, 52}}},
    {53, 2, AnyRow, ForegroundGuard::RowAgainstWidth, {{0, 1, 54}}},
    {55, 2, AnyRow, ForegroundGuard::RowAgainstWidth, {{0, 1, 56}}},
    {57, 2, AnyRow, ForegroundGuard::AsOtherLayers, {{1, 0, 58}}},
    {59, 2, AnyRow, ForegroundGuard::AsOtherLayers, {{1, 0, 60}}},
    {85,
     4,
     13,
     ForegroundGuard::AsOtherLayers,
     {{1, 0, 86}, {2, 0, 87}, {3, 0, 88}, {0, 1, 89}, {1, 1, 90}, {2, 1, 91}, {3, 1, 92}}},
    {106, 3, 13, ForegroundGuard::AsOtherLayers, {{1, 0, 107}, {2, 0, 108}, {0, 1, 109}, {1, 1, 110}, {2, 1, 111}}},
    {115, 2, 12, ForegroundGuard::AsOtherLayers, {{1, 0, 116}, {0, 1, 117}, {1, 1, 118}}},
    {122, 2, AnyRow, ForegroundGuard::AsOtherLayers, {{1, 0, 123}}},
    {124, 2, AnyRow, ForegroundGuard::AsOtherLayers, {{1, 0, 125}}},
    {134, 2, AnyRow, ForegroundGuard::AsOtherLayers, {{1, 0, 135}}},
    {136, 2, 12, ForegroundGuard::AsOtherLayers, {{1, 0, 137}, {0, 1, 138}, {1, 1, 139}}},
};

bool Fits(const Shape& shape, Int16 x, Int16 y, bool foreground) {
    if (foreground && shape.foreground == ForegroundGuard::RowAgainstWidth) {
        return y <= LevelRecord.width - 2;
    }
    return x + shape.columns <= LevelRecord.width && y <= shape.lowestRow;
}

void Complete(TileMap& layer, Int16 tile, Int16 x, Int16 y, bool foreground) {
    for (const Shape& shape : Shapes) {
        if (shape.starter == tile && Fits(shape, x, y, foreground)) {
            for (const ShapeTile& part : shape.tiles) {
                layer(x + part.dx, y + part.dy) = part.tile;
            }
        }
    }
}

}  // namespace

void AutoCompleteBackground(Int16 tile, Int16 x, Int16 y) { Complete(LevelRecord.background_tm, tile, x, y, false); }

void AutoCompleteInteractive(Int16 tile, Int16 x, Int16 y) { Complete(LevelRecord.interactive_tm, tile, x, y, false); }

void AutoCompleteForeground(Int16 tile, Int16 x, Int16 y) { Complete(LevelRecord.foreground_tm, tile, x, y, true); }
