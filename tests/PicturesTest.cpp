// The embedded picture lists: their sizes, that each picture can be told from all others of its list, and that pictures
// which are laid side by side meet along their common edge.

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QResource>
#include <QString>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Sheet {
    const char* name;
    int count;
    int width;  // of one picture, in pixels at 1x
    int height;
};

constexpr int Columns = 16;  // cells in a row of a sheet

constexpr Sheet Blocks{"BlockImgList", 204, 32, 32};
constexpr Sheet World{"WorldImages", 76, 32, 32};

constexpr Sheet Sheets[] = {
    Blocks,
    World,
    {"BadGuysList", 10, 35, 32},
    {"TBImages", 10, 24, 23},
    {"WTBImages", 6, 24, 23},
    {"NukIcon", 1, 44, 44},
    {"NukImage", 1, 42, 65},
    {"ResetImg", 1, 32, 32},
    {"NukImg", 1, 32, 32},
    {"BlankImg", 1, 32, 32},
    {"ObjIndImg", 1, 16, 16},
    {"BGIndImg", 1, 16, 16},
    {"LinkIndImg", 1, 16, 16},
    {"zBGImg", 1, 64, 64},
    {"PreviewImg", 1, 160, 120},
    {"PNGImage", 1, 640, 480},
    {"ProgramIcon", 1, 64, 64},
};

constexpr int Zooms[] = {1, 2};

QImage LoadSheet(const Sheet& sheet, int zoom) {
    const QString suffix = zoom == 1 ? QString() : QStringLiteral("@%1x").arg(zoom);
    return QImage(QStringLiteral(":/pictures/%1%2.png").arg(QLatin1String(sheet.name), suffix))
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// The pictures of a list; element 0 is picture 1.
std::vector<QImage> CutUp(const Sheet& sheet, int zoom) {
    const QImage whole = LoadSheet(sheet, zoom);
    const int width = sheet.width * zoom;
    const int height = sheet.height * zoom;
    std::vector<QImage> pictures;
    pictures.reserve(sheet.count);
    for (int i = 0; i < sheet.count; ++i) {
        pictures.push_back(whole.copy(i % Columns * width, i / Columns * height, width, height));
    }
    return pictures;
}

// The largest difference of two premultiplied pixels in any channel, 0 to 255.
int Difference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b)),
                     std::abs(qAlpha(a) - qAlpha(b))});
}

int DifferingPixels(const QImage& a, const QImage& b, int tolerance) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            count += static_cast<int>(Difference(a.pixel(x, y), b.pixel(x, y)) > tolerance);
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

enum class Side { Right, Below };

// The line of pixels that lies `depth` pixels inside the picture, seen from its right or lower edge (fromEnd) or from
// its left or upper one.
std::vector<QRgb> EdgeLine(const QImage& picture, Side side, bool fromEnd, int depth) {
    const int length = side == Side::Right ? picture.width() : picture.height();
    const int at = fromEnd ? length - 1 - depth : depth;
    std::vector<QRgb> line;
    line.reserve((side == Side::Right ? picture.height() : picture.width()));
    for (int i = 0; i < (side == Side::Right ? picture.height() : picture.width()); ++i) {
        line.push_back(side == Side::Right ? picture.pixel(at, i) : picture.pixel(i, at));
    }
    return line;
}

// How much changes from one line of pixels to the next.
int Step(const std::vector<QRgb>& a, const std::vector<QRgb>& b) {
    int sum = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        sum += Difference(a[i], b[i]);
    }
    return sum;
}

bool IsPainted(const std::vector<QRgb>& line) {
    return std::any_of(line.begin(), line.end(), [](QRgb pixel) { return qAlpha(pixel) > 128; });
}

// Pictures as they lie on a map, row by row; 0 is a cell that does not matter.
struct Pattern {
    const char* name;
    std::vector<std::vector<int>> rows;
};

