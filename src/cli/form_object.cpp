#include "cli/form_object.h"

#include <array>
#include <charconv>

#include "cli/form_classes.h"
#include "frame/checked.h"
#include "frame/conversions.h"

namespace tovera::cli {
namespace {

constexpr std::array<std::string_view, 3> texts{"Caption", "Text", "ToolTipText"};

// Member identifiers: the name, the three texts, then the other properties in file order.
constexpr MemberId nameId = defaultMember + 1;
constexpr MemberId firstTextId = nameId + 1;
constexpr MemberId firstPropertyId = firstTextId + static_cast<MemberId>(texts.size());

/// {FCFB3D25-A0FA-1068-A738-08002B3371B5}, the interface that every control of a form has.
constexpr InterfaceId controlInterface{
    0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};

/// `&H8000000F&` as the 32 bits that it stands for, other numbers as the smallest type that holds them.
Variant numberOf(std::string_view digits) {
    const auto* const end = digits.data() + digits.size();
    if (digits.starts_with('&')) {
        std::uint32_t bits = 0;
        std::from_chars(digits.data() + 2, end, bits, 16);
        return static_cast<I4>(bits);
    }
    I4 whole = 0;
    if (const auto [stop, error] = std::from_chars(digits.data(), end, whole);
        error == std::errc{} && stop == end) {
        if (std::in_range<I2>(whole)) return static_cast<I2>(whole);
        return whole;
    }
    R8 number = 0;
    std::from_chars(digits.data(), end, number);
    return number;
}

/// What a form and its controls have in common: members that are found in a block of the file.
class FormItem : public Counted<> {
  public:
    FormItem(std::shared_ptr<FormDocument> document, std::size_t index)
        : document_(std::move(document)), index_(index) {}

    std::optional<MemberId> memberNamed(std::u16string_view name) override {
        const auto ansiName = document_->services().toAnsi(name);
        if (sameName(ansiName, "name")) return nameId;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (sameName(ansiName, texts[i])) return textId(i);
        }
        const auto* const property = findProperty(block(), ansiName);
        if (!property || property->written == Written::Other) return {};
        return firstPropertyId + static_cast<MemberId>(property - block().properties.data());
    }

    ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                      ErrorRecord& failure) noexcept override {
        try {
            if (arguments.empty() && allows(kind, CallKind::Read)) {
                result = read(member);
            } else if (arguments.size() == 1 && allows(kind, CallKind::Write)) {
                write(member, arguments[0]);
            } else {
                raise(ErrorNumber::WrongArgumentCount);
            }
        } catch (...) {
            failure = recordOfCurrentException();
        }
        return failure.code;
    }

  protected:
    const std::shared_ptr<FormDocument>& document() const { return document_; }

  private:
    const FormBlock& block() const { return document_->file().blocks[index_]; }

    std::optional<MemberId> textId(std::size_t text) const {
        if (accessTo(document_->file(), block(), texts[text]) == TextAccess::None) return {};
        return firstTextId + static_cast<MemberId>(text);
    }

    static bool isText(MemberId member) { return member >= firstTextId && member < firstPropertyId; }
    static std::string_view textOf(MemberId member) {
        return texts[static_cast<std::size_t>(member - firstTextId)];
    }

    Variant read(MemberId member) const {
        if (member == nameId) return Bstr(document_->services().fromAnsi(block().name));
        if (isText(member)) return document_->text(index_, textOf(member));
        const auto& property = block().properties.at(static_cast<std::size_t>(member - firstPropertyId));
        if (property.written == Written::Number) return numberOf(property.text);
        return Bstr(document_->services().fromAnsi(property.text));
    }

    void write(MemberId member, const Variant& value) {
        if (!isText(member)) raise(ErrorNumber::NoSuchMember);
        document_->setText(index_, textOf(member), Conversions(document_->services()).to<Bstr>(value));
    }

    std::shared_ptr<FormDocument> document_;
    std::size_t index_;
};

class ControlObject final : public FormItem {
  public:
    using FormItem::FormItem;
    ObjectRef query(const InterfaceId& interface) override {
        if (interface != controlInterface) raise(ErrorNumber::NoSuchInterface);
        return ObjectRef(this);
    }
};

class Controls final : public Enumerator {
  public:
    explicit Controls(std::shared_ptr<FormDocument> document) : document_(std::move(document)) {}

    std::optional<Variant> next() override {
        if (next_ == document_->file().blocks.size()) return {};
        return makeObject<ControlObject>(document_, next_++);
    }

  private:
    std::shared_ptr<FormDocument> document_;
    std::size_t next_ = 1;
};

class FormObject final : public FormItem {
  public:
    explicit FormObject(std::shared_ptr<FormDocument> document) : FormItem(std::move(document), 0) {}
    std::unique_ptr<Enumerator> elements() override { return std::make_unique<Controls>(document()); }
};

}  // namespace

ObjectRef formObject(std::shared_ptr<FormDocument> document) {
    return makeObject<FormObject>(std::move(document));
}

}  // namespace tovera::cli
