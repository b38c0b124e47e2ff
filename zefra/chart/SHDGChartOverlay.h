#pragma once
// An air-handling process to draw over the chart: named state points and the
// lines between them in the order the air passes, as plain data.

#include <string>
#include <vector>

struct SHDGChartOverlay {
    struct SPoint {
        std::string name;  // UTF-8, e.g. "N'"
        double Tdb = 0.0;  // °C
        double D = 0.0;    // g/kg
    };
    // A straight process line from one point to the next, drawn with an
    // arrow in the direction of the air; `label` names the process and may
    // be empty.
    struct SSegment {
        int from = 0;
        int to = 0;
        std::string label;
    };
    // The heat-humidity-ratio line of the room: through `through` with the
    // slope ε, on the side of `toward`, carried on to the edge of the chart's
    // region (the saturation curve or the frame).
    struct SRatioLine {
        bool present = false;
        int through = 0;
        int toward = 0;
        double epsilon = 0.0;  // kJ/kg
    };

    std::string title;  // e.g. "一次回风夏季处理过程"
    std::vector<SPoint> points;
    std::vector<SSegment> segments;
    SRatioLine ratioLine;
};
