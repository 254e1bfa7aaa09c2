#include <QtTest>
#include <QtWidgets>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>

#include "core/General.h"
#include "core/MapGrid.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/InfoFile.h"
#include "level/LevelWriter.h"
#include "platform/Application.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/ImageCell.h"
#include "platform/Surface.h"
#include "sidescreens/HelpFrm.h"
#include "world/WorldWriter.h"

// One run of the program with a monkey at the mouse and the keys: it does random things to all screens, also in the
// yields of what it has done before, and answers every question at random, until the program ends. It prints what it
// does, and last what it has found; whole texts go to the folder "whole". The same seed does the same. tests/monkey
// starts it, and looks at the files that it leaves.

namespace {

namespace fs = std::filesystem;

std::mt19937 chance;    // unlike those of the library's distributions, its numbers are the same everywhere
int actionsLeft = 300;  // then all screens are closed
int depth = 0;          // of what is being done
std::vector<std::string> enteredNames;
bool preferencesAreBroken = false;

int Below(int bound) { return static_cast<int>(chance() % static_cast<unsigned>(bound)); }
bool OneIn(int times) { return Below(times) == 0; }

template <typename List>
const auto& AnyOf(const List& list) {
    return *std::next(std::begin(list), Below(static_cast<int>(std::size(list))));
}

void Tell(const std::string& line) {
    std::cout << std::string(static_cast<std::size_t>(depth), ' ') << line << std::endl;
}

/// What is composed between two of these calls, and then written, is a whole text.
void NoteTexts() {
    static std::set<std::string> known{""};
    for (const std::string& text : {LevelText, WorldOutput, InfoText, HelpText}) {
        if (known.insert(text).second) {
            std::ofstream("../whole/" + std::to_string(known.size()), std::ios::binary) << text;
        }
    }
}

[[noreturn]] void Find(const std::string& what) {
    Tell("FOUND " + what);
    std::_Exit(EXIT_FAILURE);
}

/// Preferences are whole if saving what they hold changes nothing.
void TellEnd(const std::string& how) {
    NoteTexts();
    const std::string left = PreferencesPath();
    LoadPreferences();
    ProgramFolder = "../whole";
    fs::copy(left, ProgramFolder);
    SavePreferences();
    Tell("ended by " + how);
}

// What must always hold.

std::vector<Surface*> Windows() {
    std::vector<Surface*> windows;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* surface = dynamic_cast<Surface*>(widget); surface != nullptr && surface->isVisible()) {
            windows.push_back(surface);
        }
    }
    std::ranges::sort(windows, {}, &QObject::objectName);
    return windows;
}

template <typename Control>
std::vector<const Control*> ControlsNamed(const char* pattern) {
    std::vector<const Control*> controls;
    for (const Surface* window : Windows()) {
        for (const Control* control : window->findChildren<Control*>(QRegularExpression(pattern))) {
            controls.push_back(control);
        }
    }
    return controls;
}

/// Whether a box, where a text that is no number ends the program, raises this fault.
bool ABoxRaises(FaultNumber number) {
    for (const auto* box : ControlsNamed<QLineEdit>("^((Start|Dest|)[XY]|Time|Width|Height|Bkg.*(Top|Btm))Box$")) {
        try {
            (void)TextToInt16(box->text().toStdString());
        } catch (const Fault& fault) {
            if (fault.Number() == number) {
                return true;
            }
        }
    }
    return false;
}

int Scrolled(const char* bar) {
    const auto bars = ControlsNamed<QScrollBar>(bar);
    return bars.empty() ? 0 : bars[0]->value();
}

template <typename Test>
bool AnyUpTo(int last, Test test) {
    for (int i = 0; i <= last; ++i) {
        if (test(i)) {
            return true;
        }
    }
    return false;
}

constexpr const char* MainScreen = "MainFrm";
constexpr const char* WorldScreen = "WorldFrm";

bool IsSmaller(const TileMap& map, int columns, int rows) { return map.Columns() < columns || map.Rows() < rows; }

bool ALayerIsMissing() {
    const int width = std::max<int>(LevelRecord.width, ViewColumns);
    return IsSmaller(LevelRecord.background_tm, width, LevelRows) ||
           IsSmaller(LevelRecord.interactive_tm, width, LevelRows) ||
           IsSmaller(LevelRecord.foreground_tm, width, LevelRows);
}

