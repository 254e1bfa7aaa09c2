#include "fuzz/RoundTrip.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <tuple>

#include "core/LineEnds.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "tests/ModelDoubles.h"
#include "tests/ScriptedDialogs.h"

namespace {

namespace fs = std::filesystem;

/// When the reading of an input is given up: it never ends, as some must, or it makes very much of few characters.
constexpr int MostYields = 3'000;
constexpr int MostEntries = 32;

int yields = 0;

/// A folder of this process, in memory where the system has such a place.
std::string MakeFolder() {
    static const fs::path folder = (fs::exists("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path()) /
                                   ("fb_fuzz_" + std::to_string(std::random_device{}()));
    fs::create_directory(folder);
    std::atexit([] { fs::remove_all(folder); });
    return folder.string();
}

/// The state of a program just started.
void Restart() {
    LevelRecord = {};
    WorldRecord = {};
    PrefsRecord = {};
    CurrentInfo = {};
    LevelLoaded = WorldLoaded = False;
    dialogs.messages.clear();
    UseDosLineEnds();
    yields = 0;
    doubles.onYield = [] {
        if (++yields > MostYields || LevelRecord.BadGuyCount + LevelRecord.ResetPointCount > MostEntries) {
            throw GivenUp();
        }
    };
    doubles.onWait = [] { throw GivenUp(); };
    yieldsUntilNextLook = INT_MAX;
    CloseFile(FirstFileNumber);  // a read that met a fault leaves it open
}

/// Whether what is written of the record is read back as the same. Given up if it does not read.
bool IsSameReadAgain(const std::string& path) {
    Write(path);
    const auto written = std::tuple(LevelRecord, WorldRecord, PrefsRecord, CurrentInfo);
    Restart();
    return Read(path) ? written == std::tie(LevelRecord, WorldRecord, PrefsRecord, CurrentInfo) : throw GivenUp();
}

/// Reads a file of any bytes. Not all that can be read is kept: line feeds in texts of a file with DOS line ends make
/// other lines of the one that is written, then exponents lose their letter, then digits beyond the 15th go.
bool Settles(const std::string& path) {
    yieldsUntilNextLook = 0;
    try {
        bool settled = !Read(path);
        for (int round = 1; round <= 4 && !settled; ++round) {
            settled = IsSameReadAgain(path);
        }
        return settled;
    } catch (const Fault& fault) {
        return std::ranges::find(StatedFaults, fault.Number()) != StatedFaults.end() ? true : throw;
    } catch (const GivenUp&) {
        return true;
    }
}

}  // namespace

/// A map of any size that an input names is no finding, and must not take the machine's memory. The rest is for speed.
extern "C" const char* __asan_default_options() {  // NOLINT(bugprone-reserved-identifier): the sanitizer's own name
    return "max_allocation_size_mb=64:allocator_may_return_null=1:malloc_context_size=4:quarantine_size_mb=4";
}

int Bytes::Byte() {
    const int byte = rest.empty() ? 0 : static_cast<unsigned char>(rest.front());
    rest.remove_prefix(rest.empty() ? 0 : 1);
    return byte;
}

void Bytes::Take(Int16& number) {
    const int high = Byte();
    number = static_cast<std::int16_t>((high * 256 + Byte()) & (areSigned ? -1 : INT16_MAX));
}

void Bytes::Take(std::span<Int16> numbers) {
    for (Int16& number : numbers) {
        Take(number);
    }
}

void Bytes::Take(double& number) { number = Byte() * 1000 / 64.0; }

void Bytes::Take(std::string& text) {
    const int length = Byte() % 16;
    text = rest.substr(0, static_cast<std::size_t>(length));
    rest.remove_prefix(text.size());
    std::erase_if(text, [](char character) { return std::ranges::count(" \"()\t\r\n", character) > 0; });
}

/// One cell in sixteen, and plain digits between them.
void Bytes::Take(TileMap& tiles, int columns, int rows) {
    tiles = TileMap(columns, rows);
    for (int cell = 0; cell < columns * rows; ++cell) {
        Int16& tile = tiles(cell % columns, cell / columns) = cell % 10;
        if (cell % 16 == 0) {
            Take(tile);
        }
    }
}

/// The first byte of an input says which of the two ways it takes.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    static const std::string path = (ProgramFolder = MakeFolder()) + "/" + FileName;
    const std::string bytes(data, data + size);
    Bytes in{bytes};
    Restart();
    const bool isMade = in.Byte() % 2 != 0;
    isMade ? Make(in) : WriteTextFile(path, in.rest);
    if (!(isMade ? IsSameReadAgain(path) : Settles(path))) {
        for (const char* headline : {"written", "read and written again"}) {
            OpenForInput(LastFileNumber, path);
            std::fprintf(stderr, "--- %s:\n%s\n", headline, ReadBytes(LastFileNumber).c_str());
            CloseFile(LastFileNumber);
            Write(path);
        }
        std::abort();
    }
    return 0;
}
