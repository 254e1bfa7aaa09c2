#include <QTest>
#include <functional>

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Files.h"
#include "sidescreens/HelpFrm.h"
#include "tests/ScreenDriver.h"

// Which action in which screen meets no trap, and so ends the process with which fault.

namespace {

constexpr const char* Main = "MainFrm";

void OpenMainFrm() {
    LoadMainFrm();
    ShowMainFrm();
}

/// MainFrm in the mode of the used list, with one bad guy at (x, y) of a level of 18 columns.
void ShowBadGuy(int x, int y) {
    CurrentMode = 2;
    OpenMainFrm();
    MakeLevel(18);
    LevelRecord.BadGuyCount = 1;
    LevelRecord.objects.Resize(1);
    LevelRecord.objects[1] = {0, "snowball", x, y, 0};
    UpdateDisplay();
}

void OpenProperties() { ClickCell(Main, "BGImg(0)", Qt::RightButton); }

void ShowLevelWithoutMaps() {
    OpenMainFrm();
    LevelPath = "level.fbl";
    LevelRecord.width = 20;
}

/// MainFrm ready for another reset point, with column 1005 as the left one of the view.
void ShowFarColumns() {
    OpenMainFrm();
    MakeLevel(1030);
    LevelRecord.ResetPointCount = 1;
    LevelRecord.reset_points.Resize(1);
    CurrentTile = 131;
    ScrollTo(Main, "MapXScroll", 1005);
}

void ShowText(const std::string& infoPath) {
    InfoPath = infoPath;
    OpenMainFrm();
    ClickOn(Main, "TB(11)");
}

std::string HelpFile() { return JoinPath(ProgramFolder(), "FB_Editor.Help"); }

void EditHelp() {
    HelpText = "old";
    OpenMainFrm();
    ClickOn(Main, "TB(15)");
    QTest::keyClicks(&ControlOf<QWidget>("HelpFrm", "HelpBox"), "new");
}

struct Case {
    const char* name;
    std::function<void(const std::string& folder)> prepare;
    std::function<void()> act;
    std::optional<FaultNumber> fault;
};

using enum FaultNumber;

// The rows without a fault stand beside a limit.
const Case Cases[]{
    {"BadGuyAtTheEndOfItsBars", [](auto&) { ShowBadGuy(17 * 32 - 1, 14 * 32 - 1); }, OpenProperties, {}},
    {"BadGuyInTheLastColumn", [](auto&) { ShowBadGuy(17 * 32, 64); }, OpenProperties, InvalidPropertyValue},
    {"BadGuyInTheLastRow", [](auto&) { ShowBadGuy(64, 14 * 32); }, OpenProperties, InvalidPropertyValue},
    {"BadGuyAboveTheLevel", [](auto&) { ShowBadGuy(64, -1); }, OpenProperties, InvalidPropertyValue},
    {"WidestLevelWithBars", [](auto&) { ShowBadGuy(64, 64), LevelRecord.width = 1024; }, OpenProperties, {}},
    {"BarsOfATooWideLevel", [](auto&) { ShowBadGuy(64, 64), LevelRecord.width = 1025; }, OpenProperties, Overflow},
    {"BarsOfATooHighLevel", [](auto&) { ShowBadGuy(64, 64), LevelRecord.height = 1025; }, OpenProperties, Overflow},
    {"PropertiesOfAnUnknownKind", [](auto&) { ShowBadGuy(64, 64), LevelRecord.objects[1].kind = 10; }, OpenProperties,
     SubscriptOutOfRange},
    {"UnknownKindInTheList", [](auto&) { ShowBadGuy(64, 64), LevelRecord.objects[1].kind = 10; },
     [] { ClickOn(Main, "ModeOption(2)"); }, SubscriptOutOfRange},
    {"DeletingTheLastBadGuy",
     [](auto&) { ShowBadGuy(64, 64), ClickCell(Main, "BGImg(0)"); },
     [] { ClickOn(Main, "DelBadGuyCmd"); },
     {}},
    {"DeletingFromAnEmptyList",
     [](auto&) {
         ShowBadGuy(64, 64);
         ClickCell(Main, "BGImg(0)");
         ClickOn(Main, "DelBadGuyCmd");
     },
     [] { ClickOn(Main, "DelBadGuyCmd"); }, SubscriptOutOfRange},
    {"LastColumnForAnotherResetPoint",
     [](auto&) { ShowFarColumns(); },
     [] { ClickCell(Main, "Img(" + std::to_string(8 * 15) + ")"); },
     {}},
    {"ResetPointTooFarRight", [](auto&) { ShowFarColumns(); },
     [] { ClickCell(Main, "Img(" + std::to_string(9 * 15) + ")"); }, Overflow},
    {"SmallestMapsThatFillTheView",
     [](auto&) { OpenMainFrm(), MakeLevel(17); },
     [] { ClickOn(Main, "LayerOption(1)"); },
     {}},
    {"SavingWithoutMaps", [](auto&) { ShowLevelWithoutMaps(); }, [] { ClickOn(Main, "TB(7)"); }, SubscriptOutOfRange},
    {"TextOfALevelWithoutMaps", [](auto&) { ShowLevelWithoutMaps(); }, [] { ClickOn(Main, "TB(11)"); },
     SubscriptOutOfRange},
    {"InfoIsAFolder",
     [](auto& folder) {
         std::filesystem::create_directory(folder + "/info");
         ShowText(folder + "/level.fbl");
     },
     [] { ClickOn("NukTextFrm", "WriteInfoCmd"); }, PathFileAccessError},
    {"FolderOfInfoIsGone", [](auto& folder) { ShowText(folder + "/gone/level.fbl"); },
     [] { ClickOn("NukTextFrm", "WriteInfoCmd"); }, PathNotFound},
    {"HelpFileIsAFolder", [](auto&) { EditHelp(), std::filesystem::create_directory(HelpFile()); },
     [] { ClickOn("HelpFrm", "SaveHelpCmd"); }, PathFileAccessError},
};

class FaultsTest : public ScreenTest, public testing::WithParamInterface<Case> {
protected:
    void TearDown() override {
        ScreenTest::TearDown();
        std::filesystem::remove_all(HelpFile());
    }
};

TEST_P(FaultsTest, EndTheProcessByTheirNumber) {
    GetParam().prepare(folder.string());
    ASSERT_FALSE(dialogs.fatalFault);
    GetParam().act();
    EXPECT_EQ(dialogs.fatalFault, GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(Actions, FaultsTest, testing::ValuesIn(Cases),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
