#include <QListWidget>
#include <QTimer>
#include <functional>

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

void OpenProperties(int x, int y) {
    ShowBadGuy(x, y);
    RightClickOn(Main, "BGImg(0)");
}

void DeleteTheOnlyBadGuyTwice() {
    ShowBadGuy(64, 64);
    ClickOn(Main, "BGImg(0)");
    ClickOn(Main, "DelBadGuyCmd");
    ClickOn(Main, "DelBadGuyCmd");
}

/// The dialog traps that the level cannot be drawn, and the check boxes stay deaf.
void SwitchGridOfANarrowLevel(const std::string& folder) {
    dialogs.files = {folder + "/narrow.fbl", folder + "/narrow.fbl"};
    MakeLevel(16);
    ClickOn(Main, "TB(8)");
    ClickOn(Main, "TB(2)");
    ClickOn(Main, "GridCheck");
}

void WriteInfoOverAFolder(const std::string& folder) {
    std::filesystem::create_directory(folder + "/info");
    InfoPath = folder + "/level.fbl";
    OpenNukTextFrm();
    ClickOn("NukTextFrm", "WriteInfoCmd");
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

void ChooseTextAsBackground(const std::string& folder) {
    WriteFile(folder + "/notes.txt", "no picture");
    BackgroundFolder = folder;
    OpenVarsFrm();
    QTimer::singleShot(0, [] {
        ControlOf<QListWidget>("BackGndFrm", "ImageFiles").setCurrentRow(0);
        CloseScreen("BackGndFrm");
    });
    ClickOn("VarsFrm", "BackgroundBox");
}

void TypeLinkX(const std::string& text) {
    OpenWorld();
    AddLink(2, 3, TeleportLink);
    ClickOn(Editor, "ModeOption(2)");
    ClickOn(Editor, "LinkTypeBox(0)");
    TypeInto(LinkEditor, "XBox", text);
}

void InWorldProperties(const char* box, const std::string& text) {
    OpenWorld();
    ClickOn(Editor, "WTB(8)");
    TypeInto("WorldPropertiesFrm", box, text.empty() ? "5" : text);
    PressKey("WorldPropertiesFrm", box, text.empty() ? Qt::Key_Backspace : Qt::Key_Return);
}

void SetWorldMode(int mode) { ClickOn(Editor, Member("ModeOption", mode)); }

/// Clicks a palette cell in the editor of a fresh world, in that mode, with that tile in the first cell.
void ClickPalette(int mode, int first, const char* cell) {
    OpenWorld();
    SetWorldMode(mode);
    ScrollTo(Editor, "TileScroll", first);
    ClickOn(Editor, cell);
}

void ClickNegativeFavorite() {
    PrefsRecord.WorldFavorites[4] = -1;
    ClickPalette(1, 1, "TileImg(0)");
}

struct FatalAction {
    const char* what;
    std::function<void(const std::string& folder)> act;  ///< `folder` is the test's own, empty at first
    std::optional<FaultNumber> fault;                    ///< none for what stands just within a limit
};

void Show64Links() {
    OpenWorld();
    for (int n = 1; n <= 64; ++n) {
        AddLink(30, 20, LevelLink);
    }
    SetWorldMode(2);
}

using enum FaultNumber;

const FatalAction Actions[]{
    {"bad guy at the end of its bars", [](auto&) { OpenProperties(17 * 32 - 1, 14 * 32 - 1); }, {}},
    {"bad guy in the last column", [](auto&) { OpenProperties(17 * 32, 64); }, InvalidPropertyValue},
    {"a kind that is none", [](auto&) { ShowBadGuy(64, 64, 10); }, SubscriptOutOfRange},
    {"deleting from an empty list", [](auto&) { DeleteTheOnlyBadGuyTwice(); }, SubscriptOutOfRange},
    {"the grid of a narrow level", [](auto& path) { SwitchGridOfANarrowLevel(path); }, {}},
    {"a folder in the place of the INFO file", [](auto& path) { WriteInfoOverAFolder(path); }, PathFileAccessError},
    {"width emptied", [](auto&) { InVars("WidthBox", ""); }, TypeMismatch},
    {"width 40000", [](auto&) { InVars("WidthBox", "40000"); }, Overflow},
    {"width 21 with an ending", [](auto&) { InVars("WidthBox", "21", 1); }, SubscriptOutOfRange},
    {"blue beyond 16 bits", [](auto&) { InVars("BkgBluTopBox", "32768"); }, Overflow},
    {"background that is no picture", [](auto& path) { ChooseTextAsBackground(path); }, InvalidPicture},
    {"a palette cell behind the world tiles", [](auto&) { ClickPalette(0, 12, "TileImg(28)"); }, SubscriptOutOfRange},
    {"an empty world favorite", [](auto&) { ClickPalette(1, 1, "TileImg(0)"); }, SubscriptOutOfRange},
    {"a negative world favorite", [](auto&) { ClickNegativeFavorite(); }, SubscriptOutOfRange},
    {"64 links", [](auto&) { Show64Links(); }, SubscriptOutOfRange},
    {"link x beyond 16 bits", [](auto&) { TypeLinkX("32768"); }, Overflow},
    {"world start emptied", [](auto&) { InWorldProperties("StartXBox", ""); }, TypeMismatch},
    {"a world width at the end of its bar", [](auto&) { InWorldProperties("WidthBox", "512"); }, {}},
    {"a world width that the bar lacks", [](auto&) { InWorldProperties("WidthBox", "513"); }, InvalidPropertyValue},
};

using FatalFaultsTest = ScreenTest;

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
