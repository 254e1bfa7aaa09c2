#pragma once

#include <array>
#include <string>

#include "platform/Int16.h"

/// The place of each screen's position in ScreenLeft and ScreenTop. The order is that of the file.
enum class ScreenIndex {
    MainFrm = 0,
    NewInfoFrm = 1,
    NukTextFrm = 2,
    VarsFrm = 3,
    HelpFrm = 4,
    WorldFrm = 5,
    LinkForm = 6,
    WorldPropertiesFrm = 7,
    zTypeFrm = 8,
    BackGndFrm = 9,
    zBGEditFrm = 10,
};

/// How the program was left: stored whole in one binary file, read once at start. A missing or short file
/// gives zeros and empty texts, and each user of a field deals with that value.
struct Preferences {
    std::array<Int16, 16> ScreenLeft;  ///< pixels, by ScreenIndex; the frame's left edge
    std::array<Int16, 16> ScreenTop;
    std::string LevelPath;
    Int16 SavedTile;
    Int16 SavedLayer;
    Int16 SavedMode;
    Int16 SavedObject;
    std::string WorldPath;
    Int16 SavedWorldMode;
    Int16 SavedWorldX;
    Int16 SavedWorldY;
    Int16 SavedScroll;
    Int16 GridState;  ///< 0 or 1
    std::string InfoPath;
    Int16 AutoState;  ///< 0 or 1
    Int16 SavedTileSet;
    std::array<Int16, 32> FavoritesA;
    std::array<Int16, 32> FavoritesB;
    std::string DefaultAuthor;
    Int16 AddEndState;  ///< 0 or 1
    Int16 ResetState;   ///< 0 or 1
    Int16 IglooState;   ///< 0 or 1
    Int16 FloorTile;
    Int16 WorldAutoComplete;
    std::array<Int16, 77> WorldFavorites;

    bool operator==(const Preferences&) const = default;
};

/// The full path of the file: "FB_Editor.Preferences" in ProgramFolder, or in the user's configuration folder where
/// that cannot be written.
[[nodiscard]] std::string PreferencesPath();

/// Reads PrefsRecord from the file, making an empty one if there is none. The faults of Files.h.
void LoadPreferences();

/// Writes PrefsRecord to the file. Does not cut the file off: old bytes may remain behind the record. Fault 6 for a
/// text of more than 65535 bytes, with the file as it was; the faults of Files.h.
void SavePreferences();
