// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int seedsRun = 0;

/// An input that breaks the code under test ends the process; one that cannot be read is a failure too.
bool replay(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.good() && !stream.eof()) return false;
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    std::printf("%s\n", path.string().c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++seedsRun;
    return true;
}

} // namespace

/// Runs every file named, and every file in a folder named. Fails when there was none.
int main(int argc, char** argv)
{
    bool allRead = true;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) {
            allRead = replay(argv[i]) && allRead;
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
            allRead = replay(entry.path()) && allRead;
    }
    std::printf("%d seeds\n", seedsRun);
    return allRead && seedsRun > 0 ? 0 : 1;
}
