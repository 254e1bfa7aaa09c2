#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QImage>
#include <QListWidget>
#include <QMetaEnum>
#include <QPixmap>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <cstdlib>
#include <sstream>

#include "platform/Controls.h"
#include "tests/ProgramState.h"
#include "tests/ScreenDriver.h"
#include "world/WorldReader.h"

// Whole sessions, told in golden/stories: a line for each thing that is done, and indented below it all that it
// changes, in the records and on the screens. With FB_RECORD_STORIES set, what happens is written down instead of
// compared.

namespace {

/// The words of a story's line. What it lacks is an empty text or 0.
class Words {
public:
    explicit Words(const std::string& line) : rest_(line) {}

    std::string Next() {
        std::string word;
        rest_ >> word;
        return word;
    }
    int Number(int otherwise = 0) {
        const std::string word = Next();
        return word.empty() ? otherwise : std::stoi(word);
    }
    /// By default the middle of a cell.
    QPoint Point() { return QPoint{Number(16), Number(16)}; }
    std::string Rest() {
        std::string text;
        std::getline(rest_ >> std::ws, text);
        return text;
    }

private:
    std::istringstream rest_;
};

void Turn(const std::string& screen, const std::string& cell, QPoint angle, Qt::KeyboardModifiers modifiers) {
    Surface& window = WindowOf(screen);
    const QPoint at = window.AreaOf(CellOf(screen, cell)).center();
    QWheelEvent event(at, window.mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
}

Qt::Key KeyNamed(const std::string& name) {
    return static_cast<Qt::Key>(QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).c_str()));
}

using HandVerb = void (*)(const std::string& screen, const std::string& name, Words& words);

/// What the user does to a control or cell of a screen: "click MainFrm Img(48)".
const std::map<std::string, HandVerb> HandVerbs{
    {"click", [](auto& screen, auto& name, Words& w) { ClickOn(screen, name, Qt::LeftButton, w.Point()); }},
    {"right", [](auto& screen, auto& name, Words& w) { ClickOn(screen, name, Qt::RightButton, w.Point()); }},
    {"press", [](auto& screen, auto& name, Words& w) { PressCell(screen, name, w.Point()); }},
    {"release", [](auto& screen, auto& name, Words& w) { ReleaseCell(screen, name, w.Point()); }},
    {"move", [](auto& screen, auto& name, Words& w) { MoveOverCell(screen, name, w.Point()); }},
    {"type", [](auto& screen, auto& name, Words& w) { TypeInto(screen, name, w.Rest()); }},
    {"write", [](auto& screen, auto& name, Words& w) { Type(screen, name, w.Rest()); }},
    {"key", [](auto& screen, auto& name, Words& w) { PressKey(screen, name, KeyNamed(w.Next())); }},
    {"scroll", [](auto& screen, auto& name, Words& w) { ScrollTo(screen, name, w.Number()); }},
    {"wheel",
     [](auto& screen, auto& name, Words& w) {
         const QPoint angle = w.Point();
         Turn(screen, name, angle, w.Next() == "shift" ? Qt::ShiftModifier : Qt::NoModifier);
     }},
    {"tick",
     [](auto& screen, auto& name, Words&) {
         QMetaObject::invokeMethod(&ControlOf<QTimer>(screen, name), "timeout", Qt::DirectConnection);
     }},
    {"choose",  // a row of a list
     [](auto& screen, auto& name, Words& w) {
         auto& list = ControlOf<QListWidget>(screen, name);
         const auto found = list.findItems(QString::fromStdString(w.Rest()), Qt::MatchExactly);
         QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.at(0)).center());
     }},
    {"close", [](auto& screen, auto&, Words&) { CloseScreen(screen); }},
    {"enable", [](auto& screen, auto& name, Words&) { ControlOf<QWidget>(screen, name).setEnabled(true); }},
    {"carry", [](auto& screen, auto&, Words& w) { WindowOf(screen).move(w.Point()); }},
};

/// The map that a story means by its name.
TileMap& MapNamed(const std::string& name) {
    return name == "tiles"         ? WorldRecord.tiles
           : name == "background"  ? LevelRecord.background_tm
           : name == "interactive" ? LevelRecord.interactive_tm
                                   : LevelRecord.foreground_tm;
}

class StoriesTest : public ScreenTest, public testing::WithParamInterface<std::string> {
protected:
    /// Does the lines from `next_` on, up to one that says "done".
    void Tell() {
        while (next_ < lines_.size()) {
            const std::string line = lines_[next_++];
            if (line.starts_with("    ")) {
                continue;
            }
            told_ += line + "\n";
            if (line.empty() || line.starts_with('#')) {
                continue;
            }
            if (line == "later") {  // once the step under way waits for events
                QObject::connect(
                    QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, qApp,
                    [this] { TellNext(); }, Qt::SingleShotConnection);
                return;
            }
            if (line == "done") {
                return;
            }
            try {
                Do(Words(line));
            } catch (const std::exception& fault) {  // of the driver, or of what the story itself has called
                told_ += std::string("    cannot: ") + fault.what() + "\n";
            }
            DeliverEvents();
            TellChanges();
        }
    }

