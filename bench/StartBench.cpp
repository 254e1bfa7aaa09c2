// What a start costs, beside that of a bare window of the same toolkit: the time from the start of the process to the
// first full paint, and the resident memory then. One bare window is empty; another shows a letter, for which the
// toolkit has to learn which fonts there are. "start_bench LEVEL RUNS" starts itself again and again, in turns as the
// program with that level and as these windows, and prints the medians as SpeedBench does.

#include <QApplication>
#include <QLabel>
#include <QWidget>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <string>
#include <vector>

#include "core/Preferences.h"
#include "core/SharedState.h"
#include "core/StartUp.h"
#include "platform/Application.h"
#include "platform/Files.h"

namespace {

/// Seconds on a clock that all processes share.
double Now() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

double startedAt = 0;  // told by the process that starts this one

double ResidentMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            long kilobytes = 0;
            status >> kilobytes;
            return static_cast<double>(kilobytes) / 1024;
        }
    }
    return 0;
}

/// Reports and ends the process once a window has been painted for the first time.
class FirstPaint : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(receiver);
        if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
            QMetaObject::invokeMethod(this, &FirstPaint::Report, Qt::QueuedConnection);
        }
        return false;
    }

private:
    void Report() {
        QGuiApplication::sync();
        std::printf("%.2f %.2f\n", (Now() - startedAt) * 1000.0, ResidentMegabytes());
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    }
};

int StartBareWindow(int argc, char** argv, const QString& text) {
    const QApplication application(argc, argv);
    qApp->installEventFilter(new FirstPaint(qApp));
    QLabel window(text);
    window.setFixedSize(886, 658);
    window.show();
    return QApplication::exec();
}

int StartEditor(int argc, char** argv) {
    return RunApplication(argc, argv, [] {
        Main();  // may paint meanwhile what it has made so far
        qApp->installEventFilter(new FirstPaint(qApp));
    });
}

struct Start {
    std::vector<double> milliseconds;
    std::vector<double> megabytes;
};

void Measure(const std::string& program, const char* what, Start& start) {
    const std::string command = program + " " + what + " " + std::to_string(Now());
    FILE* output = popen(command.c_str(), "r");
    double milliseconds = 0;
    double megabytes = 0;
    if (output == nullptr || std::fscanf(output, "%lf %lf", &milliseconds, &megabytes) != 2) {
        std::fprintf(stderr, "%s failed\n", command.c_str());
        std::exit(EXIT_FAILURE);
    }
    pclose(output);
    start.milliseconds.push_back(milliseconds);
    start.megabytes.push_back(megabytes);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void Report(const char* name, const std::vector<double>& figures, const std::vector<double>& baseline,
            const char* unitAndMost) {
    std::printf("%s;%.1f;%.1f;%s\n", name, Median(figures), Median(baseline), unitAndMost);
}

int MeasureStarts(const char* program, const char* level, int runs) {
    LoadPreferences();
    PrefsRecord.LevelPath = level;
    PrefsRecord.GridState = 1;
    SavePreferences();
    Start editor;
    Start empty;
    Start letter;
    for (int i = 0; i < runs; ++i) {
        Measure(program, "editor", editor);
        Measure(program, "empty", empty);
        Measure(program, "letter", letter);
    }
    Report("Start to first full paint", editor.milliseconds, empty.milliseconds, "ms;1.9");
    Report("  beside a window with a letter", editor.milliseconds, letter.milliseconds, "ms;1.5");
    Report("Resident memory then", editor.megabytes, empty.megabytes, "MB;1.5");
    Report("  beside a window with a letter", editor.megabytes, letter.megabytes, "MB;1.3");
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return EXIT_FAILURE;
    }
    const std::string what = argv[1];
    ProgramFolder = FolderOfProgram();
    startedAt = std::atof(argv[2]);
    if (what == "editor") {
        return StartEditor(argc, argv);
    }
    if (what == "empty") {
        return StartBareWindow(argc, argv, {});
    }
    if (what == "letter") {
        return StartBareWindow(argc, argv, QStringLiteral("a"));
    }
    return MeasureStarts(argv[0], argv[1], std::atoi(argv[2]));
}
