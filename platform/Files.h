#pragma once

#include <string>
#include <string_view>
#include <vector>

// Files by number, as the readers and writers use them. Paths and contents are bytes; where a system names its files in
// other units than bytes, a path is UTF-8. Every failure is a
// fault: 53 no such file, 75 not to be opened (a folder, no right to it, no such folder above it: 76), 57
// for an error of the device, 61 for a full disk, 67 when all numbers are taken.

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

/// All bytes of a file open for bytes, from its start. Faults 52, 57.
[[nodiscard]] std::string ReadBytes(int number);

/// Writes `bytes` from the file's start, without cutting off what stands behind them. Faults 52, 57, 61.
void WriteBytes(int number, std::string_view bytes);

/// Closes a file; without effect when `number` is not open.
void CloseFile(int number);

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

/// The folder of the running program, without a separator at its end.
[[nodiscard]] std::string ProgramFolder();

/// Where the program keeps files of its own: its folder, or `FB_Editor` in the user's configuration folder
/// (made when missing) if the program's folder cannot be written.
[[nodiscard]] std::string WritableProgramFolder();

/// The name of the user who owns the process, or nothing if the system does not tell.
[[nodiscard]] std::string ProcessOwnerName();
