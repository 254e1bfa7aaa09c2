#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <functional>

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Files.h"
#include "sidescreens/HelpFrm.h"
#include "tests/ScreenDriver.h"

// What a user can do that ends the process, and the number that the last message gives. No such action may
// leave a file changed.

namespace {

constexpr const char* Main = "MainFrm";

/// A level of 18 columns with one bad guy at (x, y), in the used list of MainFrm.
void ShowBadGuy(int x, int y) {
    MakeLevel(18);
    LevelRecord.BadGuyCount = 1;
    LevelRecord.objects.Resize(1);
    LevelRecord.objects[1] = {0, "snowball", x, y, 0};
    ClickOn(Main, "ModeOption(2)");
}

void OpenProperties() { ClickCell(Main, "BGImg(0)", Qt::RightButton); }

void OpenPropertiesAt(int x, int y) {
    ShowBadGuy(x, y);
    OpenProperties();
}

void OpenPropertiesIn(int width, int height) {
    ShowBadGuy(64, 64);
    LevelRecord.width = width;
    LevelRecord.height = height;
    OpenProperties();
}

void ShowKind(int kind) {
    ShowBadGuy(64, 64);
    LevelRecord.objects[1].kind = kind;
    ClickOn(Main, "ModeOption(2)");
}

void DeleteTheOnlyBadGuy(int times) {
    ShowBadGuy(64, 64);
    ClickCell(Main, "BGImg(0)");
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
    ClickCell(Main, "Img(" + std::to_string((column - 1005) * 15) + ")");
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
    QTest::keyClicks(&ControlOf<QWidget>("HelpFrm", "HelpBox"), "new");
    std::filesystem::create_directory(HelpFile());
    ClickOn("HelpFrm", "SaveHelpCmd");
}

void InVars(const char* box, const char* text) {
    OpenVarsFrm();
    TypeInto("VarsFrm", box, text);
}

void Empty(const char* box) {
    InVars(box, "1");
    PressKey("VarsFrm", box, Qt::Key_Backspace);
}

void NarrowToEnding() {
    PrefsRecord.AddEndState = 1;
    InVars("WidthBox", "21");
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

void ChooseTextAsBackground(const std::string& folder) {
    WriteFile(folder + "/notes.txt", "no picture");
    ChooseBackgroundIn(folder);
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

void MakeFolderIn(const std::string& folder, const char* name) {
    std::filesystem::create_directory(folder + "/" + name);
}

struct FatalAction {
    const char* what;
    std::function<void(const std::string& folder)> act;  ///< `folder` is the test's own, empty at first
    std::optional<FaultNumber> fault;                    ///< none for what stands just within a limit
};

using enum FaultNumber;

const FatalAction Actions[]{
    {"bad guy at the end of its bars", [](auto&) { OpenPropertiesAt(17 * 32 - 1, 14 * 32 - 1); }, {}},
    {"bad guy in the last column", [](auto&) { OpenPropertiesAt(17 * 32, 64); }, InvalidPropertyValue},
    {"bad guy in the last row", [](auto&) { OpenPropertiesAt(64, 14 * 32); }, InvalidPropertyValue},
    {"bad guy above the level", [](auto&) { OpenPropertiesAt(64, -1); }, InvalidPropertyValue},
    {"bars of 1024 tiles", [](auto&) { OpenPropertiesIn(1024, 1024); }, {}},
    {"bars of a level too wide", [](auto&) { OpenPropertiesIn(1025, 15); }, Overflow},
    {"bars of a level too high", [](auto&) { OpenPropertiesIn(18, 1025); }, Overflow},
    {"the last kind", [](auto&) { ShowKind(9); }, {}},
    {"a kind that is none", [](auto&) { ShowKind(10); }, SubscriptOutOfRange},
    {"properties of a kind that is none",
     [](auto&) {
         ShowBadGuy(64, 64);
         LevelRecord.objects[1].kind = 10;
         OpenProperties();
     },
     SubscriptOutOfRange},
    {"deleting the last bad guy", [](auto&) { DeleteTheOnlyBadGuy(1); }, {}},
    {"deleting from an empty list", [](auto&) { DeleteTheOnlyBadGuy(2); }, SubscriptOutOfRange},
    {"reset point in column 1013", [](auto&) { AddSecondResetPointAt(1013); }, {}},
    {"reset point in column 1014", [](auto&) { AddSecondResetPointAt(1014); }, Overflow},
    {"smallest maps that fill the view", [](auto&) { ShowLayerOf(17); }, {}},
    {"maps that do not fill the view", [](auto&) { ShowLayerOf(16); }, SubscriptOutOfRange},
    {"saving without maps", [](auto&) { PressWithoutMaps("TB(7)"); }, SubscriptOutOfRange},
    {"text of a level without maps", [](auto&) { PressWithoutMaps("TB(11)"); }, SubscriptOutOfRange},
    {"a folder in the place of the INFO file",
     [](auto& folder) {
         MakeFolderIn(folder, "info");
         WriteInfoBeside(folder + "/level.fbl");
     },
     PathFileAccessError},
    {"an INFO file without a folder", [](auto& folder) { WriteInfoBeside(folder + "/gone/info"); }, PathNotFound},
    {"a folder in the place of the help file", [](auto&) { SaveHelpOverAFolder(); }, PathFileAccessError},
    {"width emptied", [](auto&) { Empty("WidthBox"); }, TypeMismatch},
    {"width 40000", [](auto&) { InVars("WidthBox", "40000"); }, Overflow},
    {"width 21 with an ending", [](auto&) { NarrowToEnding(); }, SubscriptOutOfRange},
    {"start x emptied", [](auto&) { Empty("StartXBox"); }, TypeMismatch},
    {"start y of letters", [](auto&) { InVars("StartYBox", "x"); }, TypeMismatch},
    {"red emptied", [](auto&) { Empty("BkgRedTopBox"); }, TypeMismatch},
    {"green emptied", [](auto&) { Empty("BkgGrnTopBox"); }, TypeMismatch},
    {"blue beyond 16 bits", [](auto&) { InVars("BkgBluTopBox", "32768"); }, Overflow},
    {"red of a sign", [](auto&) { InVars("BkgRedBtmBox", "-"); }, TypeMismatch},
    {"green of letters", [](auto&) { InVars("BkgGrnBtmBox", "z"); }, TypeMismatch},
    {"blue emptied", [](auto&) { Empty("BkgBluBtmBox"); }, TypeMismatch},
    {"time beyond 16 bits", [](auto&) { InVars("TimeBox", "99999"); }, Overflow},
    {"no background folder", [](auto& folder) { ChooseBackgroundIn(folder + "/gone"); }, PathNotFound},
    {"background that is no picture", [](auto& folder) { ChooseTextAsBackground(folder); }, InvalidPicture},
    {"level set over a folder",
     [](auto& folder) {
         MakeFolderIn(folder, "bare");
         CreateSet(folder, "bare");
     },
     PathFileAccessError},
    {"level set without a place for it", [](auto& folder) { CreateSet(folder + "/gone", "new"); }, PathNotFound},
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
        TearDown();
        SetUp();
        LoadMainFrm();
        ShowMainFrm();
        MakeLevel(120);
        action.act(folder.string());
        EXPECT_EQ(dialogs.fatalFault, action.fault);
        EXPECT_FALSE(std::filesystem::exists("level.fbl"));
    }
}

}  // namespace