bool ATileHasNoPicture() {
    return AnyUpTo(WorldRecord.tiles.Columns() - 1, [](int column) {
        return AnyUpTo(WorldRecord.tiles.Rows() - 1, [=](int row) {
            const Int16 tile = WorldRecord.tiles(column, row);
            return tile < 0 || tile > 76;
        });
    });
}

bool TilesAreMissing() { return IsSmaller(WorldRecord.tiles, WorldRecord.width, WorldRecord.height); }

bool IsDeep(int resetPoint) { return LevelRecord.reset_points[resetPoint].y >= LevelRows * TileSize; }

bool IsBeyondItsBars(int badGuy) {
    const BadGuy& selected = LevelRecord.objects[badGuy];
    return badGuy == SelectedBadGuy &&
           (selected.x >= (LevelRecord.width - 1) * TileSize || selected.y >= (LevelRecord.height - 1) * TileSize);
}

bool ASetCannotBeMade() {
    return std::ranges::any_of(enteredNames, [](const std::string& name) {
        const std::string set = JoinPath(UserLevelsFolder, name);
        return FolderExists(set) || !FolderExists(FolderOf(set)) || name.size() > 255;
    });
}

bool TheInfoCannotBeWritten() {
    const auto boxes = ControlsNamed<QLabel>("^InfoNameBox");
    const std::string folder = boxes.empty() ? "/" : FolderOf(boxes[0]->accessibleName().toStdString());
    return !FolderExists(folder) || FolderExists(folder + "info");
}

struct Ending {
    std::set<int> faults;
    const char* screen;  ///< that is open
    const char* what;
    bool (*may)();
};

/// How the program may end besides by its last screen, and when.
const std::vector<Ending>& Endings() {
    static const std::vector<Ending> endings{
        {{13}, "", "a box without a number", [] { return ABoxRaises(FaultNumber::TypeMismatch); }},
        {{6}, "", "a box with too large a number", [] { return ABoxRaises(FaultNumber::Overflow); }},
        {{6}, MainScreen, "a level too wide", [] { return LevelRecord.width > 1023; }},
        {{6},
         MainScreen,
         "the far end of no level",
         [] { return LevelLoaded == False && Scrolled("^MapXScroll") > 1000; }},
        {{6}, MainScreen, "a far reset point", [] { return CurrentTile == 131 && Scrolled("^MapXScroll") > 995; }},
        {{9}, "VarsFrm", "a short ending", [] { return PrefsRecord.AddEndState > 0 && LevelRecord.width < 22; }},
        {{9}, "", "a level without its layers", ALayerIsMissing},
        {{9}, MainScreen, "a bad guy too few", [] { return LevelRecord.BadGuyCount < 0; }},
        {{9}, MainScreen, "a deep reset point", [] { return AnyUpTo(LevelRecord.reset_points.Last(), IsDeep); }},
        {{9}, WorldScreen, "a world without its tiles", TilesAreMissing},
        {{9}, WorldScreen, "no tile to paint with", [] { return WorldCurrentTile < 1 || WorldCurrentTile > 76; }},
        {{9}, WorldScreen, "a favorite behind the last", [] { return Scrolled("^TileScroll") > 10; }},
        {{9}, WorldScreen, "the 64th link", [] { return WorldRecord.LinkCount > 63; }},
        {{9}, WorldScreen, "a tile without a picture", ATileHasNoPicture},
        {{380},
         MainScreen,
         "a bad guy beyond its bars",
         [] { return AnyUpTo(LevelRecord.objects.Last(), IsBeyondItsBars); }},
        {{380},
         WorldScreen,
         "a world beyond its bars",
         [] { return WorldRecord.width > 512 || WorldRecord.height > 256; }},
        {{481}, "BackGndFrm", "a background that is no picture", [] { return true; }},
        {{52, 75, 76}, "", "a set that cannot be made", ASetCannotBeMade},
        {{52, 75, 76}, "NukTextFrm", "an INFO file that cannot be written", TheInfoCannotBeWritten},
        {{76}, "VarsFrm", "no backgrounds", [] { return !FolderExists(BackgroundFolder); }},
        {{6, 9, 13, 62},
         MainScreen,
         "a broken world as the last one",
         [] { return WorldLoaded == False && FileNameOf(WorldPath).starts_with("broken"); }},
    };
    return endings;
}

bool Allows(const Ending& ending, const Fault& fault) {
    const auto is = [&](const Surface* window) { return window->objectName() == ending.screen; };
    const bool isOpen = *ending.screen == '\0' || std::ranges::any_of(Windows(), is);
    return isOpen && ending.faults.contains(static_cast<int>(fault.Number())) && ending.may();
}

