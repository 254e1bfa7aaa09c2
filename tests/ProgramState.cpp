#include "tests/ProgramState.h"

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <cstdlib>
#include <span>
#include <sstream>
#include <variant>

#include "core/SharedState.h"
#include "platform/Controls.h"
#include "platform/Files.h"
#include "platform/ImageCell.h"
#include "platform/Surface.h"
#include "tests/ScreenDriver.h"

namespace {

/// Owner of what is another text on each machine: can be set, but is not told.
constexpr const char* Unseen = "machine";

using Value = std::variant<Int16*, double*, std::string*>;

/// A number or text of a record, or a part of an entry of a list.
struct Field {
    std::string owner;
    std::string name;  ///< of the list, if it is in one
    int index;         ///< -1 outside of lists
    std::string part;  ///< empty where the entry is one value
    Value value;

    [[nodiscard]] std::string Name() const {
        const std::string whole = index < 0 ? name : MemberName(name, index);
        return whole + (part.empty() ? "" : ".") + part;
    }

    [[nodiscard]] std::string Text() const {
        std::ostringstream text;
        std::visit([&](const auto* v) { text << *v; }, value);
        return text.str() == "0" ? "" : text.str();
    }
};

/// Takes names and pointers to the values in turns.
template <typename V, typename... More>
void AddEntry(std::vector<Field>& fields, const char* owner, const char* list, int index, const char* part, V* value,
              More... more) {
    fields.push_back({owner, list, index, part, value});
    if constexpr (sizeof...(more) > 0) {
        AddEntry(fields, owner, list, index, more...);
    }
}

template <typename V, typename... More>
void Add(std::vector<Field>& fields, const char* owner, const char* name, V* value, More... more) {
    AddEntry(fields, owner, name, -1, "", value);
    if constexpr (sizeof...(more) > 0) {
        Add(fields, owner, more...);
    }
}

void AddLevel(std::vector<Field>& fields) {
    Level& l = LevelRecord;
    Add(fields, "level", "LevelComment", &l.LevelComment, "version", &l.version, "author", &l.author, "name", &l.name,
        "width", &l.width, "height", &l.height, "start_pos_x", &l.start_pos_x, "start_pos_y", &l.start_pos_y,
        "background", &l.background, "music", &l.music, "bkgd_red_top", &l.bkgd_red_top, "bkgd_green_top",
        &l.bkgd_green_top, "bkgd_blue_top", &l.bkgd_blue_top, "bkgd_red_bottom", &l.bkgd_red_bottom,
        "bkgd_green_bottom", &l.bkgd_green_bottom, "bkgd_blue_bottom", &l.bkgd_blue_bottom, "bkgd_speed", &l.bkgd_speed,
        "hor_autoscroll_speed", &l.hor_autoscroll_speed, "time", &l.time, "gravity", &l.gravity, "particle_system",
        &l.particle_system, "theme", &l.theme, "back_scrolling", &l.back_scrolling, "EndComment", &l.EndComment,
        "ResetPointCount", &l.ResetPointCount, "BadGuyCount", &l.BadGuyCount);
    for (int i = 0; i < BadGuyTypes; ++i) {
        AddEntry(fields, "level", "CountInUse", i, "", &Element(BadGuyTypeTable, i).CountInUse);
    }
    for (int i = 1; i <= l.reset_points.Last(); ++i) {
        AddEntry(fields, "level", "reset_points", i, "x", &l.reset_points[i].x, "y", &l.reset_points[i].y);
    }
    for (int i = 1; i <= l.objects.Last(); ++i) {
        BadGuy& b = l.objects[i];
        AddEntry(fields, "level", "objects", i, "kind", &b.kind, "name", &b.name, "x", &b.x, "y", &b.y, "stay",
                 &b.stay_on_platform);
    }
}

void AddPreferences(std::vector<Field>& fields) {
    Preferences& p = PrefsRecord;
    Add(fields, "prefs", "LevelPath", &p.LevelPath, "SavedTile", &p.SavedTile, "SavedLayer", &p.SavedLayer, "SavedMode",
        &p.SavedMode, "SavedObject", &p.SavedObject, "WorldPath", &p.WorldPath, "SavedWorldMode", &p.SavedWorldMode,
        "SavedWorldX", &p.SavedWorldX, "SavedWorldY", &p.SavedWorldY, "SavedScroll", &p.SavedScroll, "GridState",
        &p.GridState, "InfoPath", &p.InfoPath, "AutoState", &p.AutoState, "SavedTileSet", &p.SavedTileSet,
        "DefaultAuthor", &p.DefaultAuthor, "AddEndState", &p.AddEndState, "ResetState", &p.ResetState, "IglooState",
        &p.IglooState, "FloorTile", &p.FloorTile, "WorldAutoComplete", &p.WorldAutoComplete);
    const std::pair<const char*, std::span<Int16>> arrays[] = {{"ScreenLeft", p.ScreenLeft},
                                                               {"ScreenTop", p.ScreenTop},
                                                               {"FavoritesA", p.FavoritesA},
                                                               {"FavoritesB", p.FavoritesB},
                                                               {"WorldFavorites", p.WorldFavorites}};
    for (const auto& [name, numbers] : arrays) {
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            AddEntry(fields, "prefs", name, static_cast<int>(i), "", &numbers[i]);
        }
    }
}

