#include <QApplication>
#include <QEventLoop>
#include <QPointer>
#include <QTimer>
#include <chrono>
#include <functional>

#include "level/LevelWriter.h"
#include "tests/ScreenDriver.h"

// What comes in between two yields: closings, presses and second commands while a handler is on its way.

namespace {

/// Clicks a control while the event queue holds `events`: they come in its first yield.
template <typename... Events>
void ClickWith(const std::string& screen, const std::string& control, Events... events) {
    for (const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(10);
         std::chrono::steady_clock::now() < until;) {  // the queue is looked at once in some milliseconds
    }
    (QTimer::singleShot(0, events), ...);
    ClickOn(screen, control);
}

class YieldsTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        OpenMain(300);
        LevelPath = PathOf("level.fbl");
        LevelRecord.interactive_tm(299, 14) = 26;
        WriteLevelFile(LevelPath);
        whole = FileText(LevelPath);
        std::filesystem::remove(LevelPath);
    }

    /// A world file whose name has no second quote.
    std::string StoreEndless() { return Store("endless.fbwm", "(floebird-worldmap (properties (name \"abc"); }

    std::string whole;  ///< the text of the level
};

/// One row for each thing under way when the last screen closes, and what must be on disk then.
TEST_F(YieldsTest, WhatIsUnderWayWhenTheLastScreenCloses) {
    const auto closeMain = [] { CloseScreen(Main); };
    const auto makeSet = [&](bool create) {
        dialogs.answers = {AnswerYes};
        dialogs.inputs = {"games"};
        ClickWith(Main, "TB(5)", [&] {
            CloseScreen(Main);
            TypeInto("NewInfoFrm", "TitleBox", "Games");
            TypeInto("NewInfoFrm", "DescBox", "All");
            ClickOn("NewInfoFrm", create ? "CreateCmd" : "CancelCmd");
        });
    };
    const struct {
        const char* what;
        std::function<void()> act;
        const char* file;
        bool written;
    } rows[] = {
        {"save", [&] { ClickWith(Main, "TB(7)", closeMain); }, "level.fbl", true},
        {"save as",
         [&] {
             dialogs.files = {PathOf("other.fbl")};
             ClickWith(Main, "TB(8)", closeMain);
         },
         "other.fbl", true},
        {"an answer that came", [&] { makeSet(true); }, "games/info", true},
        {"an answer that said no", [&] { makeSet(false); }, "games/info", false},
        {"a read",
         [&] {
             // Long enough for LF line ends, with a layer that is cut off.
             dialogs.files = {Store("cut.fbl", ";" + std::string(300, '-') +
                                                   "\n(floebird-level\n(width 21)\n"
                                                   "(background-tm 1 2\n")};
             LevelLoaded = False;
             ClickWith(Main, "TB(2)", closeMain);
             EXPECT_EQ(LevelLoaded, False) << "it was given up";
         },
         "level.fbl", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Restart();
        row.act();
        EXPECT_FALSE(IsOpen(Main));
        EXPECT_FALSE(IsOpen("VarsFrm")) << "no screen opens after the last one";
        EXPECT_EQ(std::filesystem::exists(folder / row.file), row.written);
        if (row.written && std::string(row.file).ends_with(".fbl")) {
            EXPECT_EQ(FileText(folder / row.file), whole);
        }
        EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    }
}

TEST_F(YieldsTest, AWorldWithAnUnclosedQuoteCanOnlyBeClosed) {
    const std::string path = StoreEndless();
    const std::string bytes = FileText(path);
    WorldChanged = True;  // from the world before, which is lost
    OpenWorld();
    SetMainFrmBusy(true);
    dialogs.files = {path};
    ClickWith(
        Editor, "WTB(3)",
        [] {
            ClickOn(Editor, "WTB(5)");
            ClickOn(Editor, Img(3, 3));
            PressKey(Editor, "WTB(5)", Qt::Key_Return);
        },
        [] { QTimer::singleShot(50, [] { CloseScreen(Editor); }); });
    EXPECT_FALSE(IsOpen(Editor));
    EXPECT_EQ(FileText(path), bytes);
    EXPECT_TRUE(dialogs.messages.empty()) << "nothing is there to be saved";
    EXPECT_TRUE(WindowOf(Main).takesInput);
    ClickOn(Main, "TB(7)");
    EXPECT_EQ(FileText(LevelPath), whole) << "the level editor works on";
    // The same file is the last one at the opening of the screen.
    ClickWith(Main, "TB(13)", [] { QTimer::singleShot(50, [] { CloseScreen(Editor); }); });
    EXPECT_FALSE(IsOpen(Editor));
    EXPECT_TRUE(IsOpen(Main));
}

TEST_F(YieldsTest, AClosedScreenDoesNotComeBack) {
    OpenWorld();
    AddLink(2, 3, LevelLink);
    ClickOn(Editor, "ModeOption(3)");
    for (const auto until = std::chrono::steady_clock::now() + std::chrono::milliseconds(10);
         std::chrono::steady_clock::now() < until;) {
    }
    QTimer::singleShot(0, [] { CloseScreen(Editor); });
    RightClickOn(Editor, "DotImg(1)");
    DeliverEvents();
    EXPECT_FALSE(IsOpen(Editor));
    EXPECT_FALSE(IsOpen(LinkEditor));
    EnableWorldFrm(true);
    UpdateWorld();
    EnableVarsFrm(true);
    OpenLinkForm();
    EXPECT_FALSE(IsOpen(Editor) || IsOpen("VarsFrm") || IsOpen(LinkEditor));
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(YieldsTest, AScreenOutlivesTheToolkitsLoopsAboveIt) {
    ClickOn(Main, "TB(15)");
    const QPointer<QWidget> help(&WindowOf("HelpFrm"));
    QTimer::singleShot(0, [&] {
        QEventLoop drag;  // as the toolkit runs one while a text is dragged
        QTimer::singleShot(0, [] { CloseScreen("HelpFrm"); });
        QTimer::singleShot(50, &drag, &QEventLoop::quit);
        drag.exec();
        EXPECT_FALSE(help.isNull());
    });
    QTimer::singleShot(200, qApp, &QCoreApplication::quit);
    QApplication::exec();
    EXPECT_TRUE(help.isNull());
}

}  // namespace
