#pragma once

#include <functional>
#include <string>
#include <string_view>

/// `path` up to and including its last separator ("/" or "\"); empty if it has none.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// `path` behind its last separator; all of it if it has none.
[[nodiscard]] std::string FileNameOf(std::string_view path);

/// `folder` and `name` with one separator of this system between them; none is added if `folder` ends in one.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);

/// Deletes the file `name`, if it is not empty, and ignores every failure.
void DeleteFileQuietly(const std::string& name);

/// Sets LogonName from the name of the user who owns the process.
void GetLogonName();

/// LogonName for the user `name`: what stands before the first character below "0" among the first nine, in
/// capitals, filled with blanks to 16 characters. A name that has none of these there gives blanks, and so
/// does one of more than 24 characters.
[[nodiscard]] std::string LogonNameFor(const std::string& name);

/// The key filter of boxes for whole numbers: lets backspace and the digits pass. Enter runs `refresh`, and is
/// removed like every other key.
[[nodiscard]] bool PassesNumberBox(int KeyAscii, const std::function<void()>& refresh);
