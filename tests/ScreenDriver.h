#pragma once

#include <gtest/gtest.h>

#include <QPoint>
#include <QString>
#include <QWidget>
#include <filesystem>
#include <string>

#include "platform/Surface.h"
#include "tests/ScriptedDialogs.h"

class ImageCell;

// Drives the real screens as a user's hand and eye would, on the toolkit's offscreen platform. Controls and
// cells are found by their names, such as "GridCheck" or "Img(17)", in the screen of the given name.

/// A test with a fresh program: all state as after the start without preferences, a folder of its own for
/// files, the game's folders in it, no screen open. Closes what it opened.
class ScreenTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    std::filesystem::path folder;  ///< empty at the start of each test
};

/// Puts the whole process-wide state back to that of a first start, without reading or writing a file.
void ResetState();

/// A level of `width` columns whose cells are all 0, in memory and loaded, with the path "level.fbl".
void MakeLevel(int width);

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

/// The caption of a label, whole even where the screen shortens it, or of a button.
[[nodiscard]] std::string CaptionOf(const std::string& screen, const std::string& name);
[[nodiscard]] std::string TextOf(const std::string& screen, const std::string& name);
[[nodiscard]] std::string ToolTipOf(const std::string& screen, const std::string& name);
[[nodiscard]] bool IsTicked(const std::string& screen, const std::string& name);  ///< check box or option
[[nodiscard]] bool IsShown(const std::string& screen, const std::string& name);   ///< with all that it stands in
[[nodiscard]] bool IsEnabled(const std::string& screen, const std::string& name);
[[nodiscard]] int ScrollValueOf(const std::string& screen, const std::string& name);
[[nodiscard]] int ScrollMaxOf(const std::string& screen, const std::string& name);

/// Presses and releases a mouse button on a cell, `at` pixels from its corner.
void ClickCell(const std::string& screen, const std::string& cell, Qt::MouseButton button = Qt::LeftButton,
               QPoint at = {16, 16});
void PressCell(const std::string& screen, const std::string& cell, Qt::MouseButton button = Qt::LeftButton,
               QPoint at = {16, 16});
void ReleaseCell(const std::string& screen, const std::string& cell, Qt::MouseButton button = Qt::LeftButton,
                 QPoint at = {16, 16});
void MoveOverCell(const std::string& screen, const std::string& cell, QPoint at = {16, 16});

/// Clicks a button, check box, option, label or toolbar button ("TB(7)").
void ClickOn(const std::string& screen, const std::string& name);

/// Selects all of a text box and types `text` key by key.
void TypeInto(const std::string& screen, const std::string& name, const std::string& text);
void PressKey(const std::string& screen, const std::string& name, Qt::Key key);

/// Moves a scroll bar as a click on one of its arrows would.
void ScrollTo(const std::string& screen, const std::string& name, int value);

/// Asks a screen to close as its close box does.
void CloseScreen(const std::string& screen);

/// Delivers what waits in the event queue.
void DeliverEvents();

[[nodiscard]] std::string FileText(const std::filesystem::path& path);
void WriteFile(const std::filesystem::path& path, const std::string& text);
