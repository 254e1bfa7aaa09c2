#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Golden cases on disk: one folder a case, found by the first part of its name.

/// The folders in tests/golden whose names start with `prefix`, in the order of their names.
inline std::vector<std::filesystem::path> GoldenFolders(const std::string& prefix) {
    std::vector<std::filesystem::path> folders;
    for (const auto& entry : std::filesystem::directory_iterator(GOLDEN_FOLDER)) {
        if (entry.is_directory() && entry.path().filename().string().starts_with(prefix)) {
            folders.push_back(entry.path());
        }
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

/// All bytes of a file; empty if there is none.
inline std::string FileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
