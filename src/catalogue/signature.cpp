#include "catalogue/signature.h"

namespace tovera {
namespace {

std::string parameterText(const ParameterDescription& parameter) {
    std::string text(parameter.name);
    text += ": ";
    text += typeName(parameter.type);
    if (parameter.mode != Mode::ByValue) text += " by reference";
    if (parameter.mode == Mode::Optional) text += ", optional";
    return text;
}

std::string parameterList(const MemberDescription& member) {
    std::string list;
    for (const auto& parameter : member.parameters) {
        if (!list.empty()) list += "; ";
        list += parameterText(parameter);
    }
    return list;
}

}  // namespace

std::string_view typeName(Type type) {
    switch (type) {
        case Type::None:
            return "none";
        case Type::Bstr:
            return "BSTR";
        case Type::Variant:
            return "VARIANT";
        case Type::VariantBool:
            return "VARIANT_BOOL";
        case Type::Date:
            return "DATE";
        case Type::I2:
            return "I2";
        case Type::I4:
            return "I4";
        case Type::R4:
            return "R4";
        case Type::R8:
            return "R8";
        case Type::UI1:
            return "UI1";
        case Type::StringArray:
            return "SAFEARRAY(BSTR)";
        case Type::Object:
            return "IDispatch";
    }
    return "none";
}

std::string signatureOf(const MemberDescription& member) {
    const std::string name(member.name);
    switch (member.kind) {
        case CallKind::Read:
            return name + ": " + std::string(typeName(member.result)) + ", read";
        case CallKind::Write:
            return name + " = " + parameterList(member) + ", write";
        case CallKind::AssignReference:
            return name + " = " + parameterList(member) + ", assign by reference";
        default:
            break;
    }
    const auto result = member.result == Type::None ? "" : ": " + std::string(typeName(member.result));
    return name + "(" + parameterList(member) + ")" + result;
}

}  // namespace tovera