    /// Goes on when events are delivered next.
    void TellNext() {
        QTimer::singleShot(0, [this] {
            TellChanges();
            Tell();
        });
    }

    void Do(Words words) {
        const std::string verb = words.Next();
        if (const auto program = programVerbs_.find(verb); program != programVerbs_.end()) {
            program->second(words);
            return;
        }
        const std::string screen = words.Next();
        HandVerbs.at(verb)(screen, words.Next(), words);
    }

    void TellChanges() {
        const ProgramState now = CurrentState();
        std::vector<std::string> happened = Changes(before_, now);
        before_ = now;
        for (const Message& message : dialogs.messages) {
            happened.push_back("said: " + OnOneLine(message.title + ": " + message.text) + " [" +
                               std::to_string(static_cast<int>(message.buttons)) + " " +
                               std::to_string(static_cast<int>(message.icon)) + "]");
        }
        for (const std::string& question : dialogs.questions) {
            happened.push_back("asked: " + question);
        }
        for (const FileDialogSetup& dialog : dialogs.fileDialogs) {
            happened.push_back("asked for a file: " + dialog.filter + " in " + dialog.folder + ": " +
                               dialog.proposedName);
        }
        if (dialogs.fatalFault) {
            happened.push_back("ended with fault " + std::to_string(static_cast<int>(*dialogs.fatalFault)) + " " +
                               OnOneLine(dialogs.advice));
        }
        if (dialogs.ended) {
            happened.emplace_back("ended");
        }
        dialogs.messages.clear();
        dialogs.questions.clear();
        dialogs.fileDialogs.clear();
        dialogs.fatalFault.reset();
        dialogs.ended = false;
        const std::map<std::string, std::string> files = Files();
        for (const auto& [path, text] : files) {
            if (const auto known = files_.find(path); known == files_.end() || known->second != text) {
                // The preferences hold paths, and are told as a record.
                happened.push_back("wrote " + OnOneLine(path) +
                                   (path.ends_with("Preferences") ? "" : ": " + OnOneLine(text)));
            }
        }
        for (const auto& [path, text] : files_) {
            if (!files.contains(path)) {
                happened.push_back("removed " + path);
            }
        }
        files_ = files;
        for (std::string& line : happened) {
            for (std::size_t at = 0; (at = line.find(folder.string(), at)) != std::string::npos;) {
                line.replace(at, folder.string().size(), "~");
            }
            told_ += "    " + line + "\n";
        }
    }

