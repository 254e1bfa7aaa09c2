#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>
#include <csignal>
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

// A monkey at the mouse and the keys: does random things to all screens, also in the yields and waits of what it has
// done before, and answers every question at random. Each run is a process and a folder of its own, from the start of
// the program to its end, which must be one of Ends(). What a seed does is the same each time.
//
//     monkey [--seed N] [--actions N] [--verbose]

namespace {

namespace fs = std::filesystem;

constexpr int LongestRun = 300;        // actions; then all screens are closed
constexpr int LongestClosing = 1'000;  // a world is asked about again and again
constexpr int DeepestYield = 6;
constexpr unsigned LongestAction = 30;  // seconds, in which a machine with other work may be slow

std::mt19937 chance;  // unlike those of the library's distributions, its numbers are the same everywhere
int actionsLeft = LongestRun;
std::ofstream journal;
std::vector<std::string> underWay;               // what is being done, the innermost last
std::map<std::string, std::string> textsBefore;  // of all files, by their paths
std::set<std::string> textsComposed;
std::string lastInput;
bool preferencesAreBroken = false;

int Below(int bound) { return static_cast<int>(chance() % static_cast<unsigned>(bound)); }
bool OneIn(int times) { return Below(times) == 0; }

template <typename List>
const auto& AnyOf(const List& list) {
    return *std::next(std::begin(list), Below(static_cast<int>(std::size(list))));
}

void Tell(const std::string& line) { journal << std::string(underWay.size(), ' ') << line << std::endl; }

[[noreturn]] void Find(const std::string& what) {
    Tell("FOUND " + what);
    std::_Exit(EXIT_FAILURE);
}

std::string TextOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// ---- What must always hold

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

/// The number boxes, where a text that is no number ends the program.
const std::set<QString> NumberBoxes{"StartXBox",    "StartYBox",    "TimeBox",      "WidthBox",     "BkgRedTopBox",
                                    "BkgGrnTopBox", "BkgBluTopBox", "BkgRedBtmBox", "BkgGrnBtmBox", "BkgBluBtmBox",
                                    "XBox",         "YBox",         "DestXBox",     "DestYBox"};

bool ANumberBoxRaises(FaultNumber number) {
    for (const Surface* window : Windows()) {
        for (const QLineEdit* box : window->findChildren<QLineEdit*>()) {
            try {
                if (box->isVisible() && NumberBoxes.contains(box->objectName())) {
                    (void)TextToInt16(box->text().toStdString());
                }
            } catch (const Fault& fault) {
                if (fault.Number() == number) {
                    return true;
                }
            }
        }
    }
    return false;
}

/// The control of an open screen, or null.
template <typename Control>
Control* ControlOf(const QString& screen, const QString& name) {
    for (const Surface* window : Windows()) {
        if (auto* control = window->findChild<Control*>(name); window->objectName() == screen) {
            return control;
        }
    }
    return nullptr;
}

int Scrolled(const QString& screen, const QString& name) {
    const auto* bar = ControlOf<QScrollBar>(screen, name);
    return bar != nullptr ? bar->value() : 0;
}

bool IsSmaller(const TileMap& map, int columns, int rows) { return map.Columns() < columns || map.Rows() < rows; }

bool LayersAreMissing() {
    const Level& level = LevelRecord;
    return std::ranges::any_of(
        std::array{&level.background_tm, &level.foreground_tm, &level.interactive_tm},
        [&](const TileMap* map) { return IsSmaller(*map, std::max<int>(LevelRecord.width, ViewColumns), LevelRows); });
}

bool AResetPointIsBelowTheView() {
    for (int i = 1; i <= LevelRecord.reset_points.Last(); ++i) {
        if (LevelRecord.reset_points[i].y >= LevelRows * TileSize) {
            return true;
        }
    }
    return false;
}

bool AWorldTileHasNoPicture() {
    const TileMap& tiles = WorldRecord.tiles;
    for (int cell = 0; cell < tiles.Columns() * tiles.Rows(); ++cell) {
        if (const Int16 tile = tiles(cell % tiles.Columns(), cell / tiles.Columns()); tile < 0 || tile > 76) {
            return true;
        }
    }
    return false;
}

bool TheBadGuyIsBeyondItsBars() {
    const Level& level = LevelRecord;
    if (SelectedBadGuy < 0 || SelectedBadGuy > level.objects.Last()) {
        return false;
    }
    const BadGuy& badGuy = level.objects[SelectedBadGuy];
    return badGuy.x > (level.width - 1) * TileSize - 1 || badGuy.y > (level.height - 1) * TileSize - 1;
}

bool TheSetCannotBeMade() {
    const std::string set = JoinPath(UserLevelsFolder, lastInput);
    return FolderExists(set) || !FolderExists(FolderOf(set)) || lastInput.size() > 255;
}

bool TheInfoCannotBeWritten() {
    const auto* box = ControlOf<QLabel>("NukTextFrm", "InfoNameBox");
    const std::string folder = box != nullptr ? FolderOf(box->accessibleName().toStdString()) : "/";
    return !FolderExists(folder) || FolderExists(folder + "info");
}

bool TheLastWorldIsBroken() { return WorldLoaded == False && FileNameOf(WorldPath).starts_with("broken"); }

struct Ending {
    std::set<int> numbers;
    const char* what;
    bool (*may)();
};

/// How the program may end besides by its last screen, and when.
const std::vector<Ending>& Ends() {
    static const std::vector<Ending> ends{
        {{13}, "a number box without a number", [] { return ANumberBoxRaises(FaultNumber::TypeMismatch); }},
        {{6}, "a number box beyond 16 bits", [] { return ANumberBoxRaises(FaultNumber::Overflow); }},
        {{6}, "a level that is too wide", [] { return LevelRecord.width > 1023; }},
        {{6},
         "the map's end without a level",
         [] { return LevelLoaded == False && Scrolled("MainFrm", "MapXScroll") > 1000; }},
        {{6},
         "a reset point beyond column 1013",
         [] { return CurrentTile == 131 && Scrolled("MainFrm", "MapXScroll") + ViewColumns > 1013; }},
        {{9}, "an ending for a narrow level", [] { return PrefsRecord.AddEndState > 0 && LevelRecord.width < 22; }},
        {{9}, "layers that are smaller than the level", LayersAreMissing},
        {{9}, "a deletion from an empty list", [] { return LevelRecord.BadGuyCount < 0; }},
        {{9}, "a reset point below the view", AResetPointIsBelowTheView},
        {{9},
         "a world with fewer tiles than its size",
         [] { return IsSmaller(WorldRecord.tiles, WorldRecord.width, WorldRecord.height); }},
        {{9},
         "an empty world tile, or one behind the last",
         [] { return WorldCurrentTile < 1 || WorldCurrentTile > 76; }},
        {{9}, "the end of the world's favorites", [] { return Scrolled("WorldFrm", "TileScroll") > 10; }},
        {{9}, "the 64th link", [] { return WorldRecord.LinkCount > 63; }},
        {{9}, "a world's tile without a picture", AWorldTileHasNoPicture},
        {{380}, "a bad guy beyond the bars", TheBadGuyIsBeyondItsBars},
        {{380}, "a world beyond the bars", [] { return WorldRecord.width > 512 || WorldRecord.height > 256; }},
        {{481}, "a background that is no picture", [] { return ControlOf<QWidget>("BackGndFrm", "OKCmd") != nullptr; }},
        {{52, 75, 76}, "a set that cannot be made", TheSetCannotBeMade},
        {{52, 75, 76}, "an INFO file that cannot be written", TheInfoCannotBeWritten},
        {{76}, "no backgrounds", [] { return !FolderExists(BackgroundFolder); }},
        {{6, 9, 13, 62}, "a broken world at the editor's start", TheLastWorldIsBroken},
    };
    return ends;
}

[[noreturn]] void End(const std::string& how) {
    Tell("ended by " + how);
    std::_Exit(EXIT_SUCCESS);
}

/// What is composed between two of these calls, and then written, is a whole text.
void NoteTexts() {
    for (const std::string* text : {&LevelText, &WorldOutput, &InfoText, &HelpText}) {
        if (!text->empty()) {
            textsComposed.insert(*text);
        }
    }
}

std::map<std::string, std::string> TextsOfFiles() {
    std::map<std::string, std::string> texts;
    for (const auto& entry : fs::recursive_directory_iterator(ProgramFolder)) {
        if (entry.is_regular_file() && entry.path().filename() != "journal") {
            texts[entry.path()] = TextOf(entry.path());
        }
    }
    return texts;
}

void CheckFiles() {
    NoteTexts();
    const std::map<std::string, std::string> texts = TextsOfFiles();
    for (const auto& [path, text] : texts) {
        const auto before = textsBefore.find(path);
        if ((before == textsBefore.end() || before->second != text) && !textsComposed.contains(text) &&
            path != PreferencesPath()) {
            Find("a file that is neither the old nor a whole new text: " + path);
        }
    }
    for (const auto& [path, text] : textsBefore) {
        if (!texts.contains(path)) {
            Find("a lost file: " + path);
        }
    }
    if (const std::string path = PreferencesPath(); texts.contains(path) && texts.at(path) != textsBefore[path]) {
        LoadPreferences();
        SavePreferences();  // what a part of them lacks would be added
        if (TextOf(path) != texts.at(path) && !textsComposed.contains(texts.at(path))) {
            Find("preferences that are not whole");
        }
    }
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

// ---- What it does

struct Target {
    QPointer<Surface> window;
    std::string name;
    QPoint at;

    [[nodiscard]] QWindow* Handle() const {
        return window != nullptr && window->isVisible() ? window->windowHandle() : nullptr;
    }
};

QPoint AnyPointIn(const QRect& area) {
    const int across = Below(std::max(area.width(), 1));
    return area.topLeft() + QPoint(across, Below(std::max(area.height(), 1)));
}

/// A point on one of the cells and controls that can be seen. Arrays count as one, so that the map is not all.
Target AnyTarget(Surface& window) {
    if (const QWidget* menu = QApplication::activePopupWidget(); menu != nullptr && OneIn(2)) {
        return {&window, "menu", window.mapFromGlobal(menu->mapToGlobal(AnyPointIn(menu->rect())))};
    }
    std::map<std::string, std::vector<std::pair<std::string, QRect>>> areas;
    const auto add = [&](const std::string& name, const QRect& area) {
        areas[name.substr(0, name.find('('))].emplace_back(name, area);
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
    const QPoint at = AnyPointIn(area);
    return {&window, name, {std::clamp(at.x(), 0, window.width() - 1), std::clamp(at.y(), 0, window.height() - 1)}};
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

void PressButton(const Target& target, Qt::MouseButton button, Qt::KeyboardModifiers modifiers = {}) {
    if (QWindow* window = target.Handle()) {
        QTest::mouseMove(window, target.at);
    }
    if (QWindow* window = target.Handle()) {
        held = {window, button, target.at};
        QTest::mousePress(window, button, modifiers, target.at);
    }
}

template <Qt::MouseButton Button, int Times = 1>
void Click(const Target& target) {
    for (int i = 0; i < Times; ++i) {
        QTest::lastMouseTimestamp -= i * QTest::mouseDoubleClickInterval;
        PressButton(target, Button, OneIn(3) ? Qt::ShiftModifier : Qt::NoModifier);
        Release();
    }
}

void Drag(const Target& target) {
    PressButton(target, Qt::LeftButton);
    if (held.window != nullptr) {
        held.at = AnyTarget(*target.window).at;
        QTest::mouseMove(held.window, held.at);
    }
    Release();
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
            qt_handleKeyEvent(window, type, key, modifiers, character != 0 ? QString(QLatin1Char(character)) : "",
                              false, 1);
        }
    }
}

void Key(const Target& target) {
    static constexpr Qt::Key Keys[] = {
        Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape, Qt::Key_Left,   Qt::Key_Right,
        Qt::Key_Up,  Qt::Key_Down,    Qt::Key_Home,   Qt::Key_End,   Qt::Key_PageUp, Qt::Key_Delete, Qt::Key_A,
        Qt::Key_V,   Qt::Key_Z,       Qt::Key_X,      Qt::Key_5,     Qt::Key_Period, Qt::Key_Minus,  Qt::Key_PageDown};
    Press(target, AnyOf(Keys),
          AnyOf(std::array{Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier}));
}

std::string AnyText() {
    static const std::vector<std::string> Texts{
        "",     "0",   "1",    "2",    "7",     "12",    "18",    "21",  "25",      "40",          "90",
        "300",  "512", "1024", "9999", "32767", "32768", "-5",    "1.5", "a b",     "\"quoted\")", "\xC3\xBC",
        "x\ny", "t",   ";;c",  "#t",   "..",    "\xFF",  "(name", "nuk", "1000000", "19",          "Title"};
    return OneIn(20) ? std::string(400, 'w') : AnyOf(Texts);
}

void Write(const Target& target) {
    Click<Qt::LeftButton>(target);
    Press(target, Qt::Key_A, Qt::ControlModifier);
    if (const std::string text = AnyText(); OneIn(4)) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        Press(target, Qt::Key_V, Qt::ControlModifier);
    } else {
        for (const char c : text) {
            if (c >= ' ') {
                Press(target, QTest::asciiToKey(c));
            }
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
    {"double", 2, Click<Qt::LeftButton, 2>},
    {"drag", 3, Drag},
    {"wheel", 5, Wheel},
    {"key", 12, Key},
    {"write", 10, Write},
    {"close", 2, Close},
};

const Kind& AnyKind() {
    int place = Below(85);
    return *std::ranges::find_if(Kinds, [&](const Kind& kind) { return (place -= kind.weight) < 0; });
}

void Act() {
    Release();
    alarm(LongestAction);
    NoteTexts();
    std::vector<Surface*> windows = Windows();
    if (underWay.empty()) {  // a screen that is closing has given its input back already
        CheckScreens(windows);
    }
    if (!OneIn(8)) {
        std::erase_if(windows, [](const Surface* window) { return !window->takesInput; });
    }
    if (windows.empty()) {
        return;
    }
    if (--actionsLeft < -LongestClosing) {
        Find("screens that do not close");
    }
    Surface& window = *AnyOf(windows);
    const Target target = AnyTarget(window);
    const Kind& kind = actionsLeft < 0 ? *std::ranges::find(Kinds, &Close, &Kind::act) : AnyKind();
    std::string what = kind.name + (" " + window.objectName().toStdString()) + " " + target.name;
    Tell(what + " " + std::to_string(target.at.x()) + " " + std::to_string(target.at.y()));
    underWay.push_back(std::move(what));
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
    underWay.pop_back();
}

// ---- Where it does it

/// A sample file that has been damaged.
std::string Broken(std::string text) {
    if (text.empty()) {
        return text;
    }
    const auto at = [&] { return static_cast<std::size_t>(Below(static_cast<int>(text.size()))); };
    switch (Below(6)) {
        case 0: return "";
        case 1: return text.substr(0, at());
        case 2: std::erase(text, '\n'); return text;
        case 3: text.erase(at(), 1); return text;
        case 4: text.insert(at(), AnyText()); return text;
        default:
            for (int i = 0; i < 20; ++i) {
                text[at()] = static_cast<char>(OneIn(2) ? '0' + Below(10) : Below(256));
            }
            return text;
    }
}

std::vector<std::string> PathsEndingIn(const std::string& ending) {
    std::vector<std::string> paths;
    for (const auto& [path, text] : TextsOfFiles()) {
        if (path.ends_with(ending)) {
            paths.push_back(path);
        }
    }
    return paths;
}

std::string AnyPath(const std::string& ending) {
    switch (Below(8)) {
        case 0: return ProgramFolder + "/no such" + ending;
        case 1: return ProgramFolder + "/no/such" + ending;
        case 2: return OneIn(2) ? UserLevelsFolder : AnyOf(PathsEndingIn(""));
        default: const std::vector<std::string> paths = PathsEndingIn(ending); return paths.empty() ? "" : AnyOf(paths);
    }
}

std::string ChooseFile(const FileDialogSetup& setup) {
    NoteTexts();
    QCoreApplication::processEvents();
    if (OneIn(5)) {
        throw Fault(FaultNumber::CancelWasSelected);
    }
    std::string path = AnyPath(setup.filter.substr(setup.filter.find('|') + 2));
    Tell("chose " + path);
    return path;
}

void MakePlace() {
    InitConstants();
    fs::copy(SAMPLE_GAME_FOLDER, GameFolder, fs::copy_options::recursive);
    std::ofstream(fs::path(ProgramFolder) / "FB_Editor.Help") << "Help\r\n";
    for (const char* ending : {".fbl", ".fbwm"}) {
        for (int i = 0; i < 3; ++i) {
            const std::string text = Broken(TextOf(AnyOf(PathsEndingIn(ending))));
            std::ofstream(ProgramFolder + "/broken" + std::to_string(i) + ending, std::ios::binary) << text;
        }
    }
    if (OneIn(20)) {
        fs::remove_all(OneIn(2) ? BackgroundFolder : UserLevelsFolder);
    }
    if (OneIn(10)) {
        fs::create_directories(fs::path(UserLevelsFolder) / "blocked" / "info");
    }
}

void MakePreferences() {
    Preferences& p = PrefsRecord;
    const auto fill = [](auto& numbers, int bound) { std::ranges::generate(numbers, [=] { return Below(bound); }); };
    fill(p.FavoritesA, 205);
    fill(p.FavoritesB, 205);
    fill(p.WorldFavorites, 77);
    for (Int16* number : {&p.SavedLayer, &p.SavedMode, &p.SavedObject, &p.SavedWorldMode}) {
        *number = Below(4);
    }
    for (Int16* number : {&p.GridState, &p.AutoState, &p.SavedTileSet, &p.AddEndState, &p.ResetState, &p.IglooState}) {
        *number = Below(2);
    }
    p.SavedTile = p.FloorTile = Below(205);
    p.SavedScroll = p.SavedWorldX = p.SavedWorldY = Below(100);
    LevelPath = OneIn(3) ? "" : AnyPath(".fbl");
    WorldPath = OneIn(3) ? "" : AnyPath(".fbwm");
    SavePreferences();
    preferencesAreBroken = OneIn(12);
    if (preferencesAreBroken) {
        std::string text = TextOf(PreferencesPath());
        std::ranges::generate(text, [] { return static_cast<char>(Below(256)); });
        std::ofstream(PreferencesPath(), std::ios::binary) << text;
    }
    PrefsRecord = {};
}

int Run(unsigned seed, int argc, char** argv) {
    chance.seed(seed);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("HOME", ProgramFolder.c_str());
    qputenv("XDG_RUNTIME_DIR", ProgramFolder.c_str());
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { Tell("warned " + message.toStdString()); });
    MakePlace();
    if (!OneIn(6)) {
        MakePreferences();
    }
    textsBefore = TextsOfFiles();
    const int status = RunApplication(argc, argv, [] {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, Act);
        timer->start(0);
        Main();
    });
    if (AnyScreenLoaded() || !underWay.empty()) {
        Find("an end that is none");
    }
    CheckFiles();
    Tell("ended by closing");
    return status;
}

/// Gives the lines of the run's journal; ends the program if the run has found something.
std::vector<std::string> RunInProcess(unsigned seed, int argc, char** argv) {
    std::string pattern = fs::temp_directory_path() / "fb_monkey_XXXXXX";
    ProgramFolder = mkdtemp(pattern.data());
    const std::string journalPath = ProgramFolder + "/journal";
    int status = 0;
    if (const pid_t child = fork(); child == 0) {
        fs::current_path(ProgramFolder);
        journal.open(journalPath);
        std::exit(Run(seed, argc, argv));
    } else {
        waitpid(child, &status, 0);
    }
    std::ifstream file(journalPath);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
    }
    fs::remove_all(ProgramFolder);
    if (status != 0) {
        std::ranges::copy(lines.end() - std::min<std::ptrdiff_t>(std::ssize(lines), 40), lines.end(),
                          std::ostream_iterator<std::string>(std::cerr, "\n"));
        std::cerr << "Run with --seed " << seed
                  << " --actions 1: " << (WIFSIGNALED(status) ? strsignal(WTERMSIG(status)) : "failed") << "\n";
        std::exit(EXIT_FAILURE);
    }
    return lines;
}

}  // namespace

