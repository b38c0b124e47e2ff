#include "zefra/platform/airlib/NT.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>

namespace {

std::string Printf(double value, int decimals) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    const std::string figure = text;
    // A figure that rounds to zero carries no sign.
    if (figure[0] == '-' && figure.find_first_not_of("0.", 1) == std::string::npos) return figure.substr(1);
    return figure;
}

// Report figures take a short way for moderate values and leave those whose
// scaled value lands on a rounding half to the exact conversion. Values on
// both sides of the halves, and on them where binary fractions allow, must
// round as printf does.
TEST(ReportFigures, ValuesNextToAHalfRoundAsPrintfDoes) {
    for (int decimals = 0; decimals <= 15; ++decimals) {
        const double scale = std::pow(10.0, decimals);
        for (double k : {0.0, 1.0, 2.0, 12.0, 99.0, 1234.0, 20516.0, 4194303.0, 4294967295.0, 8589934591.0,
                         123456789012.0, 999999999999999.0}) {
            const double half = (k + 0.5) / scale;
            for (double value : {half, std::nextafter(half, 0.0), std::nextafter(half, 1e300), -half})
                ASSERT_EQ(NT::ftoa(value, decimals, false).ToUtf8(), Printf(value, decimals))
                    << value << " with " << decimals << " decimals";
        }
    }
    // Ties of the binary value, and values just below a decimal half whose
    // scaled product rounds onto it.
    for (double tie : {0.125, 0.375, 2.5, 3.5, 1e14 + 0.5, 4503599627370495.5, 2.675, 1.005, 1.0005})
        for (int decimals : {0, 1, 2, 3})
            EXPECT_EQ(NT::ftoa(tie, decimals, false).ToUtf8(), Printf(tie, decimals)) << tie;
}

}  // namespace
