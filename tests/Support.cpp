#include "tests/Support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "platform/Files.h"

std::string FileText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::string Unescaped(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
        } else if (text[++i] != 'x') {
            bytes += text[i] == 'n' ? '\n' : '\r';
        } else {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        }
    }
    return bytes;
}

std::vector<Texts> GoldenRows(const std::string& name) {
    std::vector<Texts> rows;
    std::ifstream file(std::filesystem::path(GOLDEN_FOLDER) / name);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        std::istringstream fields(line + '\t');
        rows.emplace_back();
        for (std::string field; std::getline(fields, field, '\t');) {
            rows.back().push_back(Unescaped(field));
        }
    }
    return rows;
}

void ResetState() {
    LevelRecord = {};
    PrefsRecord = {};
    WorldRecord = {};
    CurrentInfo = {};
    NewInfo = {};
    for (Int16* number : {&InfoCreated, &ModalDone, &WorldLoaded, &NewWorldPending, &WorldChanged, &LastMsgResult,
                          &CurrentTile, &CurrentLayer, &CurrentMode, &CurrentTileSet, &CurrentObject, &SelectedBadGuy,
                          &WorldReadError, &WorldCurrentTile, &CurrentLink, &LinkTypeChoice}) {
        *number = 0;
    }
    dialogs = {};
    InitConstants();
    UseDosLineEnds();
}

void StartProgram() { Main(); }

void FreshTest::SetUp() {
    folder = std::filesystem::temp_directory_path() / ("fb_editor_" + std::to_string(std::random_device{}()));
    ASSERT_TRUE(std::filesystem::create_directory(folder));
    ProgramFolder = folder.string();
    ResetState();
    UserLevelsFolder = folder.string();
}

void FreshTest::TearDown() {
    std::filesystem::remove_all(folder);
    for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
        CloseFile(number);  // a read that faults leaves its file open
    }
}
