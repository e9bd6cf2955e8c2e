#pragma once

#include "frame/services.h"

namespace tovera {

/// The services of a home, for a host that has some of them itself.
class ForwardedServices : public Services {
  public:
    explicit ForwardedServices(Services& home) : home_(home) {}

    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override {
        return home_.messageBox(text, flags, title);
    }
    R8 launch(const Bstr& commandLine, WindowStyle style) override {
        return home_.launch(commandLine, style);
    }
    ObjectRef createObject(std::u16string_view progId) override { return home_.createObject(progId); }
    ComponentFacts facts() override { return home_.facts(); }
    ScreenFacts screen() override { return home_.screen(); }
    RegionalSettings regionalSettings() override { return home_.regionalSettings(); }
    std::string toAnsi(std::u16string_view text) override { return home_.toAnsi(text); }
    std::u16string fromAnsi(std::string_view bytes) override { return home_.fromAnsi(bytes); }
    void pumpMessages() override { home_.pumpMessages(); }

  private:
    Services& home_;
};

}  // namespace tovera
