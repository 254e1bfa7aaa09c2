#include "platform/Files.h"

#include <optional>
#include <vector>

#include "core/General.h"
#include "tests/Golden.h"
#include "tests/ModelTest.h"

namespace {

class FilesTest : public ModelTest {
protected:
    template <typename Work>
    static std::optional<FaultNumber> FaultOf(Work work) {
        try {
            work();
        } catch (const Fault& fault) {
            return fault.Number();
        }
        return std::nullopt;
    }

    std::vector<std::string> LinesOf(const std::string& bytes) const {
        const int file = FreeFileNumber();
        OpenForInput(file, Store("lines", bytes));
        std::vector<std::string> lines;
        while (!AtEndOfFile(file)) {
            lines.push_back(LineInput(file));
        }
        EXPECT_EQ(FaultOf([&] { return LineInput(file); }), FaultNumber::InputPastEndOfFile);
        CloseFile(file);
        return lines;
    }
};

TEST_F(FilesTest, LinesEndAtCarriageReturns) {
    using Lines = std::vector<std::string>;
    using namespace std::string_literals;
    EXPECT_EQ(LinesOf(""), Lines());
    EXPECT_EQ(LinesOf("a"), Lines({"a"}));
    EXPECT_EQ(LinesOf("a\r"), Lines({"a"}));
    EXPECT_EQ(LinesOf("a\r\n"), Lines({"a"}));
    EXPECT_EQ(LinesOf("a\rb\r\nc"), Lines({"a", "b", "c"}));
    EXPECT_EQ(LinesOf("a\nb\r\r\n\nc"), Lines({"a\nb", "", "\nc"}));
    EXPECT_EQ(LinesOf("a\n"), Lines({"a\n"}));
    EXPECT_EQ(LinesOf("\0\xFF\x1A\r\n\0"s), Lines({"\0\xFF\x1A"s, "\0"s}));
}

TEST_F(FilesTest, OpeningFaults) {
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, PathOf("missing")); }), FaultNumber::FileNotFound);
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, folder.string()); }), FaultNumber::PathFileAccessError);
    EXPECT_EQ(FaultOf([&] { OpenForInput(1, ""); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([&] { OpenForBinary(1, PathOf("no/such/folder")); }), FaultNumber::PathNotFound);
    EXPECT_EQ(FaultOf([] { return LineInput(7); }), FaultNumber::BadFileNumber);
    EXPECT_EQ(FaultOf([] { return LineInput(512); }), FaultNumber::BadFileNumber);
    CloseFile(7);
}

TEST_F(FilesTest, NumbersComeFromATableOf511) {
    const std::string path = Store("file", "x");
    for (int number = FirstFileNumber; number <= LastFileNumber; ++number) {
        ASSERT_EQ(FreeFileNumber(), number);
        OpenForInput(number, path);
    }
    EXPECT_EQ(FaultOf([] { return FreeFileNumber(); }), FaultNumber::TooManyFiles);
    CloseFile(200);
    EXPECT_EQ(FreeFileNumber(), 200);
}

TEST_F(FilesTest, BinaryOutputKeepsWhatStandsBehind) {
    const std::string path = Store("file", "0123456789");
    OpenForBinary(1, path);
    EXPECT_EQ(FileLength(1), 10);
    WriteBytes(1, "ab");
    CloseFile(1);
    EXPECT_EQ(FileBytes(path), "ab23456789");
}

TEST_F(FilesTest, QueriesAndFolders) {
    EXPECT_EQ(QueryFile(Store("info", "")), "info");
    EXPECT_EQ(QueryFile(PathOf("Info")), "");
    EXPECT_EQ(QueryFile(folder.string()), "");
    EXPECT_EQ(QueryFile(""), "");
    MakeFolder(PathOf("new"));
    EXPECT_EQ(FaultOf([&] { MakeFolder(PathOf("new")); }), FaultNumber::PathFileAccessError);
    EXPECT_EQ(FaultOf([&] { MakeFolder(PathOf("a/b")); }), FaultNumber::PathNotFound);
    EXPECT_EQ(FaultOf([&] { DeleteExistingFile(PathOf("gone")); }), FaultNumber::FileNotFound);
    DeleteFileQuietly(PathOf("gone"));
    DeleteFileQuietly(PathOf("info"));
    EXPECT_EQ(QueryFile(PathOf("info")), "");
}

TEST(GeneralTest, PathsKnowBothSeparators) {
    EXPECT_EQ(FolderOf("/a/b.fbl"), "/a/");
    EXPECT_EQ(FolderOf("C:\\a\\b.fbl"), "C:\\a\\");
    EXPECT_EQ(FolderOf("b.fbl"), "");
    EXPECT_EQ(FileNameOf("/a/b.fbl"), "b.fbl");
    EXPECT_EQ(FileNameOf("a\\b/c\\"), "");
    EXPECT_EQ(FileNameOf("b.fbl"), "b.fbl");
    EXPECT_EQ(JoinPath("/a", "b"), "/a/b");
    EXPECT_EQ(JoinPath("/a/", "b"), "/a/b");
}

TEST(GeneralTest, LogonNames) {
    const std::pair<const char*, const char*> cases[] = {
        {"Anna", "ANNA            "},
        {"john.doe", "JOHN            "},
        {"Administrator", "                "},
        {"ninechars", "                "},
        {"eightchr", "EIGHTCHR        "},
        {"", "                "},
        {"a-very-long-name-of-25-char", "                "},
    };
    for (const auto& [name, logonName] : cases) {
        EXPECT_EQ(LogonNameFor(name), logonName) << name;
    }
}

}  // namespace
