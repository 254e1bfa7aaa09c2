#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QValidator>
#include <algorithm>
#include <climits>
#include <optional>

#include "platform/Controls.h"
#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/OneLine.h"
#include "platform/TextCoding.h"

namespace {

constexpr int FirstPrintable = 32;

int KeyAsciiOf(QChar character) {
    return static_cast<unsigned char>(TextBytes(QString(character), TextEncoding::Windows1252).front());
}

/// The code of a key as text boxes report it, or nothing for keys that give no character: what they do to the text is
/// looked at when it is done.
std::optional<int> KeyAsciiOf(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Delete || event.key() == Qt::Key_Tab || event.text().isEmpty() ||
        event.modifiers().testFlag(Qt::ControlModifier)) {
        return std::nullopt;
    }
    return KeyAsciiOf(event.text().front());
}

bool DeletesACharacter(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    return (event.key() == Qt::Key_Backspace && (modifiers & ~Qt::ShiftModifier) == Qt::NoModifier) ||
           (event.key() == Qt::Key_Delete && modifiers == Qt::NoModifier);
}

}  // namespace

/// The toolkit's box under the rules of ours. Whatever way a change comes, the box asks its validator about the text
/// that it would make, and that one compares it with the text before.
class LineBox : public QLineEdit {
public:
    LineBox(QWidget* parent, TextBox& box) : QLineEdit(parent), box_(box), rules_(*this) {
        setMaxLength(INT_MAX);
        setValidator(&rules_);
        QObject::connect(this, &QLineEdit::textChanged, this, [this] { TakeText(); });
        QObject::connect(this, &QLineEdit::selectionChanged, this, [this] { before_.Take(*this); });
    }

    /// Sets the text from code, which no rule binds.
    void Fill(const QString& text) {
        const QScopedValueRollback free(filling_, true);
        const QSignalBlocker quiet(this);
        const int caret = hasFocus() || raising_ ? cursorPosition() : 0;
        setText(text);
        setCursorPosition(std::min<int>(caret, int(text.size())));
        before_.Take(*this);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        bool passes = true;
        if (const auto key = KeyAsciiOf(*event); key && box_.KeyPress) {
            RunHandler([&] { passes = box_.KeyPress(*key); });
        }
        if (passes) {
            const QScopedValueRollback deleting(deletes_, DeletesACharacter(*event));
            QLineEdit::keyPressEvent(event);
        }
    }

    /// Only what can have an effect is offered. The menu stays as long as the box: while it pastes, a handler may
    /// yield, and what is to be deleted goes then.
    void contextMenuEvent(QContextMenuEvent* event) override {
        if (!box_.KeyPress) {
            QLineEdit::contextMenuEvent(event);
            return;
        }
        if (menu_ == nullptr) {
            menu_ = new QMenu(this);
            copy_ = menu_->addAction(tr("&Copy"), this, &QLineEdit::copy);
            menu_->addAction(tr("&Paste"), this, &QLineEdit::paste);
            selectAll_ = menu_->addAction(tr("Select All"), this, &QLineEdit::selectAll);
        }
        copy_->setEnabled(hasSelectedText());
        selectAll_->setEnabled(!text().isEmpty());
        menu_->popup(event->globalPos());
    }

private:
    class Rules : public QValidator {
    public:
        explicit Rules(LineBox& box) : box_(box) {}

        State validate(QString& text, int& caret) const override {
            return box_.Accepts(text, caret) ? Acceptable : Invalid;
        }

    private:
        LineBox& box_;
    };

    /// Whether the text before may become `text`, which may lose what stands behind a line end that came in.
    bool Accepts(QString& text, int& caret) const {
        if (filling_ || text == before_.Text()) {
            return true;
        }
        if (!TakesInput(*this)) {
            return false;
        }
        const QString added = before_.KeepFirstLine(text, caret);
        if (!box_.KeyPress) {
            return true;
        }
        return added.isEmpty() ? deletes_ : std::all_of(added.begin(), added.end(), [this](QChar character) {
            return KeyAsciiOf(character) >= FirstPrintable && box_.KeyPress(KeyAsciiOf(character));
        });
    }

    /// Some ways (undoing, tools) put the text in without waiting for the validator's answer.
    void TakeText() {
        if (!hasAcceptableInput()) {
            Fill(QString(before_.Text()));
            return;
        }
        before_.Take(*this);
        const QScopedValueRollback raising(raising_, true);
        Raise(*this, box_.Change);
    }

    TextBox& box_;
    Rules rules_;
    LineBefore before_;
    QMenu* menu_ = nullptr;  // once it has been asked for
    QAction* copy_ = nullptr;
    QAction* selectAll_ = nullptr;
    bool filling_ = false;
    bool raising_ = false;
    bool deletes_ = false;
};

void TextBox::Create(Container& container, const std::string& name, Place place) {
    edit_ = new LineBox(container.ContainerWidget(), *this);
    Adopt(edit_, name, place);
}

void TextBox::SetText(const std::string& text) {
    const bool changes = Text() != text;
    utf8_ = EncodingOf(text) == TextEncoding::Utf8;
    if (!changes) {
        return;
    }
    edit_->Fill(ShownText(text));
    if (Change) {
        Change();
    }
}

std::string TextBox::Text() const {
    return TextBytes(edit_->text(), utf8_ ? TextEncoding::Utf8 : TextEncoding::Windows1252);
}
