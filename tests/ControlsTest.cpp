#include "platform/Controls.h"

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include "platform/Events.h"
#include "platform/ImageCell.h"
#include "platform/Screen.h"
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
    CheckBox Check;
    std::array<OptionButton, 2> Option;
    ScrollBar Bar;
    Label Caption;
    ImageCell Back;
    std::array<ImageCell, 3> Cell;  // 0 and 1 overlap, 2 stands in Group
    std::vector<std::string> events;
    std::function<void()> onClick;

    void Load() {
        Window.Create(Name, "Probe", 400, 300);
        Window.Unload = [this] { events.emplace_back("Unload"); };
        Back.Create(Window, "Back", {0, 0, 100, 100});
        Group.Create(Window, "Group", {200, 0, 150, 100}, "Group");
        Cell[0].Create(Window, "Cell(0)", {10, 10, 32, 32});
        Cell[1].Create(Window, "Cell(1)", {26, 10, 32, 32});
        Cell[2].Create(Group, "Cell(2)", {10, 20, 32, 32});
        for (std::size_t i = 0; i < Cell.size(); ++i) {
            const std::string name = Cell[i].Name();
            Cell[i].MouseDown = [this, name](int Button, int, int X, int Y) {
                events.push_back(name + " down " + std::to_string(Button) + " at " + std::to_string(X) + "," +
                                 std::to_string(Y));
            };
            Cell[i].Click = [this, name] {
                events.push_back(name + " click");
                if (onClick) {
                    onClick();
                }
            };
        }
        Box.Create(Window, "Box", {10, 120, 100, 20});
        Box.Change = [this] { events.push_back("Box " + Box.Text()); };
        Check.Create(Window, "Check", {10, 150, 100, 20}, "Check");
        Check.Click = [this] { events.push_back("Check " + std::to_string(Check.Value())); };
        for (int i = 0; i < 2; ++i) {
            Element(Option, i).Create(Group, "Option(" + std::to_string(i) + ")", {60, 20 + 20 * i, 80, 20}, "Option");
            Element(Option, i).Click = [this, i] { events.push_back("Option " + std::to_string(i)); };
        }
        Bar.Create(Window, "Bar", {10, 180, 200, 17}, Direction::Horizontal, {.maximum = 20, .largeChange = 5});
        Bar.Change = [this] { events.push_back("Change " + std::to_string(Bar.Value())); };
        Bar.Scroll = [this] { events.push_back("Scroll " + std::to_string(Bar.Value())); };
        Caption.Create(Window, "Caption", {10, 210, 60, 18});
    }
};

class ControlsTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        form = &holder.Load();
        form->Window.Show();
    }

    std::vector<std::string> Events() const { return std::exchange(form->events, {}); }

    ScreenHolder<ProbeFrm> holder;
    ProbeFrm* form = nullptr;
};

using Log = std::vector<std::string>;

template <typename Work>
std::optional<FaultNumber> FaultOf(Work work) {
    try {
        work();
    } catch (const Fault& fault) {
        return fault.Number();
    }
    return std::nullopt;
}

TEST_F(ControlsTest, SettersRaiseEventsForChangesOnly) {
    form->Check.SetValue(1);
    form->Check.SetValue(1);
    form->Option[1].Select();
    form->Option[1].Select();
    form->Option[0].Select();
    form->Box.SetText("a");
    form->Box.SetText("a");
    form->Bar.SetValue(20);
    form->Bar.SetValue(20);
    form->Bar.SetMax(7);
    form->Bar.SetMax(9);
    EXPECT_EQ(Events(), (Log{"Check 1", "Option 1", "Option 0", "Box a", "Change 20", "Change 7"}));
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
    EXPECT_EQ(Events(), (Log{"Check 1", "Option 0", "Option 0", "Box 1", "Box 12"}));
    auto& bar = ControlOf<QScrollBar>(Name, "Bar");
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    bar.setSliderDown(true);
    bar.setSliderPosition(8);
    bar.setSliderPosition(9);
    bar.setSliderDown(false);
    bar.setSliderDown(true);
    bar.setSliderDown(false);
    EXPECT_EQ(Events(), (Log{"Change 5", "Scroll 8", "Scroll 9", "Change 9"}));
}

