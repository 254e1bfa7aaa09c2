// Feeds files to a fuzz target, for compilers without a fuzzer: the corpus stays a test in every build.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

namespace {

void Replay(const std::filesystem::path& path) {
    std::printf("%s\n", path.string().c_str());
    std::fflush(stdout);  // the last name shown is that of the input that ends the program
    std::ifstream file(path, std::ios::binary);
    const std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

/// Takes files and folders of files. Fails if it was given no input at all.
int main(int count, char** arguments) {
    int replayed = 0;
    for (int i = 1; i < count; ++i) {
        if (!std::filesystem::is_directory(arguments[i])) {
            Replay(arguments[i]);
            ++replayed;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            Replay(entry.path());
            ++replayed;
        }
    }
    return replayed > 0 ? 0 : 1;
}
