#include <filesystem>
#include <set>

#include "tests/Golden.h"
#include "tests/WorldTest.h"
#include "world/WorldWriter.h"

// The worlds of the sample game: what the editor would write, read without an error, and leading somewhere.

namespace {

using SampleGameTest = WorldTest;

const std::filesystem::path Game = SAMPLE_GAME_FOLDER;

TEST_F(SampleGameTest, WorldsReadAndWriteToTheSameBytes) {
    int worlds = 0;
    for (const auto& file : std::filesystem::directory_iterator(Game / "data/levels/worldmaps")) {
        SCOPED_TRACE(file.path().filename());
        ++worlds;
        const std::string bytes = FileBytes(file.path());
        Read(bytes);
        EXPECT_EQ(WorldReadError, 0);
        BuildWorldText();
        EXPECT_EQ(WorldOutput, bytes);
        std::set<int> types;
        for (int n = 1; n <= WorldRecord.LinkCount; ++n) {
            const WorldLink& link = WorldRecord.levels[n];
            types.insert(link.type);
            EXPECT_TRUE(link.type != LevelLink || exists(Game / ".floebird/levels" / link.name)) << link.name;
            EXPECT_NE(WorldRecord.tiles(link.x, link.y), 9) << "link " << n << " is in the sea";
        }
        EXPECT_EQ(types, (std::set<int>{LevelLink, MessageLink, TeleportLink})) << "all types that read back";
        EXPECT_TRUE(exists(Game / "data/music" / WorldRecord.music));
    }
    EXPECT_EQ(worlds, 2);
}

}  // namespace
