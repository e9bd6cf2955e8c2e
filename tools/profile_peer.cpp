// Asks profile files the same questions in both homes, so that the answers can be laid side by side.
//   profile_peer make COUNT    makes COUNT odd profile files in the current folder, the same ones at each run
//   profile_peer write COUNT   changes entries of them
//   profile_peer read COUNT    prints what is read from them, one line a question
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include "platform/profiles.h"
#endif

namespace {

#ifdef _WIN32
int readEntry(const char* section, const char* key, std::string& buffer, const char* file) {
    return static_cast<int>(GetPrivateProfileStringA(section, key, "default", buffer.data(),
                                                     static_cast<DWORD>(buffer.size()), file));
}
bool writeEntry(const char* section, const char* key, const char* value, const char* file) {
    return WritePrivateProfileStringA(section, key, value, file) != 0;
}
#else
tovera::AnsiText text(const char* bytes) {
    return bytes ? tovera::AnsiText{bytes, false} : tovera::AnsiText{{}, true};
}
int readEntry(const char* section, const char* key, std::string& buffer, const char* file) {
    tovera::AnsiText target{buffer, false};
    const auto count = tovera::homeProfiles().GetPrivateProfileStringA(text(section), text(key),
                                                                       text("default"), target, text(file));
    buffer = target.bytes;
    return count;
}
bool writeEntry(const char* section, const char* key, const char* value, const char* file) {
    return tovera::homeProfiles().WritePrivateProfileStringA(text(section), text(key), text(value),
                                                             text(file)) != 0;
}
#endif

/// The same numbers on every machine.
class Dice {
  public:
    explicit Dice(std::uint32_t seed) : state_(seed * 2654435761U + 1) {}
    std::uint32_t below(std::uint32_t count) {
        state_ = state_ * 1664525U + 1013904223U;
        return (state_ >> 8) % count;
    }
    template <class List>
    const char* oneOf(const List& list) {
        return list[below(static_cast<std::uint32_t>(std::size(list)))];
    }

  private:
    std::uint32_t state_;
};

constexpr const char* sections[] = {"Un", "un", "Deux mots", "TROIS", "Caf\xE9", "a]b", "x", "[y"};
constexpr const char* keys[] = {"cle", "CLE", "a b", "\xE9t\xE9", "k;k", "[k", "'q'", "1", "vide", "long"};
constexpr const char* blanks[] = {"", "", "", " ", "  ", "\t", " \t ", "\x1A"};
constexpr const char* lineEnds[] = {"\r\n", "\n", "\r"};
// clang-format off
constexpr const char* values[] = {
    "v", "deux mots", "\"entre guillemets\"", "'apostrophes'", "\"", "'", "\"\"", "''", "\"ouvert", "ferm\xE9\"",
    "\"m\xEAl\xE9'", "\" blancs \"", "a=b", "; pas un commentaire", "[crochets]", "", "\x80\xFF\xA0", "\"a\"b\"",
    "' \" '", "=", "\"'x'\""};
// clang-format on

std::string value(Dice& dice) {
    if (dice.below(12) == 0)
        return std::string(240 + dice.below(30), static_cast<char>('a' + dice.below(26)));
    return dice.oneOf(values);
}

std::string line(Dice& dice) {
    const std::string lead = dice.oneOf(blanks);
    const std::string trail = dice.oneOf(blanks);
    switch (dice.below(11)) {
        case 0:
            return lead + "[" + dice.oneOf(blanks) + dice.oneOf(sections) + dice.oneOf(blanks) + "]" + trail;
        case 1:
            return lead + "[" + dice.oneOf(sections) + "] ; derri\xE8re" + trail;
        case 2:
            return lead + "[" + dice.oneOf(sections) + trail;
        case 3:
            return lead + ";" + dice.oneOf(keys) + "=" + value(dice) + trail;
        case 4:
            return lead + trail;
        case 5:
            return lead + dice.oneOf(keys) + trail;
        default:
            return lead + dice.oneOf(keys) + trail + "=" + dice.oneOf(blanks) + value(dice) +
                   dice.oneOf(blanks);
    }
}

std::string fileName(unsigned number) {
    return ".\\f" + std::to_string(number) + ".ini";
}

void make(unsigned number) {
    Dice dice(number);
    std::string text;
    const bool mixed = dice.below(5) == 0;
    const char* lineEnd = dice.oneOf(lineEnds);
    if (dice.below(3) != 0) text = std::string("[") + dice.oneOf(sections) + "]" + lineEnd;
    for (auto lines = dice.below(40); lines > 0; --lines) {
        text += line(dice) + (mixed ? dice.oneOf(lineEnds) : lineEnd);
    }
    if (dice.below(4) == 0) text += line(dice);
    std::ofstream("f" + std::to_string(number) + ".ini", std::ios::binary) << text;
}

void write(unsigned number) {
    Dice dice(number + 100000);
    const auto file = fileName(number);
    for (auto changes = 1 + dice.below(6); changes > 0; --changes) {
        const auto* section = dice.oneOf(sections);
        const auto* key = dice.oneOf(keys);
        const auto kind = dice.below(10);
        const auto text = value(dice);
        const bool done =
            writeEntry(section, kind == 0 ? nullptr : key, kind < 3 ? nullptr : text.c_str(), file.c_str());
        if (!done) std::printf("%u: a write failed\n", number);
    }
}

void ask(unsigned number, const char* section, const char* key, std::size_t size) {
    std::string buffer(size, '#');
    const int count = readEntry(section, key, buffer, fileName(number).c_str());
    std::printf("%u [%s] %s %u: %d ", number, section ? section : "*", key ? key : "*",
                static_cast<unsigned>(size), count);
    for (const char c : buffer.substr(0, static_cast<std::size_t>(count) + 1)) {
        std::printf(c > ' ' && c != '%' && c < 127 ? "%c" : "%%%02X", static_cast<unsigned char>(c));
    }
    std::printf("\n");
}

void read(unsigned number) {
    for (const std::size_t size : {255, 20}) {
        ask(number, nullptr, nullptr, size);
        for (const auto* key : keys) ask(number, "", key, size);
        for (const auto* section : sections) {
            ask(number, section, nullptr, size);
            for (const auto* key : keys) ask(number, section, key, size);
        }
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3) return 2;
    const std::string_view task = arguments[1];
    for (int number = 0; number < std::atoi(arguments[2]); ++number) {
        if (task == "make") make(static_cast<unsigned>(number));
        if (task == "write") write(static_cast<unsigned>(number));
        if (task == "read") read(static_cast<unsigned>(number));
    }
}
