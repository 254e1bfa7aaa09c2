#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Files.h"
#include "tests/ModelDoubles.h"
#include "tests/ScriptedDialogs.h"

/// A test of the model with the state of a program just started, and a folder of its own for files.
class ModelTest : public testing::Test {
protected:
    ModelTest() : folder(std::filesystem::temp_directory_path() / ("fb_editor_" + Name())) {
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        LevelRecord = {};
        PrefsRecord = {};
        CurrentInfo = {};
        dialogs = {};
        doubles = {};
        InitTextConstants();
        InitConstants();
        UseDosLineEnds();
    }

    ~ModelTest() override {
        std::filesystem::remove_all(folder);
        for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
            CloseFile(number);  // a read that faults leaves its file open
        }
    }

    [[nodiscard]] std::string PathOf(const std::string& name) const { return (folder / name).string(); }

    std::string Store(const std::string& name, const std::string& bytes) const {
        std::ofstream(PathOf(name), std::ios::binary) << bytes;
        return PathOf(name);
    }

    /// Reads a level file of these bytes, as the program does.
    void ReadLevel(const std::string& bytes) const {
        LevelRecord.ResetPointCount = 0;
        LevelRecord.BadGuyCount = 0;
        ReadLevelFile(Store("level.fbl", bytes));
    }

    std::filesystem::path folder;

private:
    static std::string Name() {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        return std::string(info->test_suite_name()) + "_" + info->name();
    }
};
