#pragma once

#include "frame/services.h"

namespace tovera {

/// The services of this home, on the system's own.
class WindowsServices : public Services {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;
    R8 launch(const Bstr& commandLine, WindowStyle style) override;
    ObjectRef createObject(std::u16string_view progId) override;
    ComponentFacts facts() override;
    RegionalSettings regionalSettings() override;
    std::string toAnsi(std::u16string_view text) override;
    std::u16string fromAnsi(std::string_view bytes) override;
    void pumpMessages() override;
};

}  // namespace tovera
