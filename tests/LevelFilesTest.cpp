#include "core/LineEnds.h"
#include "level/InfoFile.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "tests/ModelTest.h"

// Level files and INFO files, read and written.

namespace {

class LevelFilesTest : public ModelTest {
protected:
    /// Reads a level file of these bytes, as the program does.
    void ReadLevel(const std::string& bytes) {
        LevelRecord.ResetPointCount = 0;
        LevelRecord.BadGuyCount = 0;
        ReadLevelFile(Store("level.fbl", bytes));
    }

    /// A body of these lines, with DOS line ends, which need no least length.
    static std::string Body(const std::string& lines) { return ";c\r\n(floebird-level\r\n" + lines; }
};

/// Each case: a file as it may come, and what the program makes of it once it has read and written it.
TEST_F(LevelFilesTest, GoldenFolders) {
    int cases = 0;
    for (const auto& golden : std::filesystem::directory_iterator(GOLDEN_FOLDER)) {
        if (golden.path().filename().string().starts_with("level-")) {
            SCOPED_TRACE(golden.path());
            ++cases;
            LevelRecord = {};
            ReadLevel(FileText(golden.path() / "input.fbl"));
            EXPECT_TRUE(dialogs.messages.empty());
            EXPECT_EQ(LevelLoaded, True);
            WriteLevelFile(PathOf("written.fbl"));
            EXPECT_EQ(FileText(PathOf("written.fbl")), FileText(golden.path() / "expected.fbl"));
        }
    }
    EXPECT_GE(cases, 10);
}

TEST_F(LevelFilesTest, EveryFailureGivesTheSameMessage) {
    const std::string cases[] = {
        "",                                            // past the end at the first line
        Body("(time 32768)\r\n"),                      // too large
        Body("(gravity)\r\n"),                         // no number
        Body("(width 20)\r\n(background-tm 1 )\r\n"),  // maps that were never made
        Body("(objects\r\n(fish (x 40000) (y 1) (f #f))\r\n"),
        Body("(time " + std::string(32768, ' ') + "1)\r\n"),  // a line longer than a position may be
    };
    const Message failed{"File Specified Not Found!\r\nPlease choose another file.", "NUK File Read Error",
                         MessageButtons::Ok, MessageIcon::Stop};
    for (const std::string& bytes : cases) {
        LevelRecord = {};
        dialogs = {};
        ReadLevel(bytes);
        EXPECT_EQ(dialogs.messages, std::vector{failed}) << bytes;
        EXPECT_EQ(LevelLoaded, False) << bytes;
        EXPECT_EQ(LevelPath, PathOf("level.fbl"));
    }
    ReadLevelFile(PathOf("missing.fbl"));
    ReadLevelFile(folder.string());
    EXPECT_EQ(dialogs.messages, std::vector(3, failed));
    EXPECT_EQ(FreeFileNumber(), static_cast<int>(std::size(cases)) + 1) << "failed reads keep their numbers";
}

TEST_F(LevelFilesTest, WithoutMapsTheOldFileStays) {
    // The fault of composing comes before the old file is touched, and before the text composed last.
    const std::string path = Store("level.fbl", "old");
    LevelText = "before";
    for (const auto& [width, fault] :
         {std::pair(5, FaultNumber::SubscriptOutOfRange), {-32768, FaultNumber::Overflow}}) {
        LevelRecord.width = width;
        EXPECT_EQ(FaultOf([&] { WriteLevelFile(path); }), fault);
        EXPECT_EQ(FileText(path) + LevelText, "oldbefore");
    }
}

/// What comes in its yields, at any of them, does not change the text that is being composed.
TEST_F(LevelFilesTest, ASaveIsWholeWhateverItsYieldsBring) {
    const auto fill = [] {
        LevelRecord = {};
        LevelRecord.width = 30;
        LevelRecord.background_tm = LevelRecord.interactive_tm = LevelRecord.foreground_tm = TileMap(30, 15);
        LevelRecord.foreground_tm(29, 14) = 7;
    };
    const std::string path = PathOf("level.fbl");
    fill();
    WriteLevelFile(path);
    const std::string whole = FileText(path);
    const std::pair<const char*, std::function<void()>> comings[] = {
        {"another save", [&] { WriteLevelFile(PathOf("second.fbl")); }},
        {"the text viewer",
         [] {
             UseDosLineEnds();
             BuildLevelText();
         }},
        {"another level", [] { LevelRecord = {}; }},
        {"paint", [] { LevelRecord.foreground_tm(0, 0) = LevelRecord.background_tm(0, 0) = 9; }},
    };
    for (const auto& [what, come] : comings) {
        for (int yieldsBefore = 0; yieldsBefore < 47; yieldsBefore += 9) {
            SCOPED_TRACE(what);
            fill();
            int yields = 0;
            doubles.onYield = [&, come = come] {
                if (yields++ == yieldsBefore) {
                    come();
                }
            };
            WriteLevelFile(path);
            doubles.onYield = nullptr;
            EXPECT_GT(yields, 46);
            EXPECT_EQ(FileText(path), whole) << "at yield " << yieldsBefore;
        }
    }
    EXPECT_EQ(FileText(PathOf("second.fbl")), whole);
}

/// Reads of texts that are used up without an end: their loops rest, and they are the only ones.
TEST_F(LevelFilesTest, EndlessReadsRestAndOthersDoNot) {
    const auto rows = GoldenRows("endless-reads.txt");
    ASSERT_EQ(rows.size(), 10U);
    for (const Texts& row : rows) {
        SCOPED_TRACE(row.at(1));
        Restart();
        doubles = {};
        doubles.onWait = [] { throw GivenUp(); };
        bool rested = false;
        try {
            ReadLevel(row[1]);
        } catch (const GivenUp&) {
            rested = true;
        }
        EXPECT_EQ(rested ? "rests" : "goes on", row[0]);
    }
    doubles.onWait = [] { throw GivenUp(); };
    EXPECT_THROW(ReadInfoFile(Store("info", ";" + std::string(50, 'c') + "\r\n(title \"T\")\r\n)\r\n")), GivenUp);
}

TEST_F(LevelFilesTest, OddInfoFiles) {
    const auto rows = GoldenRows("info-files.txt");
    ASSERT_EQ(rows.size(), 4U);
    for (const Texts& row : rows) {
        CurrentInfo = {};
        ReadInfoFile(Store("info", row.at(3)));
        EXPECT_EQ(CurrentInfo, (InfoRecord{row[0], row[1], row[2]}));
    }
    ReadInfoFile("/nowhere/level1.fbl");
    WriteInfoFile("/nowhere/info");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber) << "every file is closed";
}

}  // namespace
