// A first use of the component from C++: directly, and by name as a host does it.

#include <catalogue/catalogue.h>
#include <conversion/cls_conversion.h>
#include <frame/utf8.h>
#include <iostream>

int main() {
    tovera::Cls_Conversion conversion;
    conversion.setIntituleMonnaie(u"euro");
    const auto direct = conversion.ConvertirNombreEnLettre(71, tovera::True);

    const auto object = tovera::createComponent("KADRELDLL.Cls_Conversion");
    tovera::writeMember(object, u"IntituleMonnaie", u"euro");
    const auto byName = tovera::callMember(object, u"ConvertirNombreEnLettre", 71.0, tovera::True);

    std::cout << tovera::toUtf8(direct) << '\n';
    return byName == tovera::Variant(direct) ? 0 : 1;
}
