#include "platform/Application.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>
#include <clocale>

#include "platform/Accessibility.h"
#include "platform/Conversions.h"
#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/Pictures.h"

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
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    QGuiApplication::setDesktopSettingsAware(false);
    const QApplication application(argc, argv);
    PrepareToolkit();
    QGuiApplication::setWindowIcon(QIcon(*FixedPicture("ProgramIcon").Pixmap()));
    RunHandler(start);
    const int status = AnyScreenLoaded() ? QApplication::exec() : EXIT_SUCCESS;
    DestroyClosedScreens();
    return status;
}
