#include "core/SharedState.h"

std::string ProgramFolder;
std::string TitleText;
std::string GameFolder;
std::string DataFolder;
std::string LevelsFolder;
std::string UserLevelsFolder;
std::string ImagesFolder;
std::string BackgroundFolder;
std::string MusicFolder;
std::string WorldMapsFolder;
std::string FileNotFoundText;
std::string LogonName;

Level LevelRecord;
Preferences PrefsRecord;
World WorldRecord;
InfoRecord CurrentInfo;
InfoRecord NewInfo;
std::array<BadGuyType, BadGuyTypes> BadGuyTypeTable;

std::string& LevelPath = PrefsRecord.LevelPath;
std::string& WorldPath = PrefsRecord.WorldPath;
std::string& InfoPath = PrefsRecord.InfoPath;

Int16 LevelLoaded;
Int16 InfoCreated;
Int16 ModalDone;
Int16 WorldLoaded;
Int16 NewWorldPending;
Int16 WorldChanged;

Int16 LastMsgResult;
Int16 CurrentTile;
Int16 CurrentLayer;
Int16 CurrentMode;
Int16 CurrentTileSet;
Int16 CurrentObject;
Int16 SelectedBadGuy;
Int16 WorldReadError;
Int16 WorldCurrentTile;
Int16 CurrentLink;
Int16 LinkTypeChoice;
