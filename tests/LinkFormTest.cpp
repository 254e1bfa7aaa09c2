#include <QTimer>

#include "tests/WorldScreens.h"
#include "world/LinkForm.h"

// The link editor and its type picker, through their windows.

namespace {

class LinkFormTest : public WorldScreenTest {
protected:
    /// Clicks TypeBox and does `answer` once the picker is open. Comes back when the waiting is over.
    template <typename Answer>
    static void AskForType(Answer answer) {
        QTimer::singleShot(0, answer);
        ClickOn(LinkEditor, "TypeBox");
    }

    static const WorldLink& Link() { return WorldRecord.levels[1]; }
};

TEST_F(LinkFormTest, TypesEnableTheirFields) {
    const struct {
        int type;
        const char* name;
        bool message, level, destination, actions;
    } types[] = {{2, "Level Link", false, true, false, false},
                 {3, "Message", true, false, false, true},
                 {4, "Teleport", true, false, true, false},
                 {5, "Invisible", true, false, true, false}};
    OpenLink(LevelLink);
    for (const auto& row : types) {
        SCOPED_TRACE(row.name);
        AskForType([&] { ClickOn(Picker, Member("TypeBox", row.type - 2)); });
        EXPECT_EQ(CaptionOf(LinkEditor, "TypeBox"), row.name);
        EXPECT_EQ(IsEnabled(LinkEditor, "MessageBox"), row.message);
        EXPECT_EQ(IsEnabled(LinkEditor, "NameBox"), row.level);
        EXPECT_EQ(IsEnabled(LinkEditor, "ExtroBox"), row.level);
        EXPECT_EQ(IsEnabled(LinkEditor, "DestXBox"), row.destination);
        EXPECT_EQ(IsEnabled(LinkEditor, "DestYBox"), row.destination);
        EXPECT_EQ(IsEnabled(LinkEditor, "ApplyUpCheck"), row.actions);
        EXPECT_EQ(IsEnabled(LinkEditor, "ApplyRightCheck"), row.actions);
        EXPECT_TRUE(IsEnabled(LinkEditor, "XBox"));
    }
    EXPECT_EQ(Link().type, LevelLink) << "only OK writes back";
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(Link().type, InvisibleLink);
}

TEST_F(LinkFormTest, ThePickerCanBeLeftWithoutAnAnswer) {
    OpenLink(TeleportLink);
    AskForType([] { ClickOn(Picker, "CancelCmd"); });
    EXPECT_EQ(CaptionOf(LinkEditor, "TypeBox"), "Teleport");
    AskForType([] { CloseScreen(Picker); });
    EXPECT_EQ(CaptionOf(LinkEditor, "TypeBox"), "Teleport");
    EXPECT_EQ(LinkTypeChoice, -1);
}

/// While the picker is open its asker is alive: it may ask once more, and it may be closed.
TEST_F(LinkFormTest, ThePickersWaitCanBeNestedAndAbandoned) {
    OpenLink(LevelLink);
    AskForType([] { AskForType([] { ClickOn(Picker, "TypeBox(1)"); }); });
    EXPECT_EQ(CaptionOf(LinkEditor, "TypeBox"), "Message");
    AskForType([] {
        CloseScreen(LinkEditor);
        DeliverEvents();
        EXPECT_TRUE(WindowOf(Editor).takesInput);
        ClickOn(Editor, "LinkTypeBox(0)");
        AskForType([] { ClickOn(Picker, "TypeBox(2)"); });
    });
    EXPECT_EQ(CaptionOf(LinkEditor, "TypeBox"), "Teleport");
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(Link().type, TeleportLink);
    EXPECT_EQ(dialogs.fatalFault, std::nullopt);
}

TEST_F(LinkFormTest, EditsReachTheListThroughOk) {
    OpenLink(MessageLink);
    TypeInto(LinkEditor, "MessageBox", "Mind the gap");
    TypeInto(LinkEditor, "CommentBox", "; note");
    TypeInto(LinkEditor, "XBox", "1x2-");
    TypeInto(LinkEditor, "YBox", "34");
    EXPECT_EQ(Link().message, "");
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(Link().message, "Mind the gap");
    EXPECT_EQ(Link().comment, "; note");
    EXPECT_EQ(Link().x, 12);
    EXPECT_EQ(Link().y, 34);
    EXPECT_FALSE(IsOpen(LinkEditor));
}

TEST_F(LinkFormTest, CancelDropsTheEditsButCountsAsAChange) {
    OpenLink(TeleportLink);
    WorldChanged = False;
    TypeInto(LinkEditor, "DestXBox", "9");
    PressKey(LinkEditor, "DestXBox", Qt::Key_Return);
    EXPECT_EQ(TextOf(LinkEditor, "DestXBox"), "9");
    ClickOn(LinkEditor, "CancelCmd");
    EXPECT_EQ(Link().dest_x, 0);
    EXPECT_EQ(WorldChanged, True);
    EXPECT_TRUE(WindowOf(Editor).takesInput);
}

TEST_F(LinkFormTest, FlagsAreSwitchedOffOrLeft) {
    OpenLink(MessageLink);
    ClickOn(LinkEditor, "CancelCmd");
    DeliverEvents();
    WorldLink& link = WorldRecord.levels[1];
    link.apply_action_left = "F";
    link.apply_action_right = "t";
    link.apply_action_up = "";
    link.apply_action_down = "f";
    ClickOn(Editor, "LinkTypeBox(0)");
    EXPECT_FALSE(IsTicked(LinkEditor, "ApplyLeftCheck"));
    EXPECT_TRUE(IsTicked(LinkEditor, "ApplyRightCheck"));
    EXPECT_TRUE(IsTicked(LinkEditor, "ApplyUpCheck"));
    EXPECT_FALSE(IsTicked(LinkEditor, "ApplyDownCheck"));
    ClickOn(LinkEditor, "ApplyUpCheck");
    ClickOn(LinkEditor, "ApplyDownCheck");
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(link.apply_action_left, "F") << "what nobody has clicked stays";
    EXPECT_EQ(link.apply_action_right, "t");
    EXPECT_EQ(link.apply_action_up, "f");
    EXPECT_EQ(link.apply_action_down, "");
}

TEST_F(LinkFormTest, DeletingMovesLaterLinksDown) {
    OpenWithWorld();
    for (int n = 1; n <= 3; ++n) {
        AddLink(n, n, MessageLink);
    }
    ClickOn(Editor, Mode(2));
    for (const int row : {1, 1}) {  // a middle one, then the last
        ClickOn(Editor, Member("LinkNumBox", row));
        ClickOn(LinkEditor, "DelCmd");
        DeliverEvents();
    }
    EXPECT_EQ(WorldRecord.LinkCount, 1);
    EXPECT_EQ(WorldRecord.levels[1].x, 1);
    EXPECT_EQ(CurrentLink, 2);
    EXPECT_FALSE(IsShown(Editor, "LinkIndImg(1)"));
    EXPECT_FALSE(IsShown(Editor, "DotImg(2)"));
}

TEST_F(LinkFormTest, LevelNamesLoseAFixedCountOfCharacters) {
    UserLevelsFolder = "/game/.floebird/levels";
    const std::pair<const char*, const char*> names[] = {
        {"/game/.floebird/levels/mine/level1.fbl", "mine/level1.fbl"},
        {"/game/.floebird/levels\\mine\\level1.fbl", "mine/level1.fbl"},
        {"/game/data/levels/world1/level1.fbl", "1/level1.fbl"},
        {"/game/.floebird/levels", ""},
        {"/game/.floebird/levels/", ""},
        {"/game/x.fbl", ""},
        {"                                  ", ""},
    };
    for (const auto& [path, name] : names) {
        EXPECT_EQ(GetLevelLinkName(path), name) << path;
    }
}

TEST_F(LinkFormTest, FilesAreChosenByDialogs) {
    OpenLink(LevelLink);
    const std::string extro = "/game/data/levels/texts\\end.txt";
    dialogs.files = {UserLevelsFolder + "/set/a.fbl", extro, "/x.fbl"};
    ClickOn(LinkEditor, "NameBox");
    EXPECT_EQ(CaptionOf(LinkEditor, "NameBox"), "set/a.fbl");
    ClickOn(LinkEditor, "ExtroBox");
    EXPECT_EQ(CaptionOf(LinkEditor, "ExtroBox"), extro);
    LevelPath = "/sets/one/level.fbl";
    ClickOn(LinkEditor, "NameBox");
    EXPECT_EQ(CaptionOf(LinkEditor, "NameBox"), "") << "too short a path clears the name";
    ClickOn(LinkEditor, "ExtroBox");  // cancelled
    ClickOn(LinkEditor, "OKCmd");
    EXPECT_EQ(Link().extro_filename, extro);
    const FileDialogSetup expected[] = {{"*.fbl|*.fbl", UserLevelsFolder, ""},
                                        {"*.txt|*.txt", LevelsFolder, ""},
                                        {"*.fbl|*.fbl", "/sets/one/level.fbl", ""},
                                        {"*.txt|*.txt", LevelsFolder, extro}};
    ASSERT_EQ(dialogs.fileDialogs.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(dialogs.fileDialogs[i].filter, expected[i].filter);
        EXPECT_EQ(dialogs.fileDialogs[i].folder, expected[i].folder);
        EXPECT_EQ(dialogs.fileDialogs[i].proposedName, expected[i].proposedName);
    }
}

TEST_F(LinkFormTest, ABoxWithoutANumberIsFatal) {
    for (const char* box : {"XBox", "YBox", "DestXBox", "DestYBox"}) {
        SCOPED_TRACE(box);
        SetUp();
        OpenLink(TeleportLink);
        TypeInto(LinkEditor, box, "32767");
        EXPECT_EQ(dialogs.fatalFault, std::nullopt);
        TypeInto(LinkEditor, box, "32768");
        EXPECT_EQ(dialogs.fatalFault, FaultNumber::Overflow);
        dialogs.fatalFault.reset();
        TypeInto(LinkEditor, box, "5");
        PressKey(LinkEditor, box, Qt::Key_Backspace);
        EXPECT_EQ(dialogs.fatalFault, FaultNumber::TypeMismatch);
        TearDown();
    }
}

}  // namespace
