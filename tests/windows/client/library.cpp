#include "client/library.h"

#include <map>

namespace tovera::client {

const std::vector<std::string> publishedNames{
    "_Cls_InitREG", "Cls_InitREG",     "_Cls_Windows",   "Cls_Windows",     "BROWSEINFO",     "POINTAPI",
    "SHITEMID",     "ITEMIDLIST",      "SHFILEOPSTRUCT", "_Cls_Traduction", "Cls_Traduction", "_Cls_Internet",
    "Cls_Internet", "_Cls_Date",       "Cls_Date",       "_Cls_SQL",        "Cls_SQL",        "_Cls_Cryptage",
    "Cls_Cryptage", "_Cls_Conversion", "Cls_Conversion", "_Cls_Multimedia", "Cls_Multimedia", "_Cls_Math",
    "Cls_Math",     "_Cls_SourisClv",  "Cls_SourisClv"};

Library::Library() {
    EXPECT_EQ(LoadTypeLibEx(Component::loaded().file().c_str(), REGKIND_NONE, library_.out()), S_OK);
    TLIBATTR* attributes = nullptr;
    library_->GetLibAttr(&attributes);
    attributes_ = *attributes;
    library_->ReleaseTLibAttr(attributes);
}

Pointer<ITypeInfo> Library::at(unsigned distance) const {
    GUID guid = attributes_.guid;
    guid.Data1 += distance;
    Pointer<ITypeInfo> info;
    library_->GetTypeInfoOfGuid(guid, info.out());
    return info;
}

Documentation documentationOf(ITypeInfo* info, MEMBERID member) {
    Value name, help;
    info->GetDocumentation(member, name.textOut(), help.textOut(), nullptr, nullptr);
    return {utf8(name.text()), utf8(help.text())};
}

TYPEATTR attributesOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const TYPEATTR copy = *attributes;
    info->ReleaseTypeAttr(attributes);
    return copy;
}

Pointer<ITypeInfo> dualSide(ITypeInfo* dispatchSide) {
    HREFTYPE reference = 0;
    Pointer<ITypeInfo> info;
    EXPECT_EQ(dispatchSide->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dispatchSide->GetRefTypeInfo(reference, info.out()), S_OK);
    return info;
}

VARTYPE typeOf(const TYPEDESC& type) {
    if (type.vt == VT_PTR) return typeOf(*type.lptdesc);
    return type.vt == VT_SAFEARRAY ? static_cast<VARTYPE>(VT_ARRAY | type.lptdesc->vt) : type.vt;
}

std::string typeName(VARTYPE type) {
    static const std::map<VARTYPE, std::string> names{
        // clang-format off
        {VT_BSTR, "BSTR"}, {VT_VARIANT, "VARIANT"}, {VT_BOOL, "VARIANT_BOOL"}, {VT_DATE, "DATE"},
        {VT_DISPATCH, "IDispatch"}, {VT_I2, "I2"}, {VT_I4, "I4"}, {VT_R4, "R4"}, {VT_R8, "R8"}, {VT_UI1, "UI1"},
        {VT_EMPTY, "none"}, {VT_ARRAY | VT_BSTR, "SAFEARRAY(BSTR)"},
        // clang-format on
    };
    const auto found = names.find(type);
    return found == names.end() ? "type " + std::to_string(type) : found->second;
}

namespace {

Member memberOf(ITypeInfo* info, const FUNCDESC& function) {
    const auto [name, help] = documentationOf(info, function.memid);
    Member member{name, help, function.invkind, {}, VT_EMPTY};
    EXPECT_EQ(function.elemdescFunc.tdesc.vt, VT_HRESULT) << name;
    BSTR names[16]{};
    UINT known = 0;
    info->GetNames(function.memid, names, 16, &known);
    for (int i = 0; i < function.cParams; ++i) {
        const TYPEDESC& type = function.lprgelemdescParam[i].tdesc;
        const unsigned flags = function.lprgelemdescParam[i].paramdesc.wParamFlags;
        const bool byReference = type.vt == VT_PTR;
        if (flags == (PARAMFLAG_FOUT | PARAMFLAG_FRETVAL)) {
            member.result = typeOf(type);
            continue;
        }
        EXPECT_EQ(flags & ~PARAMFLAG_FOPT, byReference ? PARAMFLAG_FIN | PARAMFLAG_FOUT : PARAMFLAG_FIN)
            << name;
        const auto parameter = function.invkind == INVOKE_FUNC ? utf8(names[i + 1]) : std::string();
        member.parameters.push_back({parameter, typeOf(type), byReference, (flags & PARAMFLAG_FOPT) != 0});
    }
    for (auto& text : names) SysFreeString(text);
    return member;
}

}  // namespace

std::vector<Member> membersOf(ITypeInfo* dualSide) {
    std::vector<Member> members;
    for (UINT i = 0; i < attributesOf(dualSide).cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(dualSide->GetFuncDesc(i, &function), S_OK);
        members.push_back(memberOf(dualSide, *function));
        dualSide->ReleaseFuncDesc(function);
    }
    return members;
}

}  // namespace tovera::client