/// Which screens take the input from which other ones.
const std::map<QString, QString> Covered{
    {"VarsFrm", "MainFrm"},  {"NukTextFrm", "MainFrm"}, {"zBGEditFrm", "MainFrm"}, {"HelpFrm", "MainFrm"},
    {"WorldFrm", "MainFrm"}, {"BackGndFrm", "VarsFrm"}, {"LinkForm", "WorldFrm"},  {"WorldPropertiesFrm", "WorldFrm"},
};

void CheckScreens(const std::vector<Surface*>& windows) {
    static std::set<QString> coveredTwice;  // the first of two that closes gives the input back
    std::map<QString, int> above;
    for (const Surface* window : windows) {
        if (const auto pair = Covered.find(window->objectName()); pair != Covered.end() && ++above[pair->second] > 1) {
            coveredTwice.insert(pair->second);
        }
    }
    for (const Surface* window : windows) {
        const QString name = window->objectName();
        if (window->takesInput ? above[name] > 0 && !coveredTwice.contains(name) : above[name] == 0) {
            Find(name.toStdString() + (window->takesInput ? " works below another screen" : " stays deaf"));
        }
    }
}

// What it does.

struct Target {
    QPointer<Surface> window;
    std::string name;
    QPoint at;

    [[nodiscard]] QWindow* Handle() const {
        return window != nullptr && window->isVisible() ? window->windowHandle() : nullptr;
    }
};

QPoint AnyPointIn(const QRect& area) {
    const int right = Below(std::max(area.width(), 1));
    return area.topLeft() + QPoint(right, Below(std::max(area.height(), 1)));
}

/// A point on one of the cells and controls that can be seen. Arrays count as one, so that the map is not all.
Target AnyTarget(Surface& window) {
    if (const QWidget* menu = QApplication::activePopupWidget(); menu != nullptr && OneIn(2)) {
        return {&window, "menu", window.mapFromGlobal(menu->mapToGlobal(AnyPointIn(menu->rect())))};
    }
    std::map<std::string, std::vector<std::pair<std::string, QRect>>> areas;
    const auto add = [&](const std::string& name, const QRect& area) {
        areas[name.substr(0, name.find('('))].emplace_back(name, area & window.rect());
    };
    for (const ImageCell* cell : window.Cells()) {
        if (window.IsShown(*cell)) {
            add(cell->Name(), window.AreaOf(*cell));
        }
    }
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->isVisible() && !widget->objectName().isEmpty()) {
            add(widget->objectName().toStdString(), {widget->mapTo(&window, QPoint()), widget->size()});
        }
    }
    const auto toolbar = std::ranges::find_if(areas, [](const auto& array) { return array.first.ends_with("TB"); });
    const auto& [name, area] = AnyOf(toolbar != areas.end() && OneIn(6) ? toolbar->second : AnyOf(areas).second);
    // The button that ends the program is to come late.
    return name == "TB(17)" && !OneIn(8) ? AnyTarget(window) : Target{&window, name, AnyPointIn(area)};
}

/// The press that has not been let go: nobody has two hands on a mouse.
struct {
    QPointer<QWindow> window;
    Qt::MouseButton button = Qt::NoButton;
    QPoint at;
} held;

void Release() {
    const auto press = std::exchange(held, {});
    if (press.window != nullptr) {
        QTest::mouseRelease(press.window, press.button, {}, press.at);
    } else {
        QTestPrivate::qtestMouseButtons = Qt::NoButton;
    }
}

template <Qt::MouseButton Button, bool Twice = false, bool Drags = false>
void Click(const Target& target) {
    if (QWindow* window = target.Handle()) {
        QTest::mouseMove(window, target.at);
    }
    if (QWindow* window = target.Handle()) {
        held = {window, Button, target.at};
        QTest::mousePress(window, Button, OneIn(3) ? Qt::ShiftModifier : Qt::NoModifier, target.at);
    }
    if (Drags && held.window != nullptr) {
        held.at = AnyTarget(*target.window).at;
        QTest::mouseMove(held.window, held.at);
    }
    Release();
    if (Twice) {
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        Click<Button>(target);
    }
}

