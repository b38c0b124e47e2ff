#include "zefra/chart/HDGChartSvg.h"

#include "zefra/chart/HDGChartLayout.h"

#include <charconv>
#include <cstdio>

namespace HDGChartSvg {
namespace {

class Writer {
public:
    explicit Writer(const HDGChartScene& scene) : m_page(scene.page) { m_out.reserve(1 << 18); }

    std::string Run(const HDGChartScene& scene) {
        m_out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
        m_out += "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                 "xmlns:inkscape=\"http://www.inkscape.org/namespaces/inkscape\" width=\"";
        Num(m_page.Width());
        m_out += "mm\" height=\"";
        Num(m_page.Height());
        m_out += "mm\" viewBox=\"0 0 ";
        Num(m_page.Width());
        m_out += ' ';
        Num(m_page.Height());
        m_out += "\" font-family=\"WenQuanYi Micro Hei, sans-serif\">\n<title>";
        Escaped(scene.title);
        m_out += "</title>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
        for (const SHDGChartGroup& group : scene.groups) {
            if (group.Empty()) continue;
            m_out += "<g id=\"";
            Escaped(group.id);
            m_out += "\" data-layer=\"";
            Escaped(group.layer);
            m_out += "\" inkscape:groupmode=\"layer\" inkscape:label=\"";
            Escaped(group.layer);
            m_out += "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
            for (const SHDGChartShape& shape : group.shapes) Shape(shape);
            for (const SHDGChartText& text : group.texts) Text(text);
            m_out += "</g>\n";
        }
        m_out += "</svg>\n";
        return std::move(m_out);
    }

private:
    void Num(double value) {
        char text[32];
        const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 2);
        char* end = result.ptr;
        while (end > text && end[-1] == '0') --end;
        if (end > text && end[-1] == '.') --end;
        if (end == text + 2 && text[0] == '-' && text[1] == '0') {
            m_out += '0';
            return;
        }
        m_out.append(text, end);
    }
    void X(double x) { Num(x - m_page.minX); }
    void Y(double y) { Num(m_page.maxY - y); }

    void Colour(std::uint32_t rgb) {
        char text[8];
        std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(rgb & 0xFFFFFFu));
        m_out += text;
    }

    void Escaped(const std::string& text) {
        for (char c : text) {
            switch (c) {
                case '&': m_out += "&amp;"; break;
                case '<': m_out += "&lt;"; break;
                case '>': m_out += "&gt;"; break;
                case '"': m_out += "&quot;"; break;
                default: m_out += c;
            }
        }
    }

    void Points(const std::vector<SHDGChartXY>& points) {
        m_out += " points=\"";
        for (size_t i = 0; i < points.size(); ++i) {
            if (i) m_out += ' ';
            X(points[i].x);
            m_out += ',';
            Y(points[i].y);
        }
        m_out += '"';
    }

    void Shape(const SHDGChartShape& s) {
        if (s.kind == EHDGChartShape::Circle) {
            if (s.points.empty()) return;
            m_out += "<circle cx=\"";
            X(s.points[0].x);
            m_out += "\" cy=\"";
            Y(s.points[0].y);
            m_out += "\" r=\"";
            Num(s.radius);
            m_out += '"';
        } else {
            m_out += s.kind == EHDGChartShape::Polygon ? "<polygon" : "<polyline";
            Points(s.points);
        }
        if (s.filled) {
            m_out += " fill=\"";
            Colour(s.colour);
            m_out += "\" stroke=\"none\"/>\n";
            return;
        }
        m_out += " stroke=\"";
        Colour(s.colour);
        m_out += "\" stroke-width=\"";
        Num(s.width);
        m_out += '"';
        if (s.dashed) {
            m_out += " stroke-dasharray=\"";
            Num(8.0 * s.width);
            m_out += ' ';
            Num(4.0 * s.width);
            m_out += '"';
        }
        m_out += "/>\n";
    }

    void Text(const SHDGChartText& t) {
        const SHDGChartXY base = HDGChartLayout::BaselinePoint(t);
        m_out += "<text x=\"";
        X(base.x);
        m_out += "\" y=\"";
        Y(base.y);
        m_out += "\" font-size=\"";
        Num(HDGChartLayout::FontSize(t.height));
        m_out += "\" fill=\"";
        Colour(t.colour);
        m_out += '"';
        if (t.align != EHDGChartAlign::Start)
            m_out += t.align == EHDGChartAlign::Middle ? " text-anchor=\"middle\"" : " text-anchor=\"end\"";
        if (t.bold) m_out += " font-weight=\"bold\"";
        if (t.halo) {
            m_out += " stroke=\"#ffffff\" stroke-width=\"";
            Num(0.35 * t.height);
            m_out += "\" paint-order=\"stroke\"";
        }
        if (t.angle != 0.0) {
            m_out += " transform=\"rotate(";
            Num(-t.angle);
            m_out += ' ';
            X(base.x);
            m_out += ' ';
            Y(base.y);
            m_out += ")\"";
        }
        m_out += '>';
        Escaped(t.text);
        m_out += "</text>\n";
    }

    SHDGChartBox m_page;
    std::string m_out;
};

}  // namespace

std::string Write(const HDGChartScene& scene) { return Writer(scene).Run(scene); }

}  // namespace HDGChartSvg
