#pragma once

#include "frame/checked.h"
#include "frame/component.h"

namespace tovera {

/// A class whose members have every shape that a class table can hold.
class Cls_Probe {
  public:
    explicit Cls_Probe(Services& services) : services_(services) { ++alive; }
    Cls_Probe(const Cls_Probe&) = delete;
    ~Cls_Probe() {
        --alive;
        titleOfLastGone = title_;
    }

    inline static int alive = 0;
    inline static Bstr titleOfLastGone;

    I2 Somme(I2 a, I2 b) { return checkedAdd(a, b); }
    Bstr Relier(const Bstr& first, Optional<Bstr> second, Optional<VariantBool> bare) {
        Bstr text = join(first, *second, std::u16string_view(*bare ? u"" : u"."));
        *second = u"seen";
        return text;
    }
    void Doubler(I4& number) { number = checkedMultiply(number, 2); }
    void Gater(I4& number) {
        number = 99;
        raise(ErrorNumber::PathNotFound);
    }
    void Remplacer(Variant& value, const Variant& other) { value = other; }
    void Allonger(StringArray& array) { array.redimPreserve(0, array.isDimensioned() ? 3 : 0); }
    void Libre(ObjectRef& object) { object = nullptr; }
    Bstr Montrer() {
        services_.pumpMessages();
        services_.messageBox(u"?");
        return title_;
    }

    Bstr Titre() const { return title_; }
    void setTitre(const Bstr& title) { title_ = title; }
    ObjectRef Voisin() const { return neighbour_; }
    void setVoisin(ObjectRef neighbour) { neighbour_ = std::move(neighbour); }

    void Echouer(I4 code) { throw AutomationError(static_cast<ReturnCode>(code), u"plein", u"Disque"); }

    /// Assigns its result and then fails.
    template <class T>
    void Perdre(const T& value, Result<T>& result) {
        result = value;
        raise(ErrorNumber::PathNotFound);
    }

  private:
    Services& services_;
    Bstr title_ = u"titre";
    ObjectRef neighbour_;
};

template <>
struct ClassTable<Cls_Probe> {
    static constexpr std::string_view name = "Cls_Probe";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&Cls_Probe::Somme>("Somme", "", "a", "b"),
        method<&Cls_Probe::Relier>("Relier", "", "first", "second", "bare"),
        propertyRead<&Cls_Probe::Titre>("Titre"),
        propertyWrite<&Cls_Probe::setTitre>("Titre", "title"),
        method<&Cls_Probe::Doubler>("Doubler", "", "number"),
        method<&Cls_Probe::Gater>("Gater", "", "number"),
        method<&Cls_Probe::Remplacer>("Remplacer", "", "value", "other"),
        method<&Cls_Probe::Allonger>("Allonger", "", "array"),
        method<&Cls_Probe::Libre>("Libre", "", "object"),
        method<&Cls_Probe::Montrer>("Montrer", ""),
        propertyRead<&Cls_Probe::Voisin>("Voisin"),
        propertyAssign<&Cls_Probe::setVoisin>("Voisin", "neighbour"),
        method<&Cls_Probe::Echouer>("Echouer", "", "code"),
        method<&Cls_Probe::Perdre<Date>>("PerdreDate", "", "value"),
        method<&Cls_Probe::Perdre<VariantBool>>("PerdreVerite", "", "value"),
        method<&Cls_Probe::Perdre<Bstr>>("PerdreTexte", "", "value"),
    };
};

}  // namespace tovera
