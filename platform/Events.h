#pragma once

#include <functional>

// The event queue as the program's code sees it. Everything here runs on the one thread of control.

/// How many yields may pass before the clock is read again. Kept by LookAtEventQueue, which makes it small
/// when the code between two yields is slow and larger when it is fast.
extern int yieldsUntilNextLook;

/// Delivers the events that wait, if the last delivery is some milliseconds ago. Shows a screen whose
/// loading takes long, so that there is always a window to close, and ends the process when the last
/// screen has been closed meanwhile.
void LookAtEventQueue();

/// To be called in every long loop. Costs about a nanosecond, since most calls do nothing.
inline void YieldToEventQueue() {
    if (--yieldsUntilNextLook < 0) {
        LookAtEventQueue();
    }
}

/// Sleeps until at least one event has come and has been delivered; for waits on what another screen does.
/// Ends the process like LookAtEventQueue.
void WaitForEvent();

/// Runs a handler on behalf of the toolkit: a fault that leaves it has met no trap and ends the process.
void RunHandler(const std::function<void()>& handler);
