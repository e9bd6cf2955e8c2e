#include "database/cls_sql.h"

#include <algorithm>

#include "database/data_source.h"

namespace tovera {
namespace {

using namespace odbc;

/// An environment of ODBC, given back at the end.
class Environment {
  public:
    explicit Environment(Odbc32& library)
        : library_(library), status_(library.SQLAllocHandle(SQL_HANDLE_ENV, 0, handle_)) {}
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        if (isOpen()) library_.SQLFreeHandle(SQL_HANDLE_ENV, handle_);
    }

    bool isOpen() const { return status_ == SQL_SUCCESS; }
    bool useVersion3() {
        return library_.SQLSetEnvAttr(handle_, SQL_ATTR_ODBC_VERSION, SQL_OV_ODBC3, SQL_IS_INTEGER) ==
               SQL_SUCCESS;
    }
    I4 handle() const { return handle_; }

  private:
    Odbc32& library_;
    I4 handle_ = 0;
    I4 status_;
};

/// A text buffer together with the length that the platform reports for it.
template <std::size_t Size>
struct Reported {
    FixedText<Size> text;
    I2 length = 0;

    std::u16string_view view() const {
        return left(text.view(), static_cast<std::size_t>(std::max(length, I2{0})));
    }
};

}  // namespace

Bstr Cls_SQL::RepAPOS(const Bstr& Chaine) {
    std::u16string result;
    for (const auto c : Chaine.view()) result.append(c == u'\'' ? 2 : 1, c);
    return result;
}

/// Empty when the name is free and some data source uses the Access driver, else what is in the way.
Bstr Cls_SQL::VerifierLienODBC(const Bstr& lien) {
    Bstr result = u"MDAC non installé.";
    auto& library = platform_.odbc32;
    Environment environment(library);
    if (!environment.isOpen() || !environment.useVersion3()) return result;
    while (true) {
        Reported<32> name;
        Reported<128> description;
        const auto next = [&](AnsiText& nameText, AnsiText& descriptionText) {
            return library.SQLDataSources(environment.handle(), SQL_FETCH_NEXT, nameText, name.length,
                                          descriptionText, description.length);
        };
        const auto status =
            StringCrossing(platform_.services).call(next, name.text.buffer(), description.text.buffer());
        if (status != SQL_SUCCESS) return result;
        if (name.view() == lien.view()) return u"Lien ODBC déjà existant.";
        if (description.view() == u"Microsoft Access Driver (*.mdb)") result = u"";
    }
}

Variant Cls_SQL::Creer_ODBC_Access(Bstr& DBFichier, Bstr& LienODBC) {
    const auto fileSystem = platform_.services.createObject(u"Scripting.FileSystemObject");
    const auto exists = callMember(fileSystem, u"FileExists", Reference(&DBFichier));
    if (!Conversions(platform_.services).to<VariantBool>(exists)) return u"Fichier inexistant.";
    auto result = VerifierLienODBC(LienODBC);
    if (!result.empty()) return result;
    DataSource(platform_, DBFichier, LienODBC).declare();
    return u"Creation OK";
}

}  // namespace tovera
