// zefra config dump|get|set: look into and change a configuration file.

#include "Cli.h"
#include "PointIO.h"
#include "ReportOptions.h"

#include "zefra/chart/HDGChartItemTables.h"
#include "zefra/chart/QoHvacHDGSysSetManager.h"

#include "zefra/config/QoDtConfigEdit.h"
#include "zefra/config/QoDtConfigStore.h"
#include "zefra/config/QoDtDictBoolItem.h"
#include "zefra/config/QoDtDictDoubleArrayItem.h"
#include "zefra/config/QoDtDictDoubleItem.h"
#include "zefra/config/QoDtDictIntItem.h"
#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictStringItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtFileSearch.h"
#include "zefra/config/QoDtTextCodec.h"

#include <nlohmann/json.hpp>

#include <iostream>
#include <memory>
#include <sstream>
#include <string>

namespace zefra::cli {

namespace {

// The file of --config (`chosen`), else the Config.xml the search finds.
std::string ConfigPath(const std::string& chosen) {
    if (!chosen.empty()) return chosen;
    std::string path;
    if (!QoDtFileSearch::Find(QoDtTextCodec::ToUtf8(QoDtConfigStore::FileName(QoDtConfigStore::eConfig)), path)) {
        std::string searched;
        for (const std::string& directory : QoDtFileSearch::SearchDirectories())
            if (!directory.empty()) searched += "\n  " + directory;
        throw UsageError("Config.xml not found; searched:" + searched);
    }
    return path;
}

// The configuration file a command works on, loaded.
class ConfigFile {
public:
    // `chosen` is the file of --config; empty means the usual search.
    explicit ConfigFile(const std::string& chosen) : m_path(ConfigPath(chosen)) {
        CString message;
        if (!m_tree.LoadFromXML(QoDtTextCodec::FromUtf8(m_path), &message)) throw UsageError(message.ToUtf8());
    }

