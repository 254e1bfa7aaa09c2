#include "platform/Events.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/EventQueue.h"
#include "platform/Screen.h"
#include "platform/Surface.h"

namespace {

using Clock = std::chrono::steady_clock;

struct LoadedScreen {
    Screen* screen;
    Clock::time_point since;
};

std::vector<LoadedScreen> screens;  // in the order in which they came to the front
std::vector<std::shared_ptr<void>> retired;
int runningHandlers = 0;
bool lastScreenHasClosed = false;  // while handlers run that are to come to their ends
bool onlyClosingIsInput = false;
int closings = 0;

auto PlaceOf(const Screen& screen) {
    return std::ranges::find(screens, &screen, [](const LoadedScreen& loaded) { return loaded.screen; });
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
        case QEvent::Drop:
        case QEvent::InputMethod: return true;
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
        return !TakesInput(*static_cast<QWidget*>(receiver));
    }
};

}  // namespace

void GiveUpAfterLastScreen() {
    if (lastScreenHasClosed) {
        throw GivenUp();
    }
}

void WaitForEvent() {
    GiveUpAfterLastScreen();
    SleepUntilEvent();
}

void WaitForClosing() {
    GiveUpAfterLastScreen();
    const int closingsBefore = closings;
    onlyClosingIsInput = true;
    while (closings == closingsBefore) {
        SleepUntilEvent();
    }
    onlyClosingIsInput = false;
    throw GivenUp();
}

void RunHandler(const std::function<void()>& handler) {
    LookAtNextYield();
    ++runningHandlers;
    try {
        WithMemoryFaults(handler);
    } catch (const Fault& fault) {
        EndWithFault(fault);
    } catch (const GivenUp&) {  // NOLINT(bugprone-empty-catch): the handler has come to its end
    }
    --runningHandlers;
    if (runningHandlers == 0 && std::exchange(lastScreenHasClosed, false)) {
        QCoreApplication::quit();
    }
}

void ScreenLoaded(Screen& screen) {
    lastScreenHasClosed = false;  // a handler on its way to its end may still open one
    screens.push_back({&screen, Clock::now()});
}

void ScreenCameToFront(const Screen& screen) {
    if (const auto place = PlaceOf(screen); place != screens.end()) {
        std::rotate(place, place + 1, screens.end());
    }
}

void ScreenClosed(const Screen& screen) {
    const auto place = PlaceOf(screen);
    if (place == screens.end()) {
        return;
    }
    screens.erase(place);
    ++closings;
    if (!screens.empty()) {
        return;
    }
    if (runningHandlers > 0) {
        lastScreenHasClosed = true;
    } else {
        QCoreApplication::quit();
    }
}

QWidget* FrontWindow() {
    const auto front = std::find_if(screens.rbegin(), screens.rend(),
                                    [](const LoadedScreen& loaded) { return loaded.screen->Window().isVisible(); });
    return front != screens.rend() ? &front->screen->Window() : nullptr;
}

bool TakesInput(const QWidget& widget) {
    const auto* surface = dynamic_cast<const Surface*>(widget.window());
    return surface == nullptr || (surface->takesInput && !onlyClosingIsInput);
}

void ShowScreensLoadedFor(std::chrono::milliseconds time) {
    const Clock::time_point since = Clock::now() - time;
    const std::vector<LoadedScreen> candidates = screens;  // showing one brings it to the front
    for (const LoadedScreen& loaded : candidates) {
        if (loaded.since < since) {
            loaded.screen->ShowIfNeverShown();
        }
    }
}

bool AnyScreenLoaded() { return !screens.empty(); }

void Raise(const QWidget& source, const std::function<void()>& handler) {
    if (handler && TakesInput(source)) {
        RunHandler(handler);
    }
}

void DestroyWhenIdle(std::shared_ptr<void> object) {
    retired.push_back(std::move(object));
    // Not at once: the handler that closed the screen belongs to it.
    QTimer::singleShot(0, qApp, DestroyClosedScreens);
}

/// The toolkit's own loops (a drag, a dialog, a menu) stand on the code of a control, as handlers do.
void DestroyClosedScreens() {
    if (runningHandlers == 0 && QThread::currentThread()->loopLevel() <= 1) {
        retired.clear();
    }
}

void WatchEvents() {
    qApp->installEventFilter(new InputFilter(qApp));
    // What a handler or a loop has kept alive is destroyed at the first rest behind it.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, qApp,
                     DestroyClosedScreens);
}
