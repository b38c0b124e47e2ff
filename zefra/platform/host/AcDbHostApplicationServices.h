#pragma once
// The host's services: which drawing is the working one. Until a drawing is
// set, the working database is one empty drawing made at the first request.

class AcDbDatabase;

class AcDbHostApplicationServices {
public:
    AcDbDatabase* workingDatabase() const;
    // Null goes back to the built-in drawing. The caller keeps ownership.
    void setWorkingDatabase(AcDbDatabase* database) { m_working = database; }

private:
    AcDbDatabase* m_working = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
