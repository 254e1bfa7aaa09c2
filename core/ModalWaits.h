#pragma once

// Waits for a screen's answer. Events are delivered meanwhile, to every screen that is enabled.

/// Opens a screen by `open`, one of the ways of Screens.h, and returns once a screen that sets ModalDone at its
/// closing has closed.
void OpenAndWait(void (*open)());

/// Opens NewInfoFrm and returns once it has closed: true if through Create. The texts are in CurrentInfo then.
[[nodiscard]] bool ShowNewInfoModal();