void Wheel(const Target& target) {
    const QPoint turn = AnyOf(std::array{QPoint(0, 120), QPoint(0, -120), QPoint(0, -1200), QPoint(-240, 0)});
    QWheelEvent event(target.at, target.window->mapToGlobal(target.at), {}, turn, Qt::NoButton,
                      OneIn(3) ? Qt::ShiftModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(target.Handle(), &event);
}

void Press(const Target& target, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    const char character = QTest::keyToAscii(key);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (QWindow* window = target.Handle()) {
            qt_handleKeyEvent(window, type, key, modifiers, character != 0 ? QString(QLatin1Char(character)) : "");
        }
    }
}

void PressAnyKey(const Target& target) {
    static constexpr Qt::Key Keys[] = {Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Return,   Qt::Key_Space, Qt::Key_Escape,
                                       Qt::Key_Left, Qt::Key_Right,   Qt::Key_PageDown, Qt::Key_Down,  Qt::Key_Home,
                                       Qt::Key_End,  Qt::Key_PageUp,  Qt::Key_Delete,   Qt::Key_A,     Qt::Key_V,
                                       Qt::Key_Z,    Qt::Key_X,       Qt::Key_Up,       Qt::Key_5,     Qt::Key_Period};
    const Qt::KeyboardModifiers modifiers[] = {{}, {}, Qt::ShiftModifier, Qt::ControlModifier};
    const Qt::Key key = AnyOf(Keys);
    Press(target, key, AnyOf(modifiers));
}

std::string AnyText() {
    static const std::vector<std::string> Texts{"",    "0",    "1",   "2",     "7",   "12",      "18",       "21",
                                                "25",  "40",   "90",  "300",   "512", "1024",    "32767",    "32768",
                                                "-5",  "1.5",  "a b", "\xFF",  ";c",  "\"no\")", "..",       "(name",
                                                "nuk", "x\ny", "19",  "Title", "#t",  "-",       "\xC3\xBC", "1000000"};
    return OneIn(20) ? std::string(400, 'w') : AnyOf(Texts);
}

void Write(const Target& target) {
    Click<Qt::LeftButton>(target);
    Press(target, Qt::Key_A, Qt::ControlModifier);
    const std::string text = AnyText();
    if (OneIn(3)) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        Press(target, Qt::Key_V, Qt::ControlModifier);
        return;
    }
    for (const char c : text) {
        if (c >= ' ') {
            Press(target, QTest::asciiToKey(c));
        }
    }
}

void Close(const Target& target) {
    if (target.window->objectName() != "MainFrm" || actionsLeft < 0 || OneIn(8)) {  // not too early
        target.window->close();
    }
}

struct Kind {
    const char* name;
    int weight;
    void (*act)(const Target& target);
};

constexpr Kind Kinds[] = {
    {"click", 40, Click<Qt::LeftButton>},
    {"right", 10, Click<Qt::RightButton>},
    {"middle", 1, Click<Qt::MiddleButton>},
    {"double", 2, Click<Qt::LeftButton, true>},
    {"drag", 3, Click<Qt::LeftButton, false, true>},
    {"wheel", 5, Wheel},
    {"key", 12, PressAnyKey},
    {"write", 10, Write},
    {"close", 2, Close},
};

void Act() {
    Release();
    NoteTexts();
    std::vector<Surface*> windows = Windows();
    if (depth == 0) {  // a screen that is closing has given the input back already
        CheckScreens(windows);
    }
    if (!OneIn(8)) {
        std::erase_if(windows, [](const Surface* window) { return !window->takesInput; });
    }
    if (windows.empty()) {
        return;
    }
    Surface& window = *AnyOf(windows);
    const Target target = AnyTarget(window);
    int place = --actionsLeft < 0 ? 84 : Below(85);
    const Kind& kind = *std::ranges::find_if(Kinds, [&](const Kind& k) { return (place -= k.weight) < 0; });
    Tell(kind.name + (" " + window.objectName().toStdString()) + " " + target.name + " " +
         std::to_string(target.at.x()) + " " + std::to_string(target.at.y()));
    ++depth;
    // What the toolkit itself waits for (a drag, a menu) comes by a timer: one that runs already does not go off.
    QTimer inner;
    QObject::connect(&inner, &QTimer::timeout, &inner, [level = QThread::currentThread()->loopLevel()] {
        if (QThread::currentThread()->loopLevel() > level) {
            Act();
        }
    });
    inner.start(0);
    kind.act(target);
    NoteTexts();
    --depth;
}

