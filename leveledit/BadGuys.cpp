#include <algorithm>

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "leveledit/MainFrm.h"
#include "platform/Conversions.h"
#include "platform/Texts.h"

namespace {

const char* StayText(const BadGuy& badGuy) {
    return badGuy.stay_on_platform != 0 ? ", Stay On Platform = YES" : ", Stay On Platform = NO";
}

/// What a number box says, or `former` while it says nothing that a position can be: a box is empty for a
/// moment whenever its number is typed anew.
Int16 TypedNumber(const TextBox& box, Int16 former) {
    try {
        return TextToInt16(box.Text());
    } catch (const Fault&) {
        return former;
    }
}

/// A sprite that has lost its bad guy, as by a new level that found no name, stays until the next drawing.
bool IsFree(const MainFrm::BGSlot& slot) { return slot.object < 1 || slot.object > LevelRecord.BadGuyCount; }

}  // namespace

void MainFrm::ModeOption_Click(int Index) {
    CurrentMode = Index;
    DelBadGuyCmd.SetVisible(Index == EditBadGuysMode && SelectedBadGuy >= 0);
    if (CurrentMode == PlaceBadGuysMode) {
        SelectedBadGuy = -1;
    }
    UpdateDisplay();
}

void MainFrm::ObjSelImg_Click(int Index) {
    CurrentObject = Index;
    UpdateDisplay();
}

void MainFrm::PlaceBadGuy(Int16 x, Int16 row, int X, int Y) {
    const Int16 px = RoundToInt16(static_cast<double>(MapReadOut(x, X)));
    const Int16 py = RoundToInt16(static_cast<double>(MapReadOut(row, Y)));
    const auto kind = static_cast<std::size_t>(CurrentObject);
    LevelRecord.BadGuyCount += 1;
    LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
    LevelRecord.objects[LevelRecord.BadGuyCount] = {CurrentObject, std::string(KeywordTable[kind]), px, py, 0};
    BadGuyTypeTable[kind].CountInUse += 1;
    UpdateDisplay();
}

void MainFrm::UpdateObjCounts() {
    const UpdatingGuard updating(Updating);
    for (int kind = 0; kind < BadGuyTypes; ++kind) {
        Element(ObjCntBox, kind).SetCaption(std::to_string(Element(BadGuyTypeTable, kind).CountInUse));
        Element(ObjIndImg, kind).SetVisible(kind == CurrentObject);
    }
}

void MainFrm::UpdateUsedScroll() {
    const bool scrolls = LevelRecord.BadGuyCount > UsedRows;
    BGUScroll.SetEnabled(scrolls);
    if (scrolls) {
        BGUScroll.SetMax(LevelRecord.BadGuyCount - (UsedRows - 1));  // the last entry reaches the last row
    } else {
        BGUScroll.SetValue(1);
    }
}

void MainFrm::UpdateUsedList() {
    const UpdatingGuard updating(Updating);
    TotalBGUBox.SetCaption(std::to_string(LevelRecord.BadGuyCount) + " ");
    for (int row = 0; row < UsedRows; ++row) {
        const int entry = BGUScroll.Value() + row;
        const bool used = entry <= LevelRecord.BadGuyCount && LevelLoaded != False;
        Element(BGIndImg, row).SetVisible(used && entry == SelectedBadGuy);
        if (used) {
            FillUsedRow(row, entry);
        }
        ShowUsedRow(row, used);
    }
}

void MainFrm::FillUsedRow(int row, int entry) {
    const BadGuy badGuy = LevelRecord.objects[entry];
    const std::string& name = Element(BadGuyTypeTable, badGuy.kind).DisplayName;
    Element(StayCheck, row).SetValue(badGuy.stay_on_platform != 0 ? 1 : 0);
    Element(BGUImg, row).SetPicture(BadGuysList()[badGuy.kind + 1]);
    Element(BGUImg, row).SetToolTip("BadGuy# " + std::to_string(entry) + ", " + name + StayText(badGuy));
    Element(BGUNameBox, row).SetCaption(name);
    Element(BGUXBox, row).SetText(std::to_string(badGuy.x));
    Element(BGUYBox, row).SetText(std::to_string(badGuy.y));
    const std::string whose = " of bad guy " + std::to_string(entry);
    Element(BGUXBox, row).SetAccessibleName("X" + whose);
    Element(BGUYBox, row).SetAccessibleName("Y" + whose);
    Element(StayCheck, row).SetAccessibleName("Stay on platform" + whose);
}

