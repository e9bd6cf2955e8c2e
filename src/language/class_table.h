#pragma once

#include "language/cls_traduction.h"

namespace tovera {

template <>
struct ClassTable<Cls_Traduction> {
    static constexpr std::string_view name = "Cls_Traduction";
    static constexpr std::string_view help =
        "Sauvegarde et chargement des paramètres de la langue dans un fichier";
    static constexpr std::tuple members{
        method<&Cls_Traduction::Sauver_LangueFeuille>(
            "Sauver_LangueFeuille",
            "Sauvegarde tous les paramètres de la feuille dans un fichier (Possibilité de spécifier "
            "Rep\\Fichier)",
            "NomForme", "Fichier"),
        method<&Cls_Traduction::Charger_LangueFeuille>(
            "Charger_LangueFeuille",
            "Charge tous les paramètres d'un fichier dans une feuille (Possibilité de spécifier "
            "Rep\\Fichier)",
            "NomForme", "Fichier"),
        method<&Cls_Traduction::Sauver_TousLesMessages>(
            "Sauver_TousLesMessages",
            "Sauve tous les messages depuis un tableau vers un fichier spécifié. (Rep\\Fichier)",
            "tabMessage", "Fichier"),
        method<&Cls_Traduction::Charger_LeMessage>(
            "Charger_LeMessage", "Renvoie un message si l'on spécifie le fichier, et le numéro du message.",
            "Fichier", "NumeroMsg"),
        method<&Cls_Traduction::Charger_TousLesMessages>(
            "Charger_TousLesMessages",
            "Renvoie un tableau contenant tous les message si l'on spécifie le fichier.", "Fichier",
            "tabMessage"),
    };
};

}  // namespace tovera
