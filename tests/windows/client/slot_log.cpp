#include "client/slot_log.h"

namespace tovera::client {

void SlotLog::expectAllReached() const {
    Pointer<ITypeInfo> info;
    ASSERT_EQ(object_->GetTypeInfo(0, 0, info.out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const UINT functions = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < functions; ++i) {
        FUNCDESC* member = nullptr;
        ASSERT_EQ(info->GetFuncDesc(i, &member), S_OK);
        Text name;
        info->GetDocumentation(member->memid, name.out(), nullptr, nullptr, nullptr);
        const std::string kind = member->invkind == INVOKE_PROPERTYGET      ? "get "
                                 : member->invkind == INVOKE_PROPERTYPUT    ? "put "
                                 : member->invkind == INVOKE_PROPERTYPUTREF ? "putref "
                                                                            : "";
        // The members of IUnknown and IDispatch stand in front.
        const bool published = member->memid < 0x60000000 || member->memid >= 0x60020000;
        info->ReleaseFuncDesc(member);
        if (!published) continue;
        EXPECT_TRUE(reached_.contains(kind + utf8(name.str()))) << kind << utf8(name.str());
    }
}

}  // namespace tovera::client