class Joins {
public:
    explicit Joins(const Sheet& sheet) {
        for (int zoom : Zooms) {
            pictures_.push_back(CutUp(sheet, zoom));
        }
    }

    void Check(const Pattern& pattern) const {
        for (std::size_t y = 0; y < pattern.rows.size(); ++y) {
            for (std::size_t x = 0; x < pattern.rows[y].size(); ++x) {
                if (x + 1 < pattern.rows[y].size()) {
                    CheckPair(pattern.name, pattern.rows[y][x], pattern.rows[y][x + 1], Side::Right);
                }
                if (y + 1 < pattern.rows.size() && x < pattern.rows[y + 1].size()) {
                    CheckPair(pattern.name, pattern.rows[y][x], pattern.rows[y + 1][x], Side::Below);
                }
            }
        }
    }

private:
    void CheckPair(const char* name, int first, int second, Side side) const {
        if (first == 0 || second == 0) {
            return;
        }
        for (int zoom : Zooms) {
            SCOPED_TRACE(std::string(name) + ": " + std::to_string(second) +
                         (side == Side::Right ? " right of " : " below ") + std::to_string(first) + " at " +
                         std::to_string(zoom) + "x");
            CheckEdge(pictures_[zoom - 1][first - 1], pictures_[zoom - 1][second - 1], side);
        }
    }

    // There is no seam if the step across the edge is hardly greater than the steps on both sides of it.
    static void CheckEdge(const QImage& first, const QImage& second, Side side) {
        const std::vector<QRgb> a = EdgeLine(first, side, true, 0);
        const std::vector<QRgb> b = EdgeLine(second, side, false, 0);
        const int beside = std::max(Step(EdgeLine(first, side, true, 1), a), Step(b, EdgeLine(second, side, false, 1)));
        const int tolerance = 5 * static_cast<int>(a.size());
        EXPECT_TRUE(IsPainted(a) && IsPainted(b));
        EXPECT_LE(Step(a, b), beside + beside / 3 + tolerance);
    }

    std::vector<std::vector<QImage>> pictures_;  // by zoom - 1, then by number - 1
};

// A ground set: nine pieces of a block, four inner corners, and a column of one tile's width.
struct GroundSet {
    const char* name;
    int topLeft, top, topRight, left, centre, right, bottomLeft, bottom, bottomRight;
    int innerTopLeft, innerTopRight, innerBottomLeft, innerBottomRight;
    int columnTop, columnMiddle, columnBottom;
};

constexpr GroundSet GroundSets[] = {
    {"snow", 1, 2, 3, 5, 6, 7, 9, 10, 11, 13, 14, 15, 16, 20, 8, 12},
    {"rock", 33, 34, 35, 38, 37, 39, 41, 42, 43, 45, 46, 47, 48, 36, 40, 44},
    {"ice", 61, 62, 63, 65, 66, 67, 69, 70, 71, 173, 174, 175, 176, 64, 68, 72},
    {"cave", 161, 162, 163, 165, 166, 167, 169, 170, 171, 177, 178, 179, 180, 164, 168, 172},
};

// A cross, which holds every piece and every way in which two of them meet, and the column.
std::vector<Pattern> PatternsOf(const GroundSet& s) {
    return {{s.name,
             {{0, s.topLeft, s.top, s.top, s.topRight, 0},
              {0, s.left, s.centre, s.centre, s.right, 0},
              {s.topLeft, s.innerTopLeft, s.centre, s.centre, s.innerTopRight, s.topRight},
              {s.left, s.centre, s.centre, s.centre, s.centre, s.right},
              {s.bottomLeft, s.innerBottomLeft, s.centre, s.centre, s.innerBottomRight, s.bottomRight},
              {0, s.left, s.centre, s.centre, s.right, 0},
              {0, s.bottomLeft, s.bottom, s.bottom, s.bottomRight, 0}}},
            {s.name, {{s.columnTop}, {s.columnMiddle}, {s.columnMiddle}, {s.columnBottom}}}};
}

