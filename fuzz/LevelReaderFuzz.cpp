#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "fuzz/FuzzInput.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Conversions.h"

namespace {

std::optional<std::string> ReadAndWrite(const std::string& path) {
    ReadLevelFile(path);
    if (LevelLoaded == False) {
        return std::nullopt;
    }
    UseUnixLineEnds();
    BuildLevelText();
    return LevelText;
}

/// The reader takes digits and points only, so that an exponent would become part of the number.
bool HasExponent(double number) { return DoubleToText(number).find('E') != std::string::npos; }

/// A line of a file with DOS line ends may hold line feeds, which split it in the file written.
bool HasLineFeed(const std::string& text) { return text.find('\n') != std::string::npos; }

/// True if the text written of LevelRecord reads back to the same record, as far as it is written:
/// - `version` is written as it is, but read as a number, which the empty text is not,
/// - an empty `back_scrolling` reads back as the ")" behind it,
/// - a level narrower than 21 gets no maps when read, and those that are left need none at width 0 only.
/// Texts that were read hold no quote and no ")", and no number that was read is negative.
bool ReadsBack() {
    const Level& level = LevelRecord;
    if (level.version.empty() || level.back_scrolling.empty() || (level.width != 0 && level.width < 21)) {
        return false;
    }
    for (const double number : {level.bkgd_speed, level.hor_autoscroll_speed, level.gravity}) {
        if (HasExponent(number)) {
            return false;
        }
    }
    for (const std::string& text : {level.LevelComment, level.author, level.name, level.background, level.music,
                                    level.particle_system, level.theme, level.back_scrolling}) {
        if (HasLineFeed(text)) {
            return false;
        }
    }
    for (int index = 1; index <= level.BadGuyCount; ++index) {
        if (HasLineFeed(level.objects[index].name)) {
            return false;
        }
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto written = ReadAfresh(std::string(data, data + size), "level.fbl", ReadAndWrite);
    if (written && ReadsBack()) {
        RequireSame(*written, ReadAfresh(*written, "level.fbl", ReadAndWrite));
    }
    return 0;
}
