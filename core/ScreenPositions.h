#pragma once

#include "core/SharedState.h"
#include "platform/Controls.h"
#include "platform/Screen.h"

// Where the screens stood when they were last closed.

/// Puts `window` where `screen` stood. With `centreAtZero` one that was never closed comes to the middle.
inline void RestorePosition(Screen& window, ScreenIndex screen, bool centreAtZero) {
    const int index = static_cast<int>(screen);
    window.Restore(Element(PrefsRecord.ScreenLeft, index), Element(PrefsRecord.ScreenTop, index), centreAtZero);
}

/// Notes where `screen` stands. Fault 6 beyond 16 bits.
inline void StorePosition(const Screen& window, ScreenIndex screen) {
    const int index = static_cast<int>(screen);
    Element(PrefsRecord.ScreenLeft, index) = window.Left();
    Element(PrefsRecord.ScreenTop, index) = window.Top();
}
