#include "level/LineReader.h"

#include <algorithm>
#include <utility>

#include "platform/Conversions.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Texts.h"

void ReadFirstLine(LineReader& in, const std::string& path, std::size_t longestDosLine) {
    in.ReadFileNum = FreeFileNumber();
    OpenForInput(in.ReadFileNum, path);
    in.FirstLine = LineInput(in.ReadFileNum);
    in.LfMode = in.FirstLine.size() > longestDosLine;
    if (in.LfMode) {
        ReadNextLine(in);
    } else {
        in.CurrentLine = in.FirstLine;
    }
}

void ReadNextLine(LineReader& in) {
    YieldInRead();
    in.CurrentLine.clear();
    if (!in.LfMode) {
        try {
            in.CurrentLine = LineInput(in.ReadFileNum);
        } catch (const Fault&) {
            in.LinePos = -1;
            in.TextIsUsedUp = true;
        }
        return;
    }
    const auto length = static_cast<std::int64_t>(in.FirstLine.size());
    if (in.LinePos < 1 || in.LinePos > length - 1) {
        in.LinePos = -1;
        in.TextIsUsedUp = true;
        return;
    }
    const auto from = static_cast<std::size_t>(in.LinePos - 1);
    const std::size_t end = in.FirstLine.find('\n', from);
    in.CurrentLine.assign(in.FirstLine, from, end == std::string::npos ? end : end - from);
    if (end != std::string::npos) {
        in.LinePos = static_cast<std::int64_t>(end) + 2;
    } else {
        in.TextIsUsedUp = std::exchange(in.LastLineIsOut, true);
    }
}

bool ReadLineBeforeEnd(LineReader& in) {
    ReadNextLine(in);
    if (in.LinePos < 0) {
        return false;
    }
    RestIfTextIsUsedUp(in);
    return true;
}

void RestIfTextIsUsedUp(const LineReader& in) {
    if (in.TextIsUsedUp) {
        WaitForEvent();
    }
}

Int16 ParseIntValue(std::string_view line, std::size_t start) {
    if (line.size() > INT16_MAX) {
        throw Fault(FaultNumber::Overflow);
    }
    Int16 value;
    for (std::size_t p = start; p <= line.size() && CharAt(line, p) != ')'; ++p) {
        if (IsDigit(CharAt(line, p))) {
            value = AppendDigit(value, CharAt(line, p));
        }
    }
    return value;
}

std::string ParseStringValue(std::string_view line, std::size_t start) {
    std::string_view rest = line.substr(std::min(start - 1, line.size()));
    rest = rest.substr(0, rest.find(')'));
    const std::size_t quote = rest.find('"');
    if (quote == std::string_view::npos) {
        return {};
    }
    rest.remove_prefix(quote + 1);
    return std::string(rest.substr(0, rest.find('"')));
}

double ParseFloatValue(std::string_view line, std::size_t start) {
    std::string number;
    for (std::size_t p = start; p <= line.size() && CharAt(line, p) != ')'; ++p) {
        if (IsDigit(CharAt(line, p)) || CharAt(line, p) == '.') {
            number += static_cast<char>(CharAt(line, p));
        }
    }
    return TextToDouble(number);
}
