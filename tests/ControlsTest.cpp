#include "platform/Controls.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QEventLoop>
#include <QLineEdit>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "core/General.h"
#include "platform/Events.h"
#include "platform/Screen.h"
#include "platform/TextArea.h"
#include "platform/TextCoding.h"
#include "tests/ProgramState.h"
#include "tests/ScreenDriver.h"

// What the platform layer promises to the screens, shown on a screen made for it.

namespace {

constexpr const char* Name = "Probe";

/// A screen with one control of each kind; writes down the events that come.
struct ProbeFrm {
    Screen Window;
    Frame Group;
    TextBox Box;
    TextBox Number;
    TextArea Area;
    CheckBox Check;
    std::array<OptionButton, 2> Option;
    ScrollBar Bar;
    ImageCell Back;
    std::array<ImageCell, 3> Cell;  // 0 and 1 overlap, 2 stands in Group
    Texts events;
    std::function<void()> onClick;

    void Load() {
        Window.Create(Name, "Probe", 400, 300);
        Window.Unload = [this] { events.emplace_back("Unload"); };
        Back.Create(Window, "Back", {0, 0, 100, 100});
        Group.Create(Window, "Group", {200, 0, 150, 100}, "Group");
        Cell[0].Create(Window, "Cell(0)", {10, 10, 32, 32});
        Cell[1].Create(Window, "Cell(1)", {26, 10, 32, 32});
        Cell[2].Create(Group, "Cell(2)", {10, 20, 32, 32});
        for (ImageCell& cell : Cell) {
            cell.MouseDown = [this, &cell](int Button, int, int X, int Y) {
                events.push_back(cell.Name() + " down " + std::to_string(Button) + " at " + std::to_string(X) + "," +
                                 std::to_string(Y));
            };
            cell.Click = [this, &cell] {
                events.push_back(cell.Name() + " click");
                if (onClick) {
                    onClick();
                }
            };
        }
        Box.Create(Window, "Box", {10, 120, 100, 20});
        Box.Change = [this] { events.push_back("Box " + Box.Text()); };
        Number.Create(Window, "Number", {10, 220, 100, 20});
        Number.KeyPress = [](int KeyAscii) { return PassesNumberBox(KeyAscii, [] {}); };
        Area.Create(Window, "Area", {120, 120, 200, 100}, TextArea::Lines::Wrapped);
        Area.Change = [this] { events.emplace_back("Area"); };
        Check.Create(Window, "Check", {10, 150, 100, 20}, "Check");
        Check.Click = [this] { events.push_back("Check " + std::to_string(Check.Value())); };
        for (int i = 0; i < 2; ++i) {
            Element(Option, i).Create(Group, MemberName("Option", i), {60, 20 + 20 * i, 80, 20}, "Option");
            Element(Option, i).Click = [this, i] { events.push_back("Option " + std::to_string(i)); };
        }
        Bar.Create(Window, "Bar", {10, 180, 100, 17}, Direction::Horizontal, {.maximum = 20, .largeChange = 5});
        Bar.Change = [this] { events.push_back("Change " + std::to_string(Bar.Value())); };
        Bar.Scroll = [this] { events.push_back("Scroll " + std::to_string(Bar.Value())); };
    }
};

/// What an input method does.
void Commit(QWidget& control, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&control, &event);
}

class ControlsTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        form = &holder.Load();
        form->Window.Show();
    }

    [[nodiscard]] Texts Events() const { return std::exchange(form->events, {}); }

    ScreenHolder<ProbeFrm> holder;
    ProbeFrm* form = nullptr;
};

TEST_F(ControlsTest, SettersRaiseEventsForChangesOnly) {
    for (int twice = 0; twice < 2; ++twice) {
        form->Check.SetValue(1);
        form->Option[1].Select();
        form->Box.SetText("a");
        form->Area.SetText("a");
        form->Bar.SetValue(20);
    }
    form->Option[0].Select();
    form->Bar.SetMax(7);
    form->Bar.SetMax(9);
    EXPECT_EQ(Events(), (Texts{"Check 1", "Option 1", "Box a", "Area", "Change 20", "Option 0", "Change 7"}));
    EXPECT_FALSE(form->Option[1].Selected());
    EXPECT_EQ(FaultOf([&] { form->Bar.SetValue(10); }), FaultNumber::InvalidPropertyValue);
    EXPECT_EQ(FaultOf([&] { form->Bar.SetValue(-1); }), FaultNumber::InvalidPropertyValue);
    EXPECT_EQ(FaultOf([&] { form->Check.SetValue(2); }), FaultNumber::InvalidPropertyValue);
    form->Bar.SetMax(-5);
    EXPECT_EQ(form->Bar.Max(), 0);
}