void AddWorld(std::vector<Field>& fields) {
    World& w = WorldRecord;
    Add(fields, "world", "name", &w.name, "music", &w.music, "start_pos_x", &w.start_pos_x, "start_pos_y",
        &w.start_pos_y, "width", &w.width, "height", &w.height, "LinkCount", &w.LinkCount, "CommentCount",
        &w.CommentCount);
    for (int i = 0; i <= w.comments.Last(); ++i) {
        AddEntry(fields, "world", "comments", i, "", &w.comments[i]);
    }
    for (int i = 0; i <= w.levels.Last(); ++i) {
        WorldLink& k = w.levels[i];
        AddEntry(fields, "world", "levels", i, "type", &k.type, "comment", &k.comment, "name", &k.name, "message",
                 &k.message, "extro", &k.extro_filename, "invisible", &k.invisible_teleporter, "up", &k.apply_action_up,
                 "down", &k.apply_action_down, "left", &k.apply_action_left, "right", &k.apply_action_right, "x", &k.x,
                 "y", &k.y, "dest_x", &k.dest_x, "dest_y", &k.dest_y);
    }
}

std::vector<Field> Fields() {
    std::vector<Field> fields;
    AddLevel(fields);
    AddPreferences(fields);
    AddWorld(fields);
    Add(fields, "selections", "CurrentInfo.comment", &CurrentInfo.comment, "CurrentInfo.title", &CurrentInfo.title,
        "CurrentInfo.description", &CurrentInfo.description, "NewInfo.title", &NewInfo.title, "NewInfo.description",
        &NewInfo.description, "LevelLoaded", &LevelLoaded, "InfoCreated", &InfoCreated, "WorldLoaded", &WorldLoaded,
        "NewWorldPending", &NewWorldPending, "WorldChanged", &WorldChanged, "LastMsgResult", &LastMsgResult,
        "CurrentTile", &CurrentTile, "CurrentLayer", &CurrentLayer, "CurrentMode", &CurrentMode, "CurrentTileSet",
        &CurrentTileSet, "CurrentObject", &CurrentObject, "SelectedBadGuy", &SelectedBadGuy, "WorldReadError",
        &WorldReadError, "WorldCurrentTile", &WorldCurrentTile, "CurrentLink", &CurrentLink, "LinkTypeChoice",
        &LinkTypeChoice);
    Add(fields, "folders", "LevelsFolder", &LevelsFolder, "UserLevelsFolder", &UserLevelsFolder, "BackgroundFolder",
        &BackgroundFolder, "MusicFolder", &MusicFolder, "WorldMapsFolder", &WorldMapsFolder);
    Add(fields, Unseen, "LogonName", &LogonName);
    return fields;
}

/// The size, what most cells hold, and the other cells.
void AddMap(StateOfOne& state, const std::string& name, const TileMap& map) {
    std::map<int, int> counts;
    const int cells = map.Columns() * map.Rows();
    for (int i = 0; i < cells; ++i) {
        ++counts[map(i % map.Columns(), i / map.Columns())];
    }
    const auto most = std::ranges::max_element(counts, {}, [](const auto& entry) { return entry.second; });
    if (most == counts.end()) {
        return;
    }
    state[{name, -1}] =
        std::to_string(map.Columns()) + "x" + std::to_string(map.Rows()) + " of " + std::to_string(most->first);
    for (int i = 0; i < cells; ++i) {
        const std::div_t place = std::div(i, map.Columns());
        if (const int tile = map(place.rem, place.quot); tile != most->first) {
            state[{name + " row " + std::to_string(place.quot), place.rem}] = std::to_string(tile);
        }
    }
}

