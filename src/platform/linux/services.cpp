#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/home_services.h"
#include "platform/linux/component_facts.h"
#include "platform/linux/files/file_system_object.h"
#include "platform/linux/regional.h"
#include "platform/linux/registered_objects.h"
#include "platform/linux/screen/screen_size.h"
#include "platform/linux/shell/dialogs.h"
#include "platform/linux/shell/host_loop.h"
#include "platform/linux/shell/launch.h"
#include "platform/linux/terminals_program.h"
#include "platform/linux/text/code_pages.h"
#include "platform/linux/text/letter_case.h"
#include "platform/program_streams.h"

namespace tovera {
namespace {

/// The objects that this home has for programs, by their ProgID in capitals.
struct ObjectMaker {
    std::u16string_view progId;
    ObjectRef (*make)(Services& services);
};

constexpr std::array objectMakers{
    ObjectMaker{u"SCRIPTING.FILESYSTEMOBJECT", makeFileSystemObject},
};

/// The services of this home: message boxes in a dialog of the desktop or on the terminal, programs started
/// as processes of their own.
class LinuxServices : public Services {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;
    R8 launch(const Bstr& commandLine, WindowStyle style) override;
    ObjectRef createObject(std::u16string_view progId) override;
    ComponentFacts facts() override;
    ScreenFacts screen() override;
    RegionalSettings regionalSettings() override;
    std::string toAnsi(std::u16string_view text) override;
    std::u16string fromAnsi(std::string_view bytes) override;
    void pumpMessages() override;
};

I4 LinuxServices::messageBox(const Bstr& text, I4 flags, const Bstr& title) {
    constexpr I4 okButton = 1;
    const bool hasTerminal = isTerminal(StandardStream::Input) && isTerminal(StandardStream::Error);
    if (!hasTerminal && !isTerminalsProgram() && showInDialog(text, title, flags)) return okButton;
    std::cout.flush();
    std::cerr << '[' << toUtf8(title) << "] " << toUtf8(text) << std::endl;
    if (hasTerminal) {
        std::string answer;
        std::getline(std::cin, answer);
    }
    return okButton;
}

R8 LinuxServices::launch(const Bstr& commandLine, WindowStyle /*style*/) {
    return launchCommand(toUtf8(commandLine));
}

ObjectRef LinuxServices::createObject(std::u16string_view progId) {
    if (const auto make = registeredFactory(progId)) {
        auto made = make();
        if (!made) raise(ErrorNumber::CannotCreateObject);
        return made;
    }
    const auto name = capitals(progId);
    const auto* const row = std::ranges::find(objectMakers, name, &ObjectMaker::progId);
    if (row == objectMakers.end()) raise(ErrorNumber::CannotCreateObject);
    return row->make(*this);
}

ComponentFacts LinuxServices::facts() {
    return componentFacts();
}

ScreenFacts LinuxServices::screen() {
    constexpr I4 twipsPerPixel = 15;  // of 1440 an inch, with 96 pixels an inch
    const auto size = screenSize();
    return {size.width * twipsPerPixel, size.height * twipsPerPixel, twipsPerPixel, twipsPerPixel};
}

RegionalSettings LinuxServices::regionalSettings() {
    static const RegionalSettings settings = userRegionalSettings();
    return settings;
}

std::string LinuxServices::toAnsi(std::u16string_view text) {
    return toAnsi1252(text);
}

std::u16string LinuxServices::fromAnsi(std::string_view bytes) {
    return fromAnsi1252(bytes);
}

void LinuxServices::pumpMessages() {
    pumpHostLoop();
}

}  // namespace

Services& homeServices() {
    static LinuxServices services;
    return services;
}

}  // namespace tovera
