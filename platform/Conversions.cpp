#include "platform/Conversions.h"

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <optional>

#include "platform/Texts.h"

namespace {

constexpr int DoubleDigits = 15;
constexpr int SingleDigits = 7;

std::string decimalSeparator = ".";

/// The length of the number at the start of `text`: sign, digits, fraction, exponent; 0 if there is none.
std::size_t NumberLength(std::string_view text) {
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t from = at;
        while (at < text.size() && IsDigit(static_cast<unsigned char>(text[at]))) {
            ++at;
        }
        return at - from;
    };
    const auto sign = [&] {
        if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
            ++at;
        }
    };
    sign();
    std::size_t mantissa = digits();
    if (at < text.size() && text[at] == '.') {
        ++at;
        mantissa += digits();
    }
    if (mantissa == 0) {
        return 0;
    }
    const std::size_t end = at;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        ++at;
        sign();
        return digits() > 0 ? at : end;
    }
    return end;
}

/// The value of a text of the shape that NumberLength finds, or nothing beyond the range of a double.
std::optional<double> NumberValue(std::string_view text) {
    if (text.front() == '+') {
        text.remove_prefix(1);
    }
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large, or too small to hold: from_chars does not tell which, the older function does.
        value = std::strtod(std::string(text).c_str(), nullptr);
        return std::isinf(value) ? std::nullopt : std::optional(value);
    }
    return value;
}

/// The value of a text that holds one number, with blanks around it at most. Fault 13 for another text, `beyondRange`
/// for a number that no double holds.
double NumberIn(std::string_view text, FaultNumber beyondRange) {
    const std::string_view number = Trim(text);
    const std::size_t length = NumberLength(number);
    if (length == 0 || length != number.size()) {
        throw Fault(FaultNumber::TypeMismatch);
    }
    const std::optional<double> value = NumberValue(number);
    if (!value) {
        throw Fault(beyondRange);
    }
    return *value;
}

std::string GeneralForm(double number, int digits, const std::string& separator) {
    char buffer[40];
    const auto end =
        std::to_chars(buffer, buffer + sizeof buffer, number == 0 ? 0.0 : number, std::chars_format::general, digits);
    std::string text = UpperCase({buffer, static_cast<std::size_t>(end.ptr - buffer)});
    if (const std::size_t point = text.find('.'); point != std::string::npos) {
        text.replace(point, 1, separator);
    }
    return text;
}

}  // namespace

Int16 TextToInt16(std::string_view text) { return RoundToInt16(NumberIn(text, FaultNumber::Overflow)); }

double TextToDouble(std::string_view text) { return NumberIn(text, FaultNumber::TypeMismatch); }

double LeadingNumber(std::string_view text) {
    std::string packed;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') {
            packed += c;
        }
    }
    const std::size_t length = NumberLength(packed);
    return length == 0 ? 0 : NumberValue(std::string_view(packed).substr(0, length)).value_or(HUGE_VAL);
}

Int16 RoundToInt16(double number) {
    const double rounded = std::nearbyint(number);
    if (!(rounded >= -32768.0 && rounded <= 32767.0)) {
        throw Fault(FaultNumber::Overflow);
    }
    return {static_cast<int>(rounded)};
}

std::string DoubleToPlainText(double number) { return GeneralForm(number, DoubleDigits, "."); }

std::string DoubleToText(double number) { return GeneralForm(number, DoubleDigits, decimalSeparator); }

std::string SingleToText(float number) {
    return GeneralForm(static_cast<double>(number), SingleDigits, decimalSeparator);
}

void UseSystemDecimalSeparator() {
    const std::string before = std::setlocale(LC_NUMERIC, nullptr);
    if (std::setlocale(LC_NUMERIC, "") != nullptr) {
        decimalSeparator = std::localeconv()->decimal_point;
        std::setlocale(LC_NUMERIC, before.c_str());
    }
}
