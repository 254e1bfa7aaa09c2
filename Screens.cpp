#include "core/Screens.h"

#include "leveledit/MainFrm.h"
#include "sidescreens/BackGndFrm.h"
#include "sidescreens/NewInfoFrm.h"
#include "sidescreens/VarsFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<VarsFrm> varsFrm;
ScreenHolder<BackGndFrm> backGndFrm;
ScreenHolder<NewInfoFrm> newInfoFrm;

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() { mainFrm.Load().Window.Show(); }
void EnableMainFrm(bool enabled) { mainFrm.Load().Window.SetEnabled(enabled); }
void SetMainFrmBusy(bool busy) {
    if (MainFrm* form = mainFrm.Loaded()) {  // a side screen may outlive it, and must not bring it back
        form->Window.SetEnabled(!busy);
        busy ? form->Window.SetHourglass() : form->Window.SetDefaultPointer();
    }
}
void ClearBadGuySlots() { mainFrm.Load().ClearBGSlots(); }
void SetMapXScrollMax(Int16 maximum) { mainFrm.Load().MapXScroll.SetMax(maximum); }
void ShowFileName(const std::string& text) { mainFrm.Load().FileNameBox.SetCaption(text); }
void UpdateDisplay() { mainFrm.Load().UpdateDisplay(); }

void OpenVarsFrm() {
    SetMainFrmBusy(true);
    varsFrm.Load().Window.Show();
}
void EnableVarsFrm(bool enabled) { varsFrm.Load().Window.SetEnabled(enabled); }
void OpenBackGndFrm() { backGndFrm.Load().Window.Show(); }
void OpenNewInfoFrm() { newInfoFrm.Load().Window.Show(); }

// The screen to come: until then the right button only selects.
void OpenBadGuyEditor() { EnableMainFrm(true); }
