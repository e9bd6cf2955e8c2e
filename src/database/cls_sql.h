#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// Apostrophes in SQL text, and the declaration of an Access file as an ODBC data source of the user.
class Cls_SQL {
  public:
    explicit Cls_SQL(Platform& platform = home()) : platform_(platform) {}

    /// The text with each apostrophe doubled, for a quoted literal.
    Bstr RepAPOS(const Bstr& Chaine);

    /// Declares a database file under a new name. The result is a message: "Creation OK" says that all was
    /// tried, the others why nothing was. "MDAC non installé." is the answer too for a name or a file that
    /// ODBC of this home can't keep, which standard error then tells.
    Variant Creer_ODBC_Access(Bstr& DBFichier, Bstr& LienODBC);

  private:
    Bstr VerifierLienODBC(const Bstr& lien);

    Platform& platform_;
};

}  // namespace tovera
