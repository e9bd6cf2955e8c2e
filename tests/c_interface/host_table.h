#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tovera.h"

namespace tovera::testing {

/// An object of a host made of functions, one a member; it has no member that isn't here.
struct HostTable {
    using Member = std::function<int32_t(tovera_value* arguments, size_t count, tovera_value* result,
                                         tovera_failure* failure)>;
    std::map<std::string, Member, std::less<>> members;
    std::vector<tovera_object*> elements;  ///< borrowed
    unsigned* dropped = nullptr;

    /// A handle of its own, which keeps no hold on this table.
    tovera_object* handle() { return tovera_object_new(&functions(), this); }

    static const tovera_object_functions& functions() {
        static const tovera_object_functions made{sizeof(tovera_object_functions),
                                                  TOVERA_AS_UTF8,
                                                  [](void* data) {
                                                      auto* const dropped = of(data).dropped;
                                                      if (dropped) ++*dropped;
                                                  },
                                                  memberNamed,
                                                  invoke,
                                                  walk,
                                                  next,
                                                  [](void* walk) { delete static_cast<Walk*>(walk); },
                                                  query};
        return made;
    }

  private:
    struct Walk {
        HostTable& table;
        size_t at = 0;
    };

    static HostTable& of(void* data) { return *static_cast<HostTable*>(data); }

    static int32_t memberNamed(void* data, const char* name, int32_t* member) {
        const auto& members = of(data).members;
        const auto found = members.find(std::string_view(name));
        if (found == members.end()) return 438;
        *member = static_cast<int32_t>(std::distance(members.begin(), found)) + 1;
        return 0;
    }
    static int32_t invoke(void* data, int32_t member, unsigned, tovera_value* arguments, size_t count,
                          tovera_value* result, tovera_failure* failure) {
        return std::next(of(data).members.begin(), member - 1)->second(arguments, count, result, failure);
    }
    static void* walk(void* data, tovera_failure*) { return new Walk{of(data)}; }
    static int next(void* walk, tovera_value* element, tovera_failure*) {
        auto& [table, at] = *static_cast<Walk*>(walk);
        if (at == table.elements.size()) return 0;
        *element = tovera_of_object(table.elements[at++]);
        return 1;
    }
    static tovera_object* query(void* data, const tovera_interface_id* id) {
        return id->data1 == 0xFCFB3D25 ? of(data).handle() : nullptr;
    }
};

}  // namespace tovera::testing
