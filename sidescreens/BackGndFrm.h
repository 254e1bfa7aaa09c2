#pragma once

#include <string>

#include "platform/Controls.h"
#include "platform/FileList.h"
#include "platform/ImageCell.h"
#include "platform/Screen.h"

/// The choice of the level's background among the files of BackgroundFolder, with a preview. VarsFrm waits for
/// it by ModalDone.
struct BackGndFrm {
    Screen Window;
    Button DummyCmd;  ///< out of sight; holds the focus at the start
    FileList ImageFiles;
    ImageCell PreviewImg;
    ImageCell PNGImage;  ///< out of sight; the preview of all names that end in png
    Button OKCmd;
    Button CancelCmd;

    std::string ChosenBackground;  ///< the file last clicked, without folder

    /// Fault 76 if there is no BackgroundFolder.
    void Load();
    void MakeControls();
    void Unload();

    /// Fault 481 if the file is no picture that can be read.
    void ImageFiles_Click(const std::string& name);
    void OKCmd_Click();
};
