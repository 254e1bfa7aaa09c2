#include "platform/Files.h"
#include "tests/ModelTest.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

// World map files, read and written, and the record as a whole.

namespace {

class WorldFilesTest : public ModelTest {
protected:
    /// Reads a file of these bytes, as the first one in the program.
    void Read(const std::string& bytes) {
        WorldPath.clear();
        ReadWorldFile(Store("map.fbwm", bytes));
    }

    static void MakeWorld(int width, int height) {
        ResetWorld();
        WorldRecord.width = width;
        WorldRecord.height = height;
        BuildBlankWorld();
    }
};

/// Each case: a file as it may come, and what the program makes of it. What it has written reads back to the same.
TEST_F(WorldFilesTest, GoldenFolders) {
    int cases = 0;
    for (const auto& golden : std::filesystem::directory_iterator(GOLDEN_FOLDER)) {
        if (golden.is_directory() && golden.path().filename().string().starts_with("world-")) {
            SCOPED_TRACE(golden.path());
            ++cases;
            const std::string expected = FileText(golden.path() / "expected.fbwm");
            for (const std::string& input : {FileText(golden.path() / "input.fbwm"), expected}) {
                Read(input);
                EXPECT_EQ(WorldReadError, 0);
                BuildWorldText();
                EXPECT_EQ(WorldOutput, expected);
            }
        }
    }
    EXPECT_GE(cases, 10);
}

TEST_F(WorldFilesTest, FailuresHaveNumbers) {
    const auto rows = GoldenRows("world-errors.txt");
    ASSERT_GT(rows.size(), 50U);
    for (const Texts& row : rows) {
        SCOPED_TRACE(row.at(2));
        const int fault = std::stoi(row[1]);
        WorldChanged = True;
        EXPECT_EQ(static_cast<int>(FaultOf([&] { Read(row[2]); }).value_or(FaultNumber{})), fault);
        EXPECT_EQ(WorldReadError, std::stoi(row[0]));
        EXPECT_EQ(WorldLoaded, fault == 0 && WorldReadError == 0 ? True : False);
        EXPECT_EQ(WorldChanged, WorldLoaded == True ? False : True);
        EXPECT_EQ(WorldPath, PathOf("map.fbwm"));
    }
    const std::string status = FileText("/proc/self/status");
    const long mostKilobytes = std::stol(status.substr(status.find("VmHWM:") + 6));
    EXPECT_LT(mostKilobytes, 1 << 20) << "cells that nothing was written to take no memory";
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber + 1) << "files are closed before they are parsed, but not an empty one";
}

TEST_F(WorldFilesTest, TheFileBeforeMustStillExist) {
    const std::string path = Store("map.fbwm", "(floebird-worldmap )\n");
    for (const std::string& before : {std::string("/nowhere/gone.fbwm"), path}) {
        WorldPath = before;
        NewWorldPending = True;
        WorldReadError = 49;
        ReadWorldFile(path);
        EXPECT_EQ(WorldPath, before);
        EXPECT_EQ(WorldLoaded, before == path ? True : False);
        EXPECT_EQ(NewWorldPending, before == path ? False : True);
        EXPECT_EQ(WorldReadError, 0);
    }
    EXPECT_EQ(dialogs.messages,
              (std::vector<Message>{{"/nowhere/gone.fbwm", "Map NOT Found!", MessageButtons::Ok, MessageIcon::Stop}}));
}

TEST_F(WorldFilesTest, AFaultKeepsTheTextBefore) {
    MakeWorld(1, 1);
    BuildWorldText();
    const std::string before = WorldOutput;
    const struct {
        int width;
        int height;
        FaultNumber fault;
    } cases[] = {{1, -32768, FaultNumber::Overflow},
                 {-32768, 1, FaultNumber::Overflow},
                 {3, 1, FaultNumber::SubscriptOutOfRange}};
    for (const auto& c : cases) {
        WorldRecord.width = c.width;
        WorldRecord.height = c.height;
        EXPECT_EQ(FaultOf(BuildWorldText), c.fault) << c.width << " by " << c.height;
        EXPECT_EQ(WorldOutput, before);
    }
}

/// Each link comes before one to a level; what it lacks changes how that one is read.
TEST_F(WorldFilesTest, LinksAreWrittenByType) {
    const auto rows = GoldenRows("link-texts.txt");
    ASSERT_EQ(rows.size(), 8U);
    for (const Texts& row : rows) {
        SCOPED_TRACE(row.at(5));
        MakeWorld(1, 1);
        AddInNewLink(4, 5);
        AddInNewLink(4, 5);
        WorldRecord.levels[1] = {
            std::stoi(row[0]), ";; comment", row[1], "hello", row[2], row[3], "u", "d", "l", "r", 4, 5, 6, -7};
        WorldRecord.levels[2].name = "one.fbl";
        BuildWorldText();
        const std::size_t start = WorldOutput.find("(levels\n") + 8;
        EXPECT_EQ(WorldOutput.substr(start),
                  row[5] + "     (level (name \"one.fbl\")\n           (x  4)\n           (y  5))\n      ))\n");
        Read(WorldOutput);
        EXPECT_EQ(WorldReadError, std::stoi(row[4]));
    }
}

}  // namespace
