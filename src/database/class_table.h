#pragma once

#include "database/cls_sql.h"

namespace tovera {

template <>
struct ClassTable<Cls_SQL> {
    static constexpr std::string_view name = "Cls_SQL";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        method<&Cls_SQL::RepAPOS>("RepAPOS", "", "Chaine"),
        method<&Cls_SQL::Creer_ODBC_Access>(
            "Creer_ODBC_Access",
            "Créer une chaine ODBC Access en vérifiant la présence de doublon, et du MDAC.", "DBFichier",
            "LienODBC"),
    };
};

}  // namespace tovera
