#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/Fault.h"
#include "tests/ScriptedDialogs.h"

// What all tests share, of the model and of the screens.

using Texts = std::vector<std::string>;
using Message = ScriptedDialogs::Message;

/// All bytes of a file; empty if there is none.
[[nodiscard]] std::string FileText(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& text);

/// A text in which "\n", "\r" and bytes such as "\xE9" are written out.
[[nodiscard]] std::string Unescaped(const std::string& text);

/// The rows of a table in tests/golden, each cut at its tabs, its fields unescaped. Lines that start with "#" are
/// comments.
[[nodiscard]] std::vector<Texts> GoldenRows(const std::string& name);

/// Puts the whole process-wide state back to that of a first start, without reading or writing a file.
void ResetState();

/// The whole start, with the preferences that lie in ProgramFolder.
void StartProgram();

/// The number of the fault that `work` raises, if it does.
template <typename Work>
[[nodiscard]] std::optional<FaultNumber> FaultOf(Work work) {
    try {
        work();
    } catch (const Fault& fault) {
        return fault.Number();
    }
    return std::nullopt;
}

/// A test with a fresh program: all state as after the start without preferences, and a folder of its own for
/// files, in which also the user's levels lie.
class FreshTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    /// Ends the program and starts it afresh: for the next row of a table.
    void Restart() {
        TearDown();
        SetUp();
    }

    [[nodiscard]] std::string PathOf(const std::string& name) const {
        return (folder / name).make_preferred().string();
    }

    /// Writes a file into the test's folder and gives its path.
    std::string Store(const std::string& name, const std::string& bytes) {
        WriteFile(folder / name, bytes);
        return PathOf(name);
    }

    std::filesystem::path folder;  ///< empty at the start of each test
};
