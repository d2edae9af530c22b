// Replays seed files through a fuzz target once each, for the builds without libFuzzer: every
// argument is a seed file or a folder of them. A property that fails aborts the run.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::vector<fs::path> seeds;
    for (int i = 1; i < argc; ++i) {
        if (!fs::is_directory(argv[i]))
            seeds.push_back(argv[i]);
        else
            for (const auto& entry : fs::directory_iterator(argv[i]))
                if (entry.is_regular_file()) seeds.push_back(entry.path());
    }
    std::sort(seeds.begin(), seeds.end());
    for (const fs::path& seed : seeds) {
        std::ifstream file(seed, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        std::printf("%s (%zu bytes)\n", seed.c_str(), bytes.size());
        std::fflush(stdout);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu seeds replayed\n", seeds.size());
    // No seed at all means a wrong path, which would otherwise pass without testing anything.
    return seeds.empty();
}
