#include <QListWidget>
#include <QTimer>
#include <functional>

#include "core/General.h"
#include "platform/Files.h"
#include "sidescreens/HelpFrm.h"
#include "tests/ScreenDriver.h"

// What a user can do that ends the process, and the number that the last message gives. No such action may
// leave a file changed.

namespace {

/// A level of 18 columns with one bad guy, in the used list of MainFrm.
void ShowBadGuy(int x, int y, int kind = 0) {
    MakeLevel(18);
    AddBadGuy({kind, "snowball", x, y, 0});
    ClickOn(Main, "ModeOption(2)");
}

void OpenProperties(int x, int y, int width = 18, int height = 15) {
    ShowBadGuy(x, y);
    LevelRecord.width = width;
    LevelRecord.height = height;
    RightClickOn(Main, "BGImg(0)");
}

void DeleteTheOnlyBadGuy(int times) {
    ShowBadGuy(64, 64);
    ClickOn(Main, "BGImg(0)");
    for (int i = 0; i < times; ++i) {
        ClickOn(Main, "DelBadGuyCmd");
    }
}

void AddSecondResetPointAt(int column) {
    MakeLevel(1030);
    LevelRecord.ResetPointCount = 1;
    LevelRecord.reset_points.Resize(1);
    CurrentTile = 131;
    ScrollTo(Main, "MapXScroll", 1005);
    ClickOn(Main, Img(column - 1005, 0));
}

void ShowLayerOf(int width) {
    MakeLevel(width);
    ClickOn(Main, "LayerOption(1)");
}

void PressWithoutMaps(const char* toolBarButton) {
    LevelRecord.width = 1000;
    ClickOn(Main, toolBarButton);
}

void WriteInfoBeside(const std::string& path) {
    InfoPath = path;
    OpenNukTextFrm();
    ClickOn("NukTextFrm", "WriteInfoCmd");
}

std::string HelpFile() { return JoinPath(ProgramFolder(), "FB_Editor.Help"); }

void SaveHelpOverAFolder() {
    HelpText = "old";
    OpenHelpFrm();
    Type("HelpFrm", "HelpBox", "new");
    std::filesystem::create_directory(HelpFile());
    ClickOn("HelpFrm", "SaveHelpCmd");
}

/// Types into a box of VarsFrm; nothing empties it.
void InVars(const char* box, const std::string& text, int addEnd = 0) {
    PrefsRecord.AddEndState = addEnd;
    OpenVarsFrm();
    TypeInto("VarsFrm", box, text.empty() ? "1" : text);
    if (text.empty()) {
        PressKey("VarsFrm", box, Qt::Key_Backspace);
    }
}

void ChooseBackgroundIn(const std::string& folder) {
    BackgroundFolder = folder;
    OpenVarsFrm();
    QTimer::singleShot(0, [] {
        if (IsOpen("BackGndFrm")) {
            ControlOf<QListWidget>("BackGndFrm", "ImageFiles").setCurrentRow(0);
            CloseScreen("BackGndFrm");
        }
    });
    ClickOn("VarsFrm", "BackgroundBox");
}

void CreateSet(const std::string& parent, const char* name) {
    UserLevelsFolder = parent;
    dialogs.answers = {AnswerYes};
    dialogs.inputs = {name};
    QTimer::singleShot(0, [] {
        TypeInto("NewInfoFrm", "TitleBox", "T");
        TypeInto("NewInfoFrm", "DescBox", "D");
        ClickOn("NewInfoFrm", "CreateCmd");
    });
    ClickOn(Main, "TB(5)");
}

void InLink(const char* box, const std::string& text) {
    OpenWorld();
    AddLink(2, 3, TeleportLink);
    ClickOn(Editor, "ModeOption(2)");
    ClickOn(Editor, "LinkTypeBox(0)");
    TypeInto(LinkEditor, box, text.empty() ? "5" : text);
    if (text.empty()) {
        PressKey(LinkEditor, box, Qt::Key_Backspace);
    }
}

void InWorldProperties(const char* box, const std::string& text, int width = 40) {
    OpenWorld(width);
    ClickOn(Editor, "WTB(8)");
    if (IsOpen("WorldPropertiesFrm")) {
        TypeInto("WorldPropertiesFrm", box, text.empty() ? "5" : text);
        PressKey("WorldPropertiesFrm", box, text.empty() ? Qt::Key_Backspace : Qt::Key_Return);
    }
}

void SetWorldMode(int mode) { ClickOn(Editor, Member("ModeOption", mode)); }

/// Does something in the editor of a fresh world, in that mode and from that first palette cell on.
void InWorld(int mode, int palette, const std::function<void()>& act) {
    OpenWorld();
    SetWorldMode(mode);
    ScrollTo(Editor, "TileScroll", palette);
    act();
}

void ShowLinks(int count) {
    OpenWorld();
    for (int n = 1; n <= count; ++n) {
        AddLink(30, 20, LevelLink);
    }
    ClickOn(Editor, "ModeOption(2)");
}

struct FatalAction {
    const char* what;
    std::function<void(const std::string& folder)> act;  ///< `folder` is the test's own, empty at first
    std::optional<FaultNumber> fault;                    ///< none for what stands just within a limit
};

void OpenPropertiesOfNoKind() {
    ShowBadGuy(64, 64);
    LevelRecord.objects[1].kind = 10;
    RightClickOn(Main, "BGImg(0)");
}

void WriteInfoOverAFolder(const std::string& folder) {
    std::filesystem::create_directory(folder + "/info");
    WriteInfoBeside(folder + "/level.fbl");
}

void ChooseTextAsBackground(const std::string& folder) {
    WriteFile(folder + "/notes.txt", "no picture");
    ChooseBackgroundIn(folder);
}

void CreateSetOverAFolder(const std::string& folder) {
    std::filesystem::create_directory(folder + "/bare");
    CreateSet(folder, "bare");
}

void PickNoTile() {
    WorldRecord.tiles(1, 1) = 0;
    RightClickOn(Editor, Img(1, 1));
}

void SaveTooHighAWorld() {
    OpenWorld();
    WorldRecord.height = 32;
    ClickOn(Editor, "WTB(5)");
}

void ListNoType() {
    AddLink(1, 1, 6);
    SetWorldMode(2);
}

void SetTileAndMode(int column, int row, int tile, int mode) {
    WorldRecord.tiles(column, row) = tile;
    SetWorldMode(mode);
}

void OpenSavedWorld(const std::string& path) {
    WorldPath = path;
    WriteFile(path, "(floebird-worldmap (tilemap (width many)))\n");
    ClickOn(Main, "TB(13)");
}

/// Draws a fresh world, whose tiles reach to column 40, as one of `width` columns from its column `first` on.
void DrawWorldBeyondItsTiles(int width, int first) {
    OpenWorld();
    WorldRecord.width = width;
    UpdateWorld();
    ScrollTo(Editor, "MapXScroll", first);
}

using enum FaultNumber;

const FatalAction Actions[]{
    {"bad guy at the end of its bars", [](auto&) { OpenProperties(17 * 32 - 1, 14 * 32 - 1); }, {}},
    {"bad guy in the last column", [](auto&) { OpenProperties(17 * 32, 64); }, InvalidPropertyValue},
    {"bad guy in the last row", [](auto&) { OpenProperties(64, 14 * 32); }, InvalidPropertyValue},
    {"bad guy above the level", [](auto&) { OpenProperties(64, -1); }, InvalidPropertyValue},
    {"bars of 1024 tiles", [](auto&) { OpenProperties(64, 64, 1024, 1024); }, {}},
    {"bars of a level too wide", [](auto&) { OpenProperties(64, 64, 1025, 15); }, Overflow},
    {"bars of a level too high", [](auto&) { OpenProperties(64, 64, 18, 1025); }, Overflow},
    {"the last kind", [](auto&) { ShowBadGuy(64, 64, 9); }, {}},
    {"a kind that is none", [](auto&) { ShowBadGuy(64, 64, 10); }, SubscriptOutOfRange},
    {"properties of a kind that is none", [](auto&) { OpenPropertiesOfNoKind(); }, SubscriptOutOfRange},
    {"deleting the last bad guy", [](auto&) { DeleteTheOnlyBadGuy(1); }, {}},
    {"deleting from an empty list", [](auto&) { DeleteTheOnlyBadGuy(2); }, SubscriptOutOfRange},
    {"reset point in column 1013", [](auto&) { AddSecondResetPointAt(1013); }, {}},
    {"reset point in column 1014", [](auto&) { AddSecondResetPointAt(1014); }, Overflow},
    {"smallest maps that fill the view", [](auto&) { ShowLayerOf(17); }, {}},
    {"maps that do not fill the view", [](auto&) { ShowLayerOf(16); }, SubscriptOutOfRange},
    {"saving without maps", [](auto&) { PressWithoutMaps("TB(7)"); }, SubscriptOutOfRange},
    {"text of a level without maps", [](auto&) { PressWithoutMaps("TB(11)"); }, SubscriptOutOfRange},
    {"a folder in the place of the INFO file", [](auto& path) { WriteInfoOverAFolder(path); }, PathFileAccessError},
    {"an INFO file without a folder", [](auto& path) { WriteInfoBeside(path + "/gone/info"); }, PathNotFound},
    {"a folder in the place of the help file", [](auto&) { SaveHelpOverAFolder(); }, PathFileAccessError},
    {"width emptied", [](auto&) { InVars("WidthBox", ""); }, TypeMismatch},
    {"width 40000", [](auto&) { InVars("WidthBox", "40000"); }, Overflow},
    {"width 21 with an ending", [](auto&) { InVars("WidthBox", "21", 1); }, SubscriptOutOfRange},
    {"start x emptied", [](auto&) { InVars("StartXBox", ""); }, TypeMismatch},
    {"start y of letters", [](auto&) { InVars("StartYBox", "x"); }, TypeMismatch},
    {"blue beyond 16 bits", [](auto&) { InVars("BkgBluTopBox", "32768"); }, Overflow},
    {"red of a sign", [](auto&) { InVars("BkgRedBtmBox", "-"); }, TypeMismatch},
    {"time beyond 16 bits", [](auto&) { InVars("TimeBox", "99999"); }, Overflow},
    {"no background folder", [](auto& path) { ChooseBackgroundIn(path + "/gone"); }, PathNotFound},
    {"background that is no picture", [](auto& path) { ChooseTextAsBackground(path); }, InvalidPicture},
    {"level set over a folder", [](auto& path) { CreateSetOverAFolder(path); }, PathFileAccessError},
    {"level set without a place for it", [](auto& path) { CreateSet(path + "/gone", "new"); }, PathNotFound},
    {"world favorites behind the table", [](auto&) { InWorld(1, 11, [] {}); }, SubscriptOutOfRange},
    {"a palette cell behind the world tiles", [](auto&) { InWorld(0, 12, [] { ClickOn(Editor, "TileImg(28)"); }); },
     SubscriptOutOfRange},
    {"an empty world favorite", [](auto&) { InWorld(1, 1, [] { ClickOn(Editor, "TileImg(0)"); }); },
     SubscriptOutOfRange},
    {"picking an empty world cell", [](auto&) { InWorld(0, 1, PickNoTile); }, SubscriptOutOfRange},
    {"a world tile without a picture", [](auto&) { InWorld(0, 1, [] { SetTileAndMode(17, 14, 77, 3); }); },
     SubscriptOutOfRange},
    {"63 links", [](auto&) { ShowLinks(63); }, {}},
    {"64 links", [](auto&) { ShowLinks(64); }, SubscriptOutOfRange},
    {"drawing behind the world tiles", [](auto&) { DrawWorldBeyondItsTiles(41, 23); }, {}},
    {"drawing further behind them", [](auto&) { DrawWorldBeyondItsTiles(42, 24); }, SubscriptOutOfRange},
    {"saving more than the world tiles", [](auto&) { SaveTooHighAWorld(); }, SubscriptOutOfRange},
    {"a link type out of the table", [](auto&) { InWorld(3, 1, ListNoType); }, SubscriptOutOfRange},
    {"a saved world that does not read", [](auto& path) { OpenSavedWorld(path + "/bad.fbwm"); }, TypeMismatch},
    {"link x at its end", [](auto&) { InLink("XBox", "32767"); }, {}},
    {"link x beyond 16 bits", [](auto&) { InLink("XBox", "32768"); }, Overflow},
    {"link y emptied", [](auto&) { InLink("YBox", ""); }, TypeMismatch},
    {"link destination x emptied", [](auto&) { InLink("DestXBox", ""); }, TypeMismatch},
    {"link destination y beyond 16 bits", [](auto&) { InLink("DestYBox", "32768"); }, Overflow},
    {"world start emptied", [](auto&) { InWorldProperties("StartXBox", ""); }, TypeMismatch},
    {"world start beyond 16 bits", [](auto&) { InWorldProperties("StartYBox", "32768"); }, Overflow},
    {"a world width at the end of its bar", [](auto&) { InWorldProperties("WidthBox", "512"); }, {}},
    {"a world width that the bar lacks", [](auto&) { InWorldProperties("WidthBox", "513"); }, InvalidPropertyValue},
    {"opening with such a width", [](auto&) { InWorldProperties("WidthBox", "", 513); }, InvalidPropertyValue},
};

class FatalFaultsTest : public ScreenTest {
protected:
    void TearDown() override {
        ScreenTest::TearDown();
        std::filesystem::remove_all(HelpFile());
        HelpText.clear();
    }
};

TEST_F(FatalFaultsTest, EndTheProcessWithTheirNumber) {
    for (const FatalAction& action : Actions) {
        SCOPED_TRACE(action.what);
        Restart();
        OpenMain();
        MakeLevel(120);
        action.act(folder.string());
        EXPECT_EQ(dialogs.fatalFault, action.fault);
        EXPECT_FALSE(std::filesystem::exists("level.fbl"));
    }
}

}  // namespace
