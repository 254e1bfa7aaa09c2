#pragma once

#include <memory>

class QRect;
class QWidget;
class ScrollBar;
class Surface;

/// Where a control stands in its container, in pixels.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// What controls and image cells stand in: a screen, or a frame on it.
class Container {
public:
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;

    /// The toolkit's object that becomes the parent of a control.
    [[nodiscard]] QWidget* ContainerWidget() const { return widget_; }

    /// The surface that paints the container's image cells.
    [[nodiscard]] Surface& PaintSurface() const { return *surface_; }

    /// The wheel over `area` moves these bars, one step a notch: turned, or turned sideways or with the shift key.
    /// Either bar may be null.
    void ScrollWithWheel(Place area, ScrollBar* vertical, ScrollBar* horizontal);

protected:
    Container();
    ~Container();

    void Contain(QWidget* widget, Surface* surface);

private:
    friend class Surface;

    QWidget* widget_ = nullptr;
    Surface* surface_ = nullptr;
    std::unique_ptr<QRect> dirty_;  // what of the container is to be painted, in surface coordinates
};
