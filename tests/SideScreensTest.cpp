#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include "core/General.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Files.h"
#include "platform/ImageCell.h"
#include "sidescreens/HelpFrm.h"
#include "tests/ScreenDriver.h"

// The screens of one bad guy's properties, of the help text and of the level's text, opened from MainFrm.

namespace {

constexpr const char* Main = "MainFrm";
constexpr const char* BadGuyScreen = "zBGEditFrm";
constexpr const char* Help = "HelpFrm";
constexpr const char* NukText = "NukTextFrm";

QPlainTextEdit& Area(const char* screen, const char* name) { return ControlOf<QPlainTextEdit>(screen, name); }

std::string Shown(const char* screen, const char* name) { return Area(screen, name).toPlainText().toStdString(); }

bool MainFrmAnswers() { return WindowOf(Main).takesInput; }

class SideScreensTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        CurrentMode = 2;
        LoadMainFrm();
        ShowMainFrm();
        MakeLevel(120);
        LevelPath = (folder / "level.fbl").string();
        LevelRecord.BadGuyCount = 1;
        LevelRecord.objects.Resize(1);
        LevelRecord.objects[1] = {4, "spiky", 65, 100, 1};
        UpdateDisplay();
    }

    static void OpenBadGuy() { ClickCell(Main, "BGImg(0)", Qt::RightButton); }
};

TEST_F(SideScreensTest, EachOpensOverADeafMainFrmAndKeepsItsPlace) {
    const auto center = [](int display, int own) { return (display - own) / 2; };
    const QSize display = QGuiApplication::primaryScreen()->geometry().size();
    const struct {
        const char* screen;
        ScreenIndex index;
        void (*open)();
        bool centres;
    } cases[] = {
        {BadGuyScreen, ScreenIndex::zBGEditFrm, OpenBadGuy, true},
        {Help, ScreenIndex::HelpFrm, [] { ClickOn(Main, "TB(15)"); }, false},
        {NukText, ScreenIndex::NukTextFrm, [] { ClickOn(Main, "TB(11)"); }, false},
    };
    for (const auto& c : cases) {
        const auto index = static_cast<std::size_t>(c.index);
        c.open();
        EXPECT_FALSE(MainFrmAnswers());
        Surface& window = WindowOf(c.screen);
        const QPoint centred(center(display.width(), window.width()), center(display.height(), window.height()));
        EXPECT_EQ(window.pos(), c.centres ? centred : QPoint(0, 0)) << c.screen;
        window.move(31, 47);
        ClickOn(c.screen, "CloseCmd");
        DeliverEvents();
        EXPECT_FALSE(IsOpen(c.screen));
        EXPECT_TRUE(MainFrmAnswers());
        EXPECT_EQ(PrefsRecord.ScreenLeft[index], 31);
        EXPECT_EQ(PrefsRecord.ScreenTop[index], 47);
        c.open();
        EXPECT_EQ(WindowOf(c.screen).pos(), QPoint(31, 47));
        CloseScreen(c.screen);
        DeliverEvents();
        EXPECT_TRUE(MainFrmAnswers());
    }
}

TEST_F(SideScreensTest, OnlyTheTextScreenTouchesThePointer) {
    const auto pointer = [] { return WindowOf(Main).cursor().shape(); };
    ClickOn(Main, "SetNukCmd");
    OpenBadGuy();
    CloseScreen(BadGuyScreen);
    ClickOn(Main, "TB(15)");
    EXPECT_EQ(pointer(), Qt::BitmapCursor);
    CloseScreen(Help);
    EXPECT_EQ(pointer(), Qt::BitmapCursor);
    ClickOn(Main, "TB(11)");
    EXPECT_EQ(pointer(), Qt::WaitCursor);
    CloseScreen(NukText);
    EXPECT_EQ(pointer(), Qt::ArrowCursor);
}

TEST_F(SideScreensTest, BadGuyPropertiesShowTheSelectedOne) {
    LevelRecord.BadGuyCount = 2;
    LevelRecord.objects.Resize(2);
    LevelRecord.objects[2] = {9, "fish", 300, 416, 0};
    UpdateDisplay();
    ClickCell(Main, "BGImg(1)", Qt::RightButton);
    EXPECT_EQ(WindowOf(BadGuyScreen).windowTitle().toStdString(), "BadGuy Properties");
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zNameBox"), "Fish");
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zBGNumBox"), "2");
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zXBox"), "300");
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zYBox"), "416");
    EXPECT_FALSE(IsTicked(BadGuyScreen, "zStayCheck"));
    EXPECT_EQ(ScrollValueOf(BadGuyScreen, "zBGXScroll"), 300);
    EXPECT_EQ(ScrollMaxOf(BadGuyScreen, "zBGXScroll"), 3807);
    EXPECT_EQ(ScrollValueOf(BadGuyScreen, "zBGYScroll"), 416);
    EXPECT_EQ(ScrollMaxOf(BadGuyScreen, "zBGYScroll"), 447);
    EXPECT_EQ(LevelRecord.objects[2], (BadGuy{9, "fish", 300, 416, 0}));
}

