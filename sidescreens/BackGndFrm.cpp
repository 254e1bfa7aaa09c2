#include "sidescreens/BackGndFrm.h"

#include "core/General.h"
#include "core/ScreenPositions.h"
#include "core/SharedState.h"
#include "platform/Texts.h"

namespace {

/// Pictures of this format are never opened. The three letters decide, even without a point before them.
bool EndsInPng(const std::string& path) { return LowerCase(path).ends_with("png"); }

}  // namespace

void BackGndFrm::MakeControls() {
    constexpr int Width = 556;
    constexpr int Height = 306;
    constexpr Place Preview{220, 12, 324, 243};
    Window.Create("BackGndFrm", "Level Background - Select Desired Background Picture", Width, Height);
    Window.Unload = [this] { Unload(); };
    DummyCmd.Create(Window, "DummyCmd", {12, Height + 40, 80, 24}, "DummyCmd");
    ImageFiles.Create(Window, "ImageFiles", {12, 12, 196, Height - 24});
    ImageFiles.SetAccessibleName("Background pictures");
    DummyCmd.HoldFocusFor({&ImageFiles});
    ImageFiles.Click = [this](const std::string& name) { ImageFiles_Click(name); };
    PreviewImg.Create(Window, "PreviewImg", Preview);
    PreviewImg.SetStretch(true);
    PreviewImg.SetPicture(FixedPicture("PreviewImg"));
    PNGImage.Create(Window, "PNGImage", {Preview.left, Height + 40, Preview.width, Preview.height});
    PNGImage.SetPicture(FixedPicture("PNGImage"));
    OKCmd.Create(Window, "OKCmd", {Width - 12 - 184, Height - 38, 88, 26}, "OK");
    OKCmd.Click = [this] { OKCmd_Click(); };
    CancelCmd.Create(Window, "CancelCmd", {Width - 12 - 88, Height - 38, 88, 26}, "Cancel");
    CancelCmd.Click = [this] { Window.Close(); };
}

void BackGndFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::BackGndFrm, false);
    ImageFiles.SetFolder(BackgroundFolder);
    DummyCmd.SetFocus();
}

void BackGndFrm::ImageFiles_Click(const std::string& name) {
    ChosenBackground = name;
    const std::string path = JoinPath(BackgroundFolder, name);
    PreviewImg.SetPicture(EndsInPng(path) ? PNGImage.Shown()
                                          : PictureFromFile(path, PreviewImg.Width(), PreviewImg.Height()));
}

/// Without a click before, the level loses its background.
void BackGndFrm::OKCmd_Click() {
    LevelRecord.background = ChosenBackground;
    Window.Close();
}

void BackGndFrm::Unload() {
    StorePosition(Window, ScreenIndex::BackGndFrm);
    ModalDone = True;
}
