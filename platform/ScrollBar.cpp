#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>

#include "platform/Controls.h"
#include "platform/EventQueue.h"
#include "platform/Fault.h"
#include "platform/Surface.h"

struct KeyAction {
    Qt::Key key;
    QAbstractSlider::SliderAction action;
};

/// The toolkit's own keys turn the horizontal bars around.
constexpr KeyAction KeyActions[] = {
    {Qt::Key_Left, QAbstractSlider::SliderSingleStepSub}, {Qt::Key_Right, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},   {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub}, {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
    {Qt::Key_Home, QAbstractSlider::SliderToMinimum},     {Qt::Key_End, QAbstractSlider::SliderToMaximum},
};

/// A bar that the wheel moves by one step a notch, and that shows when it has the focus.
class StepBar : public QScrollBar {
public:
    StepBar(Qt::Orientation orientation, QWidget* parent) : QScrollBar(orientation, parent) {
        setFocusPolicy(Qt::TabFocus);
        setContextMenuPolicy(Qt::NoContextMenu);
    }

protected:
    void wheelEvent(QWheelEvent* event) override {
        const QPoint turn = event->angleDelta();
        setValue(value() + notches_.Take(turn.y() != 0 ? turn.y() : turn.x()));
        event->accept();
    }

    void keyPressEvent(QKeyEvent* event) override {
        for (const KeyAction& entry : KeyActions) {
            if (entry.key == event->key()) {
                triggerAction(entry.action);
                return;
            }
        }
        event->ignore();
    }

    /// A message that a handler shows takes the release of the mouse; below it the bar must not go on by itself.
    void timerEvent(QTimerEvent* event) override {
        if (QApplication::activeModalWidget() != nullptr) {
            setRepeatAction(SliderNoAction);
        }
        QScrollBar::timerEvent(event);
    }

    void paintEvent(QPaintEvent* event) override {
        QScrollBar::paintEvent(event);
        PaintFocusFrame(*this, rect());
    }

    void focusInEvent(QFocusEvent* event) override {
        QScrollBar::focusInEvent(event);
        update();
    }

    void focusOutEvent(QFocusEvent* event) override {
        QScrollBar::focusOutEvent(event);
        update();
    }

private:
    WheelNotches notches_;
};

void ScrollBar::Create(Container& container, const std::string& name, Place place, Direction direction,
                       ScrollRange range) {
    bar_ = new StepBar(direction == Direction::Horizontal ? Qt::Horizontal : Qt::Vertical, container.ContainerWidget());
    bar_->setRange(range.minimum, range.maximum);
    bar_->setPageStep(range.largeChange);
    bar_->setValue(range.value);
    value_ = bar_->value();
    QObject::connect(bar_, &QScrollBar::valueChanged, bar_, [this] { TakeValue(); });
    QObject::connect(bar_, &QScrollBar::sliderPressed, bar_, [this] { valueBeforeDrag_ = bar_->value(); });
    QObject::connect(bar_, &QScrollBar::sliderReleased, bar_, [this] {
        if (bar_->value() != valueBeforeDrag_) {
            Raise(*bar_, Change);
        }
    });
    Adopt(bar_, name, place);
}

/// Takes what the user's hand has made of the bar; on a disabled screen, where only tools reach it, it goes back.
void ScrollBar::TakeValue() {
    if (!TakesInput(*bar_)) {
        const QSignalBlocker quiet(bar_);
        bar_->setValue(value_);
        return;
    }
    value_ = bar_->value();
    Raise(*bar_, bar_->isSliderDown() ? Scroll : Change);
}

/// Changes the bar without the toolkit's signals, and raises Change if the value has become another one.
template <typename Setting>
void ScrollBar::SetAndRaise(Setting setting) {
    {
        const QSignalBlocker quiet(bar_);
        setting();
    }
    if (std::exchange(value_, bar_->value()) != bar_->value() && Change) {
        Change();
    }
}

void ScrollBar::SetValue(int value) {
    if (value < bar_->minimum() || value > bar_->maximum()) {
        throw Fault(FaultNumber::InvalidPropertyValue);
    }
    SetAndRaise([&] { bar_->setValue(value); });
}

Int16 ScrollBar::Value() const { return bar_->value(); }

void ScrollBar::SetMax(int maximum) {
    SetAndRaise([&] { bar_->setMaximum(std::max(maximum, bar_->minimum())); });
}

Int16 ScrollBar::Max() const { return bar_->maximum(); }

void ScrollBar::ScrollBy(int steps) {
    if (bar_->isVisible() && bar_->isEnabled()) {
        bar_->setValue(bar_->value() + steps * bar_->singleStep());
    }
}
