#include "platform/ImageCell.h"

#include <QRect>
#include <utility>

#include "platform/Surface.h"

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

void ImageCell::SetFramed(bool framed) {
    if (framed_ != framed) {
        framed_ = framed;
        Changed();
    }
}

void ImageCell::Changed() {
    if (visible_) {
        Surface& surface = container_->PaintSurface();
        surface.MarkDirty(*container_, surface.AreaOf(*this));
    }
}
