#include <cstring>
#include <sstream>

#include "client/component.h"
#include "client/published_tables.h"

// Walks the embedded type library and compares it with the published tables.
namespace tovera::client {
namespace {

struct Documentation {
    std::string name;
    std::string help;
};

Documentation documentationOf(ITypeInfo* info, MEMBERID member) {
    Text name;
    Text help;
    info->GetDocumentation(member, name.out(), help.out(), nullptr, nullptr);
    return {utf8(name.str()), utf8(help.str())};
}

/// The name of a type, with "&" for each address.
std::string nameOf(ITypeInfo* info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR:
            return nameOf(info, *type.lptdesc) + "&";
        case VT_SAFEARRAY:
            return "SAFEARRAY(" + nameOf(info, *type.lptdesc) + ")";
        case VT_USERDEFINED: {
            Pointer<ITypeInfo> referred;
            info->GetRefTypeInfo(type.hreftype, referred.out());
            return documentationOf(referred.get(), MEMBERID_NIL).name;
        }
        case VT_BSTR:
            return "BSTR";
        case VT_VARIANT:
            return "VARIANT";
        case VT_BOOL:
            return "VARIANT_BOOL";
        case VT_DATE:
            return "DATE";
        case VT_DISPATCH:
            return "IDispatch";
        case VT_I2:
            return "I2";
        case VT_I4:
            return "I4";
        case VT_R4:
            return "R4";
        case VT_R8:
            return "R8";
        case VT_UI1:
            return "UI1";
        case VT_VOID:
            return "void";
        case VT_HRESULT:
            return "HRESULT";
        default:
            return "type " + std::to_string(type.vt);
    }
}

class TypeLibrary : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(LoadTypeLibEx(Component::loaded().file().c_str(), REGKIND_NONE, library_.out()), S_OK);
        TLIBATTR* attributes = nullptr;
        library_->GetLibAttr(&attributes);
        attributes_ = *attributes;
        library_->ReleaseTLibAttr(attributes);
    }

    Pointer<ITypeInfo> typeAt(unsigned offset) const {
        GUID guid = attributes_.guid;
        guid.Data1 += offset;
        Pointer<ITypeInfo> info;
        EXPECT_EQ(library_->GetTypeInfoOfGuid(guid, info.out()), S_OK) << offset;
        return info;
    }

    Pointer<ITypeLib> library_;
    TLIBATTR attributes_{};
};

TYPEATTR attributesOf(ITypeInfo* info) {
    TYPEATTR* attributes = nullptr;
    info->GetTypeAttr(&attributes);
    const TYPEATTR copy = *attributes;
    info->ReleaseTypeAttr(attributes);
    return copy;
}

/// The entry "vtable side" of a dual interface, whose functions stand in slot order.
Pointer<ITypeInfo> dualSide(ITypeInfo* dispatchSide) {
    HREFTYPE reference = 0;
    Pointer<ITypeInfo> info;
    EXPECT_EQ(dispatchSide->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK);
    EXPECT_EQ(dispatchSide->GetRefTypeInfo(reference, info.out()), S_OK);
    return info;
}

std::string prefixOf(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_PROPERTYGET:
            return "get ";
        case INVOKE_PROPERTYPUT:
            return "put ";
        case INVOKE_PROPERTYPUTREF:
            return "putref ";
        default:
            return "";
    }
}

std::string signatureOf(ITypeInfo* info, const FUNCDESC& member) {
    BSTR names[16]{};
    UINT known = 0;
    info->GetNames(member.memid, names, 16, &known);
    std::ostringstream text;
    text << prefixOf(member.invkind) << utf8(names[0]) << "(";
    std::string result;
    for (int i = 0; i < member.cParams; ++i) {
        const auto& parameter = member.lprgelemdescParam[i];
        const auto flags = parameter.paramdesc.wParamFlags;
        const auto type = nameOf(info, parameter.tdesc);
        if (flags & PARAMFLAG_FRETVAL) {
            EXPECT_EQ(flags, PARAMFLAG_FOUT | PARAMFLAG_FRETVAL);
            result = ": " + type.substr(0, type.size() - 1);
            continue;
        }
        const bool byReference = parameter.tdesc.vt == VT_PTR;
        const bool optional = flags & PARAMFLAG_FOPT;
        EXPECT_EQ(flags & ~PARAMFLAG_FOPT, byReference ? PARAMFLAG_FIN | PARAMFLAG_FOUT : PARAMFLAG_FIN);
        text << (i ? ", " : "") << (optional ? "[" : "");
        // Names are told of the first slot with a number, which for a property is the one for reading.
        const bool isValue = member.invkind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF);
        text << (isValue ? "value" : utf8(names[i + 1])) << ": " << type;
        text << (optional ? "]" : "");
    }
    for (auto& name : names) SysFreeString(name);
    EXPECT_EQ(nameOf(info, member.elemdescFunc.tdesc), "HRESULT");
    return text.str() + ")" + result;
}

