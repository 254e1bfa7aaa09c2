#include <QListWidget>
#include <QTimer>
#include <functional>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "tests/ScreenDriver.h"

// What a user can do that ends the process, and the number that the last message gives. No such action may
// leave a file changed.

namespace {

void InVars(const char* box, const char* text) {
    OpenVarsFrm();
    TypeInto("VarsFrm", box, text);
}

void Empty(const char* box) {
    InVars(box, "1");
    PressKey("VarsFrm", box, Qt::Key_Backspace);
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

void CreateSet(const char* name) {
    dialogs.answers = {AnswerYes};
    dialogs.inputs = {name};
    QTimer::singleShot(0, [] {
        TypeInto("NewInfoFrm", "TitleBox", "T");
        TypeInto("NewInfoFrm", "DescBox", "D");
        ClickOn("NewInfoFrm", "CreateCmd");
    });
    ClickOn("MainFrm", "TB(5)");
}

struct FatalAction {
    const char* what;
    std::function<void()> act;
    FaultNumber fault;
};

class FatalFaultsTest : public ScreenTest {};

TEST_F(FatalFaultsTest, EndTheProcessWithTheirNumber) {
    const std::string missing = (folder / "missing").string();
    const FatalAction actions[] = {
        {"width emptied", [] { Empty("WidthBox"); }, FaultNumber::TypeMismatch},
        {"width 40000", [] { InVars("WidthBox", "40000"); }, FaultNumber::Overflow},
        {"width 21 with an ending",
         [] {
             PrefsRecord.AddEndState = 1;
             InVars("WidthBox", "21");
         },
         FaultNumber::SubscriptOutOfRange},
        {"start x emptied", [] { Empty("StartXBox"); }, FaultNumber::TypeMismatch},
        {"start y of letters", [] { InVars("StartYBox", "x"); }, FaultNumber::TypeMismatch},
        {"red emptied", [] { Empty("BkgRedTopBox"); }, FaultNumber::TypeMismatch},
        {"green emptied", [] { Empty("BkgGrnTopBox"); }, FaultNumber::TypeMismatch},
        {"blue beyond 16 bits", [] { InVars("BkgBluTopBox", "32768"); }, FaultNumber::Overflow},
        {"red of a sign", [] { InVars("BkgRedBtmBox", "-"); }, FaultNumber::TypeMismatch},
        {"green of letters", [] { InVars("BkgGrnBtmBox", "z"); }, FaultNumber::TypeMismatch},
        {"blue emptied", [] { Empty("BkgBluBtmBox"); }, FaultNumber::TypeMismatch},
        {"time beyond 16 bits", [] { InVars("TimeBox", "99999"); }, FaultNumber::Overflow},
        {"no background folder",
         [&] {
             ChooseBackgroundIn(missing);
             OpenBackGndFrm();  // still in loading: the end of the process would have swept it away
             CloseScreen("BackGndFrm");
         },
         FaultNumber::PathNotFound},
        {"background that is no picture",
         [&] {
             WriteFile(folder / "notes.txt", "no picture");
             ChooseBackgroundIn(folder.string());
         },
         FaultNumber::InvalidPicture},
        {"level set over a folder",
         [&] {
             std::filesystem::create_directory(folder / "bare");
             CreateSet("bare");
         },
         FaultNumber::PathFileAccessError},
        {"level set without a place for it",
         [&] {
             UserLevelsFolder = missing;
             CreateSet("new");
         },
         FaultNumber::PathNotFound},
    };
    for (const FatalAction& action : actions) {
        SCOPED_TRACE(action.what);
        TearDown();
        SetUp();
        MakeLevel(120);
        LoadMainFrm();
        ShowMainFrm();
        action.act();
        EXPECT_EQ(dialogs.fatalFault, action.fault);
        EXPECT_FALSE(std::filesystem::exists("level.fbl"));
    }
}

}  // namespace
