#pragma once

#include <QRect>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

class ImageCell;
class Container;

/// The window of a screen. Paints the screen's image cells in their stacking order, finds the cell under the
/// mouse, and passes its events on. Platform code and tests only; screens know their Screen and their cells.
class Surface : public QWidget {
public:
    explicit Surface(std::function<void()> closeRequested);

    void AddCell(ImageCell* cell);

    /// Marks `area` (surface coordinates) of `container` to be painted anew. All that is marked until the next
    /// turn of the event loop is painted at once.
    void MarkDirty(Container& container, const QRect& area);

    /// The cell of that name, or null.
    [[nodiscard]] ImageCell* FindCell(const std::string& name) const;

    /// Whether `cell` and what it stands in are visible.
    [[nodiscard]] bool IsShown(const ImageCell& cell) const;

    /// Where `cell` stands on the surface.
    [[nodiscard]] QRect AreaOf(const ImageCell& cell) const;

    /// Paints now what is marked.
    void PaintMarked();

    bool takesInput = true;  ///< false while the screen is disabled

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] ImageCell* CellAt(QPoint position) const;
    void RaiseMouse(ImageCell* cell, bool press, const QMouseEvent& event);

    std::function<void()> closeRequested_;
    std::vector<ImageCell*> cells_;  // back to front
    std::vector<Container*> dirty_;
    ImageCell* captor_ = nullptr;  // took the press of the button that is down
};
