#pragma once

#include <iosfwd>

#include "frame/forwarded_services.h"

namespace tovera::cli {

/// The services of the home, with message boxes as lines on standard error.
class ProgramServices : public ForwardedServices {
  public:
    ProgramServices(Services& home, std::istream& in, std::ostream& out, std::ostream& err)
        : ForwardedServices(home), in_(in), out_(out), err_(err) {}

    using Services::messageBox;
    /// Waits for Enter on a terminal only.
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;

  private:
    std::istream& in_;
    std::ostream& out_;
    std::ostream& err_;
};

}  // namespace tovera::cli
