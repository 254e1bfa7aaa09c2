#include <QCoreApplication>
#include <QMetaEnum>
#include <QTimer>
#include <QWheelEvent>
#include <cstdlib>
#include <fstream>
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
    std::string Rest() {
        std::string text;
        std::getline(rest_ >> std::ws, text);
        return text;
    }

private:
    std::istringstream rest_;
};

Qt::Key KeyNamed(const std::string& name) {
    return static_cast<Qt::Key>(QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).c_str()));
}

void Turn(const std::string& screen, const std::string& cell, QPoint angle, Qt::KeyboardModifiers modifiers) {
    Surface& window = WindowOf(screen);
    const QPoint at = window.AreaOf(CellOf(screen, cell)).center();
    QWheelEvent event(at, window.mapToGlobal(at), {}, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&window, &event);
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

    void Do(Words words) {
        const std::string verb = words.Next();
        if (DoToProgram(verb, words)) {
            return;
        }
        const std::string screen = words.Next();
        const std::string name = words.Next();
        if (verb == "click" || verb == "right") {
            const int x = words.Number(16);
            ClickOn(screen, name, verb == "right" ? Qt::RightButton : Qt::LeftButton, {x, words.Number(16)});
        } else if (verb == "press") {
            PressCell(screen, name);
        } else if (verb == "release") {
            ReleaseCell(screen, name);
        } else if (verb == "move") {
            const int x = words.Number(16);
            MoveOverCell(screen, name, {x, words.Number(16)});
        } else if (verb == "ask") {  // a click that waits for another screen: what follows is done meanwhile
            QTimer::singleShot(0, [this] {
                TellChanges();
                Tell();
            });
            ClickOn(screen, name);
        } else if (verb == "type") {
            TypeInto(screen, name, words.Rest());
        } else if (verb == "write") {
            Type(screen, name, words.Rest());
        } else if (verb == "paste") {
            PasteInto(screen, name, words.Rest());
        } else if (verb == "key") {
            PressKey(screen, name, KeyNamed(words.Next()));
        } else if (verb == "scroll") {
            ScrollTo(screen, name, words.Number());
        } else if (verb == "wheel") {
            const int x = words.Number();
            const int y = words.Number();
            Turn(screen, name, {x, y}, words.Next() == "shift" ? Qt::ShiftModifier : Qt::NoModifier);
        } else if (verb == "tick") {
            QMetaObject::invokeMethod(WindowOf(screen).findChild<QTimer*>(QString::fromStdString(name)), "timeout",
                                      Qt::DirectConnection);
        } else if (verb == "look") {  // what a cell's frame looks like, before its picture
            Surface& window = WindowOf(screen);
            const QColor corner = window.grab(window.AreaOf(CellOf(screen, name))).toImage().pixelColor(0, 0);
            told_ += "    corner " + corner.name().toStdString() + "\n";
        } else if (verb == "close") {
            CloseScreen(screen);
        } else {
            FAIL() << "no such verb: " << verb;
        }
    }

    /// What is no act of the user on a screen. False if it is one.
    bool DoToProgram(const std::string& verb, Words& words) {
        if (verb == "fresh") {
            Restart();
            before_ = CurrentState();
        } else if (verb == "start") {
            SavePreferences();
            StartProgram();
        } else if (verb == "open") {
            OpenMain(0, words.Number());
        } else if (verb == "level") {
            MakeLevel(words.Number());
            LevelPath = PathOf("level.fbl");
            UpdateDisplay();
        } else if (verb == "world") {
            const int width = words.Number();
            OpenWorld(width, words.Number());
            UpdateWorld();
        } else if (verb == "badguy") {
            const int kind = words.Number();
            const int x = words.Number();
            const int y = words.Number();
            AddBadGuy(
                {kind, std::string(kind < BadGuyTypes ? Element(KeywordTable, kind) : "none"), x, y, words.Number()});
            UpdateDisplay();
        } else if (verb == "resetpoint") {
            const int x = words.Number();
            LevelRecord.ResetPointCount += 1;
            LevelRecord.reset_points.Resize(LevelRecord.ResetPointCount);
            LevelRecord.reset_points[LevelRecord.ResetPointCount] = {x, words.Number()};
            UpdateDisplay();
        } else if (verb == "link") {
            const int x = words.Number();
            const int y = words.Number();
            AddLink(x, y, words.Number());
        } else if (verb == "links") {
            for (int left = words.Number(); left > 0; --left) {
                AddLink(30, 20, LevelLink);
            }
        } else if (verb == "tile") {
            const std::string layer = words.Next();
            TileMap& map = layer == "tiles"         ? WorldRecord.tiles
                           : layer == "background"  ? LevelRecord.background_tm
                           : layer == "interactive" ? LevelRecord.interactive_tm
                                                    : LevelRecord.foreground_tm;
            const int x = words.Number();
            const int y = words.Number();
            map(x, y) = words.Number();
        } else if (verb == "set") {
            const std::string owner = words.Next();
            const std::string name = words.Next();
            SetState(owner, name, InFolder(words.Rest()));
        } else if (verb == "redraw") {
            UpdateDisplay();
            UpdateWorld();
        } else if (verb == "answer") {
            dialogs.answers.push_back(words.Number());
        } else if (verb == "input") {
            dialogs.inputs.push_back(words.Rest());
        } else if (verb == "file") {
            dialogs.files.push_back(InFolder(words.Rest()));
        } else if (verb == "store") {
            const std::string name = words.Next();
            std::string text = words.Rest();
            for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos;) {
                text.replace(at, 2, "\n");
            }
            Store(name, text);
        } else if (verb == "folder") {
            std::filesystem::create_directory(folder / words.Rest());
        } else {
            return false;
        }
        return true;
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
        for (const FileDialogSetup& dialog : dialogs.fileDialogs) {
            happened.push_back("asked for a file: " + dialog.filter + " in " + dialog.folder + ": " +
                               dialog.proposedName);
        }
        if (dialogs.fatalFault) {
            happened.push_back("ended with fault " + std::to_string(static_cast<int>(*dialogs.fatalFault)));
        }
        dialogs.messages.clear();
        dialogs.fileDialogs.clear();
        dialogs.fatalFault.reset();
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const std::string path = std::filesystem::relative(entry.path(), folder).string();
            const std::string text = entry.is_directory() ? "/" : FileText(entry.path());
            if (auto& known = files_[path]; known != text) {
                known = text;
                // The preferences hold paths, and are told as a record.
                happened.push_back("wrote " + path + (path.ends_with("Preferences") ? "" : ": " + OnOneLine(text)));
            }
        }
        for (std::string& line : happened) {
            for (std::size_t at = 0; (at = line.find(folder.string(), at)) != std::string::npos;) {
                line.replace(at, folder.string().size(), "~");
            }
            told_ += "    " + line + "\n";
        }
    }

    /// "~/a.fbl" as a path in the test's folder.
    [[nodiscard]] std::string InFolder(const std::string& text) const {
        return text.starts_with('~') ? folder.string() + text.substr(1) : text;
    }

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
