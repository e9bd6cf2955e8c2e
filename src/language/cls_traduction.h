#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// The translatable texts of forms, and a table of messages, in profile files: one file per language.
class Cls_Traduction {
  public:
    explicit Cls_Traduction(Platform& platform = home()) : platform_(platform) {}

    /// Writes the texts of the form and of its controls. Whatever fails on the way is passed over. The result
    /// is a text: empty, or a message when the file's folder is missing by more than one level.
    Variant Sauver_LangueFeuille(const ObjectRef& NomForme, Bstr& Fichier);

    /// Assigns to the form and its controls the texts of the file, and their own where it has none, cut at
    /// 254 characters and without trailing blanks. The result is a text: empty, or a message when the file is
    /// missing. Error 429 when files can't be asked for.
    Variant Charger_LangueFeuille(const ObjectRef& NomForme, Bstr& Fichier);

    /// Writes the elements from 1 to the upper bound, with their numbers; whatever fails is passed over.
    void Sauver_TousLesMessages(StringArray& tabMessage, Bstr& Fichier);

    /// The message with this number, empty when there is none.
    Bstr Charger_LeMessage(Bstr Fichier, const I2& NumeroMsg);

    /// Fills the array from element 1 up to the first number without a message, which gets an element too.
    /// Error 6 above 32767 messages, 10 on an array of fixed size.
    void Charger_TousLesMessages(Bstr Fichier, StringArray& tabMessage);

  private:
    Platform& platform_;
};

}  // namespace tovera
