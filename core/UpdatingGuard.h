#pragma once

#include <exception>

/// Sets a screen's flag for as long as it lives: the screen's controls are being filled, and their handlers do nothing.
/// A fault that ends the filling leaves the flag set, until a filling comes to its end. Of two, one in the other, the
/// first that ends clears it.
class UpdatingGuard {
public:
    explicit UpdatingGuard(bool& updating) : updating_(updating) { updating = true; }
    UpdatingGuard(const UpdatingGuard&) = delete;
    UpdatingGuard& operator=(const UpdatingGuard&) = delete;
    ~UpdatingGuard() { updating_ = std::uncaught_exceptions() > exceptions_; }

private:
    bool& updating_;
    int exceptions_ = std::uncaught_exceptions();
};
