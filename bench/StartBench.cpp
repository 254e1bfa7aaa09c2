// What a start costs, beside that of an empty window of the same toolkit: the time from the start of the process
// to the first full paint, and the resident memory then. "start_bench LEVEL RUNS" starts itself again and again,
// in turn as the program with that level and as the empty window, and prints the medians as SpeedBench does.

#include <QApplication>
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

long ResidentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == "VmRSS:") {
            long kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
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
        std::printf("%.2f %ld\n", (Now() - startedAt) * 1000.0, ResidentKilobytes());
        std::fflush(stdout);
        std::_Exit(EXIT_SUCCESS);
    }
};

int StartEmptyWindow(int argc, char** argv) {
    const QApplication application(argc, argv);
    qApp->installEventFilter(new FirstPaint(qApp));
    QWidget window;
    window.setFixedSize(886, 658);
    window.show();
    return QApplication::exec();
}

int StartEditor(int argc, char** argv) {
    return RunApplication(argc, argv, [] {
        qApp->installEventFilter(new FirstPaint(qApp));
        Main();
    });
}

struct Start {
    std::vector<double> milliseconds;
    std::vector<double> kilobytes;
};

void Measure(const std::string& program, const char* what, Start& start) {
    const std::string command = program + " " + what + " " + std::to_string(Now());
    FILE* output = popen(command.c_str(), "r");
    double milliseconds = 0;
    double kilobytes = 0;
    if (output == nullptr || std::fscanf(output, "%lf %lf", &milliseconds, &kilobytes) != 2) {
        std::fprintf(stderr, "%s failed\n", command.c_str());
        std::exit(EXIT_FAILURE);
    }
    pclose(output);
    start.milliseconds.push_back(milliseconds);
    start.kilobytes.push_back(kilobytes);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int MeasureStarts(const char* program, const char* level, int runs) {
    LoadPreferences();
    PrefsRecord.LevelPath = level;
    PrefsRecord.GridState = 1;
    SavePreferences();
    Start editor;
    Start empty;
    for (int i = 0; i < runs; ++i) {
        Measure(program, "editor", editor);
        Measure(program, "empty", empty);
    }
    std::printf("Start to first full paint;%.1f;%.1f;ms;1.7\n", Median(editor.milliseconds),
                Median(empty.milliseconds));
    std::printf("Resident memory then;%.0f;%.0f;KB;1.5\n", Median(editor.kilobytes), Median(empty.kilobytes));
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
        return StartEmptyWindow(argc, argv);
    }
    return MeasureStarts(argv[0], argv[1], std::atoi(argv[2]));
}
