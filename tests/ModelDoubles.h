#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/Int16.h"

/// What the model told the screens, and what the event queue does when the model yields.
struct ModelDoubles {
    Int16 mapXScrollMax;
    std::vector<std::string> calls;  ///< other calls through the door, in order
    std::function<void()> onYield;   ///< runs at every yield while set
};

extern ModelDoubles doubles;
