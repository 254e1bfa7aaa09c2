#include "platform/Files.h"

#include <algorithm>
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
// lmcons.h needs windows.h before it.
#include <lmcons.h>
#else
#include <pwd.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};

std::FILE* OpenStream(const std::string& path, const char* mode) {
#ifdef _WIN32
    return _wfopen(HostPath(path).c_str(), HostPath(mode).c_str());
#else
    return std::fopen(path.c_str(), mode);
#endif
}

/// An open file. Text input takes the whole file at once and walks it: the lines of a level are short and
/// many, and one look for the next CR is cheaper than a buffered read for each. It has no stream any more then, since
/// some systems would keep a file that a reader has left open from being replaced.
struct NumberedFile {
    std::unique_ptr<std::FILE, CloseStream> stream;
    std::string text;
    std::size_t next = 0;
};

std::array<std::unique_ptr<NumberedFile>, LastFileNumber + 1> openFiles;

NumberedFile& FileOf(int number) {
    if (number < FirstFileNumber || number > LastFileNumber || openFiles[static_cast<std::size_t>(number)] == nullptr) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    return *openFiles[static_cast<std::size_t>(number)];
}

std::FILE* StreamOf(int number) {
    std::FILE* stream = FileOf(number).stream.get();
    return stream != nullptr ? stream : throw Fault(FaultNumber::BadFileNumber);
}

Fault FaultOfErrno(int error) {
    switch (error) {
        case ENOENT: return Fault(FaultNumber::FileNotFound);
        case ENOTDIR: return Fault(FaultNumber::PathNotFound);
        case ENOSPC:
#ifdef EDQUOT
        case EDQUOT:
#endif
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

/// Everything from the start. Memory for all of it is taken at once, if the stream knows how much that is: a large text
/// that grows block by block costs more than to walk it.
std::string ReadAll(std::FILE* stream) {
    std::string bytes;
    if (std::fseek(stream, 0, SEEK_END) == 0) {
        bytes.reserve(static_cast<std::size_t>(std::max(std::ftell(stream), 0L)));
    }
    std::rewind(stream);
    std::array<char, 65536> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), stream)) {
        bytes.append(block.data(), count);
    }
    if (std::ferror(stream) != 0) {
        throw FaultOfErrno(errno);
    }
    return bytes;
}

NumberedFile& Open(int number, const std::string& path, const char* mode) {
    if (number < FirstFileNumber || number > LastFileNumber || openFiles[static_cast<std::size_t>(number)] != nullptr) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    if (path.empty() || path.find('\0') != std::string::npos) {
        throw Fault(FaultNumber::BadFileNumber);
    }
    // Opening a pipe would wait for its other end, and reading it for what may never come.
    if (std::error_code ignored; FolderExists(path) || fs::is_fifo(HostPath(path), ignored)) {
        throw Fault(FaultNumber::PathFileAccessError);
    }
    auto file = std::make_unique<NumberedFile>();
    file->stream.reset(OpenStream(path, mode));
    if (file->stream == nullptr) {
        throw FaultOfErrno(errno);
    }
    return *(openFiles[static_cast<std::size_t>(number)] = std::move(file));
}

/// Opens a file that need not exist; what is missing then is its folder.
NumberedFile& OpenForWriting(int number, const std::string& path, const char* mode) {
    try {
        return Open(number, path, mode);
    } catch (const Fault& fault) {
        throw fault.Number() == FaultNumber::FileNotFound ? Fault(FaultNumber::PathNotFound) : fault;
    }
}

