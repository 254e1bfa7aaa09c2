#pragma once

#include <array>
#include <string>

#include "core/Preferences.h"
#include "level/LevelRecord.h"
#include "platform/Int16.h"
#include "world/WorldRecord.h"

// The process-wide state: one level, one world map, one record of preferences, and the selections that the
// screens share. Every screen reads and assigns it directly.

/// The set of levels that an `info` file describes.
struct InfoRecord {
    std::string comment;
    std::string title;
    std::string description;

    bool operator==(const InfoRecord&) const = default;
};

// Texts and folders, set at start and constant from then on. Folders end without a separator.
extern std::string ProgramFolder;     ///< the program's own; the help text and, if possible, the preferences lie in it
extern std::string TitleText;         ///< the normal title of MainFrm
extern std::string GameFolder;        ///< where the game lies
extern std::string DataFolder;        ///< GameFolder/data
extern std::string LevelsFolder;      ///< the game's own levels
extern std::string UserLevelsFolder;  ///< start folder of the level dialogs and parent of new level sets
extern std::string ImagesFolder;
extern std::string BackgroundFolder;
extern std::string MusicFolder;
extern std::string WorldMapsFolder;
extern std::string FileNotFoundText;  ///< the words for every failed read of a level
extern std::string LogonName;         ///< the user's name, in capitals, cut and filled with blanks to 16 characters

// Records.
extern Level LevelRecord;
extern Preferences PrefsRecord;
extern World WorldRecord;
extern InfoRecord CurrentInfo;  ///< the level set of the open level
extern InfoRecord NewInfo;      ///< what NewInfoFrm fills in
extern std::array<BadGuyType, BadGuyTypes> BadGuyTypeTable;

// Paths that are part of the preferences, under the names that the program uses.
extern std::string& LevelPath;  ///< full path of the open level, or empty
extern std::string& WorldPath;  ///< full path of the open world map, or empty
extern std::string& InfoPath;   ///< path of the INFO file last shown

// Flags: True (-1) or False (0).
extern Int16 LevelLoaded;      ///< a level has been read or created; never set back
extern Int16 InfoCreated;      ///< NewInfoFrm closed through Create
extern Int16 ModalDone;        ///< a screen that somebody waits for has closed
extern Int16 WorldLoaded;      ///< a world map is in memory and may be shown
extern Int16 NewWorldPending;  ///< the properties screen was opened for a new world
extern Int16 WorldChanged;     ///< the world has unsaved changes

// Selections.
extern Int16 LastMsgResult;     ///< button of the last question: 6 Yes, 7 No, 2 Cancel
extern Int16 CurrentTile;       ///< tile to paint with, 0 for the blank one
extern Int16 CurrentLayer;      ///< 0 background, 1 interactive, 2 foreground, 3 all
extern Int16 CurrentMode;       ///< 0 tiles, 1 place bad guys, 2 edit bad guys, 3 edit favorites
extern Int16 CurrentTileSet;    ///< 0 all tiles, 1 favorites A, 2 favorites B
extern Int16 CurrentObject;     ///< row of BadGuyTypeTable to place, or -1
extern Int16 SelectedBadGuy;    ///< entry of LevelRecord.objects selected on the map, from 1, or -1
extern Int16 WorldReadError;    ///< number of the last error of the world reader, 0 for none
extern Int16 WorldCurrentTile;  ///< world tile to paint with
extern Int16 CurrentLink;       ///< selected link, from 1; 0 for none at the clicked cell, -1 at first
extern Int16 LinkTypeChoice;    ///< answer of the link type picker, -1 for none
