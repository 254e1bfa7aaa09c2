#include "tests/ScreenDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <fstream>
#include <sstream>

#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Application.h"
#include "platform/ImageCell.h"

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

std::vector<Surface*> OpenSurfaces() {
    std::vector<Surface*> surfaces = LoadedSurfaces();
    std::erase_if(surfaces, [](const Surface* surface) { return !surface->isVisible(); });
    return surfaces;
}

QPoint PointIn(const std::string& screen, const std::string& cell, QPoint at) {
    return WindowOf(screen).AreaOf(CellOf(screen, cell)).topLeft() + at;
}

}  // namespace

void ResetState() {
    LevelRecord = {};
    PrefsRecord = {};
    WorldRecord = {};
    CurrentInfo = {};
    NewInfo = {};
    for (Int16* number : {&InfoCreated, &ModalDone, &WorldLoaded, &NewWorldPending, &WorldChanged, &LastMsgResult,
                          &CurrentLayer, &CurrentMode, &CurrentTileSet, &CurrentObject, &SelectedBadGuy,
                          &WorldReadError, &WorldCurrentTile, &CurrentLink, &LinkTypeChoice}) {
        *number = 0;
    }
    dialogs = {};
    InitTextConstants();
    InitConstants();
    UseDosLineEnds();
}

void ScreenTest::SetUp() {
    const auto* info = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = "fb_editor_" + std::string(info->test_suite_name()) + "_" + info->name();
    std::replace(name.begin(), name.end(), '/', '_');  // of tests with parameters
    folder = std::filesystem::temp_directory_path() / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    ResetState();
    UserLevelsFolder = folder.string();
}

void ScreenTest::TearDown() {
    for (Surface* surface : LoadedSurfaces()) {
        surface->takesInput = true;
        surface->close();
    }
    DeliverEvents();
    std::filesystem::remove_all(folder);
}

void MakeLevel(int width) {
    LevelRecord.width = width;
    LevelRecord.height = LevelRows;
    for (TileMap* layer : {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
        *layer = TileMap(width, LevelRows);
    }
    LevelPath = "level.fbl";
    LevelLoaded = True;
}

bool IsOpen(const std::string& screen) {
    for (const Surface* surface : OpenSurfaces()) {
        if (surface->objectName().toStdString() == screen) {
            return true;
        }
    }
    return false;
}

Surface& WindowOf(const std::string& screen) {
    for (Surface* surface : OpenSurfaces()) {
        if (surface->objectName().toStdString() == screen) {
            return *surface;
        }
    }
    throw std::runtime_error(screen + " is not open");
}

ImageCell& CellOf(const std::string& screen, const std::string& cell) {
    ImageCell* found = WindowOf(screen).FindCell(cell);
    if (found == nullptr) {
        throw std::runtime_error(screen + " has no cell " + cell);
    }
    return *found;
}

std::string CaptionOf(const std::string& screen, const std::string& name) {
    QWidget& control = ControlOf<QWidget>(screen, name);
    if (const auto* button = qobject_cast<QAbstractButton*>(&control)) {
        return button->text().toStdString();
    }
    return control.accessibleName().toStdString();
}

std::string TextOf(const std::string& screen, const std::string& name) {
    return ControlOf<QLineEdit>(screen, name).text().toStdString();
}

std::string ToolTipOf(const std::string& screen, const std::string& name) {
    if (const ImageCell* cell = WindowOf(screen).FindCell(name)) {
        return cell->ToolTip();
    }
    return ControlOf<QWidget>(screen, name).toolTip().toStdString();
}

bool IsTicked(const std::string& screen, const std::string& name) {
    return ControlOf<QAbstractButton>(screen, name).isChecked();
}

bool IsShown(const std::string& screen, const std::string& name) {
    if (const ImageCell* cell = WindowOf(screen).FindCell(name)) {
        return WindowOf(screen).IsShown(*cell);
    }
    return ControlOf<QWidget>(screen, name).isVisible();
}

bool IsEnabled(const std::string& screen, const std::string& name) {
    return ControlOf<QWidget>(screen, name).isEnabled();
}

int ScrollValueOf(const std::string& screen, const std::string& name) {
    return ControlOf<QScrollBar>(screen, name).value();
}

int ScrollMaxOf(const std::string& screen, const std::string& name) {
    return ControlOf<QScrollBar>(screen, name).maximum();
}

void ClickCell(const std::string& screen, const std::string& cell, Qt::MouseButton button, QPoint at) {
    QTest::mouseClick(&WindowOf(screen), button, Qt::NoModifier, PointIn(screen, cell, at));
}

void PressCell(const std::string& screen, const std::string& cell, Qt::MouseButton button, QPoint at) {
    QTest::mousePress(&WindowOf(screen), button, Qt::NoModifier, PointIn(screen, cell, at));
}

void ReleaseCell(const std::string& screen, const std::string& cell, Qt::MouseButton button, QPoint at) {
    QTest::mouseRelease(&WindowOf(screen), button, Qt::NoModifier, PointIn(screen, cell, at));
}

void MoveOverCell(const std::string& screen, const std::string& cell, QPoint at) {
    QTest::mouseMove(&WindowOf(screen), PointIn(screen, cell, at));
}

void ClickOn(const std::string& screen, const std::string& name) {
    QWidget& control = ControlOf<QWidget>(screen, name);
    // An option or a check box answers to a click on its mark, not to one on the blank space behind it.
    const bool marked = control.inherits("QRadioButton") || control.inherits("QCheckBox");
    const QPoint at = marked ? QPoint(8, control.height() / 2) : control.rect().center();
    QTest::mouseClick(&control, Qt::LeftButton, Qt::NoModifier, at);
}

void TypeInto(const std::string& screen, const std::string& name, const std::string& text) {
    auto& box = ControlOf<QLineEdit>(screen, name);
    box.selectAll();
    QTest::keyClicks(&box, QString::fromStdString(text));
}

void PressKey(const std::string& screen, const std::string& name, Qt::Key key) {
    QTest::keyClick(&ControlOf<QWidget>(screen, name), key);
}

void ScrollTo(const std::string& screen, const std::string& name, int value) {
    ControlOf<QScrollBar>(screen, name).setValue(value);
}

void CloseScreen(const std::string& screen) { WindowOf(screen).close(); }

void DeliverEvents() { QCoreApplication::processEvents(); }

std::string FileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    PrepareToolkit();
    return RUN_ALL_TESTS();
}
