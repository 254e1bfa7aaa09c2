#pragma once

#include <cstdint>
#include <string>

#include "platform/Int16.h"

/// What leaves the scanner when a quoted text has no end.
struct UnclosedQuote {};

/// Walks the text of a world map file. Blanks are blank, tab and line feed; a text never holds a carriage
/// return. Characters are given as CharAt gives them, with `Beyond` at the end of the text.
struct WorldScanner {
    static constexpr std::int64_t Ended = -1;

    std::string text;      ///< the whole file
    std::int64_t pos = 1;  ///< position of the next character, from 1; Ended once the end is passed

    /// The next character. Taking the last one ends the text.
    int NextChar();

    /// The next character that is no blank.
    int NextToken();

    /// The next word, in lower case. A blank or "(" ends it and is taken with it; ")" ends it and stays. The
    /// end of the text ends it too: the last character is dropped.
    std::string ReadWord();

    /// The next word as a number, by TextToInt16 and with its faults.
    Int16 ReadNumber();

    /// What stands in double quotes; empty, with one character lost, if no quote comes next. Throws UnclosedQuote when
    /// the second quote is missing: by the format, the text goes on for ever then.
    std::string ReadQuoted();

    /// The letter behind "#"; empty, with one character lost, if no "#" comes next.
    std::string ReadFlag();

    /// What comes before the next line feed, which is taken with it, or before the next "(", which stays. At
    /// the end of the text the last character is dropped.
    std::string ReadRestOfLine();

private:
    int TakeUnlessLast();
};
