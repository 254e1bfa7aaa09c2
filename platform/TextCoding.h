#pragma once

#include <QString>
#include <string>

// Texts are bytes in memory and on disk. Only the screen needs an encoding.

enum class TextEncoding { Utf8, Windows1252 };

/// UTF-8 if `bytes` are valid in it, else Windows-1252.
[[nodiscard]] TextEncoding EncodingOf(const std::string& bytes);

/// What the screen shows for `bytes`.
[[nodiscard]] QString ShownText(const std::string& bytes);

/// The same for a tool tip, which the toolkit would read as markup if it looks like that.
[[nodiscard]] QString ShownToolTip(const std::string& bytes);

/// The bytes of `text`: in UTF-8, or in Windows-1252 if that is wanted and shows as this text again. (It does not where
/// it lacks a character, and where its bytes happen to be valid UTF-8.)
[[nodiscard]] std::string TextBytes(const QString& text, TextEncoding wanted = TextEncoding::Utf8);

/// A symbol of the program's fonts for a control character or another one that breaks lines; 0 for all others.
[[nodiscard]] char16_t SymbolOf(char16_t character);

/// `text` with these symbols, for where it stands in one line.
[[nodiscard]] QString WithSymbols(QString text);