/// The path of a file of this kind, more often than not of one that is there.
std::string AnyPath(const std::string& ending) {
    std::set<std::string> paths;
    for (const auto& entry : fs::recursive_directory_iterator(ProgramFolder)) {
        if (entry.is_regular_file() && entry.path().string().ends_with(ending)) {
            paths.insert(entry.path());
        }
    }
    const int way = Below(8);
    if (paths.empty() || way < 2) {
        return ProgramFolder + (way == 0 ? "/no/such" : "/no such") + ending;
    }
    return way == 2 ? UserLevelsFolder : AnyOf(paths);
}

void MakePreferences() {
    Preferences& p = PrefsRecord;
    for (Int16* first : {p.FavoritesA.data(), p.FavoritesB.data(), p.WorldFavorites.data()}) {
        std::generate(first, first + p.FavoritesA.size(), [] { return Below(77); });
    }
    for (Int16* number : {&p.SavedLayer, &p.SavedMode, &p.SavedObject, &p.SavedWorldMode, &p.SavedTileSet, &p.GridState,
                          &p.AutoState, &p.AddEndState, &p.ResetState, &p.IglooState}) {
        *number = Below(2) * Below(3);
    }
    p.SavedTile = p.FloorTile = p.SavedScroll = p.SavedWorldX = p.SavedWorldY = Below(LastTile + 1);
    LevelPath = OneIn(3) ? "" : AnyPath(".fbl");
    WorldPath = OneIn(3) ? "" : AnyPath(".fbwm");
    SavePreferences();
    preferencesAreBroken = OneIn(12);
    if (preferencesAreBroken) {
        std::string text(1000, ' ');
        std::ranges::generate(text, [] { return static_cast<char>(Below(256)); });
        std::ofstream(PreferencesPath(), std::ios::binary) << text;
    }
    fs::copy(PreferencesPath(), "../whole/at-start");
    PrefsRecord = {};
}

std::string ChooseFile(const FileDialogSetup& setup) {
    QCoreApplication::processEvents();
    std::string path = AnyPath(setup.filter.substr(setup.filter.find('|') + 2));
    Tell("chose " + path);
    return OneIn(5) ? throw Fault(FaultNumber::CancelWasSelected) : path;
}

}  // namespace

// Doubles of the dialogs, and of the pace of yields, in which it acts.

Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon) {
    static const std::map<MessageButtons, std::vector<int>> Answers{
        {MessageButtons::Ok, {AnswerOk}},
        {MessageButtons::YesNo, {AnswerYes, AnswerNo}},
        {MessageButtons::YesNoCancel, {AnswerYes, AnswerYes, AnswerNo, AnswerCancel}}};
    QCoreApplication::processEvents();
    const int answer = AnyOf(Answers.at(buttons));
    Tell("answered " + std::to_string(answer) + " to " + title + ": " + text);
    return answer;
}

std::string InputBox(const std::string&, const std::string&) {
    std::string name = AnyText();
    std::erase(name, '\n');
    enteredNames.push_back(name);
    return name;
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

void EndWithFault(const Fault& fault, const std::string& advice) {
    const auto ending = std::ranges::find_if(Endings(), [&](const Ending& row) { return Allows(row, fault); });
    const int number = static_cast<int>(fault.Number());
    if (ending == Endings().end() && (!preferencesAreBroken || advice.empty())) {
        Find("fault " + std::to_string(number));
    }
    TellEnd(std::to_string(number) + ": " + (ending == Endings().end() ? "broken preferences" : ending->what));
    std::_Exit(EXIT_SUCCESS);
}

void EndProcess() {
    TellEnd("an answer");
    std::_Exit(EXIT_SUCCESS);
}

int yieldsUntilNextLook = 0;

void LookAtNextYield() {}  // handlers of timers begin at any time

void LookAtEventQueue() {
    yieldsUntilNextLook = Below(OneIn(2) ? 20 : 10'000);  // within short handlers and long reads
    if (actionsLeft > 0 && depth < 6) {
        ShowScreensLoadedFor({});
        Act();
    }
    QCoreApplication::processEvents();
}

void SleepUntilEvent() {
    ShowScreensLoadedFor({});
    Act();
    QCoreApplication::processEvents();
}

int main(int argc, char** argv) {
    chance.seed(static_cast<unsigned>(std::stoul(argv[1])));
    ProgramFolder = fs::current_path();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { Tell(text.toStdString()); });
    InitConstants();
    if (!OneIn(6)) {
        MakePreferences();
    }
    const int status = RunApplication(argc, argv, [] {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, Act);
        timer->start(0);
        Main();
    });
    if (AnyScreenLoaded() || depth > 0) {
        Find("an open screen");
    }
    TellEnd("closing");
    return status;
}
