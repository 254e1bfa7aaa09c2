#include "core/SharedState.h"
#include "leveledit/MainFrm.h"
#include "platform/Dialogs.h"

namespace {

constexpr int MarkerTile = 81;
constexpr int LeastDistance = 10;  // columns between two reset points

bool AnotherIsNear(Int16 x) {
    const Int16 low = (x - LeastDistance) * TileSize;
    const Int16 high = (x + LeastDistance) * TileSize;
    for (int i = 1; i <= LevelRecord.ResetPointCount; ++i) {
        const Int16 other = LevelRecord.reset_points[i].x;
        if (other > low && other < high) {
            return true;
        }
    }
    return false;
}

/// Puts the marker into the first layer that has room for it; without room there is none.
void PutMarker(int x, int row) {
    for (TileMap* layer : {&LevelRecord.interactive_tm, &LevelRecord.foreground_tm}) {
        if (Int16& tile = (*layer)(x, row); tile == 0) {
            tile = MarkerTile;
            return;
        }
    }
}

}  // namespace

void MainFrm::SetNukCmd_Click() {
    DummyCmd.SetFocus();
    if (PickingStart) {
        PickingStart = false;
        SetNukCmd.SetCaption("Set Starting Position");
        Window.SetDefaultPointer();
    } else {
        PickingStart = true;
        SetNukCmd.SetCaption("Select Desired Nuk Position");
        Window.SetPointer(FixedPicture("NukIcon"));
    }
}

void MainFrm::TakeStartPosition(Int16 x, Int16 row) {
    LevelRecord.start_pos_x = x * TileSize;
    LevelRecord.start_pos_y = row * TileSize;
    SetNukCmd.SetCaption("Set Starting Position");
    Window.SetDefaultPointer();
    UpdateDisplay();
    PickingStart = false;
}

void MainFrm::AddResetPoint(Int16 x, Int16 row) {
    if (LevelRecord.ResetPointCount >= 1 && AnotherIsNear(x)) {
        ShowMessage("Another reset point is within 10 tiles", "Reset Point Setting Error", MessageButtons::Ok,
                    MessageIcon::Warning);
        return;
    }
    LevelRecord.ResetPointCount += 1;
    LevelRecord.reset_points.Resize(LevelRecord.ResetPointCount);
    LevelRecord.reset_points[LevelRecord.ResetPointCount] = {x * TileSize, row * TileSize};
    if (row >= 1) {
        PutMarker(x, row - 1);
    }
    UpdateDisplay();
}
