#include <QImage>
#include <QListWidget>
#include <QPixmap>
#include <QTest>
#include <QTimer>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"

namespace {

constexpr const char* Picker = "BackGndFrm";

class BackGndFrmTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        BackgroundFolder = folder.string();
        QImage picture(64, 48, QImage::Format_RGB32);
        picture.fill(QColor(200, 30, 30));
        picture.save(QString::fromStdString((folder / "back.jpg").string()));
        picture.save(QString::fromStdString((folder / "Back.bmp").string()));
        for (const char* name : {"BACK.PNG", "ocean.png", "xpng", ".hidden"}) {
            WriteFile(folder / name, "not read");
        }
        // The smallest picture that this format knows: one black pixel.
        WriteFile(folder / "dot.gif",
                  std::string("GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35));
        std::filesystem::create_directory(folder / "a folder");
        LevelRecord.background = "old.png";
        LoadMainFrm();
        ShowMainFrm();
        OpenVarsFrm();
    }

    /// Clicks BackgroundBox, and does `actions` while it waits for the picker.
    template <typename Actions>
    static void Choose(Actions actions) {
        QTimer::singleShot(0, actions);
        ClickOn("VarsFrm", "BackgroundBox");
    }

    static void ClickFile(const char* name) {
        auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        const auto found = list.findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_EQ(found.size(), 1) << name;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.visualItemRect(found[0]).center());
    }

    static QColor PreviewColour() { return CellOf(Picker, "PreviewImg").Shown().Pixmap()->toImage().pixelColor(0, 0); }
};

TEST_F(BackGndFrmTest, ListsEveryFileByName) {
    Choose([] {
        EXPECT_FALSE(WindowOf("VarsFrm").takesInput);
        const auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        std::vector<std::string> names;
        for (int row = 0; row < list.count(); ++row) {
            names.push_back(list.item(row)->text().toStdString());
        }
        EXPECT_EQ(names, (std::vector<std::string>{".hidden", "Back.bmp", "back.jpg", "BACK.PNG", "dot.gif",
                                                   "ocean.png", "xpng"}));
        PressKey(Picker, "ImageFiles", Qt::Key_Tab);
        ClickOn(Picker, "CancelCmd");
    });
    EXPECT_TRUE(WindowOf("VarsFrm").takesInput);
    EXPECT_FALSE(IsOpen(Picker));
    EXPECT_EQ(LevelRecord.background, "old.png");
}

TEST_F(BackGndFrmTest, PreviewsPicturesButOpensNoPng) {
    Choose([] {
        const Picture fixed = CellOf(Picker, "PNGImage").Shown();
        const Picture first = CellOf(Picker, "PreviewImg").Shown();
        EXPECT_NE(first, Picture());
        EXPECT_NE(first, fixed);
        for (const char* name : {"ocean.png", "BACK.PNG", "xpng"}) {
            ClickFile("back.jpg");
            EXPECT_GT(PreviewColour().red(), 180);
            ClickFile(name);
            EXPECT_EQ(CellOf(Picker, "PreviewImg").Shown(), fixed) << name;
        }
        ClickFile("Back.bmp");
        EXPECT_EQ(PreviewColour(), QColor(200, 30, 30));
        ClickFile("dot.gif");
        EXPECT_EQ(PreviewColour(), QColor(Qt::black));
        ClickFile("BACK.PNG");
        EXPECT_EQ(LevelRecord.background, "old.png");
        ClickOn(Picker, "OKCmd");
    });
    EXPECT_EQ(LevelRecord.background, "BACK.PNG");
    EXPECT_EQ(CaptionOf("VarsFrm", "BackgroundBox"), "BACK.PNG");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(BackGndFrmTest, TheKeysChooseToo) {
    Choose([] {
        auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        list.setFocus(Qt::TabFocusReason);  // must not choose by itself
        EXPECT_EQ(dialogs.fatalFault, std::nullopt);
        ClickFile("Back.bmp");
        PressKey(Picker, "ImageFiles", Qt::Key_Down);
        ClickOn(Picker, "OKCmd");
    });
    EXPECT_EQ(LevelRecord.background, "back.jpg");
}

TEST_F(BackGndFrmTest, OkAtOnceTakesTheBackgroundAwayAndTheCloseBoxDoesNot) {
    PrefsRecord.ScreenLeft[9] = 30;
    PrefsRecord.ScreenTop[9] = 31;
    Choose([] {
        EXPECT_EQ(WindowOf(Picker).pos(), QPoint(30, 31));
        WindowOf(Picker).move(32, 33);
        ClickFile("ocean.png");
        CloseScreen(Picker);
    });
    EXPECT_EQ(LevelRecord.background, "old.png");
    EXPECT_EQ(PrefsRecord.ScreenLeft[9], 32);
    EXPECT_EQ(PrefsRecord.ScreenTop[9], 33);
    Choose([] { ClickOn(Picker, "OKCmd"); });  // a new picker, that knows nothing of the click before
    EXPECT_EQ(LevelRecord.background, "");
    EXPECT_EQ(CaptionOf("VarsFrm", "BackgroundBox"), "");
}

}  // namespace
