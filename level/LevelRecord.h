#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/Arrays.h"
#include "platform/Int16.h"

/// The edge of a tile in level pixels.
inline constexpr int TileSize = 32;

/// Rows of the playing area, of every level: rows 0 to 14 are read, written and shown.
inline constexpr int LevelRows = 15;

/// Highest tile number that has a picture. 0 is the empty cell.
inline constexpr int LastTile = 204;

/// A place at which play resumes, in level pixels.
struct ResetPoint {
    Int16 x;
    Int16 y;

    bool operator==(const ResetPoint&) const = default;
};

/// An enemy.
struct BadGuy {
    Int16 kind;              ///< row of BadGuyTypeTable; 0 also when `name` is not in KeywordTable
    std::string name;        ///< the keyword as the file has it, so that an unknown kind survives load and save
    Int16 x;                 ///< level pixels
    Int16 y;                 ///< level pixels
    Int16 stay_on_platform;  ///< 1 or 0

    bool operator==(const BadGuy&) const = default;
};

/// The level. Fields bear the names of the file's keywords. A load does not clear the record first: a field
/// whose keyword the file lacks keeps the value of the level before.
struct Level {
    std::string LevelComment;  ///< the line above the level
    std::string version;
    std::string author;
    std::string name;
    Int16 width;        ///< tiles
    Int16 height;       ///< tiles as the file has it; read, write and view always take 15 rows
    Int16 start_pos_x;  ///< of the hero, level pixels
    Int16 start_pos_y;
    std::string background;  ///< picture file name
    std::string music;       ///< music file name
    Int16 bkgd_red_top;
    Int16 bkgd_green_top;
    Int16 bkgd_blue_top;
    Int16 bkgd_red_bottom;
    Int16 bkgd_green_bottom;
    Int16 bkgd_blue_bottom;
    double bkgd_speed = 0;
    double hor_autoscroll_speed = 0;
    Int16 time;
    double gravity = 0;
    std::string particle_system;
    std::string theme;
    std::string back_scrolling;  ///< one character as the file spells it, "t" or "f"; may be empty
    std::string EndComment;      ///< the line below the level; written, never read
    TileMap background_tm;       ///< columns 0 to width, rows 0 to 15 after a read
    TileMap foreground_tm;
    TileMap interactive_tm;
    Int16 ResetPointCount;
    Int16 BadGuyCount;
    EntryList<ResetPoint> reset_points;  ///< entries 1 to ResetPointCount
    EntryList<BadGuy> objects;           ///< entries 1 to BadGuyCount

    bool operator==(const Level&) const = default;
};

inline constexpr int BadGuyTypes = 10;

/// A kind of enemy, as a row of BadGuyTypeTable.
struct BadGuyType {
    std::string DisplayName;
    Int16 CountInUse;  ///< read and placed since the level was loaded; deleting does not lower it
};

/// What the files call the kinds, row for row beside BadGuyTypeTable.
inline constexpr std::array<std::string_view, BadGuyTypes> KeywordTable{
    "snowball", "bouncingsnowball", "mriceblock", "flyingsnowball", "spiky",
    "jumpy",    "mrbomb",           "flame",      "stalactite",     "fish",
};
