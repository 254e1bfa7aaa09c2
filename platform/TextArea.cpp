#include "platform/TextArea.h"

#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <array>
#include <bitset>

#include "platform/Events.h"
#include "platform/TextCoding.h"

namespace {

/// What the toolkit's box shows as nothing or takes for a line break, with the symbols that people know for it.
constexpr std::array<Substitute, 7> Preferred{{
    {u'\0', u'\u2400'},
    {u'\n', u'\u240A'},
    {u'\r', u'\u240D'},
    {u'\u2028', u'\u2424'},
    {u'\u2029', u'\u00B6'},
    {u'\uFDD0', u'\uFFFD'},
    {u'\uFDD1', u'\uFFFD'},
}};

/// Where a symbol is taken from when the text itself has the preferred one: the characters for private use.
constexpr char16_t FirstPrivate = u'\uE000';

constexpr int TabStop = 8;  // average characters

const QString& LineBreak() {
    static const QString lineBreak = QStringLiteral("\r\n");
    return lineBreak;
}

/// For each character of Preferred that is in `lines`, a symbol that is not.
std::vector<Substitute> SubstitutesFor(const QStringList& lines) {
    std::bitset<0x10000> taken;
    for (const QString& line : lines) {
        for (const QChar character : line) {
            taken.set(character.unicode());
        }
    }
    std::vector<Substitute> substitutes;
    for (auto [character, symbol] : Preferred) {
        if (!taken.test(character)) {
            continue;
        }
        for (char16_t other = FirstPrivate; taken.test(symbol); ++other) {
            symbol = other;
        }
        taken.set(symbol);
        substitutes.push_back({character, symbol});
    }
    return substitutes;
}

}  // namespace

void TextArea::Create(Container& container, const std::string& name, Place place, Lines lines) {
    edit_ = new QPlainTextEdit(container.ContainerWidget());
    edit_->setTabChangesFocus(true);
    edit_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    if (lines == Lines::Unbroken) {
        edit_->setLineWrapMode(QPlainTextEdit::NoWrap);
        QFont font;
        font.setFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Consolas")});
        font.setPixelSize(edit_->font().pixelSize());
        edit_->setFont(font);
    }
    edit_->setTabStopDistance(TabStop * edit_->fontMetrics().averageCharWidth());
    QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] {
        if (Change) {
            RunHandler(Change);
        }
    });
    Adopt(edit_, name, place);
}

void TextArea::SetText(const std::string& text) {
    if (Text() == text) {
        return;
    }
    {
        const QSignalBlocker quiet(edit_);
        utf8_ = EncodingOf(text) == TextEncoding::Utf8;
        QStringList lines = ShownText(text).split(LineBreak());
        substitutes_ = SubstitutesFor(lines);
        for (const auto [character, symbol] : substitutes_) {
            lines.replaceInStrings(QString(QChar(character)), QString(QChar(symbol)));
        }
        edit_->setPlainText(lines.join(u'\n'));
    }
    if (Change) {
        Change();
    }
}

std::string TextArea::Text() const {
    QStringList lines;
    for (QTextBlock block = edit_->document()->begin(); block.isValid(); block = block.next()) {
        lines += block.text();
    }
    QString text = lines.join(LineBreak());
    text.replace(QChar::LineSeparator, LineBreak());  // as typed with the shift key
    for (const auto [character, symbol] : substitutes_) {
        text.replace(QChar(symbol), QChar(character));
    }
    return TextBytes(text, utf8_ ? TextEncoding::Utf8 : TextEncoding::Windows1252);
}
