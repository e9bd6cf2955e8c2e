#pragma once

#include <string>
#include <vector>

#include "platform/linux/shell/gio_library.h"

namespace tovera {

// Values of messages, for a tuple of arguments.
GVariant* busText(const std::string& text);
GVariant* busTruth(bool value);
GVariant* busTuple(const std::vector<GVariant*>& values);
/// An array of names with values of any type.
GVariant* busOptions(const std::vector<std::pair<std::string, GVariant*>>& options);

/// A private connection to one of the buses, as its address in the environment says. It is closed with its
/// last use; nothing of the host's own connection is touched.
class MessageBus {
  public:
    explicit MessageBus(GBusType type);

    explicit operator bool() const { return connection_ != nullptr; }
    GDBusConnection* connection() const { return connection_.get(); }

    /// Calls a method of an object of the service `name`, whose interface bears the same name unless another
    /// is given. Nothing when the call fails. Waits so many milliseconds for the answer, -1 as long as is
    /// usual.
    GioOwned<GVariant> call(const std::string& name, const std::string& path, const std::string& interface,
                            const std::string& method, GVariant* arguments, int milliseconds = -1) const;
    /// Whether a service of this name is there.
    bool hasService(const std::string& name) const;
    /// A property of an object; nothing when it can't be read.
    GioOwned<GVariant> property(const std::string& name, const std::string& path,
                                const std::string& interface, const std::string& property) const;

  private:
    GioOwned<GDBusConnection> connection_;
};

}  // namespace tovera
