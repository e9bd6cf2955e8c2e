#include "database/cls_sql.h"

#include <algorithm>
#include <utility>

#include "database/data_source.h"
#include "frame/file_system.h"
#include "platform/odbc32.h"

namespace tovera {
namespace {

using namespace odbc;

constexpr const char16_t* noDriver = u"MDAC non installé.";

/// A text buffer together with the length that the platform reports for it.
template <std::size_t Size>
struct Reported {
    FixedText<Size> text;
    I2 length = 0;

    std::u16string_view view() const {
        return left(text.view(), static_cast<std::size_t>(std::max(length, I2{0})));
    }
};

/// What stands in the way of a new source, by the list of those that there are; empty for nothing.
Bstr findAmongSources(const Platform& platform, I4 environment, std::u16string_view name) {
    Bstr result = noDriver;
    if (platform.call(&Odbc32::SQLSetEnvAttr, environment, SQL_ATTR_ODBC_VERSION, SQL_OV_ODBC3,
                      SQL_IS_INTEGER) != SQL_SUCCESS) {
        return result;
    }
    while (true) {
        Reported<32> source;
        Reported<128> description;
        const auto status = platform.call(&Odbc32::SQLDataSources, environment, SQL_FETCH_NEXT, source.text,
                                          source.length, description.text, description.length);
        if (status != SQL_SUCCESS) return result;
        if (source.view() == name) return u"Lien ODBC déjà existant.";
        if (description.view() == u"Microsoft Access Driver (*.mdb)") result = u"";
    }
}

}  // namespace

Bstr Cls_SQL::RepAPOS(const Bstr& Chaine) {
    std::u16string result;
    for (const auto c : Chaine.view()) result.append(c == u'\'' ? 2 : 1, c);
    return result;
}

/// Empty when the name is free and some data source uses the Access driver, else what is in the way.
Bstr Cls_SQL::VerifierLienODBC(const Bstr& lien) {
    I4 environment = 0;
    if (platform_.call(&Odbc32::SQLAllocHandle, SQL_HANDLE_ENV, 0, environment) != SQL_SUCCESS)
        return noDriver;
    Bstr result;
    try {
        result = findAmongSources(platform_, environment, lien);
    } catch (...) {
        platform_.call(&Odbc32::SQLFreeHandle, SQL_HANDLE_ENV, environment);
        throw;
    }
    platform_.call(&Odbc32::SQLFreeHandle, SQL_HANDLE_ENV, environment);
    return result;
}

Variant Cls_SQL::Creer_ODBC_Access(Bstr& DBFichier, Bstr& LienODBC) {
    if (!FileSystem(platform_.services).fileExists(DBFichier)) return u"Fichier inexistant.";
    auto result = VerifierLienODBC(LienODBC);
    if (!result.empty()) return result;
    if (!platform_.call(&Odbc32::canKeepSource, std::as_const(LienODBC), std::as_const(DBFichier)))
        return noDriver;
    DataSource(platform_, DBFichier, LienODBC).declare();
    return u"Creation OK";
}

}  // namespace tovera
