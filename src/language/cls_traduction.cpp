#include "language/cls_traduction.h"

#include "frame/file_system.h"
#include "language/form_texts.h"
#include "language/language_entry.h"
#include "language/message_table.h"
#include "platform/writes_together.h"

namespace tovera {

Variant Cls_Traduction::Sauver_LangueFeuille(const ObjectRef& NomForme, Bstr& Fichier) {
    FailuresIgnored step;
    createMissingFolder(step, platform_.services, Fichier);
    Bstr message;
    if (step.error.number == static_cast<I4>(ErrorNumber::PathNotFound))
        message = u"Trop de répertoire à créer.";
    step.error.clear();
    WritesTogether writes(platform_);
    FormTexts(writes.platform(), NomForme, Fichier).save(step);
    return message;
}

Variant Cls_Traduction::Charger_LangueFeuille(const ObjectRef& NomForme, Bstr& Fichier) {
    Bstr message;
    if (!FileSystem(platform_.services).fileExists(Fichier)) message = u"Fichier inexistant.";
    FailuresIgnored step;
    FormTexts(platform_, NomForme, Fichier).load(step);
    return message;
}

void Cls_Traduction::Sauver_TousLesMessages(StringArray& tabMessage, Bstr& Fichier) {
    WritesTogether writes(platform_);
    saveMessages(writes.platform(), tabMessage, Fichier);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): published as a parameter by value.
Bstr Cls_Traduction::Charger_LeMessage(Bstr Fichier, const I2& NumeroMsg) {
    return loadMessage(platform_, Fichier, NumeroMsg);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): published as a parameter by value.
void Cls_Traduction::Charger_TousLesMessages(Bstr Fichier, StringArray& tabMessage) {
    loadMessages(platform_, Fichier, tabMessage);
}

}  // namespace tovera
