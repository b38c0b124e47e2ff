#pragma once
// The drawing's entities by object id, for the operations that open an
// entity from its id. The drawing side posts an entity under its id and
// takes it off before the entity goes; the registry owns nothing.
//
// Opening gives the entity only if it is of the class asked for (or derives
// from it), the way the host opens an object through a typed pointer.

#include "zefra/platform/host/AcDbObjectId.h"

class AcDbEntity;

class QoDbObjectRegistry {
public:
    // A null id or a null entity changes nothing; a second post under the
    // same id replaces the first.
    static void Post(const AcDbObjectId& id, AcDbEntity* entity);
    static void Remove(const AcDbObjectId& id);

    // Null when the id names nothing, or an entity of another class.
    template <typename T>
    static T* Open(const AcDbObjectId& id) {
        return dynamic_cast<T*>(Find(id));
    }

private:
    static AcDbEntity* Find(const AcDbObjectId& id);
};
