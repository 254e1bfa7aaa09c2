#include "core/Preferences.h"

#include <cstdint>
#include <string_view>
#include <utility>

#include "core/General.h"
#include "core/SharedState.h"
#include "platform/Files.h"

namespace {

constexpr std::size_t LongestText = 65535;  // a text's length takes two bytes

/// Hands every field of the file to `codec`, in the file's order. Reading and writing share this one list.
template <typename Record, typename Codec>
void ForEachField(Record& record, Codec& codec) {
    codec.Numbers(record.ScreenLeft);
    codec.Numbers(record.ScreenTop);
    codec.Reserved(16 * sizeof(Int16));
    codec.Text(record.LevelPath);
    codec.Number(record.SavedTile);
    codec.Number(record.SavedLayer);
    codec.Number(record.SavedMode);
    codec.Number(record.SavedObject);
    codec.Reserved(sizeof(Int16));
    codec.Reserved(1);
    codec.Text(record.WorldPath);
    codec.Number(record.SavedWorldMode);
    codec.Number(record.SavedWorldX);
    codec.Number(record.SavedWorldY);
    codec.Number(record.SavedScroll);
    codec.Reserved(sizeof(Int16));
    codec.Number(record.GridState);
    codec.Text(record.InfoPath);
    codec.Number(record.AutoState);
    codec.Number(record.SavedTileSet);
    codec.Numbers(record.FavoritesA);
    codec.Numbers(record.FavoritesB);
    codec.Text(record.DefaultAuthor);
    codec.Number(record.AddEndState);
    codec.Number(record.ResetState);
    codec.Number(record.IglooState);
    codec.Number(record.FloorTile);
    codec.ReservedText();
    codec.Number(record.WorldAutoComplete);
    codec.Numbers(record.WorldFavorites);
}

/// Takes fields from the front of `bytes`; zeros and empty texts once they are used up.
class Decoder {
public:
    explicit Decoder(std::string_view bytes) : rest_(bytes) {}

    void Number(Int16& number) { number = static_cast<std::int16_t>(Unsigned()); }

    template <std::size_t Count>
    void Numbers(std::array<Int16, Count>& numbers) {
        for (Int16& number : numbers) {
            Number(number);
        }
    }

    void Text(std::string& text) { text = Take(Unsigned()); }
    void Reserved(std::size_t bytes) { Take(bytes); }
    void ReservedText() { Take(Unsigned()); }

private:
    std::string_view Take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::uint16_t Unsigned() {
        const std::string_view two = Take(2);
        const auto byte = [&](std::size_t at) { return at < two.size() ? static_cast<unsigned char>(two[at]) : 0U; };
        return static_cast<std::uint16_t>(byte(0) | (byte(1) << 8U));
    }

    std::string_view rest_;
};

class Encoder {
public:
    std::string bytes;

    void Number(const Int16& number) { Unsigned(static_cast<std::uint16_t>(static_cast<int>(number))); }

    template <std::size_t Count>
    void Numbers(const std::array<Int16, Count>& numbers) {
        for (const Int16& number : numbers) {
            Number(number);
        }
    }

    void Text(const std::string& text) {
        if (text.size() > LongestText) {
            throw Fault(FaultNumber::Overflow);
        }
        Unsigned(static_cast<std::uint16_t>(text.size()));
        bytes += text;
    }

    void Reserved(std::size_t count) { bytes.append(count, '\0'); }
    void ReservedText() { Unsigned(0); }

private:
    void Unsigned(std::uint16_t number) {
        bytes += static_cast<char>(number & 0xFFU);
        bytes += static_cast<char>(number >> 8U);
    }
};

}  // namespace

std::string PreferencesPath() { return JoinPath(WritableFolder(ProgramFolder), "FB_Editor.Preferences"); }

void LoadPreferences() {
    const int file = FreeFileNumber();
    const FileCloser closer(file);
    OpenForBinary(file, PreferencesPath());
    const std::string bytes = ReadBytes(file);
    Decoder decoder(bytes);
    ForEachField(PrefsRecord, decoder);
}

void SavePreferences() {
    Encoder encoder;
    ForEachField(std::as_const(PrefsRecord), encoder);
    const int file = FreeFileNumber();
    const FileCloser closer(file);
    OpenForBinary(file, PreferencesPath());
    WriteBytes(file, encoder.bytes);
}
