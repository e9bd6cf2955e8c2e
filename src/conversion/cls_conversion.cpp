#include "conversion/cls_conversion.h"

#include "conversion/french_words.h"
#include "frame/checked.h"
#include "platform/oem_text.h"

namespace tovera {
namespace {

bool isKept(char16_t c, std::size_t place) {
    const bool digit = c >= u'0' && c <= u'9';
    return digit || c == u',' || c == u'.' || (c == u'-' && place == 0);
}

}  // namespace

Bstr Cls_Conversion::Ctrl_SaiseNombre(const Bstr& strSaisie) {
    std::u16string text(strSaisie.view());
    std::erase(text, u' ');
    const auto length = narrow<I2>(text.size());
    for (I2 i = 0; i < length; ++i) {
        const auto place = static_cast<std::size_t>(i);
        if (isKept(text[place], place)) continue;
        platform_.services.messageBox(
            u"Vous ne pouvez saisir que des chiffres, si vous voulez que la conversion fonctionne.",
            messageFlags::information, u"Erreur");
        return {};
    }
    return text;
}

Bstr Cls_Conversion::ConvertirNombreEnLettre(const R8& strNbSaisi, const VariantBool& Montant) {
    if (!Montant.isExactlyTrue()) return frenchWords(strNbSaisi, nullptr);
    const CurrencyLabels labels{intituleMonnaie_, intitulePetiteMonnaie_};
    return frenchWords(strNbSaisi, &labels);
}

I2 Cls_Conversion::ConvertirOemAnsi(Bstr& string1, Bstr& string2) {
    return narrow<I2>(platform_.call(&OemText::OemToCharA, string1, string2));
}

}  // namespace tovera
