#pragma once

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "tests/ScreenDriver.h"
#include "world/WorldReader.h"

// What the tests of the world map's screens share.

inline constexpr const char* Editor = "WorldFrm";
inline constexpr const char* LinkEditor = "LinkForm";
inline constexpr const char* Picker = "zTypeFrm";
inline constexpr const char* Properties = "WorldPropertiesFrm";

class WorldScreenTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        WorldMapsFolder = folder.string();
    }

    void TearDown() override {
        ResetWorld();  // what a test has broken must not keep its screens from closing
        WorldReadError = 0;
        for (const char* screen : {Picker, LinkEditor, Properties, Editor}) {
            if (IsOpen(screen)) {
                WindowOf(screen).takesInput = true;
                CloseScreen(screen);
            }
        }
        ScreenTest::TearDown();
    }

    /// A world of tile 9, in memory and without a path.
    static void MakeWorld(int width, int height) {
        ResetWorld();
        WorldRecord.width = width;
        WorldRecord.height = height;
        BuildBlankWorld();
    }

    static void OpenWithWorld(int width = 40, int height = 30) {
        MakeWorld(width, height);
        OpenWorldFrm();
    }

    static WorldLink& AddLink(int x, int y, int type) {
        AddInNewLink(x, y);
        CurrentLink = -1;
        WorldLink& link = WorldRecord.levels[WorldRecord.LinkCount];
        link.type = type;
        return link;
    }

    /// Opens the link editor on a link of `type` at (2, 3).
    static void OpenLink(int type) {
        OpenWithWorld();
        AddLink(2, 3, type);
        ClickOn(Editor, "ModeOption(2)");
        ClickOn(Editor, "LinkTypeBox(0)");
    }

    static std::string Img(int column, int row) { return "Img(" + std::to_string(column * 15 + row) + ")"; }
    static std::string Mode(int index) { return "ModeOption(" + std::to_string(index) + ")"; }
    static std::string Member(const std::string& name, int index) { return name + "(" + std::to_string(index) + ")"; }

    static void ShowsTile(int column, int row, int tile) {
        EXPECT_EQ(CellOf(Editor, Img(column, row)).Shown(), tile == 0 ? Picture() : WorldImages()[tile])
            << column << ", " << row << " does not show " << tile;
    }

    static void StandsOn(const std::string& sprite, int column, int row) {
        EXPECT_EQ(CellOf(Editor, sprite).Left(), CellOf(Editor, Img(column, row)).Left()) << sprite;
        EXPECT_EQ(CellOf(Editor, sprite).Top(), CellOf(Editor, Img(column, row)).Top()) << sprite;
    }
};
