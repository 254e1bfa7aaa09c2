// Times reading, composing and redrawing against baselines, in turns. Prints a line for each figure: name, time, time
// of the baseline, their unit, and the ratio that is wanted at most. Each time is the median of as many runs as the
// first argument says.

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QRadioButton>
#include <QWidget>
#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "core/LineEnds.h"
#include "core/MapGrid.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "level/LevelReader.h"
#include "level/LevelWriter.h"
#include "platform/Application.h"
#include "platform/Pictures.h"
#include "platform/Surface.h"
#include "world/WorldReader.h"
#include "world/WorldWriter.h"

namespace {

constexpr int WidestLevel = 1023;
constexpr int LargestWorldWidth = 1023;
constexpr int LargestWorldHeight = 256;
constexpr int MostLinks = 63;  // that have sprites

int runs = 51;

struct Timed {
    std::function<void()> work;
    std::function<void()> before = [] {};  // each time, and not timed
};

double Microseconds(const Timed& timed) {
    timed.before();
    const auto start = std::chrono::steady_clock::now();
    timed.work();
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<long>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// Times the two in turns, so that what else the machine does meets both alike.
void Report(const char* name, const Timed& timed, const Timed& baseline, double most) {
    timed.work();  // once to warm up
    baseline.work();
    std::vector<double> times;
    std::vector<double> base;
    for (int i = 0; i < runs; ++i) {
        times.push_back(Microseconds(timed));
        base.push_back(Microseconds(baseline));
    }
    std::printf("%s;%.1f;%.1f;us;%.1f\n", name, Median(times), Median(base), most);
    std::fflush(stdout);
}

/// `work` with `contents` in `record`, once it has been done with these: the scroll bars then know them.
template <typename Record>
Timed Within(Record& record, const Record& contents, const std::function<void()>& work) {
    return {work, [&record, &contents, work] {
                record = contents;
                work();
            }};
}

std::string FileBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Keeps the compiler from leaving out a baseline whose result nobody needs.
volatile long sink = 0;

/// One pass of std::from_chars over all numbers in `bytes`, which are in memory already.
void ScanNumbers(const std::string& bytes) {
    const char* at = bytes.data();
    const char* end = at + bytes.size();
    long sum = 0;
    while (at < end) {
        if (*at < '0' || *at > '9') {
            ++at;
            continue;
        }
        int number = 0;
        at = std::from_chars(at, end, number).ptr;
        sum += number;
    }
    sink = sum;
}

/// One pass of std::to_chars that writes the numbers, with a blank behind each.
void PrintNumbers(const std::vector<int>& numbers) {
    static std::vector<char> text;
    text.resize(numbers.size() * 7);
    char* at = text.data();
    for (const int number : numbers) {
        at = std::to_chars(at, text.data() + text.size(), number).ptr;
        *at++ = ' ';
    }
    sink = at - text.data();
}

std::vector<int> NumbersOf(const TileMap& map, int columns, int rows) {
    std::vector<int> numbers;
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            numbers.push_back(map(column, row));
        }
    }
    return numbers;
}

int AnyTile(int column, int row, int last) { return 1 + (column * 31 + row * 17) % last; }

void FillLevel(int width) {
    LevelRecord.width = width;
    LevelRecord.height = LevelRows;
    for (TileMap* layer : {&LevelRecord.background_tm, &LevelRecord.foreground_tm, &LevelRecord.interactive_tm}) {
        *layer = TileMap(width, LevelRows);
        for (int row = 0; row < LevelRows; ++row) {
            for (int column = 0; column < width; ++column) {
                (*layer)(column, row) = AnyTile(column, row, LastTile);
            }
        }
    }
    LevelLoaded = True;
}

void FillWorld(int width, int height) {
    ResetWorld();
    WorldRecord.width = width;
    WorldRecord.height = height;
    BuildBlankWorld();
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            WorldRecord.tiles(column, row) = AnyTile(column, row, 71);
        }
    }
}

void LevelFiles(const std::string& path) {
    FillLevel(WidestLevel);
    WriteLevelFile(path);
    Report("Read a level of 1023 columns", {[&] { ReadLevelFile(path); }},
           {[bytes = FileBytes(path)] { ScanNumbers(bytes); }}, 2.5);
    std::vector<int> numbers = NumbersOf(LevelRecord.background_tm, WidestLevel, LevelRows);
    numbers.resize(3 * numbers.size());
    std::copy_n(numbers.begin(), numbers.size() / 3, numbers.begin() + static_cast<long>(numbers.size() / 3));
    std::copy_n(numbers.begin(), numbers.size() / 3, numbers.begin() + static_cast<long>(numbers.size() / 3 * 2));
    UseUnixLineEnds();
    Report("Compose its text", {BuildLevelText}, {[&] { PrintNumbers(numbers); }}, 1.8);
}

