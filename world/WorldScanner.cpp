#include "world/WorldScanner.h"

#include "platform/Conversions.h"
#include "platform/Texts.h"

namespace {

/// So many digits always fit into a number.
constexpr std::int64_t PlainDigits = 4;

constexpr bool IsBlankCharacter(int character) { return character == ' ' || character == '\t' || character == '\n'; }

constexpr bool EndsWord(int character) { return IsBlankCharacter(character) || character == '(' || character == ')'; }

}  // namespace

int WorldScanner::NextChar() {
    if (pos == Ended) {
        return Beyond;
    }
    const int character = CharAt(text, static_cast<std::size_t>(pos));
    ++pos;
    if (pos > std::ssize(text)) {
        pos = Ended;
    }
    return character;
}

int WorldScanner::NextToken() {
    for (;;) {
        const int character = NextChar();
        if (!IsBlankCharacter(character)) {
            return character;
        }
    }
}

/// The next character, or `Beyond` in place of the last one, which ends the text and is dropped.
int WorldScanner::TakeUnlessLast() {
    if (pos == Ended || pos >= std::ssize(text)) {
        pos = Ended;
        return Beyond;
    }
    return CharAt(text, static_cast<std::size_t>(pos++));
}

std::string WorldScanner::ReadWord() {
    while (IsBlankCharacter(CharAt(text, static_cast<std::size_t>(pos)))) {
        ++pos;
    }
    std::string word;
    for (;;) {
        const int character = TakeUnlessLast();
        if (character == ')') {
            --pos;
        }
        if (character == Beyond || EndsWord(character)) {
            return LowerCase(word);
        }
        word += static_cast<char>(character);
    }
}

Int16 WorldScanner::ReadNumber() {
    if (pos != Ended) {
        // A map has a quarter of a million numbers. Those of few digits, which are nearly all, need no word. The zero
        // behind the text ends every loop, and the last character of the text is never part of a word.
        const char* first = text.c_str() + pos - 1;
        while (IsBlankCharacter(*first)) {
            ++first;
        }
        const char* end = first;
        unsigned number = 0;
        for (; IsDigit(*end); ++end) {
            number = 10 * number + static_cast<unsigned>(*end - '0');
        }
        const bool isPlain = end > first && end - first <= PlainDigits && EndsWord(*end);
        if (isPlain && end + 1 < text.c_str() + text.size()) {
            pos = end - text.c_str() + (*end == ')' ? 1 : 2);
            return {static_cast<int>(number)};
        }
    }
    return TextToInt16(ReadWord());
}

std::string WorldScanner::ReadQuoted() {
    std::string quoted;
    if (NextToken() != '"') {
        return quoted;
    }
    for (;;) {
        const int character = NextChar();
        if (character == '"') {
            return quoted;
        }
        if (character == Beyond) {
            throw UnclosedQuote();
        }
        quoted += static_cast<char>(character);
    }
}

std::string WorldScanner::ReadFlag() {
    if (NextToken() != '#') {
        return {};
    }
    const int flag = NextToken();
    return flag == Beyond ? std::string() : std::string(1, static_cast<char>(flag));
}

std::string WorldScanner::ReadRestOfLine() {
    std::string rest;
    for (;;) {
        const int character = TakeUnlessLast();
        if (character == '(') {
            --pos;
        }
        if (character == Beyond || character == '\n' || character == '(') {
            return rest;
        }
        rest += static_cast<char>(character);
    }
}
