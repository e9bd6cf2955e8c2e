#include "fuzz/harnesses.h"

// The entry point for libFuzzer. TOVERA_HARNESS names the harness to run; without it the first byte chooses.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tovera::fuzz;
    static const char* const wanted = std::getenv("TOVERA_HARNESS");
    Input input(reinterpret_cast<const char*>(data), size);
    const auto chosen = wanted ? 0 : take<std::uint8_t>(input) % std::size(harnesses);
    for (std::size_t i = 0; i < std::size(harnesses); ++i) {
        if (wanted ? harnesses[i].name == wanted : i == chosen) harnesses[i].run(input);
    }
    return 0;
}