void MainFrm::ShowUsedRow(int row, bool visible) {
    Element(BGUImg, row).SetVisible(visible);
    Element(BGUNameBox, row).SetVisible(visible);
    Element(BGUXBox, row).SetVisible(visible);
    Element(BGUYBox, row).SetVisible(visible);
    Element(LabelX, row).SetVisible(visible);
    Element(LabelY, row).SetVisible(visible);
    Element(StayCheck, row).SetVisible(visible);
}

void MainFrm::BGImg_MouseDown(int Index, int Button) {
    const BGSlot& slot = Element(BGSlots, Index);
    if (IsFree(slot)) {
        return;
    }
    SelectedBadGuy = slot.object;
    const Int16 first = BGUScroll.Value();
    if (SelectedBadGuy < first || SelectedBadGuy > first + (UsedRows - 1)) {
        const int wanted = std::max<int>(SelectedBadGuy - (UsedRows - 1), 1);
        BGUScroll.SetValue(std::min<int>(wanted, BGUScroll.Max()));
    }
    DelBadGuyCmd.SetVisible(true);
    ModeOption[EditBadGuysMode].Select();
    if (Button == RightButton) {
        OpenBadGuyEditor();
    }
    UpdateDisplay();
}

void MainFrm::BGImg_MouseMove(int Index) {
    const BGSlot& slot = Element(BGSlots, Index);
    if (IsFree(slot)) {
        Element(BGImg, Index).SetToolTip("");
        return;
    }
    const Int16 entry = slot.object;
    const BadGuy& badGuy = LevelRecord.objects[entry];
    Element(BGImg, Index)
        .SetToolTip("BadGuy# " + std::to_string(entry) + ", " + UpperCase(badGuy.name) +
                    ", X = " + std::to_string(badGuy.x) + ", Y = " + std::to_string(badGuy.y) + StayText(badGuy));
}

void MainFrm::BGUImg_Click(int Index) {
    SelectedBadGuy = BGUScroll.Value() + Index;
    const Int16 column = RoundToInt16(LevelRecord.objects[SelectedBadGuy].x / static_cast<double>(TileSize));
    const Int16 first = MapXScroll.Value();
    if (column <= first - 1 || column >= first + ViewColumns) {
        MapXScroll.SetValue(std::clamp<int>(column - 8, 0, MapXScroll.Max()));
    }
    UpdateDisplay();
}

void MainFrm::StayCheck_Click(int Index) {
    LevelRecord.objects[BGUScroll.Value() + Index].stay_on_platform = Element(StayCheck, Index).Value();
}

bool MainFrm::BGUBox_KeyPress(int KeyAscii) {
    return PassesNumberBox(KeyAscii, [this] { DrawMap(); });
}

void MainFrm::BGUXBox_Change(int Index) {
    Int16& x = LevelRecord.objects[BGUScroll.Value() + Index].x;
    x = TypedNumber(Element(BGUXBox, Index), x);
}

void MainFrm::BGUYBox_Change(int Index) {
    Int16& y = LevelRecord.objects[BGUScroll.Value() + Index].y;
    y = TypedNumber(Element(BGUYBox, Index), y);
}

/// The selection stays, and so names the next entry. The counts in use are not lowered.
void MainFrm::DelBadGuyCmd_Click() {
    DummyCmd.SetFocus();
    for (int i = SelectedBadGuy; i <= LevelRecord.BadGuyCount - 1; ++i) {
        LevelRecord.objects[i] = LevelRecord.objects[i + 1];
    }
    LevelRecord.BadGuyCount -= 1;
    LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
    UpdateDisplay();
}
