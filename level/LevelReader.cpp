#include "level/LevelReader.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "core/MapGrid.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Texts.h"

int ReadFileNum = 0;
std::string CurrentLine;
std::int64_t LinePos = 0;

namespace {

std::string FirstLine;       // what the first line read delivered; the whole file in LF mode
bool LfMode = false;         // lines are cut out of FirstLine at LF, instead of read from the file
bool LastLineIsOut = false;  // LF mode: a last line without an LF has been delivered
bool TextIsUsedUp = false;   // the last call for a line found none that is new
std::size_t TilePos = 0;     // position in CurrentLine of the next character of tile data, from 1

/// A first line that is longer holds the whole file: this one has LF line ends.
constexpr std::size_t LongestDosFirstLine = 256;

/// Narrower levels cannot be played, and a file that names such a width leaves the maps alone.
constexpr int NarrowestLevel = 21;

/// What a routine for a keyword tells the loop over the body's lines.
enum class Body { GoesOn, Ends };

Int16 AppendDigit(Int16 value, int character) { return value * 10 + (character - '0'); }

void TrimCurrentLine() { CurrentLine = std::string(Trim(CurrentLine)); }

/// The next tile number, wherever the lines break; 0 once the layer's ")" is reached, which stays the next
/// character. Never returns when the file ends before either.
Int16 ReadNextTile() {
    for (bool wholeLineRead = false;;) {
        YieldInRead();
        const int first = CharAt(CurrentLine, TilePos);
        if (first == ')') {
            return 0;
        }
        ++TilePos;
        if (TilePos > CurrentLine.size()) {
            // The line is used up. A single digit at its very end is a number all the same.
            if (wholeLineRead && !IsDigit(first)) {
                RestIfTextIsUsedUp();
            }
            wholeLineRead = true;
            ReadNextLine();
            TilePos = 1;
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
            const int next = CharAt(CurrentLine, TilePos);
            ++TilePos;
            if (!IsDigit(next)) {
                return value;
            }
            value = AppendDigit(value, next);
        }
    }
}

void ReadTileLayer(TileMap& layer) {
    const int columns = LevelRecord.width;
    for (int row = 0; row < LevelRows; ++row) {
        YieldInRead();
        for (int column = 0; column < columns; ++column) {
            layer(column, row) = ReadNextTile();
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

Body ReadVersion(std::string_view line) {
    LevelRecord.version = std::to_string(ParseIntValue(line, 8));
    return Body::GoesOn;
}

Body ReadWidth(std::string_view line) {
    LevelRecord.width = ParseIntValue(line, 6);
    if (LevelRecord.width >= NarrowestLevel) {
        for (TileMap* layer : {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
            *layer = TileMap(LevelRecord.width, LevelRows);
        }
        SetMapXScrollMax(LevelRecord.width - ViewColumns);
    }
    return Body::GoesOn;
}

Body ReadBackScrolling(std::string_view line) {
    LevelRecord.back_scrolling = line.substr(17, 1);
    return Body::GoesOn;
}

Body ReadLayerFrom(std::size_t from, TileMap& layer) {
    TilePos = from;
    if (CurrentLine.size() < from) {
        ReadNextLine();
        if (LinePos < 0) {
            return Body::Ends;
        }
        TilePos = 1;
    }
    ReadTileLayer(layer);
    return Body::GoesOn;
}

Body ReadResetPoints(std::string_view) {
    for (;;) {
        ReadNextLine();
        TrimCurrentLine();
        if (LinePos < 0) {
            return Body::Ends;
        }
        if (!CurrentLine.starts_with("(point")) {
            return Body::GoesOn;
        }
        LevelRecord.ResetPointCount += 1;
        LevelRecord.reset_points.Resize(LevelRecord.ResetPointCount);
        ResetPoint& point = LevelRecord.reset_points[LevelRecord.ResetPointCount];
        point = {};
        ReadResetPoint(CurrentLine, point);
    }
}

Body ReadObjects(std::string_view) {
    for (;;) {
        ReadNextLine();
        TrimCurrentLine();
        if (LinePos < 0) {
            return Body::Ends;
        }
        if (CurrentLine.starts_with(")")) {
            return Body::GoesOn;
        }
        LevelRecord.BadGuyCount += 1;
        LevelRecord.objects.Resize(LevelRecord.BadGuyCount);
        BadGuy& badGuy = LevelRecord.objects[LevelRecord.BadGuyCount];
        badGuy = {};
        ReadBadGuy(CurrentLine, badGuy);
    }
}

Body SkipLine(std::string_view) { return Body::GoesOn; }

/// A keyword of the level body. A line belongs to the first row whose prefix it starts with; the value is
/// scanned from position `from`, the prefix's last character.
struct KeywordRow {
    using Routine = Body (*)(std::string_view line);

    std::string_view prefix;
    std::size_t from;
    std::variant<Int16 Level::*, double Level::*, std::string Level::*, TileMap Level::*, Routine> target;
};

// The blank behind "(background" keeps it apart from "(background-tm".
const KeywordRow KeywordRows[] = {
    {"(version", 8, &ReadVersion},
    {"(author", 7, &Level::author},
    {"(name", 5, &Level::name},
    {"(width", 6, &ReadWidth},
    {"(height", 7, &Level::height},
    {"(start_pos_x", 12, &Level::start_pos_x},
    {"(start_pos_y", 12, &Level::start_pos_y},
    {"(background ", 11, &Level::background},
    {"(music", 6, &Level::music},
    {"(bkgd_red_top", 13, &Level::bkgd_red_top},
    {"(bkgd_green_top", 15, &Level::bkgd_green_top},
    {"(bkgd_blue_top", 14, &Level::bkgd_blue_top},
    {"(bkgd_red_bottom", 16, &Level::bkgd_red_bottom},
    {"(bkgd_green_bottom", 18, &Level::bkgd_green_bottom},
    {"(bkgd_blue_bottom", 17, &Level::bkgd_blue_bottom},
    {"(time", 5, &Level::time},
    {"(gravity", 8, &Level::gravity},
    {"(particle_system", 16, &Level::particle_system},
    {"(theme", 6, &Level::theme},
    {"(bkgd_speed", 11, &Level::bkgd_speed},
    {"(back_scrolling #", 17, &ReadBackScrolling},
    {"(hor_autoscroll_speed", 21, &Level::hor_autoscroll_speed},
    {"(background-tm", 15, &Level::background_tm},
    {"(interactive-tm", 16, &Level::interactive_tm},
    {"(foreground-tm", 15, &Level::foreground_tm},
    {"(reset-points", 13, &ReadResetPoints},
    {"(objects", 8, &ReadObjects},
    {")", 1, &SkipLine},
};

/// Stores the value of CurrentLine under its keyword. One overload for each kind of field.
struct StoreValue {
    const KeywordRow& row;

    Body operator()(Int16 Level::*field) const {
        LevelRecord.*field = ParseIntValue(CurrentLine, row.from);
        return Body::GoesOn;
    }
    Body operator()(double Level::*field) const {
        LevelRecord.*field = ParseFloatValue(CurrentLine, row.from);
        return Body::GoesOn;
    }
    Body operator()(std::string Level::*field) const {
        LevelRecord.*field = ParseStringValue(CurrentLine, row.from);
        return Body::GoesOn;
    }
    Body operator()(TileMap Level::*layer) const { return ReadLayerFrom(row.from, LevelRecord.*layer); }
    Body operator()(KeywordRow::Routine routine) const { return routine(CurrentLine); }
};

/// Stores what CurrentLine says. A line that no row knows ends the body, whatever it is.
Body ReadBodyLine() {
    for (const KeywordRow& row : KeywordRows) {
        if (CurrentLine.starts_with(row.prefix)) {
            return std::visit(StoreValue{row}, row.target);
        }
    }
    return Body::Ends;
}

/// Reads the lines behind "(floebird-level".
void ReadLevelBody() {
    for (;;) {
        ReadNextLine();
        if (LinePos < 0) {
            return;
        }
        RestIfTextIsUsedUp();
        TrimCurrentLine();
        if (!CurrentLine.empty() && ReadBodyLine() == Body::Ends) {
            return;
        }
    }
}

void ReadLevelLines(const std::string& path) {
    ReadFirstLine(path, LongestDosFirstLine);
    do {
        if (CurrentLine.starts_with(";")) {
            LevelRecord.LevelComment = CurrentLine;
        } else if (CurrentLine == "(floebird-level") {
            ReadLevelBody();
        }
        ReadNextLine();
        if (LinePos > 0) {
            RestIfTextIsUsedUp();
        }
    } while (LinePos > 0);
    CloseFile(ReadFileNum);
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

void ReadFirstLine(const std::string& path, std::size_t longestDosLine) {
    ReadFileNum = FreeFileNumber();
    OpenForInput(ReadFileNum, path);
    FirstLine = LineInput(ReadFileNum);
    LinePos = 1;
    LastLineIsOut = TextIsUsedUp = false;
    LfMode = FirstLine.size() > longestDosLine;
    if (LfMode) {
        ReadNextLine();
    } else {
        CurrentLine = FirstLine;
    }
}

void ReadNextLine() {
    YieldInRead();
    CurrentLine.clear();
    if (!LfMode) {
        try {
            CurrentLine = LineInput(ReadFileNum);
        } catch (const Fault&) {
            LinePos = -1;
            TextIsUsedUp = true;
        }
        return;
    }
    const auto length = static_cast<std::int64_t>(FirstLine.size());
    if (LinePos < 1 || LinePos > length - 1) {
        LinePos = -1;
        TextIsUsedUp = true;
        return;
    }
    const auto from = static_cast<std::size_t>(LinePos - 1);
    const std::size_t end = FirstLine.find('\n', from);
    CurrentLine.assign(FirstLine, from, end == std::string::npos ? end : end - from);
    if (end != std::string::npos) {
        LinePos = static_cast<std::int64_t>(end) + 2;
    } else {
        TextIsUsedUp = std::exchange(LastLineIsOut, true);
    }
}

void RestIfTextIsUsedUp() {
    if (TextIsUsedUp) {
        WaitForEvent();
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

Int16 ParseIntValue(std::string_view line, std::size_t start) {
    if (line.size() > INT16_MAX) {
        throw Fault(FaultNumber::Overflow);
    }
    Int16 value;
    for (std::size_t p = start; p <= line.size() && CharAt(line, p) != ')'; ++p) {
        if (IsDigit(CharAt(line, p))) {
            value = AppendDigit(value, CharAt(line, p));
        }
    }
    return value;
}

std::string ParseStringValue(std::string_view line, std::size_t start) {
    std::string_view rest = line.substr(std::min(start - 1, line.size()));
    rest = rest.substr(0, rest.find(')'));
    const std::size_t quote = rest.find('"');
    if (quote == std::string_view::npos) {
        return {};
    }
    rest.remove_prefix(quote + 1);
    return std::string(rest.substr(0, rest.find('"')));
}

double ParseFloatValue(std::string_view line, std::size_t start) {
    std::string number;
    for (std::size_t p = start; p <= line.size() && CharAt(line, p) != ')'; ++p) {
        if (IsDigit(CharAt(line, p)) || CharAt(line, p) == '.') {
            number += static_cast<char>(CharAt(line, p));
        }
    }
    return TextToDouble(number);
}
