#include "world/WorldReader.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "core/General.h"
#include "core/SharedState.h"
#include "platform/Dialogs.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "world/WorldScanner.h"

namespace {

/// The tile that a new world is filled with.
constexpr int BlankWorldTile = 9;

/// Ends the parsing of a world map: what WorldReadError is to tell.
struct FormatError {
    int number{};
};

/// "(", the word, a value, ")".
template <typename Record>
struct Key {
    std::string_view word;
    void (*readValue)(WorldScanner& in, Record& record);
    int notClosed = 0;  ///< error number when no ")" follows the value
    int type = NoLink;  ///< what the key makes of a link; NoLink leaves its type alone
};

template <auto Field, typename Record>
void Number(WorldScanner& in, Record& record) {
    record.*Field = in.ReadNumber();
}

template <auto Field, typename Record>
void Quoted(WorldScanner& in, Record& record) {
    record.*Field = in.ReadQuoted();
}

template <auto Field, typename Record>
void Flag(WorldScanner& in, Record& record) {
    record.*Field = in.ReadFlag();
}

template <auto Field, typename Record>
void RestOfLine(WorldScanner& in, Record& record) {
    record.*Field = in.ReadRestOfLine();
}

/// Makes the map by the size in force and fills it row by row.
void Data(WorldScanner& in, World& world) {
    if (world.width == 0 && world.height == 0) {
        throw FormatError{23};
    }
    world.tiles = TileMap(world.width, world.height);
    for (int row = 0; row < world.height; ++row) {
        for (int column = 0; column < world.width; ++column) {
            world.tiles(column, row) = in.ReadNumber();
        }
    }
}

constexpr Key<World> PropertyKeys[] = {
    {"name", Quoted<&World::name>, 11},
    {"music", Quoted<&World::music>, 12},
    {"start_pos_x", Number<&World::start_pos_x>, 13},
    {"start_pos_y", Number<&World::start_pos_y>, 14},
};

constexpr Key<World> TilemapKeys[] = {
    {"width", Number<&World::width>, 21},
    {"height", Number<&World::height>, 22},
    {"data", Data, 24},
};

constexpr Key<WorldLink> LinkKeys[] = {
    {";", RestOfLine<&WorldLink::comment>, 33, CommentLink},
    {"name", Quoted<&WorldLink::name>, 34, LevelLink},
    {"x", Number<&WorldLink::x>, 35},
    {"y", Number<&WorldLink::y>, 36},
    {"map-message", Quoted<&WorldLink::message>, 37, MessageLink},
    {"teleport-message", Quoted<&WorldLink::message>, 38, TeleportLink},
    {"invisible-teleporter", Flag<&WorldLink::invisible_teleporter>, 39, InvisibleLink},
    {"dest_x", Number<&WorldLink::dest_x>, 40},
    {"dest_y", Number<&WorldLink::dest_y>, 41},
    {"apply-action-right", Flag<&WorldLink::apply_action_right>, 42},
    {"apply-action-left", Flag<&WorldLink::apply_action_left>, 43},
    {"apply-action-up", Flag<&WorldLink::apply_action_up>, 44},
    {"apply-action-down", Flag<&WorldLink::apply_action_down>, 45},
    {"extro-filename", Quoted<&WorldLink::extro_filename>, 46},
};

/// A text that ends within a list is an error that ParseText numbers.
void ExpectMore(const WorldScanner& in) {
    if (in.pos == WorldScanner::Ended) {
        throw FormatError{};
    }
}

int TokenBeforeEnd(WorldScanner& in) {
    const int token = in.NextToken();
    ExpectMore(in);
    return token;
}

/// True if `token` opens a list, false if it closes the one around; error `unknown` for any other.
bool OpensList(int token, int unknown) {
    if (token != '(' && token != ')') {
        throw FormatError{unknown};
    }
    return token == '(';
}

/// Reads what follows `word` in a key list, with the ")". Error `unknown` if `keys` does not have the word.
template <typename Record, std::size_t Count>
void ReadKey(WorldScanner& in, const Key<Record> (&keys)[Count], std::string_view word, Record& record, int unknown) {
    const auto key = std::ranges::find(keys, word, &Key<Record>::word);
    if (key == std::end(keys)) {
        throw FormatError{unknown};
    }
    key->readValue(in, record);
    if constexpr (requires { record.type; }) {
        record.type = key->type == NoLink ? record.type : Int16(key->type);
    }
    if (in.NextToken() != ')') {
        throw FormatError{key->notClosed};
    }
}

void ParseProperties(WorldScanner& in) {
    while (OpensList(TokenBeforeEnd(in), 19)) {
        ReadKey(in, PropertyKeys, in.ReadWord(), WorldRecord, 19);
    }
}

void ParseTilemap(WorldScanner& in) {
    while (OpensList(TokenBeforeEnd(in), 29)) {
        ReadKey(in, TilemapKeys, in.ReadWord(), WorldRecord, 29);
    }
}

void ParseLevel(WorldScanner& in, const std::string& pendingComment) {
    WorldRecord.LinkCount += 1;
    WorldRecord.levels.Resize(WorldRecord.LinkCount);
    WorldLink& link = WorldRecord.levels[WorldRecord.LinkCount];
    for (;;) {
        const int token = TokenBeforeEnd(in);
        link.comment = pendingComment;
        if (!OpensList(token, 49)) {
            return;
        }
        const std::string word = in.ReadWord();
        ExpectMore(in);
        ReadKey(in, LinkKeys, word, link, 48);
    }
}

/// A comment between the levels goes to every level behind it, until the next one.
void ParseLevels(WorldScanner& in) {
    std::string pendingComment;
    for (;;) {
        const int token = TokenBeforeEnd(in);
        if (token == ';') {
            --in.pos;
            pendingComment = in.ReadRestOfLine();
            continue;
        }
        if (!OpensList(token, 49)) {
            return;
        }
        if (in.ReadWord() != "level") {
            throw FormatError{49};
        }
        ParseLevel(in, pendingComment);
    }
}

void ParseWorldMap(WorldScanner& in) {
    while (OpensList(TokenBeforeEnd(in), 4)) {
        const std::string word = in.ReadWord();
        if (word == "properties") {
            ParseProperties(in);
        } else if (word == "tilemap") {
            ParseTilemap(in);
        } else if (word == "levels") {
            ParseLevels(in);
        } else {
            throw FormatError{4};
        }
    }
    if (WorldRecord.width <= 0 || WorldRecord.height <= 0) {
        throw FormatError{3};
    }
}

void AddComment(const std::string& comment) {
    WorldRecord.CommentCount += 1;
    WorldRecord.comments.Resize(WorldRecord.CommentCount);
    WorldRecord.comments[WorldRecord.CommentCount] = comment;
}

/// Reads the file's outermost level: comments, and lists of which only the world map counts. The text behind
/// them is of no interest, but it must be there: a list that ends with the text's last character is error 1.
void ParseText(WorldScanner& in) {
    for (;;) {
        const int token = in.NextToken();
        if (in.pos == WorldScanner::Ended) {
            return;
        }
        if (token == ';') {
            AddComment(in.ReadRestOfLine());
        } else if (token != '(') {
            return;
        } else {
            if (in.ReadWord() == "floebird-worldmap") {
                try {
                    ParseWorldMap(in);
                    WorldReadError = 0;
                } catch (const FormatError& error) {
                    WorldReadError = error.number;
                }
            }
            if (in.pos == WorldScanner::Ended) {
                WorldReadError = 1;
                return;
            }
        }
    }
}

/// The whole of a text file. A CR LF or CR becomes a line feed, but the first of them is lost: the first line
/// runs straight into the second.
std::string WholeText(int file) {
    std::string text = LineInput(file);
    while (!AtEndOfFile(file)) {
        text += LineInput(file);
        text += '\n';
    }
    return text;
}

}  // namespace

