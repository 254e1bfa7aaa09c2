#include "core/Preferences.h"

#include "core/General.h"
#include "tests/Golden.h"
#include "tests/ModelTest.h"

namespace {

/// The file lies beside the program; a test leaves none behind.
class PreferencesTest : public ModelTest {
protected:
    PreferencesTest() { std::filesystem::remove(path_); }
    ~PreferencesTest() override { std::filesystem::remove(path_); }

    std::string path_ = JoinPath(WritableProgramFolder(), "FB_Editor.Preferences");
};

std::string Word(int number) { return {static_cast<char>(number & 0xFF), static_cast<char>((number >> 8) & 0xFF)}; }

std::string Zeros(std::size_t count) { return std::string(count, '\0'); }

/// All fields different from each other, and the bytes that the file holds for them.
std::string FillRecord() {
    Preferences& p = PrefsRecord;
    int next = 1000;
    std::string bytes;
    const auto number = [&](Int16& field) {
        field = next;
        bytes += Word(next++);
    };
    const auto text = [&](std::string& field, const std::string& value) {
        field = value;
        bytes += Word(static_cast<int>(value.size())) + value;
    };
    const auto all = [&](auto& fields) {
        for (Int16& field : fields) {
            number(field);
        }
    };
    all(p.ScreenLeft);
    all(p.ScreenTop);
    bytes += Zeros(32);
    text(p.LevelPath, "/levels/\xE9.fbl");
    for (Int16* field : {&p.SavedTile, &p.SavedLayer, &p.SavedMode, &p.SavedObject}) {
        number(*field);
    }
    bytes += Zeros(2 + 1);
    text(p.WorldPath, "");
    for (Int16* field : {&p.SavedWorldMode, &p.SavedWorldX, &p.SavedWorldY, &p.SavedScroll}) {
        number(*field);
    }
    bytes += Zeros(2);
    number(p.GridState);
    text(p.InfoPath, std::string(300, 'i'));
    number(p.AutoState);
    number(p.SavedTileSet);
    all(p.FavoritesA);
    all(p.FavoritesB);
    text(p.DefaultAuthor, "Ann");
    for (Int16* field : {&p.AddEndState, &p.ResetState, &p.IglooState, &p.FloorTile}) {
        number(*field);
    }
    bytes += Zeros(2);
    number(p.WorldAutoComplete);
    all(p.WorldFavorites);
    return bytes;
}

TEST_F(PreferencesTest, FileHoldsTheFieldsInOrder) {
    const std::string bytes = FillRecord();
    const Preferences saved = PrefsRecord;
    SavePreferences();
    EXPECT_EQ(FileBytes(path_), bytes);
    PrefsRecord = {};
    LoadPreferences();
    EXPECT_EQ(PrefsRecord, saved);
}

TEST_F(PreferencesTest, MissingFileGivesZerosAndIsMade) {
    PrefsRecord.LevelPath = "before";
    PrefsRecord.SavedTile = 5;
    LoadPreferences();
    EXPECT_EQ(PrefsRecord, Preferences());
    EXPECT_TRUE(std::filesystem::exists(path_));
    EXPECT_EQ(std::filesystem::file_size(path_), 0U);
}

TEST_F(PreferencesTest, ShortFileIsReadAsFarAsItGoes) {
    const std::string bytes = FillRecord();
    const Preferences whole = PrefsRecord;
    for (std::size_t length = 0; length < bytes.size() - 1; length += length < 4 ? 1 : 37) {
        std::ofstream(path_, std::ios::binary) << bytes.substr(0, length);
        LoadPreferences();
        EXPECT_EQ(PrefsRecord.ScreenLeft[0], length >= 2 ? whole.ScreenLeft[0] : Int16(length == 1 ? 1000 % 256 : 0));
        EXPECT_EQ(PrefsRecord.WorldFavorites[76], 0);
    }
}

TEST_F(PreferencesTest, OldBytesRemainBehindTheRecord) {
    const std::string longer = FillRecord();
    SavePreferences();
    PrefsRecord.InfoPath = "";
    SavePreferences();
    EXPECT_EQ(FileBytes(path_).size(), longer.size());
    EXPECT_EQ(FileBytes(path_).substr(longer.size() - 300), longer.substr(longer.size() - 300));
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.InfoPath, "");
}

}  // namespace
