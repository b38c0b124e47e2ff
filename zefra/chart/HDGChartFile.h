#pragma once
// Writing a chart scene to a file whose name's ending gives the format:
// ".svg", ".png" or ".pdf", in any case.

#include "zefra/chart/HDGChartCairo.h"
#include "zefra/chart/HDGChartScene.h"

#include <string>

enum class EHDGChartFormat { Svg, Png, Pdf };

namespace HDGChartFile {

// False for any other ending.
bool FormatOf(const std::string& path, EHDGChartFormat& format);

// The scene's bytes in that format.
bool Render(const HDGChartScene& scene, EHDGChartFormat format, std::string& bytes, std::string& error,
            double pixelsPerMm = HDGChartCairo::kDefaultPixelsPerMm);

// Writes the file through a temporary one beside it, so that a failed write
// leaves no half-written chart. False, with the reason in `error`, for an
// unknown ending, a failed rendering or a file that can't be written.
bool Write(const HDGChartScene& scene, const std::string& path, std::string& error,
           double pixelsPerMm = HDGChartCairo::kDefaultPixelsPerMm);

}  // namespace HDGChartFile
