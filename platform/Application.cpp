#include "platform/Application.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QScreen>
#include <QStyleFactory>
#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <memory>

#include "platform/Accessibility.h"
#include "platform/Conversions.h"
#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/Pictures.h"

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

constexpr int FontPixels = 11;

/// The light grey of classic desktops: the map's tiles are drawn to be read on it.
QPalette LightPalette() {
    QPalette palette(QColor(0xDC, 0xDC, 0xDC), QColor(0xD4, 0xD4, 0xD4));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xE0, 0xE0, 0xE0));  // takes no text, and looks so
    palette.setColor(QPalette::AlternateBase, QColor(0xE8, 0xE8, 0xE8));
    palette.setColor(QPalette::Highlight, QColor(0x2F, 0x6F, 0xB5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::ToolTipBase, QColor(0xFF, 0xFF, 0xE6));
    palette.setColor(QPalette::ToolTipText, Qt::black);
    return palette;
}

/// The largest screen with its frame, in pixels before scaling.
constexpr QSize MostRoom(886 + 2, 662 + 32);

/// By how much to scale: whole numbers keep the tiles sharp, and no screen may be larger than the display.
int ScaleFactor(qreal wanted, QSize display) {
    const int most = std::min(display.width() / MostRoom.width(), display.height() / MostRoom.height());
    return std::max(std::min(static_cast<int>(wanted), most), 1);
}

/// The toolkit, which knows the display, and so the scale factor, only once it is there. Where that one does not do, it
/// is made once more.
std::unique_ptr<QApplication> MakeApplication(int& argc, char** argv) {
    auto application = std::make_unique<QApplication>(argc, argv);
    const qreal ratio = application->devicePixelRatio();
    const QSize display = QGuiApplication::primaryScreen()->geometry().size() * ratio;
    if (const int factor = ScaleFactor(ratio, display); factor != ratio) {
        application.reset();
        qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
        qunsetenv("QT_SCREEN_SCALE_FACTORS");
        qputenv("QT_SCALE_FACTOR", QByteArray::number(factor));
        application = std::make_unique<QApplication>(argc, argv);
    }
    return application;
}

/// The toolkit calls exit() when the display goes. What is left of it then is not enough to unmake the screens, which
/// would be next.
void EndAtOnceWithoutDisplay() {
    if (QCoreApplication::instance() != nullptr) {
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace

void PrepareToolkit() {
    // The toolkit has just set the whole locale; our number texts have a separator of their own.
    UseSystemDecimalSeparator();
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(LightPalette());
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans"), QStringLiteral("Verdana")});  // as wide, where there is no DejaVu
    font.setPixelSize(FontPixels);
    QApplication::setFont(font);
    QApplication::setQuitOnLastWindowClosed(false);
    WatchEvents();
    DescribeScreensToTools();
}

int RunApplication(int argc, char** argv, const std::function<void()>& start) {
#ifdef __GLIBC__
    mallopt(M_ARENA_MAX, 1);  // the threads of the toolkit do too little for a heap of their own each
#endif
    qputenv("QT_NO_GLIB", "1");  // nothing here needs a second event loop below that of the toolkit
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    QGuiApplication::setDesktopSettingsAware(false);
#ifndef _WIN32
    std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the user's limit is a failed write like any other
#endif
    const auto application = MakeApplication(argc, argv);
    std::atexit(EndAtOnceWithoutDisplay);
    PrepareToolkit();
    QGuiApplication::setWindowIcon(QIcon(*FixedPicture("ProgramIcon").Pixmap()));
    RunHandler(start);
    const int status = AnyScreenLoaded() ? QApplication::exec() : EXIT_SUCCESS;
    DestroyClosedScreens();
    return status;
}
