#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>
#include <string>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/ImageCell.h"
#include "platform/Surface.h"
#include "tests/Support.h"

// Drives the real screens as a user's hand and eye would, on the toolkit's offscreen platform. Controls and
// cells are found by their names, such as "GridCheck" or "Img(17)", in the screen of the given name. What no hand can
// do throws: use of what is hidden, covered or disabled.

inline constexpr const char* Main = "MainFrm";
inline constexpr const char* Editor = "WorldFrm";
inline constexpr const char* LinkEditor = "LinkForm";

/// A test with a fresh program and no screen open. Closes what it opened.
class ScreenTest : public FreshTest {
protected:
    void SetUp() override;
    void TearDown() override;
};

/// A level of `width` columns whose cells are all 0, in memory and loaded, with the path "level.fbl".
void MakeLevel(int width);

/// Loads and shows MainFrm in mode `mode`, with such a level unless `width` is 0.
void OpenMain(int width = 0, int mode = 0);

/// Presses the text area's, list's or box's keys, one by one; it takes the focus.
void Type(const std::string& screen, const std::string& name, const std::string& text);

[[nodiscard]] bool IsOpen(const std::string& screen);
[[nodiscard]] Surface& WindowOf(const std::string& screen);
[[nodiscard]] ImageCell& CellOf(const std::string& screen, const std::string& cell);

/// The toolkit's widget of a control, such as ControlOf<QScrollBar>("MainFrm", "MapXScroll").
template <typename Widget>
[[nodiscard]] Widget& ControlOf(const std::string& screen, const std::string& name) {
    auto* widget = WindowOf(screen).findChild<Widget*>(QString::fromStdString(name));
    if (widget == nullptr) {
        throw std::runtime_error(screen + " has no control " + name + " of this kind");
    }
    return *widget;
}

/// Clicks a cell, `at` pixels from its corner, or a button, check box, option, label or toolbar button ("TB(7)").
void ClickOn(const std::string& screen, const std::string& name, Qt::MouseButton button = Qt::LeftButton,
             QPoint at = {16, 16});
void PressCell(const std::string& screen, const std::string& cell, QPoint at = {16, 16});
void ReleaseCell(const std::string& screen, const std::string& cell, QPoint at = {16, 16});

/// Moves the mouse over a cell.
void MoveOverCell(const std::string& screen, const std::string& cell, QPoint at = {16, 16});

/// Selects all of a text box and types `text` key by key.
void TypeInto(const std::string& screen, const std::string& name, const std::string& text);
void PasteInto(const std::string& screen, const std::string& name, const std::string& text);
void PressKey(const std::string& screen, const std::string& name, Qt::Key key);

/// Drags the thumb of a scroll bar to a value and lets go.
void ScrollTo(const std::string& screen, const std::string& name, int value);

/// Asks a screen to close as its close box does, and delivers what waits in the event queue.
void CloseScreen(const std::string& screen);
void DeliverEvents();
