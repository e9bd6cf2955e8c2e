#pragma once

#include "frame/class_table.h"

namespace tovera {

/// The member that an identifier and a way of calling lead to; null when the class hasn't got it.
const MemberDescription* memberAt(const ClassDescription& description, MemberId id, CallKind kind);

/// An instance of one of the component's classes as a late-bound object.
class ComponentObject : public Counted<> {
  public:
    ComponentObject(const ClassDescription& description, Services& services)
        : description_(description), services_(services) {}

    const ClassDescription& description() const { return description_; }

    std::optional<MemberId> memberNamed(std::u16string_view name) override;
    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override;

  protected:
    virtual void* instance() noexcept = 0;

  private:
    const ClassDescription& description_;
    Services& services_;
};

template <class C>
class ComponentObjectOf final : public ComponentObject {
  public:
    template <class... Arguments>
    explicit ComponentObjectOf(Services& services, Arguments&&... arguments)
        : ComponentObject(describe<C>(), services), instance_(std::forward<Arguments>(arguments)...) {}

  private:
    void* instance() noexcept override { return &instance_; }

    C instance_;
};

}  // namespace tovera
