#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/Arrays.h"
#include "platform/Int16.h"

/// What a link is, as its `type` says. The file has no key for it: other keys imply it.
enum WorldLinkType { NoLink = 0, CommentLink = 1, LevelLink = 2, MessageLink = 3, TeleportLink = 4, InvisibleLink = 5 };

/// The names of the link types, by `type`.
inline constexpr std::array<std::string_view, 6> LinkTypeTable{"",        "Comment",  "Level Link",
                                                               "Message", "Teleport", "Invisible"};

/// A cell of the map that leads to a level, shows a message or teleports. A flag text is the letter behind
/// "#" in the file ("t" or "f"), or empty for a flag that the file does not hold.
struct WorldLink {
    Int16 type;                        ///< a WorldLinkType
    std::string comment;               ///< type 1
    std::string name;                  ///< type 2, level path relative to the levels' folder
    std::string message;               ///< types 3 and 4
    std::string extro_filename;        ///< type 2
    std::string invisible_teleporter;  ///< type 5, flag
    std::string apply_action_up;       ///< type 3, flag
    std::string apply_action_down;
    std::string apply_action_left;
    std::string apply_action_right;
    Int16 x;  ///< map column, from 0
    Int16 y;  ///< map row, from 0
    Int16 dest_x;
    Int16 dest_y;

    bool operator==(const WorldLink&) const = default;
};

/// The world map. Fields bear the names of the file's keywords; ResetWorld gives the defaults.
struct World {
    std::string name;
    std::string music;
    Int16 start_pos_x;  ///< column of the hero
    Int16 start_pos_y;  ///< row of the hero
    Int16 width;        ///< columns
    Int16 height;       ///< rows
    Int16 LinkCount;
    Int16 CommentCount;
    EntryList<std::string> comments;  ///< entry 0 is the file's header comment; 1 to CommentCount the ones read
    TileMap tiles;                    ///< columns 0 to width, rows 0 to height; the last of each is never shown
    EntryList<WorldLink> levels;      ///< entries 1 to LinkCount

    bool operator==(const World&) const = default;
};
