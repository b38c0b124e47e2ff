#pragma once
#include "zefra/ZefraExport.h"
// Construction on first use for the module's singletons.
//
//   class QoHvacDuctFlangeManager {
//   public:
//       static QoHvacDuctFlangeManager* GetInstance() {
//           return QoModuleSingleton<QoHvacDuctFlangeManager>::Get();
//       }
//   private:
//       friend class QoModuleSingleton<QoHvacDuctFlangeManager>;
//       QoHvacDuctFlangeManager();
//   };
//
// The instance lives in zeroed static storage beside a plain guard flag.
// The first Get() sets the flag, runs the default constructor and puts the
// destructor on the module's exit list; a constructor that throws clears
// the flag again, so the next Get() tries anew, and nothing is registered.
// Once the exit list has destroyed the instance, a later Get() builds it
// afresh. No lock: callers stay on one thread.

#include "zefra/module/ZefraModuleExitList.h"

#include <new>
#include <typeinfo>

template <typename T>
class ZEFRA_API QoModuleSingleton {
public:
    static T* Get() {
        if (s_built) return Address();
        s_built = true;
        try {
            ::new (static_cast<void*>(s_storage)) T();
        } catch (...) {
            s_built = false;
            throw;
        }
        s_exitEntry.run = &Destroy;
        s_exitEntry.name = typeid(T).name();
        ZefraModuleExitList::Register(s_exitEntry);
        return Address();
    }

    static bool IsBuilt() { return s_built; }

private:
    static T* Address() { return std::launder(reinterpret_cast<T*>(s_storage)); }

    static void Destroy() {
        if (!s_built) return;
        s_built = false;
        Address()->~T();
    }

    alignas(T) static inline unsigned char s_storage[sizeof(T)] = {};
    static inline bool s_built = false;
    static inline ZefraModuleExitEntry s_exitEntry{};
};