// ---- Doubles of the dialogs and of the pace, which let it in

Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon) {
    NoteTexts();
    QCoreApplication::processEvents();
    const int answer = buttons == MessageButtons::Ok ? AnswerOk
                       : buttons == MessageButtons::YesNo
                           ? AnswerYes + Below(2)
                           : AnyOf(std::array{AnswerYes, AnswerYes, AnswerNo, AnswerCancel});
    Tell("answered " + std::to_string(answer) + " to " + title + ": " + text);
    return answer;
}

std::string InputBox(const std::string&, const std::string&) {
    lastInput = AnyText();
    Tell("entered " + lastInput);
    return lastInput;
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

void EndWithFault(const Fault& fault, const std::string& advice) {
    CheckFiles();
    const int number = static_cast<int>(fault.Number());
    for (const Ending& end : Ends()) {
        if (end.numbers.contains(number) && end.may()) {
            End(std::to_string(number) + ": " + end.what);
        }
    }
    if (preferencesAreBroken && !advice.empty()) {
        End("broken preferences");
    }
    Find("fault " + std::to_string(number) + (underWay.empty() ? "" : " by: " + underWay.back()));
}

void EndProcess() {
    CheckFiles();
    End("an answer");
}

int yieldsUntilNextLook = 0;

void LookAtNextYield() {}  // handlers of timers begin at any time

void LookAtEventQueue() {
    yieldsUntilNextLook = Below(OneIn(2) ? 20 : 10'000);  // within short handlers and long reads
    if (actionsLeft > 0 && underWay.size() < DeepestYield) {
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
    std::map<std::string, unsigned> options{{"--seed", 1}, {"--actions", 300}, {"--verbose", 0}};
    for (int i = 1; i + 1 < argc; i += 2) {
        options.at(argv[i]) = static_cast<unsigned>(std::stoul(argv[i + 1]));
    }
    std::map<std::string, int> counts;
    unsigned done = 0;
    unsigned seed = options["--seed"];
    for (; done < options["--actions"]; ++seed) {
        for (std::string line : RunInProcess(seed, argc, argv)) {
            if (options["--verbose"] > 1) {
                std::cout << line << "\n";
            }
            line.erase(0, line.find_first_not_of(' '));
            const std::string verb = line.substr(0, line.find(' '));
            const bool acts = std::ranges::any_of(Kinds, [&](const Kind& kind) { return kind.name == verb; });
            done += acts ? 1 : 0;
            ++counts[acts ? line.substr(0, line.find(' ', verb.size() + 1)) : line.substr(0, 60)];
        }
    }
    for (const auto& [what, count] : counts) {
        if (options["--verbose"] > 0) {
            std::cout << count << " " << what << "\n";
        }
    }
    std::cout << done << " actions, seeds " << options["--seed"] << " to " << seed - 1 << "\n";
}
