#include "platform/Controls.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTimer>
#include <QToolButton>
#include <algorithm>
#include <climits>
#include <optional>

#include "platform/Events.h"
#include "platform/Fault.h"
#include "platform/Surface.h"
#include "platform/TextCoding.h"

namespace {

/// Runs a handler that the user's hand has raised. Handlers that code raises are called by the setters
/// themselves, so that their faults reach the setter's caller.
void Raise(const std::function<void()>& handler) {
    if (handler) {
        RunHandler(handler);
    }
}

void RaiseFromCode(const std::function<void()>& handler) {
    if (handler) {
        handler();
    }
}

/// A frame leaves the mouse, and all of its inside, to the surface below it, which paints the cells that stand
/// in the frame: the style's own frame would lay a haze over them.
class FrameBox : public QGroupBox {
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent*) override {
        constexpr int titleLeft = 8;
        constexpr int gap = 3;
        QPainter painter(this);
        const int lineTop = fontMetrics().height() / 2 + 1;
        const int titleRight = titleLeft + fontMetrics().horizontalAdvance(title()) + gap;
        const QRect line = rect().adjusted(0, lineTop, -1, -1);
        painter.drawText(titleLeft, fontMetrics().ascent() + 1, title());
        painter.setPen(palette().mid().color());
        painter.drawPolyline(QPolygon({QPoint(titleLeft - gap, line.top()), line.topLeft(), line.bottomLeft(),
                                       line.bottomRight(), line.topRight(), QPoint(titleRight, line.top())}));
    }

    void mousePressEvent(QMouseEvent* event) override { event->ignore(); }
    void mouseMoveEvent(QMouseEvent* event) override { event->ignore(); }
    void mouseReleaseEvent(QMouseEvent* event) override { event->ignore(); }
};

class CaptionLabel : public QLabel {
public:
    CaptionLabel(QWidget* parent, Label& label) : QLabel(parent), label_(label) {}

protected:
    void mousePressEvent(QMouseEvent* event) override { event->setAccepted(label_.Click != nullptr); }

    void mouseReleaseEvent(QMouseEvent* event) override {
        event->setAccepted(label_.Click != nullptr);
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            Raise(label_.Click);
        }
    }

    void enterEvent(QEnterEvent*) override {
        if (label_.Click) {
            setCursor(Qt::PointingHandCursor);
        }
    }

private:
    Label& label_;
};

/// The code of a key as text boxes report it, or nothing for keys that neither give a character nor change
/// the text by one.
std::optional<int> KeyAsciiOf(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Tab || event.text().isEmpty()) {
        return std::nullopt;
    }
    if (event.modifiers().testFlag(Qt::ControlModifier) && !event.matches(QKeySequence::Paste)) {
        return std::nullopt;  // select all, copy and their like add nothing to the text
    }
    return static_cast<unsigned char>(TextBytes(event.text().left(1), TextEncoding::Windows1252).front());
}

class KeyFilter : public QObject {
public:
    KeyFilter(QObject* parent, TextBox& box) : QObject(parent), box_(box) {}

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !box_.KeyPress) {
            return false;
        }
        const std::optional<int> key = KeyAsciiOf(*static_cast<QKeyEvent*>(event));
        bool passes = true;
        if (key) {
            RunHandler([&] { passes = box_.KeyPress(*key); });
        }
        return !passes;
    }

private:
    TextBox& box_;
};

void ToggleTo(QAbstractButton& button, bool checked) {
    const QSignalBlocker quiet(button);
    button.setChecked(checked);
}

}  // namespace

std::string MemberName(const std::string& name, int index) { return name + "(" + std::to_string(index) + ")"; }

void Control::Adopt(QWidget* widget, const std::string& name, Place place) {
    widget_ = widget;
    widget_->setObjectName(ShownText(name));
    widget_->setGeometry(place.left, place.top, place.width, place.height);
}

void Control::SetVisible(bool visible) { widget_->setVisible(visible); }

bool Control::Visible() const { return !widget_->isHidden(); }

void Control::SetEnabled(bool enabled) { widget_->setEnabled(enabled); }

bool Control::Enabled() const { return widget_->isEnabled(); }

void Control::SetToolTip(const std::string& text) { widget_->setToolTip(ShownToolTip(text)); }

void Control::SetFocus() { widget_->setFocus(); }

void Control::Move(int left, int top) { widget_->move(left, top); }

int Control::Left() const { return widget_->x(); }

int Control::Top() const { return widget_->y(); }

void Control::SetAccessibleName(const std::string& name) { widget_->setAccessibleName(ShownText(name)); }

void Frame::Create(Container& container, const std::string& name, Place place, const std::string& title) {
    auto* box = new FrameBox(ShownText(title), container.ContainerWidget());
    box->setMouseTracking(true);
    Adopt(box, name, place);
    Contain(box, &container.PaintSurface());
}

void Label::Create(Container& container, const std::string& name, Place place, const std::string& caption) {
    label_ = new CaptionLabel(container.ContainerWidget(), *this);
    label_->setTextFormat(Qt::PlainText);
    Adopt(label_, name, place);
    SetCaption(caption);
}

void Label::SetSunken() {
    label_->setFrameStyle(int(QFrame::StyledPanel) | int(QFrame::Sunken));
    label_->setMargin(1);
    label_->setAutoFillBackground(true);
    label_->setBackgroundRole(QPalette::AlternateBase);
}

void Label::SetCentred() { label_->setAlignment(Qt::AlignCenter); }

