#pragma once

#include <functional>

// The event queue as the program's code sees it. Everything here runs on the one thread of control.
//
// When the last screen has closed, the handlers that run come to their ends first, and then the process ends. Only what
// can have no further use is given up: a read, and a wait for an answer that can no longer come.

/// Leaves the handler of a read or of a wait that is given up. It is no fault: no trap takes it, RunHandler does.
struct GivenUp {};

/// How many yields may pass before the clock is read again. Kept by LookAtEventQueue, which makes it small
/// when the code between two yields is slow and larger when it is fast.
extern int yieldsUntilNextLook;

/// Delivers the events that wait, if the last delivery is some milliseconds ago. Shows a screen whose
/// loading takes long, so that there is always a window to close.
void LookAtEventQueue();

/// Throws GivenUp once the last screen has closed.
void GiveUpAfterLastScreen();

/// To be called in every long loop. Costs about a nanosecond, since most calls do nothing.
inline void YieldToEventQueue() {
    if (--yieldsUntilNextLook < 0) {
        LookAtEventQueue();
    }
}

/// The same in the loops of a read, which is given up when the last screen closes.
inline void YieldInRead() {
    if (--yieldsUntilNextLook < 0) {
        LookAtEventQueue();
        GiveUpAfterLastScreen();
    }
}

/// Sleeps until at least one event has come and has been delivered: for waits on what another screen does, and for
/// reads whose text is used up. Given up when there is no screen left.
void WaitForEvent();

/// For a read that can have no end and whose record must not be used as it is: delivers no input but the closing of a
/// screen, and is given up then.
[[noreturn]] void WaitForClosing();

/// Runs a handler on behalf of the toolkit: a fault that leaves it has met no trap and ends the process.
void RunHandler(const std::function<void()>& handler);
