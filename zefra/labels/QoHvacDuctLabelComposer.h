#pragma once
// Works out the value of one label line. A number comes from the duct when
// there is one, otherwise from the line's stored content, and is shown in
// the unit that the line's suffix names (compared without regard to case).
// Lines whose label name has no computation keep their stored content.

#include "zefra/labels/QoHvacDuctLabelData.h"

class QoDbHvacDuct;
class QoHvacDuctLabelItem;
class QoHvacDuctLabelManager;

class QoHvacDuctLabelComposer {
public:
    // The settings give the link flag of sizes and the elevation standard
    // and prefixes; they must outlive the composer.
    explicit QoHvacDuctLabelComposer(const QoHvacDuctLabelManager& settings) : m_settings(settings) {}

    // The duct may be null.
    QoHvacDuctLabelData Compose(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct) const;

private:
    using Computation = void (QoHvacDuctLabelComposer::*)(const QoHvacDuctLabelItem&, const QoDbHvacDuct*,
                                                          QoHvacDuctLabelData&) const;
    struct SLabelComputation {
        const wchar_t* labelname;
        Computation compute;
    };
    static const SLabelComputation kComputations[];

    void ComposeFlow(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeVelocity(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeElevation(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeSpecificFriction(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                                 QoHvacDuctLabelData& line) const;
    void ComposeRectSize(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeRoundSize(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeFrictionLoss(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct,
                             QoHvacDuctLabelData& line) const;
    void ComposeSystemFlag(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;
    void ComposeSystemName(const QoHvacDuctLabelItem& item, const QoDbHvacDuct* duct, QoHvacDuctLabelData& line) const;

    // Height in metres of a duct that isn't vertical, with the prefix and
    // the base value of the height chosen.
    double LevelDuctElevation(const QoDbHvacDuct& duct, QoHvacDuctLabelData& line) const;

    const QoHvacDuctLabelManager& m_settings;
};
