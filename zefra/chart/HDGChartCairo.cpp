#include "zefra/chart/HDGChartCairo.h"

#include "zefra/chart/HDGChartLayout.h"

#include <cairo-pdf.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace HDGChartCairo {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPointsPerMm = 72.0 / 25.4;
// The largest picture we make, in pixels a side: beyond it cairo can't.
constexpr double kLargestSide = 32000.0;
const char* const kFace = "WenQuanYi Micro Hei";

void SetColour(cairo_t* cr, std::uint32_t rgb) {
    cairo_set_source_rgb(cr, ((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0);
}

// Draws the scene in page millimetres (y downwards) on a context already
// scaled to them. Lines are kept at least `thinnest` millimetres wide.
void Draw(cairo_t* cr, const HDGChartScene& scene, double thinnest) {
    const SHDGChartBox& page = scene.page;
    auto X = [&page](double x) { return x - page.minX; };
    auto Y = [&page](double y) { return page.maxY - y; };

    cairo_set_source_rgb(cr, 1.0, 1.0, 1.0);
    cairo_paint(cr);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    for (const SHDGChartGroup& group : scene.groups) {
        for (const SHDGChartShape& s : group.shapes) {
            if (s.points.empty()) continue;
            if (s.kind == EHDGChartShape::Circle) {
                cairo_new_path(cr);
                cairo_arc(cr, X(s.points[0].x), Y(s.points[0].y), s.radius, 0.0, 2.0 * kPi);
            } else {
                cairo_move_to(cr, X(s.points[0].x), Y(s.points[0].y));
                for (size_t i = 1; i < s.points.size(); ++i) cairo_line_to(cr, X(s.points[i].x), Y(s.points[i].y));
                if (s.kind == EHDGChartShape::Polygon) cairo_close_path(cr);
            }
            SetColour(cr, s.colour);
            if (s.filled) {
                cairo_fill(cr);
                continue;
            }
            const double width = std::max(s.width, thinnest);
            cairo_set_line_width(cr, width);
            // Grid lines and hairlines on whole pixels: smoothing them only
            // blurs the grid (and makes the picture's file larger).
            cairo_set_antialias(cr, s.crisp || s.width <= thinnest ? CAIRO_ANTIALIAS_NONE : CAIRO_ANTIALIAS_DEFAULT);
            if (s.dashed) {
                const double dashes[] = {8.0 * s.width, 4.0 * s.width};
                cairo_set_dash(cr, dashes, 2, 0.0);
            }
            cairo_stroke(cr);
            if (s.dashed) cairo_set_dash(cr, nullptr, 0, 0.0);
        }
        for (const SHDGChartText& t : group.texts) {
            cairo_select_font_face(cr, kFace, CAIRO_FONT_SLANT_NORMAL,
                                   t.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
            cairo_set_font_size(cr, HDGChartLayout::FontSize(t.height));
            cairo_text_extents_t extents;
            cairo_text_extents(cr, t.text.c_str(), &extents);
            const double shift = t.align == EHDGChartAlign::Start    ? 0.0
                                 : t.align == EHDGChartAlign::Middle ? -0.5 * extents.x_advance
                                                                     : -extents.x_advance;
            const SHDGChartXY base = HDGChartLayout::BaselinePoint(t);
            cairo_save(cr);
            cairo_translate(cr, X(base.x), Y(base.y));
            cairo_rotate(cr, -t.angle * kPi / 180.0);
            cairo_move_to(cr, shift, 0.0);
            cairo_text_path(cr, t.text.c_str());
            if (t.halo) {
                cairo_set_source_rgb(cr, 1.0, 1.0, 1.0);
                cairo_set_line_width(cr, 0.35 * t.height);
                cairo_stroke_preserve(cr);
            }
            SetColour(cr, t.colour);
            cairo_fill(cr);
            cairo_restore(cr);
        }
    }
}

// cairo and fontconfig keep the fonts they found for the life of the
// process. At exit, once nothing draws any more, both hand them back, so
// that leak checkers see a clean process.
void ReleaseFontsAtExit() {
    static const bool registered = [] {
        return std::atexit([] {
                   cairo_debug_reset_static_data();
                   FcFini();
               }) == 0;
    }();
    (void)registered;
}

cairo_status_t Append(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

bool Failed(cairo_status_t status, const char* what, std::string& error) {
    if (status == CAIRO_STATUS_SUCCESS) return false;
    error = std::string(what) + ": " + cairo_status_to_string(status);
    return true;
}

}  // namespace

bool RenderPng(const HDGChartScene& scene, double pixelsPerMm, std::string& png, std::string& error) {
    const double width = std::ceil(scene.page.Width() * pixelsPerMm);
    const double height = std::ceil(scene.page.Height() * pixelsPerMm);
    if (!(pixelsPerMm > 0.0) || !(width >= 1.0 && height >= 1.0) || width > kLargestSide || height > kLargestSide) {
        error = "the picture would be too large or empty at " + std::to_string(pixelsPerMm) + " pixels per mm";
        return false;
    }
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height));
    ReleaseFontsAtExit();
    cairo_t* cr = cairo_create(surface);
    cairo_scale(cr, pixelsPerMm, pixelsPerMm);
    Draw(cr, scene, 0.8 / pixelsPerMm);
    const cairo_status_t drawn = cairo_status(cr);
    cairo_destroy(cr);
    png.clear();
    const cairo_status_t written = drawn == CAIRO_STATUS_SUCCESS
                                       ? cairo_surface_write_to_png_stream(surface, Append, &png)
                                       : drawn;
    cairo_surface_destroy(surface);
    return !Failed(written, "cannot draw the PNG", error);
}

bool RenderPdf(const HDGChartScene& scene, std::string& pdf, std::string& error) {
    pdf.clear();
    cairo_surface_t* surface = cairo_pdf_surface_create_for_stream(
        Append, &pdf, scene.page.Width() * kPointsPerMm, scene.page.Height() * kPointsPerMm);
    cairo_pdf_surface_set_metadata(surface, CAIRO_PDF_METADATA_TITLE, scene.title.c_str());
    ReleaseFontsAtExit();
    cairo_t* cr = cairo_create(surface);
    cairo_scale(cr, kPointsPerMm, kPointsPerMm);
    Draw(cr, scene, 0.0);
    const cairo_status_t drawn = cairo_status(cr);
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    const cairo_status_t finished = drawn == CAIRO_STATUS_SUCCESS ? cairo_surface_status(surface) : drawn;
    cairo_surface_destroy(surface);
    return !Failed(finished, "cannot draw the PDF", error);
}

}  // namespace HDGChartCairo
