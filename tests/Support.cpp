#include "tests/Support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>

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

std::vector<Texts> GoldenRows(const std::string& name) {
    std::vector<Texts> rows;
    std::ifstream file(std::filesystem::path(GOLDEN_FOLDER) / name);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) {
            continue;
        }
        rows.push_back({""});
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i] == '\t') {
                rows.back().emplace_back();
            } else if (line[i] == '\\') {
                rows.back().back() += line[++i] == 'n' ? '\n' : '\r';
            } else {
                rows.back().back() += line[i];
            }
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
    InitTextConstants();
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
