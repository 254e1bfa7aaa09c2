#include <QImage>
#include <algorithm>
#include <sstream>

#include "platform/Pictures.h"
#include "tests/Support.h"

// The embedded picture lists: their sizes, that each picture can be told from all others of its list, and that pictures
// which are laid side by side meet along their common edge.

namespace {

struct Sheet {
    const char* name;
    int count;
    int width;  // of one picture, in pixels at 1x
    int height;
};

constexpr int Columns = 16;  // cells in a row of a sheet

constexpr Sheet Sheets[] = {{"BlockImgList", 204, 32, 32}, {"WorldImages", 76, 32, 32}, {"BadGuysList", 10, 35, 32},
                            {"TBImages", 10, 24, 23},      {"WTBImages", 6, 24, 23},    {"NukIcon", 1, 44, 44},
                            {"NukImage", 1, 42, 65},       {"ResetImg", 1, 32, 32},     {"NukImg", 1, 32, 32},
                            {"BlankImg", 1, 32, 32},       {"ObjIndImg", 1, 16, 16},    {"BGIndImg", 1, 16, 16},
                            {"LinkIndImg", 1, 16, 16},     {"zBGImg", 1, 64, 64},       {"PreviewImg", 1, 324, 243},
                            {"PNGImage", 1, 640, 480},     {"ProgramIcon", 1, 64, 64}};

/// The pictures of a list; element 0 is picture 1.
std::vector<QImage> CutUp(const Sheet& sheet, int zoom) {
    const QImage whole = SheetPixels(sheet.name, zoom);
    const QSize size = QSize(sheet.width, sheet.height) * zoom;
    std::vector<QImage> pictures;
    pictures.reserve(static_cast<std::size_t>(sheet.count));
    for (int i = 0; i < sheet.count; ++i) {
        pictures.push_back(whole.copy({{i % Columns * size.width(), i / Columns * size.height()}, size}));
    }
    return pictures;
}

/// The largest difference of two premultiplied pixels in any channel, 0 to 255.
int Difference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

int DifferingPixels(const QImage& a, const QImage& b, int tolerance) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += Difference(a.pixel(x, y), b.pixel(x, y)) > tolerance ? 1 : 0;
        }
    }
    return count;
}

bool IsOpaque(const QImage& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qAlpha(picture.pixel(x, y)) != 255) {
                return false;
            }
        }
    }
    return true;
}

using Line = std::vector<QRgb>;

Line ColumnOf(const QImage& picture, int x) {
    Line line;
    for (int y = 0; y < picture.height(); ++y) {
        line.push_back(picture.pixel(x, y));
    }
    return line;
}

/// How much changes from one line of pixels to the next.
int Step(const Line& a, const Line& b) {
    int sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += Difference(a[i], b[i]);
    }
    return sum;
}

bool IsPainted(const Line& line) {
    return std::any_of(line.begin(), line.end(), [](QRgb pixel) { return qAlpha(pixel) > 128; });
}

/// There is no seam if the step across the edge is hardly greater than the steps on both sides of it.
bool Meet(const QImage& left, const QImage& right) {
    const Line a = ColumnOf(left, left.width() - 1);
    const Line b = ColumnOf(right, 0);
    const int beside = std::max(Step(ColumnOf(left, left.width() - 2), a), Step(b, ColumnOf(right, 1)));
    return IsPainted(a) && IsPainted(b) && Step(a, b) <= beside + beside / 3 + 5 * left.height();
}

QImage Turned(const QImage& picture) { return picture.transformed(QTransform(0, 1, 1, 0, 0, 0)); }

std::vector<std::vector<std::size_t>> MapOf(const std::string& text) {
    std::vector<std::vector<std::size_t>> rows(1);
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        if (word == "/") {
            rows.emplace_back();
        } else {
            rows.back().push_back(std::stoul(word));
        }
    }
    return rows;
}

TEST(PicturesTest, SheetsHoldPicturesThatDiffer) {
    for (const Sheet& sheet : Sheets) {
        const QSize cells(std::min(sheet.count, Columns), (sheet.count + Columns - 1) / Columns);
        for (const int zoom : {1, 2}) {
            const QSize size(cells.width() * sheet.width, cells.height() * sheet.height);
            EXPECT_EQ(SheetPixels(sheet.name, zoom).size(), size * zoom) << sheet.name << " at " << zoom << "x";
        }
        std::vector<QImage> pictures = CutUp(sheet, 1);
        pictures.insert(pictures.begin(), pictures[0]);
        pictures[0].fill(Qt::transparent);  // nor is any of them empty
        for (std::size_t i = 0; i < pictures.size(); ++i) {
            for (std::size_t j = i + 1; j < pictures.size(); ++j) {
                EXPECT_GE(DifferingPixels(pictures[i], pictures[j], 24), sheet.width * sheet.height / 50)
                    << sheet.name << " " << i << " and " << j;
            }
        }
    }
}

TEST(PicturesTest, GroundIsOpaqueAndShapesJoin) {
    const auto rows = GoldenRows("picture-joins.txt");
    ASSERT_GT(rows.size(), 60U);
    for (const int zoom : {1, 2}) {
        const std::vector<QImage> lists[] = {CutUp(Sheets[0], zoom), CutUp(Sheets[1], zoom)};
        for (const Texts& row : rows) {
            SCOPED_TRACE(row.at(1) + " at " + std::to_string(zoom) + "x");
            const auto& pictures = lists[row[0] == "BlockImgList" ? 0 : 1];
            const auto map = MapOf(row.at(2));
            for (std::size_t y = 0; y < map.size(); ++y) {
                for (std::size_t x = 0; x < map[y].size(); ++x) {
                    const auto at = [&](std::size_t column, std::size_t line) {
                        return line < map.size() && column < map[line].size() ? map[line][column] : 0;
                    };
                    const std::size_t here = at(x, y);
                    const std::size_t right = at(x + 1, y);
                    const std::size_t below = at(x, y + 1);
                    if (row[1] == "opaque") {
                        EXPECT_TRUE(IsOpaque(pictures[here - 1])) << here;
                        continue;
                    }
                    EXPECT_TRUE(here == 0 || right == 0 || Meet(pictures[here - 1], pictures[right - 1]))
                        << right << " right of " << here;
                    EXPECT_TRUE(here == 0 || below == 0 ||
                                Meet(Turned(pictures[here - 1]), Turned(pictures[below - 1])))
                        << below << " below " << here;
                }
            }
        }
    }
}

}  // namespace
