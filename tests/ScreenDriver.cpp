#include "tests/ScreenDriver.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "platform/Application.h"
#include "platform/Controls.h"
#include "sidescreens/HelpFrm.h"
#include "world/WorldReader.h"

namespace {

/// All screens, also those that are hidden or whose loading has failed.
std::vector<Surface*> LoadedSurfaces() {
    std::vector<Surface*> surfaces;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* surface = dynamic_cast<Surface*>(widget)) {
            surfaces.push_back(surface);
        }
    }
    return surfaces;
}

Surface* Find(const std::string& screen) {
    for (Surface* surface : LoadedSurfaces()) {
        if (surface->isVisible() && surface->objectName().toStdString() == screen) {
            return surface;
        }
    }
    return nullptr;
}

/// For what no hand can do.
[[noreturn]] void Refuse(const std::string& screen, const std::string& name, const std::string& why) {
    throw std::runtime_error(screen + "'s " + name + " is " + why);
}

/// A point of a cell that can be seen and is covered by nothing that takes the mouse.
QPoint PointIn(const std::string& screen, const std::string& name, QPoint at) {
    const Surface& window = WindowOf(screen);
    const ImageCell& cell = CellOf(screen, name);
    const QRect area = window.AreaOf(cell);
    const QPoint point = area.topLeft() + at;
    const QWidget* above = window.childAt(point);
    if (!window.IsShown(cell) ||
        (above != nullptr && !(above->inherits("QGroupBox") && above->geometry().contains(area)))) {
        Refuse(screen, name, "hidden or covered");
    }
    const auto takes = [](const ImageCell& c) { return c.MouseDown || c.Click; };
    const std::vector<ImageCell*>& cells = window.Cells();
    for (auto place = cells.rbegin(); takes(cell) && *place != &cell; ++place) {
        const ImageCell* front = *place;
        if (window.IsShown(*front) && takes(*front) && window.AreaOf(*front).contains(point)) {
            Refuse(screen, name, "covered by " + front->Name());
        }
    }
    return point;
}

/// A control that a hand can use.
template <typename Widget = QWidget>
Widget& UsableControl(const std::string& screen, const std::string& name) {
    auto& control = ControlOf<Widget>(screen, name);
    if (!control.isVisible() || !control.isEnabled()) {
        Refuse(screen, name, "hidden or disabled");
    }
    return control;
}

}  // namespace

void ScreenTest::SetUp() {
    FreshTest::SetUp();
    HelpText.clear();
    WorldMapsFolder = LevelsFolder = MusicFolder = BackgroundFolder = folder.string();
}

void ScreenTest::TearDown() {
    ResetWorld();  // what a test has broken must not keep its screens from closing
    WorldReadError = WorldChanged = 0;
    for (const char* inner : {"zTypeFrm", LinkEditor, "WorldPropertiesFrm", Editor}) {
        if (Surface* surface = Find(inner)) {
            surface->takesInput = true;
            surface->close();
        }
    }
    for (Surface* surface : LoadedSurfaces()) {
        surface->takesInput = true;
        surface->close();
    }
    DeliverEvents();
    FreshTest::TearDown();
}

void MakeLevel(int width) {
    LevelRecord.width = width;
    LevelRecord.height = LevelRows;
    LevelRecord.background_tm = LevelRecord.foreground_tm = LevelRecord.interactive_tm = TileMap(width, LevelRows);
    LevelPath = "level.fbl";
    LevelLoaded = True;
}

void OpenMain(int width, int mode) {
    CurrentMode = mode;
    LoadMainFrm();
    ShowMainFrm();
    ControlOf<QTimer>(Main, "BGTimer").stop();  // or the time that a test takes would show
    if (width > 0) {
        MakeLevel(width);
        UpdateDisplay();
    }
}

bool IsOpen(const std::string& screen) { return Find(screen) != nullptr; }

Surface& WindowOf(const std::string& screen) {
    if (Surface* surface = Find(screen)) {
        return *surface;
    }
    throw std::runtime_error(screen + " is not open");
}

ImageCell& CellOf(const std::string& screen, const std::string& cell) {
    if (ImageCell* found = WindowOf(screen).FindCell(cell)) {
        return *found;
    }
    throw std::runtime_error(screen + " has no cell " + cell);
}

void ClickOn(const std::string& screen, const std::string& name, Qt::MouseButton button, QPoint at) {
    Surface& window = WindowOf(screen);
    if (window.FindCell(name) != nullptr) {
        QTest::mouseClick(&window, button, Qt::NoModifier, PointIn(screen, name, at));
        return;
    }
    auto& control = UsableControl(screen, name);
    // An option or a check box answers to a click on its mark, not to one on the blank space behind it.
    const bool marked = control.inherits("QRadioButton") || control.inherits("QCheckBox");
    const QPoint point = marked ? QPoint(8, control.height() / 2) : control.rect().center();
    if (const QWidget* there = window.childAt(control.mapTo(&window, point)); there != &control) {
        Refuse(screen, name, "covered");
    }
    QTest::mouseClick(&control, button, Qt::NoModifier, point);
}

void PressCell(const std::string& screen, const std::string& cell, QPoint at) {
    QTest::mousePress(&WindowOf(screen), Qt::LeftButton, Qt::NoModifier, PointIn(screen, cell, at));
}

void ReleaseCell(const std::string& screen, const std::string& cell, QPoint at) {
    QTest::mouseRelease(&WindowOf(screen), Qt::LeftButton, Qt::NoModifier, PointIn(screen, cell, at));
}

void MoveOverCell(const std::string& screen, const std::string& cell, QPoint at) {
    Surface& window = WindowOf(screen);
    const QPoint point = PointIn(screen, cell, at);
    // The toolkit's own helper moves the pointer, and so meets whichever screen is in front there.
    QMouseEvent event(QEvent::MouseMove, point, window.mapToGlobal(point), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

void Type(const std::string& screen, const std::string& name, const std::string& text) {
    QTest::keyClicks(&UsableControl(screen, name), QString::fromStdString(text));
}

void TypeInto(const std::string& screen, const std::string& name, const std::string& text) {
    UsableControl<QLineEdit>(screen, name).selectAll();
    Type(screen, name, text);
}

void PasteInto(const std::string& screen, const std::string& name, const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
    UsableControl<QLineEdit>(screen, name).paste();
}

void PressKey(const std::string& screen, const std::string& name, Qt::Key key) {
    QTest::keyClick(&UsableControl(screen, name), key);
}

void ScrollTo(const std::string& screen, const std::string& name, int value) {
    auto& bar = UsableControl<QScrollBar>(screen, name);
    if (value < bar.minimum() || value > bar.maximum()) {
        Refuse(screen, name, "too short for " + std::to_string(value));
    }
    bar.setSliderDown(true);
    bar.setSliderPosition(value);
    bar.setSliderDown(false);
}

void CloseScreen(const std::string& screen) {
    WindowOf(screen).close();
    DeliverEvents();
}

void DeliverEvents() { QCoreApplication::processEvents(); }

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // The same everywhere: no display, no scaling, no locale of the user's.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1");
    for (const char* variable : {"QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_ENABLE_HIGHDPI_SCALING"}) {
        qunsetenv(variable);
    }
    qputenv("LC_ALL", "C.UTF-8");
    const QApplication application(argc, argv);
    PrepareToolkit();
    return RUN_ALL_TESTS();
}
