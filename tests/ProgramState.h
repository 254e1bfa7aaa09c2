#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

class QWidget;

// All that the program holds and shows, as text: what stories compare.

/// What there is of one record or screen, by name and index (-1 for what is no array). What is empty, 0 or hidden is
/// left out.
using StateOfOne = std::map<std::pair<std::string, int>, std::string>;

/// The records as "level", "world", "prefs" and "selections", each open screen by its name.
using ProgramState = std::map<std::string, StateOfOne>;

[[nodiscard]] ProgramState CurrentState();

/// What a control of an open screen shows: a text, whole even where the screen shortens it, a caption with " [x]" or
/// " [ ]", "5 of 0-22" for a scroll bar; " (disabled)" is added.
[[nodiscard]] std::string ShownBy(const QWidget& control);

/// What is different after `before`, a line for each record and screen: "MainFrm: Img(48)=26 | Img(50-52)=". Neighbours
/// in an array that are equal or count up are drawn together, and values stand on one line.
[[nodiscard]] std::vector<std::string> Changes(const ProgramState& before, const ProgramState& after);

/// A text with its line ends as "\n" and "\r", and a long one without its middle.
[[nodiscard]] std::string OnOneLine(const std::string& text);

/// Assigns a number or text of a record: "prefs", "SavedMode", "2".
void SetState(const std::string& owner, const std::string& name, const std::string& value);
