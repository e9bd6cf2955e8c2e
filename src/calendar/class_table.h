#pragma once

#include "calendar/cls_date.h"

namespace tovera {

template <>
struct ClassTable<Cls_Date> {
    static constexpr std::string_view name = "Cls_Date";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&Cls_Date::Paques>(
            "Paques", "Calcul la date de Paques en fonction de l'année spécifié en paramètre.", "Annee"),
        method<&Cls_Date::DateFRtoUS>(
            "DateFRtoUS", "Convertit une date FR (jj/mm/aaaa) en date US (mm/jj/aaaa)", "strDateFR"),
        method<&Cls_Date::DateUStoFR>(
            "DateUStoFR", "Convertit une date US (mm/jj/aaaa) en date FR (jj/mm/aaaa) ", "strDateUS"),
        method<&Cls_Date::SecondeEnHeure>(
            "SecondeEnHeure", "Permet de  Convertir une valeur en seconde au format HH:MM:SS", "Seconde"),
        method<&Cls_Date::HeureEnSeconde>("HeureEnSeconde",
                                          "Conversion d 'une date format HH:MM:SS en seconde", "Heure"),
        method<&Cls_Date::Chrono>("Chrono", "Calcul le délai entre 2 intervalles.", "DepartSec",
                                  "ArriveeSec"),
        method<&Cls_Date::NBJoursOuvrablesParMois>("NBJoursOuvrablesParMois",
                                                   "Calcul le nombre de jours ouvrables dans 1 mois",
                                                   "intAnnee", "intMois"),
        method<&Cls_Date::NBJoursOuvrables>(
            "NBJoursOuvrables", "Calcul le nombre de jours ouvrables entre 2 dates.", "DateDebut", "DateFin"),
    };
};

}  // namespace tovera
