#include "world/WorldWriter.h"

#include "platform/Fault.h"
#include "tests/Golden.h"
#include "tests/WorldTest.h"

namespace {

class WorldWriterTest : public WorldTest {
protected:
    /// The text of a 1 by 1 map, up to and including the line of `levels`.
    static constexpr const char* Front =
        ";; Created by Quillhare FB_Editor\n"
        "(floebird-worldmap\n"
        "  (properties\n"
        "    (name \"default_test\")\n"
        "    (music \"SALCON.MOD\")\n"
        "    (start_pos_x 3)\n"
        "    (start_pos_y 3))\n"
        "  (tilemap\n"
        "    (width  1)\n"
        "    (height 1)\n"
        "    (data\n"
        "       9  \n"
        "       ))\n"
        "(levels\n";
    static constexpr const char* Back = "      ))\n";

    static void MakeSmallWorld() {
        ResetWorld();
        WorldRecord.width = WorldRecord.height = 1;
        BuildBlankWorld();
    }

    static WorldLink& AddLink(int type) {
        AddInNewLink(4, 5);
        WorldLink& link = WorldRecord.levels[CurrentLink];
        link.type = type;
        link.comment = ";; comment";
        link.name = "one.fbl";
        link.message = "hello";
        link.dest_x = 6;
        link.dest_y = -7;
        return link;
    }
};

TEST_F(WorldWriterTest, GoldenFiles) {
    const auto folders = GoldenFolders("world-");
    ASSERT_FALSE(folders.empty());
    for (const auto& folder : folders) {
        SCOPED_TRACE(folder);
        const std::string expected = FileBytes(folder / "expected.fbwm");
        // What has been written reads back to the same bytes.
        for (const std::string& input : {FileBytes(folder / "input.fbwm"), expected}) {
            Read(input);
            ASSERT_EQ(WorldReadError, 0);
            BuildWorldText();
            WriteWorldFile(Path());
            EXPECT_EQ(FileBytes(Path()), expected);
        }
    }
}

TEST_F(WorldWriterTest, HeaderComment) {
    MakeSmallWorld();
    const struct {
        const char* before;
        const char* after;
    } cases[] = {{"", ";; Created by Quillhare FB_Editor"},
                 {"; one", ";; Created by Quillhare FB_Editor"},
                 {"  ;; mine  ", ";; mine"},
                 {";;", ";;"}};
    for (const auto& [before, after] : cases) {
        WorldRecord.comments[0] = before;
        BuildWorldText();
        EXPECT_EQ(WorldRecord.comments[0], after);
        EXPECT_EQ(WorldOutput.substr(0, WorldOutput.find("\n(")), after);
    }
}

struct LinkCase {
    int type;
    void (*change)(WorldLink& link);
    const char* text;
    int readError;  ///< what reading the text gives
};

TEST_F(WorldWriterTest, LinksByType) {
    const LinkCase cases[] = {
        {NoLink, [](WorldLink&) {}, "     (level ", 48},
        {9, [](WorldLink&) {}, "     (level ", 48},
        {CommentLink, [](WorldLink&) {}, "     (level         ;; comment\n", 49},
        {LevelLink, [](WorldLink&) {},
         "     (level (name \"one.fbl\")\n"
         "           (x  4)\n"
         "           (y  5))\n",
         0},
        {LevelLink, [](WorldLink& link) { link.extro_filename = " e f "; },
         "     (level (name \"one.fbl\")\n"
         "           (x  4)\n"
         "           (y  5)\n"
         "           (extro-filename \"e f\"))\r\n",
         0},
        {LevelLink, [](WorldLink& link) { link.name = "a\"b"; },
         "     (level (name \"a\"b\")\n"
         "           (x  4)\n"
         "           (y  5))\n",
         34},
        {MessageLink, [](WorldLink&) {},
         "     (level  (map-message \"hello\")\n"
         "           (x 4)\n"
         "           (y 5)\n"
         ")\n",
         0},
        {MessageLink,
         [](WorldLink& link) {
             link.apply_action_up = "u";
             link.apply_action_down = "d";
             link.apply_action_left = "l";
             link.apply_action_right = "r";
         },
         "     (level  (map-message \"hello\")\n"
         "           (x 4)\n"
         "           (y 5)\n"
         "           (apply-action-left #l)\n"
         "           (apply-action-right #r)\n"
         "           (apply-action-up #u)\n"
         "           (apply-action-down #d)\n"
         ")\n",
         0},
        {TeleportLink, [](WorldLink&) {},
         "     (level            (x 4)\n"
         "           (y 5)\n"
         "           (teleport-message \"hello\")\n"
         "           (dest_x 6)\n"
         "           (dest_y -7))\n",
         0},
        {InvisibleLink, [](WorldLink&) {},
         "     (level            (x 4)\n"
         "           (y 5)\n"
         "           (invisible-teleporter #\")\n"
         "           (dest_x 6)\n"
         "           (dest_y -7))\n",
         0},
        {InvisibleLink, [](WorldLink& link) { link.invisible_teleporter = "t"; },
         "     (level            (x 4)\n"
         "           (y 5)\n"
         "           (invisible-teleporter #\"t)\n"
         "           (dest_x 6)\n"
         "           (dest_y -7))\n",
         39},
    };
    for (const LinkCase& linkCase : cases) {
        SCOPED_TRACE(linkCase.text);
        MakeSmallWorld();
        linkCase.change(AddLink(linkCase.type));
        AddLink(LevelLink);
        BuildWorldText();
        EXPECT_EQ(WorldOutput, Front + std::string(linkCase.text) +
                                   "     (level (name \"one.fbl\")\n           (x  4)\n           (y  5))\n" + Back);
        Read(WorldOutput);
        EXPECT_EQ(WorldReadError, linkCase.readError);
    }
}

TEST_F(WorldWriterTest, AQuoteIsAllThatAnEmptyFlagComesBackAs) {
    MakeSmallWorld();
    AddLink(InvisibleLink);
    BuildWorldText();
    Read(WorldOutput);
    EXPECT_EQ(WorldRecord.levels[1].invisible_teleporter, "\"");
}

TEST_F(WorldWriterTest, SizeAndTiles) {
    MakeSmallWorld();
    WorldRecord.width = 2;
    EXPECT_NO_THROW(BuildWorldText());  // the spare column is there to be written
    WorldRecord.width = 3;
    EXPECT_THROW(BuildWorldText(), Fault);
    WorldRecord.width = 0;
    BuildWorldText();
    EXPECT_NE(WorldOutput.find("    (width  0)\n    (height 1)\n    (data\n       \n       ))\n"), std::string::npos);
}

TEST_F(WorldWriterTest, StoresWhatWasComposed) {
    MakeSmallWorld();
    BuildWorldText();
    WorldChanged = True;
    WriteWorldFile("");
    EXPECT_EQ(WorldChanged, True);
    Store(std::string(1000, 'x'));
    WriteWorldFile(Path());
    EXPECT_EQ(FileBytes(Path()), Front + std::string(Back));
    EXPECT_EQ(WorldChanged, False);
    EXPECT_TRUE(dialogs.messages.empty());

    WorldChanged = True;
    WriteWorldFile("/nowhere/at/all.fbwm");
    const std::vector<ScriptedDialogs::Message> box{
        {"Error Saving World Map Data!", "FB_Editor - Save World Map", MessageButtons::Ok, MessageIcon::Stop}};
    EXPECT_EQ(dialogs.messages, box);
    EXPECT_EQ(WorldChanged, True);
}

}  // namespace