TEST_F(ControlsTest, FaultsOfHandlersReachTheTrapAroundTheSetter) {
    form->Check.Click = [] { throw Fault(FaultNumber::Overflow); };
    form->Bar.Change = [] { throw Fault(FaultNumber::TypeMismatch); };
    form->Box.Change = [] { throw std::bad_alloc(); };
    form->onClick = [this] { form->Check.SetValue(0); };
    EXPECT_EQ(FaultOf([&] { form->Check.SetValue(1); }), FaultNumber::Overflow);
    EXPECT_EQ(FaultOf([&] { form->Bar.SetValue(3); }), FaultNumber::TypeMismatch);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
    // No trap: from the hand of the user, straight and through another handler's setter.
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {3, 3});
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::Overflow);
    ScrollTo(Name, "Bar", 7);
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::TypeMismatch);
    TypeInto(Name, "Box", "x");
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::OutOfMemory);
}

TEST_F(ControlsTest, CellsTakeTheMouseFromFrontToBack) {
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {15, 5});
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {16, 5});  // here the other one lies over it
    ClickCell(Name, "Cell(2)", Qt::RightButton, {31, 31});
    EXPECT_EQ(Events(), (Log{"Cell(0) down 1 at 15,5", "Cell(0) click", "Cell(1) down 1 at 0,5", "Cell(1) click",
                             "Cell(2) down 2 at 31,31"}));
    form->Cell[1].SetVisible(false);
    form->Group.SetVisible(false);
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {16, 5});
    ClickCell(Name, "Cell(2)");
    EXPECT_EQ(Events(), (Log{"Cell(0) down 1 at 16,5", "Cell(0) click"}));
    PressCell(Name, "Cell(0)");
    ReleaseCell(Name, "Back", Qt::LeftButton, {80, 80});
    PressCell(Name, "Back", Qt::LeftButton, {80, 80});
    ReleaseCell(Name, "Cell(0)");
    EXPECT_EQ(Events(), (Log{"Cell(0) down 1 at 16,16"}));
}

/// A press may put a sprite over the pressed cell; the click still belongs to the cell.
TEST_F(ControlsTest, ThePressedCellKeepsItsClick) {
    form->Cell[1].SetVisible(false);
    form->Cell[0].MouseDown = [this](int, int, int, int) { form->Cell[1].SetVisible(true); };
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {20, 5});
    EXPECT_EQ(Events(), (Log{"Cell(0) click"}));
}

TEST_F(ControlsTest, CellsArePaintedBackToFront) {
    const auto plain = [](Qt::GlobalColor colour) {
        QImage image(32, 32, QImage::Format_RGB32);
        image.fill(colour);
        return Picture(image);
    };
    form->Back.SetFill(0x000000);
    form->Cell[0].SetPicture(plain(Qt::red));
    form->Cell[1].SetPicture(plain(Qt::blue));
    form->Cell[2].SetPicture(plain(Qt::green));
    form->Cell[1].SetBorder(1);
    const auto pixel = [&](int x, int y) { return WindowOf(Name).grab().toImage().pixelColor(x, y); };
    EXPECT_EQ(pixel(5, 5), QColor(Qt::black));
    EXPECT_EQ(pixel(15, 15), QColor(Qt::red));
    EXPECT_EQ(pixel(26, 15), QColor(0xDC, 0x4A, 0x3D)) << "the border";
    EXPECT_EQ(pixel(30, 15), QColor(Qt::blue));
    EXPECT_EQ(pixel(200 + 15, 25), QColor(Qt::green));
    form->Cell[1].Move(26.6, 60);
    EXPECT_EQ(pixel(57, 15), QColor(Qt::black));
    EXPECT_EQ(pixel(26, 70), QColor(Qt::black));
    EXPECT_EQ(pixel(28, 70), QColor(Qt::blue));
    form->Group.SetVisible(false);
    EXPECT_EQ(pixel(200 + 15, 25), WindowOf(Name).palette().window().color());
}

