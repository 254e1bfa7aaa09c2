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

TEST_F(LevelFilesTest, WhatAFileDoesNotNameStays) {
    LevelRecord.theme = "antarctica";
    ReadLevel(Body("(width 21)\r\n(height 20)\r\n"));
    EXPECT_EQ(LevelRecord.theme, "antarctica");
    EXPECT_EQ(LevelRecord.background_tm, TileMap(21, 15));
    // And what comes before a fault has been stored.
    ReadLevel(Body("(name \"New\")\r\n(reset-points\r\n(point (x 1) (y 2))\r\n)\r\n(time 99999)\r\n(music \"m\")\r\n"));
    EXPECT_EQ(LevelRecord.name + LevelRecord.music, "New");
    EXPECT_EQ(LevelRecord.ResetPointCount, 1);
}

TEST_F(LevelFilesTest, ThresholdOfLfMode) {
    const std::string rest = "\n(floebird-level\n(time 6)\n)\n";
    ReadLevel(";" + std::string(256 - 1 - rest.size(), 'c') + rest);
    EXPECT_EQ(LevelRecord.time, 0);
    ReadLevel(";" + std::string(257 - 1 - rest.size(), 'c') + rest);
    EXPECT_EQ(LevelRecord.time, 6);
    EXPECT_EQ(LevelRecord.LevelComment.size(), 257 - rest.size());
}

TEST_F(LevelFilesTest, CommentsAreNormalisedInTheRecordToo) {
    const struct {
        const char *comment, *stored, *written;
    } first[] = {{"  ", "", ";Floebird-Level"}, {" a ", "; a", "; a"}, {";;b", ";;b", ";;b"}};
    for (const auto& [comment, stored, written] : first) {
        LevelRecord.LevelComment = comment;
        BuildLevelText();
        EXPECT_EQ(LevelRecord.LevelComment, stored);
        EXPECT_TRUE(LevelText.starts_with(written + std::string("\r\n(floebird-level\r\n"))) << LevelText;
    }
    const std::pair<std::string, std::string> last[] = {
        {" ", ""}, {"end", ";; end\r\n"}, {";end", ";; ;end\r\n"}, {" ;;end ", ";;end\r\n"}};
    for (const auto& [comment, written] : last) {
        LevelRecord.EndComment = comment;
        BuildLevelText();
        EXPECT_EQ(LevelRecord.EndComment, written.substr(0, written.find('\r')));
        EXPECT_TRUE(LevelText.ends_with(")\r\n)\r\n" + written)) << LevelText;
    }
}

/// What no file can bring into the record, and what a reload makes of it.
TEST_F(LevelFilesTest, NegativeNumbersAndFloats) {
    LevelRecord.width = 1;
    LevelRecord.height = -15;
    LevelRecord.background_tm = LevelRecord.interactive_tm = LevelRecord.foreground_tm = TileMap(1, 15);
    LevelRecord.interactive_tm(0, 0) = -32768;
    LevelRecord.start_pos_x = -5;
    LevelRecord.gravity = -1.0 / 3.0;
    LevelRecord.bkgd_speed = 1E20;
    LevelRecord.version = "1.2 beta";
    LevelRecord.objects.Resize(1);
    LevelRecord.objects[1] = {0, "a b", -1, 2, 7};
    LevelRecord.BadGuyCount = 1;
    UseUnixLineEnds();
    WriteLevelFile(PathOf("level.fbl"));
    for (const char* lines : {"  (version 1.2 beta)\n", "  (width  1)\n  (start_pos_x -5)\n",
                              "  (gravity -0.333333333333333)\n", "  (bkgd_speed 1E+20)\n", "  (back_scrolling #)\n",
                              "  (interactive-tm  -32768 \n0 \n", "\n(a b (x -1) (y 2) (stay-on-platform #f))\n"}) {
        EXPECT_NE(LevelText.find(lines), std::string::npos) << lines;
    }
    EXPECT_EQ(LevelText.find("(height"), std::string::npos);
    ReadLevelFile(PathOf("level.fbl"));
    EXPECT_EQ(LevelRecord.version + LevelRecord.back_scrolling, "12)");
    EXPECT_EQ(LevelRecord.bkgd_speed, 120.0);
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
    const std::string lf = ";" + std::string(300, '-') + "\n(floebird-level\n";
    const struct {
        const char* what;
        std::string bytes;
        bool rests;
    } files[] = {
        {"layer cut off", Body("(width 21)\r\n(background-tm 1 2 3"), true},
        {"layer cut off, LF", lf + "(width 21)\n(background-tm 1 2\n", true},
        {"last line without digits", lf + "(width 21)\n(background-tm 1 2\nxy", true},
        {"last line fills the layer, then comes for ever", lf + "(width 21)\n(background-tm 1 2\nx5", true},
        {"a keyword without a line end", lf + "(time 5", true},
        {"a comment without a line end", ";" + std::string(300, '-'), true},
        {"points until they overflow", lf + "(reset-points\n(point (x 1) (y 2))", false},
        {"objects until they overflow", lf + "(objects\n(fish (x 1) (y 2))", false},
        {"whole", lf + "(time 5)\n)\n", false},
        {"whole, DOS", Body("(time 5)\r\n"), false},
    };
    for (const auto& [what, bytes, rests] : files) {
        SCOPED_TRACE(what);
        Restart();
        doubles = {};
        doubles.onWait = [] { throw GivenUp(); };
        bool rested = false;
        try {
            ReadLevel(bytes);
        } catch (const GivenUp&) {
            rested = true;
        }
        EXPECT_EQ(rested, rests);
    }
    doubles.onWait = [] { throw GivenUp(); };
    EXPECT_THROW(ReadInfoFile(Store("info", ";" + std::string(50, 'c') + "\r\n(title \"T\")\r\n)\r\n")), GivenUp);
}

TEST_F(LevelFilesTest, OddInfoFiles) {
    const std::pair<std::string, InfoRecord> cases[] = {
        {";c\r\n (TITLE \"A) cut\")\r\nnoise\r\n(DescriptionS \"d\")\r\n)\r\n;behind\r\n(title \"B\")\r\n",
         {";c", "A", "d"}},
        // 40 characters are one line still, 41 are a file with LF line ends.
        {";" + std::string(24, 'c') + "\n(title \"T\")\n\n)",
         {";" + std::string(24, 'c') + "\n(title \"T\")\n\n)", "", ""}},
        {";" + std::string(25, 'c') + "\n(title \"T\")\n)\n", {";" + std::string(25, 'c'), "T", ""}},
        {"", {}},
    };
    for (const auto& [bytes, info] : cases) {
        CurrentInfo = {};
        ReadInfoFile(Store("info", bytes));
        EXPECT_EQ(CurrentInfo, info);
    }
    ReadInfoFile("/nowhere/level1.fbl");
    WriteInfoFile("/nowhere/info");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber) << "every file is closed";
}

}  // namespace
