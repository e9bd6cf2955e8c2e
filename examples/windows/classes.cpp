// A call of each of the eleven classes by slot, with the types of KADRELDLL.h.
//
//   i686-w64-mingw32-g++ -std=c++17 -I.. classes.cpp -o classes.exe -static -lole32 -loleaut32 -luuid
#include <cstdio>
#include <cstdlib>
#include <string>
#include <windows.h>

#include "KADRELDLL.h"

namespace {

/// Ends the program at a failure: a program of use tells its user what `GetErrorInfo` says.
void require(HRESULT status) {
    if (SUCCEEDED(status)) return;
    std::printf("erreur %08lX\n", static_cast<unsigned long>(status));
    std::exit(1);
}

/// An object of a class, for as long as this lives.
template <class Class, class Interface>
class Created {
  public:
    Created() {
        require(CoCreateInstance(__uuidof(Class), nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                                 reinterpret_cast<void**>(&object_)));
    }
    Created(const Created&) = delete;
    Created& operator=(const Created&) = delete;
    ~Created() { object_->Release(); }
    Interface* operator->() const { return object_; }

  private:
    Interface* object_ = nullptr;
};

class Text {
  public:
    Text() = default;
    explicit Text(const wchar_t* text) : text_(SysAllocString(text)) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }
    BSTR get() const { return text_; }
    BSTR* byReference() { return &text_; }

  private:
    BSTR text_ = nullptr;
};

struct Number : VARIANT {
    explicit Number(long number = 0) {
        VariantInit(this);
        V_VT(this) = VT_I4;
        V_I4(this) = number;
    }
};

void tell(const char* className, const Text& result) {
    std::printf("%s: %ls\n", className, result.get() ? result.get() : L"");
}
void tell(const char* className, double result) {
    std::printf("%s: %g\n", className, result);
}

void tellOfTexts() {
    Text result;
    LONG code = 2;
    require(Created<Cls_InitREG, _Cls_InitREG>()->ErrorMsg(&code, result.byReference()));
    tell("Cls_InitREG", result);

    Text path(L"C:\\Documents\\lettre.doc");
    Text extension;
    require(Created<Cls_Windows, _Cls_Windows>()->GET_ExtentionFichier(path.byReference(),
                                                                       extension.byReference()));
    tell("Cls_Windows", extension);
}

/// Messages of an application, in a file that can be translated.
void tellOfMessages() {
    wchar_t folder[MAX_PATH];
    wchar_t name[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    GetTempFileNameW(folder, L"msg", 0, name);
    Text file(name);

    SAFEARRAY* messages = SafeArrayCreateVector(VT_BSTR, 1, 2);
    for (LONG i = 1; i <= 2; ++i) {
        const Text message(i == 1 ? L"Valider" : L"Annuler");
        SafeArrayPutElement(messages, &i, message.get());
    }
    const Created<Cls_Traduction, _Cls_Traduction> translation;
    require(translation->Sauver_TousLesMessages(&messages, file.byReference()));
    SafeArrayDestroy(messages);
    short number = 2;
    Text message;
    require(translation->Charger_LeMessage(file.get(), &number, message.byReference()));
    tell("Cls_Traduction", message);
    DeleteFileW(name);
}

void tellOfTheRest() {
    Text address;
    require(Created<Cls_Internet, _Cls_Internet>()->GetIPFromHostName(Text(L"localhost").get(),
                                                                      address.byReference()));
    tell("Cls_Internet", address);

    short days = 0;
    require(Created<Cls_Date, _Cls_Date>()->NBJoursOuvrablesParMois(2026, 11, &days));
    tell("Cls_Date", days);

    Text friendly(L"l'ami");
    Text doubled;
    require(Created<Cls_SQL, _Cls_SQL>()->RepAPOS(friendly.byReference(), doubled.byReference()));
    tell("Cls_SQL", doubled);
}

/// The first object of a user makes the user's keys, and says so in message boxes.
void tellOfKeys() {
    const Created<Cls_Cryptage, _Cls_Cryptage> cryptage;
    Text password(L"secret");
    Text text(L"Bonjour");
    Text encrypted;
    Text decrypted;
    require(cryptage->put_Password(password.byReference()));
    require(cryptage->put_InBuffer(text.byReference()));
    require(cryptage->Encrypt());
    require(cryptage->get_OutBuffer(encrypted.byReference()));
    require(cryptage->put_InBuffer(encrypted.byReference()));
    require(cryptage->Decrypt());
    require(cryptage->get_OutBuffer(decrypted.byReference()));
    tell("Cls_Cryptage", decrypted);
}

void tellOfNumbers() {
    double eighty = 80;
    VARIANT_BOOL isAmount = VARIANT_FALSE;
    Text words;
    require(Created<Cls_Conversion, _Cls_Conversion>()->ConvertirNombreEnLettre(&eighty, &isAmount,
                                                                                words.byReference()));
    tell("Cls_Conversion", words);

    Text letter(L"C");
    LONG kind = 0;
    require(Created<Cls_Multimedia, _Cls_Multimedia>()->TypePeripherique(letter.byReference(), &kind));
    tell("Cls_Multimedia", kind);

    Number x1(0), y1(0), x2(3), y2(4), length;
    require(Created<Cls_Math, _Cls_Math>()->Hypothenuse(&x1, &y1, &x2, &y2, &length));
    tell("Cls_Math", V_R8(&length));

    LONG milliseconds = 0;
    require(Created<Cls_SourisClv, _Cls_SourisClv>()->SourisDelaiDoubleClique(&milliseconds));
    tell("Cls_SourisClv", milliseconds);
}

}  // namespace

int main() {
    require(CoInitialize(nullptr));
    tellOfTexts();
    tellOfMessages();
    tellOfTheRest();
    tellOfKeys();
    tellOfNumbers();
    CoUninitialize();
}
