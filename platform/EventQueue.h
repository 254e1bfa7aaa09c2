#pragma once

#include <chrono>
#include <functional>
#include <memory>

class QWidget;
class Screen;

// The toolkit's half of the event queue, for the platform's own sources.

/// Counts a screen in. Throughout its life the process waits for its closing.
void ScreenLoaded(Screen& screen);

/// Notes that a screen has been shown, or chosen by its user, above all others.
void ScreenCameToFront(const Screen& screen);

/// Counts it out; without effect for one that is not counted. When it was the last one, the process ends as soon as no
/// handler runs any more.
void ScreenClosed(const Screen& screen);

[[nodiscard]] bool AnyScreenLoaded();

/// Shows the screens that have been loading for longer than `time` and have no window yet.
void ShowScreensLoadedFor(std::chrono::milliseconds time);

/// Makes the next yield look at the clock: another handler begins, and how fast its code is nobody knows.
void LookAtNextYield();

/// Sleeps until an event has come, and delivers what waits. Whoever waits has a window: one that is still loading is
/// shown first.
void SleepUntilEvent();

/// The window that a message or a dialog stays in front of: that of the visible screen which came to the front last, or
/// null.
[[nodiscard]] QWidget* FrontWindow();

/// Whether the user's hand reaches `widget` now: not if it stands on a disabled screen.
[[nodiscard]] bool TakesInput(const QWidget& widget);

/// Raises an event that the user's hand has caused on `source`: runs its handler, if it has one and its screen takes
/// input. Handlers of events that code causes are called by the setters themselves, so that their faults reach the
/// setter's caller.
void Raise(const QWidget& source, const std::function<void()>& handler);

/// Destroys `object` once no handler runs any more: one that waits in a yield may still use it.
void DestroyWhenIdle(std::shared_ptr<void> object);

/// Destroys what waits for that, unless a handler or a loop of the toolkit's own runs. To be called before the toolkit
/// goes, too.
void DestroyClosedScreens();

/// Makes disabled screens deaf, and destroys closed ones in time. Once, at start.
void WatchEvents();
