// Runs a fuzz target without libFuzzer: every file of the folders named on the command line, each cut
// at every length up to a limit, then the same bytes with single bytes flipped (fixed seed).

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::size_t kCutLimit = 512;
constexpr int kFlips = 256;

void Run(const std::string& bytes) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

void Replay(const std::string& bytes, std::mt19937& random) {
    Run(bytes);
    for (std::size_t n = 0; n < std::min(bytes.size(), kCutLimit); ++n) Run(bytes.substr(0, n));
    for (int i = 0; i < kFlips && !bytes.empty(); ++i) {
        std::string flipped = bytes;
        flipped[random() % flipped.size()] = static_cast<char>(random() & 0xFF);
        Run(flipped);
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::mt19937 random(20240229);
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i) {
        if (!std::filesystem::is_directory(argv[i])) continue;
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    Replay("", random);
    for (const auto& path : files) {
        std::ifstream in(path, std::ios::binary);
        Replay(std::string(std::istreambuf_iterator<char>(in), {}), random);
    }
    std::printf("%zu files replayed\n", files.size());
    // A target without a single input would prove nothing.
    return files.empty() ? 1 : 0;
}
