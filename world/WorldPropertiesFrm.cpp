#include "world/WorldPropertiesFrm.h"

#include <algorithm>

#include "core/General.h"
#include "core/ScreenPositions.h"
#include "core/Screens.h"
#include "core/SharedState.h"
#include "core/UpdatingGuard.h"
#include "platform/Conversions.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "world/WorldReader.h"

namespace {

constexpr int LeastWidth = 19;
constexpr int MostWidth = 1023;
constexpr int LeastHeight = 16;
constexpr int MostHeight = 256;

/// Takes a size from its box, or tells the user that it is none. The words are the same for both sizes.
void TakeSize(const TextBox& box, Int16& size, int least, int most, const std::string& what) {
    const double number = LeadingNumber(box.Text());
    if (number > least - 1 && number < most + 1) {
        size = TextToInt16(box.Text());
    } else {
        LastMsgResult = ShowMessage(what + "\r\nMust be between 19 and 1023", what + " Error", MessageButtons::Ok,
                                    MessageIcon::Stop);
    }
}

}  // namespace

void WorldPropertiesFrm::Load() {
    MakeControls();
    RestorePosition(Window, ScreenIndex::WorldPropertiesFrm, true);
    WorldRecord.width = std::max<int>(WorldRecord.width, LeastWidth);
    WorldRecord.height = std::max<int>(WorldRecord.height, LeastHeight);
    UpdatePropertiesDisplay();
}

void WorldPropertiesFrm::UpdatePropertiesDisplay() {
    const UpdatingGuard updating(Updating);
    YieldToEventQueue();
    FNBox.SetCaption(WorldPath);
    NameBox.SetText(WorldRecord.name);
    CommentBox.SetText(WorldRecord.comments[0]);
    MusicBox.SetCaption(WorldRecord.music);
    WidthBox.SetText(std::to_string(WorldRecord.width));
    HeightBox.SetText(std::to_string(WorldRecord.height));
    StartXBox.SetText(std::to_string(WorldRecord.start_pos_x));
    StartYBox.SetText(std::to_string(WorldRecord.start_pos_y));
    XScroll.SetValue(WorldRecord.width);
    YScroll.SetValue(WorldRecord.height);
}

void WorldPropertiesFrm::Unload() {
    StorePosition(Window, ScreenIndex::WorldPropertiesFrm);
    if (NewWorldPending == True) {
        BuildBlankWorld();
        NewWorldPending = False;
    }
    UpdateWorld();
}

bool WorldPropertiesFrm::NumberBox_KeyPress(int KeyAscii) {
    return PassesNumberBox(KeyAscii, [this] { UpdatePropertiesDisplay(); });
}

/// Asks for a world map's file; nothing is done with the answer.
void WorldPropertiesFrm::FNBox_Click() {
    if (Updating) {
        return;
    }
    try {
        (void)OpenFileDialog({"*.fbwm|*.fbwm", WorldMapsFolder, ""});
    } catch (const Fault&) {  // cancelled
    }
}

void WorldPropertiesFrm::MusicBox_Click() {
    try {
        WorldRecord.music = FileNameOf(OpenFileDialog({"*.mod|*.mod", MusicFolder, WorldRecord.music}));
    } catch (const Fault&) {
        return;
    }
    UpdatePropertiesDisplay();
}

void WorldPropertiesFrm::NameBox_Change() {
    if (!Updating) {
        WorldRecord.name = NameBox.Text();
    }
}

void WorldPropertiesFrm::CommentBox_Change() {
    if (!Updating) {
        WorldRecord.comments[0] = CommentBox.Text();
    }
}

void WorldPropertiesFrm::WidthBox_Change() {
    if (!Updating) {
        TakeSize(WidthBox, WorldRecord.width, LeastWidth, MostWidth, "World Map Width");
    }
}

void WorldPropertiesFrm::HeightBox_Change() {
    if (!Updating) {
        TakeSize(HeightBox, WorldRecord.height, LeastHeight, MostHeight, "World Map Height");
    }
}

void WorldPropertiesFrm::XScroll_Change() {
    if (!Updating) {
        WorldRecord.width = XScroll.Value();
        UpdatePropertiesDisplay();
    }
}

void WorldPropertiesFrm::YScroll_Change() {
    if (!Updating) {
        WorldRecord.height = YScroll.Value();
        UpdatePropertiesDisplay();
    }
}

void WorldPropertiesFrm::StartXBox_Change() {
    if (!Updating) {
        WorldRecord.start_pos_x = TextToInt16(StartXBox.Text());
    }
}

void WorldPropertiesFrm::StartYBox_Change() {
    if (!Updating) {
        WorldRecord.start_pos_y = TextToInt16(StartYBox.Text());
    }
}
