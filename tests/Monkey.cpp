#include <unistd.h>

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
bool preferencesAreBroken = false;
std::string enteredName;
std::string chosenPath;

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
[[noreturn]] void End(const std::string& how) {
    NoteTexts();
    fs::copy(PreferencesPath(), "../whole");
    LoadPreferences();
    ProgramFolder = "../whole";
    SavePreferences();
    Tell("ended by " + how);
    std::_Exit(EXIT_SUCCESS);
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

/// Whether one of these controls is there for which `test` holds.
template <typename Control, typename Test>
bool AnyControl(const char* pattern, Test test) {
    return std::ranges::any_of(Windows(), [&](const Surface* window) {
        return std::ranges::any_of(window->findChildren<Control*>(QRegularExpression(pattern)), test);
    });
}

/// Boxes of other names give no number, or one that is corrected.
bool ABoxHasNoNumber() {
    return AnyControl<QLineEdit>("^((Start|Dest|)[XY]|Time|Width|Height|Bkg.*(Top|Btm))Box$", [](const auto* box) {
        try {
            return (void)TextToInt16(box->text().toStdString()), false;
        } catch (const Fault&) {
            return true;
        }
    });
}

bool IsScrolledBeyond(int value, const char* bar) {
    return AnyControl<QScrollBar>(bar, [=](const auto* control) { return control->value() > value; });
}

bool AFileIsBroken() {
    return std::ranges::any_of(std::array{LevelPath, WorldPath, chosenPath},
                               [](const auto& path) { return FileNameOf(path).starts_with("broken"); });
}

bool LayersAreMissing() { return LevelRecord.interactive_tm.Columns() < std::max<int>(LevelRecord.width, ViewColumns); }

bool TilesAreMissing() {
    return WorldRecord.tiles.Columns() < WorldRecord.width || WorldRecord.tiles.Rows() < WorldRecord.height;
}

bool TheSetCannotBeMade() {
    const std::string set = JoinPath(UserLevelsFolder, enteredName);
    return FolderExists(set) || !FolderExists(FolderOf(set)) || enteredName.size() > 255;
}

bool TheInfoCannotBeWritten() {
    return !AnyControl<QLabel>("^InfoNameBox", [](const auto* box) {
        const std::string folder = FolderOf(box->accessibleName().toStdString());
        return access(folder.c_str(), W_OK) == 0 && !FolderExists(folder + "info");
    });
}

struct Ending {
    std::array<int, 5> faults;
    const char* screen;  ///< that is open
    const char* what;
    bool (*may)();
};

/// How the program may end besides by its last screen, and when.
constexpr Ending Endings[] = {
    {{6, 13}, "", "a box without a number", ABoxHasNoNumber},
    {{6}, "MainFrm", "a far end", [] { return LevelRecord.width > 1023 || IsScrolledBeyond(995, "^MapXScroll"); }},
    {{6, 9, 13, 62, 380}, "MainFrm", "a broken file", AFileIsBroken},
    {{9}, "MainFrm", "a bad guy too few", [] { return LevelRecord.BadGuyCount < 0; }},
    {{9}, "MainFrm", "no bad guy to delete", [] { return CurrentMode == EditBadGuysMode && SelectedBadGuy < 0; }},
    {{9}, "VarsFrm", "a short ending", [] { return PrefsRecord.AddEndState > 0 && LevelRecord.width < 22; }},
    {{9}, "", "a level without its layers", LayersAreMissing},
    {{9}, "WorldFrm", "a world without its tiles", TilesAreMissing},
    {{9}, "WorldFrm", "no tile to paint with", [] { return WorldCurrentTile < 1 || WorldCurrentTile > 76; }},
    {{9}, "WorldFrm", "a favorite behind the last", [] { return IsScrolledBeyond(10, "^TileScroll"); }},
    {{9}, "WorldFrm", "the 64th link", [] { return WorldRecord.LinkCount > 63; }},
    {{380}, "MainFrm", "a bad guy beyond its bars", [] { return SelectedBadGuy > 0; }},
    {{380}, "WorldPropertiesFrm", "a small world", [] { return WorldRecord.width < 19 || WorldRecord.height < 16; }},
    {{380}, "WorldFrm", "a wide world", [] { return WorldRecord.width > 512 || WorldRecord.height > 256; }},
    {{481}, "BackGndFrm", "a background that is no picture", [] { return true; }},
    {{52, 75, 76}, "", "a set that cannot be made", TheSetCannotBeMade},
    {{52, 75, 76}, "NukTextFrm", "an INFO file that cannot be written", TheInfoCannotBeWritten},
    {{76}, "VarsFrm", "no backgrounds", [] { return !FolderExists(BackgroundFolder); }},
};

bool Allows(const Ending& ending, const Fault& fault) {
    const auto is = [&](const Surface* window) { return window->objectName() == ending.screen; };
    const bool isOpen = *ending.screen == '\0' || std::ranges::any_of(Windows(), is);
    return isOpen && std::ranges::count(ending.faults, static_cast<int>(fault.Number())) > 0 && ending.may();
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

/// A point on one of the cells and controls that can be seen. Arrays but the toolbars count as one: the map is not all.
Target AnyTarget(Surface& window) {
    std::map<std::string, std::vector<std::pair<std::string, QRect>>> areas;
    const auto add = [&](const std::string& name, const QRect& area) {
        const bool isTool = name.find("TB(") <= 1;
        areas[name.substr(0, isTool ? name.size() : name.find('('))].emplace_back(name, area & window.rect());
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
    const auto& [name, area] = AnyOf(AnyOf(areas).second);
    const QPoint at{Below(std::max(area.width(), 1)), Below(std::max(area.height(), 1))};
    // The button that ends the program is to come late.
    return name == "TB(17)" && !OneIn(8) ? AnyTarget(window) : Target{&window, name, area.topLeft() + at};
}

/// The press that has not been let go: nobody has two hands on a mouse.
struct {
    QPointer<QWindow> window;
    Qt::MouseButton button = Qt::NoButton;
    QPoint at;
} held;

void Release() {
    if (const auto press = std::exchange(held, {}); press.window != nullptr) {
        QTest::mouseRelease(press.window, press.button, {}, press.at);
    }
    QTestPrivate::qtestMouseButtons = Qt::NoButton;
}

void Click(const Target& target) {
    const auto button = AnyOf(std::array{Qt::LeftButton, Qt::LeftButton, Qt::LeftButton, Qt::RightButton});
    held = {target.Handle(), button, OneIn(10) ? AnyTarget(*target.window).at : target.at};  // a drag, or none
    if (held.window != nullptr) {
        QTest::mousePress(held.window, button, OneIn(3) ? Qt::ShiftModifier : Qt::NoModifier, target.at);
    }
    Release();
}

void Wheel(const Target& target) {
    const QPoint turn = AnyOf(std::array{QPoint(0, 120), QPoint(0, -120), QPoint(0, -1200), QPoint(-240, 0)});
    QWheelEvent event(target.at, target.window->mapToGlobal(target.at), {}, turn, {}, {}, Qt::NoScrollPhase, false);
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
    static constexpr std::array Keys{Qt::Key_Tab, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape,   Qt::Key_Left,
                                     Qt::Key_Up,  Qt::Key_Right,  Qt::Key_Down,  Qt::Key_PageDown, Qt::Key_Home,
                                     Qt::Key_End, Qt::Key_Delete, Qt::Key_V,     Qt::Key_Z,        Qt::Key_5};
    const Qt::Key key = AnyOf(Keys);
    Press(target, key, OneIn(4) ? Qt::ControlModifier : OneIn(3) ? Qt::ShiftModifier : Qt::NoModifier);
}

std::string AnyText() {
    static const std::vector<std::string> Texts{
        "",   "0",   "2",   "12",   "18", "21",      "40", "300",   "512", "1024", "32767", "32768",    "1000000",
        "-5", "1.5", "a b", "\xFF", ";c", "\"no\")", "..", "(name", "nuk", "x\ny", "Title", "\xC3\xBC", "#t"};
    return OneIn(20) ? std::string(400, 'w') : AnyOf(Texts);
}

void Write(const Target& target) {
    Click(target);
    Press(target, Qt::Key_A, Qt::ControlModifier);
    const std::string text = AnyText();
    if (OneIn(3)) {
        QGuiApplication::clipboard()->setText(QString::fromStdString(text));
        return Press(target, Qt::Key_V, Qt::ControlModifier);
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
    {"click", 55, Click}, {"wheel", 5, Wheel}, {"key", 13, PressAnyKey}, {"write", 10, Write}, {"close", 2, Close}};

void Act() {
    Release();
    NoteTexts();
    std::vector<Surface*> windows = Windows();
    if (depth == 0) {  // a screen that is closing has given the input back already
        CheckScreens(windows);
    }
    const bool triesAll = OneIn(8);
    std::erase_if(windows, [=](const Surface* window) { return !triesAll && !window->takesInput; });
    if (windows.empty()) {
        return;
    }
    Surface& window = *AnyOf(windows);
    const Target target = AnyTarget(window);
    int place = --actionsLeft < 0 ? 84 : Below(85);
    const Kind& kind = *std::ranges::find_if(Kinds, [&](const Kind& k) { return (place -= k.weight) < 0; });
    Tell(kind.name + (" " + window.objectName().toStdString()) + " " + target.name);
    ++depth;
    // What the toolkit itself waits for (a drag, a menu) comes by a timer: one that runs already does not go off.
    QTimer inner;
    QObject::connect(&inner, &QTimer::timeout, &inner, [level = QThread::currentThread()->loopLevel()] {
        if (QThread::currentThread()->loopLevel() > level) {
            Act();
        }
    });
    inner.start(0);
    QApplication::setActiveWindow(&window);  // as a window manager would: only that one has the keys
    kind.act(target);
    NoteTexts();
    --depth;
}

/// The path of a file of this kind, more often than not of one that is there.
std::string ChooseFile(const FileDialogSetup& setup) {
    QCoreApplication::processEvents();
    const std::string ending = setup.filter.substr(setup.filter.find('|') + 2);
    std::set<std::string> paths{ProgramFolder + "/no/such" + ending, UserLevelsFolder};
    for (const auto& entry : fs::recursive_directory_iterator(ProgramFolder)) {
        if (entry.is_regular_file() && entry.path().extension() == ending) {
            paths.insert(entry.path());
        }
    }
    const std::string& path = AnyOf(paths);
    Tell("chose " + path);
    return OneIn(5) ? throw Fault(FaultNumber::CancelWasSelected) : chosenPath = path;
}

}  // namespace

// Doubles of the dialogs, and of the pace of yields, in which it acts.

Int16 ShowMessage(const std::string& text, const std::string& title, MessageButtons buttons, MessageIcon) {
    QCoreApplication::processEvents();
    const bool mayCancel = buttons == MessageButtons::YesNoCancel;
    const int answer = buttons == MessageButtons::Ok ? AnswerOk
                       : OneIn(2)                    ? AnswerYes
                       : mayCancel && OneIn(2)       ? AnswerCancel
                                                     : AnswerNo;
    Tell("answered " + std::to_string(answer) + " to " + title + ": " + text);
    return answer;
}

std::string InputBox(const std::string&, const std::string&) {
    enteredName = AnyText();
    std::erase(enteredName, '\n');
    return enteredName;
}

std::string OpenFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

std::string SaveFileDialog(const FileDialogSetup& setup) { return ChooseFile(setup); }

void EndWithFault(const Fault& fault, const std::string& advice) {
    const auto ending = std::ranges::find_if(Endings, [&](const Ending& row) { return Allows(row, fault); });
    const std::string number = std::to_string(static_cast<int>(fault.Number()));
    if (ending == std::end(Endings) && (!preferencesAreBroken || advice.empty())) {
        Find("fault " + number);
    }
    End(number + ": " + (ending == std::end(Endings) ? "broken preferences" : ending->what));
}

void EndProcess() { End("an answer"); }

int yieldsUntilNextLook = 0;

void LookAtNextYield() {}  // handlers of timers begin at any time

void SleepUntilEvent() {
    ShowScreensLoadedFor({});
    Act();
    QCoreApplication::processEvents();
}

void LookAtEventQueue() {
    yieldsUntilNextLook = Below(OneIn(2) ? 20 : 10'000);  // within short handlers and long reads
    if (actionsLeft > 0 && depth < 6) {
        SleepUntilEvent();
    }
    QCoreApplication::processEvents();
}

int main(int argc, char** argv) {
    chance.seed(static_cast<unsigned>(std::stoul(argv[1])));
    ProgramFolder = fs::current_path();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& text) { Tell(text.toStdString()); });
    InitConstants();
    preferencesAreBroken = argc > 2;
    (void)RunApplication(argc, argv, [] {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, Act);
        timer->start(0);
        Main();
    });
    if (AnyScreenLoaded() || depth > 0) {
        Find("an open screen");
    }
    End("closing");
}
