#include <gtest/gtest.h>

#include "platform/files.h"
#include "platform/input.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

struct Texts : Port<Texts> {
    virtual I4 exchange(const AnsiText&, AnsiText&, const AnsiText&, AnsiText&, AnsiText&, I4&) {
        return missingLibrary();
    }
};

struct TextsOfTheTest : Texts {
    I4 exchange(const AnsiText& both, AnsiText& kept, const AnsiText& null, AnsiText& buffer, AnsiText& none,
                I4& number) override {
        EXPECT_EQ(both.bytes + kept.bytes, "\xE9??");
        EXPECT_EQ(null.addressOrNull(), nullptr);
        EXPECT_TRUE(none.isNull);
        kept.bytes = "changed";
        buffer.bytes.replace(0, 2, std::string("x\0", 2));
        return ++number;
    }
};

TEST(Platform, TextsCrossToAnEntryPointAndBack) {
    TestPlatform test;
    TextsOfTheTest texts;
    Bstr both = u"\u00E9\u20AC";
    const Bstr kept = u"\u20AC";
    Bstr null;
    FixedText<4> buffer(u'\0');
    I4 number = 4;
    EXPECT_EQ(test.platform.with(texts).call(&Texts::exchange, both, kept, null, buffer, nullptr, number), 5);
    EXPECT_EQ(both, u"\u00E9?");
    EXPECT_EQ(kept, u"\u20AC");
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(buffer.view(), std::u16string_view(u"x\0\0\0", 4));
    EXPECT_EQ(number, 5);
    const auto call = [&](const Platform& platform) {
        return errorOf([&] { platform.call(&Texts::exchange, both, kept, null, buffer, nullptr, number); });
    };
    EXPECT_EQ(call(test.platform), 53);
    EXPECT_EQ(call(test.platform.with(texts).with(test.services)), 0) << "services leave the ports";
}

TEST(Platform, WhatAHomeLacksIsMissingAtTheCall) {
    TestPlatform test;
    EXPECT_EQ(errorOf([&] { test.platform.call(&Input::GetDoubleClickTime); }), 453);
    EXPECT_EQ(errorOf([&] { test.platform.call(&Files::rename, Bstr(), Bstr()); }), 453);
    EXPECT_GT(home().call(&Input::GetDoubleClickTime), 0);
}

}  // namespace
}  // namespace tovera::testing
