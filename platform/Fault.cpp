#include "platform/Fault.h"

const char* Fault::what() const noexcept {
    switch (number_) {
        case FaultNumber::Overflow: return "Overflow";
        case FaultNumber::OutOfMemory: return "Out of memory";
        case FaultNumber::SubscriptOutOfRange: return "Subscript out of range";
        case FaultNumber::TypeMismatch: return "Type mismatch";
        case FaultNumber::BadFileNumber: return "Bad file name or number";
        case FaultNumber::FileNotFound: return "File not found";
        case FaultNumber::DeviceIoError: return "Device I/O error";
        case FaultNumber::DiskFull: return "Disk full";
        case FaultNumber::InputPastEndOfFile: return "Input past end of file";
        case FaultNumber::TooManyFiles: return "Too many files";
        case FaultNumber::PermissionDenied: return "Permission denied";
        case FaultNumber::PathFileAccessError: return "Path/File access error";
        case FaultNumber::PathNotFound: return "Path not found";
        case FaultNumber::InvalidPropertyValue: return "Invalid property value";
        case FaultNumber::InvalidPicture: return "Invalid picture";
        case FaultNumber::CancelWasSelected: return "Cancel was selected";
    }
    return "Application-defined or object-defined error";
}

std::string FaultMessage(const Fault& fault) {
    return "Run-time error '" + std::to_string(static_cast<int>(fault.Number())) + "':\n\n" + fault.what();
}