/// "Img(48)" as "Img" and 48.
std::pair<std::string, int> Split(const std::string& name, const std::string& suffix = "") {
    const std::size_t bracket = name.find('(');
    return bracket == std::string::npos
               ? std::pair(name + suffix, -1)
               : std::pair(name.substr(0, bracket) + suffix, std::stoi(name.substr(bracket + 1)));
}

std::string TextOf(QSize size) { return std::to_string(size.width()) + "x" + std::to_string(size.height()); }

void AddIfAny(StateOfOne& state, const std::pair<std::string, int>& name, const std::string& value) {
    if (!value.empty()) {
        state[name] = value;
    }
}

/// "sunken", " centred", or nothing.
std::string LookOf(const QLabel& label) {
    return std::string(label.frameStyle() != 0 ? "sunken" : "") +
           (label.alignment() == Qt::AlignCenter ? " centred" : "");
}

void AddControl(StateOfOne& state, const QWidget& widget) {
    const std::string name = widget.objectName().toStdString();
    const std::string shown = ShownBy(widget);
    const std::string forTools = widget.accessibleName().toStdString();
    AddIfAny(state, Split(name), shown);
    AddIfAny(state, Split(name, " tip"), widget.toolTip().toStdString());
    AddIfAny(state, Split(name, " name"), shown.starts_with(forTools) ? "" : forTools);
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        AddIfAny(state, Split(name, " look"), LookOf(*label));
    }
}

std::string TextOf(const Picture& picture) {
    if (picture == Picture()) {
        return "";
    }
    return picture.Number() > 0 ? std::to_string(picture.Number()) : "picture " + TextOf(picture.Pixmap()->size());
}

StateOfOne StateOfScreen(const Surface& screen) {
    StateOfOne state;
    const Qt::CursorShape pointer = screen.cursor().shape();
    AddIfAny(state, {"title", -1}, screen.windowTitle().toStdString());
    state[{"place", -1}] = std::to_string(screen.x()) + "," + std::to_string(screen.y()) + " " + TextOf(screen.size());
    AddIfAny(state, {"busy", -1}, screen.takesInput ? "" : "yes");
    AddIfAny(state, {"pointer", -1}, pointer == Qt::ArrowCursor ? "" : std::to_string(pointer));
    AddIfAny(state, {"focus", -1},
             screen.focusWidget() == nullptr ? "" : screen.focusWidget()->objectName().toStdString());
    for (const QWidget* widget : screen.findChildren<const QWidget*>()) {
        const QString name = widget->objectName();
        if (!name.isEmpty() && !name.startsWith("qt_") && widget->isVisibleTo(&screen)) {
            AddControl(state, *widget);
        }
    }
    for (const ImageCell* cell : screen.Cells()) {
        if (!screen.IsShown(*cell)) {
            continue;
        }
        AddIfAny(state, Split(cell->Name()), TextOf(cell->Shown()));
        AddIfAny(state, Split(cell->Name(), " tip"), cell->ToolTip());
        std::ostringstream place;
        place << cell->Left() << "," << cell->Top();
        state[Split(cell->Name(), " at")] = place.str();
    }
    return state;
}

/// A whole number and `add`; other texts only as they are.
std::string Plus(const std::string& value, int add) {
    if (add == 0) {
        return value;
    }
    const bool number = !value.empty() && value.find_first_not_of("0123456789") == std::string::npos;
    return number ? std::to_string(std::stoi(value) + add) : "no number";
}

std::string ChangesOfOne(const StateOfOne& before, const StateOfOne& after) {
    StateOfOne changes;
    for (const auto& [name, value] : before) {
        if (!after.contains(name) && !name.first.ends_with(" at")) {
            changes[name];
        }
    }
    for (const auto& [name, value] : after) {
        const auto former = before.find(name);
        // A place is told when it is another one: where controls stand at first is judged by the eye.
        if (former == before.end() ? !name.first.ends_with(" at") : former->second != value) {
            changes[name] = value;
        }
    }
    std::string line;
    for (auto change = changes.begin(); change != changes.end();) {
        const std::string& name = change->first.first;
        const int first = change->first.second;
        const std::string& value = change->second;
        int last = first;
        auto next = std::next(change);
        const auto goesOn = [&](int step) {
            return first >= 0 && next != changes.end() && next->first == std::pair(name, last + 1) &&
                   next->second == Plus(value, step * (last + 1 - first));
        };
        const int step = goesOn(0) ? 0 : 1;
        while (goesOn(step)) {
            ++last;
            ++next;
        }
        line += line.empty() ? "" : " | ";
        line += name;
        line += first < 0 ? "" : "(" + std::to_string(first) + (last > first ? "-" + std::to_string(last) : "") + ")";
        line += "=" + OnOneLine(value);
        line += last > first && step == 1 ? "-" + Plus(value, last - first) : "";
        change = next;
    }
    return line;
}

}  // namespace

