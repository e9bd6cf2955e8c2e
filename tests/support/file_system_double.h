#pragma once

#include <utility>

#include "support/test_platform.h"

namespace tovera::testing {

/// A file system object that knows one file and no folder. It answers in bits of its own, and changes the
/// path that it is asked for.
class FileSystemDouble : public Counted<> {
  public:
    explicit FileSystemDouble(Bstr file) : file_(std::move(file)) {}

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        if (name == u"FileExists") return 1;
        return name == u"FolderExists" ? std::optional<MemberId>(0) : std::nullopt;
    }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord&) noexcept override {
        auto& path = **std::get_if<Bstr*>(arguments[0].as<Reference>());
        result = VariantBool::ofBits(member == 1 && path == file_ ? I2{1} : I2{0});
        path = join(u"asked: ", path);
        return ReturnCode::Success;
    }

  private:
    Bstr file_;
};

}  // namespace tovera::testing
