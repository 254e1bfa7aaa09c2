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

/// Works on a screen if it is loaded: one that its user has closed meanwhile must not come back.
template <typename Form, typename Work>
void OnLoaded(const ScreenHolder<Form>& holder, Work work) {
    if (Form* form = holder.Loaded()) {
        work(*form);
    }
}

/// Makes and shows a side screen in front of the screen that it belongs to; there is none without that one.
template <typename Below, typename Form>
void ShowAbove(const ScreenHolder<Below>& below, ScreenHolder<Form>& holder) {
    OnLoaded(below, [&](Below& under) {
        Screen& window = holder.Load().Window;
        window.KeepAbove(under.Window);
        window.Show();
    });
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
    ShowAbove(mainFrm, varsFrm);
}
void EnableVarsFrm(bool enabled) {
    OnLoaded(varsFrm, [&](VarsFrm& form) { form.Window.SetEnabled(enabled); });
}
void OpenBackGndFrm() { ShowAbove(varsFrm, backGndFrm); }
void OpenNewInfoFrm() { ShowAbove(mainFrm, newInfoFrm); }
void OpenNukTextFrm() {
    SetMainFrmBusy(true);
    ShowAbove(mainFrm, nukTextFrm);
}
void OpenBadGuyEditor() {
    EnableMainFrm(false);
    ShowAbove(mainFrm, bgEditFrm);
}
void OpenHelpFrm() {
    EnableMainFrm(false);
    ShowAbove(mainFrm, helpFrm);
}

bool OpenWorldFrm() {
    worldFrm.Load().Window.Show();
    return worldFrm.Loaded() != nullptr;
}
void EnableWorldFrm(bool enabled) {
    OnLoaded(worldFrm, [&](WorldFrm& form) { form.Window.SetEnabled(enabled); });
}
void UpdateWorld() { OnLoaded(worldFrm, std::mem_fn(&WorldFrm::UpdateWorld)); }
void OpenLinkForm() { ShowAbove(worldFrm, linkForm); }
void OpenTypePicker() { ShowAbove(linkForm, typeFrm); }
void OpenWorldProperties() { ShowAbove(worldFrm, worldPropertiesFrm); }
