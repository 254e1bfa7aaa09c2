#pragma once

#include <string>

// The line ends of all texts that the program composes, alone and behind what closes a list. Each user sets them first;
// they stay as last set.

inline const std::string QuoteChar = "\"";

extern std::string NL;                   ///< the line end: CR LF or LF
extern std::string CloseLine;            ///< ")" and the line end
extern std::string CloseCloseLine;       ///< "))" and the line end
extern std::string CloseQuoteLine;       ///< quote, ")" and the line end
extern std::string CloseCloseQuoteLine;  ///< quote, "))" and CR LF: UseUnixLineEnds leaves this one alone

void UseDosLineEnds();   ///< CR LF, for text shown on the screen
void UseUnixLineEnds();  ///< LF, for files
