#include "core/ModalWaits.h"

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Events.h"

namespace {

void WaitUntilModalDone() {
    while (ModalDone == False) {
        WaitForEvent();
    }
}

}  // namespace

void ShowTypePickerModal() {
    ModalDone = False;
    OpenTypePicker();
    WaitUntilModalDone();
}
