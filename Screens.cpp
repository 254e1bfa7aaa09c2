#include "core/Screens.h"

#include <functional>

#include "leveledit/MainFrm.h"
#include "sidescreens/BackGndFrm.h"
#include "sidescreens/HelpFrm.h"
#include "sidescreens/NewInfoFrm.h"
#include "sidescreens/NukTextFrm.h"
#include "sidescreens/VarsFrm.h"
#include "sidescreens/zBGEditFrm.h"
#include "world/LinkForm.h"
#include "world/WorldFrm.h"
#include "world/WorldPropertiesFrm.h"
#include "world/zTypeFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<VarsFrm> varsFrm;
ScreenHolder<BackGndFrm> backGndFrm;
ScreenHolder<NewInfoFrm> newInfoFrm;
ScreenHolder<NukTextFrm> nukTextFrm;
ScreenHolder<zBGEditFrm> bgEditFrm;
ScreenHolder<HelpFrm> helpFrm;
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

/// Works on a screen if it is loaded: one that its user has closed meanwhile must not come back.
template <typename Form, typename Work>
void OnLoaded(const ScreenHolder<Form>& holder, Work work) {
    if (Form* form = holder.Loaded()) {
        work(*form);
    }
}

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() {
    OnLoaded(mainFrm, [](MainFrm& form) { form.Window.Show(); });
}
void EnableMainFrm(bool enabled) {
    OnLoaded(mainFrm, [&](MainFrm& form) { form.Window.SetEnabled(enabled); });
}
void SetMainFrmBusy(bool busy) {
    EnableMainFrm(!busy);
    OnLoaded(mainFrm, [&](MainFrm& form) { busy ? form.Window.SetHourglass() : form.Window.SetDefaultPointer(); });
}
void ClearBadGuySlots() { OnLoaded(mainFrm, std::mem_fn(&MainFrm::ClearBGSlots)); }
void SetMapXScrollMax(Int16 maximum) {
    OnLoaded(mainFrm, [&](MainFrm& form) { form.MapXScroll.SetMax(maximum); });
}
void ShowFileName(const std::string& text) {
    OnLoaded(mainFrm, [&](MainFrm& form) { form.FileNameBox.SetCaption(text); });
}
void UpdateDisplay() { OnLoaded(mainFrm, std::mem_fn(&MainFrm::UpdateDisplay)); }

void OpenVarsFrm() {
    SetMainFrmBusy(true);
    ShowAbove(mainFrm.Load().Window, varsFrm);
}
void EnableVarsFrm(bool enabled) { varsFrm.Load().Window.SetEnabled(enabled); }
void OpenBackGndFrm() { ShowAbove(varsFrm.Load().Window, backGndFrm); }
void OpenNewInfoFrm() { ShowAbove(mainFrm.Load().Window, newInfoFrm); }
void OpenNukTextFrm() {
    SetMainFrmBusy(true);
    ShowAbove(mainFrm.Load().Window, nukTextFrm);
}
void OpenBadGuyEditor() {
    EnableMainFrm(false);
    ShowAbove(mainFrm.Load().Window, bgEditFrm);
}
void OpenHelpFrm() {
    EnableMainFrm(false);
    ShowAbove(mainFrm.Load().Window, helpFrm);
}

bool OpenWorldFrm() {
    worldFrm.Load().Window.Show();
    return worldFrm.Loaded() != nullptr;
}
void EnableWorldFrm(bool enabled) { worldFrm.Load().Window.SetEnabled(enabled); }
void UpdateWorld() { worldFrm.Load().UpdateWorld(); }
void OpenLinkForm() { ShowAbove(worldFrm.Load().Window, linkForm); }
void OpenTypePicker() { ShowAbove(linkForm.Load().Window, typeFrm); }
void OpenWorldProperties() { ShowAbove(worldFrm.Load().Window, worldPropertiesFrm); }
