#include <gtest/gtest.h>
#include <random>

#include "fuzz/harnesses.h"

namespace tovera::fuzz {
namespace {

/// The harnesses on the inputs of a fixed seed: half of them any bytes, half of them from the alphabet.
class Bounded : public ::testing::TestWithParam<Harness> {};

TEST_P(Bounded, Run) {
    std::mt19937 random(20020331);
    const auto& alphabet = GetParam().alphabet;
    for (int i = 0; i < 30000; ++i) {
        std::string bytes(random() % 24, '\0');
        const bool any = alphabet.empty() || i % 2 == 0;
        for (auto& byte : bytes)
            byte = any ? static_cast<char>(random()) : alphabet[random() % alphabet.size()];
        GetParam().run(bytes);
    }
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Bounded, ::testing::ValuesIn(harnesses),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace tovera::fuzz
