#include "level/LevelReader.h"

#include <variant>

#include "core/MapGrid.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "level/LineReader.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Texts.h"

namespace {

/// A first line that is longer holds the whole file: this one has LF line ends.
constexpr std::size_t LongestDosFirstLine = 256;

/// Narrower levels cannot be played, and a file that names such a width leaves the maps alone.
constexpr int NarrowestLevel = 21;

/// What a routine for a keyword tells the loop over the body's lines.
enum class Body { GoesOn, Ends };

void TrimCurrentLine(LineReader& in) { in.CurrentLine = std::string(Trim(in.CurrentLine)); }

/// The next tile number, wherever the lines break; 0 once the layer's ")" is reached, which stays the next
/// character. Never returns when the file ends before either.
Int16 ReadNextTile(LineReader& in) {
    for (bool wholeLineRead = false;;) {
        YieldInRead();
        const int first = CharAt(in.CurrentLine, in.TilePos);
        if (first == ')') {
            return 0;
        }
        ++in.TilePos;
        if (in.TilePos > in.CurrentLine.size()) {
            // The line is used up. A single digit at its very end is a number all the same.
            if (wholeLineRead && !IsDigit(first)) {
                RestIfTextIsUsedUp(in);
            }
            wholeLineRead = true;
            ReadNextLine(in);
            in.TilePos = 1;
            if (IsDigit(first)) {
                return first - '0';
            }
            continue;
        }
        if (!IsDigit(first)) {
            continue;
        }
        Int16 value = first - '0';
        for (;;) {
            YieldInRead();
            const int next = CharAt(in.CurrentLine, in.TilePos);
            ++in.TilePos;
            if (!IsDigit(next)) {
                return value;
            }
            value = AppendDigit(value, next);
        }
    }
}

void ReadTileLayer(LineReader& in, TileMap& layer) {
    const int columns = LevelRecord.width;
    for (int row = 0; row < LevelRows; ++row) {
        YieldInRead();
        for (int column = 0; column < columns; ++column) {
            layer(column, row) = ReadNextTile(in);
        }
    }
}

/// Fills `point` from a line such as "(point (x 12) (y 34))". What the line does not give stays.
void ReadResetPoint(std::string_view line, ResetPoint& point) {
    std::size_t p = 6;
    do {
        ++p;
    } while (CharAt(line, p) == ' ');
    if (CharAt(line, p) != '(' || CharAt(line, p + 1) != 'x') {
        return;
    }
    p += 2;
    Int16 x;
    for (; IsDigit(CharAt(line, p)) || CharAt(line, p) == ' '; ++p) {
        x = CharAt(line, p) == ' ' ? x : AppendDigit(x, CharAt(line, p));
    }
    point.x = x;
    ++p;  // behind the character that ended the number; the one there is not looked at
    do {
        ++p;
    } while (CharAt(line, p) == ' ' || CharAt(line, p) == '(');
    if (CharAt(line, p) != 'y') {
        return;
    }
    Int16 y;
    for (p += 2; IsDigit(CharAt(line, p)); ++p) {
        y = AppendDigit(y, CharAt(line, p));
    }
    point.y = y;
}

/// Walks a line character by character. The last character of a line is never used: reaching it ends the
/// walk, and with it the reading of the entry.
class LineWalk {
public:
    LineWalk(std::string_view line, std::size_t start) : line_(line), position_(start) {}

    /// Takes the next character into `character`; false, with it not to be used, at the end of the line.
    bool Take(int& character) {
        character = CharAt(line_, position_);
        ++position_;
        return position_ <= line_.size();
    }

    bool SkipPast(int wanted) {
        int character = Beyond;
        while (Take(character)) {
            if (character == wanted) {
                return true;
            }
        }
        return false;
    }

