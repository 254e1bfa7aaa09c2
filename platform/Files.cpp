#include "platform/Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <utility>
#include <vector>

#include "platform/Fault.h"

#ifdef _WIN32
#include <windows.h>
// Lmcons.h needs windows.h before it.
#include <Lmcons.h>
#else
#include <pwd.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

/// An open file. Text input takes the whole file at once and walks it: the lines of a level are short and
/// many, and one look for the next CR is cheaper than a buffered read for each.
struct OpenFile {
    std::unique_ptr<std::FILE, CloseStream> stream;
    std::string text;
    std::size_t next = 0;
};

std::array<std::unique_ptr<OpenFile>, LastFileNumber + 1> openFiles;

OpenFile& FileOf(int number) {
    if (number < FirstFileNumber || number > LastFileNumber || openFiles[static_cast<std::size_t>(number)] == nullptr) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    return *openFiles[static_cast<std::size_t>(number)];
}

Fault FaultOfErrno(int error) {
    switch (error) {
        case ENOENT: return Fault(FaultNumber::FileNotFound);
        case ENOTDIR: return Fault(FaultNumber::PathNotFound);
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return Fault(FaultNumber::DiskFull);
        case EMFILE:
        case ENFILE: return Fault(FaultNumber::TooManyFiles);
        case ENOMEM: return Fault(FaultNumber::OutOfMemory);
        case EACCES:
        case EPERM:
        case EROFS:
        case EEXIST:
        case EISDIR: return Fault(FaultNumber::PathFileAccessError);
        case EINVAL:
        case ENAMETOOLONG: return Fault(FaultNumber::BadFileNumber);
        default: return Fault(FaultNumber::DeviceIoError);
    }
}

std::string ReadAll(std::FILE* stream) {
    std::string bytes;
    std::array<char, 65536> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), stream)) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(stream) != 0) {
        throw FaultOfErrno(errno);
    }
    return bytes;
}

OpenFile& Open(int number, const std::string& path, const char* mode) {
    if (number < FirstFileNumber || number > LastFileNumber || openFiles[static_cast<std::size_t>(number)] != nullptr) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    if (path.empty() || path.find('\0') != std::string::npos) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
        throw Fault(FaultNumber::PathFileAccessError);
    }
    auto file = std::make_unique<OpenFile>();
    file->stream.reset(std::fopen(path.c_str(), mode));
    if (file->stream == nullptr) {
        throw FaultOfErrno(errno);
    }
    return *(openFiles[static_cast<std::size_t>(number)] = std::move(file));
}

/// Opens a file that need not exist; what is missing then is its folder.
OpenFile& OpenForWriting(int number, const std::string& path, const char* mode) {
    try {
        return Open(number, path, mode);
    } catch (const Fault& fault) {
        throw fault.Number() == FaultNumber::FileNotFound ? Fault(FaultNumber::PathNotFound) : fault;
    }
}

bool CanWriteFolder(const std::string& folder) {
#ifdef _WIN32
    return (fs::status(folder).permissions() & fs::perms::owner_write) != fs::perms::none;
#else
    return access(folder.c_str(), W_OK) == 0;
#endif
}

/// Where the user's programs keep their settings, the first choice first. The user database knows a home folder also
/// where the environment names none.
std::vector<std::string> ConfigurationFolders() {
#ifdef _WIN32
    const char* roaming = std::getenv("APPDATA");
    return {roaming != nullptr ? roaming : "."};
#else
    std::vector<std::string> folders;
    if (const char* configured = std::getenv("XDG_CONFIG_HOME"); configured != nullptr && *configured == '/') {
        folders.emplace_back(configured);
    }
    if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
        folders.push_back(std::string(home) + "/.config");
    }
    if (const passwd* owner = getpwuid(geteuid()); owner != nullptr) {
        folders.push_back(std::string(owner->pw_dir) + "/.config");
    }
    return folders;
#endif
}

void WriteAll(std::FILE* stream, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size() || std::fflush(stream) != 0) {
        throw FaultOfErrno(errno);
    }
}

}  // namespace

