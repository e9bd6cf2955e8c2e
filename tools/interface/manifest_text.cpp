#include "interface/manifest_text.h"

#include "catalogue/catalogue.h"
#include "catalogue/identities.h"
#include "catalogue/library_facts.h"

namespace tovera::tools {
namespace {

std::string braced(const InterfaceId& id) {
    return "{" + idText(id) + "}";
}

std::string classText(const ClassDescription& description) {
    return "    <comClass clsid=\"" + braced(identityOf(description.name)) + "\" progid=\"" +
           description.progId + "\" threadingModel=\"Apartment\" tlbid=\"" + braced(libraryId()) + "\"/>\n";
}

/// Interfaces are marshalled by their type library.
std::string interfaceText(const ClassDescription& description) {
    const auto name = "_" + std::string(description.name);
    return "  <comInterfaceExternalProxyStub name=\"" + name + "\" iid=\"" + braced(identityOf(name)) +
           "\" tlbid=\"" + braced(libraryId()) +
           "\" proxyStubClsid32=\"{00020424-0000-0000-C000-000000000046}\"/>\n";
}

}  // namespace

std::string manifestText(std::string_view architecture) {
    std::string text =
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n"
        "<assembly xmlns=\"urn:schemas-microsoft-com:asm.v1\" manifestVersion=\"1.0\">\n"
        "  <assemblyIdentity type=\"win32\" name=\"TOVERA\" version=\"1.0.0.0\" "
        "processorArchitecture=\"" +
        std::string(architecture) +
        "\"/>\n"
        "  <file name=\"TOVERA.dll\">\n";
    for (const auto& entry : catalogue()) text += classText(entry.description());
    text += "    <typelib tlbid=\"" + braced(libraryId()) + "\" version=\"" + std::string(libraryVersion) +
            "\" helpdir=\"\"/>\n  </file>\n";
    for (const auto& entry : catalogue()) text += interfaceText(entry.description());
    return text + "</assembly>\n";
}

}  // namespace tovera::tools