TEST_F(ControlsTest, TheUsersHandRaisesEvents) {
    ClickOn(Name, "Check");
    ClickOn(Name, "Option(0)");
    ClickOn(Name, "Option(0)");  // choosing the chosen one is a click, too
    TypeInto(Name, "Box", "12");
    Type(Name, "Area", "q");
    EXPECT_EQ(Events(), (Texts{"Check 1", "Option 0", "Option 0", "Box 1", "Box 12", "Area"}));
    auto& bar = ControlOf<QScrollBar>(Name, "Bar");
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    bar.setSliderDown(true);
    bar.setSliderPosition(8);
    bar.setSliderPosition(9);
    bar.setSliderDown(false);
    bar.setSliderDown(true);
    bar.setSliderDown(false);
    EXPECT_EQ(Events(), (Texts{"Change 5", "Scroll 8", "Scroll 9", "Change 9"}));
}

TEST_F(ControlsTest, FaultsOfHandlersReachTheTrapAroundTheSetter) {
    form->Check.Click = [] { throw Fault(FaultNumber::Overflow); };
    form->Bar.Change = [] { throw Fault(FaultNumber::TypeMismatch); };
    form->Area.Change = [] { throw Fault(FaultNumber::PathNotFound); };
    form->Box.Change = [] { throw std::bad_alloc(); };
    form->onClick = [this] { form->Check.SetValue(0); };
    EXPECT_EQ(FaultOf([&] { form->Check.SetValue(1); }), FaultNumber::Overflow);
    EXPECT_EQ(FaultOf([&] { form->Bar.SetValue(3); }), FaultNumber::TypeMismatch);
    EXPECT_EQ(FaultOf([&] { form->Area.SetText("other"); }), FaultNumber::PathNotFound);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    // No trap: from the hand of the user, straight and through another handler's setter.
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {3, 3});
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::Overflow);
    ScrollTo(Name, "Bar", 7);
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::TypeMismatch);
    TypeInto(Name, "Box", "x");
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::OutOfMemory);
}

TEST_F(ControlsTest, CellsTakeTheMouseFromFrontToBack) {
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {15, 5});
    QTest::mouseClick(&WindowOf(Name), Qt::LeftButton, {}, {26, 15});  // here the other one lies over it
    ClickOn(Name, "Cell(2)", Qt::RightButton, {31, 31});
    EXPECT_EQ(Events(), (Texts{"Cell(0) down 1 at 15,5", "Cell(0) click", "Cell(1) down 1 at 0,5", "Cell(1) click",
                               "Cell(2) down 2 at 31,31"}));
    form->Cell[1].SetVisible(false);
    form->Group.SetVisible(false);
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {16, 5});
    QTest::mouseClick(&WindowOf(Name), Qt::LeftButton, {}, {226, 36});  // where Cell(2) is hidden
    PressCell(Name, "Cell(0)");
    ReleaseCell(Name, "Back", {80, 80});
    PressCell(Name, "Back", {80, 80});
    ReleaseCell(Name, "Cell(0)");
    EXPECT_EQ(Events(), (Texts{"Cell(0) down 1 at 16,5", "Cell(0) click", "Cell(0) down 1 at 16,16"}));
    // The right button has a press of its own, and leaves the left one's click where it was.
    PressCell(Name, "Cell(0)", {3, 3});
    ClickOn(Name, "Back", Qt::RightButton);
    ReleaseCell(Name, "Cell(0)", {3, 3});
    EXPECT_EQ(Events(), (Texts{"Cell(0) down 1 at 3,3", "Cell(0) down 2 at 6,6", "Cell(0) click"}));
    // A press may put a sprite over the pressed cell; the click still belongs to the cell.
    form->Cell[0].MouseDown = [this](int, int, int, int) { form->Cell[1].SetVisible(true); };
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {20, 5});
    EXPECT_EQ(Events(), Texts{"Cell(0) click"});
}

