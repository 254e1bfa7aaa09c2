#include "platform/Container.h"

#include <QRect>

#include "platform/Surface.h"

Container::Container() = default;
Container::~Container() = default;

void Container::Contain(QWidget* widget, Surface* surface) {
    widget_ = widget;
    surface_ = surface;
    dirty_ = std::make_unique<QRect>();
}

void Container::ScrollWithWheel(Place area, ScrollBar* vertical, ScrollBar* horizontal) {
    PaintSurface().AddWheelArea(*this, area, vertical, horizontal);
}
