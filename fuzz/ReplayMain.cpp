// Feeds a corpus to a fuzz target, for compilers without a fuzzer: it stays a test in every build.

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

/// Takes one file, in which a line end and a line of "=====" end each input. Fails if there is none.
int main(int, char** arguments) {
    std::ifstream file(arguments[1], std::ios::binary);
    int inputs = 0;
    std::vector<unsigned char> input;
    for (std::string line; std::getline(file, line);) {
        if (line == "=====") {
            std::fprintf(stderr, "input %d\n", ++inputs);
            LLVMFuzzerTestOneInput(input.data(), input.empty() ? 0 : input.size() - 1);
            input.clear();
        } else {
            line += '\n';
            input.insert(input.end(), line.begin(), line.end());
        }
    }
    return inputs > 0 ? 0 : 1;
}
