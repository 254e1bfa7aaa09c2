#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Container.h"
#include "platform/Fault.h"
#include "platform/Int16.h"
#include "platform/Pictures.h"

class CaptionLabel;
class LineBox;
class PushButton;
class QAbstractSlider;
class QCheckBox;
class QRadioButton;
class StepBar;

// The controls of the screens. Each is made by Create, in its container, under its name, which members of an
// array carry as "Name(3)"; texts are bytes. Setting a value from code raises the control's event at once if
// the value changes, and a fault in the handler comes out of the setter.
//
// All of them can be reached by Tab, in the order in which they were made, and worked by keys: Enter and Space press
// what has the focus, arrows, Page Up and Down, Home and End move scroll bars.

/// The member `index` (from 0) of an array of controls or cells. Fault 9 if there is none.
template <typename ControlArray>
[[nodiscard]] auto& Element(ControlArray& controls, int index) {
    if (index < 0 || index >= static_cast<int>(controls.size())) {
        throw Fault(FaultNumber::SubscriptOutOfRange);
    }
    return controls[static_cast<std::size_t>(index)];
}

/// The name that the member `index` of an array goes by: "Name(3)".
[[nodiscard]] std::string MemberName(const std::string& name, int index);

/// What all controls can do.
class Control {
public:
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    void SetVisible(bool visible);
    [[nodiscard]] bool Visible() const;  ///< its own state, whatever its container's
    void SetEnabled(bool enabled);
    void SetToolTip(const std::string& text);
    void SetFocus();
    void Move(int left, int top);
    [[nodiscard]] int Left() const;
    [[nodiscard]] int Top() const;

    /// For tools that read the screen, where the caption does not say what the control is.
    void SetAccessibleName(const std::string& name);

    /// What scrolls the control's contents up and down, if anything does: itself or its vertical scroll bar.
    [[nodiscard]] QAbstractSlider* PageSlider() const;

protected:
    Control() = default;
    ~Control() = default;

    void Adopt(QWidget* widget, const std::string& name, Place place);

private:
    QWidget* widget_ = nullptr;
};

/// A frame with a title. It shows and hides with its controls and image cells.
class Frame : public Control, public Container {
public:
    void Create(Container& container, const std::string& name, Place place, const std::string& title);
};

/// A text that the program sets. Too long a text loses its middle.
class Label : public Control {
public:
    std::function<void()> Click;  ///< a label with a handler shows that it can be clicked

    void Create(Container& container, const std::string& name, Place place, const std::string& caption = "");

    /// A sunken border, for read-outs and for labels to be clicked.
    void SetSunken();
    void SetCentred();

    void SetCaption(const std::string& caption);
    [[nodiscard]] const std::string& Caption() const { return caption_; }

private:
    CaptionLabel* label_ = nullptr;
    std::string caption_;
};

/// A box for one line of text. Writes back in the encoding that it was filled with, or in UTF-8 if that one lacks a
/// character or would show as something else. What is pasted or dropped ends at its first line end.
///
/// With a KeyPress, the characters that come by other ways than keys (clipboard, drag, input methods, tools) must pass
/// it too, or nothing of them is taken; and nothing is deleted but by Backspace, Delete and typing over a selection.
class TextBox : public Control {
public:
    std::function<void()> Change;                ///< at every change of the text
    std::function<bool(int KeyAscii)> KeyPress;  ///< for every key that gives a character; true lets it pass

    void Create(Container& container, const std::string& name, Place place);

    /// Keeps the caret of a box that has the focus.
    void SetText(const std::string& text);
    [[nodiscard]] std::string Text() const;

private:
    LineBox* edit_ = nullptr;
    bool utf8_ = true;
};

/// A box that can be ticked.
class CheckBox : public Control {
public:
    std::function<void()> Click;

    void Create(Container& container, const std::string& name, Place place, const std::string& caption);

    /// 1 ticked, 0 clear; other numbers are fault 380.
    void SetValue(int value);
    [[nodiscard]] Int16 Value() const;

private:
    QCheckBox* box_ = nullptr;
};

/// One of a group: selecting it clears the others of its container.
class OptionButton : public Control {
public:
    std::function<void()> Click;

    void Create(Container& container, const std::string& name, Place place, const std::string& caption);

    void Select();
    [[nodiscard]] bool Selected() const;

private:
    QRadioButton* button_ = nullptr;
};

class Button : public Control {
public:
    std::function<void()> Click;

    void Create(Container& container, const std::string& name, Place place, const std::string& caption);

    void SetCaption(const std::string& caption);
    [[nodiscard]] std::string Caption() const;

    /// For a button outside of the visible area, which only holds the focus. Tools are not told of it; it takes Tab,
    /// and Page Up and Page Down for the first control of `paged` that is visible, and no other key.
    void HoldFocusFor(std::vector<const Control*> paged);

private:
    PushButton* button_ = nullptr;
};

enum class Direction { Horizontal, Vertical };

/// The range, steps and first value of a scroll bar.
struct ScrollRange {
    int minimum = 0;
    int maximum = 32767;
    int largeChange = 1;
    int value = 0;
};

/// Raises Scroll while its thumb is dragged and Change for every other change, also once at the end of a drag
/// that moved it.
class ScrollBar : public Control {
public:
    std::function<void()> Change;
    std::function<void()> Scroll;

    void Create(Container& container, const std::string& name, Place place, Direction direction, ScrollRange range);

    /// Fault 380 outside the range.
    void SetValue(int value);
    [[nodiscard]] Int16 Value() const;

    /// A value outside the new range moves to its nearer end, with its event. A maximum below the minimum
    /// leaves the minimum as the only value.
    void SetMax(int maximum);
    [[nodiscard]] Int16 Max() const;

    /// Moves the bar as its user would, by so many steps (negative: back) as far as it goes; without effect while it is
    /// hidden or disabled.
    void ScrollBy(int steps);

private:
    template <typename Setting>
    void SetAndRaise(Setting setting);
    void TakeValue();

    StepBar* bar_ = nullptr;
    int value_ = 0;  // the last that was taken
    int valueBeforeDrag_ = 0;
};

/// A button of a toolbar. Positions without one are separators.
struct ToolBarButton {
    int position;  ///< from 1
    std::string caption;
    std::string toolTip;
};

class ToolBar : public Control {
public:
    std::function<void(int Position)> ButtonClick;

    /// The buttons take the pictures of `images` in their order, from 1. Before a button whose position does not follow
    /// on that of the one before stands a separator.
    void Create(Container& container, const std::string& name, Place place, const std::vector<ToolBarButton>& buttons,
                const ImageList& images);
};

/// Raises Tick again and again until it is destroyed.
class Timer {
public:
    std::function<void()> Tick;

    void Create(Container& container, const std::string& name, int milliseconds);
};
