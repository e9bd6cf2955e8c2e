// Measures the saving of a form's texts against plain writes of as many entries, which is what it costs at
// least: the rest is what the component adds, some six late-bound calls a control.
#include <memory>
#include <vector>

#include "KADRELDLL.h"
#include "client/form.h"
#include "timing.h"

namespace tovera::client {
namespace {

constexpr int controls = 1000;
constexpr const char* file = "C:\\forme.lng";

/// A form whose controls have one text each.
struct LargeForm {
    LargeForm() {
        std::vector<Form*> added;
        for (int i = 0; i < controls; ++i) {
            const auto number = std::to_wstring(i);
            labels.push_back(std::make_unique<Form>(
                Form::Members{{L"name", L"Etiquette" + number}, {L"Caption", L"Texte " + number}}));
            added.push_back(labels.back().get());
        }
        form = std::make_unique<Form>(Form::Members{{L"name", L"Grande"}, {L"Caption", L"Grande"}}, added);
    }
    std::vector<std::unique_ptr<Form>> labels;
    std::unique_ptr<Form> form;
};

double plainWrites() {
    DeleteFileA(file);
    const double start = microseconds();
    WritePrivateProfileStringA("Grande", "Grande.Caption", "Grande", file);
    for (int i = 0; i < controls; ++i) {
        const auto number = std::to_string(i);
        const auto key = "Etiquette" + number + ".Caption";
        WritePrivateProfileStringA("Grande", key.c_str(), ("Texte " + number).c_str(), file);
    }
    return microseconds() - start;
}

}  // namespace

void measureFormSaving() {
    LargeForm large;
    const auto object = createFrom(besideThisProgram(L"TOVERA.dll"), __uuidof(Cls_Traduction));
    const auto translation = object.as<_Cls_Traduction>(__uuidof(_Cls_Traduction));
    const auto timed = [&](auto method, const wchar_t* path) {
        IDispatch* form = large.form->dispatch();
        Value name = path;
        Value result;
        const double start = microseconds();
        if (FAILED((translation.get()->*method)(&form, name.textAddress(), result.out())))
            std::printf("a call failed\n");
        return microseconds() - start;
    };
    const auto save = &_Cls_Traduction::Sauver_LangueFeuille;
    std::printf("%-42s %13s %13s\n", "", "TOVERA", "plain writes");
    compare(
        "saving a form of 1,000 controls", 5,
        [&] {
            DeleteFileA(file);
            return timed(save, L"C:\\forme.lng");
        },
        plainWrites);
    std::printf("%-42s %10.3f us\n", "loading it",
                timed(&_Cls_Traduction::Charger_LangueFeuille, L"C:\\forme.lng"));
    std::printf("%-42s %10.3f us\n", "saving it where no file can be made",
                timed(save, L"C:\\a\\b\\forme.lng"));
}

}  // namespace tovera::client
