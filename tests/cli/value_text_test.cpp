#include "cli/value_text.h"

#include <gtest/gtest.h>

#include "cli/step.h"
#include "frame/utf8.h"

namespace tovera::cli {
namespace {

TEST(PrintedValues, AreReadAsTheSameValues) {
    const std::pair<Variant, std::string> rows[] = {
        {Empty{}, "Empty"},
        {Null{}, "Null"},
        {ObjectRef{}, "Nothing"},
        {True, "True"},
        {False, "False"},
        {I2{-7}, "-7"},
        {I4{100000}, "100000"},
        {0.1, "0.1"},
        {-1e300, "-1E+300"},
        {StringArray{}, "[]"},
        {StringArray::of({}, 3), "[3..2]"},
        {StringArray::of({Bstr(u"a\"b"), Bstr(), Bstr(u"é")}, -1), "[-1..1] \"a\"\"b\", Null, \"é\""},
    };
    for (const auto& [value, text] : rows) {
        EXPECT_EQ(printed(value), text);
        EXPECT_EQ(parseLiteral(fromUtf8(text)), value) << text;
    }
}

TEST(PrintedValues, ShowDatesAndTextsBare) {
    const std::pair<Variant, std::string> rows[] = {
        {Date{37382}, "2002-05-06"},
        {Date{37382.5 + 1.0 / 86400}, "2002-05-06 12:00:01"},
        {Date{37382 + 60.0 / 86400}, "2002-05-06 00:01:00"},
        {Date{-1.25}, "1899-12-29 06:00:00"},
        {Date{1e300}, "date 1E+300"},
        {Bstr(u"l'été \"€\""), "l'été \"€\""},
        {Variant::missing(), "Error -2147352572"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(printed(value), text);
}

}  // namespace
}  // namespace tovera::cli
