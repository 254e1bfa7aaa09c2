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

/// What becomes of the screen below while a side screen is open.
enum class Meanwhile {
    Enabled,   ///< works on
    Disabled,  ///< takes no input
    Busy,      ///< the same, under the hourglass
};

template <typename Form>
void SetCovered(const ScreenHolder<Form>& below, Meanwhile meanwhile, bool covered) {
    OnLoaded(below, [&](Form& form) {
        if (meanwhile != Meanwhile::Enabled) {
            form.Window.SetEnabled(!covered);
        }
        if (meanwhile == Meanwhile::Busy) {
            covered ? form.Window.SetHourglass() : form.Window.SetDefaultPointer();
        }
    });
}

/// Covers the screen below for as long as the other one is open: from before its loading, in which it may yield.
template <typename Below, typename Form>
Form& LoadAbove(const ScreenHolder<Below>& below, ScreenHolder<Form>& holder, Meanwhile meanwhile) {
    SetCovered(below, meanwhile, true);
    return holder.Load([&below, meanwhile] { SetCovered(below, meanwhile, false); });
}

/// Makes and shows a side screen in front of the screen that it belongs to; there is none without that one.
template <typename Below, typename Form>
void ShowAbove(const ScreenHolder<Below>& below, ScreenHolder<Form>& holder, Meanwhile meanwhile) {
    OnLoaded(below, [&](Below& under) {
        Screen& window = LoadAbove(below, holder, meanwhile).Window;
        window.KeepAbove(under.Window);
        window.Show();
    });
}

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() {
    OnLoaded(mainFrm, [](MainFrm& form) { form.Window.Show(); });
}
void ClearBadGuySlots() { OnLoaded(mainFrm, std::mem_fn(&MainFrm::ClearBGSlots)); }
void SetMapXScrollMax(Int16 maximum) {
    OnLoaded(mainFrm, [&](MainFrm& form) { form.MapXScroll.SetMax(maximum); });
}
void UpdateDisplay() { OnLoaded(mainFrm, std::mem_fn(&MainFrm::UpdateDisplay)); }

void OpenVarsFrm() { ShowAbove(mainFrm, varsFrm, Meanwhile::Busy); }
void OpenBackGndFrm() { ShowAbove(varsFrm, backGndFrm, Meanwhile::Disabled); }
void OpenNewInfoFrm() { ShowAbove(mainFrm, newInfoFrm, Meanwhile::Enabled); }
void OpenNukTextFrm() { ShowAbove(mainFrm, nukTextFrm, Meanwhile::Busy); }
void OpenBadGuyEditor() { ShowAbove(mainFrm, bgEditFrm, Meanwhile::Disabled); }
void OpenHelpFrm() { ShowAbove(mainFrm, helpFrm, Meanwhile::Disabled); }

void OpenWorldFrm() {
    LoadAbove(mainFrm, worldFrm, Meanwhile::Busy).Window.Show();
    if (worldFrm.Loaded() != nullptr) {  // otherwise its user has closed it in a yield, which has shown MainFrm
        OnLoaded(mainFrm, [](MainFrm& form) { form.Window.Hide(); });
    }
}
void UpdateWorld() { OnLoaded(worldFrm, std::mem_fn(&WorldFrm::UpdateWorld)); }
void OpenLinkForm() { ShowAbove(worldFrm, linkForm, Meanwhile::Disabled); }
void OpenTypePicker() { ShowAbove(linkForm, typeFrm, Meanwhile::Enabled); }
void OpenWorldProperties() { ShowAbove(worldFrm, worldPropertiesFrm, Meanwhile::Disabled); }
