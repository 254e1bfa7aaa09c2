#include "core/ModalWaits.h"

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Events.h"

void OpenAndWait(void (*open)()) {
    ModalDone = False;
    open();
    while (ModalDone == False) {
        WaitForEvent();
    }
}

bool ShowNewInfoModal() {
    InfoCreated = False;
    OpenAndWait(OpenNewInfoFrm);
    return InfoCreated != False;
}
