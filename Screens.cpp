#include "core/Screens.h"

#include "leveledit/MainFrm.h"
#include "sidescreens/HelpFrm.h"
#include "sidescreens/NukTextFrm.h"
#include "sidescreens/zBGEditFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;
ScreenHolder<zBGEditFrm> bgEditFrm;
ScreenHolder<HelpFrm> helpFrm;
ScreenHolder<NukTextFrm> nukTextFrm;

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() { mainFrm.Load().Window.Show(); }
void EnableMainFrm(bool enabled) { mainFrm.Load().Window.SetEnabled(enabled); }
void SetMainFrmBusy(bool busy) {
    Screen& window = mainFrm.Load().Window;
    if (busy) {
        window.SetHourglass();
    } else {
        window.SetDefaultPointer();
    }
    window.SetEnabled(!busy);
}
void SetMapXScrollMax(Int16 maximum) { mainFrm.Load().MapXScroll.SetMax(maximum); }
void ShowFileName(const std::string& text) { mainFrm.Load().FileNameBox.SetCaption(text); }
void UpdateDisplay() { mainFrm.Load().UpdateDisplay(); }

void OpenBadGuyEditor() { bgEditFrm.Load().Window.Show(); }
void OpenHelpFrm() { helpFrm.Load().Window.Show(); }
void OpenNukTextFrm() { nukTextFrm.Load().Window.Show(); }