    QoDtDictionary& Tree() { return m_tree; }
    const std::string& Path() const { return m_path; }

private:
    std::string m_path;
    QoDtDictionary m_tree;
};

std::string Utf8(const CString& text) { return QoDtTextCodec::ToUtf8(text); }

std::string NumberText(double value) {
    std::string text;
    QoDtTextCodec::AppendDouble(text, value);
    return text;
}

std::string Quoted(const CString& text) { return nlohmann::json(Utf8(text)).dump(); }

// The value as `get` prints it: plain text, numbers separated by spaces.
std::string PlainValue(const QoDtDictItem& item) {
    switch (item.GetType()) {
        case QoDtDictItem::eDtBool: {
            const int value = static_cast<const QoDtDictBoolItem&>(item).value;
            return value == 0 ? "false" : value == 1 ? "true" : std::to_string(value);
        }
        case QoDtDictItem::eDtInt: return std::to_string(static_cast<const QoDtDictIntItem&>(item).value);
        case QoDtDictItem::eDtDouble: return NumberText(static_cast<const QoDtDictDoubleItem&>(item).value);
        case QoDtDictItem::eDtString: return Utf8(static_cast<const QoDtDictStringItem&>(item).value);
        case QoDtDictItem::eDtOption: return Utf8(static_cast<const QoDtDictOptionItem&>(item).GetSelectedText());
        case QoDtDictItem::eDtDoubleArray: {
            std::string text;
            const QoDynArray<double>& numbers = static_cast<const QoDtDictDoubleArrayItem&>(item).value;
            for (const double* n = numbers.GetFirst(); n != nullptr; n = numbers.GetNext(n))
                text += (text.empty() ? "" : " ") + NumberText(*n);
            return text;
        }
        default: return std::string();
    }
}

// The value as the listing shows it: texts quoted, lists in brackets.
std::string ListedValue(const QoDtDictItem& item) {
    switch (item.GetType()) {
        case QoDtDictItem::eDtString: return Quoted(static_cast<const QoDtDictStringItem&>(item).value);
        case QoDtDictItem::eDtOption: {
            const auto& option = static_cast<const QoDtDictOptionItem&>(item);
            std::string text = std::to_string(option.selection) + " [";
            for (const CString* choice = option.options.GetFirst(); choice != nullptr;
                 choice = option.options.GetNext(choice))
                text += (text.back() == '[' ? "" : ", ") + Quoted(*choice);
            return text + "]";
        }
        case QoDtDictItem::eDtDoubleArray: return "[" + PlainValue(item) + "]";
        default: return PlainValue(item);
    }
}

void ListItem(const QoDtDictItem& item, int depth, std::ostream& out) {
    out << std::string(static_cast<size_t>(depth) * 2, ' ') << Utf8(item.name);
    if (!item.localname.IsEmpty()) out << " " << Quoted(item.localname);
    out << " <" << QoDtDictItem::GetTypeName(item.GetType()) << ">";
    const int type = item.GetType();
    if (type != QoDtDictItem::eDtDictionary && type != QoDtDictItem::eDtRow) out << " = " << ListedValue(item);
    item.GetAttributes().ForEach(
        [&out](const CString& name, const CString& value) { out << " " << Utf8(name) << "=" << Quoted(value); });
    out << "\n";
}

void ListChildren(const QoDtDictionary& dict, int depth, std::ostream& out) {
    for (QoDtDictItem* const* child = dict.children.GetFirst(); child != nullptr; child = dict.children.GetNext(child)) {
        if (*child == nullptr) continue;
        ListItem(**child, depth, out);
        if ((*child)->IsDict()) ListChildren(static_cast<const QoDtDictionary&>(**child), depth + 1, out);
    }
}

nlohmann::ordered_json ToJson(const QoDtDictItem& item) {
    nlohmann::ordered_json node;
    node["key"] = Utf8(item.name);
    if (!item.localname.IsEmpty()) node["localname"] = Utf8(item.localname);
    node["type"] = QoDtDictItem::GetTypeName(item.GetType());
    if (item.GetAttributes().GetCount() > 0) {
        nlohmann::ordered_json attributes = nlohmann::ordered_json::object();
        item.GetAttributes().ForEach(
            [&attributes](const CString& name, const CString& value) { attributes[Utf8(name)] = Utf8(value); });
        node["attributes"] = attributes;
    }
    switch (item.GetType()) {
        case QoDtDictItem::eDtBool: {
            const int value = static_cast<const QoDtDictBoolItem&>(item).value;
            node["value"] = value == 0 || value == 1 ? nlohmann::ordered_json(value == 1) : nlohmann::ordered_json(value);
            break;
        }
        case QoDtDictItem::eDtInt: node["value"] = static_cast<const QoDtDictIntItem&>(item).value; break;
        case QoDtDictItem::eDtDouble: node["value"] = static_cast<const QoDtDictDoubleItem&>(item).value; break;
        case QoDtDictItem::eDtString: node["value"] = Utf8(static_cast<const QoDtDictStringItem&>(item).value); break;
        case QoDtDictItem::eDtOption: {
            const auto& option = static_cast<const QoDtDictOptionItem&>(item);
            nlohmann::ordered_json choices = nlohmann::ordered_json::array();
            for (const CString* c = option.options.GetFirst(); c != nullptr; c = option.options.GetNext(c))
                choices.push_back(Utf8(*c));
            node["value"] = {{"selection", option.selection}, {"options", choices}};
            break;
        }
        case QoDtDictItem::eDtDoubleArray: {
            nlohmann::ordered_json numbers = nlohmann::ordered_json::array();
            const QoDynArray<double>& array = static_cast<const QoDtDictDoubleArrayItem&>(item).value;
            for (const double* n = array.GetFirst(); n != nullptr; n = array.GetNext(n)) numbers.push_back(*n);
            node["value"] = numbers;
            break;
        }
        case QoDtDictItem::eDtDictionary: {
            nlohmann::ordered_json children = nlohmann::ordered_json::array();
            const QoDtDictItemList& list = static_cast<const QoDtDictionary&>(item).children;
            for (QoDtDictItem* const* child = list.GetFirst(); child != nullptr; child = list.GetNext(child))
                if (*child != nullptr) children.push_back(ToJson(**child));
            node["children"] = children;
            break;
        }
        default: break;
    }
    return node;
}

const QoDtDictItem& ItemAt(ConfigFile& file, const std::string& path) {
    const QoDtDictItem* item = path.empty() ? &file.Tree() : file.Tree().FindItem(QoDtTextCodec::FromUtf8(path));
    if (item == nullptr) throw UsageError("no item at '" + path + "' in " + file.Path());
    return *item;
}

bool ParseBool(const std::string& text, bool& value) {
    const bool isTrue = text == "true" || text == "1" || text == "yes";
    const bool isFalse = text == "false" || text == "0" || text == "no";
    if (isTrue || isFalse) value = isTrue;
    return isTrue || isFalse;
}

[[noreturn]] void NotA(const std::string& kind, const std::string& text) {
    throw UsageError("'" + text + "' is not " + kind);
}

// Stores `text` at `path` as a value of the kind `type` (a name as in the
// listing).
void StoreValue(QoDtDictionary& tree, const CString& path, const std::string& type, const std::string& text) {
    bool stored = false;
    if (type == "bool") {
        bool value = false;
        if (!ParseBool(text, value)) NotA("a Boolean (true or false)", text);
        stored = tree.SetValue(path, value);
    } else if (type == "int") {
        int value = 0;
        if (!QoDtTextCodec::ParseInt(text, value)) NotA("a 32-bit integer", text);
        stored = tree.SetValue(path, value);
    } else if (type == "double") {
        double value = 0.0;
        if (!QoDtTextCodec::ParseDouble(text, value)) NotA("a number", text);
        stored = tree.SetValue(path, value);
    } else if (type == "string") {
        stored = tree.SetValue(path, QoDtTextCodec::FromUtf8(text));
    } else if (type == "doubles") {
        QoDynArray<double> numbers;
        std::istringstream words(text);
        for (std::string word; words >> word;) {
            double value = 0.0;
            if (!QoDtTextCodec::ParseDouble(word, value)) NotA("a number", word);
            numbers.Append(value);
        }
        stored = tree.SetValue(path, numbers);
    } else if (type == "option") {
        auto* option = static_cast<QoDtDictOptionItem*>(tree.FindItem(path));
        int selection = -1;
        for (int i = 0; i < option->options.GetLength() && selection < 0; ++i)
            if (Utf8(option->options.GetAt(i)) == text) selection = i;
        if (selection < 0 && !QoDtTextCodec::ParseInt(text, selection)) NotA("one of the options or an index", text);
        if (selection < 0 || selection >= option->options.GetLength())
            throw UsageError("option index " + text + " is out of range: '" + Utf8(path) + "' has " +
                             std::to_string(option->options.GetLength()) + " options, 0.." +
                             std::to_string(option->options.GetLength() - 1));
        option->selection = selection;
        stored = true;
    } else {
        throw UsageError("a value of kind <" + type + "> can't be set; give --type bool|int|double|string");
    }
    if (!stored) throw UsageError("could not store a value at '" + Utf8(path) + "'");
}

// Whether the reader of a value of kind `stored` takes a value of kind
// `given`: a double reader also reads an int, an int reader and a Boolean
// reader each read the other.
bool ReaderTakes(const std::string& stored, const std::string& given) {
    return stored == given || (stored == "double" && given == "int") || (stored == "int" && given == "bool") ||
           (stored == "bool" && given == "int");
}

// The unit names of the chart settings ("ZEFRA\HDG\UnitsItemSet\<row>"): a
// row that has a converter takes only the names the converter knows.
void CheckUnitName(const CString& path, const std::string& text) {
    const CString prefix = L"ZEFRA\\HDG\\UnitsItemSet\\";
    if (path.GetLength() <= prefix.GetLength() || path.Left(prefix.GetLength()) != prefix) return;
    int row = -1;
    if (!QoDtTextCodec::ParseInt(Utf8(path.Mid(prefix.GetLength())), row)) return;
    const CString item = HDGChartItemTables::UnitName(row);
    if (!QoHvacHDGSysSetManager::HasUnitsConverter(item)) return;
    if (!QoHvacHDGSysSetManager::IsKnownUnitsName(item, QoDtTextCodec::FromUtf8(text)))
        throw UsageError("'" + text + "' isn't a unit of " + Utf8(item) + " (row " + std::to_string(row) +
                         "); use " + KnownUnitsList(item));
}

void Set(QoDtDictionary& tree, const std::string& file, const std::string& pathText, const std::string& valueText,
         const std::string& typeOption) {
    const CString path = QoDtTextCodec::FromUtf8(pathText);
    if (path.IsEmpty() || path[path.GetLength() - 1] == L'\\') throw UsageError("the path names no item");
    // Missing dictionaries on the way are added, as the settings' own saves
    // do; a value on the way, or an empty component, stops it.
    const int separator = path.ReverseFind(L'\\');
    const CString parentPath = separator < 0 ? CString() : path.Left(separator);
    if (separator >= 0 && tree.FindOrAddDict(parentPath) == nullptr)
        throw UsageError("no dictionary can be made at '" + Utf8(parentPath) + "' in " + file +
                         ": a part of the path is a value or empty");
    const QoDtDictItem* existing = tree.FindItem(path);
    if (existing != nullptr && existing->IsDict()) throw UsageError("'" + pathText + "' is a dictionary");
    const std::string present = existing != nullptr ? QoDtDictItem::GetTypeName(existing->GetType()) : "";
    std::string type = typeOption.empty() ? (existing != nullptr ? present : "string") : typeOption;
    if (existing != nullptr && !ReaderTakes(present, type))
        throw UsageError("'" + pathText + "' holds a value of kind <" + present + ">; its reader would ignore a <" +
                         type + ">");
    CheckUnitName(path, valueText);
    StoreValue(tree, path, type, valueText);
}

}  // namespace

ConfigEditLock::ConfigEditLock(const std::string& chosen) : m_lock(std::make_unique<QoDtFileLock>()) {
    std::string error;
    if (!QoDtConfigEdit::Lock(chosen, *m_lock, error)) throw UsageError(error);
}

ConfigEditLock::~ConfigEditLock() = default;

void RegisterConfigCommands(CLI::App& app) {
    CLI::App* config = app.add_subcommand("config", "show and change the configuration (Config.xml)");
    config->require_subcommand(1);

    struct Options {
        std::string file;
        std::string path;
        std::string value;
        std::string type;
        bool json = false;
    };
    auto options = std::make_shared<Options>();
    const char* fileHelp = "use this configuration file instead of searching for Config.xml";
    const char* pathHelp = "item path, components separated by a backslash, e.g. 'ZEFRA\\SPACE'";

    CLI::App* dump = config->add_subcommand("dump", "print the tree or a branch: key, local name, kind, value");
    dump->add_option("path", options->path, pathHelp);
    dump->add_flag("--json", options->json, "print JSON instead of an indented listing");
    dump->add_option("--config", options->file, fileHelp);
    dump->callback([options] {
        ConfigFile file(options->file);
        const QoDtDictItem& item = ItemAt(file, options->path);
        if (options->json) {
            // The tree's own keys and attribute names are data: printed as stored.
            nlohmann::ordered_json document;
            document["command"] = "config dump";
            document["path"] = options->path;
            const nlohmann::ordered_json node = ToJson(item);
            for (auto it = node.begin(); it != node.end(); ++it) document[it.key()] = *it;
            std::cout << document.dump(2) << "\n";
            return;
        }
        int depth = 0;
        if (!options->path.empty()) ListItem(item, depth++, std::cout);
        if (item.IsDict()) ListChildren(static_cast<const QoDtDictionary&>(item), depth, std::cout);
    });

    CLI::App* get = config->add_subcommand("get", "print the value at a path");
    get->add_option("path", options->path, pathHelp)->required();
    get->add_option("--config", options->file, fileHelp);
    get->callback([options] {
        ConfigFile file(options->file);
        const QoDtDictItem& item = ItemAt(file, options->path);
        if (item.IsDict() || item.GetType() == QoDtDictItem::eDtRow)
            throw UsageError("'" + options->path + "' holds no value; use 'zefra config dump'");
        std::cout << PlainValue(item) << "\n";
    });

    CLI::App* set = config->add_subcommand("set", "change or add a value and save the file");
    set->add_option("path", options->path, pathHelp)->required();
    set->add_option("value", options->value, "the new value")->required();
    set->add_option("--type", options->type, "kind of a new value (default: the present kind, else string); a present value keeps a kind its reader takes")
        ->check(CLI::IsMember({"bool", "int", "double", "string"}));
    set->add_option("--config", options->file, fileHelp);
    set->callback([options] {
        // Loaded, changed and saved under the file's write lock, so that a
        // change saved meanwhile by another program is kept. A file of the
        // search that is shipped data is saved to the user's directory.
        std::string target;
        std::string error;
        if (!QoDtConfigEdit::TargetOf(options->file, target, error)) throw UsageError(error);
        std::string loaded;
        const bool saved = QoDtConfigEdit::Run(
            target,
            [&](QoDtDictionary& tree, std::string&) {
                Set(tree, loaded, options->path, options->value, options->type);
                return true;
            },
            error, [&] { return loaded = ConfigPath(options->file); });
        if (!saved) throw UsageError(error);
        if (target != loaded) std::cout << "saved to " << target << "\n";
    });
}

}  // namespace zefra::cli
