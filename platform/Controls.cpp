#include "platform/Controls.h"

#include <QAbstractScrollArea>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QTimer>

#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/Pressable.h"
#include "platform/Surface.h"
#include "platform/TextCoding.h"

namespace {

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

}  // namespace

/// A label that can be clicked shows it to the mouse, and takes the focus and its keys.
class CaptionLabel : public QLabel, public Pressable {
public:
    CaptionLabel(QWidget* parent, Label& label) : QLabel(parent), label_(label) {}

    void Press() override { Raise(*this, label_.Click); }
    [[nodiscard]] QAccessible::Role Role() const override {
        return label_.Click ? QAccessible::Link : QAccessible::StaticText;
    }

protected:
    void mousePressEvent(QMouseEvent* event) override { event->setAccepted(label_.Click != nullptr); }

    void mouseReleaseEvent(QMouseEvent* event) override {
        event->setAccepted(label_.Click != nullptr);
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            Press();
        }
    }

    void keyPressEvent(QKeyEvent* event) override {
        const int key = event->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            Press();
        } else {
            QLabel::keyPressEvent(event);
        }
    }

    // That of the toolkit's label would make an editor of rich text for a selection that there never is.
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

    void showEvent(QShowEvent* event) override {
        QLabel::showEvent(event);
        setFocusPolicy(label_.Click ? Qt::TabFocus : Qt::NoFocus);
    }

    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        PaintFocusFrame(*this, rect().adjusted(1, 1, -1, -1));
    }

    void enterEvent(QEnterEvent*) override {
        if (label_.Click && !window()->testAttribute(Qt::WA_SetCursor)) {
            setCursor(Qt::PointingHandCursor);
        }
    }

private:
    Label& label_;
};

std::string MemberName(const std::string& name, int index) { return name + "(" + std::to_string(index) + ")"; }

void Control::Adopt(QWidget* widget, const std::string& name, Place place) {
    widget_ = widget;
    widget_->setObjectName(ShownText(name));
    widget_->setGeometry(place.left, place.top, place.width, place.height);
    // The toolkit would wait inside the bar's own menu, also when the screen has closed meanwhile.
    for (QScrollBar* bar : widget_->findChildren<QScrollBar*>()) {
        bar->setContextMenuPolicy(Qt::NoContextMenu);
    }
}

void Control::SetVisible(bool visible) { widget_->setVisible(visible); }

bool Control::Visible() const { return !widget_->isHidden(); }

void Control::SetEnabled(bool enabled) { widget_->setEnabled(enabled); }

void Control::SetToolTip(const std::string& text) { widget_->setToolTip(ShownToolTip(text)); }

void Control::SetFocus() { widget_->setFocus(); }

void Control::Move(int left, int top) { widget_->move(left, top); }

int Control::Left() const { return widget_->x(); }

int Control::Top() const { return widget_->y(); }

void Control::SetAccessibleName(const std::string& name) { widget_->setAccessibleName(ShownText(name)); }

QAbstractSlider* Control::PageSlider() const {
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget_)) {
        return area->verticalScrollBar();
    }
    return qobject_cast<QAbstractSlider*>(widget_);
}

void Frame::Create(Container& container, const std::string& name, Place place, const std::string& title) {
    auto* box = new FrameBox(ShownText(title), container.ContainerWidget());
    box->setMouseTracking(true);
    Adopt(box, name, place);
    Contain(box, &container.PaintSurface());
    container.PaintSurface().AddFrame(this);
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
    const int width = label_->contentsRect().width();
    label_->setText(label_->fontMetrics().elidedText(WithSymbols(text), Qt::ElideMiddle, width));
}

void Timer::Create(Container& container, const std::string& name, int milliseconds) {
    auto* timer = new QTimer(container.ContainerWidget());
    timer->setObjectName(ShownText(name));
    QObject::connect(timer, &QTimer::timeout, timer, [this] {
        if (Tick) {
            RunHandler(Tick);
        }
    });
    timer->start(milliseconds);
}