TEST_F(ControlsTest, OnePaintBringsAllUp) {
    struct Counter : QObject {
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    DeliverEvents();
    WindowOf(Name).installEventFilter(&counter);
    for (int i = 0; i < 100; ++i) {
        form->Cell[0].SetBorder(i % 2);
        form->Cell[2].SetVisible(i % 2 == 0);
    }
    DeliverEvents();
    EXPECT_EQ(counter.paints, 1);
}

TEST_F(ControlsTest, ADisabledScreenTakesNoInput) {
    form->Window.SetEnabled(false);
    ClickCell(Name, "Cell(0)");
    ClickOn(Name, "Check");
    TypeInto(Name, "Box", "x");
    CloseScreen(Name);
    EXPECT_EQ(Events(), Log());
    EXPECT_TRUE(IsOpen(Name));
    EXPECT_TRUE(IsEnabled(Name, "Check")) << "it looks as before";
    form->Window.SetEnabled(true);
    ClickOn(Name, "Check");
    EXPECT_EQ(Events(), (Log{"Check 1"}));
}

TEST_F(ControlsTest, ClosingRaisesUnloadOnceAndKeepsTheFormWhileItRuns) {
    Log seen;
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
    ClickCell(Name, "Cell(0)", Qt::LeftButton, {3, 3});
    EXPECT_EQ(seen, (Log{"Cell(0) down 1 at 3,3", "Cell(0) click", "Unload", "Box still there"}));
    EXPECT_NE(&holder.Load(), nullptr);
    EXPECT_TRUE(holder.Load().events.empty()) << "a new instance";
    holder.Load().Window.Show();
}

TEST_F(ControlsTest, AYieldEndsTheProcessWithItsLastScreen) {
    dialogs.endThrows = true;
    QMetaObject::invokeMethod(
        qApp, [&] { form->Window.Close(); }, Qt::QueuedConnection);
    EXPECT_THROW(
        for (;;) { YieldToEventQueue(); }, ProcessEnded);
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
    for (const std::string bytes : {"plain", "caf\xC3\xA9", "caf\xE9 \x80\x81", "a\tb"}) {
        form->Box.SetText(bytes);
        EXPECT_EQ(form->Box.Text(), bytes);
        QTest::keyClick(&ControlOf<QLineEdit>(Name, "Box"), Qt::Key_End);
        QTest::keyClicks(&ControlOf<QLineEdit>(Name, "Box"), "!");
        EXPECT_EQ(form->Box.Text(), bytes + "!");
    }
    EXPECT_EQ(TextBytes(QStringLiteral("\u20AC\u0142"), TextEncoding::Windows1252), "\x80?");
}

TEST_F(ControlsTest, KeysPassTheirFilter) {
    std::vector<int> keys;
    form->Box.KeyPress = [&](int KeyAscii) {
        keys.push_back(KeyAscii);
        return KeyAscii == 8 || (KeyAscii >= '0' && KeyAscii <= '9');
    };
    TypeInto(Name, "Box", "1x2-3");
    PressKey(Name, "Box", Qt::Key_Backspace);
    PressKey(Name, "Box", Qt::Key_Return);
    PressKey(Name, "Box", Qt::Key_Left);
    PressKey(Name, "Box", Qt::Key_Delete);
    EXPECT_EQ(form->Box.Text(), "1");
    EXPECT_EQ(keys, (std::vector<int>{'1', 'x', '2', '-', '3', 8, 13}));
}

TEST_F(ControlsTest, CaptionsAreShortenedForTheEyeOnly) {
    const std::string path(80, 'p');
    form->Caption.SetCaption(path);
    EXPECT_EQ(form->Caption.Caption(), path);
    EXPECT_EQ(CaptionOf(Name, "Caption"), path);
}

TEST_F(ControlsTest, PositionsAreSixteenBits) {
    form->Window.MoveTo(40000, 5);
    EXPECT_EQ(FaultOf([&] { (void)form->Window.Left(); }), FaultNumber::Overflow);
    EXPECT_EQ(form->Window.Top(), 5);
    form->Window.Restore(0, 0, true);
    EXPECT_NE(form->Window.Left(), 0);
    form->Window.Restore(0, 0, false);
    EXPECT_EQ(form->Window.Left(), 0);
}

}  // namespace
