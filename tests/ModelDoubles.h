#pragma once

#include <functional>

/// What the event queue does when the model yields.
struct ModelDoubles {
    std::function<void()> onYield;  ///< runs at every yield while set
    std::function<void()> onWait;   ///< runs at every wait for an event, in place of onYield
};

extern ModelDoubles doubles;
