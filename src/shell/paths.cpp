#include "frame/checked.h"
#include "frame/upper_case.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

using View = std::u16string_view;

namespace parts {
constexpr I2 drive = 1;
constexpr I2 folder = 2;
constexpr I2 name = 4;
constexpr I2 extension = 8;
}  // namespace parts

constexpr int mostBackslashes = 20;
constexpr auto longestPosition = std::size_t{std::numeric_limits<I2>::max()};

struct PathParts {
    View drive, folder, name, extension;
};

/// The first and the last backslash of a path; both beyond its end when there is none.
struct Backslashes {
    std::size_t first = View::npos;
    std::size_t last = View::npos;
};

Backslashes backslashesOf(View path) {
    Backslashes found;
    int count = 0;
    for (auto at = path.find(u'\\'); at != View::npos; at = path.find(u'\\', at + 1)) {
        if (at >= longestPosition) raise(ErrorNumber::Overflow);
        if (++count > mostBackslashes) raise(ErrorNumber::SubscriptOutOfRange);
        if (count == 1) found.first = at;
        found.last = at;
    }
    return found;
}

PathParts partsOf(View path) {
    PathParts cut;
    const auto [first, last] = backslashesOf(path);
    auto tail = path;
    if (first != View::npos) {
        cut.drive = path.substr(0, 2);
        cut.folder = path.substr(first, last - first + 1);
        tail = path.substr(last + 1);
    } else if (const auto colon = path.find(u':'); colon != View::npos) {
        tail = path.substr(colon + 1);
    }
    const auto dot = std::min(tail.find(u'.'), tail.size());
    cut.name = tail.substr(0, dot);
    cut.extension = tail.substr(dot);
    return cut;
}

}  // namespace

Bstr Cls_Windows::GetNomFichier_DuChemin(const Bstr& strChemin, Optional<VariantBool> /*blnExtention*/) {
    const auto path = strChemin.view();
    narrow<I2>(path.size());
    const auto last = path.rfind(u'\\');
    return last == View::npos ? View() : path.substr(last + 1);
}

Bstr Cls_Windows::GET_ExtentionFichier(const Bstr& strNomFichier) {
    return GET_NomFichier(strNomFichier, parts::extension);
}

Bstr Cls_Windows::GET_NomFichier(const Bstr& NomComplet, const I2& Partie) {
    const auto cut = partsOf(NomComplet);
    const auto asked = [&](I2 part, View text) { return (Partie & part) != 0 ? text : View(); };
    const auto extension = asked(parts::extension, cut.extension);
    return Bstr::written(NomComplet.length(), [&](char16_t* end) {
        for (const auto text :
             {asked(parts::drive, cut.drive), asked(parts::folder, cut.folder), asked(parts::name, cut.name)})
            end += text.copy(end, View::npos);
        return std::ranges::transform(extension, end, [](char16_t c) { return upperCase(c); }).out;
    });
}

}  // namespace tovera
