#pragma once

#include "input/cls_sourisclv.h"

namespace tovera {

template <>
struct ClassTable<Cls_SourisClv> {
    using C = Cls_SourisClv;
    static constexpr std::string_view name = "Cls_SourisClv";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&C::SourisAfficher>("SourisAfficher", ""),
        method<&C::SourisMasquer>("SourisMasquer", ""),
        method<&C::SourisPositionner>("SourisPositionner", "", "x", "y"),
        method<&C::SourisBoutonInverser>("SourisBoutonInverser", ""),
        method<&C::SourisBoutonOrigine>("SourisBoutonOrigine", ""),
        method<&C::SourisNbsBouton>("SourisNbsBouton", ""),
        method<&C::SourisDelaiDoubleClique>("SourisDelaiDoubleClique", ""),
        method<&C::SourisPosition>("SourisPosition", "", "x", "y"),
        method<&C::LireEtat_Shift>("LireEtat_Shift", "Renvoie Vrai si la touche Shift est activé."),
        method<&C::LireEtat_NumLock>("LireEtat_NumLock",
                                     "Renvoie Vrai si la touche de verouillage numéroque est activé."),
        method<&C::ChangerEtat_Touche>("ChangerEtat_Touche", "Change l'état de la touche spécifié.",
                                       "lngVBKey"),
    };
};

}  // namespace tovera