void ResetWorld() {
    WorldRecord = {.name = "default_test",
                   .music = "SALCON.MOD",
                   .start_pos_x = 3,
                   .start_pos_y = 3,
                   .width = 18,
                   .height = 15,
                   .LinkCount = 0,
                   .CommentCount = 0,
                   .comments = {},
                   .tiles = TileMap(0, 0),
                   .levels = {}};
    WorldLoaded = False;
}

void BuildBlankWorld() {
    WorldRecord.tiles = TileMap(WorldRecord.width, WorldRecord.height);
    for (int row = 0; row < WorldRecord.height; ++row) {
        for (int column = 0; column < WorldRecord.width; ++column) {
            WorldRecord.tiles(column, row) = BlankWorldTile;
        }
    }
    WorldLoaded = True;
}

void AddInNewLink(Int16 x, Int16 y) {
    WorldRecord.LinkCount += 1;
    WorldRecord.levels.Resize(WorldRecord.LinkCount);
    CurrentLink = WorldRecord.LinkCount;
    WorldLink& link = WorldRecord.levels[CurrentLink];
    link.x = x;
    link.y = y;
    link.type = LevelLink;
}

void DeleteLink(int index) {
    if (index < 1 || index > WorldRecord.LinkCount) {
        return;
    }
    for (int later = index + 1; later <= WorldRecord.LinkCount; ++later) {
        WorldRecord.levels[later - 1] = WorldRecord.levels[later];
    }
    WorldRecord.LinkCount -= 1;
    WorldRecord.levels.Resize(WorldRecord.LinkCount);
}

void ReadWorldFile(const std::string& path) {
    WorldReadError = 0;
    ResetWorld();
    if (QueryFile(WorldPath) != FileNameOf(WorldPath)) {
        ShowMessage(WorldPath, "Map NOT Found!", MessageButtons::Ok, MessageIcon::Stop);
        return;
    }
    WorldPath = path;
    const int file = FreeFileNumber();
    OpenForInput(file, path);
    NewWorldPending = False;
    try {
        WithMemoryFaults([&] {
            WorldScanner in{WholeText(file)};
            CloseFile(file);
            ParseText(in);
        });
    } catch (const UnclosedQuote&) {
        // The reading does not end. What there is of the world must not be saved over its file, so it counts as
        // unchanged, and the one thing that its user can do is to close its screen.
        WorldChanged = False;
        WaitForClosing();
    }
    if (WorldReadError == 0) {
        WorldLoaded = True;
        WorldChanged = False;
    }
}
