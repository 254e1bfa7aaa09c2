#include "core/SharedState.h"
#include "leveledit/MainFrm.h"

// Where everything on the level editor stands. Pixels; those in a frame count from its corner.

namespace {

constexpr int WindowWidth = 886;
constexpr int WindowHeight = 662;

constexpr int MapLeft = 10;
constexpr int MapTop = 80;
constexpr int MapMargin = 4;  // of the black box around the cells

constexpr Place SidePanel{632, 162, 244, 430};  // of the three frames that take turns
constexpr Place WholePanel{0, 0, SidePanel.width, SidePanel.height};

const std::vector<ToolBarButton> ToolBarButtons{
    {2, "Open Level", "Open an existing Level"},
    {4, "Create Level", "Create a New Level"},
    {5, "Create Set", "Create a New Level Set"},
    {7, "Save Level", "Save Current Level"},
    {8, "Save As Level", "Save As Another New Level"},
    {10, "Variables", "Level Parameters Editor"},
    {11, "View Text", "Level Text Viewer"},
    {13, "World Editor", "World Creator/Editor"},
    {15, "Help", "Display Help Text"},
    {17, "Exit", "Quit FBE"},
};

struct CaptionAndTip {
    const char* caption;
    const char* toolTip;
};

constexpr std::array<CaptionAndTip, 4> Layers{{
    {"BackGround", "Show/Edit Background Tiles Only"},
    {"InterActive", "Show/Edit Interactive Layer Tiles Only"},
    {"ForeGround", "Show/Edit Foreground Tiles Only"},
    {"All Layers", "Show Tiles On All Layers (No Tile Editing Possible)"},
}};

constexpr std::array<CaptionAndTip, 4> Modes{{
    {"Tiles", "Tile Editing Mode"},
    {"Bad Guys", "Place BadGuys Mode"},
    {"Bad Guy List", "Edit BadGuys Mode"},
    {"Edit Favorite", "Currently Unused..."},
}};

constexpr std::array<const char*, 3> TileSets{"All Tiles", "Fav. A", "Fav. B"};

void MakeMap(MainFrm& form) {
    form.GridBackBox.Create(
        form.Window, "GridBackBox",
        {MapLeft - MapMargin, MapTop - MapMargin, GridWidth + 2 * MapMargin, GridHeight + 2 * MapMargin});
    form.GridBackBox.SetFill(0x000000);
    for (int i = 0; i < ViewCells; ++i) {
        ImageCell& cell = Element(form.Img, i);
        cell.Create(form.Window, MemberName("Img", i),
                    {MapLeft + CellPitch * CellColumn(i), MapTop + CellPitch * CellRow(i), CellSize, CellSize});
        cell.MouseDown = [&form, i](int Button, int, int X, int Y) { form.Img_MouseDown(i, Button, X, Y); };
        cell.MouseMove = [&form, i](int, int, int X, int Y) { form.Img_MouseMove(i, X, Y); };
        cell.Click = [&form, i] { form.Img_Click(i); };
    }
    for (int i = 0; i < MainFrm::Sprites; ++i) {
        ImageCell& sprite = Element(form.BGImg, i);
        sprite.Create(form.Window, MemberName("BGImg", i), {-CellSize, -CellSize, 35, 32});
        sprite.SetVisible(false);
        sprite.MouseDown = [&form, i](int Button, int, int, int) { form.BGImg_MouseDown(i, Button); };
        sprite.MouseMove = [&form, i](int, int, int, int) { form.BGImg_MouseMove(i); };
    }
    form.NukImage.Create(form.Window, "NukImage", {0, 0, 42, 65});
    form.NukImage.SetPicture(FixedPicture("NukImage"));
    form.NukImage.SetVisible(false);
    form.ResetImg.Create(form.Window, "ResetImg", {0, 0, CellSize, CellSize});
    form.ResetImg.SetPicture(FixedPicture("ResetImg"));
    form.ResetImg.SetToolTip("Reset Point");
    form.ResetImg.SetVisible(false);
    form.ResetImg.MouseMove = [&form](int, int, int, int) { form.ResetImg_MouseMove(); };
    form.BGTimer.Create(form.Window, "BGTimer", 250);
    form.BGTimer.Tick = [&form] { form.BGTimer_Timer(); };
}

void MakeTopRow(MainFrm& form) {
    form.TB.Create(form.Window, "TB", {6, 2, WindowWidth - 12, 46}, ToolBarButtons, TBImages());
    form.TB.ButtonClick = [&form](int Position) { form.TB_ButtonClick(Position); };
    form.FileNameBox.Create(form.Window, "FileNameBox", {MapLeft, 53, GridWidth, 19},
                            "Click here to open an existing Floebird Level file.");
    form.FileNameBox.SetSunken();
    form.FileNameBox.SetToolTip("Level Map Filename - Click To Load Another Level Map");
    form.FileNameBox.Click = [&form] { form.FileNameBox_Click(); };
}

struct OptionGroup {
    Frame MainFrm::*frame;
    std::array<OptionButton, 4> MainFrm::*options;
    void (MainFrm::*click)(int Index);
    const char* name;
    const std::array<CaptionAndTip, 4>& texts;
};

void MakeOptions(MainFrm& form, const OptionGroup& group) {
    for (int i = 0; i < 4; ++i) {
        OptionButton& option = Element(form.*group.options, i);
        option.Create(form.*group.frame, MemberName(group.name, i), {10, 20 + 20 * i, 105, 20},
                      Element(group.texts, i).caption);
        option.SetToolTip(Element(group.texts, i).toolTip);
        option.Click = [&form, click = group.click, i] { (form.*click)(i); };
    }
}

void MakeChoices(MainFrm& form) {
    form.LayerFrame.Create(form.Window, "LayerFrame", {632, 50, 120, 106}, "Layer");
    form.ModeFrame.Create(form.Window, "ModeFrame", {756, 50, 120, 106}, "Mode");
    MakeOptions(form,
                {&MainFrm::LayerFrame, &MainFrm::LayerOption, &MainFrm::LayerOption_Click, "LayerOption", Layers});
    MakeOptions(form, {&MainFrm::ModeFrame, &MainFrm::ModeOption, &MainFrm::ModeOption_Click, "ModeOption", Modes});
}

/// The row below the map, with its scroll bar.
void MakeBottomRow(MainFrm& form) {
    form.MapXScroll.Create(form.Window, "MapXScroll", {MapLeft, 596, GridWidth, 17}, Direction::Horizontal,
                           {.largeChange = 16});
    form.MapXScroll.SetAccessibleName("First map column");
    form.MapXScroll.Change = [&form] { form.MapXScroll_Change(); };
    form.MapXScroll.Scroll = [&form] { form.MapXScroll_Scroll(); };
    form.Window.ScrollWithWheel({MapLeft, MapTop, GridWidth, GridHeight}, &form.MapXScroll, &form.MapXScroll);
    form.GridCheck.Create(form.Window, "GridCheck", {MapLeft, 624, 60, 20}, "Grid");
    form.GridCheck.SetToolTip("Toggle Grid On/Off");
    form.GridCheck.Click = [&form] { form.GridCheck_Click(); };
    form.AutoCheck.Create(form.Window, "AutoCheck", {80, 624, 60, 20}, "Auto");
    form.AutoCheck.SetToolTip("Auto Complete Clouds (Tile #85)");
    form.AutoCheck.Click = [&form] { form.AutoCheck_Click(); };
    form.ResetCheck.Create(form.Window, "ResetCheck", {150, 624, 150, 20}, "Show Reset Points");
    form.ResetCheck.Click = [&form] { form.ResetCheck_Click(); };
    form.SetNukCmd.Create(form.Window, "SetNukCmd", {430, 621, 190, 26}, "Set Nuk Start Pos.");
    form.SetNukCmd.SetToolTip("Set Desired Starting Location for Nuk");
    form.SetNukCmd.Click = [&form] { form.SetNukCmd_Click(); };
}

struct ReadOutBox {
    Label MainFrm::*box;
    const char* name;
    const char* caption;
    const char* toolTip;
};

void MakeReadOuts(MainFrm& form) {
    static constexpr std::array<ReadOutBox, 4> ReadOuts{{
        {&MainFrm::ColBox, "ColBox", "Column", "Map Tile Column Number"},
        {&MainFrm::RowBox, "RowBox", "Row", "Map Tile Row Number"},
        {&MainFrm::XBox, "XBox", "X", "Map Mouse X Pixel Position"},
        {&MainFrm::YBox, "YBox", "Y", "Map Mouse Y Position"},
    }};
    form.CordsFrame.Create(form.Window, "CordsFrame", {632, 594, 244, 62}, "Cords");
    for (int i = 0; i < 4; ++i) {
        const ReadOutBox& readOut = Element(ReadOuts, i);
        const int left = i < 2 ? 8 : 126;
        const int captionWidth = i < 2 ? 44 : 14;
        const int top = 22 + 19 * (i % 2);
        Element(form.CordsLabel, i)
            .Create(form.CordsFrame, MemberName("CordsLabel", i), {left, top, captionWidth, 18}, readOut.caption);
        Label& box = form.*readOut.box;
        box.Create(form.CordsFrame, readOut.name, {left + captionWidth + 4, top, i < 2 ? 56 : 92, 18});
        box.SetSunken();
        box.SetToolTip(readOut.toolTip);
    }
}

void MakePalette(MainFrm& form) {
    form.TileFrame.Create(form.Window, "TileFrame", SidePanel, "Current Tile Selection");
    for (int i = 0; i < MainFrm::PaletteCells; ++i) {
        ImageCell& cell = Element(form.SelImg, i);
        cell.Create(form.TileFrame, MemberName("SelImg", i),
                    {38 + 36 * (i % 4), 26 + 36 * (i / 4), CellSize, CellSize});
        cell.MouseDown = [&form, i](int Button, int, int, int) { form.SelImg_MouseDown(i, Button); };
        cell.MouseMove = [&form, i](int, int, int, int) { form.SelImg_MouseMove(i); };
    }
    form.SelScroll.Create(form.TileFrame, "SelScroll", {186, 26, 17, 284}, Direction::Vertical,
                          {.maximum = 43, .largeChange = 8});
    form.SelScroll.SetAccessibleName("First palette row");
    form.TileFrame.ScrollWithWheel(WholePanel, &form.SelScroll, nullptr);
    form.SelScroll.Change = [&form] { form.SelScroll_Change(); };
    form.SelScroll.Scroll = [&form] { form.SelScroll_Scroll(); };
    for (int i = 0; i < 3; ++i) {
        OptionButton& option = Element(form.TilesOption, i);
        option.Create(form.TileFrame, MemberName("TilesOption", i), {12 + 80 * i, 326, 76, 20}, Element(TileSets, i));
        option.Click = [&form, i] { form.TilesOption_Click(i); };
    }
    form.CurImg.Create(form.TileFrame, "CurImg", {38, 368, CellSize, CellSize});
    form.CurImg.SetToolTip("Current Selected Tile");
    form.CurImg.MouseMove = [&form](int, int, int, int) { form.CurImg_MouseMove(); };
    form.BlankTileCmd.Create(form.TileFrame, "BlankTileCmd", {92, 371, 111, 26}, "Blank Tile");
    form.BlankTileCmd.SetToolTip("Set Tile Selection to Blank Tile");
    form.BlankTileCmd.Click = [&form] { form.BlankTileCmd_Click(); };
}

void MakeKinds(MainFrm& form) {
    const Picture marker = FixedPicture("ObjIndImg");
    form.ObjectFrame.Create(form.Window, "ObjectFrame", SidePanel, "Bad Guys");
    for (int i = 0; i < BadGuyTypes; ++i) {
        const int top = 28 + 39 * i;
        ImageCell& indicator = Element(form.ObjIndImg, i);
        indicator.Create(form.ObjectFrame, MemberName("ObjIndImg", i), {8, top + 8, 16, 16});
        indicator.SetPicture(marker);
        ImageCell& kind = Element(form.ObjSelImg, i);
        kind.Create(form.ObjectFrame, MemberName("ObjSelImg", i), {30, top, 35, 32});
        kind.SetPicture(BadGuysList()[i + 1]);
        kind.Click = [&form, i] { form.ObjSelImg_Click(i); };
        Element(form.ObjectLabel, i).Create(form.ObjectFrame, MemberName("ObjectLabel", i), {74, top + 7, 112, 18});
        Label& count = Element(form.ObjCntBox, i);
        count.Create(form.ObjectFrame, MemberName("ObjCntBox", i), {190, top + 7, 44, 18});
        count.SetSunken();
    }
}

void MakeUsedRow(MainFrm& form, int i, const Picture& marker) {
    const int top = 22 + 40 * i;
    Frame& frame = form.BGUFrame;
    ImageCell& indicator = Element(form.BGIndImg, i);
    indicator.Create(frame, MemberName("BGIndImg", i), {4, top + 10, 16, 16});
    indicator.SetPicture(marker);
    indicator.SetToolTip("Current Bad Guy Selection");
    ImageCell& picture = Element(form.BGUImg, i);
    picture.Create(frame, MemberName("BGUImg", i), {24, top + 2, 35, 32});
    picture.Click = [&form, i] { form.BGUImg_Click(i); };
    Element(form.BGUNameBox, i).Create(frame, MemberName("BGUNameBox", i), {66, top, 130, 16});
    Element(form.LabelX, i).Create(frame, MemberName("LabelX", i), {66, top + 17, 10, 19}, "X");
    TextBox& x = Element(form.BGUXBox, i);
    x.Create(frame, MemberName("BGUXBox", i), {78, top + 17, 46, 20});
    x.KeyPress = [&form](int KeyAscii) { return form.BGUBox_KeyPress(KeyAscii); };
    x.Change = [&form, i] { form.BGUXBox_Change(i); };
    Element(form.LabelY, i).Create(frame, MemberName("LabelY", i), {130, top + 17, 10, 19}, "Y");
    TextBox& y = Element(form.BGUYBox, i);
    y.Create(frame, MemberName("BGUYBox", i), {142, top + 17, 46, 20});
    y.KeyPress = [&form](int KeyAscii) { return form.BGUBox_KeyPress(KeyAscii); };
    y.Change = [&form, i] { form.BGUYBox_Change(i); };
    CheckBox& stay = Element(form.StayCheck, i);
    stay.Create(frame, MemberName("StayCheck", i), {194, top + 17, 18, 20}, "");
    stay.SetToolTip("Stay on Platform Flag");
    stay.Click = [&form, i] { form.StayCheck_Click(i); };
}

void MakeUsedList(MainFrm& form) {
    const Picture marker = FixedPicture("BGIndImg");
    form.BGUFrame.Create(form.Window, "BGUFrame", SidePanel, "Bad Guys Used List");
    for (int i = 0; i < MainFrm::UsedRows; ++i) {
        MakeUsedRow(form, i, marker);
    }
    form.BGUScroll.Create(form.BGUFrame, "BGUScroll", {219, 24, 17, 354}, Direction::Vertical,
                          {.minimum = 1, .largeChange = 9, .value = 1});
    form.BGUScroll.SetAccessibleName("First bad guy in the list");
    form.BGUFrame.ScrollWithWheel(WholePanel, &form.BGUScroll, nullptr);
    form.BGUScroll.Change = [&form] { form.BGUScroll_Change(); };
    form.BGUScroll.Scroll = [&form] { form.BGUScroll_Scroll(); };
    form.TotalBGULabel.Create(form.BGUFrame, "TotalBGULabel", {10, 384, 130, 18}, "Total Bad Guys Used");
    form.TotalBGUBox.Create(form.BGUFrame, "TotalBGUBox", {142, 384, 46, 18});
    form.TotalBGUBox.SetSunken();
    form.DelBadGuyCmd.Create(form.BGUFrame, "DelBadGuyCmd", {10, 403, 178, 24}, "Delete BadGuy");
    form.DelBadGuyCmd.SetToolTip("Delete the currently selected BadGuy");
    form.DelBadGuyCmd.Click = [&form] { form.DelBadGuyCmd_Click(); };
}

}  // namespace

void MainFrm::MakeControls() {
    Window.Create("MainFrm", TitleText, WindowWidth, WindowHeight);
    Window.Unload = [this] { Unload(); };
    MakeTopRow(*this);
    MakeMap(*this);
    MakeChoices(*this);
    MakePalette(*this);
    MakeKinds(*this);
    MakeUsedList(*this);
    MakeBottomRow(*this);
    MakeReadOuts(*this);
    DummyCmd.Create(Window, "DummyCmd", {-200, -200, 80, 24}, "DummyCmd");
    DummyCmd.HoldFocusFor({&SelScroll, &BGUScroll});
}
