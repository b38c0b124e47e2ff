#pragma once
#include "zefra/ZefraExport.h"
// The register of the named systems of the current layer standard: duct
// systems and the five water and heating families. A system is an item of
// the standard's field tree (key, display name, line type, colour, comment)
// with a group of layer entries in the assembly tree, plus an optional flag
// in the flag set of its kind below "ZEFRA". The register holds borrowed
// pointers into g_dictCfg and refreshes them before most operations, so a
// switch of the current standard shows at the next call; only the layer
// comparison table waits for ReReadSysUserComparison. Changes stay in
// g_dictCfg until HVAC::SaveConfigData writes the file.
//
// A kind without a definition or assembly dictionary behaves as one
// without systems or groups.

#include "zefra/containers/QoArray.h"
#include "zefra/layers/EQoDbHvacSystemType.h"
#include "zefra/layers/QoHvacLayerManager.h"
#include "zefra/platform/entities/QoHvacEntProperty.h"
#include "zefra/platform/mfc/CArray.h"

#include <optional>

template <typename T>
class QoModuleSingleton;

class ZEFRA_API QoHvacDuctLayerManager : public QoHvacLayerManager {
public:
    // One assembly entry: its layer key and its layer name as it was when
    // the table was last built.
    struct SSysUserComparison {
        CString sysKey;
        CString userLayer;
    };

    // The one instance, built at the first call from g_dictCfg.
    static QoHvacDuctLayerManager* GetInstance();

    QoHvacDuctLayerManager(const QoHvacDuctLayerManager&) = default;
    QoHvacDuctLayerManager& operator=(const QoHvacDuctLayerManager&) = default;
    ~QoHvacDuctLayerManager() = default;

    void ReRead();

    // The kind's dictionaries as the last refresh left them; null for a kind
    // outside the six.
    QoDtDictionary* GetSysDefDict(HVAC::EQoDbHvacSystemType kind) const;
    QoDtDictionary* GetAssDict(HVAC::EQoDbHvacSystemType kind) const;

    // FindSystem takes a system key, FindName a display name, FindFlag a
    // flag as GetAllFlag gives it (upper case).
    bool FindSystem(const CString& key, HVAC::EQoDbHvacSystemType kind);
    bool FindName(const CString& name, HVAC::EQoDbHvacSystemType kind);
    bool FindFlag(const CString& flag, HVAC::EQoDbHvacSystemType kind);

    // Display name to key and back; the out value is untouched on a miss.
    bool GetSysKey(const CString& name, CString& key, HVAC::EQoDbHvacSystemType kind);
    bool GetSysLocalName(const CString& key, CString& name, HVAC::EQoDbHvacSystemType kind);

    // Appends the display names of the kind's systems in list order; false
    // when the standard has no field tree.
    bool GetAllSystemName(CStringArray& names, HVAC::EQoDbHvacSystemType kind);
    bool GetAllSystemName(QoArray<CString>& names, HVAC::EQoDbHvacSystemType kind);
    // Replaces the array's content by one flag a system (empty without one).
    bool GetAllFlag(CStringArray& flags, HVAC::EQoDbHvacSystemType kind);
    // The flag of a system, by display name, in upper case; empty if none.
    CString GetFlagWithSysname(const CString& name, HVAC::EQoDbHvacSystemType kind);

    // Adds (or overwrites) a system with the line type and colour of the
    // sample system, and gives it a copy of the sample's layer group in
    // which the sample key is replaced by the new key. An empty sample means
    // the kind's first system; a kind without systems adds nothing and gives
    // true. False when the kind has no definition dictionary.
    bool AddSystem(const CString& key, const CString& name, const CString& value, CString sample,
                   HVAC::EQoDbHvacSystemType kind);
    // Removes the system and its layer group; false for an unknown key.
    bool DelSystem(const CString& key, HVAC::EQoDbHvacSystemType kind);

    // What a caller sets on a system in RenameSystem and AddSystemFromSample;
    // a field left unset keeps what the system has (renaming) or takes it
    // from the sample (adding; the comment, a pipe code, starts empty then).
    struct SSystemLook {
        std::optional<CString> lineType;
        std::optional<int> colorIndex;  // 0 ... 256
        std::optional<CString> comment;
        std::optional<CString> value;
    };

