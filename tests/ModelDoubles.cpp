#include "tests/ModelDoubles.h"

#include "core/Screens.h"
#include "platform/Events.h"

ModelDoubles doubles;

int yieldsUntilNextLook = 0;

void LookAtEventQueue() {
    if (doubles.onYield) {
        doubles.onYield();
    }
}

void GiveUpAfterLastScreen() {}
void WaitForEvent() {
    if (doubles.onWait) {
        doubles.onWait();
    } else {
        LookAtEventQueue();
    }
}
void WaitForClosing() { throw GivenUp(); }

void LoadMainFrm() {}
void ShowMainFrm() {}
void SetMapXScrollMax(Int16) {}
void UpdateDisplay() {}
void ClearBadGuySlots() {}
void OpenVarsFrm() {}
void OpenNewInfoFrm() {}
void OpenTypePicker() {}
