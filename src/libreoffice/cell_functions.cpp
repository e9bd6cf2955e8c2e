#include "libreoffice/cell_functions.h"

#include <chrono>
#include <com/sun/star/lang/IllegalArgumentException.hpp>
#include <com/sun/star/lang/XServiceInfo.hpp>
#include <com/sun/star/lang/XServiceName.hpp>
#include <com/sun/star/util/Date.hpp>
#include <cppuhelper/implbase3.hxx>
#include <tovera/XCellFunctions.hpp>

#include "libreoffice/cell_ranges.h"
#include "libreoffice/failures.h"
#include "libreoffice/values.h"

namespace tovera::office {
namespace {

using css::beans::XPropertySet;
using Document = Reference<XPropertySet>;
using Values = std::vector<Any>;

/// No object crosses in the functions of cells.
struct NoObjects final : Objects {
    Handle toComponent(const Reference<XInterface>&) override { raise(Number::TypeMismatch); }
    Reference<XInterface> toOffice(tovera_object*) override { return {}; }
};

/// A new object of a class: an object belongs to one thread, and a sheet is calculated by any.
class Component {
  public:
    explicit Component(const char* name) {
        Failure failure;
        object_ = Handle(tovera_create(nullptr, name, &failure));
        if (!object_) raise(failure);
    }

    Any call(const char* member, const Values& arguments, unsigned flags = TOVERA_METHOD) {
        std::vector<std::unique_ptr<Given>> given;
        std::vector<tovera_value> values;
        for (const auto& argument : arguments)
            values.push_back(given.emplace_back(std::make_unique<Given>(objects_, argument))->value());
        Value result;
        Failure failure;
        if (tovera_call(object_.get(), member, flags, values.data(), values.size(), &result, &failure) != 0)
            raise(failure);
        return toOffice(objects_, result);
    }

  private:
    NoObjects objects_;
    Handle object_;
};

/// How many days after the component's first day those of a document begin to count.
double firstDayOf(const Document& document) {
    css::util::Date first;
    if (!document.is() || !(document->getPropertyValue("NullDate") >>= first)) return 0;
    using namespace std::chrono;
    constexpr auto origin = sys_days(year(1899) / December / 30);
    return static_cast<double>(
        (sys_days(year(first.Year) / month(first.Month) / day(first.Day)) - origin).count());
}

/// An argument that a cell has to give: Err:502 without it.
const Any& required(const Any& argument) {
    if (!argument.hasValue()) throw css::lang::IllegalArgumentException();
    return argument;
}

Any movedBy(double days, const Any& date) {
    double number = 0;
    return (date >>= number) ? Any(number + days) : date;
}

class CellFunctions final
    : public cppu::WeakImplHelper3<XCellFunctions, css::lang::XServiceInfo, css::lang::XServiceName> {
  public:
    Any SAL_CALL nombreEnLettres(const Any& nombre) override {
        return forEachCell({required(nombre)}, [](const Values& cell) {
            return Component("Cls_Conversion").call("ConvertirNombreEnLettre", {cell[0], Any(false)});
        });
    }

    Any SAL_CALL montantEnLettres(const Any& montant, const Any& monnaie, const Any& petiteMonnaie) override {
        const auto unit = monnaie.hasValue() ? monnaie : Any(OUString("euro"));
        const auto hundredth = petiteMonnaie.hasValue() ? petiteMonnaie : Any(OUString("centime"));
        return forEachCell({required(montant), unit, hundredth}, [](const Values& cell) {
            Component conversion("Cls_Conversion");
            conversion.call("IntituleMonnaie", {cell[1]}, TOVERA_WRITE);
            conversion.call("IntitulePetiteMonnaie", {cell[2]}, TOVERA_WRITE);
            return conversion.call("ConvertirNombreEnLettre", {cell[0], Any(true)});
        });
    }

    Any SAL_CALL paques(const Document& document, const Any& annee) override {
        const auto first = firstDayOf(document);
        return forEachCell({required(annee)}, [=](const Values& cell) {
            return movedBy(-first, Component("Cls_Date").call("Paques", cell));
        });
    }

    Any SAL_CALL joursOuvrables(const Document& document, const Any& debut, const Any& fin) override {
        const auto first = firstDayOf(document);
        return forEachCell({required(debut), required(fin)}, [=](const Values& cell) {
            return Component("Cls_Date")
                .call("NBJoursOuvrables", {movedBy(first, cell[0]), movedBy(first, cell[1])});
        });
    }

    Any SAL_CALL joursOuvrablesDuMois(const Any& annee, const Any& mois) override {
        return ofDates("NBJoursOuvrablesParMois", {required(annee), required(mois)});
    }
    Any SAL_CALL secondesEnHeure(const Any& secondes) override {
        return ofDates("SecondeEnHeure", {required(secondes)});
    }
    Any SAL_CALL heureEnSecondes(const Any& heure) override {
        return ofDates("HeureEnSeconde", {required(heure)});
    }
    Any SAL_CALL chrono(const Any& depart, const Any& arrivee) override {
        return ofDates("Chrono", {required(depart), required(arrivee)});
    }

    OUString SAL_CALL getServiceName() override { return fromUtf8(cellFunctionsName); }
    OUString SAL_CALL getImplementationName() override { return fromUtf8(cellFunctionsName); }
    sal_Bool SAL_CALL supportsService(const OUString& name) override {
        return name == getServiceName() || name == "com.sun.star.sheet.AddIn";
    }
    Sequence<OUString> SAL_CALL getSupportedServiceNames() override {
        return listOf(getServiceName(), OUString("com.sun.star.sheet.AddIn"));
    }

  private:
    static Any ofDates(const char* member, const Values& arguments) {
        return forEachCell(arguments,
                           [=](const Values& cell) { return Component("Cls_Date").call(member, cell); });
    }
};

}  // namespace

Reference<XInterface> makeCellFunctions() {
    return static_cast<cppu::OWeakObject*>(new CellFunctions);
}

}  // namespace tovera::office
