#pragma once

#include <functional>
#include <optional>
#include <string>

// What the fuzzers of the readers share. Each of them reads an input as a file, writes what it has read, and
// asserts that this text, once it is of the kind that the reader takes back unchanged, stays the same for good.

/// Reads `bytes` in a program just started, from a file called `name` in a folder of its own. `read` gets the
/// path and gives the text to be written, or nothing if the file did not read. The same is returned; nothing
/// also when a fault met no trap, and when the read did not end.
std::optional<std::string> ReadAfresh(const std::string& bytes, const std::string& name,
                                      const std::function<std::optional<std::string>(const std::string& path)>& read);

/// Shows both texts and aborts if they differ.
void RequireSame(const std::string& written, const std::optional<std::string>& writtenAgain);