TEST_F(ControlsTest, ADisabledScreenTakesNoInput) {
    form->Window.SetEnabled(false);
    ControlOf<QWidget>(Name, "Check").setFocus();  // which a click may take, as nobody hears of it
    const ProgramState before = CurrentState();
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {3, 3});
    ClickOn(Name, "Check");
    TypeInto(Name, "Box", "x");
    Commit(ControlOf<QWidget>(Name, "Box"), QStringLiteral("x"));
    for (const char* pressed : {"Check", "Option(1)"}) {
        QAccessible::queryAccessibleInterface(&ControlOf<QWidget>(Name, pressed))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    }
    QAccessible::queryAccessibleInterface(&ControlOf<QWidget>(Name, "Bar"))->valueInterface()->setCurrentValue(5);
    ControlOf<QLineEdit>(Name, "Box").setText(QStringLiteral("x"));
    CloseScreen(Name);
    EXPECT_EQ(Events(), Texts());
    EXPECT_EQ(CurrentState(), before) << "it looks as before";
    form->Window.SetEnabled(true);
    ClickOn(Name, "Check");
    EXPECT_EQ(Events(), Texts{"Check 1"});
}

TEST_F(ControlsTest, ToolsKnowCellsAndThePointerIsTheSameEverywhere) {
    const auto* screen = QAccessible::queryAccessibleInterface(&WindowOf(Name));
    form->Cell[0].SetPicture(BlockImgList()[26]);
    Texts found;
    for (int i = 0; i < screen->childCount(); ++i) {
        const QAccessibleInterface* child = screen->child(i);
        if (child->text(QAccessible::Name) == QLatin1String("Cell(0)")) {
            found = {child->text(QAccessible::Value).toStdString(), std::to_string(child->rect().width())};
            EXPECT_EQ(screen->indexOfChild(child), i);
        }
    }
    EXPECT_EQ(found, (Texts{"26", "32"}));
    const auto shape = [] { return ControlOf<QWidget>(Name, "Box").cursor().shape(); };
    form->Window.SetPointer(FixedPicture("NukIcon"));
    EXPECT_EQ(shape(), Qt::BitmapCursor);
    form->Window.SetDefaultPointer();
    EXPECT_EQ(shape(), Qt::IBeamCursor);
}

TEST_F(ControlsTest, ClosingRaisesUnloadOnceAndKeepsTheFormWhileItRuns) {
    Texts seen;
    form->onClick = [&] {
        form->Window.Close();
        form->Window.Close();
        EXPECT_EQ(holder.Loaded(), nullptr);
        for (int i = 0; i < 5; ++i) {
            DeliverEvents();
        }
        form->Box.SetText("still there");
        seen = form->events;
    };
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {3, 3});
    EXPECT_EQ(seen, (Texts{"Cell(0) down 1 at 3,3", "Cell(0) click", "Unload", "Box still there"}));
    EXPECT_TRUE(holder.Load().events.empty()) << "a new instance";
    holder.Load().Window.Show();
}

TEST_F(ControlsTest, AScreenOutlivesTheToolkitsLoopsAboveIt) {
    OpenMain(40);
    ClickOn(Main, "TB(15)");
    const QPointer<QWidget> help(&WindowOf("HelpFrm"));
    QTimer::singleShot(0, [&] {
        QEventLoop drag;  // as the toolkit runs one while a text is dragged
        QTimer::singleShot(0, [] { CloseScreen("HelpFrm"); });
        QTimer::singleShot(50, &drag, &QEventLoop::quit);
        drag.exec();
        EXPECT_FALSE(help.isNull());
    });
    QTimer::singleShot(200, [] { QCoreApplication::exit(); });
    QApplication::exec();
    EXPECT_TRUE(help.isNull());
}

TEST_F(ControlsTest, AScreenThatIsLongInLoadingShowsItself) {
    Screen slow;
    slow.Create("Slow", "Slow", 100, 100);
    EXPECT_FALSE(slow.Window().isVisible());
    while (!slow.Window().isVisible()) {
        YieldToEventQueue();
    }
    slow.Close();
}

