#pragma once

#include <string>
#include <string_view>

#include "platform/Int16.h"

// Between numbers and texts. Reading knows the point as decimal separator, whatever the locale.

/// The number that `text` spells: blanks around it, a sign, digits, a fraction and an exponent are allowed.
/// Halves round to the even neighbour. Fault 13 if `text` is empty or no number, fault 6 out of range.
[[nodiscard]] Int16 TextToInt16(std::string_view text);

/// The same for a real number. Fault 13 also beyond the range of a double.
[[nodiscard]] double TextToDouble(std::string_view text);

/// The number at the start of `text`, blanks before it and within it ignored; 0 if there is none. Never a fault.
[[nodiscard]] double LeadingNumber(std::string_view text);

/// The nearest whole number, halves to the even neighbour. Fault 6 out of range.
[[nodiscard]] Int16 RoundToInt16(double number);

/// Up to 15 significant digits in the shortest general form (8, 0.5, 1E+20), with the point as TextToDouble takes it.
/// Never a negative zero.
[[nodiscard]] std::string DoubleToPlainText(double number);

/// The same with the decimal separator of the system's locale.
[[nodiscard]] std::string DoubleToText(double number);

/// Up to 7 significant digits, otherwise the same as DoubleToText.
[[nodiscard]] std::string SingleToText(float number);

/// Takes the decimal separator from the user's settings. Once, at start; until then it is the point.
void UseSystemDecimalSeparator();