std::string OnOneLine(const std::string& text) {
    if (text.starts_with(' ') || text.ends_with(' ')) {  // or nobody would see the blank
        return "\"" + text + "\"";
    }
    const bool utf8 = QString::fromStdString(text).toStdString() == text;
    std::string line;
    for (const char c : text) {
        if (c == '\n' || c == '\r') {
            line += c == '\n' ? "\\n" : "\\r";
        } else if (static_cast<unsigned char>(c) < ' ' || (c < 0 && !utf8)) {
            line += "\\x" + QByteArray(1, c).toHex().toUpper().toStdString();
        } else {
            line += c;
        }
    }
    return line.size() <= 300
               ? line
               : line.substr(0, 150) + "[...]" + line.substr(line.size() - 100) + " (" + std::to_string(line.size()) +
                     " characters, sum " + std::to_string(qChecksum(QByteArrayView(line))) + ")";
}

std::string ShownBy(const QWidget& control) {
    QString text;
    if (const auto* bar = qobject_cast<const QScrollBar*>(&control)) {
        text = QString("%1 of %2-%3").arg(bar->value()).arg(bar->minimum()).arg(bar->maximum());
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
        text = button->text() + (!button->isCheckable() ? "" : button->isChecked() ? " [x]" : " [ ]");
    } else if (const auto* box = qobject_cast<const QLineEdit*>(&control)) {
        text = "\"" + box->text() + "\"";
    } else if (const auto* area = qobject_cast<const QPlainTextEdit*>(&control)) {
        text = area->toPlainText();
    } else if (const auto* list = qobject_cast<const QListWidget*>(&control)) {
        for (int row = 0; row < list->count(); ++row) {
            text += (row == list->currentRow() ? ">" : "") + list->item(row)->text() + " ";
        }
    } else if (const auto* group = qobject_cast<const QGroupBox*>(&control)) {
        text = group->title();
    } else {
        text = control.accessibleName();
    }
    return (text + (control.isEnabled() ? "" : " (disabled)")).toStdString();
}

ProgramState CurrentState() {
    ProgramState state;
    for (const Field& field : Fields()) {
        if (const std::string text = field.Text(); !text.empty() && field.owner != Unseen) {
            std::string& value = state[field.owner][{field.name, field.index}];
            value += field.part.empty() ? text : (value.empty() ? "" : " ") + field.part + " " + text;
        }
    }
    for (const char* record : {"prefs", "selections"}) {
        state[record];  // also when all of it is empty
    }
    state["selections"][{"NextFileNumber", -1}] = std::to_string(FreeFileNumber());
    AddMap(state["level"], "background_tm", LevelRecord.background_tm);
    AddMap(state["level"], "interactive_tm", LevelRecord.interactive_tm);
    AddMap(state["level"], "foreground_tm", LevelRecord.foreground_tm);
    AddMap(state["world"], "tiles", WorldRecord.tiles);
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const auto* screen = dynamic_cast<const Surface*>(widget);
        if (screen != nullptr && screen->isVisible()) {
            state[screen->objectName().toStdString()] = StateOfScreen(*screen);
        }
    }
    return state;
}

std::vector<std::string> Changes(const ProgramState& before, const ProgramState& after) {
    std::vector<std::string> lines;
    for (const auto& [owner, state] : before) {
        if (!after.contains(owner)) {
            lines.push_back(owner + " is gone");
        }
    }
    for (const auto& [owner, state] : after) {
        const auto former = before.find(owner);
        const std::string line = ChangesOfOne(former == before.end() ? StateOfOne() : former->second, state);
        if (!line.empty()) {
            lines.push_back(owner);
            lines.back().append(": ").append(line);
        }
    }
    return lines;
}

void SetState(const std::string& owner, const std::string& name, const std::string& value) {
    for (const Field& field : Fields()) {
        if (field.owner == owner && field.Name() == name) {
            if (auto* const* text = std::get_if<std::string*>(&field.value)) {
                **text = value;
            } else if (auto* const* number = std::get_if<double*>(&field.value)) {
                **number = std::stod(value);
            } else {
                **std::get_if<Int16*>(&field.value) = std::stoi(value);
            }
            return;
        }
    }
    throw std::runtime_error(owner + " has no " + name);
}