TEST_F(ControlsTest, TextsKeepTheirBytes) {
    using namespace std::string_literals;
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) {
        allBytes += static_cast<char>(byte);
    }
    for (const std::string& bytes : {"plain"s, "caf\u00E9"s, "caf\xE9 \x80\x81"s, "a\tb"s}) {
        form->Box.SetText(bytes);
        EXPECT_EQ(form->Box.Text(), bytes);
        PressKey(Name, "Box", Qt::Key_End);
        Type(Name, "Box", "!");
        EXPECT_EQ(form->Box.Text(), bytes + "!");
    }
    for (const std::string& bytes :
         {""s, "one\r\n\r\ntwo\r\n"s, "lone LF\nlone CR\rNUL\0end\r\n"s, "\r\r\n\n\r\n\n"s, allBytes,
          "caf\u00E9, a no-break\u00A0blank, \U0001F427, \uFFFC"s, "breaks \u2028 \u2029 \uFDD0 \uFDD1 \u0085"s,
          "symbols that were there \u2193\u2190\u25CB\u00B6 beside \n \r \0 \u2029"s, "\u2193\u2190\u21B2\uFFFD"s,
          "\xEF\xBB\xBF a byte order mark"s}) {
        form->Area.SetText(bytes);
        EXPECT_EQ(form->Area.Text(), bytes);
        Type(Name, "Area", "q");
        PressKey(Name, "Area", Qt::Key_Backspace);
        EXPECT_EQ(form->Area.Text(), bytes);
    }
    // What Windows-1252 lacks, and what would show as UTF-8, turns the whole text into UTF-8.
    form->Box.SetText("caf\xE9");
    PressKey(Name, "Box", Qt::Key_End);
    PasteInto(Name, "Box", "\u0141uk");
    EXPECT_EQ(form->Box.Text(), "caf\u00E9\u0141uk");
    form->Box.SetText("\xE9");
    ControlOf<QLineEdit>(Name, "Box").selectAll();
    PasteInto(Name, "Box", "\u00C3\u00A9");
    EXPECT_EQ(form->Box.Text(), "\u00C3\u00A9");
    // A box that was emptied has no encoding of its own any more.
    form->Box.SetText("\xE9");
    PressKey(Name, "Box", Qt::Key_Backspace);
    form->Box.SetText("");
    PasteInto(Name, "Box", "\u00E9");
    EXPECT_EQ(form->Box.Text(), "\u00E9");
}

/// All ways into a box that a hand, an input method or a tool has, and what is left of "1234" with "23" selected. In
/// the number box only digits come in, and nothing goes but by Backspace and Delete.
TEST_F(ControlsTest, WhateverWayATextComesItKeepsTheRules) {
    const std::map<std::string, void (*)(QLineEdit&, const QString&)> ways{
        {"key", [](QLineEdit& edit, const QString& keys) { QTest::keySequence(&edit, QKeySequence(keys)); }},
        {"paste",
         [](QLineEdit& edit, const QString& text) {
             QGuiApplication::clipboard()->setText(text);
             QTest::keySequence(&edit, QKeySequence(QStringLiteral("Shift+Insert")));
         }},
        {"commit", [](QLineEdit& edit, const QString& text) { Commit(edit, text); }},
        {"drop",
         [](QLineEdit& edit, const QString& text) {
             QMimeData data;
             data.setText(text);
             QDropEvent event(edit.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
             QDragEnterEvent enter(edit.rect().center(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
             QCoreApplication::sendEvent(&edit, &enter);
             QCoreApplication::sendEvent(&edit, &event);
         }},
        {"del", [](QLineEdit& edit, const QString&) { edit.del(); }},
        {"clear", [](QLineEdit& edit, const QString&) { edit.clear(); }},
        {"setText", [](QLineEdit& edit, const QString& text) { edit.setText(text); }},
    };
    const auto rows = GoldenRows("box-input.txt");
    ASSERT_GT(rows.size(), 20U);
    for (const Texts& row : rows) {
        for (TextBox* box : {&form->Box, &form->Number}) {
            SCOPED_TRACE(row.at(0) + " " + row.at(1));
            box->SetText("");
            box->SetText("1234");
            auto& edit = ControlOf<QLineEdit>(Name, box == &form->Box ? "Box" : "Number");
            edit.setSelection(1, 2);
            ways.at(row[0])(edit, QString::fromStdString(row[1]));
            EXPECT_EQ(box->Text(), row.at(box == &form->Box ? 2 : 3));
        }
    }
}

TEST_F(ControlsTest, ARefreshKeepsTheCaretOfTheBoxThatIsTypedIn) {
    form->Box.Change = [this] { form->Box.SetText(std::to_string(std::stoi("0" + form->Box.Text()))); };
    TypeInto(Name, "Box", "0305");
    EXPECT_EQ(form->Box.Text(), "305");
}

TEST_F(ControlsTest, AreasShowCrLfAsABreakAndOtherEndsAsSymbols) {
    using namespace std::string_literals;
    form->Area.SetText("a\r\nb\nc\rd\0e"s);
    EXPECT_EQ(ShownBy(ControlOf<QWidget>(Name, "Area")), "a\nb\u2193c\u2190d\u25CBe");
    PressKey(Name, "Area", Qt::Key_Return);
    QTest::keyClick(&ControlOf<QWidget>(Name, "Area"), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(form->Area.Text(), "\r\n\r\na\r\nb\nc\rd\0e"s);
}

}  // namespace
