#include "world/WorldWriter.h"

#include <algorithm>
#include <charconv>
#include <utility>

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

void Add(std::string& output, const char* keyword, Int16 number, const std::string& close) {
    output += keyword + std::to_string(number) + close;
}

void Add(std::string& output, const char* keyword, std::string_view text, const std::string& close) {
    output += keyword;
    output += text;
    output += close;
}

void AddHeaderComment(std::string& output) {
    std::string& comment = WorldRecord.comments[0];
    comment = std::string(Trim(comment));
    if (!comment.starts_with(";;")) {
        comment = ";; Created by Quillhare FB_Editor";
    }
    output += comment + NL;
}

void AddProperties(std::string& output) {
    output += "  (properties" + NL;
    Add(output, "    (name \"", WorldRecord.name, CloseQuoteLine);
    Add(output, "    (music \"", WorldRecord.music, CloseQuoteLine);
    Add(output, "    (start_pos_x ", WorldRecord.start_pos_x, CloseLine);
    Add(output, "    (start_pos_y ", WorldRecord.start_pos_y, CloseCloseLine);
}

/// Small numbers take one blank more, so that columns line up.
void AddRow(std::string& output, int row, std::string& buffer) {
    const Int16 lastColumn = WorldRecord.width - 1;
    char* end = buffer.data();
    for (int column = 0; column <= lastColumn; ++column) {
        const int tile = WorldRecord.tiles(column, row);
        end = std::to_chars(end, end + LongestTileText, tile).ptr;
        *end++ = ' ';
        if (tile < 10) {
            *end++ = ' ';
        }
    }
    output.append(buffer.data(), end);
}

void AddTilemap(std::string& output) {
    const std::string indent(7, ' ');
    output += "  (tilemap" + NL;
    Add(output, "    (width  ", WorldRecord.width, CloseLine);
    Add(output, "    (height ", WorldRecord.height, CloseLine);
    output += "    (data" + NL + indent;
    std::string buffer(static_cast<std::size_t>(std::max<int>(WorldRecord.width, 0)) * LongestTileText, ' ');
    const Int16 lastRow = WorldRecord.height - 1;
    for (int row = 0; row <= lastRow; ++row) {
        AddRow(output, row, buffer);
        output += NL + indent;
    }
    output += CloseCloseLine;
}

void AddLevelLink(std::string& output, const WorldLink& link) {
    Add(output, "(name \"", link.name, CloseQuoteLine);
    Add(output, "           (x  ", link.x, CloseLine);
    Add(output, "           (y  ", link.y, ")");
    const std::string_view extro = Trim(link.extro_filename);
    if (extro.empty()) {
        output += CloseLine;
    } else {
        output += NL;
        Add(output, "           (extro-filename \"", extro, CloseCloseQuoteLine);
    }
}

void AddPlace(std::string& output, const WorldLink& link) {
    Add(output, "           (x ", link.x, CloseLine);
    Add(output, "           (y ", link.y, CloseLine);
}

void AddFlag(std::string& output, const char* keyword, const std::string& flag) {
    if (!flag.empty()) {
        Add(output, keyword, flag, CloseLine);
    }
}

void AddMessageLink(std::string& output, const WorldLink& link) {
    Add(output, " (map-message \"", link.message, CloseQuoteLine);
    AddPlace(output, link);
    AddFlag(output, "           (apply-action-left #", link.apply_action_left);
    AddFlag(output, "           (apply-action-right #", link.apply_action_right);
    AddFlag(output, "           (apply-action-up #", link.apply_action_up);
    AddFlag(output, "           (apply-action-down #", link.apply_action_down);
    output += CloseLine;
}

void AddDestination(std::string& output, const WorldLink& link) {
    Add(output, "           (dest_x ", link.dest_x, CloseLine);
    Add(output, "           (dest_y ", link.dest_y, CloseCloseLine);
}

/// The bytes are fixed, faults included: comments and links of no type leave their "(level" open, and the flag
/// of an invisible teleporter has a quote before it, so that maps with one of these cannot be read back.
void AddLink(std::string& output, const WorldLink& link) {
    output += "     (level ";
    switch (link.type) {
        case CommentLink: Add(output, "        ", link.comment, NL); break;
        case LevelLink: AddLevelLink(output, link); break;
        case MessageLink: AddMessageLink(output, link); break;
        case TeleportLink:
            AddPlace(output, link);
            Add(output, "           (teleport-message \"", link.message, CloseQuoteLine);
            AddDestination(output, link);
            break;
        case InvisibleLink:
            AddPlace(output, link);
            Add(output, "           (invisible-teleporter #\"", link.invisible_teleporter, CloseLine);
            AddDestination(output, link);
            break;
        default: break;
    }
}

}  // namespace

void BuildWorldText() {
    UseUnixLineEnds();
    std::string output;
    output.reserve(WorldOutput.size());  // most worlds are saved again and again
    AddHeaderComment(output);
    output += "(floebird-worldmap" + NL;
    AddProperties(output);
    AddTilemap(output);
    output += "(levels" + NL;
    for (int index = 1; index <= WorldRecord.LinkCount; ++index) {
        AddLink(output, WorldRecord.levels[index]);
    }
    output += "      " + CloseCloseLine;
    WorldOutput = std::move(output);
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
