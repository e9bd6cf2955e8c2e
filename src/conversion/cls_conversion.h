#pragma once

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera {

/// Numbers and amounts of money in French words, cleaning of typed numbers, OEM text.
class Cls_Conversion {
  public:
    explicit Cls_Conversion(Platform& platform = home()) : platform_(platform) {}

    /// Name of the currency unit, in the singular.
    Bstr IntituleMonnaie() const { return intituleMonnaie_; }
    void setIntituleMonnaie(const Bstr& strIntituleMonnaie) { intituleMonnaie_ = strIntituleMonnaie; }
    /// Name of its hundredth part, in the singular.
    Bstr IntitulePetiteMonnaie() const { return intitulePetiteMonnaie_; }
    void setIntitulePetiteMonnaie(const Bstr& strIntitulePetiteMonnaie) {
        intitulePetiteMonnaie_ = strIntitulePetiteMonnaie;
    }

    /// The number without blanks when it holds digits, commas and points and at most a leading minus sign;
    /// else a message box and the empty text. Error 6 above 32767 characters.
    Bstr Ctrl_SaiseNombre(const Bstr& strSaisie);

    /// The words of a number, or with `Montant` exactly True of an amount with the two labels. Two decimal
    /// places count; hundredths that round to 100 raise error 9. The words are right below 1E+12.
    Bstr ConvertirNombreEnLettre(const R8& strNbSaisi, const VariantBool& Montant);

    /// Writes the OEM text string1 over the beginning of string2 as ANSI text, as far as string2 reaches.
    /// Nonzero on success.
    I2 ConvertirOemAnsi(Bstr& string1, Bstr& string2);

  private:
    Platform& platform_;
    Bstr intituleMonnaie_;
    Bstr intitulePetiteMonnaie_;
};

}  // namespace tovera
