#include "platform/ImageCell.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QToolTip>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Events.h"
#include "platform/Surface.h"
#include "platform/TextCoding.h"

namespace {

const QEvent::Type PaintMarkedEvent = static_cast<QEvent::Type>(QEvent::registerEventType());

/// The red of the selection marks: to be seen on dark pictures, on light ones and on the black box behind the map.
constexpr QRgb BorderColour = 0xFFDC4A3D;

QPoint Origin(const QWidget* container, const Surface& surface) {
    return container == &surface ? QPoint() : container->mapTo(&surface, QPoint());
}

int ButtonNumber(Qt::MouseButtons buttons) {
    return (buttons.testFlag(Qt::LeftButton) ? LeftButton : 0) | (buttons.testFlag(Qt::RightButton) ? RightButton : 0) |
           (buttons.testFlag(Qt::MiddleButton) ? MiddleButton : 0);
}

int ShiftNumber(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) | (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) |
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

}  // namespace

Container::Container() = default;
Container::~Container() = default;

void Container::Contain(QWidget* widget, Surface* surface) {
    widget_ = widget;
    surface_ = surface;
    dirty_ = std::make_unique<QRect>();
}

void ImageCell::Create(Container& container, std::string name, Place place) {
    container_ = &container;
    name_ = std::move(name);
    left_ = place.left;
    top_ = place.top;
    width_ = place.width;
    height_ = place.height;
    container.PaintSurface().AddCell(this);
}

void ImageCell::SetPicture(const Picture& picture) {
    if (picture_ != picture) {
        picture_ = picture;
        Changed();
    }
}

void ImageCell::SetFill(unsigned colour) {
    fill_ = colour;
    Changed();
}

void ImageCell::SetStretch(bool stretch) { stretch_ = stretch; }

void ImageCell::SetVisible(bool visible) {
    if (visible_ != visible) {
        visible_ = true;
        Changed();
        visible_ = visible;
    }
}

void ImageCell::Move(double left, double top) {
    if (left_ != left || top_ != top) {
        Changed();
        left_ = left;
        top_ = top;
        Changed();
    }
}

void ImageCell::SetBorder(int border) {
    if (border_ != border) {
        border_ = border;
        Changed();
    }
}

void ImageCell::Changed() {
    if (visible_) {
        Surface& surface = container_->PaintSurface();
        surface.MarkDirty(*container_, surface.AreaOf(*this));
    }
}

Surface::Surface(std::function<void()> closeRequested) : closeRequested_(std::move(closeRequested)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
}

void Surface::AddCell(ImageCell* cell) { cells_.push_back(cell); }

QRect Surface::AreaOf(const ImageCell& cell) const {
    const QPoint corner(static_cast<int>(std::lround(cell.left_)), static_cast<int>(std::lround(cell.top_)));
    return {corner + Origin(cell.container_->ContainerWidget(), *this), QSize(cell.width_, cell.height_)};
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

bool Surface::event(QEvent* event) {
    if (event->type() == PaintMarkedEvent) {
        PaintMarked();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const ImageCell* cell = CellAt(help->pos());
        if (cell == nullptr || cell->toolTip_.empty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), ShownToolTip(cell->toolTip_), this, AreaOf(*cell));
        }
        return true;
    }
    return QWidget::event(event);
}

void Surface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect exposed = event->rect();
    for (const QRect& rect : event->region()) {
        painter.fillRect(rect, palette().window());
    }
    for (const ImageCell* cell : cells_) {
        if (!IsShown(*cell)) {
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
        if (cell->border_ != 0) {
            painter.setPen(BorderColour);
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

ImageCell* Surface::CellAt(QPoint position) const {
    const auto cell = std::find_if(cells_.rbegin(), cells_.rend(), [&](const ImageCell* c) {
        return c->enabled_ && IsShown(*c) && AreaOf(*c).contains(position);
    });
    return cell == cells_.rend() ? nullptr : *cell;
}

void Surface::RaiseMouse(ImageCell* cell, bool press, const QMouseEvent& event) {
    const auto& handler = press ? cell->MouseDown : cell->MouseMove;
    if (handler) {
        const QPoint inside = event.position().toPoint() - AreaOf(*cell).topLeft();
        const int button = press ? ButtonNumber(event.button()) : ButtonNumber(event.buttons());
        RunHandler([&] { handler(button, ShiftNumber(event.modifiers()), inside.x(), inside.y()); });
    }
}

void Surface::mousePressEvent(QMouseEvent* event) {
    captor_ = CellAt(event->position().toPoint());
    if (captor_ != nullptr) {
        RaiseMouse(captor_, true, *event);
    }
}

// While a button is down, all moves belong to the cell that took the press.
void Surface::mouseMoveEvent(QMouseEvent* event) {
    ImageCell* cell = event->buttons() == Qt::NoButton ? CellAt(event->position().toPoint()) : captor_;
    if (cell != nullptr) {
        RaiseMouse(cell, false, *event);
    }
}

// The same cell takes the click, even if its own press has put a sprite over it meanwhile.
void Surface::mouseReleaseEvent(QMouseEvent* event) {
    const ImageCell* cell = std::exchange(captor_, nullptr);
    const bool clicked = event->button() == Qt::LeftButton && cell != nullptr && cell->visible_;
    if (clicked && cell->Click && AreaOf(*cell).contains(event->position().toPoint())) {
        RunHandler([&] { cell->Click(); });
    }
}

void Surface::closeEvent(QCloseEvent* event) {
    // The screen itself decides when its window goes.
    event->ignore();
    if (takesInput) {
        RunHandler(closeRequested_);
    }
}
