#pragma once
// Base of the host's run-time objects that its registry hands out.

class AcRxObject {
public:
    AcRxObject() = default;
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;
    virtual ~AcRxObject() = default;
};
