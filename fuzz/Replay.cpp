#include "support/CatalogDocuments.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Stands in for libFuzzer where that is not at hand: runs the target once on each of the files, and on those below
/// the folders, that are given.
int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& path : Documents::filesBelow(argv[i])) {
            const std::string text = Documents::textOf(path);
            std::fprintf(stderr, "%s\n", path.c_str());
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
            ++count;
        }
    }
    std::printf("%zu inputs\n", count);
    return count != 0 ? 0 : 1;
}
