#include "frame/error.h"

#include <algorithm>
#include <array>
#include <new>

#include "frame/utf8.h"

namespace tovera {
namespace {

struct Description {
    ErrorNumber number;
    std::u16string_view text;
};

constexpr std::array descriptions{
    Description{ErrorNumber::InvalidCall, u"Appel de procédure ou argument incorrect"},
    Description{ErrorNumber::Overflow, u"Dépassement de capacité"},
    Description{ErrorNumber::OutOfMemory, u"Mémoire insuffisante"},
    Description{ErrorNumber::SubscriptOutOfRange, u"Indice hors des limites"},
    Description{ErrorNumber::ArrayFixed, u"Tableau fixe ou momentanément verrouillé"},
    Description{ErrorNumber::DivisionByZero, u"Division par zéro"},
    Description{ErrorNumber::TypeMismatch, u"Type incompatible"},
    Description{ErrorNumber::InternalError, u"Erreur interne"},
    Description{ErrorNumber::FileNotFound, u"Fichier introuvable"},
    Description{ErrorNumber::DeviceError, u"Erreur d'entrée/sortie"},
    Description{ErrorNumber::FileExists, u"Le fichier existe déjà"},
    Description{ErrorNumber::DiskFull, u"Disque plein"},
    Description{ErrorNumber::PermissionDenied, u"Permission refusée"},
    Description{ErrorNumber::PathAccess, u"Accès au chemin ou au fichier impossible"},
    Description{ErrorNumber::PathNotFound, u"Chemin introuvable"},
    Description{ErrorNumber::ObjectRequired, u"Référence d'objet vide"},
    Description{ErrorNumber::InvalidNull, u"Utilisation incorrecte de Null"},
    Description{ErrorNumber::InvalidFileFormat, u"Format de fichier incorrect"},
    Description{ErrorNumber::CannotCreateObject, u"Création de l'objet impossible"},
    Description{ErrorNumber::NoSuchInterface, u"L'objet n'a pas cette interface"},
    Description{ErrorNumber::NoSuchMember, u"L'objet n'a pas cette propriété ou méthode"},
    Description{ErrorNumber::ArgumentNotOptional, u"Argument obligatoire manquant"},
    Description{ErrorNumber::WrongArgumentCount, u"Nombre d'arguments incorrect"},
    Description{ErrorNumber::NotEnumerable, u"L'objet n'est pas une collection"},
    Description{ErrorNumber::EntryPointNotFound, u"Point d'entrée introuvable dans la bibliothèque"},
};

ErrorRecord recordOf(const AutomationError& error) noexcept {
    ErrorRecord record{error.code(), {}, {}};
    try {
        record.description = error.description();
        record.source = error.source();
    } catch (const std::bad_alloc&) {
        // The number stands alone.
    }
    return record;
}

/// For the numbers whose descriptions are short enough to need no memory.
ErrorRecord recordOf(ErrorNumber number) noexcept {
    const auto code = static_cast<I4>(number);
    return {codeOf(code), descriptionOf(code), {}};
}

}  // namespace

std::u16string_view descriptionOf(I4 number) {
    const auto* const row =
        std::ranges::find(descriptions, static_cast<ErrorNumber>(number), &Description::number);
    return row == descriptions.end() ? std::u16string_view{} : row->text;
}

AutomationError::AutomationError(ErrorNumber number)
    : AutomationError(codeOf(static_cast<I4>(number)), descriptionOf(static_cast<I4>(number))) {}

AutomationError::AutomationError(ReturnCode code, Bstr description, Bstr source)
    : code_(code),
      description_(std::move(description)),
      source_(std::move(source)),
      text_(toUtf8(description_)) {}

void raise(ErrorNumber number) {
    throw AutomationError(number);
}

ErrorRecord recordOfCurrentException() noexcept {
    try {
        throw;
    } catch (const AutomationError& error) {
        return recordOf(error);
    } catch (const std::bad_alloc&) {
        return recordOf(ErrorNumber::OutOfMemory);
    } catch (...) {
        return recordOf(ErrorNumber::InternalError);
    }
}

}  // namespace tovera
