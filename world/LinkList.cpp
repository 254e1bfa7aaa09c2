#include <algorithm>

#include "core/Screens.h"
#include "core/SharedState.h"
#include "platform/Events.h"
#include "world/WorldFrm.h"

void WorldFrm::DrawLinkList() {
    if (!LinkFrame.Visible()) {
        return;
    }
    const bool scrolls = WorldRecord.LinkCount > LinkRows;
    LinkScroll.SetMax(scrolls ? WorldRecord.LinkCount - LinkRows : Int16(0));
    LinkScroll.SetEnabled(scrolls);
    for (int row = 0; row < LinkRows; ++row) {
        DrawLinkRow(row);
    }
}

void WorldFrm::DrawLinkRow(int row) {
    const int n = LinkScroll.Value() + row + 1;
    const bool used = n <= WorldRecord.LinkCount;
    const bool current = used && n == CurrentLink;
    Element(LinkIndImg, row).SetVisible(current);
    Element(LinkNumBox, row).SetVisible(used);
    Element(LinkTypeBox, row).SetVisible(used);
    if (current) {
        ShowLinkPosition();
    }
    if (used) {
        Element(LinkNumBox, row).SetCaption(std::to_string(n));
        Element(LinkTypeBox, row).SetCaption(std::string(Element(LinkTypeTable, WorldRecord.levels[n].type)));
    }
}

void WorldFrm::ShowLinkPosition() {
    const WorldLink& link = WorldRecord.levels[CurrentLink];
    LinkXBox.SetCaption(std::to_string(link.x));
    LinkYBox.SetCaption(std::to_string(link.y));
    const bool leadsOn = link.type == TeleportLink || link.type == InvisibleLink;
    if (leadsOn) {
        LinkDXBox.SetCaption(std::to_string(link.dest_x));
        LinkDYBox.SetCaption(std::to_string(link.dest_y));
    }
    LinkDXBox.SetVisible(leadsOn);
    LinkDYBox.SetVisible(leadsOn);
}

void WorldFrm::LinkRow_Click(int Index) {
    CurrentLink = LinkScroll.Value() + Index + 1;
    OpenLinkForm();
}

void WorldFrm::LinkScroll_Change() {
    DummyCmd.SetFocus();
    DrawLinkList();
}

/// A left click selects, a right click edits.
void WorldFrm::DotImg_MouseDown(int Index, int Button) {
    CurrentLink = Index;
    ModeOption[LinkMode].Select();
    YieldToEventQueue();
    const Int16 first = LinkScroll.Value();
    if (LinkFrame.Visible() && (Index > first + (LinkRows - 1) || Index < first)) {
        LinkScroll.SetValue(std::clamp<int>(Index - (LinkRows - 1), 0, LinkScroll.Max()));
    }
    if (Button == RightButton) {
        OpenLinkForm();
    }
    UpdateWorld();
}

void WorldFrm::DotImg_MouseMove(int Index) {
    Element(DotImg, Index)
        .SetToolTip("Link # " + std::to_string(Index) + ", Left Click to Select, Right Click to Edit");
}
