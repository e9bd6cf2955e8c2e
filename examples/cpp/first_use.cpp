// A first use of the library from C++: a class directly, and by name as a host calls it.

#include <iostream>
#include <tovera/tovera.hpp>

int main() {
    tovera::Cls_Conversion conversion;
    conversion.setIntituleMonnaie(u"euro");
    std::cout << conversion.ConvertirNombreEnLettre(71, tovera::True) << '\n';

    const auto date = tovera::createComponent("KADRELDLL.Cls_Date");
    std::cout << *date.call(u"Chrono", 10, 20).as<tovera::I4>() << '\n';

    // A variable by reference takes what the member makes of it: here OEM text becomes ANSI text.
    tovera::Bstr oem = u"\u201At\u201A";
    tovera::Bstr ansi = u"...";
    tovera::createComponent("KADRELDLL.Cls_Conversion")
        .call(u"ConvertirOemAnsi", tovera::byReference(oem), tovera::byReference(ansi));
    std::cout << ansi << '\n';

    try {
        date.call(u"DateFRtoUS", true, std::u16string(u"one too many"));
    } catch (const tovera::AutomationError& error) {
        std::cout << error.number() << ": " << error.description() << '\n';
    }
}
