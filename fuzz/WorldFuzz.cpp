#include "fuzz/RoundTrip.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

const std::string FileName = "map.fbwm";
const std::vector<FaultNumber> StatedFaults{FaultNumber::Overflow, FaultNumber::OutOfMemory, FaultNumber::TypeMismatch,
                                            FaultNumber::SubscriptOutOfRange, FaultNumber::InputPastEndOfFile};

/// Links of the other types do not read back.
void Make(Bytes& in) {
    World& world = WorldRecord;
    in.TakeAll(world.name, world.music, world.start_pos_x, world.start_pos_y, world.comments[0]);
    world.comments[0].insert(0, ";;");
    world.LinkCount = in.Byte() % 4;
    world.levels.Resize(world.LinkCount);
    for (int index = 1; index <= world.LinkCount; ++index) {
        WorldLink& link = world.levels[index];
        link.type = LevelLink + in.Byte() % 3;
        in.TakeAll(link.x, link.y, link.type == LevelLink ? link.name : link.message);
        if (link.type == LevelLink) {
            in.Take(link.extro_filename);
        } else if (link.type == TeleportLink) {
            in.TakeAll(link.dest_x, link.dest_y);
        } else {
            for (std::string* flag :
                 {&link.apply_action_up, &link.apply_action_down, &link.apply_action_left, &link.apply_action_right}) {
                in.Take(*flag);
                *flag = flag->substr(0, 1);
            }
        }
    }
    world.width = 1 + in.Byte() % 32;
    world.height = 1 + in.Byte() % 8;
    in.Take(world.tiles, world.width, world.height);
}

/// The first comment of the record is written, and is read without its ";" as the second.
void Write(const std::string& path) {
    WorldPath = path;
    BuildWorldText();
    WriteWorldFile(path);
    WorldRecord.comments = {};
    WorldRecord.CommentCount = 1;
    WorldRecord.comments.Resize(1);
    WorldRecord.comments[1] = WorldOutput.substr(1, WorldOutput.find('\n') - 1);
}

bool Read(const std::string& path) {
    ReadWorldFile(path);
    return WorldLoaded != False && WorldRecord.width < 64 && WorldRecord.height < 64;
}
