#pragma once

#include <functional>

/// Starts the toolkit, runs `start`, and then the event loop until the last screen has closed. Gives the exit
/// status of the process. The look is fixed: the same plain, light style on every desktop.
int RunApplication(int argc, char** argv, const std::function<void()>& start);

/// Sets the toolkit up for the program: style, colours, font, the deaf ear of disabled screens. Part of
/// RunApplication; a test calls it with a toolkit of its own.
void PrepareToolkit();
