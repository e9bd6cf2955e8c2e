#include <cmath>
#include <gtest/gtest.h>

#include "c_interface/host_table.h"

namespace tovera::testing {
namespace {

/// An object whose member gives back what it gets, and one that assigns its first argument to the second.
class ValuesAcross : public ::testing::Test {
  protected:
    ValuesAcross() {
        table.members["echo"] = [](auto* arguments, size_t, auto* result, auto*) {
            *result = arguments[0];
            return 0;
        };
        table.members["assign"] = [](auto* arguments, size_t, auto*, auto*) {
            *arguments[1].as.reference = arguments[0];
            return 0;
        };
    }
    ~ValuesAcross() override { tovera_release(object); }

    tovera_value echo(tovera_value value, unsigned flags = 0) {
        tovera_value result;
        EXPECT_EQ(tovera_call(object, "echo", TOVERA_METHOD | flags, &value, 1, &result, nullptr), 0);
        return result;
    }
    int32_t assign(tovera_value value, tovera_value variable) {
        tovera_value arguments[] = {value, variable};
        return tovera_call(object, "assign", TOVERA_METHOD, arguments, 2, nullptr, nullptr);
    }

    HostTable table;
    tovera_object* object = table.handle();
};

TEST_F(ValuesAcross, KeepTypeAndValue) {
    for (const uint16_t type : {TOVERA_EMPTY, TOVERA_NULL, TOVERA_MISSING})
        EXPECT_EQ(echo(tovera_of_type(type)).type, type);
    auto exact = tovera_of_type(TOVERA_EXACT);
    exact.as.exact = {0xFFFFFFFFFFFFFFFF, 7, 28, 1};
    auto small = tovera_of_type(TOVERA_UI1);
    small.as.ui1 = 255;
    auto single = tovera_of_type(TOVERA_R4);
    single.as.r4 = -0.25F;
    auto odd = tovera_of_bool(1);
    odd.as.i2 = 5;
    auto code = tovera_of_type(TOVERA_ERROR);
    code.as.i4 = -1;
    for (const auto& value :
         {tovera_of_i4(INT32_MIN), tovera_of_r8(1e300), tovera_of_date(37000.25), tovera_of_bool(1), exact,
          small, single, odd, code, tovera_of_object(nullptr)}) {
        const auto back = echo(value);
        EXPECT_EQ(back.type, value.type);
        if (value.type == TOVERA_EXACT) {
            EXPECT_EQ(back.as.exact.low, value.as.exact.low);
            EXPECT_EQ(back.as.exact.high, 7U);
            EXPECT_EQ(back.as.exact.decimals, 28);
            EXPECT_EQ(back.as.exact.negative, 1);
        } else if (value.type == TOVERA_R8 || value.type == TOVERA_DATE) {
            EXPECT_EQ(back.as.r8, value.as.r8);
        } else if (value.type == TOVERA_OBJECT) {
            EXPECT_EQ(back.as.object, nullptr);
        } else if (value.type == TOVERA_I4 || value.type == TOVERA_ERROR || value.type == TOVERA_R4) {
            EXPECT_EQ(back.as.i4, value.as.i4);
        } else if (value.type == TOVERA_UI1) {
            EXPECT_EQ(back.as.ui1, 255);
        } else {
            EXPECT_EQ(back.as.i2, value.as.i2);
        }
    }
    auto unknown = tovera_of_type(99);
    EXPECT_EQ(tovera_call(object, "echo", TOVERA_METHOD, &unknown, 1, nullptr, nullptr), 13);
}

TEST_F(ValuesAcross, TextsAreOfEitherKind) {
    const std::u16string long16(100, u'é');
    for (const std::u16string_view text : {std::u16string_view(u""), std::u16string_view(u"a\0b", 3),
                                           std::u16string_view(u"\U0001F600"), std::u16string_view(long16)}) {
        auto utf16 = echo(tovera_of_text(text.data(), text.size()));
        ASSERT_EQ(utf16.type, TOVERA_TEXT);
        EXPECT_EQ(std::u16string_view(utf16.as.text.characters, utf16.as.text.length), text);
        auto utf8 = echo(utf16, TOVERA_AS_UTF8);
        ASSERT_EQ(utf8.type, TOVERA_UTF8);
        auto again = echo(tovera_of_utf8(utf8.as.utf8.bytes, utf8.as.utf8.length));
        EXPECT_EQ(std::u16string_view(again.as.text.characters, again.as.text.length), text);
        for (auto* const value : {&utf16, &utf8, &again, &again}) tovera_clear(value);
    }
    EXPECT_EQ(echo(tovera_of_text(nullptr, 0)).as.text.characters, nullptr);
    tovera_value copy = tovera_of_type(TOVERA_EMPTY);
    EXPECT_EQ(tovera_copy_utf8(&copy, "\xC3\xA9", 2), 0);
    EXPECT_STREQ(copy.as.utf8.bytes, "é");
    tovera_clear(&copy);
}

TEST_F(ValuesAcross, VariablesTakeWhatIsAssigned) {
    auto variable = tovera_of_i4(1);
    EXPECT_EQ(assign(tovera_of_utf8("12", 2), tovera_by_reference(&variable)), 0);
    ASSERT_EQ(variable.type, TOVERA_TEXT);
    EXPECT_EQ(std::u16string_view(variable.as.text.characters), u"12");
    tovera_clear(&variable);

    variable = tovera_of_i4(1);
    EXPECT_EQ(assign(tovera_of_utf8("12", 2), tovera_by_typed_reference(&variable)), 0);
    EXPECT_EQ(variable.type, TOVERA_I4);
    EXPECT_EQ(variable.as.i4, 12);
    EXPECT_EQ(assign(tovera_of_utf8("douze", 5), tovera_by_typed_reference(&variable)), 13);
    EXPECT_EQ(variable.as.i4, 12);

    auto reference = tovera_by_reference(&variable);
    EXPECT_EQ(assign(tovera_of_i4(1), tovera_by_reference(&reference)), 13) << "a reference to a reference";
    EXPECT_EQ(assign(tovera_of_i4(1), tovera_by_reference(nullptr)), 13);
}

TEST(TextArrays, KeepTheirBounds) {
    tovera_array* array = tovera_array_new();
    int32_t lower = 0, upper = 0;
    EXPECT_EQ(tovera_array_bounds(array, &lower, &upper), 9);
    EXPECT_EQ(tovera_array_redim(array, 5, 3), 9);
    EXPECT_EQ(tovera_array_redim(array, -1, 1), 0);
    EXPECT_EQ(tovera_array_bounds(array, &lower, &upper), 0);
    EXPECT_EQ(std::pair(lower, upper), std::pair(-1, 1));
    const auto text = tovera_of_utf8("été", 5), number = tovera_of_i4(1);
    EXPECT_EQ(tovera_array_set(array, 1, &text), 0);
    EXPECT_EQ(tovera_array_set(array, 2, &text), 9);
    EXPECT_EQ(tovera_array_set(array, 0, &number), 13);
    tovera_value element;
    EXPECT_EQ(tovera_array_get(array, 1, TOVERA_AS_UTF8, &element), 0);
    EXPECT_STREQ(element.as.utf8.bytes, "été");
    tovera_clear(&element);
    EXPECT_EQ(tovera_array_get(array, 2, 0, &element), 9);
    tovera_array_fix(array);
    EXPECT_EQ(tovera_array_redim(array, 0, 1), 10);
    tovera_array_free(array);
}

}  // namespace
}  // namespace tovera::testing
