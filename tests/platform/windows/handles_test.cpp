#include <gtest/gtest.h>

#include "platform/odbc32.h"
#include "platform/windows/wide_handles.h"

namespace tovera::testing {
namespace {

TEST(Handles, WideOnesGetNumbers) {
    WideHandles handles;
    const auto wide = static_cast<std::uintptr_t>(0x7FEDCBA987654321);
    const I4 first = handles.add(wide);
    const I4 second = handles.add(wide + 1);
    EXPECT_TRUE(first > 0 && second > 0 && first != second);
    EXPECT_EQ(handles.find(first), wide);
    EXPECT_EQ(handles.take(first), wide);
    EXPECT_EQ(handles.find(first), 0U);
    EXPECT_EQ(handles.take(first), 0U);
    EXPECT_EQ(handles.find(second), wide + 1);
}

TEST(Handles, AnOdbcEnvironmentLivesThroughItsNumber) {
    auto& odbc = homeOdbc32();
    I4 environment = -1;
    if (odbc.SQLAllocHandle(odbc::SQL_HANDLE_ENV, 0, environment) != odbc::SQL_SUCCESS) {
        EXPECT_EQ(environment, 0);
        GTEST_SKIP() << "no ODBC here";
    }
    EXPECT_GT(environment, 0);
    EXPECT_EQ(odbc.SQLSetEnvAttr(environment, odbc::SQL_ATTR_ODBC_VERSION, odbc::SQL_OV_ODBC3,
                                 odbc::SQL_IS_INTEGER),
              odbc::SQL_SUCCESS);
    constexpr I4 invalidHandle = -2;
    EXPECT_EQ(odbc.SQLFreeHandle(odbc::SQL_HANDLE_ENV, environment), odbc::SQL_SUCCESS);
    EXPECT_EQ(odbc.SQLFreeHandle(odbc::SQL_HANDLE_ENV, environment), invalidHandle);
}

}  // namespace
}  // namespace tovera::testing
