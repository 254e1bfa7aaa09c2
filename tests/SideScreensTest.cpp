#include <QImage>
#include <QListWidget>
#include <QPixmap>
#include <QTest>
#include <QTimer>

#include "tests/ProgramState.h"
#include "tests/ScreenDriver.h"

// Where side screens stand, and the choice of a background.

namespace {

constexpr const char* Picker = "BackGndFrm";

class SideScreensTest : public ScreenTest {
protected:
    /// Clicks BackgroundBox of VarsFrm, and does `actions` while it waits for the picker.
    template <typename Actions>
    static void ChooseBackground(Actions actions) {
        QTimer::singleShot(0, actions);
        ClickOn("VarsFrm", "BackgroundBox");
    }

    static void ClickFile(const char* name) {
        auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        const auto found = list.findItems(QString::fromLatin1(name), Qt::MatchExactly | Qt::MatchCaseSensitive);
        ASSERT_EQ(found.size(), 1) << name;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, list.visualItemRect(found[0]).center());
    }
};

TEST_F(SideScreensTest, EachOpensOverADeafMainFrmAndKeepsItsPlace) {
    const std::pair<const char*, const char*> cases[] = {
        {"HelpFrm", "TB(15)"}, {"VarsFrm", "TB(10)"}, {"NukTextFrm", "TB(11)"}};
    for (const auto& [screen, button] : cases) {
        SCOPED_TRACE(screen);
        Restart();
        OpenMain(120);
        ClickOn(Main, button);
        EXPECT_FALSE(WindowOf(Main).takesInput);
        WindowOf(screen).move(31, 47);
        ClickOn(screen, "CloseCmd");
        DeliverEvents();
        EXPECT_TRUE(WindowOf(Main).takesInput);
        ClickOn(Main, button);
        EXPECT_EQ(WindowOf(screen).pos(), QPoint(31, 47));
        CloseScreen(screen);
    }
}

TEST_F(SideScreensTest, BackgroundsAreListedPreviewedAndChosen) {
    OpenMain(120);
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(QColor(200, 30, 30));
    picture.save(QString::fromStdString(PathOf("back.jpg")));
    picture.save(QString::fromStdString(PathOf("Back.bmp")));
    std::string large = FileText(PathOf("Back.bmp")).substr(0, 54);
    large.replace(18, 8, std::string("\x70\x17\0\0\x70\x17\0\0", 8));  // 6000 by 6000 pixels of 3 bytes, all black
    std::filesystem::resize_file(Store("na\xEFve.bmp", large), 54 + 3 * 6000 * 6000);  // a name that is not UTF-8
    for (const char* name : {"BACK.PNG", "ocean.png", "xpng", ".hidden"}) {
        Store(name, "not read");
    }
    std::filesystem::create_directory(folder / "a folder");
    LevelRecord.background = "old.png";
    OpenVarsFrm();
    const auto shown = [] { return CellOf(Picker, "PreviewImg").Shown(); };
    const auto red = [&] { return shown().Pixmap()->toImage().pixelColor(0, 0).red(); };
    ChooseBackground([&] {
        Texts names;
        auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        for (int row = 0; row < list.count(); ++row) {
            names.push_back(list.item(row)->text().toStdString());
        }
        EXPECT_EQ(names, (Texts{".hidden", "Back.bmp", "back.jpg", "BACK.PNG", "naïve.bmp", "ocean.png", "xpng"}));
        list.setFocus(Qt::TabFocusReason);  // must not choose by itself
        const Picture fixed = CellOf(Picker, "PNGImage").Shown();
        EXPECT_TRUE(shown() != Picture() && shown() != fixed);
        for (const char* name : {"ocean.png", "BACK.PNG", "xpng"}) {  // are not opened
            ClickFile("back.jpg");
            EXPECT_GT(red(), 180);
            ClickFile(name);
            EXPECT_EQ(shown(), fixed) << name;
        }
        ClickFile("na\xEFve.bmp");
        EXPECT_LT(red(), 20);
        EXPECT_EQ(shown().Pixmap()->size(), QSize(324, 243)) << "decoded at the size of the cell";
        ClickOn(Picker, "CancelCmd");
    });
    EXPECT_EQ(LevelRecord.background, "old.png");
    ChooseBackground([] {
        ClickFile("Back.bmp");
        PressKey(Picker, "ImageFiles", Qt::Key_Down);
        ClickOn(Picker, "OKCmd");
    });
    EXPECT_EQ(LevelRecord.background + ShownBy(ControlOf<QWidget>("VarsFrm", "BackgroundBox")), "back.jpgback.jpg");
    ChooseBackground([] { ClickOn(Picker, "OKCmd"); });  // a new picker, that knows nothing of the click before
    EXPECT_EQ(LevelRecord.background + ShownBy(ControlOf<QWidget>("VarsFrm", "BackgroundBox")), "");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    Store("xpng.txt", "no picture");
    ChooseBackground([] {
        ClickFile("xpng.txt");
        CloseScreen(Picker);
    });
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::InvalidPicture);
}

}  // namespace
