#pragma once

#include <string>
#include <string_view>

// Texts are bytes: nothing here knows of an encoding, and positions count from 1.

/// `text` without the blanks (code 32 only) at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

/// True if nothing but blanks is in `text`.
[[nodiscard]] inline bool IsBlank(std::string_view text) { return Trim(text).empty(); }

/// The letters a to z in capitals; every other byte as it is.
[[nodiscard]] std::string UpperCase(std::string_view text);

/// The letters A to Z in lower case; every other byte as it is.
[[nodiscard]] std::string LowerCase(std::string_view text);

/// The character at `position` (from 1), or `Beyond` past either end. No byte of a text equals `Beyond`.
inline constexpr int Beyond = -1;
[[nodiscard]] inline int CharAt(std::string_view text, std::size_t position) {
    return position >= 1 && position <= text.size() ? static_cast<unsigned char>(text[position - 1]) : Beyond;
}

/// True for the characters "0" to "9".
[[nodiscard]] inline constexpr bool IsDigit(int character) { return character >= '0' && character <= '9'; }
