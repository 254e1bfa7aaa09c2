#include "level/LevelWriter.h"

#include <charconv>

#include "core/General.h"
#include "core/SharedState.h"
#include "platform/Conversions.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Texts.h"

std::string NL;
std::string QuoteChar;
std::string CloseLine;
std::string CloseCloseLine;
std::string CloseQuoteLine;
std::string CloseCloseQuoteLine;
std::string LevelText;

namespace {

constexpr std::size_t LongestTileText = 7;  // "-32768" and a blank

void SetLineEnds(const char* lineEnd) {
    NL = lineEnd;
    QuoteChar = "\"";
    CloseLine = ")" + NL;
    CloseCloseLine = "))" + NL;
    CloseQuoteLine = "\")" + NL;
}

void AddNumber(const char* keyword, Int16 number) { LevelText += keyword + std::to_string(number) + CloseLine; }

void AddFloat(const char* keyword, double number) { LevelText += keyword + DoubleToText(number) + CloseLine; }

void AddString(const char* keyword, const std::string& text) {
    LevelText += keyword + QuoteChar + text + CloseQuoteLine;
}

void AddFirstComment() {
    std::string& comment = LevelRecord.LevelComment;
    comment = std::string(Trim(comment));
    if (!comment.empty() && !comment.starts_with(";")) {
        comment.insert(0, "; ");
    }
    LevelText += (comment.empty() ? ";Floebird-Level" : comment) + NL;
}

void AddEndComment() {
    std::string& comment = LevelRecord.EndComment;
    comment = std::string(Trim(comment));
    if (comment.empty()) {
        return;
    }
    if (!comment.starts_with(";;")) {
        comment.insert(0, ";; ");
    }
    LevelText += comment + NL;
}

void AddScalarFields() {
    const Level& level = LevelRecord;
    LevelText += "  (version " + level.version + CloseLine;
    AddString("  (author ", level.author);
    AddString("  (name ", level.name);
    if (level.width > 0) {
        AddNumber("  (width  ", level.width);
    }
    if (level.height > 0) {
        AddNumber("  (height ", level.height);
    }
    AddNumber("  (start_pos_x ", level.start_pos_x);
    AddNumber("  (start_pos_y ", level.start_pos_y);
    AddString("  (background ", level.background);
    AddString("  (music ", level.music);
    AddString("  (particle_system ", level.particle_system);
    AddString("  (theme ", level.theme);
    AddNumber("  (bkgd_red_top    ", level.bkgd_red_top);
    AddNumber("  (bkgd_green_top  ", level.bkgd_green_top);
    AddNumber("  (bkgd_blue_top   ", level.bkgd_blue_top);
    AddNumber("  (bkgd_red_bottom    ", level.bkgd_red_bottom);
    AddNumber("  (bkgd_green_bottom  ", level.bkgd_green_bottom);
    AddNumber("  (bkgd_blue_bottom   ", level.bkgd_blue_bottom);
    AddNumber("  (time ", level.time);
    AddFloat("  (bkgd_speed ", level.bkgd_speed);
    AddFloat("  (hor_autoscroll_speed ", level.hor_autoscroll_speed);
    LevelText += "  (back_scrolling #" + level.back_scrolling + CloseLine;
    AddFloat("  (gravity ", level.gravity);
}

/// The first row stands on the keyword's line, and each number has a blank behind it.
void AddLayer(const char* keyword, const TileMap& layer) {
    LevelText += keyword;
    const int columns = LevelRecord.width;
    std::string row(static_cast<std::size_t>(columns > 0 ? columns : 0) * LongestTileText, ' ');
    for (int y = 0; y < LevelRows; ++y) {
        YieldToEventQueue();
        char* end = row.data();
        for (int x = 0; x < columns; ++x) {
            end = std::to_chars(end, end + LongestTileText, static_cast<int>(layer(x, y))).ptr;
            *end++ = ' ';
        }
        LevelText.append(row.data(), end);
        LevelText += NL;
    }
    LevelText += CloseLine;
}

void AddResetPoints() {
    LevelText += "(reset-points" + NL;
    for (int i = 1; i <= LevelRecord.ResetPointCount; ++i) {
        const ResetPoint& point = LevelRecord.reset_points[i];
        LevelText += "  (point (x " + std::to_string(point.x) + ") (y " + std::to_string(point.y) + CloseCloseLine;
    }
    LevelText += CloseLine;
}

void AddObjects() {
    LevelText += "(objects" + NL;
    for (int i = 1; i <= LevelRecord.BadGuyCount; ++i) {
        const BadGuy& badGuy = LevelRecord.objects[i];
        LevelText += "(" + badGuy.name + " (x " + std::to_string(badGuy.x) + ") (y " + std::to_string(badGuy.y) +
                     ") (stay-on-platform #" + StayOnPlatformText(i) + CloseCloseLine;
    }
    LevelText += CloseLine;
}

}  // namespace

void UseDosLineEnds() {
    SetLineEnds("\r\n");
    CloseCloseQuoteLine = "\"))" + NL;
}

void UseUnixLineEnds() { SetLineEnds("\n"); }

void BuildLevelText() {
    LevelText.clear();
    AddFirstComment();
    LevelText += "(floebird-level" + NL;
    AddScalarFields();
    AddLayer("  (background-tm  ", LevelRecord.background_tm);
    AddLayer("  (interactive-tm  ", LevelRecord.interactive_tm);
    AddLayer("  (foreground-tm  ", LevelRecord.foreground_tm);
    YieldToEventQueue();
    AddResetPoints();
    AddObjects();
    LevelText += CloseLine;
    AddEndComment();
}

const char* StayOnPlatformText(int index) { return LevelRecord.objects[index].stay_on_platform == 1 ? "t" : "f"; }

void WriteLevelFile(std::string path) {  // NOLINT(performance-unnecessary-value-param): a yield may change LevelPath
    if (IsBlank(path)) {
        return;
    }
    UseUnixLineEnds();
    BuildLevelText();
    DeleteFileQuietly(path);
    try {
        WriteTextFile(path, LevelText);
    } catch (const Fault&) {  // a failed save is not reported
    }
    YieldToEventQueue();
}

void WriteTextFile(const std::string& path, const std::string& text) {
    const int file = FreeFileNumber();
    OpenForBinary(file, path);
    WriteBytes(file, text);
    CloseFile(file);
}