    /// The texts of all files in the test's folder, "/" for folders.
    [[nodiscard]] std::map<std::string, std::string> Files() const {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const std::string path = std::filesystem::relative(entry.path(), folder).string();
            files[path] = entry.is_directory() ? "/" : FileText(entry.path());
        }
        return files;
    }

    /// "~/a.fbl" as a path in the test's folder.
    [[nodiscard]] std::string InFolder(const std::string& text) const {
        return text.starts_with('~') ? folder.string() + text.substr(1) : text;
    }

    /// What else can be done: to the program, to its records and files, and the answers to its next dialogs.
    const std::map<std::string, std::function<void(Words&)>> programVerbs_{
        {"fresh",
         [this](Words&) {
             Restart();
             before_ = CurrentState();
             files_.clear();
         }},
        {"start",
         [](Words& w) {
             if (w.Rest() != "as stored") {
                 SavePreferences();
             }
             StartProgram();
         }},
        {"open", [](Words& w) { OpenMain(0, w.Number()); }},
        {"level",
         [this](Words& w) {
             MakeLevel(w.Number());
             LevelPath = PathOf("level.fbl");
             UpdateDisplay();
         }},
        {"world",
         [](Words& w) {
             ResetWorld();
             WorldRecord.width = w.Number();
             WorldRecord.height = w.Number();
             BuildBlankWorld();
             if (!IsOpen(Editor)) {
                 OpenWorldFrm();
             }
             UpdateWorld();
         }},
        {"badguy",
         [](Words& w) {
             const int kind = w.Number();
             const std::string name(kind < BadGuyTypes ? Element(KeywordTable, kind) : "none");
             LevelRecord.BadGuyCount += 1;
             LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
             LevelRecord.objects[LevelRecord.BadGuyCount] = {kind, name, w.Number(), w.Number(), w.Number()};
             UpdateDisplay();
         }},
        {"resetpoint",
         [](Words& w) {
             LevelRecord.ResetPointCount += 1;
             LevelRecord.reset_points.Resize(LevelRecord.ResetPointCount);
             LevelRecord.reset_points[LevelRecord.ResetPointCount] = {w.Number(), w.Number()};
             UpdateDisplay();
         }},
        {"link",  // at x and y, of a type, so many
         [](Words& w) {
             const std::array<int, 3> numbers{w.Number(), w.Number(), w.Number()};
             for (int left = w.Number(1); left > 0; --left) {
                 AddInNewLink(numbers[0], numbers[1]);
                 WorldRecord.levels[WorldRecord.LinkCount].type = numbers[2];
                 CurrentLink = -1;
             }
         }},
        {"tile",
         [](Words& w) {
             TileMap& map = MapNamed(w.Next());
             const std::array<int, 2> place{w.Number(), w.Number()};
             map(place[0], place[1]) = w.Number();
         }},
        {"set",
         [this](Words& w) {
             const std::array<std::string, 2> names{w.Next(), w.Next()};
             SetState(names[0], names[1], InFolder(Unescaped(w.Rest())));
         }},
        {"redraw",
         [](Words&) {
             UpdateDisplay();
             UpdateWorld();
         }},
        {"answer", [](Words& w) { dialogs.answers.push_back(w.Number()); }},
        {"input", [](Words& w) { dialogs.inputs.push_back(w.Rest()); }},
        {"file", [this](Words& w) { dialogs.files.push_back(InFolder(w.Rest())); }},
        {"folder", [this](Words& w) { std::filesystem::create_directory(folder / w.Rest()); }},
        {"store",
         [this](Words& w) {
             const std::string name = Unescaped(w.Next());
             Store(name, Unescaped(w.Rest()));
         }},
        {"levels",  // the first so many level names of a folder, taken
         [this](Words& w) {
             const std::string path = w.Next() + "level";
             for (int left = w.Number(); left > 0; --left) {
                 Store(path + std::to_string(left) + ".fbl", "x");
             }
         }},
        {"alias",  // another name for the same file
         [this](Words& w) {
             const std::filesystem::path file = folder / w.Next();
             std::filesystem::create_hard_link(file, folder / w.Next());
         }},
        {"remove", [this](Words& w) { std::filesystem::remove(folder / w.Rest()); }},
        {"bytes",
         [this](Words& w) {
             const std::string bytes = FileText(folder / w.Next());
             told_ += "    " + QByteArray::fromStdString(bytes).toHex().toStdString() + "\n";
         }},
        {"show",  // a text, line by line
         [this](Words& w) {
             std::istringstream lines(FileText(folder / w.Rest()));
             for (std::string line; std::getline(lines, line);) {
                 told_ += "    " + OnOneLine(line) + "\n";
             }
         }},
        {"during",  // a step that yields, or waits: what follows, up to "done", is done meanwhile
         [this](Words& w) {
             // The queue is looked at once in some milliseconds.
             for (QDeadlineTimer pause(10); !pause.hasExpired();) {
             }
             TellNext();
             Do(Words(w.Rest()));
         }},
        {"look",  // what is seen at a point of a cell, or in its corner
         [this](Words& w) {
             const std::string screen = w.Next();
             Surface& window = WindowOf(screen);
             const QImage shown = window.grab(window.AreaOf(CellOf(screen, w.Next()))).toImage();
             const QPoint at{w.Number(), w.Number()};
             told_ += "    seen " + shown.pixelColor(at).name().toStdString() + "\n";
         }},
    };
    std::vector<std::string> lines_;
    std::size_t next_ = 0;
    std::string told_;
    ProgramState before_;
    std::map<std::string, std::string> files_;
};

TEST_P(StoriesTest, GoesAsItIsTold) {
    const std::filesystem::path path = std::filesystem::path(GOLDEN_FOLDER) / "stories" / (GetParam() + ".txt");
    const std::string golden = FileText(path);
    std::istringstream text(golden);
    for (std::string line; std::getline(text, line);) {
        lines_.push_back(line);
    }
    before_ = CurrentState();
    Tell();
    if (std::getenv("FB_RECORD_STORIES") != nullptr) {
        WriteFile(path, told_);
        return;
    }
    std::istringstream told(told_);
    std::string step;
    for (std::size_t n = 0; n < lines_.size(); ++n) {
        std::string line;
        std::getline(told, line);
        ASSERT_EQ(line, lines_[n]) << path << ":" << n + 1 << ", after: " << step;
        step = line.starts_with("    ") ? step : line;
    }
    EXPECT_EQ(told_, golden);
}

Texts Stories() {
    Texts names;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(GOLDEN_FOLDER) / "stories")) {
        names.push_back(entry.path().stem().string());
    }
    std::ranges::sort(names);
    return names;
}

INSTANTIATE_TEST_SUITE_P(Screens, StoriesTest, testing::ValuesIn(Stories()),
                         [](const auto& story) { return story.param; });

}  // namespace
