#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <cstdlib>

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

TEST(ConversionsTest, TextToInt16) {
    const std::pair<const char*, int> good[] = {{" 12 ", 12},  {"-32768", -32768}, {"+7", 7},         {"2.5", 2},
                                                {"3.5", 4},    {"-2.5", -2},       {"1E3", 1000},     {".5", 0},
                                                {"1.5e1", 15}, {"1E-400", 0},      {"32767.4", 32767}};
    for (const auto& [text, number] : good) {
        EXPECT_EQ(TextToInt16(text), number) << text;
    }
    for (const char* text : {"", " ", "-", "x", "1x", "1 2", ".", "1.2.3", "E3", "0x10", "1E", "\t1"}) {
        EXPECT_EQ(FaultOf([&] { return TextToInt16(text); }), FaultNumber::TypeMismatch) << text;
    }
    for (const char* text : {"32768", "-32769", "32767.5", "1E999"}) {
        EXPECT_EQ(FaultOf([&] { return TextToInt16(text); }), FaultNumber::Overflow) << text;
    }
}

TEST(ConversionsTest, FloatsAndLeadingNumbers) {
    EXPECT_EQ(TextToDouble("10."), 10.0);
    EXPECT_EQ(TextToDouble("-1.25E2"), -125.0);
    for (const std::string& text : {std::string("."), std::string(), std::string("1,5"), std::string(400, '9')}) {
        EXPECT_EQ(FaultOf([&] { return TextToDouble(text); }), FaultNumber::TypeMismatch) << text;
    }
    EXPECT_EQ(LeadingNumber("  1 2x3"), 12.0);
    EXPECT_EQ(LeadingNumber("tiles"), 0.0);
    const std::pair<double, const char*> texts[] = {{8.0, "8"},
                                                    {0.1, "0.1"},
                                                    {1E20, "1E+20"},
                                                    {1.0 / 3.0, "0.333333333333333"},
                                                    {123456789012345.0, "123456789012345"},
                                                    {-0.0, "0"}};
    for (const auto& [number, text] : texts) {
        EXPECT_EQ(DoubleToText(number), text);
    }
    EXPECT_EQ(SingleToText(32.0F + 1.0F / 15.0F), "32.06667");
}

TEST(ConversionsTest, CasesOfLetters) {
    EXPECT_EQ(UpperCase("`az{"), "`AZ{");
    EXPECT_EQ(LowerCase("@AZ["), "@az[");
}

using FilesTest = ModelTest;

TEST_F(FilesTest, LinesEndAtCarriageReturns) {
    using namespace std::string_literals;
    const std::pair<std::string, Texts> cases[] = {{"", {}},
                                                   {"a", {"a"}},
                                                   {"a\r", {"a"}},
                                                   {"a\r\n", {"a"}},
                                                   {"a\n", {"a\n"}},
                                                   {"a\rb\r\nc", {"a", "b", "c"}},
                                                   {"a\nb\r\r\n\nc", {"a\nb", "", "\nc"}},
                                                   {"\0\xFF\x1A\r\n\0"s, {"\0\xFF\x1A"s, "\0"s}}};
    for (const auto& [bytes, lines] : cases) {
        OpenForInput(1, Store("lines", bytes));
        Texts found;
        while (!AtEndOfFile(1)) {
            found.push_back(LineInput(1));
        }
        EXPECT_EQ(found, lines);
        EXPECT_EQ(FaultOf([] { return LineInput(1); }), FaultNumber::InputPastEndOfFile);
        CloseFile(1);
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

TEST(GeneralTest, LogonNames) {
    const std::pair<const char*, const char*> cases[] = {{"john.doe", "JOHN"},
                                                         {"eightchr", "EIGHTCHR"},
                                                         {"ninechars", ""},
                                                         {"", ""},
                                                         {"a-name-of-24-characters-", "A"},
                                                         {"a-name-of-25-characters--", ""}};
    for (const auto& [name, logonName] : cases) {
        EXPECT_EQ(LogonNameFor(name), logonName + std::string(16 - std::string(logonName).size(), ' ')) << name;
    }
}

}  // namespace
