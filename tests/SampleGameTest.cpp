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

class SampleGameTest : public FreshTest {};

TEST_F(SampleGameTest, EveryFileIsWhatTheEditorWouldWrite) {
    int files = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(SAMPLE_GAME_FOLDER)) {
        const std::filesystem::path& file = entry.path();
        if (file.extension() == ".fbl" || file.extension() == ".fbwm" || file.filename() == "info") {
            ++files;
            EXPECT_EQ(Rewritten(file), FileText(file)) << file;
        }
    }
    EXPECT_EQ(files, 15) << "ten levels, three sets, two worlds";
    EXPECT_TRUE(dialogs.messages.empty());
    for (int n = 1; n <= WorldRecord.LinkCount; ++n) {
        const WorldLink& link = WorldRecord.levels[n];
        const std::filesystem::path level =
            std::filesystem::path(SAMPLE_GAME_FOLDER) / ".floebird" / "levels" / link.name;
        EXPECT_TRUE(link.type != LevelLink || exists(level)) << link.name;
    }
}

}  // namespace
