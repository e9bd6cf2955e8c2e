#pragma once

#include <chrono>
#include <string>
#include <utility>

#include "platform/linux/shell/message_bus.h"

namespace tovera {

/// A dialog that the desktop's portal shows. It is asked for on a connection of its own, since the portal
/// closes the dialog when its asker leaves the bus.
class PortalDialog {
  public:
    PortalDialog();
    PortalDialog(const PortalDialog&) = delete;
    PortalDialog& operator=(const PortalDialog&) = delete;
    ~PortalDialog();

    /// The option by which the answer is told from others; it goes with those of the call.
    static std::pair<std::string, GVariant*> ownOption();
    /// Calls a method of the portal. Whether it has taken the call.
    bool ask(const char* interface, const char* method, GVariant* arguments, GUnixFDList* files = nullptr);

    /// Gone: the portal or the bus has ended, so that no answer will come.
    enum class State { Open, Answered, Gone };
    /// How things stand. Takes what has come meanwhile.
    State look();
    /// What the user has chosen, by its name; nothing for a cancelled dialog.
    GioOwned<GVariant> result(const char* name, const char* type) const;

  private:
    static void answered(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                         GVariant* parameters, gpointer self);
    static void ownerChanged(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*,
                             GVariant* parameters, gpointer self);

    GMainContext* context_ = nullptr;
    MessageBus bus_;
    GioOwned<GVariant> results_;
    State state_ = State::Gone;
};

}  // namespace tovera
