#include "sidescreens/zBGEditFrm.h"

#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/UpdatingGuard.h"

namespace {

BadGuy& Selected() { return LevelRecord.objects[SelectedBadGuy]; }

/// The last position that a scroll bar reaches in a level of so many tiles.
Int16 LastPixel(Int16 tiles) { return (tiles - 1) * TileSize - 1; }

}  // namespace

void zBGEditFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::zBGEditFrm, true);
    zBGXScroll.SetMax(LastPixel(LevelRecord.width));
    zBGYScroll.SetMax(LastPixel(LevelRecord.height));
    UpdateBadGuyDisplay();
}

void zBGEditFrm::Unload() { StorePosition(Window, ScreenIndex::zBGEditFrm); }

void zBGEditFrm::UpdateBadGuyDisplay() {
    const UpdatingGuard updating(Updating);
    const BadGuy& badGuy = Selected();
    zNameBox.SetCaption(Element(BadGuyTypeTable, badGuy.kind).DisplayName);
    zBGNumBox.SetCaption(std::to_string(SelectedBadGuy));
    zXBox.SetCaption(std::to_string(badGuy.x));
    zYBox.SetCaption(std::to_string(badGuy.y));
    zStayCheck.SetValue(badGuy.stay_on_platform);
    zBGXScroll.SetValue(badGuy.x);
    zBGYScroll.SetValue(badGuy.y);
}

void zBGEditFrm::zStayCheck_Click() {
    if (!Updating) {
        Selected().stay_on_platform = zStayCheck.Value();
    }
}

void zBGEditFrm::zBGXScroll_Change() {
    if (!Updating) {
        Selected().x = zBGXScroll.Value();
        UpdateDisplay();
    }
}

void zBGEditFrm::zBGYScroll_Change() {
    if (!Updating) {
        Selected().y = zBGYScroll.Value();
        UpdateDisplay();
    }
}