bool CanWriteFolder(const std::string& folder) {
#ifdef _WIN32
    // Only trying tells: the read-only mark of a folder means something else there, and rights are not all that counts.
    const HANDLE probe = CreateFileW((HostPath(folder) / L"FB_Editor.probe").c_str(), GENERIC_WRITE, 0, nullptr,
                                     CREATE_ALWAYS, FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    return probe != INVALID_HANDLE_VALUE && CloseHandle(probe) != 0;
#else
    return access(folder.c_str(), W_OK) == 0;
#endif
}

/// Where the user's programs keep their settings, the first choice first. The user database knows a home folder also
/// where the environment names none.
std::vector<std::string> ConfigurationFolders() {
#ifdef _WIN32
    const wchar_t* roaming = _wgetenv(L"APPDATA");
    return {PathBytes(roaming != nullptr ? roaming : L".")};
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
    NumberedFile& file = Open(number, path, "rb");
    try {
        file.text = WithMemoryFaults([&] { return ReadAll(file.stream.get()); });
        file.stream.reset();
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
    NumberedFile& file = FileOf(number);
    if (file.next >= file.text.size()) {
        throw Fault(FaultNumber::InputPastEndOfFile);
    }
    const std::size_t from = file.next;
    const std::size_t end = file.text.find('\r', from);
    if (end == std::string::npos) {
        file.next = file.text.size();
        // The last line of a file, and all of a file without CR: taken without a copy.
        std::string line = std::exchange(file.text, {});
        line.erase(0, from);
        return line;
    }
    file.next = end + 1;
    if (file.next < file.text.size() && file.text[file.next] == '\n') {
        ++file.next;
    }
    return file.text.substr(from, end - from);
}

bool AtEndOfFile(int number) {
    const NumberedFile& file = FileOf(number);
    return file.next >= file.text.size();
}

std::string ReadBytes(int number) {
    const NumberedFile& file = FileOf(number);
    std::FILE* stream = file.stream.get();
    if (stream == nullptr) {
        return file.text;
    }
    return WithMemoryFaults([&] { return ReadAll(stream); });
}

void WriteBytes(int number, std::string_view bytes) {
    std::FILE* stream = StreamOf(number);
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

bool FolderExists(const std::string& path) {
    std::error_code ignored;
    return fs::is_directory(HostPath(path), ignored);
}

std::vector<std::string> FilesIn(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(HostPath(folder), error), end; entry != end && !error; entry.increment(error)) {
        std::error_code unreadable;  // a dangling link is listed: choosing it tells what is wrong
        if (!entry->is_directory(unreadable)) {
            names.push_back(PathBytes(entry->path().filename()));
        }
    }
    if (error) {
        const bool readable = error != std::errc::permission_denied;
        throw Fault(readable ? FaultNumber::PathNotFound : FaultNumber::PathFileAccessError);
    }
    return names;
}

std::string QueryFile(const std::string& path) {
    std::error_code ignored;
    const fs::path file = HostPath(path);
    if (!fs::exists(file, ignored) || FolderExists(path)) {
        return {};
    }
    return PathBytes(file.filename());
}

void DeleteExistingFile(const std::string& path) {
    if (FolderExists(path)) {
        throw Fault(FaultNumber::PathFileAccessError);
    }
    std::error_code error;
    if (!fs::remove(HostPath(path), error)) {
        throw Fault(error ? FaultNumber::PermissionDenied : FaultNumber::FileNotFound);
    }
}

void MakeFolder(const std::string& path) {
    std::error_code error;
    if (fs::create_directory(HostPath(path), error)) {
        return;
    }
    const bool missingParent = error == std::errc::no_such_file_or_directory;
    throw Fault(missingParent ? FaultNumber::PathNotFound : FaultNumber::PathFileAccessError);
}

fs::path HostPath(const std::string& bytes) {
#ifdef _WIN32
    constexpr UINT Windows1252 = 1252;
    const auto size = static_cast<int>(bytes.size());
    const bool utf8 = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0) > 0;
    std::wstring name(bytes.size(), L'\0');  // no encoding takes more units than bytes
    name.resize(static_cast<std::size_t>(
        MultiByteToWideChar(utf8 ? CP_UTF8 : Windows1252, 0, bytes.data(), size, name.data(), size)));
    return name;
#else
    return bytes;
#endif
}

std::string PathBytes(const fs::path& path) {
#ifdef _WIN32
    const std::wstring& name = path.native();
    std::string bytes(3 * name.size(), '\0');  // no unit takes more
    bytes.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, name.data(), static_cast<int>(name.size()),
                                                     bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
#else
    return path.string();
#endif
}

std::string FolderOfProgram() {
#ifdef _WIN32
    constexpr std::size_t LongestPath = 32768;
    std::wstring path(LongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return PathBytes(fs::path(path).parent_path());
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
        fs::create_directories(HostPath(folder), ignored);
    }
    return folder;
}

std::string ProcessOwnerName() {
#ifdef _WIN32
    std::array<wchar_t, UNLEN + 1> name{};
    auto size = static_cast<DWORD>(name.size());
    return GetUserNameW(name.data(), &size) != 0 ? PathBytes(name.data()) : "";
#else
    const passwd* owner = getpwuid(geteuid());
    return owner != nullptr ? owner->pw_name : "";
#endif
}
