#include "tests/WorldScreens.h"

// The properties of a world, through their window.

namespace {

using Message = ScriptedDialogs::Message;

class WorldPropertiesTest : public WorldScreenTest {
protected:
    static void OpenProperties(int width = 40, int height = 30) {
        OpenWithWorld(width, height);
        ClickOn(Editor, "WTB(8)");
    }

    static void OpenNewWorld() {
        OpenWorldFrm();
        dialogs.answers = {AnswerYes};
        ClickOn(Editor, "WTB(1)");
    }
};

TEST_F(WorldPropertiesTest, ANewWorldIsMadeWhenTheScreenCloses) {
    for (const char* closing : {"OKCmd", "close box"}) {
        SCOPED_TRACE(closing);
        SetUp();
        OpenNewWorld();
        ASSERT_EQ(dialogs.messages.size(), 1U);
        EXPECT_EQ(dialogs.messages[0], (Message{"Do you wish to create a new world?", "Floebird New World Creation",
                                                MessageButtons::YesNo, MessageIcon::Question}));
        EXPECT_FALSE(WindowOf(Editor).takesInput);
        EXPECT_EQ(TextOf(Properties, "WidthBox"), "19");
        EXPECT_EQ(TextOf(Properties, "HeightBox"), "16");
        ScrollTo(Properties, "XScroll", 512);
        EXPECT_EQ(TextOf(Properties, "WidthBox"), "512");
        EXPECT_EQ(WorldLoaded, False);
        if (closing[0] == 'O') {
            ClickOn(Properties, closing);
        } else {
            CloseScreen(Properties);
        }
        EXPECT_EQ(WorldLoaded, True);
        EXPECT_EQ(NewWorldPending, False);
        EXPECT_TRUE(WindowOf(Editor).takesInput);
        EXPECT_EQ(WorldRecord.tiles(511, 15), 9);
        EXPECT_EQ(WorldRecord.tiles(512, 15), 0);
        EXPECT_EQ(WorldRecord.tiles(511, 16), 0);
        ShowsTile(17, 14, 9);
        EXPECT_EQ(ScrollMaxOf(Editor, "MapXScroll"), 494);
        TearDown();
    }
}

TEST_F(WorldPropertiesTest, NoLeavesTheOldWorld) {
    OpenWithWorld();
    dialogs.answers = {AnswerNo};
    ClickOn(Editor, "WTB(1)");
    EXPECT_EQ(WorldLoaded, True);
    EXPECT_FALSE(IsOpen(Properties));
}

TEST_F(WorldPropertiesTest, SizesHaveTheirLimits) {
    OpenProperties();
    const struct {
        const char* box;
        const char* text;
        bool taken;
    } cases[] = {{"WidthBox", "18", false},   {"WidthBox", "19", true},   {"WidthBox", "1023", true},
                 {"WidthBox", "1024", false}, {"HeightBox", "15", false}, {"HeightBox", "16", true},
                 {"HeightBox", "256", true},  {"HeightBox", "257", false}};
    for (const auto& [box, text, taken] : cases) {
        SCOPED_TRACE(std::string(box) + " " + text);
        const bool width = box[0] == 'W';
        dialogs.messages.clear();
        TypeInto(Properties, box, text);
        EXPECT_EQ((width ? WorldRecord.width : WorldRecord.height) == std::stoi(text), taken);
        ASSERT_FALSE(dialogs.messages.empty()) << "the first digit alone is refused";
        const std::string what = width ? "World Map Width" : "World Map Height";
        EXPECT_EQ(dialogs.messages.back(), (Message{what + "\r\nMust be between 19 and 1023", what + " Error",
                                                    MessageButtons::Ok, MessageIcon::Stop}));
    }
    EXPECT_EQ(TextOf(Properties, "HeightBox"), "257");
}

TEST_F(WorldPropertiesTest, TypingASizeComplainsOnTheWay) {
    OpenProperties();
    TypeInto(Properties, "WidthBox", "120");
    EXPECT_EQ(dialogs.messages.size(), 2U);
    EXPECT_EQ(WorldRecord.width, 120);
    EXPECT_EQ(ScrollValueOf(Properties, "XScroll"), 40) << "the bar waits for the next refresh";
    TypeInto(Properties, "HeightBox", "9");
    PressKey(Properties, "HeightBox", Qt::Key_Return);
    EXPECT_EQ(TextOf(Properties, "HeightBox"), "30");
    EXPECT_EQ(ScrollValueOf(Properties, "XScroll"), 120);
    EXPECT_EQ(WorldRecord.tiles.Columns(), 41) << "the tiles stay as they were";
}

TEST_F(WorldPropertiesTest, TextsReachTheRecordAtOnce) {
    OpenProperties();
    TypeInto(Properties, "NameBox", "Bay");
    TypeInto(Properties, "CommentBox", ";; mine");
    TypeInto(Properties, "StartXBox", "700");
    TypeInto(Properties, "StartYBox", "-5");
    EXPECT_EQ(WorldRecord.name, "Bay");
    EXPECT_EQ(WorldRecord.comments[0], ";; mine");
    EXPECT_EQ(WorldRecord.start_pos_x, 700);
    EXPECT_EQ(WorldRecord.start_pos_y, 5) << "a minus sign is no key of these boxes";
    dialogs.files = {(folder / "SONG.MOD").string(), "else.fbwm"};
    ClickOn(Properties, "MusicBox");
    EXPECT_EQ(WorldRecord.music, "SONG.MOD");
    EXPECT_EQ(CaptionOf(Properties, "MusicBox"), "SONG.MOD");
    ClickOn(Properties, "FNBox");
    ClickOn(Properties, "MusicBox");  // cancelled
    EXPECT_EQ(WorldPath, "");
    EXPECT_EQ(WorldRecord.music, "SONG.MOD");
    ASSERT_EQ(dialogs.fileDialogs.size(), 3U);
    EXPECT_EQ(dialogs.fileDialogs[0].folder, MusicFolder);
    EXPECT_EQ(dialogs.fileDialogs[0].proposedName, "SALCON.MOD");
    EXPECT_EQ(dialogs.fileDialogs[1].folder, WorldMapsFolder);
}

TEST_F(WorldPropertiesTest, ActionsThatAreFatal) {
    const struct {
        const char* what;
        int width;
        void (*act)();
        FaultNumber fault;
    } cases[] = {
        {"an empty start", 40, [] { PressKey(Properties, "StartXBox", Qt::Key_Backspace); }, FaultNumber::TypeMismatch},
        {"too large a start", 40, [] { TypeInto(Properties, "StartYBox", "32768"); }, FaultNumber::Overflow},
        {"a refresh with a width that the bar lacks", 40,
         [] {
             TypeInto(Properties, "WidthBox", "513");
             PressKey(Properties, "StartXBox", Qt::Key_Return);
         },
         FaultNumber::InvalidPropertyValue},
        {"music after such a width", 40,
         [] {
             TypeInto(Properties, "WidthBox", "600");
             dialogs.files = {"song.mod"};
             ClickOn(Properties, "MusicBox");
         },
         FaultNumber::InvalidPropertyValue},
        {"opening with such a width", 513, [] {}, FaultNumber::InvalidPropertyValue},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        SetUp();
        OpenProperties(row.width);
        if (IsOpen(Properties)) {
            ControlOf<QWidget>(Properties, "StartXBox").setFocus();
            QMetaObject::invokeMethod(&ControlOf<QWidget>(Properties, "StartXBox"), "selectAll");
        }
        row.act();
        EXPECT_EQ(dialogs.fatalFault.value_or(FaultNumber{}), row.fault);
        TearDown();
    }
}

}  // namespace
