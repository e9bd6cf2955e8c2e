#include <deque>
#include <string>
#include <vector>

#include "c_interface/tovera.h"
#include "catalogue/catalogue.h"
#include "catalogue/signature.h"

namespace tovera::c {
namespace {

std::uint16_t typeNumber(Type type) {
    switch (type) {
        case Type::None:
            return TOVERA_NOTHING;
        case Type::Bstr:
            return TOVERA_TEXT;
        case Type::Variant:
            return TOVERA_VARIANT;
        case Type::VariantBool:
            return TOVERA_BOOL;
        case Type::Date:
            return TOVERA_DATE;
        case Type::I2:
            return TOVERA_I2;
        case Type::I4:
            return TOVERA_I4;
        case Type::R4:
            return TOVERA_R4;
        case Type::R8:
            return TOVERA_R8;
        case Type::UI1:
            return TOVERA_UI1;
        case Type::StringArray:
            return TOVERA_ARRAY;
        case Type::Object:
            return TOVERA_OBJECT;
    }
    return TOVERA_NOTHING;
}

static_assert(static_cast<unsigned>(Mode::ByReference) == TOVERA_BY_REFERENCE &&
              static_cast<unsigned>(Mode::Optional) == TOVERA_OPTIONAL);
static_assert(static_cast<unsigned>(CallKind::Method | CallKind::Read) == (TOVERA_METHOD | TOVERA_READ) &&
              static_cast<unsigned>(CallKind::Write) == TOVERA_WRITE &&
              static_cast<unsigned>(CallKind::AssignReference) == TOVERA_ASSIGN);

/// The descriptions in the shape of the header; every address in them stays.
class Descriptions {
  public:
    Descriptions() {
        for (const auto& entry : catalogue()) classes_.push_back(&describeClass(entry.description()));
    }
    std::span<const tovera_class* const> classes() const { return classes_; }

  private:
    const char* kept(std::string_view text) { return texts_.emplace_back(text).c_str(); }

    const tovera_class& describeClass(const ClassDescription& description) {
        auto& members = memberLists_.emplace_back();
        for (const auto& member : description.members)
            if (member.published) members.push_back(&describeMember(member));
        return storedClasses_.emplace_back(tovera_class{kept(description.name), kept(description.progId),
                                                        kept(description.help), members.size(),
                                                        members.data()});
    }

    const tovera_member& describeMember(const MemberDescription& member) {
        auto& parameters = parameterLists_.emplace_back();
        for (const auto& parameter : member.parameters)
            parameters.push_back({kept(parameter.name), typeNumber(parameter.type),
                                  static_cast<std::uint16_t>(parameter.mode)});
        return storedMembers_.emplace_back(
            tovera_member{kept(member.name), kept(member.help), kept(signatureOf(member)), member.id,
                          static_cast<std::uint16_t>(member.kind), typeNumber(member.result),
                          parameters.size(), parameters.data()});
    }

    std::deque<std::string> texts_;
    std::deque<std::vector<tovera_parameter>> parameterLists_;
    std::deque<std::vector<const tovera_member*>> memberLists_;
    std::deque<tovera_member> storedMembers_;
    std::deque<tovera_class> storedClasses_;
    std::vector<const tovera_class*> classes_;
};

const Descriptions& descriptions() {
    static const Descriptions made;
    return made;
}

}  // namespace
}  // namespace tovera::c

using namespace tovera;

const tovera_class* const* tovera_classes(size_t* count) {
    const auto classes = c::descriptions().classes();
    if (count) *count = classes.size();
    return classes.data();
}

const tovera_class* tovera_find_class(const char* name) {
    const auto* const found = findClass(name);
    return found ? c::descriptions().classes()[static_cast<std::size_t>(found - catalogue().data())]
                 : nullptr;
}

const char* tovera_version(void) {
    return TOVERA_VERSION;
}
