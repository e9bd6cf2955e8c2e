#pragma once

#include "geometry/cls_math.h"

namespace tovera {

template <>
struct ClassTable<Cls_Math> {
    static constexpr std::string_view name = "Cls_Math";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&Cls_Math::MesurePrincipale>("MesurePrincipale", "Renvoie la mesure principale d'un angle.",
                                            "Angle"),
        method<&Cls_Math::Hypothenuse>("Hypothenuse", "Calcul l'hypothenuse d'un triangle rectangle.", "X1",
                                       "Y1", "X2", "Y2"),
        method<&Cls_Math::InverseCosinus>("InverseCosinus", "Calcul l'inverse d'un cosinus.", "x"),
        method<&Cls_Math::InverseSinus>("InverseSinus", "Calcul l'inverse d'un sinus.", "x"),
        method<&Cls_Math::AngleTrigo>(
            "AngleTrigo",
            "Calcul un angle en radian entre une droite définie par 'deux points (X, Y),(Cx, Cy) et une "
            "horizontale passant par (Cx, Cy).\r\n"
            "La mesure de cette angle est calculée par rapport au sens trigonométrique\r\n"
            "direct (sens inverse des aiguilles d'une montre). Il ",
            "x", "y", "cx", "cy"),
    };
};

}  // namespace tovera
