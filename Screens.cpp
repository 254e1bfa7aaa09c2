#include "core/Screens.h"

#include "leveledit/MainFrm.h"
#include "sidescreens/BackGndFrm.h"
#include "sidescreens/HelpFrm.h"
#include "sidescreens/NewInfoFrm.h"
#include "sidescreens/NukTextFrm.h"
#include "sidescreens/VarsFrm.h"
#include "sidescreens/zBGEditFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<VarsFrm> varsFrm;
ScreenHolder<BackGndFrm> backGndFrm;
ScreenHolder<NewInfoFrm> newInfoFrm;
ScreenHolder<NukTextFrm> nukTextFrm;
ScreenHolder<zBGEditFrm> bgEditFrm;
ScreenHolder<HelpFrm> helpFrm;

template <typename Form>
void ShowAbove(const Screen& other, ScreenHolder<Form>& holder) {
    Screen& window = holder.Load().Window;
    window.KeepAbove(other);
    window.Show();
}

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() { mainFrm.Load().Window.Show(); }
// A side screen may outlive MainFrm, and must not bring it back.
void EnableMainFrm(bool enabled) {
    if (MainFrm* form = mainFrm.Loaded()) {
        form->Window.SetEnabled(enabled);
    }
}
void SetMainFrmBusy(bool busy) {
    if (MainFrm* form = mainFrm.Loaded()) {
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
