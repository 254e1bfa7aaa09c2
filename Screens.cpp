#include "core/Screens.h"

#include "leveledit/MainFrm.h"

namespace {

ScreenHolder<MainFrm> mainFrm;

}  // namespace

void LoadMainFrm() { mainFrm.Load(); }
void ShowMainFrm() { mainFrm.Load().Window.Show(); }
void EnableMainFrm(bool enabled) { mainFrm.Load().Window.SetEnabled(enabled); }
void SetMapXScrollMax(Int16 maximum) { mainFrm.Load().MapXScroll.SetMax(maximum); }
void ShowFileName(const std::string& text) { mainFrm.Load().FileNameBox.SetCaption(text); }
void UpdateDisplay() { mainFrm.Load().UpdateDisplay(); }

// The screen to come: until then the right button only selects.
void OpenBadGuyEditor() { EnableMainFrm(true); }
