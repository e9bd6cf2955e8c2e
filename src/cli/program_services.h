#pragma once

#include <iosfwd>

#include "frame/services.h"

namespace tovera::cli {

/// The services of the home, with message boxes as lines on standard error.
class ProgramServices : public Services {
  public:
    ProgramServices(Services& home, std::istream& in, std::ostream& out, std::ostream& err)
        : home_(home), in_(in), out_(out), err_(err) {}

    using Services::messageBox;
    /// Waits for Enter on a terminal only.
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;

    R8 launch(const Bstr& commandLine, WindowStyle style) override {
        return home_.launch(commandLine, style);
    }
    ObjectRef createObject(std::u16string_view progId) override { return home_.createObject(progId); }
    ComponentFacts facts() override { return home_.facts(); }
    RegionalSettings regionalSettings() override { return home_.regionalSettings(); }
    std::string toAnsi(std::u16string_view text) override { return home_.toAnsi(text); }
    std::u16string fromAnsi(std::string_view bytes) override { return home_.fromAnsi(bytes); }
    void pumpMessages() override { home_.pumpMessages(); }

  private:
    Services& home_;
    std::istream& in_;
    std::ostream& out_;
    std::ostream& err_;
};

}  // namespace tovera::cli
