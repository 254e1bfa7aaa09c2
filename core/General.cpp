#include "core/General.h"

#include "core/SharedState.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Texts.h"

namespace {

constexpr std::string_view Separators = "/\\";
constexpr std::size_t LogonNameLength = 16;
constexpr std::size_t LogonBufferSize = 25;  // with the zero behind the name
constexpr std::size_t LogonCharactersTested = 9;
constexpr int Backspace = 8;
constexpr int Enter = 13;

}  // namespace

std::string FolderOf(std::string_view path) { return std::string(path.substr(0, path.find_last_of(Separators) + 1)); }

std::string FileNameOf(std::string_view path) { return std::string(path.substr(path.find_last_of(Separators) + 1)); }

std::string JoinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (path.empty() || Separators.find(path.back()) == std::string_view::npos) {
        path += PathSeparator;
    }
    return path.append(name);
}

void DeleteFileQuietly(const std::string& name) {
    if (name.empty()) {
        return;
    }
    try {
        DeleteExistingFile(name);
    } catch (const Fault&) {  // quiet by contract
    }
}

void GetLogonName() { LogonName = LogonNameFor(ProcessOwnerName()); }

std::string LogonNameFor(const std::string& name) {
    std::string taken;
    std::string buffer = name.size() < LogonBufferSize ? name : "";
    buffer.resize(LogonBufferSize, '\0');
    for (std::size_t at = 0; at < LogonCharactersTested; ++at) {
        if (static_cast<unsigned char>(buffer[at]) < '0') {
            taken = UpperCase(buffer.substr(0, at));
            break;
        }
    }
    taken.resize(LogonNameLength, ' ');
    return taken;
}

bool PassesNumberBox(int KeyAscii, const std::function<void()>& refresh) {
    if (KeyAscii == Enter) {
        refresh();
    }
    return KeyAscii == Backspace || IsDigit(KeyAscii);
}
