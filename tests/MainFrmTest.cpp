#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"

// The map view, the palette, painting, the toolbar and the start-up of MainFrm, through its window.

namespace {

constexpr const char* Main = "MainFrm";

std::string Img(int column, int row) { return "Img(" + std::to_string(column * 15 + row) + ")"; }

class MainFrmTest : public ScreenTest {
protected:
    static void Open() {
        LoadMainFrm();
        ShowMainFrm();
    }

    static void OpenWithLevel(int width) {
        MakeLevel(width);
        Open();
        UpdateDisplay();
    }
};

TEST_F(MainFrmTest, FirstStartAsksForALevel) {
    Open();
    EXPECT_EQ(CaptionOf(Main, "FileNameBox"), "Click here to open an existing Floebird Level file.");
    EXPECT_EQ(WindowOf(Main).windowTitle().toStdString(), "FB_Editor V1.09 - Floebird Level Editor by Quillhare");
    EXPECT_TRUE(IsTicked(Main, "LayerOption(0)"));
    EXPECT_TRUE(IsTicked(Main, "ModeOption(0)"));
    EXPECT_TRUE(IsTicked(Main, "TilesOption(0)"));
    EXPECT_EQ(ScrollMaxOf(Main, "MapXScroll"), 32767);
    EXPECT_EQ(SelectedBadGuy, -1);
    ClickCell(Main, Img(0, 0));
    ASSERT_EQ(dialogs.messages.size(), 1U);
    EXPECT_EQ(dialogs.messages[0].text,
              "You must create the level first!\r\nUse the File menu to create a new set or level.");
    EXPECT_EQ(dialogs.messages[0].title, "No Level Width Specified");
}

TEST_F(MainFrmTest, CellsRunDownEachColumn) {
    Open();
    EXPECT_EQ(CellOf(Main, "Img(0)").Left(), 10);
    EXPECT_EQ(CellOf(Main, "Img(0)").Top(), 80);
    EXPECT_EQ(CellOf(Main, "Img(269)").Left(), 10 + 34 * 17);
    EXPECT_EQ(CellOf(Main, "Img(16)").Top(), 80 + 34);
}

}  // namespace
