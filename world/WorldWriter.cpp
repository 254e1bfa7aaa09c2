#include "world/WorldWriter.h"

#include <algorithm>
#include <charconv>

#include "core/General.h"
#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Texts.h"

std::string WorldOutput;

namespace {

constexpr std::size_t LongestTileText = 8;  // "-32768" and two blanks

void Add(const char* keyword, Int16 number, const std::string& close) {
    WorldOutput += keyword + std::to_string(number) + close;
}

void Add(const char* keyword, std::string_view text, const std::string& close) {
    WorldOutput += keyword;
    WorldOutput += text;
    WorldOutput += close;
}

void AddHeaderComment() {
    std::string& comment = WorldRecord.comments[0];
    comment = std::string(Trim(comment));
    if (!comment.starts_with(";;")) {
        comment = ";; Created by Quillhare FB_Editor";
    }
    WorldOutput += comment + NL;
}

void AddProperties() {
    WorldOutput += "  (properties" + NL;
    Add("    (name \"", WorldRecord.name, CloseQuoteLine);
    Add("    (music \"", WorldRecord.music, CloseQuoteLine);
    Add("    (start_pos_x ", WorldRecord.start_pos_x, CloseLine);
    Add("    (start_pos_y ", WorldRecord.start_pos_y, CloseCloseLine);
}

/// Small numbers take one blank more, so that columns line up.
void AddRow(int row, std::string& buffer) {
    char* end = buffer.data();
    for (int column = 0; column < WorldRecord.width; ++column) {
        const int tile = WorldRecord.tiles(column, row);
        end = std::to_chars(end, end + LongestTileText, tile).ptr;
        *end++ = ' ';
        if (tile < 10) {
            *end++ = ' ';
        }
    }
    WorldOutput.append(buffer.data(), end);
}

void AddTilemap() {
    const std::string indent(7, ' ');
    WorldOutput += "  (tilemap" + NL;
    Add("    (width  ", WorldRecord.width, CloseLine);
    Add("    (height ", WorldRecord.height, CloseLine);
    WorldOutput += "    (data" + NL + indent;
    std::string buffer(static_cast<std::size_t>(std::max<int>(WorldRecord.width, 0)) * LongestTileText, ' ');
    for (int row = 0; row < WorldRecord.height; ++row) {
        AddRow(row, buffer);
        WorldOutput += NL + indent;
    }
    WorldOutput += CloseCloseLine;
}

void AddLevelLink(const WorldLink& link) {
    Add("(name \"", link.name, CloseQuoteLine);
    Add("           (x  ", link.x, CloseLine);
    Add("           (y  ", link.y, ")");
    const std::string_view extro = Trim(link.extro_filename);
    if (extro.empty()) {
        WorldOutput += CloseLine;
    } else {
        WorldOutput += NL;
        Add("           (extro-filename \"", extro, CloseCloseQuoteLine);
    }
}

void AddPlace(const WorldLink& link) {
    Add("           (x ", link.x, CloseLine);
    Add("           (y ", link.y, CloseLine);
}

void AddFlag(const char* keyword, const std::string& flag) {
    if (!flag.empty()) {
        Add(keyword, flag, CloseLine);
    }
}

void AddMessageLink(const WorldLink& link) {
    Add(" (map-message \"", link.message, CloseQuoteLine);
    AddPlace(link);
    AddFlag("           (apply-action-left #", link.apply_action_left);
    AddFlag("           (apply-action-right #", link.apply_action_right);
    AddFlag("           (apply-action-up #", link.apply_action_up);
    AddFlag("           (apply-action-down #", link.apply_action_down);
    WorldOutput += CloseLine;
}

void AddDestination(const WorldLink& link) {
    Add("           (dest_x ", link.dest_x, CloseLine);
    Add("           (dest_y ", link.dest_y, CloseCloseLine);
}

/// The bytes are fixed, faults included: comments and links of no type leave their "(level" open, and the flag
/// of an invisible teleporter has a quote before it, so that maps with one of these cannot be read back.
void AddLink(const WorldLink& link) {
    WorldOutput += "     (level ";
    switch (link.type) {
        case CommentLink: Add("        ", link.comment, NL); break;
        case LevelLink: AddLevelLink(link); break;
        case MessageLink: AddMessageLink(link); break;
        case TeleportLink:
            AddPlace(link);
            Add("           (teleport-message \"", link.message, CloseQuoteLine);
            AddDestination(link);
            break;
        case InvisibleLink:
            AddPlace(link);
            Add("           (invisible-teleporter #\"", link.invisible_teleporter, CloseLine);
            AddDestination(link);
            break;
        default: break;
    }
}

}  // namespace

void BuildWorldText() {
    UseUnixLineEnds();
    WorldOutput.clear();
    AddHeaderComment();
    WorldOutput += "(floebird-worldmap" + NL;
    AddProperties();
    AddTilemap();
    WorldOutput += "(levels" + NL;
    for (int index = 1; index <= WorldRecord.LinkCount; ++index) {
        AddLink(WorldRecord.levels[index]);
    }
    WorldOutput += "      " + CloseCloseLine;
}

void WriteWorldFile(const std::string& path) {
    if (path.empty()) {
        return;
    }
    DeleteFileQuietly(path);
    try {
        WriteTextFile(path, WorldOutput);
        WorldChanged = False;
    } catch (const Fault&) {
        ShowMessage("Error Saving World Map Data!", "FB_Editor - Save World Map", MessageButtons::Ok,
                    MessageIcon::Stop);
    }
}
