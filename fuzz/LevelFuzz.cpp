#include "fuzz/RoundTrip.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"

const std::string FileName = "level.fbl";
const std::vector<FaultNumber> StatedFaults{FaultNumber::SubscriptOutOfRange};  // a width without maps

/// The reader takes no sign, and makes no maps narrower than 21.
void Make(Bytes& in) {
    Level& level = LevelRecord;
    in.areSigned = false;
    in.TakeAll(level.LevelComment, level.author, level.name, level.height, level.start_pos_x, level.start_pos_y,
               level.background, level.music, level.bkgd_red_top, level.bkgd_green_top, level.bkgd_blue_top,
               level.bkgd_red_bottom, level.bkgd_green_bottom, level.bkgd_blue_bottom, level.bkgd_speed,
               level.hor_autoscroll_speed, level.time, level.gravity, level.particle_system, level.theme);
    level.LevelComment.insert(0, ";");
    level.version = std::to_string(in.Byte());
    level.back_scrolling = "tf"[in.Byte() % 2];
    level.ResetPointCount = in.Byte() % 4;
    level.BadGuyCount = in.Byte() % 4;
    level.reset_points.Resize(level.ResetPointCount);
    for (int index = 1; index <= level.ResetPointCount; ++index) {
        in.TakeAll(level.reset_points[index].x, level.reset_points[index].y);
    }
    level.objects.Resize(level.BadGuyCount);
    for (int index = 1; index <= level.BadGuyCount; ++index) {
        BadGuy& badGuy = level.objects[index];
        in.TakeAll(badGuy.name, badGuy.x, badGuy.y);
        badGuy.kind = in.Byte() % BadGuyTypes;
        badGuy.name.insert(0, "-");
        if (badGuy.kind > 0) {
            badGuy.name = KeywordTable[static_cast<std::size_t>(badGuy.kind)];
        }
        badGuy.stay_on_platform = in.Byte() % 2;
    }
    level.width = in.Byte() % 8 == 0 ? 21 : 0;
    if (level.width > 0) {
        for (TileMap* layer : {&level.background_tm, &level.interactive_tm, &level.foreground_tm}) {
            in.Take(*layer, level.width, LevelRows);
        }
    }
}

void Write(const std::string& path) { WriteLevelFile(LevelPath = path); }

bool Read(const std::string& path) {
    ReadLevelFile(path);
    return LevelLoaded != False && LevelRecord.width < 32;
}
