#include "platform/Accessibility.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAccessibleWidget>
#include <vector>

#include "platform/EventQueue.h"
#include "platform/ImageCell.h"
#include "platform/Pressable.h"
#include "platform/Surface.h"
#include "platform/TextCoding.h"

namespace {

/// A picture on a screen. Its name is the cell's, its value the number of its picture.
class CellInterface : public QAccessibleInterface {
public:
    CellInterface(Surface& surface, const ImageCell& cell) : surface_(surface), cell_(cell) {}

    [[nodiscard]] bool isValid() const override { return true; }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(&surface_);
    }
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::Graphic; }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        switch (kind) {
            case QAccessible::Name: return ShownText(cell_.Name());
            case QAccessible::Value: return QString::number(cell_.Shown().Number());
            case QAccessible::Help: return ShownText(cell_.ToolTip());
            default: return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}

    [[nodiscard]] QRect rect() const override {
        const QRect area = surface_.AreaOf(cell_);
        return {surface_.mapToGlobal(area.topLeft()), area.size()};
    }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = !surface_.IsShown(cell_);
        return state;
    }

private:
    Surface& surface_;
    const ImageCell& cell_;
};

/// A screen: its cells come behind its controls.
class SurfaceInterface : public QAccessibleWidget {
public:
    explicit SurfaceInterface(Surface& surface) : QAccessibleWidget(&surface, QAccessible::Window), surface_(surface) {
        for (const ImageCell* cell : surface.Cells()) {
            cells_.push_back(QAccessible::registerAccessibleInterface(new CellInterface(surface, *cell)));
        }
    }
    SurfaceInterface(const SurfaceInterface&) = delete;
    SurfaceInterface& operator=(const SurfaceInterface&) = delete;
    ~SurfaceInterface() override {
        for (const QAccessible::Id cell : cells_) {
            QAccessible::deleteAccessibleInterface(cell);
        }
    }

    [[nodiscard]] int childCount() const override {
        return QAccessibleWidget::childCount() + static_cast<int>(cells_.size());
    }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        const int controls = QAccessibleWidget::childCount();
        if (index < controls) {
            return QAccessibleWidget::child(index);
        }
        const auto cell = static_cast<std::size_t>(index - controls);
        return cell < cells_.size() ? QAccessible::accessibleInterface(cells_[cell]) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (std::size_t i = 0; i < cells_.size(); ++i) {
            if (QAccessible::accessibleInterface(cells_[i]) == child) {
                return QAccessibleWidget::childCount() + static_cast<int>(i);
            }
        }
        return QAccessibleWidget::indexOfChild(child);
    }

private:
    Surface& surface_;
    std::vector<QAccessible::Id> cells_;
};

/// What a tool can press as a hand does. One that is out of sight has no name and no action.
class PressableInterface : public QAccessibleWidget {
public:
    PressableInterface(QWidget& widget, Pressable& pressable)
        : QAccessibleWidget(&widget), widget_(widget), pressable_(pressable) {}

    [[nodiscard]] QAccessible::Role role() const override { return pressable_.Role(); }

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        const auto* button = qobject_cast<const QAbstractButton*>(&widget_);
        if (role() == QAccessible::NoRole) {
            return {};
        }
        const bool captionNames = kind == QAccessible::Name && button != nullptr && widget_.accessibleName().isEmpty();
        return captionNames ? button->text() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (const auto* button = qobject_cast<const QAbstractButton*>(&widget_); button != nullptr) {
            state.checkable = button->isCheckable();
            state.checked = button->isChecked();
        }
        state.invisible = state.invisible || role() == QAccessible::NoRole;
        return state;
    }

    [[nodiscard]] QStringList actionNames() const override {
        if (role() == QAccessible::NoRole || !widget_.isEnabled()) {
            return {};
        }
        return {state().checkable ? toggleAction() : pressAction(), setFocusAction()};
    }
    void doAction(const QString& action) override {
        if (!TakesInput(widget_) || !actionNames().contains(action)) {
            return;
        }
        if (action == setFocusAction()) {
            widget_.setFocus();
        } else {
            pressable_.Press();
        }
    }

private:
    QWidget& widget_;
    Pressable& pressable_;
};

QAccessibleInterface* InterfaceFor(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (auto* surface = dynamic_cast<Surface*>(widget); surface != nullptr) {
        return new SurfaceInterface(*surface);
    }
    auto* pressable = dynamic_cast<Pressable*>(widget);
    return pressable != nullptr ? new PressableInterface(*widget, *pressable) : nullptr;
}

}  // namespace

void DescribeScreensToTools() { QAccessible::installFactory(InterfaceFor); }
