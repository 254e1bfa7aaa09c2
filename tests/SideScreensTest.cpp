#include <QGuiApplication>
#include <QImage>
#include <QListWidget>
#include <QPixmap>
#include <QScreen>
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
        std::filesystem::remove_all(HelpFile);
        OpenMain(120, 2);
        LevelPath = PathOf("level.fbl");
        AddBadGuy({4, "spiky", 65, 100, 1});
        UpdateDisplay();
    }

    void TearDown() override {
        ScreenTest::TearDown();
        std::filesystem::remove_all(HelpFile);
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

    const std::string HelpFile = JoinPath(ProgramFolder(), "FB_Editor.Help");
};

TEST_F(SideScreensTest, EachOpensOverADeafMainFrmAndKeepsItsPlace) {
    const QSize display = QGuiApplication::primaryScreen()->geometry().size();
    const struct {
        const char* screen;
        ScreenIndex index;
        void (*open)();
        bool centres;
        Qt::CursorShape pointer;  ///< only the text screen touches it
    } cases[] = {{BadGuyScreen, ScreenIndex::zBGEditFrm, OpenBadGuy, true, Qt::BitmapCursor},
                 {Help, ScreenIndex::HelpFrm, OpenHelp, false, Qt::BitmapCursor},
                 {"VarsFrm", ScreenIndex::VarsFrm, [] { ClickOn(Main, "TB(10)"); }, false, Qt::WaitCursor},
                 {NukText, ScreenIndex::NukTextFrm, OpenText, false, Qt::WaitCursor}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.screen);
        Restart();
        ClickOn(Main, "SetNukCmd");
        c.open();
        EXPECT_FALSE(WindowOf(Main).takesInput);
        EXPECT_EQ(WindowOf(Main).cursor().shape(), c.pointer);
        Surface& window = WindowOf(c.screen);
        const QPoint centred((display.width() - window.width()) / 2, (display.height() - window.height()) / 2);
        EXPECT_EQ(window.pos(), c.centres ? centred : QPoint(0, 0));
        window.move(31, 47);
        ClickOn(c.screen, "CloseCmd");
        DeliverEvents();
        EXPECT_TRUE(WindowOf(Main).takesInput);
        EXPECT_EQ(WindowOf(Main).cursor().shape(), c.pointer == Qt::WaitCursor ? Qt::ArrowCursor : Qt::BitmapCursor);
        EXPECT_EQ(SavedPlace(static_cast<std::size_t>(c.index)), QPoint(31, 47));
        c.open();
        EXPECT_EQ(WindowOf(c.screen).pos(), QPoint(31, 47));
        CloseScreen(c.screen);
        EXPECT_TRUE(WindowOf(Main).takesInput);
    }
}

TEST_F(SideScreensTest, BadGuyPropertiesMoveTheSelectedOne) {
    AddBadGuy({9, "fish", 300, 416, 0});
    UpdateDisplay();
    RightClickOn(Main, "BGImg(1)");
    EXPECT_EQ(
        StatesOf(BadGuyScreen, {"zNameBox", "zBGNumBox", "zXBox", "zYBox", "zStayCheck", "zBGXScroll", "zBGYScroll"}),
        (Texts{"Fish", "2", "300", "416", "off", "300 of 3807", "416 of 447"}));
    CloseScreen(BadGuyScreen);
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
    ClickOn(BadGuyScreen, "zStayCheck");
    EXPECT_EQ(badGuy.stay_on_platform, 0);
    EXPECT_EQ(StateOf(Main, "StayCheck(0)"), "on");  // MainFrm catches up at its next redraw
    ScrollTo(BadGuyScreen, "zBGXScroll", 66);
    EXPECT_EQ(StateOf(Main, "StayCheck(0)"), "off");
    EXPECT_EQ(LevelRecord.objects[2], (BadGuy{9, "fish", 300, 416, 0}));
}

