#include <map>
#include <set>

#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "level/InfoFile.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "tests/Support.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

namespace {

/// Reads a file of the sample game and gives what the editor would write in its place.
std::string Rewritten(const std::filesystem::path& file) {
    UseUnixLineEnds();
    if (file.extension() == ".fbwm") {
        WorldPath.clear();
        ReadWorldFile(file.string());
        EXPECT_EQ(WorldReadError, 0);
        BuildWorldText();
        return WorldOutput;
    }
    if (file.extension() == ".fbl") {
        LevelRecord.ResetPointCount = LevelRecord.BadGuyCount = 0;
        ReadLevelFile(file.string());
        BuildLevelText();
        return LevelText;
    }
    CurrentInfo = {};
    ReadInfoFile(file.string());
    BuildInfoText();
    return InfoText;
}

/// What stands at the place of the bad guy on the layer that carries.
int TileAt(const BadGuy& badGuy) { return LevelRecord.interactive_tm(badGuy.x / TileSize, badGuy.y / TileSize); }

class SampleGameTest : public FreshTest {};

TEST_F(SampleGameTest, EveryFileIsWhatTheEditorWouldWrite) {
    const std::filesystem::path root = SAMPLE_GAME_FOLDER;
    std::map<std::string, int> files;
    std::set<std::string> levels;
    std::set<std::string> linked;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::filesystem::path& file = entry.path();
        const std::string kind = file.filename() == "info" ? "info" : file.extension().string();
        if (kind != "info" && kind != ".fbl" && kind != ".fbwm") {
            continue;
        }
        ++files[kind];
        EXPECT_EQ(Rewritten(file), FileText(file)) << file;
        if (kind == ".fbl") {
            levels.insert(relative(file, root / ".floebird" / "levels").generic_string());
            for (int n = 1; n <= LevelRecord.BadGuyCount; ++n) {
                EXPECT_EQ(TileAt(LevelRecord.objects[n]), 0) << file << ": bad guy " << n << " is inside a tile";
            }
        }
        for (int n = 1; kind == ".fbwm" && n <= WorldRecord.LinkCount; ++n) {
            if (WorldRecord.levels[n].type == LevelLink) {
                EXPECT_TRUE(linked.insert(WorldRecord.levels[n].name).second) << "a second way to a level";
            }
        }
    }
    EXPECT_EQ(files, (std::map<std::string, int>{{".fbl", 10}, {".fbwm", 2}, {"info", 2}}));
    EXPECT_EQ(linked, levels) << "every level is on a world, below the user's levels";
    EXPECT_TRUE(dialogs.messages.empty());
}

}  // namespace
