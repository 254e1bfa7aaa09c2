#include "platform/Surface.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Controls.h"
#include "platform/Events.h"
#include "platform/ImageCell.h"
#include "platform/Pictures.h"
#include "platform/TextCoding.h"

namespace {

const QEvent::Type PaintMarkedEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

constexpr int EighthsPerNotch = 120;

/// The red of the selection marks: to be seen on dark pictures, on light ones and on the black box behind the map.
constexpr QRgb BorderColour = 0xFFDC4A3D;

/// The grey of the empty places.
constexpr QRgb FrameColour = 0xFFA8A8A8;

QPoint Origin(const QWidget* container, const Surface& surface) {
    return container == &surface ? QPoint() : container->mapTo(&surface, QPoint());
}

QRect AreaIn(const QWidget* container, const Surface& surface, const Place& place) {
    return {Origin(container, surface) + QPoint(place.left, place.top), QSize(place.width, place.height)};
}

/// The pixel that a position lies in: on a scaled display the mouse may stand between two of them.
QPoint PixelAt(QPointF position) {
    return {static_cast<int>(std::floor(position.x())), static_cast<int>(std::floor(position.y()))};
}

int ButtonNumber(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? LeftButton : 0) | (buttons.testFlag(Qt::RightButton) ? RightButton : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MiddleButton : 0);
}

int ShiftNumber(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) | (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

bool TakesPress(const ImageCell& cell) { return cell.MouseDown || cell.Click; }
bool TakesMoves(const ImageCell& cell) { return static_cast<bool>(cell.MouseMove); }
bool HasToolTip(const ImageCell& cell) { return !cell.ToolTip().empty(); }

}  // namespace

void PaintFocusFrame(QWidget& widget, const QRect& area) {
    if (widget.hasFocus()) {
        QPainter painter(&widget);
        QStyleOptionFocusRect option;
        option.initFrom(&widget);
        option.rect = area;
        widget.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &widget);
    }
}

int WheelNotches::Take(int eighths) {
    if ((rest_ < 0) != (eighths < 0)) {
        rest_ = 0;  // a turn back starts anew
    }
    rest_ += eighths;
    const int notches = rest_ / EighthsPerNotch;
    rest_ -= notches * EighthsPerNotch;
    return -notches;
}

Surface::Surface(std::function<void()> closeRequested, std::function<void()> activated)
    : closeRequested_(std::move(closeRequested)), activated_(std::move(activated)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void Surface::AddCell(ImageCell* cell) { cells_.push_back(cell); }

void Surface::AddFrame(Container* frame) { frames_.push_back(frame); }

void Surface::AddWheelArea(Container& container, Place area, ScrollBar* vertical, ScrollBar* horizontal) {
    wheelAreas_.push_back({&container, area, vertical, horizontal, {}, {}});
}

QRect Surface::AreaOf(const ImageCell& cell) const {
    const Place place{static_cast<int>(std::lround(cell.left_)), static_cast<int>(std::lround(cell.top_)), cell.width_,
                      cell.height_};
    return AreaIn(cell.container_->ContainerWidget(), *this, place);
}

void Surface::MarkDirty(Container& container, const QRect& area) {
    if (container.dirty_->isEmpty()) {
        if (dirty_.empty()) {
            QCoreApplication::postEvent(this, new QEvent(PaintMarkedEvent));
        }
        dirty_.push_back(&container);
    }
    // One rectangle for each container: a region of hundreds of cells would cost more than painting them.
    *container.dirty_ |= area;
}

void Surface::PaintMarked() {
    QRegion region;
    for (const Container* container : std::exchange(dirty_, {})) {
        region += std::exchange(*container->dirty_, QRect());
    }
    repaint(region);
}

void Surface::SetPointer(const QCursor& pointer) {
    setCursor(pointer);
    for (QWidget* child : findChildren<QWidget*>()) {
        if (child->testAttribute(Qt::WA_SetCursor)) {
            ownPointers_.insert(child, child->cursor());
            child->unsetCursor();
        }
    }
}

void Surface::UnsetPointer() {
    unsetCursor();
    for (auto pointer = ownPointers_.cbegin(); pointer != ownPointers_.cend(); ++pointer) {
        pointer.key()->setCursor(pointer.value());
    }
    ownPointers_.clear();
}

bool Surface::event(QEvent* event) {
    if (event->type() == PaintMarkedEvent) {
        PaintMarked();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const ImageCell* cell = CellAt(help->pos(), HasToolTip);
        if (cell == nullptr) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), ShownToolTip(cell->toolTip_), this, AreaOf(*cell));
        }
        return true;
    }
    if (event->type() == QEvent::WindowActivate) {
        activated_();
    }
    return QWidget::event(event);
}

void Surface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    for (const QRect& rect : event->region()) {
        painter.fillRect(rect, palette().window());
    }
    PaintCells(painter, event->rect(), this);
    for (const Container* frame : frames_) {
        const QWidget* widget = frame->ContainerWidget();
        const QRect area = AreaIn(widget, *this, {0, 0, widget->width(), widget->height()});
        if (!widget->isHidden() && area.intersects(event->rect())) {
            painter.fillRect(area, palette().window());
            PaintCells(painter, event->rect(), widget);
        }
    }
    if (!std::exchange(hasBeenPainted_, true)) {
        LetGoOfSheets();  // once for each screen: taking them back each time would cost a redraw a third of its time
    }
}

