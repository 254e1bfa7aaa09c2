#include <QAbstractSlider>
#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QToolButton>

#include "platform/Controls.h"
#include "platform/EventQueue.h"
#include "platform/Fault.h"
#include "platform/Pressable.h"
#include "platform/TextCoding.h"

namespace {

void RaiseFromCode(const std::function<void()>& handler) {
    if (handler) {
        handler();
    }
}

/// One of the toolkit's buttons, which tools press as a hand does. It gets its caption when it is made: the toolkit
/// tells tools of a caption at once, and they would take a half-made button for a plain one.
template <typename Base, QAccessible::Role What>
class PressableButton : public Base, public Pressable {
public:
    using Base::Base;

    void Press() override { Base::click(); }
    [[nodiscard]] QAccessible::Role Role() const override { return What; }
};

/// A button that Enter presses as Space does.
template <typename Base>
class EnterButton : public PressableButton<Base, QAccessible::PushButton> {
public:
    using PressableButton<Base, QAccessible::PushButton>::PressableButton;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            Base::click();
        } else {
            Base::keyPressEvent(event);
        }
    }
};

void ToggleTo(QAbstractButton& button, bool checked) {
    const QSignalBlocker quiet(button);
    button.setChecked(checked);
}

}  // namespace

class PushButton : public EnterButton<QPushButton> {
public:
    using EnterButton::EnterButton;

    std::vector<const Control*> paged;
    bool holdsFocus = false;

    [[nodiscard]] QAccessible::Role Role() const override {
        return holdsFocus ? QAccessible::NoRole : EnterButton::Role();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!holdsFocus) {
            EnterButton::keyPressEvent(event);
            return;
        }
        const bool up = event->key() == Qt::Key_PageUp;
        if (up || event->key() == Qt::Key_PageDown) {
            TurnPage(up ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
        }
    }

private:
    void TurnPage(QAbstractSlider::SliderAction action) const {
        for (const Control* control : paged) {
            QAbstractSlider* slider = control->PageSlider();
            if (slider->isVisible() && slider->isEnabled()) {
                slider->triggerAction(action);
                return;
            }
        }
    }
};

void CheckBox::Create(Container& container, const std::string& name, Place place, const std::string& caption) {
    box_ = new PressableButton<QCheckBox, QAccessible::CheckBox>(container.ContainerWidget());
    box_->setText(ShownText(caption));
    QObject::connect(box_, &QCheckBox::clicked, box_, [this] { Raise(*box_, Click); });
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
    button_ = new PressableButton<QRadioButton, QAccessible::RadioButton>(container.ContainerWidget());
    button_->setText(ShownText(caption));
    QObject::connect(button_, &QRadioButton::clicked, button_, [this] { Raise(*button_, Click); });
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
    button_ = new PushButton(container.ContainerWidget());
    button_->setText(ShownText(caption));
    QObject::connect(button_, &QPushButton::clicked, button_, [this] { Raise(*button_, Click); });
    Adopt(button_, name, place);
}

void Button::SetCaption(const std::string& caption) { button_->setText(ShownText(caption)); }

std::string Button::Caption() const { return TextBytes(button_->text()); }

void Button::HoldFocusFor(std::vector<const Control*> paged) {
    button_->holdsFocus = true;
    button_->paged = std::move(paged);
}

void ToolBar::Create(Container& container, const std::string& name, Place place,
                     const std::vector<ToolBarButton>& buttons, const ImageList& images) {
    auto* bar = new QWidget(container.ContainerWidget());
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    int picture = 0;
    int positionBefore = 0;
    for (const ToolBarButton& entry : buttons) {
        if (entry.position > positionBefore + 1) {
            auto* separator = new QFrame(bar);
            separator->setFrameStyle(int(QFrame::VLine) | int(QFrame::Sunken));
            row->addWidget(separator);
        }
        positionBefore = entry.position;
        auto* button = new EnterButton<QToolButton>(bar);
        button->setObjectName(ShownText(MemberName(name, entry.position)));
        button->setText(ShownText(entry.caption));
        button->setToolTip(ShownToolTip(entry.toolTip));
        button->setAccessibleName(ShownText(entry.toolTip));
        button->setIcon(QIcon(*images[++picture].Pixmap()));
        button->setIconSize(QSize(24, 23));
        button->setToolButtonStyle(entry.caption.empty() ? Qt::ToolButtonIconOnly : Qt::ToolButtonTextUnderIcon);
        button->setAutoRaise(true);
        QObject::connect(button, &QToolButton::clicked, button,
                         [this, button, position = entry.position] { Raise(*button, [&] { ButtonClick(position); }); });
        row->addWidget(button);
    }
    row->addStretch();
    Adopt(bar, name, place);
}
