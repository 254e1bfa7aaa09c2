#include "platform/TextCoding.h"

#include <QByteArray>
#include <QTextDocument>
#include <algorithm>
#include <array>
#include <utility>

namespace {

/// The characters at 0x80 to 0x9F; the five places without one keep the control character of that code.
constexpr std::array<char16_t, 32> Windows1252Extras{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr int FirstExtra = 0x80;
constexpr int FirstBehindExtras = 0xA0;

QString FromUtf8(const std::string& bytes) { return QString::fromUtf8(bytes.data(), qsizetype(bytes.size())); }

QString FromWindows1252(const std::string& bytes) {
    QString text;
    text.reserve(qsizetype(bytes.size()));
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const bool extra = code >= FirstExtra && code < FirstBehindExtras;
        text += QChar(extra ? Windows1252Extras[code - FirstExtra] : char16_t{code});
    }
    return text;
}

/// With "?" for a character that there is none for.
char Windows1252Byte(QChar character) {
    const char16_t code = character.unicode();
    if (code < FirstExtra || (code >= FirstBehindExtras && code <= 0xFF)) {
        return static_cast<char>(code);
    }
    const auto* extra = std::find(Windows1252Extras.begin(), Windows1252Extras.end(), code);
    return extra == Windows1252Extras.end() ? '?' : static_cast<char>(FirstExtra + (extra - Windows1252Extras.begin()));
}

constexpr char16_t FirstPrintable = 0x20;
constexpr char16_t DeleteCode = 0x7F;
constexpr char16_t AnyControl = u'\u25CA';  // a lozenge

/// Those that people come across.
constexpr std::array<std::pair<char16_t, char16_t>, 7> Symbols{{
    {u'\0', u'\u25CB'},      // a circle
    {u'\t', u'\u2192'},      // an arrow to the right
    {u'\n', u'\u2193'},      // an arrow down
    {u'\r', u'\u2190'},      // an arrow to the left
    {u'\u2028', u'\u21B2'},  // an arrow down and to the left
    {u'\u2029', u'\u00B6'},
    {u'\uFFFC', u'\uFFFD'},
}};

}  // namespace

TextEncoding EncodingOf(const std::string& bytes) {
    return FromUtf8(bytes).toUtf8() == QByteArrayView(bytes.data(), qsizetype(bytes.size()))
               ? TextEncoding::Utf8
               : TextEncoding::Windows1252;
}

QString ShownText(const std::string& bytes) {
    return EncodingOf(bytes) == TextEncoding::Utf8 ? FromUtf8(bytes) : FromWindows1252(bytes);
}

QString ShownToolTip(const std::string& bytes) {
    const QString text = ShownText(bytes);
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped().prepend(QStringLiteral("<qt>")) : text;
}

std::string TextBytes(const QString& text, TextEncoding wanted) {
    if (wanted == TextEncoding::Windows1252) {
        std::string bytes(static_cast<std::size_t>(text.size()), '\0');
        std::transform(text.begin(), text.end(), bytes.begin(), Windows1252Byte);
        if (ShownText(bytes) == text) {
            return bytes;
        }
    }
    return text.toStdString();
}

char16_t SymbolOf(char16_t character) {
    for (const auto& [known, symbol] : Symbols) {
        if (known == character) {
            return symbol;
        }
    }
    const bool control = character < FirstPrintable || (character >= DeleteCode && character < FirstBehindExtras);
    return control ? AnyControl : u'\0';
}

QString WithSymbols(QString text) {
    for (QChar& character : text) {
        if (const char16_t symbol = SymbolOf(character.unicode()); symbol != 0) {
            character = QChar(symbol);
        }
    }
    return text;
}
