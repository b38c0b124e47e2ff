#pragma once
// What the pipe entities look up at draw time about display: written by
// the water half of the display settings, and the bend radius by the draw
// settings. The one object is g_HvacPipeDrawSetData, built at its first
// use, before any manager that writes it has finished its construction.

class QoDbHvacPipeDrawSetData {
public:
    static QoDbHvacPipeDrawSetData& Shared();

    double m_breakOffset = 0.0;
    bool m_showMask = true;
    bool m_show2dReducer = true;
    int m_2dReducerType = 0;
    double m_2dReducerLength = 0.0;
    double m_radius = 1.0;  // bend radius, shared by all water kinds

    // Whether each kind of pipe object shows its axis.
    struct SAxisFlags {
        bool pipe = true;
        bool riser = true;
        bool elbow = true;
        bool tee = true;
        bool cross = true;
        bool multiport = true;
        bool reduce = true;
        bool gooseneck = true;
        bool bendBridge = true;
    };
    SAxisFlags m_axis;
};

#define g_HvacPipeDrawSetData (QoDbHvacPipeDrawSetData::Shared())
