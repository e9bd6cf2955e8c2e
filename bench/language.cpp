#include <filesystem>
#include <memory>

#include "bench.h"
#include "language/cls_traduction.h"
#include "platform/profiles.h"

using namespace tovera;

namespace bench {
namespace {

constexpr std::size_t controlCount = 1000;

/// A form of labels, as plain as an object can be.
class Label final : public Counted<> {
  public:
    Label(Bstr name, std::vector<ObjectRef> controls)
        : name_(std::move(name)), controls_(std::move(controls)) {}

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        if (name == u"name") return 0;
        if (name == u"Caption") return 1;
        return {};
    }
    ReturnCode invoke(MemberId member, CallKind, std::span<Variant>, Variant& result,
                      ErrorRecord&) noexcept override {
        result = member == 0 ? name_ : Bstr(u"Un libellé");
        return ReturnCode::Success;
    }
    std::unique_ptr<Enumerator> elements() override { return std::make_unique<Walk>(controls_); }
    ObjectRef query(const InterfaceId&) override { return ObjectRef(this); }

  private:
    struct Walk final : Enumerator {
        explicit Walk(const std::vector<ObjectRef>& walked) : controls(walked) {}
        std::optional<Variant> next() override {
            if (at == controls.size()) return {};
            return controls[at++];
        }
        const std::vector<ObjectRef>& controls;
        std::size_t at = 0;
    };

    Bstr name_;
    std::vector<ObjectRef> controls_;
};

Bstr nameOf(std::size_t control) {
    const auto digits = std::to_string(control);
    return join(u"Libelle", std::u16string(digits.begin(), digits.end()));
}

ObjectRef formOfLabels() {
    std::vector<ObjectRef> controls;
    for (std::size_t i = 0; i < controlCount; ++i)
        controls.push_back(makeObject<Label>(nameOf(i), std::vector<ObjectRef>{}));
    return makeObject<Label>(u"Principal", std::move(controls));
}

std::string fileIn(const std::filesystem::path& folder, const char* name) {
    return (folder / name).string();
}

/// The same entries, each written by a call of its own.
void writeEach(const std::string& file) {
    auto& profiles = homeProfiles();
    const auto write = [&](const std::string& key, const char* value) {
        profiles.WritePrivateProfileStringA({"Principal"}, {key + ".Caption"}, {value}, {file});
    };
    write("Principal", "Un libell\xE9");
    for (std::size_t i = 0; i < controlCount; ++i) write("Libelle" + std::to_string(i), "Un libell\xE9");
}

std::uintmax_t sizeOf(const std::string& file) {
    return std::filesystem::file_size(file);
}

/// In memory where the system has a folder for that: a disk takes a hundred times as long, and would hide
/// what the walk over the form costs.
std::filesystem::path folderInMemory() {
    const std::filesystem::path shared = "/dev/shm";
    return std::filesystem::is_directory(shared) ? shared : std::filesystem::temp_directory_path();
}

/// A new file each time, so that both write their thousand entries in earnest.
const Group language([] {
    const auto folder = folderInMemory() / "tovera_bench";
    std::filesystem::create_directories(folder);
    const auto saved = fileIn(folder, "form.lng");
    const auto batch = fileIn(folder, "batch.lng");
    const auto save = [=, form = formOfLabels()] {
        std::filesystem::remove(saved);
        Bstr file(std::filesystem::path(saved).u16string());
        return Cls_Traduction().Sauver_LangueFeuille(form, file);
    };
    const auto write = [=] {
        std::filesystem::remove(batch);
        writeEach(batch);
        return 0;
    };
    save();
    write();
    requireSame(sizeOf(saved) == sizeOf(batch), "language file of 1,000 labels");
    return std::vector<Row>{
        {"saving a form of 1,000 labels", loopOf(save), {"1,000 profile writes", loopOf(write)}}};
});

}  // namespace
}  // namespace bench
