// Runs a fuzz target on inputs from files, without a fuzzer.
//
//   fuzz_NAME FILE-OR-FOLDER...

#include "Fuzz.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

bool Replay(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    std::cout << path.filename().string()
              << std::endl;  // if the target aborts, the last name is the input that failed
    return file.is_open() &&
           LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()) == 0;
}

}  // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i])) {
            replayed += Replay(argv[i]) ? 1 : 0;
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(argv[i])) {
            replayed += Replay(entry.path()) ? 1 : 0;
        }
    }
    return replayed > 0 ? 0 : 1;
}