TEST_F(SideScreensTest, BadGuyFollowsTheScrollBars) {
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
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Left(), 10 + 200 * 34 / 32.0);
    EXPECT_EQ(CellOf(Main, "BGImg(0)").Top(), 80 + 117);
    xScroll.setSliderDown(false);
    ScrollTo(BadGuyScreen, "zBGXScroll", 3807);
    EXPECT_EQ(badGuy.x, 3807);
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zXBox"), "65");  // where it was
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zYBox"), "100");
}

TEST_F(SideScreensTest, StayFlagChangesTheRecordOnly) {
    OpenBadGuy();
    ClickOn(BadGuyScreen, "zStayCheck");
    EXPECT_EQ(LevelRecord.objects[1].stay_on_platform, 0);
    EXPECT_TRUE(IsTicked(Main, "StayCheck(0)"));  // MainFrm catches up at its next redraw
    ScrollTo(BadGuyScreen, "zBGXScroll", 66);
    EXPECT_FALSE(IsTicked(Main, "StayCheck(0)"));
    CloseScreen(BadGuyScreen);
    OpenBadGuy();
    EXPECT_EQ(CaptionOf(BadGuyScreen, "zXBox"), "66");
    EXPECT_FALSE(IsTicked(BadGuyScreen, "zStayCheck"));
}

class HelpTest : public SideScreensTest {
protected:
    void SetUp() override {
        SideScreensTest::SetUp();
        HelpText.clear();
        std::filesystem::remove_all(file);
    }

    void TearDown() override {
        SideScreensTest::TearDown();
        std::filesystem::remove_all(file);
    }

    static void OpenHelp() { ClickOn(Main, "TB(15)"); }
    static void Type(const char* text) { QTest::keyClicks(&Area(Help, "HelpBox"), text); }

    static void Reopen() {
        ClickOn(Help, "CloseCmd");
        DeliverEvents();
        OpenHelp();
    }

    const std::string file = JoinPath(ProgramFolder(), "FB_Editor.Help");
};

