#pragma once

#include <map>
#include <memory>
#include <mutex>

#include "libreoffice/members.h"
#include "libreoffice/objects.h"

namespace tovera::office {

/// The component inside the office: makes its objects, and brings objects across. Its services are the
/// office's: message boxes, the loop of events, objects by the names of their services.
class Bridge final : public Objects, public std::enable_shared_from_this<Bridge> {
  public:
    explicit Bridge(const Context& context);

    /// A new object of a class.
    Reference<XInterface> create(const tovera_class& wanted);
    const Context& context() const { return context_; }

    Handle toComponent(const Reference<XInterface>& object) override;
    Reference<XInterface> toOffice(tovera_object* object) override;

  private:
    struct FreeHost {
        void operator()(tovera_host* host) const { tovera_host_free(host); }
    };

    const Members& membersOf(const tovera_class& described);

    const Context context_;
    std::unique_ptr<tovera_host, FreeHost> host_;
    std::mutex inUse_;
    std::map<const tovera_class*, Members> members_;
};

}  // namespace tovera::office