    /// The number up to ")", behind one skipped character. All that is no digit counts as the digit 0.
    bool TakeNumber(Int16& number) {
        int character = Beyond;
        if (!Take(character)) {
            return false;
        }
        Int16 value;
        while (Take(character)) {
            if (character == ')') {
                number = value;
                return true;
            }
            value = AppendDigit(value, IsDigit(character) ? character : '0');
        }
        return false;
    }

private:
    std::string_view line_;
    std::size_t position_;
};

/// Fills `badGuy` from a line such as "(snowball (x 320) (y 128) (stay-on-platform #f))", as far as it goes.
void ReadBadGuy(std::string_view line, BadGuy& badGuy) {
    LineWalk walk(line, 2);
    std::string keyword;
    int character = Beyond;
    for (;;) {
        if (!walk.Take(character)) {
            return;
        }
        if (character == ' ') {
            break;
        }
        keyword += static_cast<char>(character);
    }
    badGuy.name = keyword;
    if (const Int16 row = FindBadGuyType(keyword); row >= 0) {
        badGuy.kind = row;
    }
    if (walk.SkipPast('x') && walk.TakeNumber(badGuy.x) && walk.SkipPast('y') && walk.TakeNumber(badGuy.y) &&
        walk.SkipPast('#') && walk.Take(character)) {
        badGuy.stay_on_platform = character == 'F' || character == 'f' ? 0 : 1;
    }
}

Body ReadVersion(LineReader& in, std::size_t from) {
    LevelRecord.version = std::to_string(ParseIntValue(in.CurrentLine, from));
    return Body::GoesOn;
}

Body ReadWidth(LineReader& in, std::size_t from) {
    LevelRecord.width = ParseIntValue(in.CurrentLine, from);
    if (LevelRecord.width >= NarrowestLevel) {
        for (TileMap* layer : {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
            *layer = TileMap(LevelRecord.width, LevelRows);
        }
        SetMapXScrollMax(LevelRecord.width - ViewColumns);
    }
    return Body::GoesOn;
}

Body ReadBackScrolling(LineReader& in, std::size_t from) {
    LevelRecord.back_scrolling = in.CurrentLine.substr(from, 1);
    return Body::GoesOn;
}

Body ReadResetPoints(LineReader& in, std::size_t) {
    for (;;) {
        ReadNextLine(in);
        TrimCurrentLine(in);
        if (in.LinePos < 0) {
            return Body::Ends;
        }
        if (!in.CurrentLine.starts_with("(point")) {
            return Body::GoesOn;
        }
        LevelRecord.ResetPointCount += 1;
        LevelRecord.reset_points.Resize(LevelRecord.ResetPointCount);
        ResetPoint& point = LevelRecord.reset_points[LevelRecord.ResetPointCount];
        point = {};
        ReadResetPoint(in.CurrentLine, point);
    }
}

Body ReadObjects(LineReader& in, std::size_t) {
    for (;;) {
        ReadNextLine(in);
        TrimCurrentLine(in);
        if (in.LinePos < 0) {
            return Body::Ends;
        }
        if (in.CurrentLine.starts_with(")")) {
            return Body::GoesOn;
        }
        LevelRecord.BadGuyCount += 1;
        LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
        BadGuy& badGuy = LevelRecord.objects[LevelRecord.BadGuyCount];
        badGuy = {};
        ReadBadGuy(in.CurrentLine, badGuy);
    }
}

Body SkipLine(LineReader&, std::size_t) { return Body::GoesOn; }

/// A keyword of the level body. A line belongs to the first row whose prefix it starts with; its value is scanned from
/// position `from`, the prefix's last character.
struct KeywordRow {
    using Routine = Body (*)(LineReader& in, std::size_t from);

    std::string_view prefix;
    std::variant<Int16 Level::*, double Level::*, std::string Level::*, TileMap Level::*, Routine> target;
};

// The blank behind "(background" keeps it apart from "(background-tm".
const KeywordRow KeywordRows[] = {
    {"(version", &ReadVersion},
    {"(author", &Level::author},
    {"(name", &Level::name},
    {"(width", &ReadWidth},
    {"(height", &Level::height},
    {"(start_pos_x", &Level::start_pos_x},
    {"(start_pos_y", &Level::start_pos_y},
    {"(background ", &Level::background},
    {"(music", &Level::music},
    {"(bkgd_red_top", &Level::bkgd_red_top},
    {"(bkgd_green_top", &Level::bkgd_green_top},
    {"(bkgd_blue_top", &Level::bkgd_blue_top},
    {"(bkgd_red_bottom", &Level::bkgd_red_bottom},
    {"(bkgd_green_bottom", &Level::bkgd_green_bottom},
    {"(bkgd_blue_bottom", &Level::bkgd_blue_bottom},
    {"(time", &Level::time},
    {"(gravity", &Level::gravity},
    {"(particle_system", &Level::particle_system},
    {"(theme", &Level::theme},
    {"(bkgd_speed", &Level::bkgd_speed},
    {"(back_scrolling #", &ReadBackScrolling},
    {"(hor_autoscroll_speed", &Level::hor_autoscroll_speed},
    {"(background-tm", &Level::background_tm},
    {"(interactive-tm", &Level::interactive_tm},
    {"(foreground-tm", &Level::foreground_tm},
    {"(reset-points", &ReadResetPoints},
    {"(objects", &ReadObjects},
    {")", &SkipLine},
};

/// Stores the value of the line under its keyword. One overload for each kind of field.
struct StoreValue {
    LineReader& in;
    std::size_t from;

    Body operator()(Int16 Level::*field) const {
        LevelRecord.*field = ParseIntValue(in.CurrentLine, from);
        return Body::GoesOn;
    }
    Body operator()(double Level::*field) const {
        LevelRecord.*field = ParseFloatValue(in.CurrentLine, from);
        return Body::GoesOn;
    }
    Body operator()(std::string Level::*field) const {
        LevelRecord.*field = ParseStringValue(in.CurrentLine, from);
        return Body::GoesOn;
    }
    Body operator()(TileMap Level::*layer) const {
        in.TilePos = from + 1;
        if (in.TilePos > in.CurrentLine.size()) {
            ReadNextLine(in);
            if (in.LinePos < 0) {
                return Body::Ends;
            }
            in.TilePos = 1;
        }
        ReadTileLayer(in, LevelRecord.*layer);
        return Body::GoesOn;
    }
    Body operator()(KeywordRow::Routine routine) const { return routine(in, from); }
};

/// Stores what the line says. One that no row knows ends the body, whatever it is.
Body ReadBodyLine(LineReader& in) {
    for (const KeywordRow& row : KeywordRows) {
        if (in.CurrentLine.starts_with(row.prefix)) {
            return std::visit(StoreValue{in, row.prefix.size()}, row.target);
        }
    }
    return Body::Ends;
}

/// Reads the lines behind "(floebird-level".
void ReadLevelBody(LineReader& in) {
    while (ReadLineBeforeEnd(in)) {
        TrimCurrentLine(in);
        if (!in.CurrentLine.empty() && ReadBodyLine(in) == Body::Ends) {
            return;
        }
    }
}

void ReadLevelLines(const std::string& path) {
    LineReader in;
    ReadFirstLine(in, path, LongestDosFirstLine);
    do {
        if (in.CurrentLine.starts_with(";")) {
            LevelRecord.LevelComment = in.CurrentLine;
        } else if (in.CurrentLine == "(floebird-level") {
            ReadLevelBody(in);
        }
    } while (ReadLineBeforeEnd(in));
    CloseFile(in.ReadFileNum);
}

}  // namespace

void ReadLevelFile(std::string path) {
    for (BadGuyType& type : BadGuyTypeTable) {
        type.CountInUse = 0;
    }
    try {
        LevelPath = path;
        ReadInfoFile(path);
        WithMemoryFaults([&] { ReadLevelLines(path); });
        LevelLoaded = True;
    } catch (const Fault&) {
        ShowMessage(FileNotFoundText, "NUK File Read Error", MessageButtons::Ok, MessageIcon::Stop);
    }
}

Int16 FindBadGuyType(std::string_view name) {
    for (std::size_t row = 0; row < KeywordTable.size(); ++row) {
        if (KeywordTable[row] == name) {
            BadGuyTypeTable[row].CountInUse += 1;
            return static_cast<int>(row);
        }
    }
    return -1;
}