void WorldFiles(const std::string& path) {
    FillWorld(LargestWorldWidth, LargestWorldHeight);
    BuildWorldText();
    WriteWorldFile(path);
    WorldPath = path;
    Report("Read a world of 1023 by 256", {[&] { ReadWorldFile(path); }},
           {[bytes = FileBytes(path)] { ScanNumbers(bytes); }}, 2.2);
    const std::vector<int> numbers = NumbersOf(WorldRecord.tiles, LargestWorldWidth, LargestWorldHeight);
    Report("Compose its text (world)", {BuildWorldText}, {[&] { PrintNumbers(numbers); }}, 1.5);
}

Surface* ScreenSurface(const char* name) {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QLatin1String(name)) {
            return dynamic_cast<Surface*>(widget);
        }
    }
    std::fprintf(stderr, "%s is not open\n", name);
    std::exit(EXIT_FAILURE);
}

/// A widget without anything of ours: the same pictures at the same places, and nothing else.
class BareWidget : public QWidget {
public:
    explicit BareWidget(const ImageList& pictures) : pictures_(pictures) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFixedSize(ViewColumns * CellPitch, ViewRows * CellPitch);
        show();
        QGuiApplication::sync();
    }

    void Redraw() {
        ++first_;
        repaint();
        QGuiApplication::sync();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        for (int i = 0; i < ViewCells; ++i) {
            painter.drawPixmap(CellColumn(i) * CellPitch, CellRow(i) * CellPitch,
                               *pictures_[AnyTile(first_ + CellColumn(i), CellRow(i), 71)].Pixmap());
        }
    }

private:
    const ImageList& pictures_;
    int first_ = 0;
};

/// A redraw in which every cell gets another picture, painted and flushed to the display's server.
void Redraw(Surface& surface, TileMap& map, int last, const std::function<void()>& update) {
    static int shift = 0;
    ++shift;
    for (int row = 0; row < ViewRows; ++row) {
        for (int column = 0; column < ViewColumns; ++column) {
            map(column, row) = AnyTile(column + shift, row, last);
        }
    }
    update();
    surface.PaintMarked();
    QGuiApplication::sync();
}

void LevelRedraws() {
    LoadMainFrm();
    ShowMainFrm();
    PrefsRecord.GridState = 1;
    Surface& surface = *ScreenSurface("MainFrm");
    QGuiApplication::sync();
    BareWidget bare(BlockImgList());
    const auto redraw = [&] { Redraw(surface, LevelRecord.background_tm, 71, UpdateDisplay); };
    FillLevel(21);
    const Level narrow = LevelRecord;
    FillLevel(WidestLevel);
    const Level wide = LevelRecord;
    Report("UpdateDisplay, painted", {redraw}, {[&] { bare.Redraw(); }}, 1.4);
    Report("UpdateDisplay, width 1023 to width 21", Within(LevelRecord, wide, redraw),
           Within(LevelRecord, narrow, redraw), 1.3);
}

void WorldRedraws() {
    PrefsRecord.SavedWorldMode = 0;
    WorldPath.clear();
    OpenWorldFrm();
    Surface& surface = *ScreenSurface("WorldFrm");
    BareWidget bare(WorldImages());
    const auto redraw = [&] { Redraw(surface, WorldRecord.tiles, 71, UpdateWorld); };
    FillWorld(18, 15);
    const World small = WorldRecord;
    FillWorld(LargestWorldWidth, LargestWorldHeight);
    const World large = WorldRecord;
    WorldReadError = 0;
    Report("UpdateWorld, painted", {redraw}, {[&] { bare.Redraw(); }}, 1.5);
    Report("UpdateWorld, 1023 by 256 to 18 by 15", Within(WorldRecord, large, redraw),
           Within(WorldRecord, small, redraw), 1.3);
    WorldRecord = small;
    surface.findChild<QRadioButton*>(QStringLiteral("ModeOption(3)"))->click();
    for (int n = 0; n < MostLinks; ++n) {
        AddInNewLink(n % ViewColumns, n / ViewColumns);
    }
    const World linked = WorldRecord;
    Report("UpdateWorld, 63 links to none", Within(WorldRecord, linked, redraw), Within(WorldRecord, small, redraw),
           1.3);
}

}  // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    runs = argc > 1 ? std::atoi(argv[1]) : runs;
    PrepareToolkit();
    InitConstants();
    UseDosLineEnds();
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "fb_editor_bench";
    std::filesystem::create_directories(folder);
    LevelFiles((folder / "level.fbl").string());
    WorldFiles((folder / "world.fbwm").string());
    LevelPath.clear();
    LevelRedraws();
    WorldRedraws();
    std::filesystem::remove_all(folder);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);  // the screens have nothing to save
}
