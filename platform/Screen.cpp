#include "platform/Screen.h"

#include <QCursor>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWindow>

#include "platform/EventQueue.h"
#include "platform/Events.h"
#include "platform/Surface.h"
#include "platform/TextCoding.h"

Screen::Screen() = default;
Screen::~Screen() { ScreenClosed(*this); }

void Screen::Create(const std::string& name, const std::string& title, int width, int height) {
    window_ = std::make_unique<Surface>([this] { Close(); }, [this] { ScreenCameToFront(*this); });
    window_->setObjectName(ShownText(name));
    window_->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                            Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    window_->setFixedSize(width, height);
    Contain(window_.get(), window_.get());
    SetTitle(title);
    loaded_ = true;
    ScreenLoaded(*this);
}

void Screen::SetTitle(const std::string& title) { window_->setWindowTitle(ShownText(title)); }

void Screen::Show() {
    if (loaded_) {
        window_->show();
        window_->activateWindow();
        ScreenCameToFront(*this);
    }
    shown_ = true;
}

void Screen::KeepAbove(const Screen& other) {
    window_->setWindowFlags(window_->windowFlags() | Qt::Dialog);  // other kinds stand for themselves
    window_->winId();  // makes the windows of the desktop, which exist from the first showing on otherwise
    other.window_->winId();
    window_->windowHandle()->setTransientParent(other.window_->windowHandle());
}

void Screen::ShowIfNeverShown() {
    if (!shown_) {
        Show();
    }
}

void Screen::Hide() { window_->hide(); }

void Screen::Close() {
    if (!std::exchange(loaded_, false)) {
        return;
    }
    if (Unload) {
        Unload();
    }
    window_->hide();
    ScreenClosed(*this);
    if (retire_) {
        DestroyWhenIdle(retire_());
    }
}

void Screen::SetEnabled(bool enabled) { window_->takesInput = enabled; }

void Screen::MoveTo(int left, int top) { window_->move(left, top); }

Int16 Screen::Left() const { return window_->pos().x(); }

Int16 Screen::Top() const { return window_->pos().y(); }

void Screen::Restore(Int16 left, Int16 top, bool centreAtZero) {
    if (centreAtZero && left == 0 && top == 0) {
        const QSize display = QGuiApplication::primaryScreen()->geometry().size();
        MoveTo((display.width() - window_->width()) / 2, (display.height() - window_->height()) / 2);
    } else {
        MoveTo(left, top);
    }
}

void Screen::SetDefaultPointer() { window_->UnsetPointer(); }

void Screen::SetHourglass() { window_->SetPointer(Qt::WaitCursor); }

void Screen::SetPointer(const Picture& picture) { window_->SetPointer(QCursor(*picture.Pixmap(), 1, 1)); }
