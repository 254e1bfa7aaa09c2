#include "core/Screens.h"

#include "leveledit/MainFrm.h"
#include "sidescreens/BackGndFrm.h"
#include "sidescreens/NewInfoFrm.h"
#include "sidescreens/VarsFrm.h"
#include "world/LinkForm.h"
#include "world/WorldFrm.h"
#include "world/WorldPropertiesFrm.h"
#include "world/zTypeFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<VarsFrm> varsFrm;
ScreenHolder<BackGndFrm> backGndFrm;
ScreenHolder<NewInfoFrm> newInfoFrm;
ScreenHolder<WorldFrm> worldFrm;
ScreenHolder<LinkForm> linkForm;
ScreenHolder<zTypeFrm> typeFrm;
ScreenHolder<WorldPropertiesFrm> worldPropertiesFrm;

template <typename Form>
void ShowAbove(const Screen& other, ScreenHolder<Form>& holder) {
    Screen& window = holder.Load().Window;
    window.KeepAbove(other);
    window.Show();
}

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() {
    if (MainFrm* form = mainFrm.Loaded()) {
        form->Window.Show();
    }
}
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
    ShowAbove(mainFrm.Load().Window, varsFrm);
}
void EnableVarsFrm(bool enabled) { varsFrm.Load().Window.SetEnabled(enabled); }
void OpenBackGndFrm() { ShowAbove(varsFrm.Load().Window, backGndFrm); }
void OpenNewInfoFrm() { ShowAbove(mainFrm.Load().Window, newInfoFrm); }

// The screen to come: until then the right button only selects.
void OpenBadGuyEditor() { EnableMainFrm(true); }

bool OpenWorldFrm() {
    worldFrm.Load().Window.Show();
    return worldFrm.Loaded() != nullptr;
}
void EnableWorldFrm(bool enabled) { worldFrm.Load().Window.SetEnabled(enabled); }
void UpdateWorld() { worldFrm.Load().UpdateWorld(); }
void OpenLinkForm() { ShowAbove(worldFrm.Load().Window, linkForm); }
void OpenTypePicker() { ShowAbove(linkForm.Load().Window, typeFrm); }
void OpenWorldProperties() { ShowAbove(worldFrm.Load().Window, worldPropertiesFrm); }
