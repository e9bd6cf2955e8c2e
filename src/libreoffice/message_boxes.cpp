#include "libreoffice/message_boxes.h"

#include <com/sun/star/awt/MessageBoxButtons.hpp>
#include <com/sun/star/awt/Toolkit.hpp>
#include <com/sun/star/awt/XMessageBoxFactory.hpp>
#include <com/sun/star/awt/XReschedule.hpp>
#include <com/sun/star/awt/XToolkitExperimental.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <cstdlib>
#include <iostream>
#include <rtl/process.h>
#include <string_view>

namespace tovera::office {
namespace {

constexpr sal_Int32 stopSign = 16;
constexpr sal_Int32 information = 64;
constexpr sal_Int32 okButton = 1;

Reference<css::awt::XToolkit2> toolkitOf(const Context& context) {
    return css::awt::Toolkit::create(context);
}

Reference<css::awt::XWindowPeer> currentWindow(const Context& context) {
    const auto frame = css::frame::Desktop::create(context)->getCurrentFrame();
    if (!frame.is()) return {};
    return {frame->getContainerWindow(), UNO_QUERY};
}

css::awt::MessageBoxType typeOf(sal_Int32 flags) {
    if ((flags & stopSign) != 0) return css::awt::MessageBoxType_ERRORBOX;
    if ((flags & information) != 0) return css::awt::MessageBoxType_INFOBOX;
    return css::awt::MessageBoxType_MESSAGEBOX;
}

/// Whether the office was started without windows: it then lets every box go by unseen.
bool isHeadless() {
    const auto* const screen = std::getenv("SAL_USE_VCLPLUGIN");
    if (screen && std::string_view(screen) == "svp") return true;
    for (sal_uInt32 i = 0; i < rtl_getAppCommandArgCount(); ++i) {
        OUString argument;
        rtl_getAppCommandArg(i, &argument.pData);
        if (argument == "--headless" || argument == "-headless") return true;
    }
    return false;
}

}  // namespace

sal_Int32 showMessageBox(const Context& context, const OUString& text, sal_Int32 flags,
                         const OUString& title) {
    if (isHeadless()) {
        std::cerr << '[' << title.toUtf8() << "] " << text.toUtf8() << std::endl;
        return okButton;
    }
    const Reference<css::awt::XMessageBoxFactory> factory(toolkitOf(context), css::uno::UNO_QUERY_THROW);
    factory
        ->createMessageBox(currentWindow(context), typeOf(flags), css::awt::MessageBoxButtons::BUTTONS_OK,
                           title, text)
        ->execute();
    return okButton;
}

void processEvents(const Context& context) {
    const auto toolkit = toolkitOf(context);
    if (const Reference<css::awt::XReschedule> events(toolkit, UNO_QUERY); events.is()) {
        events->reschedule();
    } else if (const Reference<css::awt::XToolkitExperimental> older(toolkit, UNO_QUERY); older.is()) {
        older->processEventsToIdle();
    }
}

}  // namespace tovera::office
