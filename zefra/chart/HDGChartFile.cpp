#include "zefra/chart/HDGChartFile.h"

#include "zefra/chart/HDGChartSvg.h"

#include <cctype>
#include <cstdio>
#include <fstream>

namespace HDGChartFile {

bool FormatOf(const std::string& path, EHDGChartFormat& format) {
    const size_t dot = path.find_last_of('.');
    const size_t slash = path.find_last_of('/');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return false;
    std::string ending = path.substr(dot + 1);
    for (char& c : ending) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (ending == "svg") format = EHDGChartFormat::Svg;
    else if (ending == "png") format = EHDGChartFormat::Png;
    else if (ending == "pdf") format = EHDGChartFormat::Pdf;
    else return false;
    return true;
}

bool Render(const HDGChartScene& scene, EHDGChartFormat format, std::string& bytes, std::string& error,
            double pixelsPerMm) {
    switch (format) {
        case EHDGChartFormat::Svg: bytes = HDGChartSvg::Write(scene); return true;
        case EHDGChartFormat::Png: return HDGChartCairo::RenderPng(scene, pixelsPerMm, bytes, error);
        case EHDGChartFormat::Pdf: return HDGChartCairo::RenderPdf(scene, bytes, error);
    }
    return false;
}

bool Write(const HDGChartScene& scene, const std::string& path, std::string& error, double pixelsPerMm) {
    EHDGChartFormat format = EHDGChartFormat::Svg;
    if (!FormatOf(path, format)) {
        error = path + ": the chart's file must end in .svg, .png or .pdf";
        return false;
    }
    std::string bytes;
    if (!Render(scene, format, bytes, error, pixelsPerMm)) return false;
    const std::string part = path + ".part";
    {
        std::ofstream out(part, std::ios::binary | std::ios::trunc);
        if (out) out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (out) out.flush();
        if (!out) {
            std::remove(part.c_str());
            error = path + ": cannot write the file";
            return false;
        }
    }
    if (std::rename(part.c_str(), path.c_str()) != 0) {
        std::remove(part.c_str());
        error = path + ": cannot write the file";
        return false;
    }
    return true;
}

}  // namespace HDGChartFile
