#include "zefra/chart/HDGChartLayout.h"

#include <algorithm>
#include <cmath>

namespace HDGChartLayout {
namespace {

constexpr double kCapitalsPerEm = 0.72;
constexpr double kPi = 3.14159265358979323846;
// Below the baseline and above the capitals, in text heights.
constexpr double kDescent = 0.3;
constexpr double kAscent = 1.08;

// Advance of one character in em.
double Advance(char32_t c) {
    if (c >= '0' && c <= '9') return 0.55;
    if (c == ' ') return 0.27;
    if (c == '.' || c == ',' || c == ':' || c == ';' || c == '\'' || c == '(' || c == ')' || c == 'i' ||
        c == 'l' || c == 'j' || c == 'I' || c == '|' || c == '!')
        return 0.31;
    if (c == '-' || c == 't' || c == 'f' || c == 'r') return 0.36;
    if (c == '%') return 0.84;
    if (c == 'W' || c == 'M' || c == 'm' || c == 'w') return 0.9;
    if (c >= 'A' && c <= 'Z') return 0.7;
    if (c < 0x80) return 0.58;
    if (c >= 0x2E80) return 1.0;  // CJK and full-width forms
    return 0.72;                  // Greek, symbols
}

// The next code point of UTF-8 text; malformed bytes count as one character.
char32_t Next(const std::string& s, size_t& i) {
    const unsigned char lead = static_cast<unsigned char>(s[i++]);
    int more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
    char32_t c = more == 3 ? lead & 0x07u : more == 2 ? lead & 0x0Fu : more == 1 ? lead & 0x1Fu : lead;
    while (more-- > 0 && i < s.size()) c = (c << 6) | (static_cast<unsigned char>(s[i++]) & 0x3Fu);
    return c;
}

SHDGChartBox BoundsOf(const SOutline& o) {
    SHDGChartBox b{o.corners[0].x, o.corners[0].y, o.corners[0].x, o.corners[0].y};
    for (int i = 1; i < o.count; ++i) {
        b.minX = std::min(b.minX, o.corners[i].x);
        b.maxX = std::max(b.maxX, o.corners[i].x);
        b.minY = std::min(b.minY, o.corners[i].y);
        b.maxY = std::max(b.maxY, o.corners[i].y);
    }
    return b;
}

bool BoundsMeet(const SHDGChartBox& a, const SHDGChartBox& b) {
    return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
}

// True when the normal of one of a's edges separates a from b.
bool Separates(const SOutline& a, const SOutline& b) {
    const int edges = a.count == 2 ? 1 : a.count;
    for (int i = 0; i < edges; ++i) {
        const SHDGChartXY& p = a.corners[i];
        const SHDGChartXY& q = a.corners[(i + 1) % a.count];
        const double nx = q.y - p.y, ny = p.x - q.x;
        double aMin = HUGE_VAL, aMax = -HUGE_VAL, bMin = HUGE_VAL, bMax = -HUGE_VAL;
        for (int j = 0; j < a.count; ++j) {
            const double v = a.corners[j].x * nx + a.corners[j].y * ny;
            aMin = std::min(aMin, v);
            aMax = std::max(aMax, v);
        }
        for (int j = 0; j < b.count; ++j) {
            const double v = b.corners[j].x * nx + b.corners[j].y * ny;
            bMin = std::min(bMin, v);
            bMax = std::max(bMax, v);
        }
        if (aMax < bMin || bMax < aMin) return true;
    }
    return false;
}

}  // namespace

double FontSize(double height) { return height / kCapitalsPerEm; }

double TextWidth(const std::string& text, double height) {
    double em = 0.0;
    for (size_t i = 0; i < text.size();) em += Advance(Next(text, i));
    return em * FontSize(height);
}

SOutline Segment(const SHDGChartXY& a, const SHDGChartXY& b) {
    SOutline o;
    o.corners[0] = a;
    o.corners[1] = b;
    o.count = 2;
    o.bounds = BoundsOf(o);
    return o;
}

SOutline Box(const SHDGChartBox& box) {
    SOutline o;
    o.corners = {SHDGChartXY{box.minX, box.minY}, SHDGChartXY{box.maxX, box.minY}, SHDGChartXY{box.maxX, box.maxY},
                 SHDGChartXY{box.minX, box.maxY}};
    o.count = 4;
    o.bounds = box;
    return o;
}

SHDGChartXY BaselinePoint(const SHDGChartText& text) {
    const double a = text.angle * kPi / 180.0;
    const double lift = text.baseline == EHDGChartBaseline::Middle ? 0.5 * text.height
                        : text.baseline == EHDGChartBaseline::Top  ? text.height
                                                                    : 0.0;
    return {text.at.x + std::sin(a) * lift, text.at.y - std::cos(a) * lift};
}

SOutline TextOutline(const SHDGChartText& text, double pad) {
    const double a = text.angle * kPi / 180.0;
    const SHDGChartXY u{std::cos(a), std::sin(a)};
    const SHDGChartXY v{-u.y, u.x};
    const SHDGChartXY base = BaselinePoint(text);
    const double width = TextWidth(text.text, text.height);
    const double start = text.align == EHDGChartAlign::Start    ? 0.0
                         : text.align == EHDGChartAlign::Middle ? -0.5 * width
                                                                : -width;
    const double s0 = start - pad, s1 = start + width + pad;
    const double t0 = -kDescent * text.height - pad, t1 = kAscent * text.height + pad;
    auto at = [&](double s, double t) { return SHDGChartXY{base.x + u.x * s + v.x * t, base.y + u.y * s + v.y * t}; };
    SOutline o;
    o.corners = {at(s0, t0), at(s1, t0), at(s1, t1), at(s0, t1)};
    o.count = 4;
    o.bounds = BoundsOf(o);
    return o;
}

bool Overlap(const SOutline& a, const SOutline& b) {
    if (!BoundsMeet(a.bounds, b.bounds)) return false;
    return !Separates(a, b) && !Separates(b, a);
}

void Obstacles::AddPolyline(const std::vector<SHDGChartXY>& points) {
    for (size_t i = 1; i < points.size(); ++i) Add(Segment(points[i - 1], points[i]));
}

int Obstacles::Hits(const SOutline& outline) const {
    int hits = 0;
    for (const SOutline& o : m_outlines)
        if (Overlap(o, outline)) ++hits;
    return hits;
}

bool Obstacles::Free(const SOutline& outline) const {
    for (const SOutline& o : m_outlines)
        if (Overlap(o, outline)) return false;
    return true;
}

}  // namespace HDGChartLayout
