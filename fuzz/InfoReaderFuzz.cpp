#include "core/LineEnds.h"
#include "core/SharedState.h"
#include "fuzz/FuzzInput.h"
#include "level/InfoFile.h"
#include "level/LevelWriter.h"

namespace {

std::optional<std::string> ReadAndWrite(const std::string& path) {
    ReadInfoFile(path);
    UseUnixLineEnds();
    BuildInfoText();
    return InfoText;
}

/// A line of a file with DOS line ends may hold line feeds, which split it in the file written. All else that
/// can be read can be read again.
bool ReadsBack() {
    return (CurrentInfo.comment + CurrentInfo.title + CurrentInfo.description).find('\n') == std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    const auto written = ReadAfresh(std::string(data, data + size), "info", ReadAndWrite);
    if (written && ReadsBack()) {
        RequireSame(*written, ReadAfresh(*written, "info", ReadAndWrite));
    }
    return 0;
}
