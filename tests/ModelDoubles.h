#pragma once

#include <functional>
#include <string>
#include <vector>

/// What the model told the screens, and what the event queue does when the model yields.
struct ModelDoubles {
    std::vector<std::string> calls;  ///< calls through the door, in order
    std::function<void()> onYield;   ///< runs at every yield while set
    std::function<void()> onLoadMainFrm;
    std::function<void()> onWait;  ///< runs at every wait for an event, in place of onYield
};

extern ModelDoubles doubles;
