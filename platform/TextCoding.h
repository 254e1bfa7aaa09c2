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

/// The bytes of `text`. A character that Windows-1252 lacks becomes "?" there.
[[nodiscard]] std::string TextBytes(const QString& text, TextEncoding encoding = TextEncoding::Utf8);
