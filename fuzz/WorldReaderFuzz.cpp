#include "core/SharedState.h"
#include "fuzz/FuzzInput.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

namespace {

std::optional<std::string> ReadAndWrite(const std::string& path) {
    ReadWorldFile(path);
    if (WorldLoaded == False) {
        return std::nullopt;
    }
    BuildWorldText();
    return WorldOutput;
}

/// True if every link is of a type that reads back: comments and links of no type are not closed in the text,
/// and an invisible teleporter gets a quote for its flag. All else that can be read can be read again.
bool ReadsBack() {
    for (int index = 1; index <= WorldRecord.LinkCount; ++index) {
        const int type = WorldRecord.levels[index].type;
        if (type != LevelLink && type != MessageLink && type != TeleportLink) {
            return false;
        }
    }
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto written = ReadAfresh(std::string(data, data + size), "map.fbwm", ReadAndWrite);
    if (written && ReadsBack()) {
        RequireSame(*written, ReadAfresh(*written, "map.fbwm", ReadAndWrite));
    }
    return 0;
}
