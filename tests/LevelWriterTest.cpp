#include "level/LevelWriter.h"

#include "level/LevelReader.h"
#include "tests/Golden.h"
#include "tests/ModelTest.h"

namespace {

using LevelWriterTest = ModelTest;

TEST_F(LevelWriterTest, LineEndTexts) {
    UseDosLineEnds();
    EXPECT_EQ(CloseCloseQuoteLine, "\"))\r\n");
    EXPECT_EQ(CloseQuoteLine, "\")\r\n");
    UseUnixLineEnds();
    EXPECT_EQ(NL, "\n");
    EXPECT_EQ(CloseLine, ")\n");
    EXPECT_EQ(CloseCloseLine, "))\n");
    EXPECT_EQ(CloseQuoteLine, "\")\n");
    EXPECT_EQ(CloseCloseQuoteLine, "\"))\r\n");
}

TEST_F(LevelWriterTest, CommentsAreNormalisedInTheRecordToo) {
    const struct {
        const char* comment;
        const char* stored;
        const char* written;
    } first[] = {
        {"", "", ";Floebird-Level"}, {"  ", "", ";Floebird-Level"}, {" a ", "; a", "; a"}, {";;b", ";;b", ";;b"}};
    for (const auto& [comment, stored, written] : first) {
        LevelRecord.LevelComment = comment;
        BuildLevelText();
        EXPECT_EQ(LevelRecord.LevelComment, stored);
        EXPECT_TRUE(LevelText.starts_with(written + std::string("\r\n(floebird-level\r\n"))) << LevelText;
    }
    const struct {
        const char* comment;
        const char* stored;
    } last[] = {{" ", ""}, {"end", ";; end"}, {";end", ";; ;end"}, {" ;;end ", ";;end"}};
    for (const auto& [comment, stored] : last) {
        LevelRecord.EndComment = comment;
        BuildLevelText();
        EXPECT_EQ(LevelRecord.EndComment, stored);
        EXPECT_TRUE(LevelText.ends_with(")\r\n)\r\n" + std::string(stored) + (*stored != '\0' ? "\r\n" : "")))
            << LevelText;
    }
}

TEST_F(LevelWriterTest, NegativeNumbersAndFloats) {
    LevelRecord.width = 1;
    LevelRecord.height = -15;
    LevelRecord.background_tm = LevelRecord.interactive_tm = LevelRecord.foreground_tm = TileMap(1, 15);
    LevelRecord.interactive_tm(0, 0) = -32768;
    LevelRecord.start_pos_x = -5;
    LevelRecord.gravity = -1.0 / 3.0;
    LevelRecord.bkgd_speed = 1E20;
    LevelRecord.version = "1.2 beta";
    LevelRecord.back_scrolling = "";
    LevelRecord.objects.Resize(1);
    LevelRecord.objects[1] = {0, "a b", -1, 2, 7};
    LevelRecord.BadGuyCount = 1;
    UseUnixLineEnds();
    BuildLevelText();
    for (const char* lines : {"  (version 1.2 beta)\n", "  (width  1)\n  (start_pos_x -5)\n",
                              "  (gravity -0.333333333333333)\n", "  (bkgd_speed 1E+20)\n", "  (back_scrolling #)\n",
                              "  (interactive-tm  -32768 \n0 \n", "\n(a b (x -1) (y 2) (stay-on-platform #f))\n"}) {
        EXPECT_NE(LevelText.find(lines), std::string::npos) << lines;
    }
    EXPECT_EQ(LevelText.find("(height"), std::string::npos);
}

TEST_F(LevelWriterTest, NothingIsWrittenWithoutAPathOrMaps) {
    WriteLevelFile("  ");
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    // The fault of composing comes before the old file is touched.
    const std::string path = Store("level.fbl", "old");
    LevelRecord.width = 5;
    EXPECT_THROW(WriteLevelFile(path), Fault);
    EXPECT_EQ(FileBytes(path), "old");
    LevelRecord.width = 0;
    WriteLevelFile(path);
    EXPECT_TRUE(FileBytes(path).starts_with(";Floebird-Level\n(floebird-level\n  (version )\n"));
    WriteLevelFile(PathOf("no/folder/level.fbl"));
    EXPECT_TRUE(dialogs.messages.empty());
}

/// Where reading is not the inverse of writing.
TEST_F(LevelWriterTest, WhatAReloadLoses) {
    LevelRecord.version = "1.2";
    LevelRecord.name = "A \"quoted\" (part) of it";
    LevelRecord.start_pos_x = -64;
    LevelRecord.bkgd_speed = 1E20;
    LevelRecord.hor_autoscroll_speed = -2.5;
    LevelRecord.EndComment = "end";
    const std::string path = PathOf("level.fbl");
    WriteLevelFile(path);
    ReadLevelFile(path);
    EXPECT_EQ(LevelRecord.version, "12");
    EXPECT_EQ(LevelRecord.name, "A ");
    EXPECT_EQ(LevelRecord.start_pos_x, 64);
    EXPECT_EQ(LevelRecord.bkgd_speed, 120.0);
    EXPECT_EQ(LevelRecord.hor_autoscroll_speed, 2.5);
    EXPECT_EQ(LevelRecord.back_scrolling, ")");
    EXPECT_EQ(LevelRecord.EndComment, ";; end");
    WriteLevelFile(path);
    EXPECT_NE(FileBytes(path).find("(back_scrolling #))\n"), std::string::npos);
}

}  // namespace
