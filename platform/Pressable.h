#pragma once

#include <QAccessible>

/// What a user can press, by whatever means: the toolkit's widget behind a button, a box to tick or a label with a
/// handler.
class Pressable {
public:
    Pressable() = default;
    Pressable(const Pressable&) = delete;
    Pressable& operator=(const Pressable&) = delete;
    virtual ~Pressable() = default;

    /// Does what a click on it does.
    virtual void Press() = 0;

    /// What it is for tools; NoRole for what is not there for anybody.
    [[nodiscard]] virtual QAccessible::Role Role() const = 0;
};
