#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <set>

#include "bench.h"

// tovera_bench [TEXT]: prints one table of all rows, or of those whose name contains TEXT.
namespace bench {
namespace {

constexpr std::size_t columns = 7;
using Cells = std::array<std::string, columns>;
constexpr std::array<bool, columns> isNumber{false, true, false, true, true, true, false};

std::string number(double value, int decimals) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return text.data();
}

std::string nanoseconds(double value) {
    return number(value, value < 100 ? 1 : 0);
}

Cells cellsOf(const Row& row) {
    const auto timing = row.measure ? row.measure() : compare(row.ours, row.peer.loop);
    if (row.mostAbove > 0) {
        constexpr double millisecond = 1e6;
        const bool isMet = timing.ours <= timing.peer + row.mostAbove;
        return {row.name,
                nanoseconds(timing.ours),
                std::string(row.peer.name),
                nanoseconds(timing.peer),
                number(timing.ratio, 2),
                "+" + number(row.mostAbove / millisecond, 1) + " ms",
                isMet ? "yes" : "NO"};
    }
    const bool hasTarget = row.target > 0;
    return {row.name,
            nanoseconds(timing.ours),
            std::string(row.peer.name),
            nanoseconds(timing.peer),
            number(timing.ratio, 2),
            hasTarget ? number(row.target, 1) : "-",
            !hasTarget                   ? "-"
            : timing.ratio >= row.target ? "yes"
                                         : "NO"};
}

void printRow(const Cells& cells, const std::array<std::size_t, columns>& widths) {
    for (std::size_t i = 0; i < columns; ++i) {
        const std::string padding(widths[i] - cells[i].size(), ' ');
        std::cout << "| " << (isNumber[i] ? padding + cells[i] : cells[i] + padding) << ' ';
    }
    std::cout << "|\n";
}

void printTable(const std::vector<Cells>& table) {
    std::array<std::size_t, columns> widths{};
    for (const auto& cells : table) {
        for (std::size_t i = 0; i < columns; ++i) widths[i] = std::max(widths[i], cells[i].size());
    }
    Cells rule;
    for (std::size_t i = 0; i < columns; ++i) {
        rule[i] = isNumber[i] ? std::string(widths[i] - 1, '-') + ':' : std::string(widths[i], '-');
    }
    printRow(table.front(), widths);
    printRow(rule, widths);
    for (std::size_t i = 1; i < table.size(); ++i) printRow(table[i], widths);
}

void run(std::string_view filter) {
    std::vector<Cells> table{{"row", "ours ns", "peer", "peer ns", "ratio", "target", "met"}};
    std::set<std::string_view> missing;
    for (const auto makeRows : Group::all()) {
        for (const auto& row : makeRows()) {
            if (row.name.find(filter) == std::string::npos) continue;
            if (row.peer.loop || row.measure) {
                table.push_back(cellsOf(row));
            } else {
                missing.insert(row.peer.name);
            }
        }
    }
    printTable(table);
    std::cout << "\nratio: how many times as fast as the peer; target: the least that it has to be, or by "
                 "how much\n"
                 "ours may be above the peer\n";
    for (const auto peer : missing) std::cout << "left out, not installed: " << peer << '\n';
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    bench::run(argc > 1 ? argv[1] : "");
}
