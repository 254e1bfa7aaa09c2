#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Container.h"
#include "platform/Pictures.h"

class Surface;

/// Mouse buttons as the events name them.
inline constexpr int LeftButton = 1;
inline constexpr int RightButton = 2;
inline constexpr int MiddleButton = 4;

/// A picture on a screen: no window of its own, painted by the screen in the order in which the cells were
/// made. Positions are pixels within the container. A cell without a handler for the press or the move of the mouse
/// lets it through to the cell below.
class ImageCell {
public:
    /// Raised when a button goes down on the cell. X and Y are pixels from its upper left corner, from 0.
    /// Shift: 1 for the shift key, 2 for control, 4 for alt.
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown;

    /// Raised when the mouse moves over the cell.
    std::function<void(int Button, int Shift, int X, int Y)> MouseMove;

    /// Raised when the left button has gone down and up on the cell; the press has been raised before.
    std::function<void()> Click;

    ImageCell() = default;
    ImageCell(const ImageCell&) = delete;
    ImageCell& operator=(const ImageCell&) = delete;
    ~ImageCell() = default;

    void Create(Container& container, std::string name, Place place);

    [[nodiscard]] const std::string& Name() const { return name_; }

    void SetPicture(const Picture& picture);
    [[nodiscard]] const Picture& Shown() const { return picture_; }

    /// Fills the cell with one colour, 0xRRGGBB, below the picture.
    void SetFill(unsigned colour);

    /// Shrinks or grows the picture to the cell; otherwise it is painted from the upper left corner.
    void SetStretch(bool stretch);

    void SetVisible(bool visible);
    [[nodiscard]] bool Visible() const { return visible_; }

    /// Fractions are kept, and rounded to the pixel for painting.
    void Move(double left, double top);
    [[nodiscard]] double Left() const { return left_; }
    [[nodiscard]] double Top() const { return top_; }
    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }

    void SetToolTip(const std::string& text) { toolTip_ = text; }
    [[nodiscard]] const std::string& ToolTip() const { return toolTip_; }

    /// 1 for a thin border, 0 for none.
    void SetBorder(int border);

    /// A thin grey frame, for a place that is empty.
    void SetFramed(bool framed);

private:
    friend class Surface;

    void Changed();

    Container* container_ = nullptr;
    std::string name_;
    Picture picture_;
    std::optional<unsigned> fill_;
    std::string toolTip_;
    double left_ = 0;
    double top_ = 0;
    int width_ = 0;
    int height_ = 0;
    int border_ = 0;
    bool framed_ = false;
    bool stretch_ = false;
    bool visible_ = true;
};
