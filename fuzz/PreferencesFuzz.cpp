#include "core/Preferences.h"

#include "fuzz/RoundTrip.h"

const std::string FileName = "FB_Editor.Preferences";
const std::vector<FaultNumber> StatedFaults;

void Make(Bytes& in) {
    Preferences& prefs = PrefsRecord;
    in.TakeAll(prefs.ScreenLeft, prefs.ScreenTop, prefs.LevelPath, prefs.SavedTile, prefs.SavedLayer, prefs.SavedMode,
               prefs.SavedObject, prefs.WorldPath, prefs.SavedWorldMode, prefs.SavedWorldX, prefs.SavedWorldY,
               prefs.SavedScroll, prefs.GridState, prefs.InfoPath, prefs.AutoState, prefs.SavedTileSet,
               prefs.FavoritesA, prefs.FavoritesB, prefs.DefaultAuthor, prefs.AddEndState, prefs.ResetState,
               prefs.IglooState, prefs.FloorTile, prefs.WorldAutoComplete, prefs.WorldFavorites);
}

void Write(const std::string&) { SavePreferences(); }

bool Read(const std::string&) {
    LoadPreferences();
    return true;
}
