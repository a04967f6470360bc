// A plain driver for compilers without libFuzzer: runs the target once on each file given, or on
// each file of each folder given, so that the seed corpora are replayed as a regression test.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    namespace fs = std::filesystem;
    std::vector<fs::path> fichiers;
    for (int i = 1; i < argc; ++i) {
        const fs::path p = argv[i];
        if (fs::is_directory(p)) {
            for (const auto& e : fs::recursive_directory_iterator(p))
                if (e.is_regular_file()) fichiers.push_back(e.path());
        } else if (fs::is_regular_file(p)) {
            fichiers.push_back(p);
        } else {
            std::fprintf(stderr, "Entrée introuvable : %s\n", argv[i]);
            return 2;
        }
    }
    std::sort(fichiers.begin(), fichiers.end());
    for (const auto& f : fichiers) {
        std::ifstream in(f, std::ios::binary);
        const std::string octets((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(octets.data()), octets.size());
    }
    std::printf("%zu entrées rejouées\n", fichiers.size());
    return fichiers.empty() ? 1 : 0;
}
