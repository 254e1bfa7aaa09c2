#include "fuzz/FuzzInput.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <new>
#include <random>

#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/LevelReader.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "tests/ModelDoubles.h"
#include "tests/ScriptedDialogs.h"

namespace {

/// Memory that one request may ask for. A file of a few bytes can name a map of two gigabytes; here that is
/// the fault for lack of memory, and the fuzzer stays quick.
constexpr std::size_t LargestRequest = std::size_t{64} << 20U;

/// Yields after which a read is given up: it never ends, as some must by the rules of the format, or it fills
/// far more cells than the file has characters. Others yield about once for each character.
int MostYields(std::size_t bytes) { return 2'000 + 4 * static_cast<int>(bytes); }

struct NeverEnds {};

/// A folder of this process, made on first use and removed at its end.
struct Folder {
    std::string path;

    Folder()
        : path((std::filesystem::temp_directory_path() / ("fb_fuzz_" + std::to_string(std::random_device{}())))
                   .string()) {
        std::filesystem::create_directory(path);
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
};

void StartProgram(int mostYields) {
    LevelRecord = {};
    WorldRecord = {};
    PrefsRecord = {};
    CurrentInfo = {};
    LevelLoaded = WorldLoaded = WorldChanged = WorldReadError = 0;
    dialogs = {};
    doubles = {};
    UseDosLineEnds();
    yieldsUntilNextLook = mostYields;
    doubles.onYield = [] { throw NeverEnds{}; };
}

/// A read that met a fault leaves its file open.
void CloseAllFiles() {
    for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
        CloseFile(number);
    }
}

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-no-malloc): the containers get their memory here

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return size <= LargestRequest ? std::malloc(size) : nullptr;
}

void* operator new(std::size_t size) {
    void* const memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

// NOLINTEND(cppcoreguidelines-no-malloc)

std::optional<std::string> ReadAfresh(const std::string& bytes, const std::string& name,
                                      const std::function<std::optional<std::string>(const std::string& path)>& read) {
    static const Folder folder;
    const std::string path = folder.path + "/" + name;
    std::ofstream(path, std::ios::binary) << bytes;
    StartProgram(MostYields(bytes.size()));
    std::optional<std::string> written;
    try {
        written = read(path);
    } catch (const Fault&) {
        written = std::nullopt;
    } catch (const NeverEnds&) {
        written = std::nullopt;
    } catch (const GivenUp&) {
        written = std::nullopt;
    }
    CloseAllFiles();
    return written;
}

void RequireSame(const std::string& written, const std::optional<std::string>& writtenAgain) {
    if (writtenAgain != written) {
        std::fprintf(stderr, "--- written:\n%s\n--- read and written again:\n%s\n", written.c_str(),
                     writtenAgain.value_or("(does not read)").c_str());
        std::abort();
    }
}
