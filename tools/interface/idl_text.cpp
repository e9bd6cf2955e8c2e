#include "interface/idl_text.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>

#include "catalogue/catalogue.h"
#include "catalogue/identities.h"
#include "catalogue/library_facts.h"
#include "catalogue/signature.h"
#include "frame/records.h"
#include "frame/utf8.h"

namespace tovera::tools {
namespace {

/// A type in the words of the interface language, which has its own for numbers and objects.
std::string_view idlType(Type type) {
    switch (type) {
        case Type::None:
            return {};
        case Type::I2:
            return "short";
        case Type::I4:
            return "long";
        case Type::R4:
            return "float";
        case Type::R8:
            return "double";
        case Type::UI1:
            return "unsigned char";
        case Type::Object:
            return "IDispatch*";
        default:
            return typeName(type);
    }
}

/// A text between quotation marks.
std::string quoted(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') result += '\\';
        result += c == '\n' ? lineFeedMark : c;
    }
    return result + '"';
}

/// The attributes of a description: its identity, what else is told, and its help string if it has one.
std::string attributes(const InterfaceId& id, std::string_view others, std::string_view help) {
    std::string text = "[uuid(" + idText(id) + ")" + std::string(others);
    if (!help.empty()) text += ", helpstring(" + quoted(help) + ")";
    return text + "]\n";
}

std::string version() {
    return ", version(" + std::string(libraryVersion) + ")";
}

std::string parameterText(const ParameterDescription& parameter) {
    const bool byValue = parameter.mode == Mode::ByValue;
    std::string text = byValue ? "[in] " : "[in, out] ";
    if (parameter.mode == Mode::Optional) text = "[in, out, optional] ";
    text += idlType(parameter.type);
    return text + (byValue ? " " : "* ") + plainName(parameter.name);
}

std::string_view kindAttribute(CallKind kind) {
    switch (kind) {
        case CallKind::Read:
            return ", propget";
        case CallKind::Write:
            return ", propput";
        case CallKind::AssignReference:
            return ", propputref";
        case CallKind::Method:
            break;
    }
    return {};
}

std::string memberText(const MemberDescription& member) {
    std::array<char, 16> id{};
    std::snprintf(id.data(), id.size(), "0x%08X", static_cast<unsigned>(member.id));
    std::string text =
        "        [id(" + std::string(id.data()) + ")" + std::string(kindAttribute(member.kind));
    if (!member.help.empty()) text += ", helpstring(" + quoted(member.help) + ")";
    text += "]\n        HRESULT " + std::string(member.name) + "(";
    std::string separator;
    for (const auto& parameter : member.parameters) {
        text += separator + parameterText(parameter);
        separator = ", ";
    }
    if (member.result != Type::None)
        text += separator + "[out, retval] " + std::string(idlType(member.result)) + "* Resultat";
    return text + ");\n";
}

std::string interfaceText(const ClassDescription& description, IdlFor reader) {
    const auto name = "_" + std::string(description.name);
    auto text = attributes(identityOf(name), version() + ", odl, dual, nonextensible, oleautomation, hidden",
                           description.help);
    text += "    interface " + name + " : IDispatch {\n";
    for (const auto& member : description.members) {
        if (member.published || reader == IdlFor::Header) text += memberText(member);
    }
    return text + "    };\n";
}

std::string classText(const ClassDescription& description) {
    const std::string name(description.name);
    return attributes(identityOf(name), version(), description.help) + "    coclass " + name +
           " {\n        [default] interface _" + name + ";\n    };\n";
}

std::string recordText(const RecordDescription& record) {
    const std::string name(record.name);
    auto text = attributes(identityOf(name), {}, {}) + "    struct " + name + " {\n";
    for (const auto& field : record.fields) {
        const auto type =
            field.record ? "struct " + std::string(field.record->name) : std::string(idlType(field.type));
        text += "        " + type + " " + std::string(field.name) + ";\n";
    }
    return text + "    };\n";
}

/// The descriptions by the first group of their identities, which gives their order.
std::map<std::uint32_t, std::string> descriptions(IdlFor reader) {
    std::map<std::uint32_t, std::string> texts;
    for (const auto& entry : catalogue()) {
        const auto& description = entry.description();
        texts[identityOf("_" + std::string(description.name)).data1] = interfaceText(description, reader);
        texts[identityOf(description.name).data1] = classText(description);
    }
    if (reader == IdlFor::Library) {
        for (const auto& record : publishedRecords())
            texts[identityOf(record.name).data1] = recordText(record);
    }
    return texts;
}

}  // namespace

std::string plainName(std::string_view name) {
    constexpr std::u16string_view accented = u"àâäçéèêëîïôöùûüÀÂÇÉÈÊËÎÏÔÙÛÜ";
    constexpr std::string_view plain = "aaaceeeeiioouuuAACEEEEIIOUUU";
    std::string result;
    for (const auto c : fromUtf8(name)) {
        const auto place = accented.find(c);
        result += place == accented.npos ? static_cast<char>(c) : plain[place];
    }
    return result;
}

std::string idlText(IdlFor reader) {
    std::string text = "import \"oaidl.idl\";\n\n";
    text += attributes(libraryId(), version(), libraryHelp);
    text += "library " + std::string(libraryName) + " {\n    importlib(\"stdole2.tlb\");\n\n";
    for (const auto& [order, description] : descriptions(reader)) text += "    " + description + "\n";
    return text + "};\n";
}

}  // namespace tovera::tools
