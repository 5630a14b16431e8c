// Runs a fuzz target without libFuzzer: every file of the seed corpus, each seed cut and mutated a
// fixed number of times, and a stream of random inputs from a fixed seed, so runs are repeatable.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

void run(const Input& input) {
    LLVMFuzzerTestOneInput(input.data(), input.size());
}

std::vector<Input> readCorpus(const std::filesystem::path& folder) {
    std::vector<Input> seeds;
    std::error_code error;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, error)) {
        if (!entry.is_regular_file()) continue;
        std::ifstream in(entry.path(), std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return seeds;
}

}  // namespace

int main(int argc, char** argv) {
    std::mt19937_64 random(20261123);
    std::vector<Input> seeds;
    for (int i = 1; i < argc; ++i) {
        auto more = readCorpus(argv[i]);
        seeds.insert(seeds.end(), more.begin(), more.end());
    }
    const int mutationsPerSeed =
        std::getenv("FUZZ_MUTATIONS") ? std::atoi(std::getenv("FUZZ_MUTATIONS")) : 300;

    for (const auto& seed : seeds) {
        run(seed);
        for (int m = 0; m < mutationsPerSeed; ++m) {
            Input input = seed;
            if (input.empty()) input.push_back(0);
            const int edits = 1 + static_cast<int>(random() % 8);
            for (int e = 0; e < edits; ++e) {
                const std::size_t at = random() % input.size();
                switch (random() % 4) {
                    case 0:
                        input[at] = static_cast<std::uint8_t>(random());
                        break;
                    case 1:
                        input.erase(input.begin() + static_cast<std::ptrdiff_t>(at));
                        break;
                    case 2:
                        input.insert(
                            input.begin() + static_cast<std::ptrdiff_t>(at), seed.begin(),
                            seed.begin() + static_cast<std::ptrdiff_t>(random() % (seed.size() + 1)));
                        break;
                    default:
                        input.resize(at);
                        break;
                }
                if (input.empty()) input.push_back(static_cast<std::uint8_t>(random()));
            }
            run(input);
        }
    }
    for (int i = 0; i < 2000; ++i) {
        Input input(random() % 512);
        for (auto& byte : input) byte = static_cast<std::uint8_t>(random());
        run(input);
    }
    std::printf("fuzz: %zu seeds replayed and mutated, no crash\n", seeds.size());
    return 0;
}