void Label::SetCaption(const std::string& caption) {
    caption_ = caption;
    const QString text = ShownText(caption);
    label_->setAccessibleName(text);  // the whole of it, even where the label is too short
    label_->setText(label_->fontMetrics().elidedText(text, Qt::ElideMiddle, label_->contentsRect().width()));
}

void TextBox::Create(Container& container, const std::string& name, Place place) {
    edit_ = new QLineEdit(container.ContainerWidget());
    edit_->setMaxLength(INT_MAX);
    edit_->installEventFilter(new KeyFilter(edit_, *this));
    QObject::connect(edit_, &QLineEdit::textChanged, edit_, [this] { Raise(Change); });
    Adopt(edit_, name, place);
}

void TextBox::SetText(const std::string& text) {
    if (Text() == text) {
        return;
    }
    {
        const QSignalBlocker quiet(edit_);
        utf8_ = EncodingOf(text) == TextEncoding::Utf8;
        edit_->setText(ShownText(text));
        edit_->setCursorPosition(0);
    }
    RaiseFromCode(Change);
}

std::string TextBox::Text() const {
    return TextBytes(edit_->text(), utf8_ ? TextEncoding::Utf8 : TextEncoding::Windows1252);
}

void CheckBox::Create(Container& container, const std::string& name, Place place, const std::string& caption) {
    box_ = new QCheckBox(ShownText(caption), container.ContainerWidget());
    QObject::connect(box_, &QCheckBox::clicked, box_, [this] { Raise(Click); });
    Adopt(box_, name, place);
}

void CheckBox::SetValue(int value) {
    if (value < 0 || value > 1) {
        throw Fault(FaultNumber::InvalidPropertyValue);
    }
    if (Value() != value) {
        ToggleTo(*box_, value == 1);
        RaiseFromCode(Click);
    }
}

Int16 CheckBox::Value() const { return box_->isChecked() ? 1 : 0; }

void OptionButton::Create(Container& container, const std::string& name, Place place, const std::string& caption) {
    button_ = new QRadioButton(ShownText(caption), container.ContainerWidget());
    QObject::connect(button_, &QRadioButton::clicked, button_, [this] { Raise(Click); });
    Adopt(button_, name, place);
}

void OptionButton::Select() {
    if (!Selected()) {
        ToggleTo(*button_, true);
        RaiseFromCode(Click);
    }
}

bool OptionButton::Selected() const { return button_->isChecked(); }

void Button::Create(Container& container, const std::string& name, Place place, const std::string& caption) {
    button_ = new QPushButton(ShownText(caption), container.ContainerWidget());
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { Raise(Click); });
    Adopt(button_, name, place);
}

void Button::SetCaption(const std::string& caption) { button_->setText(ShownText(caption)); }

std::string Button::Caption() const { return TextBytes(button_->text()); }

void ScrollBar::Create(Container& container, const std::string& name, Place place, Direction direction,
                       ScrollRange range) {
    bar_ =
        new QScrollBar(direction == Direction::Horizontal ? Qt::Horizontal : Qt::Vertical, container.ContainerWidget());
    bar_->setRange(range.minimum, range.maximum);
    bar_->setPageStep(range.largeChange);
    bar_->setValue(range.value);
    bar_->setContextMenuPolicy(Qt::NoContextMenu);
    QObject::connect(bar_, &QScrollBar::valueChanged, bar_, [this] { Raise(bar_->isSliderDown() ? Scroll : Change); });
    QObject::connect(bar_, &QScrollBar::sliderPressed, bar_, [this] { valueBeforeDrag_ = bar_->value(); });
    QObject::connect(bar_, &QScrollBar::sliderReleased, bar_, [this] {
        if (bar_->value() != valueBeforeDrag_) {
            Raise(Change);
        }
    });
    Adopt(bar_, name, place);
}

/// Changes the bar without the toolkit's signals, and raises Change if the value has become another one.
template <typename Setting>
void ScrollBar::SetAndRaise(Setting setting) {
    const int before = bar_->value();
    {
        const QSignalBlocker quiet(bar_);
        setting();
    }
    if (bar_->value() != before) {
        RaiseFromCode(Change);
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

void ToolBar::Create(Container& container, const std::string& name, Place place,
                     const std::vector<ToolBarButton>& buttons, const ImageList& images) {
    auto* bar = new QWidget(container.ContainerWidget());
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    int picture = 0;
    for (const ToolBarButton& entry : buttons) {
        if (picture > 0 && entry.position > buttons[static_cast<std::size_t>(picture) - 1].position + 1) {
            auto* separator = new QFrame(bar);
            separator->setFrameStyle(int(QFrame::VLine) | int(QFrame::Sunken));
            row->addWidget(separator);
        }
        auto* button = new QToolButton(bar);
        button->setObjectName(ShownText(MemberName(name, entry.position)));
        button->setText(ShownText(entry.caption));
        button->setToolTip(ShownToolTip(entry.toolTip));
        button->setAccessibleName(ShownText(entry.toolTip));
        button->setIcon(QIcon(*images[++picture].Pixmap()));
        button->setIconSize(QSize(24, 23));
        button->setToolButtonStyle(entry.caption.empty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus);
        QObject::connect(button, &QToolButton::clicked, bar,
                         [this, position = entry.position] { Raise([&] { ButtonClick(position); }); });
        row->addWidget(button);
    }
    row->addStretch();
    Adopt(bar, name, place);
}

void Timer::Create(Container& container, const std::string& name, int milliseconds) {
    auto* timer = new QTimer(container.ContainerWidget());
    timer->setObjectName(ShownText(name));
    QObject::connect(timer, &QTimer::timeout, timer, [this] { Raise(Tick); });
    timer->start(milliseconds);
}
