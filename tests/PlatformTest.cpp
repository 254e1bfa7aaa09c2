#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <cstdlib>
#include <functional>
#include <map>

#include "core/General.h"
#include "platform/Conversions.h"
#include "platform/Files.h"
#include "platform/Int16.h"
#include "platform/Texts.h"
#include "tests/ModelTest.h"

// The half of the platform layer that needs no toolkit: numbers, files, paths.

namespace {

TEST(Int16Test, ArithmeticFaultsInsteadOfWrapping) {
    EXPECT_EQ(FaultOf([] { return Int16(32767) + 1; }), FaultNumber::Overflow);
    EXPECT_EQ(FaultOf([] { return Int16(-32768) - 1; }), FaultNumber::Overflow);
    // Also where the end of the expression would fit again.
    EXPECT_EQ(FaultOf([] { return Int16(1024) * 32 - 1; }), FaultNumber::Overflow);
    EXPECT_EQ(Int16(1023) * 32 + 31, 32767);
}

using FilesTest = ModelTest;

/// What each function makes of a text, or the number of its fault.
TEST_F(FilesTest, Conversions) {
    const auto lines = [this](const std::string& bytes) {
        OpenForInput(1, Store("lines", bytes));
        std::string found;
        while (!AtEndOfFile(1)) {
            found += LineInput(1) + "|";
        }
        EXPECT_EQ(FaultOf([] { return LineInput(1); }), FaultNumber::InputPastEndOfFile);
        CloseFile(1);
        return found;
    };
    const std::map<std::string, std::function<std::string(const std::string&)>> functions{
        {"TextToInt16", [](const std::string& text) { return std::to_string(TextToInt16(text)); }},
        {"TextToDouble", [](const std::string& text) { return std::to_string(TextToDouble(text)); }},
        {"LeadingNumber", [](const std::string& text) { return std::to_string(LeadingNumber(text)); }},
        {"DoubleToText", [](const std::string& text) { return DoubleToText(std::stod(text)); }},
        {"SingleToText", [](const std::string& text) { return SingleToText(std::stof(text)); }},
        {"UpperCase", UpperCase},
        {"LowerCase", LowerCase},
        {"LogonNameFor", LogonNameFor},
        {"LineInput", lines}};
    const auto rows = GoldenRows("conversions.txt");
    ASSERT_GT(rows.size(), 50U);
    for (const Texts& row : rows) {
        std::string given;
        const auto fault = FaultOf([&] { given = functions.at(row.at(0))(row.at(1)); });
        EXPECT_EQ(fault ? "fault " + std::to_string(static_cast<int>(*fault)) : given, row.at(2))
            << row[0] << " of " << row[1];
    }
}

TEST_F(FilesTest, AnyNameOpens) {
    for (const std::string name : {"gr\xC3\xBC\xC3\x9F.fbl", "\xE6\xB0\xB7\xE5\xB1\xB1", "\xF0\x9F\x90\xA7 x"}) {
        const std::string path = JoinPath(folder.string(), name);
        OpenForBinary(1, path);
        WriteBytes(1, "x");
        WriteBytes(1, name);  // from the start again
        CloseFile(1);
        OpenForInput(1, path);
        EXPECT_EQ(LineInput(1), name);
        EXPECT_EQ(QueryFile(path), name);
        EXPECT_EQ(FilesIn(folder.string()), Texts{name});
        DeleteExistingFile(path);  // though a reader has left it open
        EXPECT_EQ(QueryFile(path), "");
        CloseFile(1);
    }
}

TEST_F(FilesTest, Faults) {
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, PathOf("missing")); }), FaultNumber::FileNotFound);
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, folder.string()); }), FaultNumber::PathFileAccessError);
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, ""); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([&] { OpenForBinary(1, PathOf("no/such/folder")); }), FaultNumber::PathNotFound);
    EXPECT_EQ(FaultOf([] { return LineInput(7); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([] { return LineInput(512); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([&] { DeleteExistingFile(PathOf("gone")); }), FaultNumber::FileNotFound);
    DeleteFileQuietly(PathOf("gone"));
    const std::string path = Store("file", "line");
    EXPECT_EQ(FaultOf([&] { OpenForInput(0, path); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([&] { OpenForInput(512, path); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, path + std::string(1, '\0')); }), FaultNumber::BadFileNumber);
    for (int number = 1; number <= 511; ++number) {
        EXPECT_EQ(FreeFileNumber(), number);
        OpenForInput(number, path);
    }
    EXPECT_EQ(FaultOf(FreeFileNumber), FaultNumber::TooManyFiles);
    EXPECT_EQ(FaultOf([&] { OpenForInput(511, path); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([] { WriteBytes(511, "x"); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(LineInput(511), "line");
    DeleteFileQuietly(path);
    EXPECT_EQ(QueryFile(path), "");
}

/// However a write comes out, its file is closed, and what it has written is all that is there.
TEST_F(FilesTest, WritesLeaveNothingOpenAndNothingBehind) {
    const struct {
        std::string path;
        std::optional<FaultNumber> fault;
    } writes[] = {{PathOf("new"), {}},
                  {Store("longer", "a longer text that stood here before"), {}},
                  {PathOf("gone/file"), FaultNumber::PathNotFound},
                  {folder.string(), FaultNumber::PathFileAccessError},
                  {"/dev/full", FaultNumber::DiskFull},
#ifndef _WIN32  // where too long a name is one of a missing folder
                  {PathOf(std::string(256, 'n')), FaultNumber::BadFileNumber},
                  {(mkfifo(PathOf("pipe").c_str(), 0600), PathOf("pipe")), FaultNumber::PathFileAccessError},
#endif
                  {"", FaultNumber::BadFileNumber}};
    for (const auto& [path, fault] : writes) {
        SCOPED_TRACE(path);
        EXPECT_EQ(FaultOf([&, path = path] { WriteTextFile(path, "text"); }), fault);
        EXPECT_EQ(FreeFileNumber(), 1);
        if (!fault) {
            EXPECT_EQ(FileText(path), "text");
        }
    }
    EXPECT_TRUE(std::filesystem::exists(FolderOfProgram() + "/CTestTestfile.cmake"));  // it stands beside the tests
    // A program folder that cannot be written gives way to the user's own, wherever the environment says that is.
#ifdef _WIN32
    const std::pair<const char*, const char*> variables[] = {{"APPDATA", "FB_Editor"}};
    const auto set = [](const char* variable, const std::string& value) { _putenv_s(variable, value.c_str()); };
#else
    const std::pair<const char*, const char*> variables[] = {{"XDG_CONFIG_HOME", "FB_Editor"},
                                                             {"HOME", ".config/FB_Editor"}};
    const auto set = [](const char* variable, const std::string& value) { setenv(variable, value.c_str(), 1); };
#endif
    const std::string none = Store("file", "") + "/none";
    for (const auto& [variable, name] : variables) {
        for (const auto& other : variables) {
            set(other.first, none);
        }
        set(variable, folder.string());
        const std::string expected = PathOf(name);
        EXPECT_EQ(WritableFolder(none), expected);
        EXPECT_TRUE(std::filesystem::is_directory(expected));
    }
}

}  // namespace