TEST_F(SideScreensTest, SavingTheHelpKeepsTheLinesOfTheFile) {
    OpenHelp();
    DeliverEvents();
    EXPECT_EQ(StatesOf(Help, {"HelpBox", "SaveHelpCmd"}), (Texts{"", "hidden"})) << "no file is no failure";
    EXPECT_EQ(WindowOf(Help).focusWidget(), &ControlOf<QWidget>(Help, "DummyCmd"));
    CloseScreen(Help);
    const std::pair<const char*, const char*> cases[] = {
        {"one\r\n\r\nr\xE9sum\xE9\tthree\r\n", "one\r\n\r\nr\xE9sum\xE9\tthree\r\n"},
        {"one\r\ntwo", "one\r\ntwo\r\n"},
        {"one\ntwo\r\n", "one\ntwo\r\n"},
        {"one\rtwo", "one\r\ntwo\r\n"}};
    for (const auto& [before, after] : cases) {
        WriteFile(HelpFile, before);
        HelpText.clear();
        OpenHelp();
        Type(Help, "HelpBox", "x");
        PressKey(Help, "HelpBox", Qt::Key_Backspace);
        EXPECT_NE(StateOf(Help, "SaveHelpCmd"), "hidden");
        EXPECT_EQ(FileText(HelpFile), before);
        ClickOn(Help, "SaveHelpCmd");
        EXPECT_EQ(StateOf(Help, "SaveHelpCmd"), "hidden");
        EXPECT_EQ(FileText(HelpFile), after);
        CloseScreen(Help);
    }
    // The file is read once; edits without a save are lost.
    WriteFile(HelpFile, "second\r\n");
    OpenHelp();
    Type(Help, "HelpBox", "more");
    CloseScreen(Help);
    OpenHelp();
    EXPECT_EQ(StatesOf(Help, {"HelpBox", "SaveHelpCmd"}), (Texts{"one\ntwo\n", "hidden"}));
    // But an empty text is read again; a folder is no failure, either.
    QTest::keySequence(&ControlOf<QWidget>(Help, "HelpBox"), QKeySequence::SelectAll);
    PressKey(Help, "HelpBox", Qt::Key_Delete);
    ClickOn(Help, "SaveHelpCmd");
    CloseScreen(Help);
    std::filesystem::remove(HelpFile);
    std::filesystem::create_directory(HelpFile);
    OpenHelp();
    EXPECT_EQ(StateOf(Help, "HelpBox"), "");
    CloseScreen(Help);
    std::filesystem::remove(HelpFile);
    WriteFile(HelpFile, "third");
    OpenHelp();
    EXPECT_EQ(StateOf(Help, "HelpBox"), "third\n");
    EXPECT_FALSE(dialogs.fatalFault);
}

