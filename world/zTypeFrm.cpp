#include "world/zTypeFrm.h"

#include "core/ScreenPositions.h"
#include "core/SharedState.h"

namespace {

struct CaptionAndTip {
    const char* caption;
    const char* toolTip;
};

constexpr std::array<CaptionAndTip, 4> Types{{
    {"Level Link", "Click to select Level Link Type"},
    {"Map Message", "Click to select Map Message"},
    {"Teleport", "Click to select Teleport Link"},
    {"Invisible Teleport", "Click to select Invisible Teleport Link"},
}};

}  // namespace

void zTypeFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::zTypeFrm, true);
    LinkTypeChoice = -1;
}

void zTypeFrm::MakeControls() {
    Window.Create("zTypeFrm", "Select Link Type", 220, 166);
    Window.Unload = [this] { Unload(); };
    for (int i = 0; i < 4; ++i) {
        Label& type = Element(TypeBox, i);
        type.Create(Window, MemberName("TypeBox", i), {14, 12 + 28 * i, 192, 22}, Element(Types, i).caption);
        type.SetSunken();
        type.SetCentred();
        type.SetToolTip(Element(Types, i).toolTip);
        type.Click = [this, i] { TypeBox_Click(i); };
    }
    CancelCmd.Create(Window, "CancelCmd", {65, 130, 90, 26}, "Cancel");
    CancelCmd.SetToolTip("Cancel Link Type Selection");
    CancelCmd.Click = [this] { Window.Close(); };
}

void zTypeFrm::Unload() {
    StorePosition(Window, ScreenIndex::zTypeFrm);
    ModalDone = True;
}

void zTypeFrm::TypeBox_Click(int Index) {
    LinkTypeChoice = Index + LevelLink;
    Window.Close();
}
