#include <sstream>

#include "core/General.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Files.h"
#include "tests/ModelTest.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

// What the pages about the file formats show is what the program reads and writes.

namespace {

class FormatPagesTest : public ModelTest {
protected:
    void TearDown() override {
        ModelTest::TearDown();
        std::filesystem::remove(preferences);
    }

    /// What reading the bytes and writing them back gives, with LF line ends.
    std::string LevelOf(const std::string& bytes) {
        ReadLevelFile(Store("level.fbl", bytes));
        UseUnixLineEnds();
        BuildLevelText();
        return LevelText;
    }
    std::string WorldOf(const std::string& bytes) {
        WorldPath.clear();
        ReadWorldFile(Store("map.fbwm", bytes));
        EXPECT_EQ(WorldReadError, 0) << bytes;
        BuildWorldText();
        return WorldOutput;
    }

    const std::string preferences = JoinPath(WritableProgramFolder(), "FB_Editor.Preferences");
};

std::string Page(const std::string& name) { return FileText(std::filesystem::path(DOCS_FOLDER) / name); }

/// The page's example: the fenced block of this language.
std::string Example(const std::string& page, const std::string& language) {
    const std::string opening = "\n```" + language + "\n";
    const std::size_t start = page.find(opening) + opening.size();
    return page.substr(start, page.find("\n```\n", start) + 1 - start);
}

/// The rows of the page's table of "| `read` | `written` |".
std::vector<std::pair<std::string, std::string>> ForgivenValues(const std::string& page) {
    std::vector<std::pair<std::string, std::string>> rows;
    std::istringstream lines(page.substr(page.find("| Read | Written |")));
    for (std::string line; std::getline(lines, line) && line.starts_with('|');) {
        const std::size_t middle = line.find("` | `");
        if (middle != std::string::npos) {
            rows.emplace_back(line.substr(3, middle - 3), line.substr(middle + 5, line.size() - 3 - middle - 5));
        }
    }
    return rows;
}

/// The bytes of lines such as `01 00 "text" x3 | comment`.
std::string BytesOfDump(const std::string& dump) {
    std::string bytes;
    std::istringstream lines(dump);
    for (std::string line; std::getline(lines, line);) {
        std::string field;
        std::istringstream words(line);
        for (std::string word; words >> word && word != "|";) {
            if (word.starts_with('x')) {
                const std::string once = field;
                for (int i = std::stoi(word.substr(1)); i > 1; --i) {
                    field += once;
                }
            } else if (word.starts_with('"')) {
                field += word.substr(1, word.size() - 2);
            } else {
                field += static_cast<char>(std::stoi(word, nullptr, 16));
            }
        }
        bytes += field;
    }
    return bytes;
}

TEST_F(FormatPagesTest, LevelFiles) {
    const std::string page = Page("level-format.md");
    const std::string example = Example(page, "fbl");
    EXPECT_EQ(LevelOf(example), example);
    EXPECT_EQ(LevelRecord.BadGuyCount, 2);
    for (const auto& [read, written] : ForgivenValues(page)) {
        EXPECT_NE(LevelOf(";c\r\n(floebird-level\r\n" + read + "\r\n").find("  " + written + "\n"), std::string::npos)
            << read;
    }
    EXPECT_GE(ForgivenValues(page).size(), 10U);
}

TEST_F(FormatPagesTest, WorldMapFiles) {
    const std::string page = Page("world-format.md");
    const std::string example = Example(page, "fbwm");
    EXPECT_EQ(WorldOf(example), example);
    EXPECT_EQ(WorldRecord.LinkCount, 3);
    for (const auto& [read, written] : ForgivenValues(page)) {
        const std::string text =
            WorldOf("(floebird-worldmap (properties " + read + ") (tilemap (width 1) (height 1) (data 0)))\n");
        EXPECT_NE(text.find("    " + written), std::string::npos) << read;
    }
    EXPECT_GE(ForgivenValues(page).size(), 5U);
}

TEST_F(FormatPagesTest, Preferences) {
    const std::string example = BytesOfDump(Example(Page("preferences-format.md"), "prefs"));
    WriteFile(preferences, example);
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.DefaultAuthor, "Ann");
    std::filesystem::remove(preferences);
    SavePreferences();
    EXPECT_EQ(FileText(preferences), example);
}

}  // namespace
