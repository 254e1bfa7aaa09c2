#include "core/StartUp.h"

#include "tests/ModelTest.h"

// The preferences.

namespace {

using PreferencesTest = ModelTest;

std::string Word(int number) { return {static_cast<char>(number & 0xFF), static_cast<char>((number >> 8) & 0xFF)}; }

/// All fields different from each other, and the bytes that the file holds for them.
std::string FillRecord() {
    Preferences& p = PrefsRecord;
    int next = 1000;
    std::string bytes;
    const auto numbers = [&](const auto& fields) {
        for (Int16* field : fields) {
            *field = next;
            bytes += Word(next++);
        }
    };
    const auto array = [&](auto& fields) {
        for (Int16& field : fields) {
            numbers(std::initializer_list<Int16*>{&field});
        }
    };
    using Fields = std::initializer_list<Int16*>;
    const auto text = [&](std::string& field, const std::string& value) {
        field = value;
        bytes += Word(static_cast<int>(value.size())) + value;
    };
    array(p.ScreenLeft);
    array(p.ScreenTop);
    bytes += std::string(32, '\0');
    text(p.LevelPath, "/levels/\xE9.fbl");
    numbers(Fields{&p.SavedTile, &p.SavedLayer, &p.SavedMode, &p.SavedObject});
    bytes += std::string(2 + 1, '\0');
    text(p.WorldPath, "");
    numbers(Fields{&p.SavedWorldMode, &p.SavedWorldX, &p.SavedWorldY, &p.SavedScroll});
    bytes += std::string(2, '\0');
    numbers(Fields{&p.GridState});
    text(p.InfoPath, std::string(300, 'i'));
    numbers(Fields{&p.AutoState, &p.SavedTileSet});
    array(p.FavoritesA);
    array(p.FavoritesB);
    text(p.DefaultAuthor, "Ann");
    numbers(Fields{&p.AddEndState, &p.ResetState, &p.IglooState, &p.FloorTile});
    bytes += std::string(2, '\0');
    numbers(Fields{&p.WorldAutoComplete});
    array(p.WorldFavorites);
    return bytes;
}

TEST_F(PreferencesTest, FileHoldsTheFieldsInOrder) {
    const std::string path = PathOf("FB_Editor.Preferences");
    const std::string bytes = FillRecord();
    const Preferences saved = PrefsRecord;
    SavePreferences();
    EXPECT_EQ(FileText(path), bytes);
    PrefsRecord = {};
    LoadPreferences();
    EXPECT_EQ(PrefsRecord, saved);
    // Old bytes remain behind a shorter record.
    PrefsRecord.InfoPath = "";
    SavePreferences();
    EXPECT_EQ(FileText(path).size(), bytes.size());
    EXPECT_EQ(FileText(path).substr(bytes.size() - 300), bytes.substr(bytes.size() - 300));
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.InfoPath, "");
    // A text beyond the two bytes of its length is an overflow, and leaves the file alone.
    const std::string before = FileText(path);
    PrefsRecord.InfoPath.assign(65536, 'i');
    EXPECT_EQ(FaultOf(SavePreferences), FaultNumber::Overflow);
    EXPECT_EQ(FileText(path), before);
    PrefsRecord.InfoPath.pop_back();
    SavePreferences();
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.InfoPath, std::string(65535, 'i'));
}

TEST_F(PreferencesTest, ShortFileIsReadAsFarAsItGoes) {
    const std::string bytes = FillRecord();
    const Preferences whole = PrefsRecord;
    for (std::size_t length = 0; length < bytes.size() - 1; length += length < 4 ? 1 : 37) {
        Store("FB_Editor.Preferences", bytes.substr(0, length));
        LoadPreferences();
        EXPECT_EQ(PrefsRecord.ScreenLeft[0], length >= 2 ? whole.ScreenLeft[0] : Int16(length == 1 ? 1000 % 256 : 0));
        EXPECT_EQ(PrefsRecord.WorldFavorites[76], 0);
    }
}

/// A file that counts as read but holds no map ends every start, until the preferences go: the message says which.
TEST_F(PreferencesTest, AFaultAtStartSaysWhatToDelete) {
    doubles.onLoadMainFrm = [] { throw Fault(FaultNumber::SubscriptOutOfRange); };
    for (const std::string& level : {PathOf("picture.fbl"), std::string()}) {
        LevelPath = level;
        SavePreferences();
        Main();
        EXPECT_EQ(dialogs.fatalFault, FaultNumber::SubscriptOutOfRange);
        EXPECT_EQ(dialogs.advice, (level.empty() ? "" : "The level that was being opened:\n" + level + "\n\n") +
                                      "If this happens at every start, delete the preferences:\n" +
                                      PathOf("FB_Editor.Preferences"));
    }
}

}  // namespace
