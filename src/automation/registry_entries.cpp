#include "automation/registry_entries.h"

#include "catalogue/catalogue.h"
#include "catalogue/identities.h"
#include "catalogue/library_facts.h"
#include "frame/utf8.h"
#include "platform/windows/module.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

/// The system's own marshalling of dual interfaces, by their type library.
constexpr std::wstring_view typeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr std::wstring_view classes = L"Software\\Classes";
/// The kinds of system that a type library's files are for.
constexpr bool has64Bits = sizeof(void*) == 8;
constexpr std::wstring_view ownKind = has64Bits ? L"win64" : L"win32";
constexpr std::wstring_view otherKind = has64Bits ? L"win32" : L"win64";

std::wstring wideUtf8(std::string_view text) {
    return wide(fromUtf8(text));
}

std::wstring braced(const InterfaceId& id) {
    return L"{" + wideUtf8(idText(id)) + L"}";
}

std::wstring folderOf(const std::wstring& file) {
    return file.substr(0, file.find_last_of(L'\\'));
}

/// Collects entries below one key.
class KeyWriter {
  public:
    KeyWriter(std::vector<RegistryEntry>& entries, Owner owner, std::wstring key)
        : entries_(entries), owner_(owner), key_(std::move(key)) {
        entries_.push_back({owner_, key_, {}, {}});
    }
    KeyWriter key(std::wstring_view name) const { return key(name, owner_); }
    KeyWriter key(std::wstring_view name, Owner owner) const {
        return {entries_, owner, key_ + L"\\" + std::wstring(name)};
    }
    const KeyWriter& text(std::wstring_view text) const { return named(L"", text); }
    const KeyWriter& named(std::wstring_view name, std::wstring_view text) const {
        entries_.push_back({owner_, key_, std::wstring(name), std::wstring(text)});
        return *this;
    }

  private:
    std::vector<RegistryEntry>& entries_;
    Owner owner_;
    std::wstring key_;
};

void addClass(const KeyWriter& root, const KeyWriter& classIds, const ClassDescription& description) {
    const auto progId = wideUtf8(description.progId);
    const auto classId = braced(identityOf(description.name));
    const auto byProgId = root.key(progId, Owner::Names).text(progId);
    byProgId.key(L"Clsid").text(classId);
    const auto byId = classIds.key(classId, Owner::ThisBitness).text(progId);
    byId.key(L"InprocServer32").text(ownFileName()).named(L"ThreadingModel", L"Apartment");
    byId.key(L"ProgID").text(progId);
    byId.key(L"Programmable");
    byId.key(L"TypeLib").text(braced(libraryId()));
    byId.key(L"VERSION").text(wideUtf8(libraryVersion));
}

void addInterface(const KeyWriter& interfaces, const ClassDescription& description) {
    const auto name = "_" + std::string(description.name);
    const auto byId = interfaces.key(braced(identityOf(name)), Owner::ThisBitness).text(wideUtf8(name));
    byId.key(L"ProxyStubClsid32").text(typeLibraryMarshaller);
    byId.key(L"TypeLib").text(braced(libraryId())).named(L"Version", wideUtf8(libraryVersion));
}

void addTypeLibrary(const KeyWriter& libraries) {
    const auto version = libraries.key(braced(libraryId()), Owner::Library)
                             .key(wideUtf8(libraryVersion))
                             .text(wideUtf8(libraryHelp));
    version.key(L"0").key(ownKind, Owner::ThisBitness).text(ownFileName());
    version.key(L"FLAGS").text(L"0");
    version.key(L"HELPDIR").text(folderOf(ownFileName()));
}

}  // namespace

std::vector<RegistryEntry> registryEntries() {
    std::vector<RegistryEntry> entries;
    const KeyWriter root(entries, Owner::System, std::wstring(classes));
    const auto classIds = root.key(L"CLSID");
    const auto interfaces = root.key(L"Interface");
    const auto libraries = root.key(L"TypeLib");
    for (const auto& entry : catalogue()) {
        addClass(root, classIds, entry.description());
        addInterface(interfaces, entry.description());
    }
    addTypeLibrary(libraries);
    return entries;
}

std::wstring keyOfFirstClass() {
    const auto& first = catalogue().front().description();
    return std::wstring(classes) + L"\\CLSID\\" + braced(identityOf(first.name));
}

std::wstring keyOfOtherLibrary() {
    const auto library = std::wstring(classes) + L"\\TypeLib\\" + braced(libraryId());
    return library + L"\\" + wideUtf8(libraryVersion) + L"\\0\\" + std::wstring(otherKind);
}

}  // namespace tovera
