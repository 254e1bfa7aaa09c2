#include "world/WorldFrm.h"

// Where everything on the world map editor stands. Pixels; those in a frame count from its corner.

namespace {

constexpr int WindowWidth = 886;
constexpr int WindowHeight = 630;

constexpr int MapLeft = 12;
constexpr int MapTop = 90;
constexpr int ScrollSize = 17;

constexpr int PanelLeft = 654;
constexpr int PanelWidth = 222;
constexpr Place TilesPlace{PanelLeft, 226, PanelWidth, 393};
constexpr Place WholePanel{0, 0, TilesPlace.width, TilesPlace.height};

const std::vector<ToolBarButton> ToolBarButtons{
    {1, "", "Create New World"}, {3, "", "Open World Map"},   {5, "", "Save World Map"},
    {6, "", "Save Map As"},      {8, "", "World Properties"}, {10, "", "Exit World Editor"},
};

constexpr std::array<const char*, 5> Modes{
    "Map Tiles - Normal Table", "Map Tiles - Favotites Table", "Level Point Editor", "All Layers", "Set Nuk Start",
};

void MakeTopRow(WorldFrm& form) {
    form.WTB.Create(form.Window, "WTB", {8, 10, GridWidth, 36}, ToolBarButtons, WTBImages());
    form.WTB.ButtonClick = [&form](int Position) { form.WTB_ButtonClick(Position); };
    form.FileNameBox.Create(form.Window, "FileNameBox", {MapLeft, 60, GridWidth, 19});
    form.FileNameBox.SetSunken();
    form.FileNameBox.SetToolTip("Click to open a Floebird World Map file.");
    form.FileNameBox.Click = [&form] { form.FileNameBox_Click(); };
}

void MakeMap(WorldFrm& form) {
    form.BlankImg = FixedPicture("BlankImg");
    for (int i = 0; i < ViewCells; ++i) {
        ImageCell& cell = Element(form.Img, i);
        cell.Create(form.Window, MemberName("Img", i),
                    {MapLeft + CellPitch * CellColumn(i), MapTop + CellPitch * CellRow(i), CellSize, CellSize});
        cell.SetPicture(form.BlankImg);
        cell.MouseDown = [&form, i](int Button, int, int, int) { form.Img_MouseDown(i, Button); };
        cell.MouseMove = [&form, i](int, int, int, int) { form.Img_MouseMove(i); };
    }
    form.NukImg.Create(form.Window, "NukImg", {0, 0, CellSize, CellSize});
    form.NukImg.SetPicture(FixedPicture("NukImg"));
    form.NukImg.SetVisible(false);
    for (int n = 0; n < WorldFrm::Sprites; ++n) {
        ImageCell& sprite = Element(form.DotImg, n);
        sprite.Create(form.Window, MemberName("DotImg", n), {0, 0, CellSize, CellSize});
        sprite.SetVisible(false);
        sprite.MouseDown = [&form, n](int Button, int, int, int) { form.DotImg_MouseDown(n, Button); };
        sprite.MouseMove = [&form, n](int, int, int, int) { form.DotImg_MouseMove(n); };
    }
}

// The maxima stand until the first map is shown.
void MakeMapScrolls(WorldFrm& form) {
    form.MapXScroll.Create(form.Window, "MapXScroll", {MapLeft, MapTop + GridHeight + 4, GridWidth, ScrollSize},
                           Direction::Horizontal, {.maximum = 1, .largeChange = ViewColumns - 2});
    form.MapXScroll.SetAccessibleName("First map column");
    form.MapYScroll.Create(form.Window, "MapYScroll", {MapLeft + GridWidth + 4, MapTop, ScrollSize, GridHeight},
                           Direction::Vertical, {.maximum = 3, .largeChange = ViewRows - 2});
    form.MapYScroll.SetAccessibleName("First map row");
    form.Window.ScrollWithWheel({MapLeft, MapTop, GridWidth, GridHeight}, &form.MapYScroll, &form.MapXScroll);
    for (ScrollBar* bar : {&form.MapXScroll, &form.MapYScroll}) {
        bar->Change = [&form] { form.MapScroll_Change(); };
        bar->Scroll = [&form] { form.MapScroll_Change(); };
    }
}

void MakeModes(WorldFrm& form) {
    form.Frame2.Create(form.Window, "Frame2", {PanelLeft, 8, PanelWidth, 148}, "Mode Selection");
    for (int i = 0; i < 5; ++i) {
        OptionButton& mode = Element(form.ModeOption, i);
        mode.Create(form.Frame2, MemberName("ModeOption", i), {10, 19 + 20 * i, 204, 20}, Element(Modes, i));
        mode.Click = [&form, i] { form.ModeOption_Click(i); };
    }
    form.FavCheck.Create(form.Frame2, "FavCheck", {10, 122, 204, 20}, "Edit Favorites");
    form.FavCheck.Click = [&form] { form.FavCheck_Click(); };
}

void MakeReadOuts(WorldFrm& form) {
    form.CordsFrame.Create(form.Window, "CordsFrame", {PanelLeft, 158, PanelWidth, 66}, "Mouse Cords");
    form.AutoCheck.Create(form.CordsFrame, "AutoCheck", {10, 21, 204, 20}, "Auto Complete Tiles");
    form.AutoCheck.Click = [&form] { form.AutoCheck_Click(); };
    Element(form.CordsLabel, 0).Create(form.CordsFrame, MemberName("CordsLabel", 0), {10, 42, 20, 18}, "X :");
    form.MouseXBox.Create(form.CordsFrame, "MouseXBox", {32, 42, 70, 18});
    Element(form.CordsLabel, 1).Create(form.CordsFrame, MemberName("CordsLabel", 1), {118, 42, 20, 18}, "Y :");
    form.MouseYBox.Create(form.CordsFrame, "MouseYBox", {140, 42, 70, 18});
    form.MouseXBox.SetSunken();
    form.MouseYBox.SetSunken();
}

void MakePalette(WorldFrm& form) {
    form.TilesFrame.Create(form.Window, "TilesFrame", TilesPlace, "Tiles");
    for (int i = 0; i < WorldFrm::PaletteCells; ++i) {
        ImageCell& cell = Element(form.TileImg, i);
        cell.Create(form.TilesFrame, MemberName("TileImg", i),
                    {30 + 35 * (i % 4), 28 + 35 * (i / 4), CellSize, CellSize});
        cell.Click = [&form, i] { form.TileImg_Click(i); };
    }
    form.TileScroll.Create(form.TilesFrame, "TileScroll", {175, 28, ScrollSize, 312}, Direction::Vertical,
                           {.maximum = 12, .largeChange = 9});
    form.TileScroll.SetAccessibleName("First palette row");
    form.TilesFrame.ScrollWithWheel(WholePanel, &form.TileScroll, nullptr);
    form.TileScroll.Change = [&form] { form.TileScroll_Change(); };
    form.TileScroll.Scroll = [&form] { form.TileScroll_Change(); };
    form.CurrentImg.Create(form.TilesFrame, "CurrentImg", {30, 351, CellSize, CellSize});
    form.TileIndexLabel.Create(form.TilesFrame, "TileIndexLabel", {78, 358, 68, 18}, "Tile Index =");
    form.TileIndexBox.Create(form.TilesFrame, "TileIndexBox", {148, 358, 44, 18});
    form.TileIndexBox.SetSunken();
}

void MakeLinkRow(WorldFrm& form, int i, const Picture& marker) {
    const int top = 42 + 17 * i;
    ImageCell& indicator = Element(form.LinkIndImg, i);
    indicator.Create(form.LinkFrame, MemberName("LinkIndImg", i), {8, top, 16, 16});
    indicator.SetPicture(marker);
    indicator.SetToolTip("Click to Edit Link Parameters");
    indicator.SetVisible(false);
    indicator.Click = [&form, i] { form.LinkRow_Click(i); };
    Label& number = Element(form.LinkNumBox, i);
    number.Create(form.LinkFrame, MemberName("LinkNumBox", i), {28, top, 44, 17});
    Label& type = Element(form.LinkTypeBox, i);
    type.Create(form.LinkFrame, MemberName("LinkTypeBox", i), {72, top, 116, 17});
    for (Label* box : {&number, &type}) {
        box->SetSunken();
        box->SetToolTip("Click to Edit Link Parameters");
        box->SetVisible(false);
        box->Click = [&form, i] { form.LinkRow_Click(i); };
    }
}

struct LinkReadOut {
    Label WorldFrm::*box = nullptr;
    const char* name = "";
    const char* heading = "";
    Place place;
    Place headingPlace;
};

void MakeLinkReadOuts(WorldFrm& form) {
    static constexpr std::array<LinkReadOut, 5> ReadOuts{{
        {&WorldFrm::LinkXBox, "LinkXBox", "X", {10, 338, 46, 18}, {10, 322, 46, 16}},
        {&WorldFrm::LinkYBox, "LinkYBox", "Y", {62, 338, 46, 18}, {62, 322, 46, 16}},
        {&WorldFrm::LinkDXBox, "LinkDXBox", "DX", {114, 338, 46, 18}, {114, 322, 46, 16}},
        {&WorldFrm::LinkDYBox, "LinkDYBox", "DY", {166, 338, 46, 18}, {166, 322, 46, 16}},
        {&WorldFrm::LinkNameBox, "LinkNameBox", "Name", {50, 364, 162, 18}, {10, 364, 38, 18}},
    }};
    for (int i = 0; i < 5; ++i) {
        const LinkReadOut& readOut = Element(ReadOuts, i);
        Element(form.LinkHeading, i + 2)
            .Create(form.LinkFrame, MemberName("LinkHeading", i + 2), readOut.headingPlace, readOut.heading);
        Label& box = form.*readOut.box;
        box.Create(form.LinkFrame, readOut.name, readOut.place);
        box.SetSunken();
    }
}

void MakeLinkList(WorldFrm& form) {
    const Picture marker = FixedPicture("LinkIndImg");
    form.LinkFrame.Create(form.Window, "LinkFrame", TilesPlace, "Level Links");
    Element(form.LinkHeading, 0).Create(form.LinkFrame, MemberName("LinkHeading", 0), {29, 24, 43, 17}, "Link #");
    Element(form.LinkHeading, 1).Create(form.LinkFrame, MemberName("LinkHeading", 1), {73, 24, 114, 17}, "Type");
    for (int i = 0; i < WorldFrm::LinkRows; ++i) {
        MakeLinkRow(form, i, marker);
    }
    form.LinkScroll.Create(form.LinkFrame, "LinkScroll", {194, 42, ScrollSize, 272}, Direction::Vertical,
                           {.maximum = 0, .largeChange = WorldFrm::LinkRows - 1});
    form.LinkScroll.SetAccessibleName("First link in the list");
    form.LinkFrame.ScrollWithWheel(WholePanel, &form.LinkScroll, nullptr);
    form.LinkScroll.Change = [&form] { form.LinkScroll_Change(); };
    form.LinkScroll.Scroll = [&form] { form.LinkScroll_Change(); };
    form.Line1.Create(form.LinkFrame, "Line1", {10, 319, 202, 2});
    form.Line1.SetSunken();
    MakeLinkReadOuts(form);
}

}  // namespace

void WorldFrm::MakeControls() {
    Window.Create("WorldFrm", "FB_Editor - Floebird World Map Editor", WindowWidth, WindowHeight);
    Window.Unload = [this] { Unload(); };
    MakeTopRow(*this);
    MakeMap(*this);
    MakeModes(*this);
    MakeReadOuts(*this);
    MakePalette(*this);
    MakeLinkList(*this);
    MakeMapScrolls(*this);
    DummyCmd.Create(Window, "DummyCmd", {-200, -200, 80, 24}, "DummyCmd");
    DummyCmd.HoldFocusFor({&TileScroll, &LinkScroll});
}
