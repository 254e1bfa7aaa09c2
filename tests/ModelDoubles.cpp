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

void LoadMainFrm() {
    if (doubles.onLoadMainFrm) {
        doubles.onLoadMainFrm();
    }
}
void ShowMainFrm() {}
void SetMapXScrollMax(Int16) {}
void ShowFileName(const std::string& text) { doubles.calls.push_back("ShowFileName " + text); }
void UpdateDisplay() { doubles.calls.emplace_back("UpdateDisplay"); }
void ClearBadGuySlots() { doubles.calls.emplace_back("ClearBadGuySlots"); }
void OpenVarsFrm() { doubles.calls.emplace_back("OpenVarsFrm"); }
void OpenNewInfoFrm() { doubles.calls.emplace_back("OpenNewInfoFrm"); }
void OpenTypePicker() { doubles.calls.emplace_back("OpenTypePicker"); }
