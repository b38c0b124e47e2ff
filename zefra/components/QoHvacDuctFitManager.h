#pragma once
#include "zefra/ZefraExport.h"
// The default fitting of each family (elbow, transition, offset, tee,
// cross) for rectangular and circular ducts, eight general options of
// fitting generation, and the catalogues from fitting type numbers to their
// names. Types below 100 are rectangular fittings, from 100 up circular.
//
// Records and options are stored below g_dictCfg "ZEFRA\DEFAULTFITTING"
// (see HvacFitRecordStore for a record's keys); the catalogues are built in
// and never stored. Every read and every save also copies the records and
// the two 2D styles into g_HvacFitAndDisplayData, where the duct entities
// find them. Callers read and change the records and options directly.

#include "zefra/containers/QoArray.h"
#include "zefra/module/QoModuleSingleton.h"
#include "zefra/platform/entities/SHvacDuctCrossData.h"
#include "zefra/platform/entities/SHvacDuctElbowData.h"
#include "zefra/platform/entities/SHvacDuctOffsetData.h"
#include "zefra/platform/entities/SHvacDuctTeeData.h"
#include "zefra/platform/entities/SHvacDuctTransData.h"
#include "zefra/platform/mfc/CString.h"

#include <map>

class ZEFRA_API QoHvacDuctFitManager {
public:
    using Catalogue = std::map<int, CString>;

    static QoHvacDuctFitManager* GetInstance();

    QoHvacDuctFitManager(const QoHvacDuctFitManager&) = default;
    QoHvacDuctFitManager& operator=(const QoHvacDuctFitManager&) = default;
    ~QoHvacDuctFitManager() = default;

    // Takes what the store holds and pushes the result to the shared
    // object; always true.
    bool ReadData();
    // Writes the options (only when the branch exists already) and the ten
    // records; stops at the first record that can't be written, after
    // printing why. True when all ten were written.
    bool SaveData();

    // Replaces the rectangular or the circular record; with `save`, writes
    // that one record and gives the result of the write.
    bool SetDefaultFitData(const SHvacDuctElbowData& data, bool isRect, bool save);
    bool SetDefaultFitData(const SHvacDuctTransData& data, bool isRect, bool save);
    bool SetDefaultFitData(const SHvacDuctOffsetData& data, bool isRect, bool save);
    bool SetDefaultFitData(const SHvacDuctTeeData& data, bool isRect, bool save);
    bool SetDefaultFitData(const SHvacDuctCrossData& data, bool isRect, bool save);

    // Every type of the family, rectangular and circular, ascending.
    QoArray<int> GetAllElbowType() const { return KeysOf(m_elbowTypes); }
    QoArray<int> GetAllTransType() const { return KeysOf(m_transTypes); }
    QoArray<int> GetAllOffsetType() const { return KeysOf(m_offsetTypes); }
    QoArray<int> GetAllTeeType() const { return KeysOf(m_teeTypes); }
    QoArray<int> GetAllCrossType() const { return KeysOf(m_crossTypes); }

    // The name of a type. An unknown type enters the catalogue with an
    // empty name, except in the cross catalogue, which stays as it is.
    CString GetElbowNameWithType(int type) { return m_elbowTypes[type]; }
    CString GetTransNameWithType(int type) { return m_transTypes[type]; }
    CString GetOffsetNameWithType(int type) { return m_offsetTypes[type]; }
    CString GetTeeNameWithType(int type) { return m_teeTypes[type]; }
    CString GetCrossNameWithType(int type) const;

    SHvacDuctCrossData m_rectCross;
    SHvacDuctTeeData m_rectTee;
    SHvacDuctElbowData m_rectElbow;
    SHvacDuctTransData m_rectTrans;
    SHvacDuctOffsetData m_rectOffset;
    SHvacDuctCrossData m_circleCross;
    SHvacDuctTeeData m_circleTee;
    SHvacDuctElbowData m_circleElbow;
    SHvacDuctTransData m_circleTrans;
    SHvacDuctOffsetData m_circleOffset;

    bool m_useDial = true;
    int m_riserHoleSymbol = 0;
    int m_raisedElbow2dStyle = 0;
    int m_raisedOffset2dStyle = 0;
    int m_elevationChangeNode = 3;
    int m_shortRiseOffset = 1;
    double m_raisedOffsetAngle = 0.7853981633974483;  // radians
    double m_returnOffsetCurvature = 1.0;

private:
    friend class QoModuleSingleton<QoHvacDuctFitManager>;
    QoHvacDuctFitManager();

    static QoArray<int> KeysOf(const Catalogue& catalogue);
    void FillCatalogues();
    void ReadOptions();
    void PushRecordsToShared() const;

    bool SaveElbowData(bool isRect);
    bool SaveTransData(bool isRect);
    bool SaveOffsetData(bool isRect);
    bool SaveTeeData(bool isRect);
    bool SaveCrossData(bool isRect);

    Catalogue m_crossTypes;
    Catalogue m_teeTypes;
    Catalogue m_elbowTypes;
    Catalogue m_transTypes;
    Catalogue m_offsetTypes;
};