void Surface::PaintCells(QPainter& painter, const QRect& exposed, const QWidget* container) const {
    for (const ImageCell* cell : cells_) {
        if (!cell->visible_ || cell->container_->ContainerWidget() != container) {
            continue;
        }
        const QRect area = AreaOf(*cell);
        if (!area.intersects(exposed)) {
            continue;
        }
        if (cell->fill_) {
            painter.fillRect(area, QColor::fromRgb(*cell->fill_));
        }
        if (const QPixmap* pixmap = cell->picture_.Pixmap(); pixmap != nullptr && cell->stretch_) {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawPixmap(area, *pixmap);
        } else if (pixmap != nullptr) {
            painter.drawPixmap(area.topLeft(), *pixmap);
        }
        if (cell->border_ != 0 || cell->framed_) {
            painter.setPen(cell->border_ != 0 ? BorderColour : FrameColour);
            painter.drawRect(area.adjusted(0, 0, -1, -1));
        }
    }
}

ImageCell* Surface::FindCell(const std::string& name) const {
    const auto cell = std::find_if(cells_.begin(), cells_.end(), [&](const ImageCell* c) { return c->name_ == name; });
    return cell == cells_.end() ? nullptr : *cell;
}

bool Surface::IsShown(const ImageCell& cell) const {
    const QWidget* container = cell.container_->ContainerWidget();
    return cell.visible_ && (container == this || !container->isHidden());
}

const QWidget* Surface::ContainerAt(QPoint position) const {
    const auto front = std::find_if(frames_.rbegin(), frames_.rend(), [&](const Container* frame) {
        const QWidget* widget = frame->ContainerWidget();
        const Place whole{0, 0, widget->width(), widget->height()};
        return !widget->isHidden() && AreaIn(widget, *this, whole).contains(position);
    });
    return front != frames_.rend() ? (*front)->ContainerWidget() : this;
}

template <typename Takes>
ImageCell* Surface::CellAt(QPoint position, Takes takes) const {
    const QWidget* container = ContainerAt(position);
    const auto cell = std::find_if(cells_.rbegin(), cells_.rend(), [&](const ImageCell* c) {
        return c->visible_ && c->container_->ContainerWidget() == container && takes(*c) &&
               AreaOf(*c).contains(position);
    });
    return cell == cells_.rend() ? nullptr : *cell;
}

void Surface::RaiseMouse(ImageCell* cell, bool press, const QMouseEvent& event) {
    const auto& handler = press ? cell->MouseDown : cell->MouseMove;
    if (handler) {
        const QPoint inside = PixelAt(event.position()) - AreaOf(*cell).topLeft();
        const int button = press ? ButtonNumber(event.button()) : ButtonNumber(event.buttons());
        RunHandler([&] { handler(button, ShiftNumber(event.modifiers()), inside.x(), inside.y()); });
    }
}

// A cell that takes no press lets it through to the one below.
void Surface::mousePressEvent(QMouseEvent* event) {
    ImageCell* cell = CellAt(PixelAt(event->position()), TakesPress);
    if (event->buttons() == event->button()) {  // the only one that is down
        captor_ = cell;
    }
    if (event->button() == Qt::LeftButton) {
        clicked_ = cell;
    }
    if (cell != nullptr) {
        RaiseMouse(cell, true, *event);
    }
}

// While a button is down, all moves belong to the cell that took the press, until it is hidden.
void Surface::mouseMoveEvent(QMouseEvent* event) {
    if (captor_ != nullptr && !IsShown(*captor_)) {
        captor_ = nullptr;
    }
    ImageCell* cell = event->buttons() == Qt::NoButton ? CellAt(PixelAt(event->position()), TakesMoves) : captor_;
    if (cell != nullptr) {
        RaiseMouse(cell, false, *event);
    }
}

// The same cell takes the click, even if its own press has put a sprite over it meanwhile.
void Surface::mouseReleaseEvent(QMouseEvent* event) {
    if (event->buttons() == Qt::NoButton) {
        captor_ = nullptr;
    }
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const ImageCell* cell = std::exchange(clicked_, nullptr);
    if (cell != nullptr && IsShown(*cell) && cell->Click && AreaOf(*cell).contains(PixelAt(event->position()))) {
        RunHandler([&] { cell->Click(); });
    }
}

void Surface::wheelEvent(QWheelEvent* event) {
    const QPoint position = PixelAt(event->position());
    const QWidget* container = ContainerAt(position);
    for (WheelArea& wheel : wheelAreas_) {
        if (wheel.container->ContainerWidget() != container ||
            !AreaIn(container, *this, wheel.area).contains(position)) {
            continue;
        }
        const bool sideways = event->modifiers().testFlag(Qt::ShiftModifier) && wheel.horizontal != nullptr;
        const QPoint turn = event->angleDelta();
        if (ScrollBar* bar = sideways ? wheel.horizontal : wheel.vertical; bar != nullptr && turn.y() != 0) {
            bar->ScrollBy(wheel.down.Take(turn.y()));
        }
        if (wheel.horizontal != nullptr && turn.x() != 0) {
            wheel.horizontal->ScrollBy(wheel.right.Take(turn.x()));
        }
    }
}

void Surface::closeEvent(QCloseEvent* event) {
    // The screen itself decides when its window goes.
    event->ignore();
    if (takesInput) {
        RunHandler(closeRequested_);
    }
}