int FreeFileNumber() {
    for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
        if (openFiles[static_cast<std::size_t>(number)] == nullptr) {
            return number;
        }
    }
    throw Fault(FaultNumber::TooManyFiles);
}

void OpenForInput(int number, const std::string& path) {
    OpenFile& file = Open(number, path, "rb");
    try {
        file.text = WithMemoryFaults([&] { return ReadAll(file.stream.get()); });
    } catch (const Fault&) {
        CloseFile(number);
        throw;
    }
}

void OpenForBinary(int number, const std::string& path) {
    // "r+" refuses a missing file and "w+" would cut an existing one off, so a missing one is made first.
    OpenForWriting(number, path, "ab");
    CloseFile(number);
    Open(number, path, "r+b");
}

std::string LineInput(int number) {
    OpenFile& file = FileOf(number);
    if (file.next >= file.text.size()) {
        throw Fault(FaultNumber::InputPastEndOfFile);
    }
    const std::size_t from = file.next;
    const std::size_t end = file.text.find('\r', from);
    if (end == std::string::npos) {
        file.next = file.text.size();
        // The last line of a file, and all of a file without CR: taken without a copy.
        return from == 0 ? std::exchange(file.text, {}) : file.text.substr(from);
    }
    file.next = end + 1;
    if (file.next < file.text.size() && file.text[file.next] == '\n') {
        ++file.next;
    }
    return file.text.substr(from, end - from);
}

bool AtEndOfFile(int number) {
    const OpenFile& file = FileOf(number);
    return file.next >= file.text.size();
}

std::string ReadBytes(int number) {
    std::FILE* stream = FileOf(number).stream.get();
    std::rewind(stream);
    return WithMemoryFaults([&] { return ReadAll(stream); });
}

void WriteBytes(int number, std::string_view bytes) {
    std::FILE* stream = FileOf(number).stream.get();
    std::rewind(stream);
    WriteAll(stream, bytes);
}

void WriteTextFile(const std::string& path, std::string_view text) {
    const int number = FreeFileNumber();
    const FileCloser closer(number);
    WriteAll(OpenForWriting(number, path, "wb").stream.get(), text);
}

void CloseFile(int number) {
    if (number >= FirstFileNumber && number <= LastFileNumber) {
        openFiles[static_cast<std::size_t>(number)].reset();
    }
}

std::string QueryFile(const std::string& path) {
    std::error_code error;
    const fs::path file(path);
    if (path.empty() || !fs::exists(file, error) || fs::is_directory(file, error)) {
        return {};
    }
    return file.filename().string();
}

void DeleteExistingFile(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) {
        throw Fault(FaultNumber::PathFileAccessError);
    }
    if (!fs::remove(path, error)) {
        throw Fault(error ? FaultNumber::PermissionDenied : FaultNumber::FileNotFound);
    }
}

void MakeFolder(const std::string& path) {
    std::error_code error;
    if (fs::create_directory(path, error)) {
        return;
    }
    const bool missingParent = error == std::errc::no_such_file_or_directory;
    throw Fault(missingParent ? FaultNumber::PathNotFound : FaultNumber::PathFileAccessError);
}

std::string FolderOfProgram() {
#ifdef _WIN32
    std::array<char, 4096> buffer{};
    GetModuleFileNameA(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    return fs::path(buffer.data()).parent_path().string();
#else
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path().string();
#endif
}

std::string WritableFolder(const std::string& preferred) {
    std::string folder = preferred;
    for (const std::string& configuration : ConfigurationFolders()) {
        if (CanWriteFolder(folder)) {
            break;
        }
        folder = configuration + std::string(PathSeparator) + "FB_Editor";
        std::error_code ignored;
        fs::create_directories(folder, ignored);
    }
    return folder;
}

std::string ProcessOwnerName() {
#ifdef _WIN32
    std::array<char, UNLEN + 1> buffer{};
    DWORD size = static_cast<DWORD>(buffer.size());
    return GetUserNameA(buffer.data(), &size) != 0 ? buffer.data() : "";
#else
    const passwd* owner = getpwuid(geteuid());
    return owner != nullptr ? owner->pw_name : "";
#endif
}