const Pattern LevelPatterns[] = {
    {"bush", {{50, 49}, {51, 52}}},
    {"pine", {{53}, {54}}},
    {"lamp", {{55}, {56}}},
    {"log", {{57, 58}}},
    {"sled", {{59, 60}}},
    {"large cloud", {{85, 86, 87, 88}, {89, 90, 91, 92}}},
    {"snow cloud", {{106, 107, 108}, {109, 110, 111}}},
    {"snowman", {{115, 116}, {117, 118}}},
    {"pipe", {{122, 123}, {124, 125}, {124, 125}}},
    {"banner", {{134, 135}}},
    {"large crate", {{136, 137}, {138, 139}}},
    {"igloo", {{126, 127}}},
    {"goal column", {{129}, {132}, {132}}},
    {"gate column", {{130}, {133}, {133}}},
    {"floor", {{25, 26, 26, 29, 30, 31, 26, 27}}},
    {"floor and below", {{0, 26, 26, 0}, {32, 32, 32, 32}, {32, 32, 32, 32}}},
    {"top on its ground", {{34, 34, 34}, {37, 37, 37}}},
    {"slope", {{0, 21, 22, 0}, {21, 23, 24, 22}, {23, 6, 6, 24}}},
    {"slope from the flat", {{0, 21, 2, 22, 0}, {2, 23, 6, 24, 2}}},
    {"snow ledge", {{17, 18, 18, 19}}},
    {"ice ledge", {{73, 74, 74, 75}}},
    {"cloud bank", {{94, 95, 95, 96}}},
    {"water", {{97, 97}, {98, 98}, {98, 98}}},
    {"spikes", {{101, 101}}},
    {"plank", {{141, 142, 142, 143}}},
    {"post", {{144}, {144}}},
    {"rope bridge", {{145, 146, 146, 147}}},
    {"ladder", {{148}, {148}}},
    {"wooden wall", {{149, 150, 149}, {149, 151, 149}, {149, 152, 149}}},
    {"snow house", {{153, 154, 155}, {156, 157, 158}}},
    {"snow bricks", {{159, 160, 159}, {159, 159, 159}}},
    {"pennants", {{191, 191}}},
    {"chain", {{197}, {197}}},
    {"rope", {{198}, {198}}},
};

const Pattern WorldPatterns[] = {
    {"island",
     {{9, 9, 9, 9, 9, 9},
      {9, 1, 2, 2, 3, 9},
      {9, 5, 6, 6, 7, 9},
      {9, 5, 6, 6, 7, 9},
      {9, 10, 11, 11, 12, 9},
      {9, 9, 9, 9, 9, 9}}},
    {"pond", {{6, 6, 6, 6}, {6, 16, 11, 15}, {6, 7, 9, 5}, {6, 14, 2, 13}}},
    {"sea and snow", {{9, 8, 9}, {45, 46, 47}}},
    {"paths",
     {{21, 17, 25, 17, 22}, {18, 0, 18, 0, 18}, {27, 17, 19, 17, 28}, {18, 0, 18, 0, 18}, {23, 17, 26, 17, 24}}},
    {"path square", {{0, 18, 0}, {17, 20, 17}, {0, 18, 0}}},
    {"path ends", {{60, 17, 61}}},
    {"upright path ends", {{62}, {18}, {63}}},
    {"bridge", {{17, 41, 29, 29, 43, 17}}},
    {"upright bridge", {{18}, {42}, {30}, {30}, {40}, {18}}},
    {"rivers", {{66, 64, 64, 67}, {65, 0, 0, 65}, {68, 64, 64, 69}}},
    {"path over a river", {{0, 65, 0}, {17, 70, 17}, {0, 65, 0}}},
    {"upright path over a river", {{0, 18, 0}, {64, 71, 64}, {0, 18, 0}}},
    {"river mouth", {{6, 65, 6}, {11, 44, 11}, {9, 9, 9}}},
    {"castle", {{49, 50, 51}, {52, 53, 54}, {55, 56, 57}}},
    {"castle on snow", {{6, 6, 6, 6, 6}, {6, 49, 50, 51, 6}, {6, 52, 53, 54, 6}, {6, 55, 56, 57, 6}, {6, 6, 6, 6, 6}}},
    {"start marker", {{58}, {59}}},
};

}  // namespace

class PicturesTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() { Q_INIT_RESOURCE(pictures); }
};

TEST_F(PicturesTest, SheetsHoldTheirCellsAtBothScales) {
    for (const Sheet& sheet : Sheets) {
        for (int zoom : Zooms) {
            const QImage whole = LoadSheet(sheet, zoom);
            const int columns = std::min(sheet.count, Columns);
            const int rows = (sheet.count + Columns - 1) / Columns;
            EXPECT_EQ(whole.width(), columns * sheet.width * zoom) << sheet.name << " at " << zoom << "x";
            EXPECT_EQ(whole.height(), rows * sheet.height * zoom) << sheet.name << " at " << zoom << "x";
        }
    }
}

TEST_F(PicturesTest, NoCellIsLeftEmpty) {
    for (const Sheet& sheet : Sheets) {
        const std::vector<QImage> pictures = CutUp(sheet, 1);
        QImage nothing(sheet.width, sheet.height, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        for (int i = 0; i < sheet.count; ++i) {
            EXPECT_GT(DifferingPixels(pictures[i], nothing, 40), sheet.width) << sheet.name << " " << i + 1;
        }
    }
}

TEST_F(PicturesTest, NoTwoOfAListAreAlike) {
    for (const Sheet& sheet : Sheets) {
        const std::vector<QImage> pictures = CutUp(sheet, 1);
        const int needed = sheet.width * sheet.height / 50;
        for (int i = 0; i < sheet.count; ++i) {
            for (int j = i + 1; j < sheet.count; ++j) {
                EXPECT_GE(DifferingPixels(pictures[i], pictures[j], 24), needed)
                    << sheet.name << " " << i + 1 << " and " << j + 1;
            }
        }
    }
}

// Opaque pictures are the cheap ones to paint: the inside of the ground, its open edges and all tiles of the world.
TEST_F(PicturesTest, GroundIsOpaque) {
    for (int zoom : Zooms) {
        const std::vector<QImage> tiles = CutUp(Blocks, zoom);
        std::vector<int> numbers = {26, 29, 30, 31, 32, 77, 78, 79, 80, 98, 100, 131, 140, 149, 159, 204};
        for (const GroundSet& set : GroundSets) {
            for (int n : {set.top, set.left, set.centre, set.right, set.bottom, set.columnMiddle, set.innerTopLeft,
                          set.innerTopRight, set.innerBottomLeft, set.innerBottomRight}) {
                numbers.push_back(n);
            }
        }
        for (int n : numbers) {
            EXPECT_TRUE(IsOpaque(tiles[n - 1])) << "tile " << n << " at " << zoom << "x";
        }

        const std::vector<QImage> world = CutUp(World, zoom);
        for (int n = 1; n <= 71; ++n) {
            EXPECT_TRUE(IsOpaque(world[n - 1])) << "world tile " << n << " at " << zoom << "x";
        }
    }
}

TEST_F(PicturesTest, GroundSetsJoinInAllDirections) {
    const Joins joins(Blocks);
    for (const GroundSet& set : GroundSets) {
        for (const Pattern& pattern : PatternsOf(set)) {
            joins.Check(pattern);
        }
    }
}

TEST_F(PicturesTest, LevelShapesJoin) {
    const Joins joins(Blocks);
    for (const Pattern& pattern : LevelPatterns) {
        joins.Check(pattern);
    }
}

TEST_F(PicturesTest, WorldShapesJoin) {
    const Joins joins(World);
    for (const Pattern& pattern : WorldPatterns) {
        joins.Check(pattern);
    }
}
