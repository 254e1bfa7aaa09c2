#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Controls.h"

class QPlainTextEdit;

/// A character that a text area cannot hold, and the symbol that it shows instead.
struct Substitute {
    char16_t character;
    char16_t symbol;
};

/// A box for a text of many lines in letters of one width, with scroll bars. CR LF breaks lines. A lone LF or CR, other
/// control characters and the few that the box cannot hold are shown by symbols that the text does not have, so that
/// all that was put in comes out again. Writes back in the encoding that it was filled with, as a TextBox does.
class TextArea : public Control {
public:
    enum class Lines {
        Wrapped,  ///< for prose: a long line goes on in the next row
        Unbroken  ///< for the texts of files
    };

    std::function<void()> Change;  ///< at every change of the text

    void Create(Container& container, const std::string& name, Place place, Lines lines);

    void SetText(const std::string& text);
    [[nodiscard]] std::string Text() const;

private:
    QPlainTextEdit* edit_ = nullptr;
    bool utf8_ = true;
    std::vector<Substitute> substitutes_;  // those that the text on show needs
};
