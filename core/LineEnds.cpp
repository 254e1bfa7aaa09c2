#include "core/LineEnds.h"

std::string NL;
std::string CloseLine;
std::string CloseCloseLine;
std::string CloseQuoteLine;
std::string CloseCloseQuoteLine;

namespace {

void SetLineEnds(const char* lineEnd) {
    NL = lineEnd;
    CloseLine = ")" + NL;
    CloseCloseLine = "))" + NL;
    CloseQuoteLine = "\")" + NL;
}

}  // namespace

void UseDosLineEnds() {
    SetLineEnds("\r\n");
    CloseCloseQuoteLine = "\"))" + NL;
}

void UseUnixLineEnds() { SetLineEnds("\n"); }
