#pragma once

#include <gmock/gmock.h>
#include <vector>

#include "frame/component.h"
#include "platform/platform.h"

namespace tovera::testing {

/// A message box that was shown, and answered at once.
struct ShownBox {
    Bstr text;
    I4 flags;
    Bstr title;
    friend bool operator==(const ShownBox&, const ShownBox&) = default;
};

/// Services that record what a member does with them. The code page maps every character below 256 to its
/// own byte, the hiragana A to two, and the cyrillic Zh to the J that looks like it best.
class TestServices : public Services {
  public:
    using Services::messageBox;
    I4 messageBox(const Bstr& text, I4 flags, const Bstr& title) override;
    MOCK_METHOD(R8, launch, (const Bstr& commandLine, WindowStyle style), (override));
    MOCK_METHOD(ObjectRef, createObject, (std::u16string_view progId), (override));
    ComponentFacts facts() override { return componentFacts; }
    ScreenFacts screen() override { return screenFacts; }
    RegionalSettings regionalSettings() override { return regional; }
    std::string toAnsi(std::u16string_view text) override;
    std::u16string fromAnsi(std::string_view bytes) override;
    MOCK_METHOD(void, pumpMessages, (), (override));

    std::vector<ShownBox> boxes;
    ComponentFacts componentFacts;
    ScreenFacts screenFacts;
    RegionalSettings regional;
};

/// Services of a test's own, and no ports.
struct TestPlatform {
    ::testing::NiceMock<TestServices> services;
    Platform platform{services};
};

/// The number of the Automation error that a call raises, 0 when it raises none.
template <class Call>
I4 errorOf(Call&& call) {
    try {
        std::forward<Call>(call)();
        return 0;
    } catch (const AutomationError& error) {
        return error.number();
    }
}

}  // namespace tovera::testing

namespace tovera {

void PrintTo(const Bstr& text, std::ostream* out);
void PrintTo(const Variant& value, std::ostream* out);

}  // namespace tovera
