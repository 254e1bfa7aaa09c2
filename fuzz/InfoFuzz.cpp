#include "fuzz/RoundTrip.h"
#include "level/InfoFile.h"

const std::string FileName = "info";
const std::vector<FaultNumber> StatedFaults;

void Make(Bytes& in) {
    in.TakeAll(CurrentInfo.comment, CurrentInfo.title, CurrentInfo.description);
    CurrentInfo.comment.insert(0, ";");
}

void Write(const std::string& path) { WriteInfoFile(path); }

bool Read(const std::string& path) {
    ReadInfoFile(path);
    return true;
}
