#include "level/LevelWriter.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "core/General.h"
#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "platform/Conversions.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Texts.h"

std::string LevelText;

namespace {

constexpr std::size_t LongestTileText = 7;  // "-32768" and a blank

/// Only a flag of exactly 1 is true.
const char* StayOnPlatformText(const BadGuy& badGuy) { return badGuy.stay_on_platform == 1 ? "t" : "f"; }

/// A text in the making. Its level and its line ends are copies: a handler that runs in a yield may open another level,
/// paint, or compose a text of its own in other line ends.
struct LevelComposer {
    const Level level = LevelRecord;
    const std::string lineEnd = NL;
    const std::string close = CloseLine;
    const std::string closeClose = CloseCloseLine;
    const std::string closeQuote = CloseQuoteLine;
    std::string text;

    void AddNumber(const char* keyword, Int16 number) { text += keyword + std::to_string(number) + close; }
    void AddFloat(const char* keyword, double number) { text += keyword + DoubleToText(number) + close; }
    void AddString(const char* keyword, const std::string& value) { text += keyword + QuoteChar + value + closeQuote; }

    void AddFirstComment();
    void AddScalarFields();
    void AddLayer(const char* keyword, const TileMap& layer);
    void AddResetPoints();
    void AddObjects();
    void AddEndComment();
};

void LevelComposer::AddFirstComment() {
    std::string& comment = LevelRecord.LevelComment;
    comment = std::string(Trim(comment));
    if (!comment.empty() && !comment.starts_with(";")) {
        comment.insert(0, "; ");
    }
    text += (comment.empty() ? ";Floebird-Level" : comment) + lineEnd;
}

void LevelComposer::AddEndComment() {
    std::string& comment = LevelRecord.EndComment;
    comment = std::string(Trim(comment));
    if (comment.empty()) {
        return;
    }
    if (!comment.starts_with(";;")) {
        comment.insert(0, ";; ");
    }
    text += comment + lineEnd;
}

void LevelComposer::AddScalarFields() {
    text += "  (version " + level.version + close;
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
    text += "  (back_scrolling #" + level.back_scrolling + close;
    AddFloat("  (gravity ", level.gravity);
}

/// The first row stands on the keyword's line, and each number has a blank behind it.
void LevelComposer::AddLayer(const char* keyword, const TileMap& layer) {
    text += keyword;
    const Int16 last = level.width - 1;
    std::string row(static_cast<std::size_t>(std::max<int>(level.width, 0)) * LongestTileText, ' ');
    for (int y = 0; y < LevelRows; ++y) {
        YieldToEventQueue();
        char* end = row.data();
        for (int x = 0; x <= last; ++x) {
            end = std::to_chars(end, end + LongestTileText, static_cast<int>(layer(x, y))).ptr;
            *end++ = ' ';
        }
        text.append(row.data(), end);
        text += lineEnd;
    }
    text += close;
}

void LevelComposer::AddResetPoints() {
    text += "(reset-points" + lineEnd;
    for (int i = 1; i <= level.ResetPointCount; ++i) {
        const ResetPoint& point = level.reset_points[i];
        text += "  (point (x " + std::to_string(point.x) + ") (y " + std::to_string(point.y) + closeClose;
    }
    text += close;
}

void LevelComposer::AddObjects() {
    text += "(objects" + lineEnd;
    for (int i = 1; i <= level.BadGuyCount; ++i) {
        const BadGuy& badGuy = level.objects[i];
        text += "(" + badGuy.name + " (x " + std::to_string(badGuy.x) + ") (y " + std::to_string(badGuy.y) +
                ") (stay-on-platform #" + StayOnPlatformText(badGuy) + closeClose;
    }
    text += close;
}

}  // namespace

void BuildLevelText() {
    LevelComposer composer;
    composer.AddFirstComment();
    composer.text += "(floebird-level" + composer.lineEnd;
    composer.AddScalarFields();
    composer.AddLayer("  (background-tm  ", composer.level.background_tm);
    composer.AddLayer("  (interactive-tm  ", composer.level.interactive_tm);
    composer.AddLayer("  (foreground-tm  ", composer.level.foreground_tm);
    YieldToEventQueue();
    composer.AddResetPoints();
    composer.AddObjects();
    composer.text += composer.close;
    composer.AddEndComment();
    LevelText = std::move(composer.text);
}

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