    enum ESystemEdit {
        eSystemEdited,
        eNoSystemList,       // the kind has no definition dictionary
        eUnknownSystem,      // no system of that key in the kind
        eUnknownSample,      // no system of the sample key in the kind, or none at all
        eBadKey,             // empty, or holding "\\" or "-"
        eBadName,            // empty, or holding "\\"
        eKeyTaken,           // another system of the kind has the key
        eNameTaken,          // another system of the kind has the display name
        eBadLook,            // a colour outside 0 ... 256 or an empty line type
    };

    // Gives the system of `key` a new key and display name (either may stay
    // the same, an empty one means unchanged) and the given look. The system
    // keeps one group: it moves under the new display name with its entries,
    // their layer names and attributes; a new key replaces the old one only
    // where it stands as the system part of a layer key. The flag moves with
    // the key. Names and keys of other kinds are no concern: each kind is a
    // register of its own. Nothing changes unless the result is eSystemEdited.
    ESystemEdit RenameSystem(const CString& key, const CString& newKey, const CString& newName,
                             const SSystemLook& look, HVAC::EQoDbHvacSystemType kind);
    // Adds a new system that copies line type, colour and the other
    // attributes of a sample of the same kind (empty: the kind's first
    // system), and a group holding the sample's layer keys with the new key
    // in their system part; the entries' layer names are left empty, so they
    // follow the new display name. Unlike AddSystem it refuses a key or name
    // that the kind has, and a sample of another kind.
    ESystemEdit AddSystemFromSample(const CString& key, const CString& name, const CString& sample,
                                    const SSystemLook& look, HVAC::EQoDbHvacSystemType kind);

    CString GetLayerComment(const CString& layerKey) const;
    // The layer of the key (made in the working drawing if missing) with the
    // definition's line weight and scale; false, untouched, without one.
    bool GetLayerProp(const CString& layerKey, QoHvacEntProperty& property) const;

    // The key of the first item below `dict`, depth first, whose text is the
    // layer name; empty if none.
    CString SearchUserDefineSys(const CString& layerName, QoDtDictionary* dict) const;
    // The layer key for a layer name: the assembly tree first, then the
    // comparison table; empty if neither knows the name.
    CString TransUserLayerToSys(const CString& layerName) const;
    void InitialSysUserComparison(QoDtDictionary* dict);
    void ReReadSysUserComparison();
    const QoArray<SSysUserComparison>& GetSysUserComparison() const { return m_sysUserComparison; }

    bool FindDuctSys(const CString& key) { return FindSystem(key, HVAC::ESysDuct); }
    bool FindDuctFlag(const CString& flag) { return FindFlag(flag, HVAC::ESysDuct); }
    bool FindDuctName(const CString& name) { return FindName(name, HVAC::ESysDuct); }
    bool AddDuctSys(const CString& key, const CString& name, const CString& value, CString sample) {
        return AddSystem(key, name, value, sample, HVAC::ESysDuct);
    }
    bool DelDuctSys(const CString& key) { return DelSystem(key, HVAC::ESysDuct); }
    bool GetDuctSysLocalName(const CString& key, CString& name) {
        return GetSysLocalName(key, name, HVAC::ESysDuct);
    }
    bool GetDuctSysKey(const CString& name, CString& key) { return GetSysKey(name, key, HVAC::ESysDuct); }

private:
    friend class QoModuleSingleton<QoHvacDuctLayerManager>;

    struct KindDicts {
        QoDtDictionary* assembly = nullptr;
        QoDtDictionary* systems = nullptr;
    };

    QoHvacDuctLayerManager();

    KindDicts* DictsOf(HVAC::EQoDbHvacSystemType kind);
    const KindDicts* DictsOf(HVAC::EQoDbHvacSystemType kind) const;
    static QoDtDictionary* FindDisciplineRoot(QoDtDictionary* standard, const wchar_t* tree,
                                              QoDtDictionary* unchanged);

    KindDicts m_duct;
    KindDicts m_kt;
    KindDicts m_vrv;
    KindDicts m_fhcn;
    KindDicts m_czcn;
    KindDicts m_dbcn;
    QoArray<SSysUserComparison> m_sysUserComparison;
};

namespace HVAC {
// The display names of a kind's systems, appended (see the register).
ZEFRA_API bool GetAllSystemName(CStringArray& names, EQoDbHvacSystemType kind);
ZEFRA_API bool GetAllSystemName(QoArray<CString>& names, EQoDbHvacSystemType kind);
}  // namespace HVAC
