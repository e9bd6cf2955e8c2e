#pragma once

#include "conversion/cls_conversion.h"

namespace tovera {

template <>
struct ClassTable<Cls_Conversion> {
    static constexpr std::string_view name = "Cls_Conversion";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        propertyRead<&Cls_Conversion::IntituleMonnaie>("IntituleMonnaie"),
        propertyWrite<&Cls_Conversion::setIntituleMonnaie>("IntituleMonnaie", "strIntituleMonnaie"),
        propertyRead<&Cls_Conversion::IntitulePetiteMonnaie>("IntitulePetiteMonnaie"),
        propertyWrite<&Cls_Conversion::setIntitulePetiteMonnaie>("IntitulePetiteMonnaie",
                                                                 "strIntitulePetiteMonnaie"),
        method<&Cls_Conversion::Ctrl_SaiseNombre>(
            "Ctrl_SaiseNombre", "Supprime les espaces, et renvoie uniquement le nombre.", "strSaisie"),
        method<&Cls_Conversion::ConvertirNombreEnLettre>(
            "ConvertirNombreEnLettre",
            "Renvoie un nombre en lettres. (Si vous spécifiez un montant à Vrai, alors il faut remplir les "
            "propriétés IntituleMonnaie et IntitulePetiteMonnaie).",
            "strNbSaisi", "Montant"),
        method<&Cls_Conversion::ConvertirOemAnsi>("ConvertirOemAnsi", "", "string1", "string2"),
    };
};

}  // namespace tovera
