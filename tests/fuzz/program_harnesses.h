#pragma once

#include <array>

#include "catalogue/catalogue.h"
#include "cli/form_file.h"
#include "fuzz/numbers.h"
#include "platform/linux/profiles/profile_text.h"
#include "support/test_platform.h"

namespace tovera::fuzz {

/// Any block of lines is refused with error 321 or is a form. A text that is changed then reads as it was
/// written, in a file that has the same blocks.
inline void formFiles(Input input) {
    const std::string bytes = "VERSION 5.00\r\nBegin VB.Form F \r\n   " + std::string(input) +
                              "\r\nEnd\r\nAttribute VB_Name = \"F\"\r\n";
    cli::FormFile file;
    const auto error = testing::errorOf([&] { file = cli::readFormFile(bytes); });
    require(error == 0 || error == 321, "what is no form is refused as one");
    if (error != 0) return;
    require(cli::withTexts(file, {}) == bytes, "without changes all bytes stay");
    for (std::size_t block = 0; block < file.blocks.size(); ++block) {
        const auto* const present = cli::findProperty(file.blocks[block], "Caption");
        if (present && present->written != cli::Written::Text) continue;
        const cli::TextChange change{block, "Caption", "a\"b"};
        const auto changed = cli::readFormFile(cli::withTexts(file, {&change, 1}));
        require(changed.blocks.size() == file.blocks.size(), "the same blocks");
        const auto* const written = cli::findProperty(changed.blocks[block], "Caption");
        require(written && written->text == change.text, "the text as it was written");
    }
}

/// Whatever stands in a profile file, entries that are set are found there, and nothing remains to be
/// changed. Written together they give the bytes that they give one after the other.
inline void profileTexts(Input input) {
    const std::array writes{EntryWrite{"s", "k", "v w"}, EntryWrite{"t", "k", "x"},
                            EntryWrite{"s", "l", "y"}};
    const std::string before(input);
    const auto changed = [](std::string text, std::span<const EntryWrite> some) {
        return withEdits(text, editsFor(text, some)).value_or(text);
    };
    const auto text = changed(before, writes);
    auto oneByOne = before;
    for (const auto& write : writes) {
        oneByOne = changed(oneByOne, {&write, 1});
        ProfileSearch search(write.section, write.key);
        search.goesOnAfter(text);
        require(search.value() == write.value, "what is set is found");
    }
    require(text == oneByOne, "together as one after the other");
    require(editsFor(text, writes).empty(), "and nothing remains to be changed");
}

inline Variant anyValue(Input& input, std::array<Variant, 4>& variables) {
    const auto kind = take<std::uint8_t>(input);
    switch (kind % 12) {
        case 0:
            return Empty{};
        case 1:
            return Null{};
        case 2:
            return take<I2>(input);
        case 3:
            return take<I4>(input);
        case 4:
            return take<R8>(input);
        case 5:
            return Date{take<R8>(input)};
        case 6:
            return VariantBool::ofBits(take<I2>(input));
        case 7:
            return Variant::missing();
        case 8:
            return StringArray::of({Bstr(u"1"), Bstr()}, take<I2>(input));
        case 9:
            return ObjectRef{};
        case 10:
            return Reference(&variables[take<std::uint8_t>(input) % variables.size()]);
        default:
            break;
    }
    const auto length = std::min<std::size_t>(kind / 12, input.size());
    const auto text = fromUtf8(input.substr(0, length));
    input.remove_prefix(length);
    return Bstr(text);
}

/// A call by name with any number and kind of arguments succeeds, or fails with a code and in words.
inline void callsByName(Input input) {
    constexpr std::array classes{"Cls_Date", "Cls_Math",
                                 "Cls_Conversion"};  // they do nothing but give results
    testing::TestPlatform platform;
    const auto* const entry = findClass(classes[take<std::uint8_t>(input) % classes.size()]);
    const auto object = entry->create(platform.platform);
    const auto& members = entry->description().members;
    std::array<Variant, 4> variables{Variant(I4{2002}), Variant(Bstr(u"12")), Variant(), Variant(R8{0.5})};
    while (!input.empty()) {
        const auto& member = members[take<std::uint8_t>(input) % members.size()];
        const auto given = take<std::uint8_t>(input) % 6;
        std::vector<Variant> arguments;
        for (int i = 0; i < given; ++i) arguments.push_back(anyValue(input, variables));
        Variant result;
        ErrorRecord failure;
        const auto code = object->invoke(member.id, member.kind, arguments, result, failure);
        require((code == ReturnCode::Success) == (failure.code == ReturnCode::Success),
                "a failure has its code");
        require(code == ReturnCode::Success || !failure.description.isNull(), "and tells what it is");
    }
}

}  // namespace tovera::fuzz
