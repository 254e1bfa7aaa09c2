#include "sidescreens/zBGEditFrm.h"

// Where everything on the bad guy's properties stands. Pixels.

namespace {

struct LabelPlace {
    Label zBGEditFrm::*label = nullptr;
    const char* name = "";
    Place place;
    const char* caption = "";
};

/// What is told about the bad guy, beside its picture.
void MakeFacts(zBGEditFrm& form) {
    static constexpr LabelPlace Captions[]{
        {&zBGEditFrm::IndexLabel, "IndexLabel", {98, 39, 110, 18}, "BadGuy Index #"},
        {&zBGEditFrm::XLabel, "XLabel", {98, 62, 12, 18}, "X"},
        {&zBGEditFrm::YLabel, "YLabel", {196, 62, 12, 18}, "Y"},
    };
    static constexpr LabelPlace ReadOuts[]{
        {&zBGEditFrm::zNameBox, "zNameBox", {98, 16, 298, 18}},
        {&zBGEditFrm::zBGNumBox, "zBGNumBox", {212, 39, 56, 18}},
        {&zBGEditFrm::zXBox, "zXBox", {114, 62, 56, 18}},
        {&zBGEditFrm::zYBox, "zYBox", {212, 62, 56, 18}},
    };
    for (const LabelPlace& caption : Captions) {
        (form.*caption.label).Create(form.Window, caption.name, caption.place, caption.caption);
    }
    for (const LabelPlace& readOut : ReadOuts) {
        (form.*readOut.label).Create(form.Window, readOut.name, readOut.place);
        (form.*readOut.label).SetSunken();
    }
}

void MakeScrolls(zBGEditFrm& form) {
    form.XScrollLabel.Create(form.Window, "XScrollLabel", {16, 96, 12, 17}, "X");
    form.zBGXScroll.Create(form.Window, "zBGXScroll", {34, 96, 362, 17}, Direction::Horizontal, {.largeChange = 32});
    form.zBGXScroll.SetAccessibleName("X");
    form.zBGXScroll.Change = [&form] { form.zBGXScroll_Change(); };
    form.zBGXScroll.Scroll = [&form] { form.zBGXScroll_Scroll(); };
    form.YScrollLabel.Create(form.Window, "YScrollLabel", {16, 120, 12, 17}, "Y");
    form.zBGYScroll.Create(form.Window, "zBGYScroll", {34, 120, 362, 17}, Direction::Horizontal, {.largeChange = 16});
    form.zBGYScroll.SetAccessibleName("Y");
    form.zBGYScroll.Change = [&form] { form.zBGYScroll_Change(); };
    form.zBGYScroll.Scroll = [&form] { form.zBGYScroll_Scroll(); };
}

}  // namespace

void zBGEditFrm::MakeControls() {
    Window.Create("zBGEditFrm", "BadGuy Properties", 412, 190);
    Window.Unload = [this] { Unload(); };
    DummyCmd.Create(Window, "DummyCmd", {-200, -200, 80, 24}, "DummyCmd");
    DummyCmd.HoldFocusFor({});
    zBGImg.Create(Window, "zBGImg", {16, 16, 64, 64});
    zBGImg.SetPicture(FixedPicture("zBGImg"));
    MakeFacts(*this);
    MakeScrolls(*this);
    zStayCheck.Create(Window, "zStayCheck", {34, 153, 160, 20}, "Stay on Platform");
    zStayCheck.Click = [this] { zStayCheck_Click(); };
    CloseCmd.Create(Window, "CloseCmd", {306, 150, 90, 26}, "Close");
    CloseCmd.Click = [this] { CloseCmd_Click(); };
}
