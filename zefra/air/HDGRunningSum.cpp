#include "zefra/air/HDGRunningSum.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace {

constexpr long long kBinadeLow = 1LL << 52;  // mantissa of the binade's lowest value
constexpr long long kBinadeEnd = 1LL << 53;  // mantissa of the next binade's lowest value
constexpr long long kEndlessRun = LLONG_MAX / 4;
constexpr int kExponentBias = 1075;          // a double is mantissa × 2^(biased exponent − 1075)

std::uint64_t Bits(double x) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
}

// 2^power for a power within the normal range.
double PowerOfTwo(int power) {
    const std::uint64_t bits = static_cast<std::uint64_t>(power + 1023) << 52;
    double value = 0.0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace

HDGRunningSum::HDGRunningSum(double start, double step) : m_step(step) {
    m_checkpoints.reserve(16);
    m_checkpoints.push_back(MakeCheckpoint(0, start));
}

HDGRunningSum::SCheckpoint HDGRunningSum::MakeCheckpoint(long long count, double value) const {
    SCheckpoint checkpoint;
    checkpoint.Count = count;
    checkpoint.Value = value;

    // Rounding is symmetric about zero, so a negative sum runs as its mirror.
    const bool negative = value < 0.0;
    const double s = negative ? -m_step : m_step;
    const std::uint64_t bits = Bits(value);
    const int biased = static_cast<int>((bits >> 52) & 0x7FF);
    // Zero, subnormal, infinite and NaN sums, and unusual steps, go one addition at a time.
    if (biased == 0 || biased == 0x7FF || !std::isfinite(s) || s == 0.0) return checkpoint;
    const int ulpPower = biased - kExponentBias;
    if (ulpPower < -1022 || -ulpPower > 1023) return checkpoint;

    const long long mantissa = static_cast<long long>((bits & ((1ULL << 52) - 1)) | (1ULL << 52));
    const double stepInUlps = s * PowerOfTwo(-ulpPower);  // exact: a power of two
    if (!std::isnormal(stepInUlps) || std::fabs(stepInUlps) >= 0x1p51) return checkpoint;

    const double whole = std::floor(stepInUlps);
    const double fraction = stepInUlps - whole;
    if (fraction == 0.5) return checkpoint;  // ties round to even: the parity decides each time
    const long long floorUlps = static_cast<long long>(whole);
    const long long increment = fraction < 0.5 ? floorUlps : floorUlps + 1;

    // An addition stays in the binade when its exact result does:
    // mantissa + stepInUlps >= 2^52 going down, < 2^53 going up. With an
    // integer mantissa both read as integer conditions on mantissa + floorUlps.
    const long long room = s < 0.0 ? mantissa + floorUlps - kBinadeLow : kBinadeEnd - 1 - (mantissa + floorUlps);
    if (room < 0) return checkpoint;

    checkpoint.RunLength = increment == 0 ? kEndlessRun : room / std::llabs(increment) + 1;
    checkpoint.Mantissa = mantissa;
    checkpoint.Increment = increment;
    checkpoint.Scale = PowerOfTwo(ulpPower);
    checkpoint.Negative = negative;
    return checkpoint;
}

double HDGRunningSum::ValueInRun(const SCheckpoint& checkpoint, long long additions) {
    if (additions == 0) return checkpoint.Value;
    const long long mantissa = checkpoint.Mantissa + additions * checkpoint.Increment;
    const double magnitude = static_cast<double>(mantissa) * checkpoint.Scale;
    return checkpoint.Negative ? -magnitude : magnitude;
}

void HDGRunningSum::ExtendTo(long long additions) {
    while (true) {
        const SCheckpoint& last = m_checkpoints.back();
        if (additions <= last.Count + last.RunLength) return;
        // Past the run, the next addition leaves the binade: take it as a loop would.
        const double runEnd = ValueInRun(last, last.RunLength);
        const long long nextCount = last.Count + last.RunLength + 1;
        m_checkpoints.push_back(MakeCheckpoint(nextCount, runEnd + m_step));
    }
}

long long HDGRunningSum::GetExtent() const {
    const SCheckpoint& last = m_checkpoints.back();
    return last.Count + last.RunLength;
}

const HDGRunningSum::SCheckpoint& HDGRunningSum::CheckpointOf(long long additions) const {
    const auto after = std::upper_bound(m_checkpoints.begin(), m_checkpoints.end(), additions,
                                        [](long long count, const SCheckpoint& c) { return count < c.Count; });
    return *(after - 1);
}

double HDGRunningSum::ValueWithin(long long additions) const {
    if (additions <= 0) return m_checkpoints.front().Value;
    const SCheckpoint& checkpoint = CheckpointOf(additions);
    return ValueInRun(checkpoint, additions - checkpoint.Count);
}

void HDGRunningSum::ValuesWithin(long long first, int n, double* out) const {
    int k = 0;
    while (k < n) {
        const long long additions = first + k;
        const SCheckpoint& checkpoint = CheckpointOf(additions);
        const long long offset = additions - checkpoint.Count;
        if (additions <= 0 || offset == 0) {
            out[k++] = additions <= 0 ? m_checkpoints.front().Value : checkpoint.Value;
            continue;
        }
        // The rest of the run: ±(Mantissa + j × Increment) × Scale, as ValueInRun.
        const long long left = checkpoint.RunLength - offset + 1;
        if (left <= 0) {  // past the prepared values: as ValueWithin reads them
            out[k++] = ValueInRun(checkpoint, offset);
            continue;
        }
        const int count = static_cast<int>(std::min<long long>(n - k, left));
        const double sign = checkpoint.Negative ? -1.0 : 1.0;
        const long long mantissa = checkpoint.Mantissa + offset * checkpoint.Increment;
        const long long increment = checkpoint.Increment;
        const double scale = checkpoint.Scale;
        double* run = out + k;
        for (int j = 0; j < count; ++j) run[j] = sign * (static_cast<double>(mantissa + j * increment) * scale);
        k += count;
    }
}

double HDGRunningSum::ValueAfter(long long additions) {
    ExtendTo(additions);
    return ValueWithin(additions);
}
