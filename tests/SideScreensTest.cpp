#include <QImage>
#include <QListWidget>
#include <QPixmap>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "core/General.h"
#include "core/ModalWaits.h"
#include "platform/Files.h"
#include "sidescreens/HelpFrm.h"
#include "tests/ScreenDriver.h"

// The screens of one bad guy's properties, of the help text and of the level's text, opened from MainFrm, the choice of
// a background and the texts of a new level set.

namespace {

constexpr const char* BadGuyScreen = "zBGEditFrm";
constexpr const char* Help = "HelpFrm";
constexpr const char* NukText = "NukTextFrm";
constexpr const char* Picker = "BackGndFrm";
constexpr const char* Info = "NewInfoFrm";

class SideScreensTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        HelpText.clear();
        HelpFile = PathOf("FB_Editor.Help");
        OpenMain(120, 2);
        LevelPath = PathOf("level.fbl");
        AddBadGuy({4, "spiky", 65, 100, 1});
        UpdateDisplay();
    }

    static void OpenBadGuy() { RightClickOn(Main, "BGImg(0)"); }
    static void OpenHelp() { ClickOn(Main, "TB(15)"); }
    static void OpenText() { ClickOn(Main, "TB(11)"); }

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

    /// Waits for NewInfoFrm, and does `actions` meanwhile.
    template <typename Actions>
    static bool AskForInfo(Actions actions) {
        QTimer::singleShot(0, actions);
        return ShowNewInfoModal();
    }

    static void FillInfo(const char* title, const char* description) {
        TypeInto(Info, "TitleBox", title);
        TypeInto(Info, "DescBox", description);
        ClickOn(Info, "CreateCmd");
    }

    std::string HelpFile;
};

TEST_F(SideScreensTest, EachOpensOverADeafMainFrmAndKeepsItsPlace) {
    const struct {
        const char* screen;
        void (*open)();
    } cases[] = {{BadGuyScreen, OpenBadGuy},
                 {Help, OpenHelp},
                 {"VarsFrm", [] { ClickOn(Main, "TB(10)"); }},
                 {NukText, OpenText}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.screen);
        Restart();
        c.open();
        EXPECT_FALSE(WindowOf(Main).takesInput);
        WindowOf(c.screen).move(31, 47);
        ClickOn(c.screen, "CloseCmd");
        DeliverEvents();
        EXPECT_TRUE(WindowOf(Main).takesInput);
        c.open();
        EXPECT_EQ(WindowOf(c.screen).pos(), QPoint(31, 47));
        CloseScreen(c.screen);
    }
}

TEST_F(SideScreensTest, BadGuyPropertiesMoveTheSelectedOne) {
    AddBadGuy({9, "fish", 300, 416, 0});
    UpdateDisplay();
    OpenBadGuy();
    const BadGuy& badGuy = LevelRecord.objects[1];
    auto& xScroll = ControlOf<QScrollBar>(BadGuyScreen, "zBGXScroll");
    auto& yScroll = ControlOf<QScrollBar>(BadGuyScreen, "zBGYScroll");
    xScroll.triggerAction(QScrollBar::SliderPageStepAdd);
    yScroll.triggerAction(QScrollBar::SliderPageStepAdd);
    yScroll.triggerAction(QScrollBar::SliderSingleStepAdd);
    EXPECT_EQ(badGuy, (BadGuy{4, "spiky", 65 + 32, 100 + 16 + 1, 1}));
    xScroll.setSliderDown(true);
    xScroll.setSliderPosition(200);  // a drag that has not ended
    EXPECT_EQ(badGuy.x, 200);
    EXPECT_EQ(PlaceOf(Main, "BGImg(0)"), QPointF(10 + 200 * 34 / 32.0, 80 + 117));
    xScroll.setSliderDown(false);
    EXPECT_EQ(StatesOf(BadGuyScreen, {"zXBox", "zYBox"}), (Texts{"65", "100"}));  // where it was
    EXPECT_EQ(LevelRecord.objects[2], (BadGuy{9, "fish", 300, 416, 0}));
}