TEST_F(HelpTest, WithoutAFileTheBoxIsEmptyAndSavingMakesIt) {
    OpenHelp();
    DeliverEvents();
    EXPECT_EQ(Shown(Help, "HelpBox"), "");
    EXPECT_FALSE(IsShown(Help, "SaveHelpCmd"));
    EXPECT_EQ(WindowOf(Help).focusWidget(), &ControlOf<QWidget>(Help, "DummyCmd"));
    Type("hints");
    EXPECT_TRUE(IsShown(Help, "SaveHelpCmd"));
    EXPECT_FALSE(std::filesystem::exists(file));
    ClickOn(Help, "SaveHelpCmd");
    EXPECT_FALSE(IsShown(Help, "SaveHelpCmd"));
    EXPECT_EQ(FileText(file), "hints");
    EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(HelpTest, SavingKeepsTheLinesOfTheFile) {
    const struct {
        const char* before;
        const char* after;
    } cases[] = {
        {"one\r\n\r\nr\xE9sum\xE9\tthree\r\n", "one\r\n\r\nr\xE9sum\xE9\tthree\r\n"},
        {"one\r\ntwo", "one\r\ntwo\r\n"},
        {"one\ntwo\r\n", "one\ntwo\r\n"},
        {"one\rtwo", "one\r\ntwo\r\n"},
    };
    for (const auto& c : cases) {
        WriteFile(file, c.before);
        HelpText.clear();
        OpenHelp();
        Type("x");
        QTest::keyClick(&Area(Help, "HelpBox"), Qt::Key_Backspace);
        ClickOn(Help, "SaveHelpCmd");
        EXPECT_EQ(FileText(file), c.after);
        CloseScreen(Help);
        DeliverEvents();
    }
}

TEST_F(HelpTest, EditsWithoutSaveAreLost) {
    WriteFile(file, "text\r\n");
    OpenHelp();
    Type("more ");
    Reopen();
    EXPECT_EQ(Shown(Help, "HelpBox"), "text\n");
    EXPECT_FALSE(IsShown(Help, "SaveHelpCmd"));
}

TEST_F(HelpTest, TheFileIsReadOnceUnlessItWasEmpty) {
    WriteFile(file, "first\r\n");
    OpenHelp();
    WriteFile(file, "second\r\n");
    Reopen();
    EXPECT_EQ(Shown(Help, "HelpBox"), "first\n");
    QTest::keySequence(&Area(Help, "HelpBox"), QKeySequence::SelectAll);
    QTest::keyClick(&Area(Help, "HelpBox"), Qt::Key_Delete);
    ClickOn(Help, "SaveHelpCmd");
    EXPECT_EQ(FileText(file), "");
    WriteFile(file, "third");
    Reopen();
    EXPECT_EQ(Shown(Help, "HelpBox"), "third\n");
}

TEST_F(HelpTest, AFileThatCannotBeReadIsNoFailure) {
    std::filesystem::create_directory(file);
    OpenHelp();
    EXPECT_EQ(Shown(Help, "HelpBox"), "");
    EXPECT_FALSE(dialogs.fatalFault);
}

class NukTextTest : public SideScreensTest {
protected:
    void SetUp() override { SideScreensTest::SetUp(); }

    static void OpenText() { ClickOn(Main, "TB(11)"); }

    [[nodiscard]] std::string InfoFile() const { return (folder / "info").string(); }
};

TEST_F(NukTextTest, ShowsWhatWouldBeWritten) {
    WriteFile(InfoFile(), "(floebird-level-subset\n  (TITLE \"Shores\")\n  (description \"d\")\n)\n");
    LevelRecord.LevelComment = " my level ";
    LevelRecord.EndComment = "end";
    OpenText();
    EXPECT_EQ(WindowOf(NukText).windowTitle().toStdString(), "Floebird Level Text Data");
    EXPECT_EQ(CaptionOf(NukText, "InfoNameBox"), LevelPath);
    EXPECT_EQ(Shown(NukText, "InfoBox"),
              ";Generated by Quillhare's FB_Editor\n(floebird-level-subset\n  (title \"Shores\")\n"
              "  (description \"d\")\n)\n");
    const std::string data = Shown(NukText, "DataBox");
    EXPECT_TRUE(data.starts_with("; my level\n(floebird-level\n"));
    EXPECT_TRUE(data.ends_with("(objects\n(spiky (x 65) (y 100) (stay-on-platform #t))\n)\n)\n;; end\n"));
    EXPECT_EQ(LevelRecord.LevelComment, "; my level");
    CloseScreen(NukText);
    EXPECT_EQ(InfoPath, LevelPath);
}

TEST_F(NukTextTest, TheInfoPathComesFirst) {
    std::filesystem::create_directory(folder / "other");
    InfoPath = (folder / "other" / "info").string();
    WriteFile(InfoPath, "  (title \"Other\")\n  (description \"of another set\")\n)\n");
    OpenText();
    EXPECT_EQ(CaptionOf(NukText, "InfoNameBox"), InfoPath);
    EXPECT_EQ(CurrentInfo.title, "Other");
}

TEST_F(NukTextTest, WithoutAnyPathTheNameBoxAsksForAFile) {
    LevelPath = "";
    OpenText();
    EXPECT_EQ(CaptionOf(NukText, "InfoNameBox"), "Click to Open an INFO File.");
}

TEST_F(NukTextTest, AClickOnTheNameOpensAnotherInfoFile) {
    std::filesystem::create_directory(folder / "other");
    const std::string other = (folder / "other" / "info").string();
    WriteFile(other, "  (title \"Other\")\n  (description \"of another set\")\n)\n");
    OpenText();
    LevelRecord.name = "not in the box";
    const std::string data = Shown(NukText, "DataBox");
    ClickOn(NukText, "InfoNameBox");
    ASSERT_EQ(dialogs.fileDialogs.size(), 1U);
    EXPECT_EQ(dialogs.fileDialogs[0].filter, "info|info");
    EXPECT_EQ(dialogs.fileDialogs[0].folder, FolderOf(LevelPath));
    EXPECT_EQ(CaptionOf(NukText, "InfoNameBox"), LevelPath);  // cancelled
    dialogs.files = {other};
    ClickOn(NukText, "InfoNameBox");
    EXPECT_EQ(CaptionOf(NukText, "InfoNameBox"), other);
    EXPECT_NE(Shown(NukText, "InfoBox").find("(title \"Other\")"), std::string::npos);
    EXPECT_EQ(Shown(NukText, "DataBox"), data);
    CloseScreen(NukText);
    EXPECT_EQ(InfoPath, other);
}

TEST_F(NukTextTest, WritesTheInfoOfTheSetAndNotTheBox) {
    CurrentInfo = {"by hand", "Title", "Text"};
    OpenText();
    QTest::keyClicks(&Area(NukText, "InfoBox"), "edits");
    WriteFile(InfoFile(), std::string(500, 'x'));
    ClickOn(NukText, "WriteInfoCmd");
    EXPECT_EQ(FileText(InfoFile()),
              "by hand\n(floebird-level-subset\n  (title \"Title\")\n  (description \"Text\")\n)\n");
    EXPECT_TRUE(IsOpen(NukText));
    EXPECT_TRUE(dialogs.messages.empty());
}

}  // namespace
