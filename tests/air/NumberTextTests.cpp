#include "zefra/platform/airlib/NT.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <random>
#include <string>

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

// Figures are written with printf's digits and rounding (ties of the binary
// value, not of its decimal reading), including the halves that sit exactly
// on a binary fraction.
TEST(NTFtoa, AgreesWithPrintfFixedNotation) {
    std::mt19937_64 random(20261123);
    std::uniform_real_distribution<double> magnitude(-8.0, 8.0);
    char expected[400];
    for (int i = 0; i < 20000; ++i) {
        const double value = std::pow(10.0, magnitude(random)) * (i % 2 ? -1.0 : 1.0);
        const int decimals = i % 7;
        std::snprintf(expected, sizeof expected, "%.*f", decimals, value);
        const std::string text = NT::ftoa(value, decimals, false).ToUtf8();
        if (expected[0] == '-' && std::string(expected).find_first_not_of("-0.") == std::string::npos)
            ASSERT_EQ(text, expected + 1) << value;
        else
            ASSERT_EQ(text, expected) << value << " " << decimals;
    }
    for (double half : {0.125, 0.375, 2.5, 1.5, -0.5, 1e21 + 0.5})
        EXPECT_EQ(NT::ftoa(half, half == 0.125 || half == 0.375 ? 2 : 0, false).ToUtf8(),
                  [&] {
                      std::snprintf(expected, sizeof expected, "%.*f", half == 0.125 || half == 0.375 ? 2 : 0, half);
                      return std::string(expected[0] == '-' && std::string(expected) == "-0" ? "0" : expected);
                  }());
}

TEST(NTItoa, WritesDecimalIntegers) {
    EXPECT_EQ(NT::itoa(0), CString(L"0"));
    EXPECT_EQ(NT::itoa(-42), CString(L"-42"));
    EXPECT_EQ(NT::itoa(2147483647), CString(L"2147483647"));
}

}  // namespace
