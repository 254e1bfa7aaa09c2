#pragma once

#include <QCursor>
#include <QHash>
#include <QPoint>
#include <QRect>
#include <QWidget>
#include <functional>
#include <string>
#include <vector>

#include "platform/Container.h"

class ImageCell;
class ScrollBar;

/// The whole notches in the turns of a wheel; what is less than a notch waits for more.
class WheelNotches {
public:
    /// Takes a turn in eighths of a degree, as the toolkit reports it, and gives the notches that are full: down
    /// positive.
    int Take(int eighths);

private:
    int rest_ = 0;
};

/// Paints the frame that shows where the keys go, along the inside of `area` of `widget`, if they go there.
void PaintFocusFrame(QWidget& widget, const QRect& area);

/// The window of a screen. Paints the screen's image cells in their stacking order, finds the cell under the
/// mouse, and passes its events on. Platform code and tests only; screens know their Screen and their cells.
class Surface : public QWidget {
public:
    Surface(std::function<void()> closeRequested, std::function<void()> activated);

    void AddCell(ImageCell* cell);

    /// A frame covers what lies behind it, in the order of the adding.
    void AddFrame(Container* frame);

    /// The wheel over `area` of `container` moves these bars, by one step a notch. Either may be null.
    void AddWheelArea(Container& container, Place area, ScrollBar* vertical, ScrollBar* horizontal);

    /// Marks `area` (surface coordinates) of `container` to be painted anew. All that is marked until the next
    /// turn of the event loop is painted at once.
    void MarkDirty(Container& container, const QRect& area);

    /// All cells, from back to front.
    [[nodiscard]] const std::vector<ImageCell*>& Cells() const { return cells_; }

    /// The cell of that name, or null.
    [[nodiscard]] ImageCell* FindCell(const std::string& name) const;

    /// Whether `cell` and what it stands in are visible.
    [[nodiscard]] bool IsShown(const ImageCell& cell) const;

    /// Where `cell` stands on the surface.
    [[nodiscard]] QRect AreaOf(const ImageCell& cell) const;

    /// Paints now what is marked.
    void PaintMarked();

    /// One pointer for all of the window, also over the controls that have one of their own; UnsetPointer gives those
    /// back.
    void SetPointer(const QCursor& pointer);
    void UnsetPointer();

    bool takesInput = true;  ///< false while the screen is disabled

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    struct WheelArea {
        Container* container = nullptr;
        Place area;
        ScrollBar* vertical = nullptr;
        ScrollBar* horizontal = nullptr;
        WheelNotches down;
        WheelNotches right;
    };

    void PaintCells(QPainter& painter, const QRect& exposed, const QWidget* container) const;

    /// The frontmost cell at `position` that `takes` what is to be done there, or null.
    template <typename Takes>
    [[nodiscard]] ImageCell* CellAt(QPoint position, Takes takes) const;

    /// What the cells at `position` stand in: the frontmost visible frame there, or the surface.
    [[nodiscard]] const QWidget* ContainerAt(QPoint position) const;

    void RaiseMouse(ImageCell* cell, bool press, const QMouseEvent& event);

    std::function<void()> closeRequested_;
    std::function<void()> activated_;
    std::vector<ImageCell*> cells_;  // back to front
    std::vector<Container*> frames_;
    std::vector<WheelArea> wheelAreas_;
    std::vector<Container*> dirty_;
    bool hasBeenPainted_ = false;
    QHash<QWidget*, QCursor> ownPointers_;  // of controls, while the window has one
    ImageCell* captor_ = nullptr;           // took the press of the first button that is down, and so gets the moves
    ImageCell* clicked_ = nullptr;          // took the press of the left button, if that is down
};
