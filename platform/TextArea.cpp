#include "platform/TextArea.h"

#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextBlock>
#include <algorithm>
#include <array>
#include <bitset>

#include "platform/EventQueue.h"
#include "platform/TextCoding.h"

namespace {

/// The toolkit's box takes these two for breaks of its own.
constexpr std::array<char16_t, 2> BoxBreaks{u'\uFDD0', u'\uFDD1'};

constexpr char16_t Replacement = u'\uFFFD';

/// Where symbols come from when the text itself has the preferred one, or more than one character needs it: the arrows,
/// which stand before the other signs of the font.
constexpr char16_t FirstOtherSymbol = u'\u2190';

constexpr int TabStop = 8;  // average characters

const QString& LineBreak() {
    static const QString lineBreak = QStringLiteral("\r\n");
    return lineBreak;
}

/// The symbol for what the box would show as nothing, as a broken sign or as a line break; 0 for all that it can hold.
char16_t PreferredSymbol(char16_t character) {
    if (character == u'\t' || character == QChar::ObjectReplacementCharacter) {
        return u'\0';
    }
    return std::ranges::count(BoxBreaks, character) > 0 ? Replacement : SymbolOf(character);
}

/// For each character in `lines` that needs one, a symbol that is not in them.
std::vector<Substitute> SubstitutesFor(const QStringList& lines) {
    std::bitset<0x10000> taken;
    for (const QString& line : lines) {
        for (const QChar character : line) {
            taken.set(character.unicode());
        }
    }
    const std::bitset<0x10000> inText = taken;
    std::vector<Substitute> substitutes;
    for (unsigned code = 0; code < inText.size(); ++code) {
        const auto character = static_cast<char16_t>(code);
        char16_t symbol = PreferredSymbol(character);
        if (!inText.test(code) || symbol == 0) {
            continue;
        }
        for (char16_t other = FirstOtherSymbol; taken.test(symbol); ++other) {
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
    edit_->setLineWrapMode(lines == Lines::Wrapped ? QPlainTextEdit::WidgetWidth : QPlainTextEdit::NoWrap);
    QFont font;
    font.setFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("Consolas")});
    font.setPixelSize(edit_->font().pixelSize());
    edit_->setFont(font);
    edit_->setTabStopDistance(TabStop * edit_->fontMetrics().averageCharWidth());
    QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, [this] { Raise(*edit_, Change); });
    Adopt(edit_, name, place);
}

void TextArea::SetText(const std::string& text) {
    const bool changes = Text() != text;
    utf8_ = EncodingOf(text) == TextEncoding::Utf8;
    if (!changes) {
        return;
    }
    {
        const QSignalBlocker quiet(edit_);
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
