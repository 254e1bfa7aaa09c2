#include "platform/Controls.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include "platform/Events.h"
#include "platform/Screen.h"
#include "platform/TextArea.h"
#include "platform/TextCoding.h"
#include "tests/ScreenDriver.h"

// What the platform layer promises to the screens, shown on a screen made for it.

namespace {

constexpr const char* Name = "Probe";

/// A screen with one control of each kind; writes down the events that come.
struct ProbeFrm {
    Screen Window;
    Frame Group;
    TextBox Box;
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
        Area.Create(Window, "Area", {120, 120, 200, 100}, TextArea::Lines::Wrapped);
        Area.Change = [this] { events.emplace_back("Area"); };
        Check.Create(Window, "Check", {10, 150, 100, 20}, "Check");
        Check.Click = [this] { events.push_back("Check " + std::to_string(Check.Value())); };
        for (int i = 0; i < 2; ++i) {
            Element(Option, i).Create(Group, Member("Option", i), {60, 20 + 20 * i, 80, 20}, "Option");
            Element(Option, i).Click = [this, i] { events.push_back("Option " + std::to_string(i)); };
        }
        Bar.Create(Window, "Bar", {10, 180, 100, 17}, Direction::Horizontal, {.maximum = 20, .largeChange = 5});
        Bar.Change = [this] { events.push_back("Change " + std::to_string(Bar.Value())); };
        Bar.Scroll = [this] { events.push_back("Scroll " + std::to_string(Bar.Value())); };
    }
};

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
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {16, 5});  // here the other one lies over it
    ClickOn(Name, "Cell(2)", Qt::RightButton, {31, 31});
    EXPECT_EQ(Events(), (Texts{"Cell(0) down 1 at 15,5", "Cell(0) click", "Cell(1) down 1 at 0,5", "Cell(1) click",
                               "Cell(2) down 2 at 31,31"}));
    form->Cell[1].SetVisible(false);
    form->Group.SetVisible(false);
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {16, 5});
    ClickOn(Name, "Cell(2)");
    PressCell(Name, "Cell(0)");
    ReleaseCell(Name, "Back", {80, 80});
    PressCell(Name, "Back", {80, 80});
    ReleaseCell(Name, "Cell(0)");
    EXPECT_EQ(Events(), (Texts{"Cell(0) down 1 at 16,5", "Cell(0) click", "Cell(0) down 1 at 16,16"}));
    // A press may put a sprite over the pressed cell; the click still belongs to the cell.
    form->Cell[0].MouseDown = [this](int, int, int, int) { form->Cell[1].SetVisible(true); };
    ClickOn(Name, "Cell(0)", Qt::LeftButton, {20, 5});
    EXPECT_EQ(Events(), Texts{"Cell(0) click"});
}

TEST_F(ControlsTest, ADisabledScreenTakesNoInput) {
    form->Window.SetEnabled(false);
    ClickOn(Name, "Cell(0)");
    ClickOn(Name, "Check");
    TypeInto(Name, "Box", "x");
    CloseScreen(Name);
    EXPECT_EQ(Events(), Texts());
    EXPECT_EQ(StateOf(Name, "Check"), "off") << "it looks as before";
    form->Window.SetEnabled(true);
    ClickOn(Name, "Check");
    EXPECT_EQ(Events(), Texts{"Check 1"});
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

TEST_F(ControlsTest, YieldsEndTheProcessWithItsLastScreenAndShowOneThatIsLongInLoading) {
    Screen slow;
    slow.Create("Slow", "Slow", 100, 100);
    EXPECT_FALSE(slow.Window().isVisible());
    while (!slow.Window().isVisible()) {
        YieldToEventQueue();
    }
    slow.Close();
    dialogs.endThrows = true;
    QMetaObject::invokeMethod(
        qApp, [&] { form->Window.Close(); }, Qt::QueuedConnection);
    EXPECT_THROW(
        for (;;) { YieldToEventQueue(); }, ProcessEnded);
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
          "symbols that were there \u240A\u240D\u2400\u00B6\uE000 beside \n \r \0 \u2029"s, "\u240A\u240D\u2424\uFFFD"s,
          "\xEF\xBB\xBF a byte order mark"s}) {
        form->Area.SetText(bytes);
        EXPECT_EQ(form->Area.Text(), bytes);
        Type(Name, "Area", "q");
        PressKey(Name, "Area", Qt::Key_Backspace);
        EXPECT_EQ(form->Area.Text(), bytes);
    }
    EXPECT_EQ(TextBytes(QStringLiteral("\u20AC\u0142"), TextEncoding::Windows1252), "\x80?");
}

TEST_F(ControlsTest, AreasShowCrLfAsABreakAndOtherEndsAsSymbols) {
    using namespace std::string_literals;
    form->Area.SetText("a\r\nb\nc\rd\0e"s);
    EXPECT_EQ(StateOf(Name, "Area"), "a\nb\u240Ac\u240Dd\u2400e");
    PressKey(Name, "Area", Qt::Key_Return);
    QTest::keyClick(&ControlOf<QWidget>(Name, "Area"), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(form->Area.Text(), "\r\n\r\na\r\nb\nc\rd\0e"s);
}

}  // namespace
