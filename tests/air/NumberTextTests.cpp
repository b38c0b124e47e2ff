#include "zefra/platform/airlib/NT.h"

#include <gtest/gtest.h>

namespace {

TEST(NTIsEqual, IncludesTheBound) {
    EXPECT_TRUE(NT::IsEqual(0.0009, 0.0, 0.001));
    EXPECT_FALSE(NT::IsEqual(0.002, 0.0, 0.001));
    EXPECT_TRUE(NT::IsEqual(0.25, 0.5, 0.25));
    EXPECT_TRUE(NT::IsEqual(-0.25, 0.0, 0.25));
    EXPECT_FALSE(NT::IsEqual(0.5, 0.0, 0.25));
    EXPECT_TRUE(NT::IsEqual(3.0, 3.0, 0.0));
}

TEST(NTFtoa, WritesExactlyTheGivenDecimalsWhateverTheFlag) {
    for (bool flag : {false, true}) {
        EXPECT_EQ(NT::ftoa(1000.0, 2, flag), CString(L"1000.00"));
        EXPECT_EQ(NT::ftoa(2.5, 0, flag), CString(L"2"));
        EXPECT_EQ(NT::ftoa(-1913.5349, 2, flag), CString(L"-1913.53"));
        EXPECT_EQ(NT::ftoa(0.1, 3, flag), CString(L"0.100"));
        EXPECT_EQ(NT::ftoa(12.0, -1, flag), CString(L"12"));
        // A figure that rounds to zero carries no sign.
        EXPECT_EQ(NT::ftoa(-0.0004, 3, flag), CString(L"0.000"));
        EXPECT_EQ(NT::ftoa(-0.0, 1, flag), CString(L"0.0"));
    }
    EXPECT_EQ(ftoa(3.14159, 2, true), NT::ftoa(3.14159, 2, true));
    EXPECT_EQ(NT::ftoa(1e300, 1, false).GetLength(), 303);
}

TEST(NTItoa, WritesDecimalIntegers) {
    EXPECT_EQ(NT::itoa(0), CString(L"0"));
    EXPECT_EQ(NT::itoa(-42), CString(L"-42"));
    EXPECT_EQ(NT::itoa(2147483647), CString(L"2147483647"));
}

}  // namespace
