#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "platform/Container.h"
#include "platform/Int16.h"
#include "platform/Pictures.h"

/// A window of fixed size. Once it is shown its position is the one at which its frame stands, in pixels.
class Screen : public Container {
public:
    /// Raised once when the screen closes, by whatever way. The screen's controls still exist then.
    std::function<void()> Unload;

    /// Raised just before it: gives back to the screen below what opening this one has taken from it.
    std::function<void()> Uncover;

    Screen();
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    ~Screen();

    /// Makes the window without showing it. A screen counts as loaded from here until it is closed; the
    /// process ends when no screen is loaded any more.
    void Create(const std::string& name, const std::string& title, int width, int height);

    void SetTitle(const std::string& title);

    void Show();
    void Hide();

    /// Stays in front of `other` from its next showing on, also when the user clicks that one: a screen that takes
    /// no input must not hide the one that the user is meant to answer.
    void KeepAbove(const Screen& other);

    /// Shows a screen whose loading is still under way, so that its user has a window.
    void ShowIfNeverShown();

    /// Raises Unload and takes the window off the screen.
    void Close();

    /// A disabled screen takes no input and cannot be closed by its user; it looks as before.
    void SetEnabled(bool enabled);

    void MoveTo(int left, int top);
    [[nodiscard]] Int16 Left() const;  ///< fault 6 beyond 16 bits
    [[nodiscard]] Int16 Top() const;

    /// Takes the saved position as it stands; with `centreAtZero`, one of (0, 0) centres the screen instead.
    void Restore(Int16 left, Int16 top, bool centreAtZero);

    void SetDefaultPointer();
    void SetHourglass();

    /// A pointer of the given picture that points with its pixel (1, 1).
    void SetPointer(const Picture& picture);

    /// What gives up the object that holds this screen once it has closed; the platform destroys that when no
    /// handler of it can still be running.
    void SetRetire(std::function<std::shared_ptr<void>()> retire) { retire_ = std::move(retire); }

    /// The toolkit's window, for tests.
    [[nodiscard]] Surface& Window() const { return PaintSurface(); }

private:
    std::unique_ptr<Surface> window_;
    std::function<std::shared_ptr<void>()> retire_;
    bool loaded_ = false;
    bool shown_ = false;
};

/// Shows the hourglass on a screen for as long as it lives.
class Hourglass {
public:
    explicit Hourglass(Screen& screen) : screen_(screen) { screen_.SetHourglass(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { screen_.SetDefaultPointer(); }

private:
    Screen& screen_;
};

/// Holds the one instance of a screen: made at its first use, gone after it has closed. `Form` has a member
/// `Window` of type Screen and a routine `Load()` that makes the controls and does what opening them needs.
template <typename Form>
class ScreenHolder {
public:
    /// The instance, loaded if it was not yet; closing it runs `uncover`, also while it still loads. What leaves
    /// `Form::Load` leaves no half-made instance behind.
    Form& Load(const std::function<void()>& uncover = {}) {
        if (form_ == nullptr) {
            form_ = std::make_shared<Form>();
            const std::shared_ptr<Form> loading = form_;
            loading->Window.Uncover = uncover;
            loading->Window.SetRetire([this] { return std::shared_ptr<void>(std::move(form_)); });
            try {
                loading->Load();
            } catch (...) {
                if (form_ == loading) {  // otherwise it has been closed meanwhile, and another one may have been made
                    form_.reset();
                }
                throw;
            }
            return *loading;
        }
        return *form_;
    }

    /// The instance, or null while the screen is not loaded.
    [[nodiscard]] Form* Loaded() const { return form_.get(); }

private:
    std::shared_ptr<Form> form_;
};
