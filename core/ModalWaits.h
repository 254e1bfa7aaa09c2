#pragma once

// Routines that open a screen and go on when it has closed, since they need its answer. Meanwhile the screen
// under it stays enabled, and may enter the same routine again.

/// Asks for the type of a link. The answer is in LinkTypeChoice, -1 for none.
void ShowTypePickerModal();
