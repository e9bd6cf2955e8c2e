// A call of each of the eleven classes, as a C++ program makes it.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <tovera/tovera.hpp>

namespace {

using tovera::Bstr;

/// Messages of an application, in a file that can be translated.
Bstr messageOfAFile(const std::filesystem::path& folder) {
    Bstr file((folder / "messages.lng").u16string());
    auto messages = tovera::StringArray::of({u"Valider", u"Annuler"}, 1);
    tovera::Cls_Traduction translation;
    translation.Sauver_TousLesMessages(messages, file);
    return translation.Charger_LeMessage(file, 2);
}

/// The first object of a user makes the user's keys, and says so in message boxes.
Bstr thereAndBack(const Bstr& text) {
    tovera::Cls_Cryptage cryptage;
    cryptage.setPassword(u"secret");
    cryptage.setInBuffer(text);
    cryptage.Encrypt();
    cryptage.setInBuffer(cryptage.OutBuffer());
    cryptage.Decrypt();
    return cryptage.OutBuffer();
}

}  // namespace

int main() {
    std::string folder = std::filesystem::temp_directory_path() / "messages.XXXXXX";
    if (!mkdtemp(folder.data())) return 1;

    std::cout << "Cls_InitREG: " << tovera::Cls_InitREG().ErrorMsg(2) << '\n'
              << "Cls_Windows: " << tovera::Cls_Windows().GET_ExtentionFichier(u"C:\\Documents\\lettre.doc")
              << '\n'
              << "Cls_Traduction: " << messageOfAFile(folder) << '\n'
              << "Cls_Internet: " << tovera::Cls_Internet().GetIPFromHostName(u"localhost") << '\n'
              << "Cls_Date: " << tovera::Cls_Date().NBJoursOuvrablesParMois(2026, 11) << '\n';
    Bstr friendly = u"l'ami";
    std::cout << "Cls_SQL: " << tovera::Cls_SQL().RepAPOS(friendly) << '\n'
              << "Cls_Cryptage: " << thereAndBack(u"Bonjour") << '\n'
              << "Cls_Conversion: " << tovera::Cls_Conversion().ConvertirNombreEnLettre(80, tovera::False)
              << '\n'
              << "Cls_Multimedia: " << tovera::Cls_Multimedia().TypePeripherique(u"C") << '\n';
    tovera::Variant x1 = 0, y1 = 0, x2 = 3, y2 = 4;
    std::cout << "Cls_Math: " << *tovera::Cls_Math().Hypothenuse(x1, y1, x2, y2).as<tovera::R8>() << '\n'
              << "Cls_SourisClv: " << tovera::Cls_SourisClv().SourisDelaiDoubleClique() << '\n';
    std::filesystem::remove_all(folder);
}