TEST_F(TypeLibrary, Facts) {
    Text name;
    Text help;
    library_->GetDocumentation(-1, name.out(), help.out(), nullptr, nullptr);
    EXPECT_EQ(name.str(), L"KADRELDLL");
    EXPECT_EQ(help.str(), L"KADREL..INI REG WINDOWS WAIT");
    EXPECT_EQ(attributes_.wMajorVerNum, 1);
    EXPECT_EQ(attributes_.wMinorVerNum, 0);
    EXPECT_EQ(attributes_.lcid, 0U);
    EXPECT_EQ(attributes_.syskind, SYS_WIN32);
    EXPECT_EQ(library_->GetTypeInfoCount(), 2 * publishedClasses.size() + publishedRecords.size());

    // The resource's own fields: signature, and the locale that no interface tells.
    const HMODULE module = Component::loaded().module();
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(1), L"TYPELIB");
    ASSERT_NE(resource, nullptr);
    DWORD header[5]{};
    std::memcpy(header, LockResource(LoadResource(module, resource)), sizeof header);
    EXPECT_EQ(header[0], 0x5446534DU);
    EXPECT_EQ(header[3], 1033U);
    EXPECT_EQ(header[4], 0U);
}

TEST_F(TypeLibrary, ClassesAndInterfaces) {
    for (const auto& published : publishedClasses) {
        SCOPED_TRACE(published.name);
        const auto dispatchSide = typeAt(published.interfaceOffset);
        ASSERT_TRUE(dispatchSide);
        const auto described = documentationOf(dispatchSide.get(), MEMBERID_NIL);
        EXPECT_EQ(described.name, "_" + std::string(published.name));
        EXPECT_EQ(described.help, published.help);
        const auto attributes = attributesOf(dispatchSide.get());
        EXPECT_EQ(attributes.typekind, TKIND_DISPATCH);
        constexpr WORD flags =
            TYPEFLAG_FDUAL | TYPEFLAG_FNONEXTENSIBLE | TYPEFLAG_FHIDDEN | TYPEFLAG_FDISPATCHABLE;
        EXPECT_EQ(attributes.wTypeFlags & ~TYPEFLAG_FOLEAUTOMATION, flags);
        EXPECT_EQ(attributesOf(dualSide(dispatchSide.get()).get()).wTypeFlags,
                  flags | TYPEFLAG_FOLEAUTOMATION);

        const auto coclass = typeAt(published.interfaceOffset + 1);
        ASSERT_TRUE(coclass);
        const auto classAttributes = attributesOf(coclass.get());
        EXPECT_EQ(documentationOf(coclass.get(), MEMBERID_NIL).name, published.name);
        EXPECT_EQ(documentationOf(coclass.get(), MEMBERID_NIL).help, published.help);
        EXPECT_EQ(classAttributes.typekind, TKIND_COCLASS);
        EXPECT_EQ(classAttributes.wTypeFlags, TYPEFLAG_FCANCREATE);
        ASSERT_EQ(classAttributes.cImplTypes, 1);
        int kind = 0;
        HREFTYPE reference = 0;
        Pointer<ITypeInfo> implemented;
        coclass->GetImplTypeFlags(0, &kind);
        EXPECT_EQ(kind, IMPLTYPEFLAG_FDEFAULT);
        coclass->GetRefTypeOfImplType(0, &reference);
        coclass->GetRefTypeInfo(reference, implemented.out());
        EXPECT_EQ(documentationOf(implemented.get(), MEMBERID_NIL).name, described.name);
    }
}

TEST_F(TypeLibrary, SlotsInPublishedOrder) {
    for (const auto& published : publishedClasses) {
        SCOPED_TRACE(published.name);
        const auto info = dualSide(typeAt(published.interfaceOffset).get());
        ASSERT_TRUE(info);
        ASSERT_EQ(attributesOf(info.get()).cFuncs, published.slots.size());
        for (UINT i = 0; i < published.slots.size(); ++i) {
            FUNCDESC* member = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &member), S_OK);
            EXPECT_EQ(signatureOf(info.get(), *member), published.slots[i].signature);
            EXPECT_EQ(documentationOf(info.get(), member->memid).help, published.slots[i].help);
            EXPECT_EQ(member->oVft, static_cast<short>((7 + i) * sizeof(void*)));
            EXPECT_EQ(static_cast<unsigned long>(member->memid) & 0xFFFF0000UL,
                      member->invkind == INVOKE_FUNC ? 0x60030000UL : 0x68030000UL);
            info->ReleaseFuncDesc(member);
        }
    }
}

TEST_F(TypeLibrary, Records) {
    for (const auto& published : publishedRecords) {
        SCOPED_TRACE(published.name);
        const auto info = typeAt(published.offset);
        ASSERT_TRUE(info);
        const auto attributes = attributesOf(info.get());
        EXPECT_EQ(attributes.typekind, TKIND_RECORD);
        EXPECT_EQ(attributes.cbSizeInstance, published.size);
        EXPECT_EQ(documentationOf(info.get(), MEMBERID_NIL).name, published.name);
        EXPECT_EQ(documentationOf(info.get(), MEMBERID_NIL).help, helpOfRecords());
        std::string fields;
        for (UINT i = 0; i < attributes.cVars; ++i) {
            VARDESC* field = nullptr;
            ASSERT_EQ(info->GetVarDesc(i, &field), S_OK);
            fields += (i ? ", " : "") + std::to_string(field->oInst) + " " +
                      documentationOf(info.get(), field->memid).name + " " +
                      nameOf(info.get(), field->elemdescVar.tdesc);
            info->ReleaseVarDesc(field);
        }
        EXPECT_EQ(fields, published.fields);
    }
}

}  // namespace
}  // namespace tovera::client