TEST_F(SideScreensTest, TextScreenShowsWhatWouldBeWritten) {
    std::filesystem::create_directory(folder / "other");
    const std::string other = Store("other/info", "  (title \"Other\")\n  (description \"of another set\")\n)\n");
    Store("info", "(floebird-level-subset\n  (TITLE \"Shores\")\n  (description \"d\")\n)\n");
    LevelRecord.LevelComment = " my level ";
    OpenText();
    EXPECT_EQ(StatesOf(NukText, {"InfoNameBox", "InfoBox"}),
              (Texts{LevelPath,
                     ";Generated by Quillhare's FB_Editor\n(floebird-level-subset\n  (title \"Shores\")\n"
                     "  (description \"d\")\n)\n"}));
    const std::string data = StateOf(NukText, "DataBox");
    EXPECT_TRUE(data.starts_with("; my level\n(floebird-level\n"));
    EXPECT_TRUE(data.ends_with("(objects\n(spiky (x 65) (y 100) (stay-on-platform #t))\n)\n)\n"));
    LevelRecord.name = "not in the box";
    dialogs.files = {other};
    for (const std::string& from : {LevelPath, other}) {  // the second time it is cancelled
        ClickOn(NukText, "InfoNameBox");
        EXPECT_EQ(StateOf(NukText, "InfoNameBox"), other);
        EXPECT_EQ(dialogs.fileDialogs.back().filter + dialogs.fileDialogs.back().folder, "info|info" + FolderOf(from));
    }
    EXPECT_NE(StateOf(NukText, "InfoBox").find("(title \"Other\")"), std::string::npos);
    EXPECT_EQ(StateOf(NukText, "DataBox"), data);
    CloseScreen(NukText);
    EXPECT_EQ(InfoPath, other);
    // The INFO path comes first; what is written is the record and not the box.
    Store("info", std::string(500, 'x'));
    WriteFile(other, "");
    CurrentInfo = {"by hand", "Title", "Text"};
    OpenText();
    Type(NukText, "InfoBox", "edits");
    ClickOn(NukText, "WriteInfoCmd");
    EXPECT_EQ(FileText(other), "by hand\n(floebird-level-subset\n  (title \"Title\")\n  (description \"Text\")\n)\n");
    EXPECT_EQ(FileText(folder / "info").size(), 500U);
    CloseScreen(NukText);
    LevelPath = InfoPath = "";
    OpenText();
    EXPECT_EQ(StateOf(NukText, "InfoNameBox"), "Click to Open an INFO File.");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(SideScreensTest, BackgroundsAreListedPreviewedAndChosen) {
    BackgroundFolder = folder.string();
    QImage picture(64, 48, QImage::Format_RGB32);
    picture.fill(QColor(200, 30, 30));
    picture.save(QString::fromStdString(PathOf("back.jpg")));
    picture.save(QString::fromStdString(PathOf("Back.bmp")));
    for (const char* name : {"BACK.PNG", "ocean.png", "xpng", ".hidden"}) {
        Store(name, "not read");
    }
    // The smallest picture that this format knows: one black pixel.
    Store("dot.gif", std::string("GIF89a\1\0\1\0\x80\0\0\0\0\0\xFF\xFF\xFF,\0\0\0\0\1\0\1\0\0\2\2D\1\0;", 35));
    std::filesystem::create_directory(folder / "a folder");
    LevelRecord.background = "old.png";
    PrefsRecord.ScreenLeft[9] = 30;
    OpenVarsFrm();
    const auto shown = [] { return CellOf(Picker, "PreviewImg").Shown(); };
    const auto red = [&] { return shown().Pixmap()->toImage().pixelColor(0, 0).red(); };
    ChooseBackground([&] {
        EXPECT_FALSE(WindowOf("VarsFrm").takesInput);
        EXPECT_EQ(WindowOf(Picker).pos(), QPoint(30, 0));
        Texts names;
        auto& list = ControlOf<QListWidget>(Picker, "ImageFiles");
        for (int row = 0; row < list.count(); ++row) {
            names.push_back(list.item(row)->text().toStdString());
        }
        EXPECT_EQ(names, (Texts{".hidden", "Back.bmp", "back.jpg", "BACK.PNG", "dot.gif", "ocean.png", "xpng"}));
        list.setFocus(Qt::TabFocusReason);  // must not choose by itself
        const Picture fixed = CellOf(Picker, "PNGImage").Shown();
        EXPECT_TRUE(shown() != Picture() && shown() != fixed);
        for (const char* name : {"ocean.png", "BACK.PNG", "xpng"}) {  // are not opened
            ClickFile("back.jpg");
            EXPECT_GT(red(), 180);
            ClickFile(name);
            EXPECT_EQ(shown(), fixed) << name;
        }
        ClickFile("dot.gif");
        EXPECT_EQ(red(), 0);
        WindowOf(Picker).move(32, 33);
        CloseScreen(Picker);
    });
    EXPECT_TRUE(WindowOf("VarsFrm").takesInput);
    EXPECT_EQ(LevelRecord.background, "old.png");
    EXPECT_EQ(SavedPlace(9), QPoint(32, 33));
    ChooseBackground([&] {
        ClickFile("Back.bmp");
        EXPECT_EQ(red(), 200);
        PressKey(Picker, "ImageFiles", Qt::Key_Down);
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
    PrefsRecord.ScreenLeft[1] = 11;
    EXPECT_FALSE(AskForInfo([] {
        EXPECT_TRUE(WindowOf(Main).takesInput);
        EXPECT_EQ(WindowOf(Info).pos(), QPoint(11, 0));
        EXPECT_EQ(NewInfo.title + NewInfo.description + StateOf(Info, "TitleBox"), "");
        WindowOf(Info).move(13, 14);
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
    EXPECT_EQ(SavedPlace(1), QPoint(13, 14));
    InfoCreated = True;  // from a set before
    EXPECT_FALSE(AskForInfo([] { CloseScreen(Info); }));
    EXPECT_EQ(CurrentInfo, (InfoRecord{"; kept", "Old", "Older"}));
    EXPECT_TRUE(AskForInfo([] { FillInfo("Ice ", "Cold"); }));
    EXPECT_EQ(CurrentInfo, (InfoRecord{"", "Ice ", "Cold"}));
    EXPECT_FALSE(IsOpen(Info));
}

TEST_F(SideScreensTest, ClosingTheLastScreenEndsTheProcessInTheWait) {
    dialogs.endThrows = true;
    bool waitsWithoutMainFrm = false;
    EXPECT_THROW((void)AskForInfo([&] {
                     CloseScreen(Main);
                     waitsWithoutMainFrm = IsOpen(Info);
                     CloseScreen(Info);
                 }),
                 ProcessEnded);
    EXPECT_TRUE(waitsWithoutMainFrm);
    EXPECT_TRUE(dialogs.ended);
}

}  // namespace
