#include "platform/Events.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/EventQueue.h"
#include "platform/Screen.h"
#include "platform/Surface.h"

int yieldsUntilNextLook = 0;

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::microseconds;
using std::chrono::milliseconds;

/// The pause between two deliveries: short enough to feel immediate, long enough to cost nothing.
constexpr milliseconds DeliveryPause{8};

/// The clock is read about this often between deliveries.
constexpr microseconds LookPause{200};
constexpr int MostYieldsWithoutLook = 4096;

/// A screen that takes longer to load shows itself half-made, so that there is a window to close.
constexpr milliseconds LoadingWithoutWindow{400};

struct LoadedScreen {
    Screen* screen;
    Clock::time_point since;
};

std::vector<LoadedScreen> screens;
std::vector<std::shared_ptr<void>> retired;
bool anyScreenLoaded = false;
int runningHandlers = 0;
int yieldsBetweenLooks = 1;
Clock::time_point lastLook;
Clock::time_point lastDelivery;

void EndAfterLastScreen() {
    if (anyScreenLoaded && screens.empty()) {
        EndProcess();
    }
}

void ShowSlowScreens(Clock::time_point now) {
    for (const LoadedScreen& loaded : screens) {
        if (now - loaded.since > LoadingWithoutWindow) {
            loaded.screen->ShowIfNeverShown();
        }
    }
}

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::ContextMenu:
        case QEvent::ToolTip:
        case QEvent::Enter:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
        case QEvent::DragEnter:
        case QEvent::Drop: return true;
        default: return false;
    }
}

class InputFilter : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (!IsInput(event->type()) || !receiver->isWidgetType()) {
            return false;
        }
        const auto* surface = dynamic_cast<Surface*>(static_cast<QWidget*>(receiver)->window());
        return surface != nullptr && !surface->takesInput;
    }
};

}  // namespace

void LookAtEventQueue() {
    const Clock::time_point now = Clock::now();
    // Code that is slow between two yields looks at every one of them, fast code at few.
    yieldsBetweenLooks = now - lastLook > LookPause ? std::max(yieldsBetweenLooks / 4, 1)
                                                    : std::min(yieldsBetweenLooks * 2, MostYieldsWithoutLook);
    lastLook = now;
    yieldsUntilNextLook = yieldsBetweenLooks - 1;
    if (now - lastDelivery < DeliveryPause) {
        return;
    }
    ShowSlowScreens(now);
    QCoreApplication::processEvents();
    lastLook = lastDelivery = Clock::now();
    EndAfterLastScreen();
}

void WaitForEvent() {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EndAfterLastScreen();
}

void RunHandler(const std::function<void()>& handler) {
    yieldsUntilNextLook = 0;
    yieldsBetweenLooks = 1;
    ++runningHandlers;
    try {
        WithMemoryFaults(handler);
    } catch (const Fault& fault) {
        EndWithFault(fault);
    }
    --runningHandlers;
}

void ScreenLoaded(Screen& screen) {
    anyScreenLoaded = true;
    screens.push_back({&screen, Clock::now()});
}

void ScreenClosed(Screen& screen) {
    std::erase_if(screens, [&](const LoadedScreen& loaded) { return loaded.screen == &screen; });
    if (screens.empty()) {
        QCoreApplication::quit();
    }
}

bool AnyScreenLoaded() { return !screens.empty(); }

void DestroyWhenIdle(std::shared_ptr<void> object) {
    retired.push_back(std::move(object));
    // Not at once: the handler that closed the screen belongs to it. A handler that still waits then leaves
    // the object to the next closing, or to the end of the process.
    QTimer::singleShot(0, qApp, DestroyClosedScreens);
}

void DestroyClosedScreens() {
    if (runningHandlers == 0) {
        retired.clear();
    }
}

void WatchInput() { qApp->installEventFilter(new InputFilter(qApp)); }
