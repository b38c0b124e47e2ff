#pragma once
#include "zefra/ZefraExport.h"
// Base of the air processes on the chart: the caller fills the given data,
// calls Calculate, and reads points, numbers and the result texts.

#include "zefra/platform/airlib/CNTObject.h"
#include "zefra/platform/mfc/CArray.h"

class QoDtDictionary;

class ZEFRA_API ZefraHDGProcess : public CNTObject {
    DECLARE_DYNAMIC(ZefraHDGProcess)
public:
    ZefraHDGProcess() = default;
    ~ZefraHDGProcess() override = default;

    void Serialize(CArchive& ar) override { (void)ar; }
    void AssertValid() const override {}
    void Dump(CDumpContext& dc) const override { (void)dc; }

    virtual bool Calculate() = 0;
    // Records of the process in a caller's dictionary; the base has none.
    virtual bool SaveXml(QoDtDictionary* dict);
    virtual bool ReadXml(QoDtDictionary* dict);

    const CStringArray& GetResultInfo() const { return ResultInfo; }

protected:
    ZefraHDGProcess(const ZefraHDGProcess&) = default;
    ZefraHDGProcess& operator=(const ZefraHDGProcess&) = default;

    // Result texts of the return-air schemes; the simple processes leave it.
    CStringArray ResultInfo;
};
