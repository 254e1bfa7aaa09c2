#pragma once

#include <memory>

class Screen;

// The toolkit's half of the event queue, for the platform's own sources.

/// Counts a screen in. Throughout its life the process waits for its closing.
void ScreenLoaded(Screen& screen);

/// Counts it out. When it was the last one, the event loop ends, and so does any loop that yields.
void ScreenClosed(Screen& screen);

[[nodiscard]] bool AnyScreenLoaded();

/// Destroys `object` once no handler runs any more: one that waits in a yield may still use it.
void DestroyWhenIdle(std::shared_ptr<void> object);

/// Destroys what waits for that, unless a handler runs. To be called before the toolkit goes, too.
void DestroyClosedScreens();

/// Makes disabled screens deaf. Once, at start.
void WatchInput();
