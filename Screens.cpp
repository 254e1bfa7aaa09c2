#include "core/Screens.h"

#include "leveledit/MainFrm.h"
#include "world/LinkForm.h"
#include "world/WorldFrm.h"
#include "world/WorldPropertiesFrm.h"
#include "world/zTypeFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<WorldFrm> worldFrm;
ScreenHolder<LinkForm> linkForm;
ScreenHolder<zTypeFrm> typeFrm;
ScreenHolder<WorldPropertiesFrm> worldPropertiesFrm;

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
void SetMapXScrollMax(Int16 maximum) { mainFrm.Load().MapXScroll.SetMax(maximum); }
void ShowFileName(const std::string& text) { mainFrm.Load().FileNameBox.SetCaption(text); }
void UpdateDisplay() { mainFrm.Load().UpdateDisplay(); }

// The screen to come: until then the right button only selects.
void OpenBadGuyEditor() { EnableMainFrm(true); }

bool OpenWorldFrm() {
    worldFrm.Load().Window.Show();
    return worldFrm.Loaded() != nullptr;
}
void EnableWorldFrm(bool enabled) { worldFrm.Load().Window.SetEnabled(enabled); }
void UpdateWorld() { worldFrm.Load().UpdateWorld(); }
void OpenLinkForm() { linkForm.Load().Window.Show(); }
void OpenTypePicker() { typeFrm.Load().Window.Show(); }
void OpenWorldProperties() { worldPropertiesFrm.Load().Window.Show(); }
