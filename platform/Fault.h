#pragma once

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

/// What goes wrong at run time, by the number that the user is told.
enum class FaultNumber {
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    BadFileNumber = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    TooManyFiles = 67,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    InvalidPropertyValue = 380,
    InvalidPicture = 481,
    CancelWasSelected = 32755,
};

/// The one exception of the program. A routine that can go on after a failure catches `const Fault&`;
/// a fault that nobody catches ends the process (see Dialogs.h, EndWithFault).
class Fault : public std::exception {
public:
    explicit Fault(FaultNumber number) : number_(number) {}

    [[nodiscard]] FaultNumber Number() const { return number_; }

    /// The platform's words for the number, such as "Overflow".
    [[nodiscard]] const char* what() const noexcept override;

private:
    FaultNumber number_;
};

/// The text of the message that ends the process: "Run-time error 'N':", an empty line, and the words.
[[nodiscard]] std::string FaultMessage(const Fault& fault);

/// Runs `work` and turns the standard library's lack of memory into fault 7, so that the rest of the
/// program knows one kind of failure only.
template <typename Work>
auto WithMemoryFaults(Work&& work) -> decltype(work()) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        throw Fault(FaultNumber::OutOfMemory);
    } catch (const std::length_error&) {
        throw Fault(FaultNumber::OutOfMemory);
    }
}
