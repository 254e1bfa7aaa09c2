#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "core/SharedState.h"
#include "level/LevelWriter.h"
#include "platform/Files.h"
#include "tests/ModelDoubles.h"
#include "tests/ScriptedDialogs.h"
#include "world/WorldReader.h"

/// Starts every test of the world maps with the state of a program just started.
class WorldTest : public testing::Test {
protected:
    WorldTest() {
        PrefsRecord = {};
        WorldRecord = {};
        WorldLoaded = WorldChanged = NewWorldPending = WorldReadError = CurrentLink = 0;
        dialogs = {};
        doubles = {};
        UseDosLineEnds();
    }

    ~WorldTest() override {
        std::remove(path_.c_str());
        for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
            CloseFile(number);  // a read that faults leaves its file open
        }
    }

    /// Where the test's one world map file lies.
    [[nodiscard]] const std::string& Path() const { return path_; }

    void Store(const std::string& bytes) const { std::ofstream(path_, std::ios::binary) << bytes; }

    /// Reads a file of these bytes, as the first one in the program.
    void Read(const std::string& bytes) const {
        Store(bytes);
        WorldPath.clear();
        ReadWorldFile(path_);
    }

private:
    std::string path_ = testing::TempDir() + testing::UnitTest::GetInstance()->current_test_info()->name() + ".fbwm";
};

/// `properties`, `tilemap` and `levels` around what a test is about; a map of 2 by 1 unless told otherwise.
inline std::string WorldFile(const std::string& levels, const std::string& properties = "",
                             const std::string& tilemap = "(width 2)(height 1)(data 1 2)") {
    return "(floebird-worldmap (properties " + properties + ")(tilemap " + tilemap + ")(levels " + levels + "))\n";
}
