#include "level/LevelReader.h"

#include <algorithm>

#include "level/InfoFile.h"
#include "tests/Golden.h"
#include "tests/ModelTest.h"

namespace {

class LevelReaderTest : public ModelTest {
protected:
    static std::vector<ScriptedDialogs::Message> FileError() {
        return {{"File Specified Not Found!\r\nPlease choose another file.", "NUK File Read Error", MessageButtons::Ok,
                 MessageIcon::Stop}};
    }

    /// The first lines in which two texts differ; empty if they are equal to the byte.
    static std::string FirstDifference(const std::string& written, const std::string& expected) {
        const auto at = std::mismatch(written.begin(), written.end(), expected.begin(), expected.end());
        if (at.first == written.end() && at.second == expected.end()) {
            return "";
        }
        const auto lineAt = [](const std::string& text, std::string::const_iterator place) {
            const auto from = text.rfind('\n', static_cast<std::size_t>(place - text.begin()));
            return text.substr(from == std::string::npos ? 0 : from, 120);
        };
        return "written " + lineAt(written, at.first) + "\nexpected " + lineAt(expected, at.second);
    }

    /// A body of these lines, with DOS line ends, which need no least length.
    static std::string Body(const std::string& lines) { return ";c\r\n(floebird-level\r\n" + lines; }
};

/// Each case: a file as it may come, and what the program makes of it once it has read and written it.
TEST_F(LevelReaderTest, GoldenFolders) {
    const auto cases = GoldenFolders("level-");
    ASSERT_GE(cases.size(), 10U);
    for (const auto& golden : cases) {
        LevelRecord = {};
        ReadLevel(FileBytes(golden / "input.fbl"));
        EXPECT_TRUE(dialogs.messages.empty()) << golden;
        EXPECT_EQ(LevelLoaded, True) << golden;
        WriteLevelFile(PathOf("written.fbl"));
        EXPECT_EQ(FirstDifference(FileBytes(PathOf("written.fbl")), FileBytes(golden / "expected.fbl")), "") << golden;
    }
}

TEST_F(LevelReaderTest, EveryFailureGivesTheSameMessage) {
    const std::string cases[] = {
        "",                        // past the end at the first line
        Body("(time 32768)\r\n"),  // too large
        Body("(gravity)\r\n"),     // no number
        Body("(gravity 1.2.3)\r\n"),
        Body("(width 20)\r\n(background-tm 1 )\r\n"),  // maps that were never made
        Body("(width 21)\r\n(background-tm 32768 )\r\n"),
        Body("(objects\r\n(fish (x 40000) (y 1) (f #f))\r\n"),
        Body("(time " + std::string(32768, ' ') + "1)\r\n"),  // a line longer than a position may be
    };
    for (const std::string& bytes : cases) {
        LevelRecord = {};
        dialogs = {};
        ReadLevel(bytes);
        EXPECT_EQ(dialogs.messages, FileError()) << bytes;
        EXPECT_EQ(LevelLoaded, False) << bytes;
        EXPECT_EQ(LevelPath, PathOf("level.fbl"));
    }
    ReadLevelFile(PathOf("missing.fbl"));
    ReadLevelFile(folder.string());
    EXPECT_EQ(dialogs.messages.size(), 3U);
    EXPECT_EQ(FreeFileNumber(), static_cast<int>(std::size(cases)) + 1) << "failed reads keep their numbers";
}

TEST_F(LevelReaderTest, WhatWasStoredBeforeTheFaultStays) {
    ReadLevel(Body("(name \"New\")\r\n(reset-points\r\n(point (x 1) (y 2))\r\n)\r\n(time 99999)\r\n(music \"m\")\r\n"));
    EXPECT_EQ(LevelRecord.name, "New");
    EXPECT_EQ(LevelRecord.ResetPointCount, 1);
    EXPECT_EQ(LevelRecord.music, "");
}

TEST_F(LevelReaderTest, FieldsOfTheLevelBeforeStay) {
    LevelRecord.theme = "antarctica";
    LevelRecord.EndComment = ";; kept";
    LevelRecord.background_tm = TileMap(30, 15);
    LevelRecord.background_tm(30, 15) = 7;
    ReadLevel(Body("(width 20)\r\n(height 20)\r\n"));
    EXPECT_EQ(LevelRecord.theme, "antarctica");
    EXPECT_EQ(LevelRecord.EndComment, ";; kept");
    EXPECT_EQ(LevelRecord.width, 20);
    EXPECT_EQ(LevelRecord.background_tm(30, 15), 7);
    ReadLevel(Body("(width 21)\r\n(height 20)\r\n"));
    EXPECT_EQ(LevelRecord.background_tm, TileMap(21, 15));
    EXPECT_EQ(doubles.mapXScrollMax, 3);
}

TEST_F(LevelReaderTest, NewEntriesAreNew) {
    ReadLevel(Body("(objects\r\n(fish (x 320) (y 64) (stay-on-platform #t))\r\n)\r\n"));
    EXPECT_EQ(LevelRecord.objects[1], (BadGuy{9, "fish", 320, 64, 1}));
    EXPECT_EQ(BadGuyTypeTable[9].CountInUse, 1);
    ReadLevel(Body("(objects\r\n(other\r\n(second (z\r\n"));
    EXPECT_EQ(LevelRecord.BadGuyCount, 2);
    EXPECT_EQ(LevelRecord.objects[1], (BadGuy{0, "", 0, 0, 0}));
    EXPECT_EQ(LevelRecord.objects[2], (BadGuy{0, "second", 0, 0, 0}));
    EXPECT_EQ(BadGuyTypeTable[9].CountInUse, 0);
}

/// A file with LF line ends whose last line has none is delivered for ever; one character is lost instead.
TEST_F(LevelReaderTest, LoopsWithoutEndYield) {
    struct Escape {};
    const std::string longComment = ";" + std::string(300, 'c') + "\n";
    const std::string endless[] = {
        longComment + "(floebird-level\n(time 6)",
        longComment + "(floebird-level\n(width 21)\n(background-tm 1 2 3\n",
        ";" + std::string(256, 'c') + "\r\n(floebird-level\r\n",
    };
    for (const std::string& bytes : endless) {
        int looks = 0;
        doubles.onYield = [&] {
            if (++looks > 100000) {
                throw Escape();
            }
        };
        EXPECT_THROW(ReadLevel(bytes), Escape) << bytes.substr(300);
    }
    doubles.onYield = nullptr;
    ReadLevel(longComment + "(floebird-level\n(time 6)\n)");
    EXPECT_EQ(LevelRecord.time, 6);
    EXPECT_EQ(LevelLoaded, True);
}

TEST_F(LevelReaderTest, ThresholdOfLfMode) {
    const std::string rest = "\n(floebird-level\n(time 6)\n)\n";
    ReadLevel(";" + std::string(256 - 1 - rest.size(), 'c') + rest);
    EXPECT_EQ(LevelRecord.time, 0);
    ReadLevel(";" + std::string(257 - 1 - rest.size(), 'c') + rest);
    EXPECT_EQ(LevelRecord.time, 6);
    EXPECT_EQ(LevelRecord.LevelComment.size(), 257 - rest.size());
}

class InfoFileTest : public ModelTest {
protected:
    void ReadInfo(const std::string& bytes) const {
        CurrentInfo = {};
        Store("info", bytes);
        ReadInfoFile(PathOf("level1.fbl"));
    }
};

TEST_F(InfoFileTest, ReadsWhatItWrites) {
    CurrentInfo = {" kept as it stands", "A title", "And (more"};
    WriteInfoFile(PathOf("info"));
    EXPECT_EQ(FileBytes(PathOf("info")),
              " kept as it stands\n(floebird-level-subset\n  (title \"A title\")\n  (description \"And (more\")\n)\n");
    CurrentInfo = {" ", "T", "D"};
    WriteInfoFile(PathOf("info"));
    EXPECT_EQ(
        FileBytes(PathOf("info")),
        ";Generated by Quillhare's FB_Editor\n(floebird-level-subset\n  (title \"T\")\n  (description \"D\")\n)\n");
    CurrentInfo = {};
    ReadInfoFile(PathOf("info"));
    EXPECT_EQ(CurrentInfo, (InfoRecord{";Generated by Quillhare's FB_Editor", "T", "D"}));
}

TEST_F(InfoFileTest, OddFiles) {
    ReadInfo(";c\r\n (TITLE \"A) cut\")\r\nnoise\r\n(DescriptionS \"d\")\r\n)\r\n;behind\r\n(title \"B\")\r\n");
    EXPECT_EQ(CurrentInfo, (InfoRecord{";c", "A", "d"}));
    // 40 characters are one line still, 41 are a file with LF line ends.
    ReadInfo(";" + std::string(24, 'c') + "\n(title \"T\")\n\n)");
    EXPECT_EQ(CurrentInfo.title, "");
    ReadInfo(";" + std::string(25, 'c') + "\n(title \"T\")\n)\n");
    EXPECT_EQ(CurrentInfo.title, "T");
    ReadInfo("");
    EXPECT_EQ(CurrentInfo, InfoRecord());
    ReadInfoFile("/nowhere/level1.fbl");
    WriteInfoFile("/nowhere/info");
    EXPECT_TRUE(dialogs.messages.empty());
    EXPECT_EQ(FreeFileNumber(), FirstFileNumber) << "every file is closed";
}

}  // namespace
