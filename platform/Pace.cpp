#include <QCoreApplication>
#include <algorithm>
#include <chrono>

#include "platform/EventQueue.h"
#include "platform/Events.h"

// When yields and waits let the event queue deliver: by the clock, so a test that says when itself puts a double here.

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

int yieldsBetweenLooks = 1;
Clock::time_point lastLook;
Clock::time_point lastDelivery;

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
    ShowScreensLoadedFor(LoadingWithoutWindow);
    QCoreApplication::processEvents();
    lastLook = lastDelivery = Clock::now();
}

void LookAtNextYield() {
    yieldsUntilNextLook = 0;
    yieldsBetweenLooks = 1;
}

void SleepUntilEvent() {
    ShowScreensLoadedFor({});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
