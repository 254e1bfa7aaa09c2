#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// Files by number, as the readers and writers use them. Paths and contents are bytes (see HostPath). Every failure is a
// fault: 53 no such file, 75 not to be opened (a folder, a pipe, no right to it; no such folder above it: 76),
// 57 for an error of the device, 61 for a full disk, 67 when all numbers are taken.

inline constexpr int FirstFileNumber = 1;
inline constexpr int LastFileNumber = 511;

/// The lowest number that no open file has. It is taken by the opening, not by this call. Fault 67.
[[nodiscard]] int FreeFileNumber();

/// Opens the text file `path` for reading line by line. The file must exist.
void OpenForInput(int number, const std::string& path);

/// Opens `path` for reading and writing of bytes, from its start; makes an empty file if there is none.
void OpenForBinary(int number, const std::string& path);

/// The next line of the file: it ends at CR or at CR LF, which are dropped. A lone LF is part of the line.
/// The end of the file ends the last line. Fault 62 if nothing is left, fault 52 if the number is not open.
[[nodiscard]] std::string LineInput(int number);

/// True when all of the file has been read. Fault 52.
[[nodiscard]] bool AtEndOfFile(int number);

/// All bytes of the open file, from its start; if it is open for input, before the first line is taken. Faults 52, 57.
[[nodiscard]] std::string ReadBytes(int number);

/// Writes `bytes` from the file's start, without cutting off what stands behind them. Faults 52, 57, 61.
void WriteBytes(int number, std::string_view bytes);

/// Makes the file at `path` hold `text`, byte for byte and nothing behind it, whatever stood there before. The file is
/// closed on every way out. Faults 57, 61, 67, 75, 76.
void WriteTextFile(const std::string& path, std::string_view text);

/// Closes a file; without effect when `number` is not open.
void CloseFile(int number);

/// Closes a file on every way out of a block.
class FileCloser {
public:
    explicit FileCloser(int number) : number_(number) {}
    FileCloser(const FileCloser&) = delete;
    FileCloser& operator=(const FileCloser&) = delete;
    ~FileCloser() { CloseFile(number_); }

private:
    int number_;
};

[[nodiscard]] bool FolderExists(const std::string& path);

/// The names of the files in `folder`, in no order, without the folders. Faults 75 (no right), 76 (no such folder).
[[nodiscard]] std::vector<std::string> FilesIn(const std::string& folder);

/// The exact name of the file at `path`, without its folder; empty if there is no such file. Folders are not files.
[[nodiscard]] std::string QueryFile(const std::string& path);

/// Faults 53 (no such file), 70 (not permitted), 75 (a folder).
void DeleteExistingFile(const std::string& path);

/// Faults 75 (it exists, or no right), 76 (no folder above it).
void MakeFolder(const std::string& path);

/// The separator that joins folders and names on this system.
inline constexpr std::string_view PathSeparator =
#ifdef _WIN32
    "\\";
#else
    "/";
#endif

/// The path that `bytes` stand for, for use with the standard library. Where names are no bytes but wide characters,
/// they are read as texts are shown: as UTF-8 if they are that, else as Windows-1252, so that every name leads to some
/// file. The library's own reading would be that of a code page, which differs from one computer to the next.
[[nodiscard]] std::filesystem::path HostPath(const std::string& bytes);

/// The bytes of a path: its own, or UTF-8.
[[nodiscard]] std::string PathBytes(const std::filesystem::path& path);

/// The folder of the running program, without a separator at its end.
[[nodiscard]] std::string FolderOfProgram();

/// Where the program keeps files of its own: `preferred`, or `FB_Editor` in the user's configuration folder (made when
/// missing) if that cannot be written. Where neither can be, opening a file there tells why.
[[nodiscard]] std::string WritableFolder(const std::string& preferred);

/// The name of the user who owns the process, or nothing if the system does not tell.
[[nodiscard]] std::string ProcessOwnerName();
