#include "c_interface/host_objects.h"

#include <vector>

#include "c_interface/failures.h"
#include "c_interface/handles.h"
#include "c_interface/values.h"
#include "frame/conversions.h"
#include "frame/utf8.h"

namespace tovera::c {
namespace {

/// A value that the library has put, cleared at the end.
struct OwnedValue : tovera_value {
    OwnedValue() : tovera_value(tovera_of_type(TOVERA_EMPTY)) {}
    OwnedValue(const OwnedValue&) = delete;
    OwnedValue& operator=(const OwnedValue&) = delete;
    OwnedValue(OwnedValue&& other) noexcept
        : tovera_value(std::exchange(static_cast<tovera_value&>(other), tovera_of_type(TOVERA_EMPTY))) {}
    OwnedValue& operator=(OwnedValue&&) = delete;
    ~OwnedValue() { tovera_clear(this); }
};

/// The arguments of a call into the host. A variable by reference is one of the host's for that time.
class HostArguments {
  public:
    HostArguments(std::span<Variant> arguments, unsigned flags)
        : arguments_(arguments),
          plain_(arguments.size()),
          variables_(arguments.size()),
          given_(arguments.size()) {
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            put(plain_[i], arguments[i], flags);
            static_cast<tovera_value&>(variables_[i]) = plain_[i];
            variables_[i].owned = 0;
            given_[i] = arguments[i].is<Reference>() ? tovera_by_reference(&variables_[i]) : variables_[i];
        }
    }
    tovera_value* data() { return given_.data(); }

    void giveBack() {
        const Conversions convert(home().services);
        for (std::size_t i = 0; i < arguments_.size(); ++i) {
            const auto* const reference = arguments_[i].as<Reference>();
            if (!reference) continue;
            const auto value = plainValue(variables_[i]);
            if (value != dereferenced(arguments_[i])) convert.store(*reference, value);
        }
    }

  private:
    std::span<Variant> arguments_;
    std::vector<OwnedValue> plain_;      ///< what the host gets, which stays the library's
    std::vector<OwnedValue> variables_;  ///< what the host may assign to
    std::vector<tovera_value> given_;
};

class HostEnumerator final : public Enumerator {
  public:
    HostEnumerator(const tovera_object_functions& functions, void* walk)
        : functions_(functions), walk_(walk) {}
    HostEnumerator(const HostEnumerator&) = delete;
    HostEnumerator& operator=(const HostEnumerator&) = delete;
    ~HostEnumerator() override { functions_.end(walk_); }

    std::optional<Variant> next() override {
        OwnedValue element;
        HostFailure failure;
        const int found = functions_.next(walk_, &element, &failure);
        if (found < 0) recordOf(static_cast<I4>(ErrorNumber::NotEnumerable), failure).raise();
        if (found == 0) return {};
        return plainValue(element);
    }

  private:
    const tovera_object_functions& functions_;
    void* walk_;
};

/// An object of the host as the component meets it.
class HostObject final : public Counted<> {
  public:
    HostObject(const tovera_object_functions& functions, void* data) : functions_(functions), data_(data) {}
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;
    ~HostObject() override {
        if (functions_.drop) functions_.drop(data_);
    }

    void* dataFor(const tovera_object_functions* functions) const {
        return functions == &functions_ ? data_ : nullptr;
    }

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        MemberId member = 0;
        if (functions_.member_named(data_, toUtf8(name).c_str(), &member) != 0) return {};
        return member;
    }

    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        try {
            HostArguments given(arguments, functions_.flags);
            OwnedValue returned;
            HostFailure told;
            const auto number = functions_.invoke(data_, member, static_cast<unsigned>(kind), given.data(),
                                                  arguments.size(), &returned, &told);
            given.giveBack();
            if (number == 0)
                result = plainValue(returned);
            else
                failure = recordOf(number, told);
        } catch (...) {
            failure = recordOfCurrentException();
        }
        return failure.code;
    }

    std::unique_ptr<Enumerator> elements() override {
        if (!functions_.elements || !functions_.next || !functions_.end) raise(ErrorNumber::NotEnumerable);
        HostFailure failure;
        auto* const walk = functions_.elements(data_, &failure);
        if (!walk) recordOf(static_cast<I4>(ErrorNumber::NotEnumerable), failure).raise();
        return std::make_unique<HostEnumerator>(functions_, walk);
    }

    ObjectRef query(const InterfaceId& id) override {
        tovera_interface_id asked{id.data1, id.data2, id.data3, {}};
        std::ranges::copy(id.data4, asked.data4);
        auto found = functions_.query ? takeOver(functions_.query(data_, &asked)) : ObjectRef();
        if (!found) raise(ErrorNumber::NoSuchInterface);
        return found;
    }

  private:
    const tovera_object_functions& functions_;
    void* data_;
};

}  // namespace

ObjectRef takeOver(tovera_object* handle) {
    auto object = objectOf(handle);
    tovera_release(handle);
    return object;
}

}  // namespace tovera::c

using namespace tovera;

tovera_object* tovera_object_new(const tovera_object_functions* functions, void* data) {
    tovera_object* made = nullptr;
    c::guarded(nullptr, [&] {
        made = c::handleOf(makeObject<c::HostObject>(*functions, data));
        return 0;
    });
    return made;
}

void* tovera_object_data(const tovera_object* object, const tovera_object_functions* functions) {
    if (!object) return nullptr;
    const auto* const ofHost = dynamic_cast<const c::HostObject*>(object->object.get());
    return ofHost ? ofHost->dataFor(functions) : nullptr;
}
