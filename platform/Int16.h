#pragma once

#include <cstdint>
#include <limits>

#include "platform/Fault.h"

/// A signed 16-bit whole number whose arithmetic never wraps: a result outside -32768 to 32767 is fault 6
/// at the operation that gives it, also in the middle of a longer expression. Division drops the fraction.
/// It stands wherever an `int` may stand, and takes one where that fits. Beside a `double` it must be said to be one.
class Int16 {
public:
    constexpr Int16() = default;

    /// Takes any whole number; fault 6 when it does not fit.
    constexpr Int16(int number) : value_(Narrow(number)) {}  // NOLINT(google-explicit-constructor): a number

    constexpr operator int() const { return value_; }  // NOLINT(google-explicit-constructor): is a number

    friend constexpr Int16 operator+(Int16 a, Int16 b) { return {a.value_ + b.value_}; }
    friend constexpr Int16 operator+(Int16 a, int b) { return a + Int16(b); }
    friend constexpr Int16 operator+(int a, Int16 b) { return Int16(a) + b; }
    friend constexpr Int16 operator-(Int16 a, Int16 b) { return {a.value_ - b.value_}; }
    friend constexpr Int16 operator-(Int16 a, int b) { return a - Int16(b); }
    friend constexpr Int16 operator-(int a, Int16 b) { return Int16(a) - b; }
    friend constexpr Int16 operator*(Int16 a, Int16 b) { return {a.value_ * b.value_}; }
    friend constexpr Int16 operator*(Int16 a, int b) { return a * Int16(b); }
    friend constexpr Int16 operator*(int a, Int16 b) { return Int16(a) * b; }
    constexpr Int16& operator+=(int b) { return *this = *this + b; }
    constexpr Int16& operator-=(int b) { return *this = *this - b; }

private:
    static constexpr std::int16_t Narrow(int number) {
        if (number < std::numeric_limits<std::int16_t>::min() || number > std::numeric_limits<std::int16_t>::max()) {
            throw Fault(FaultNumber::Overflow);
        }
        return static_cast<std::int16_t>(number);
    }

    std::int16_t value_ = 0;
};

static_assert(sizeof(Int16) == 2, "lists of numbers go to the preferences file two bytes each");

/// A truth value as the records hold it.
inline constexpr int True = -1;
inline constexpr int False = 0;
