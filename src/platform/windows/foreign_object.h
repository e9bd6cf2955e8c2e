#pragma once

#include "platform/windows/object_bridge.h"

namespace tovera {

/// A late-bound object of another program, reached through its `IDispatch`.
class ForeignObject : public Counted<>, public DispatchSource {
  public:
    explicit ForeignObject(ComPointer<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}

    std::optional<MemberId> memberNamed(std::u16string_view name) override;
    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override;
    std::unique_ptr<Enumerator> elements() override;
    ObjectRef query(const InterfaceId& interfaceId) override;
    IDispatch* dispatch() noexcept override { return dispatch_.get(); }

  private:
    ComPointer<IDispatch> dispatch_;
};

}  // namespace tovera
