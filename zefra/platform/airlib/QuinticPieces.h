#pragma once
// Piecewise quintic interpolation of a smooth function from its value and
// first two derivatives at the ends of each piece (quintic Hermite). Each
// piece is kept as the six coefficients of a polynomial in the local
// coordinate s in [0, 1], so that reading it costs five multiply-adds.
//
// The error of a piece of width h is at most |f⁽⁶⁾|·h⁶ / 46080; the tables
// of the air library choose h so that it stays far below their tolerances,
// and their tests measure it against the exact functions.

#include <cmath>
#include <vector>

// The cubic between values a and b with slopes (per unit of s) slopeA and
// slopeB, at s in [0, 1]: the first guesses of the exact solvers.
inline double CubicHermite(double a, double slopeA, double b, double slopeB, double s) {
    const double s2 = s * s;
    const double s3 = s2 * s;
    return (2.0 * s3 - 3.0 * s2 + 1.0) * a + (s3 - 2.0 * s2 + s) * slopeA + (3.0 * s2 - 2.0 * s3) * b +
           (s3 - s2) * slopeB;
}

// f, df/dx and d²f/dx² at one argument.
struct QuinticNode {
    double value;
    double d1;
    double d2;
};

struct QuinticPiece {
    double a[6];

    // The piece between two nodes a width apart.
    static QuinticPiece Between(const QuinticNode& from, const QuinticNode& to, double width) {
        QuinticPiece p;
        p.a[0] = from.value;
        p.a[1] = from.d1 * width;
        p.a[2] = 0.5 * from.d2 * width * width;
        const double r0 = to.value - (p.a[0] + p.a[1] + p.a[2]);
        const double r1 = to.d1 * width - (p.a[1] + 2.0 * p.a[2]);
        const double r2 = to.d2 * width * width - 2.0 * p.a[2];
        p.a[3] = 10.0 * r0 - 4.0 * r1 + 0.5 * r2;
        p.a[4] = -15.0 * r0 + 7.0 * r1 - r2;
        p.a[5] = 6.0 * r0 - 3.0 * r1 + 0.5 * r2;
        return p;
    }

    double At(double s) const { return a[0] + s * (a[1] + s * (a[2] + s * (a[3] + s * (a[4] + s * a[5])))); }

    // The value and its first three derivatives in s.
    void TermsAt(double s, double terms[4]) const {
        terms[0] = At(s);
        terms[1] = a[1] + s * (2.0 * a[2] + s * (3.0 * a[3] + s * (4.0 * a[4] + s * 5.0 * a[5])));
        terms[2] = 2.0 * a[2] + s * (6.0 * a[3] + s * (12.0 * a[4] + s * 20.0 * a[5]));
        terms[3] = 6.0 * a[3] + s * (24.0 * a[4] + s * 60.0 * a[5]);
    }

    // d/ds: divide by the width for d/dx.
    double SlopeAt(double s) const {
        return a[1] + s * (2.0 * a[2] + s * (3.0 * a[3] + s * (4.0 * a[4] + s * 5.0 * a[5])));
    }
};

// out[k] = pieces[k]->At(s[k]) for k < n, the same bits, several at a time:
// each argument with its own piece's coefficients.
void ReadEachPiece(const QuinticPiece* const* pieces, const double* s, double* out, int n);

// What a reading of a UniformQuinticTable needs, for loops that read two
// tables at once.
struct QuinticTableLayout {
    const QuinticPiece* pieces;
    int lastPiece;
    double first;
    double invWidth;

    // The piece that holds x, and x's place in it, as At(x) finds them.
    const QuinticPiece* Locate(double x, double& s) const {
        const double u = (x - first) * invWidth;
        int i = static_cast<int>(u);
        if (i > lastPiece) i = lastPiece;
        s = u - i;
        return pieces + i;
    }

    // At(x) of the table, the same steps.
    double At(double x) const {
        double s;
        return Locate(x, s)->At(s);
    }
};

// Where each x[k] (k < n, at most 256) falls in one of two tables: table a
// for x in [aLo, aHi) ([aLo, aHi] when aClosed), else table b for x in
// [bLo, bHi]; pieces[k] and s[k] as the table's At finds them, and found[k]
// 1 for table a, 2 for table b, 0 (and the start of table a) for an x in
// neither. The search runs in vector loops.
void LocateInTwoTables(const QuinticTableLayout& a, double aLo, double aHi, bool aClosed, const QuinticTableLayout& b,
                       double bLo, double bHi, const double* x, const QuinticPiece** pieces, double* s,
                       unsigned char* found, int n);

// out[k] = the reading of x[k] from pieces of equal width that start at
// first, for k < n: the loop of UniformQuinticTable::AtMany, built for the
// widest vector unit the processor has.
void ReadQuinticPieces(const QuinticPiece* pieces, int lastPiece, double first, double invWidth, const double* x,
                       double* out, int n);

// Pieces of equal width from first to last. Arguments outside [first, last],
// and NaN, are not in the table: callers ask Contains first.
class UniformQuinticTable {
public:
    UniformQuinticTable() = default;

    // node(x) gives the QuinticNode at x.
    template <typename Node>
    UniformQuinticTable(double first, double last, int pieces, const Node& node)
        : m_first(first), m_last(last), m_width((last - first) / pieces), m_invWidth(pieces / (last - first)) {
        m_pieces.reserve(static_cast<size_t>(pieces));
        QuinticNode from = node(first);
        for (int i = 1; i <= pieces; ++i) {
            const QuinticNode to = node(i == pieces ? last : first + i * m_width);
            m_pieces.push_back(QuinticPiece::Between(from, to, m_width));
            from = to;
        }
    }

    bool Contains(double x) const { return x >= m_first && x <= m_last; }

    double At(double x) const {
        double s;
        return PieceAt(x, s).At(s);
    }

    // At(x[k]) for k < n, bit for bit, several at a time. Every x[k] must be
    // in the table.
    void AtMany(const double* x, double* out, int n) const {
        ReadQuinticPieces(m_pieces.data(), static_cast<int>(m_pieces.size()) - 1, m_first, m_invWidth, x, out, n);
    }

    // The value and df/dx.
    double At(double x, double& slope) const {
        double s;
        const QuinticPiece& piece = PieceAt(x, s);
        slope = piece.SlopeAt(s) * m_invWidth;
        return piece.At(s);
    }

    // The value and its first three derivatives in x.
    void TermsAt(double x, double terms[4]) const {
        double s;
        PieceAt(x, s).TermsAt(s, terms);
        terms[1] *= m_invWidth;
        terms[2] *= m_invWidth * m_invWidth;
        terms[3] *= m_invWidth * m_invWidth * m_invWidth;
    }

    double First() const { return m_first; }
    double Last() const { return m_last; }

    // What a reading needs, for loops that read two tables at once.
    using Layout = QuinticTableLayout;
    Layout GetLayout() const {
        return {m_pieces.data(), static_cast<int>(m_pieces.size()) - 1, m_first, m_invWidth};
    }

private:
    const QuinticPiece& PieceAt(double x, double& s) const {
        const double u = (x - m_first) * m_invWidth;
        const int last = static_cast<int>(m_pieces.size()) - 1;
        int i = static_cast<int>(u);
        if (i > last) i = last;
        s = u - i;
        return m_pieces[static_cast<size_t>(i)];
    }

    double m_first = 0.0;
    double m_last = 0.0;
    double m_width = 1.0;
    double m_invWidth = 1.0;
    std::vector<QuinticPiece> m_pieces;
};