TEST_F(SideScreensTest, TheHelpIsReadOnceAndSaved) {
    WriteFile(HelpFile, "one\ntwo\r\rthree");
    OpenHelp();
    Type(Help, "HelpBox", "x");
    PressKey(Help, "HelpBox", Qt::Key_Backspace);
    EXPECT_EQ(FileText(HelpFile), "one\ntwo\r\rthree");
    ClickOn(Help, "SaveHelpCmd");
    EXPECT_EQ(FileText(HelpFile), "one\ntwo\r\n\r\nthree\r\n");
    CloseScreen(Help);
    // Edits without a save are lost, and so are those of others.
    WriteFile(HelpFile, "second\r\n");
    OpenHelp();
    Type(Help, "HelpBox", "more");
    CloseScreen(Help);
    OpenHelp();
    EXPECT_EQ(StatesOf(Help, {"HelpBox", "SaveHelpCmd"}), (Texts{"one\u2193two\n\nthree\n", "hidden"}));
}

TEST_F(SideScreensTest, TextScreenShowsWhatWouldBeWritten) {
    std::filesystem::create_directory(folder / "other");
    const std::string other = Store("other/info", "  (title \"Other\")\n  (description \"of another set\")\n)\n");
    LevelRecord.LevelComment = " my level ";
    OpenText();
    const std::string data = StateOf(NukText, "DataBox");
    EXPECT_TRUE(data.starts_with("; my level\n(floebird-level\n"));
    EXPECT_TRUE(data.ends_with("(objects\n(spiky (x 65) (y 100) (stay-on-platform #t))\n)\n)\n"));
    dialogs.files = {other};
    for (const std::string& from : {LevelPath, other}) {  // the second time it is cancelled
        ClickOn(NukText, "InfoNameBox");
        EXPECT_EQ(StateOf(NukText, "InfoNameBox"), other);
        EXPECT_EQ(dialogs.fileDialogs.back().filter + dialogs.fileDialogs.back().folder, "info|info" + FolderOf(from));
    }
    EXPECT_NE(StateOf(NukText, "InfoBox").find("(title \"Other\")"), std::string::npos);
    CloseScreen(NukText);
    // The INFO path comes first; what is written is the record and not the box.
    WriteFile(other, "");
    CurrentInfo = {"by hand", "Title", "Text"};
    OpenText();
    Type(NukText, "InfoBox", "edits");
    ClickOn(NukText, "WriteInfoCmd");
    EXPECT_EQ(FileText(other), "by hand\n(floebird-level-subset\n  (title \"Title\")\n  (description \"Text\")\n)\n");
    EXPECT_FALSE(std::filesystem::exists(folder / "info"));
}

TEST_F(SideScreensTest, BackgroundsAreListedPreviewedAndChosen) {
    BackgroundFolder = folder.string();
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
    EXPECT_EQ(LevelRecord.background + StateOf("VarsFrm", "BackgroundBox"), "back.jpgback.jpg");
    ChooseBackground([] { ClickOn(Picker, "OKCmd"); });  // a new picker, that knows nothing of the click before
    EXPECT_EQ(LevelRecord.background + StateOf("VarsFrm", "BackgroundBox"), "");
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(SideScreensTest, ANewSetWantsBothTexts) {
    CurrentInfo = {"; kept", "Old", "Older"};
    NewInfo = {"", "left", "over"};
    EXPECT_FALSE(AskForInfo([] {
        EXPECT_EQ(NewInfo.title + NewInfo.description + StateOf(Info, "TitleBox"), "");
        FillInfo("", "");
        FillInfo("  ", "");
        FillInfo("Ice ", "");
        ClickOn(Info, "CancelCmd");
    }));
    Texts messages;
    for (const Message& message : dialogs.messages) {
        messages.push_back(message.title + ": " + message.text);
    }
    const std::string noTitle = "INFO Create Error: Title has not been entered!";
    EXPECT_EQ(messages, (Texts{noTitle, noTitle, "INFO Create Error: Description has not been entered!"}));
    InfoCreated = True;  // from a set before
    EXPECT_FALSE(AskForInfo([] { CloseScreen(Info); }));
    EXPECT_EQ(CurrentInfo, (InfoRecord{"; kept", "Old", "Older"}));
    EXPECT_TRUE(AskForInfo([] { FillInfo("Ice ", "Cold"); }));
    EXPECT_EQ(CurrentInfo, (InfoRecord{"", "Ice ", "Cold"}));
}

}  // namespace
