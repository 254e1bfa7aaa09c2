#include <sstream>

#include "core/LineEnds.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "tests/ModelTest.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

// What the pages about the file formats show is what the program reads and writes.

namespace {

using FormatPagesTest = ModelTest;

/// A page: its example, which is the fenced block of `language`, and what its rows of "| `read` | `written` |" say.
struct Page {
    Page(const std::string& name, const std::string& language) {
        const std::string text = FileText(DOCS_FOLDER "/" + name);
        const std::string fence = "\n```" + language + "\n";
        const std::size_t start = text.find(fence) + fence.size();
        example = text.substr(start, text.find("\n```\n", start) + 1 - start);
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            const std::size_t middle = line.find("` | `");
            if (line.starts_with("| `(") && middle != std::string::npos) {
                forgiven.emplace_back(line.substr(3, middle - 3), line.substr(middle + 5, line.size() - middle - 8));
            }
        }
    }
    std::string example;
    std::vector<std::pair<std::string, std::string>> forgiven;
};

/// The bytes of a dump such as `01 00 "text" *3 | comment`, where *3 stands for three zeros.
std::string BytesOf(const std::string& dump) {
    std::string bytes;
    std::istringstream words(dump);
    for (std::string word; words >> word;) {
        switch (word[0]) {
            case '|': std::getline(words, word); break;
            case '*': bytes.append(std::stoul(word.substr(1)), '\0'); break;
            case '"': bytes.append(word, 1, word.size() - 2); break;
            default: bytes += static_cast<char>(std::stoi(word, nullptr, 16));
        }
    }
    return bytes;
}

TEST_F(FormatPagesTest, LevelFiles) {
    const auto written = [&](const std::string& bytes) {
        ReadLevelFile(Store("level.fbl", bytes));
        UseUnixLineEnds();
        BuildLevelText();
        return LevelText;
    };
    const Page page("level-format.md", "fbl");
    EXPECT_EQ(written(page.example), page.example);
    EXPECT_EQ(page.forgiven.size(), 15U);
    for (const auto& [line, back] : page.forgiven) {
        EXPECT_NE(written(";\r\n(floebird-level\r\n" + line + "\r\n").find("  " + back + "\n"), std::string::npos)
            << line;
    }
}

TEST_F(FormatPagesTest, WorldMapFiles) {
    const auto written = [&](const std::string& bytes) {
        ReadWorldFile(Store("map.fbwm", bytes));
        BuildWorldText();
        return WorldOutput;
    };
    const Page page("world-format.md", "fbwm");
    EXPECT_EQ(written(page.example), page.example);
    EXPECT_EQ(page.forgiven.size(), 6U);
    for (const auto& [key, back] : page.forgiven) {
        const std::string bytes =
            "(floebird-worldmap (tilemap (width 1) (height 1) (data 0)) (properties " + key + "))\n";
        EXPECT_NE(written(bytes).find("    " + back), std::string::npos) << key;
    }
}

TEST_F(FormatPagesTest, Preferences) {
    const std::string bytes = BytesOf(Page("preferences-format.md", "prefs").example);
    const std::string path = Store("FB_Editor.Preferences", bytes);
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.DefaultAuthor, "Ann");
    std::filesystem::remove(path);
    SavePreferences();
    EXPECT_EQ(FileText(path), bytes);
    // A text beyond the two bytes of its length leaves the file alone.
    PrefsRecord.InfoPath.assign(65536, 'i');
    EXPECT_EQ(FaultOf(SavePreferences), FaultNumber::Overflow);
    EXPECT_EQ(FileText(path), bytes);
    PrefsRecord.InfoPath.pop_back();
    SavePreferences();
    LoadPreferences();
    EXPECT_EQ(PrefsRecord.InfoPath.size(), 65535U);
}

}  // namespace
