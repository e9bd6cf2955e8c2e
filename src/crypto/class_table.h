#pragma once

#include "crypto/cls_cryptage.h"

namespace tovera {

template <>
struct ClassTable<Cls_Cryptage> {
    using C = Cls_Cryptage;
    static constexpr std::string_view name = "Cls_Cryptage";
    static constexpr std::string_view help = "";
    static constexpr std::tuple members{
        propertyRead<&C::InBuffer>("InBuffer"),
        propertyWrite<&C::setInBuffer>("InBuffer", "strInBuffer"),
        propertyRead<&C::OutBuffer>("OutBuffer"),
        propertyRead<&C::Signature>("Signature"),
        propertyWrite<&C::setSignature>("Signature", "strSignature"),
        method<&C::Sign>("Sign", ""),
        method<&C::Validate>("Validate", ""),
        method<&C::Encrypt>("Encrypt", ""),
        method<&C::Decrypt>("Decrypt", ""),
        propertyRead<&C::Status>("Status"),
        propertyRead<&C::Password>("Password"),
        propertyWrite<&C::setPassword>("Password", "strPassword"),
    };
};

}  // namespace tovera
