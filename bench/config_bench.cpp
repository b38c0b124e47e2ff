// Speed of the configuration store on a generated file of about 10,000
// items in 5 levels: load and save against pugixml's own parse and save of
// the same file, and path look-ups measured in E, the cost of one std::exp
// plus one std::log.
//
// Pairs to compare: PugiLoad / Load (file to memory, memory given back),
// PugiSaveText / SaveText (document to XML text), PugiSaveFile / SaveFile
// (to a file that replaces the old one durably: temporary file, fsync,
// rename, fsync of the directory). PugiSave is pugixml's plain save_file,
// which leaves the data in the page cache.
//
// Crafted files against ordinary files of about the same size: one element
// with 80,000 attributes (LoadManyAttributes / LoadManyRows), and 100,000
// or 200,000 sibling keys chosen to crowd one stretch of the child index as
// it was hashed before its hash was keyed (LoadCrowdedKeys / LoadPlainKeys;
// each load ends with a look-up, which builds the index).

#include "zefra/config/QoDtDictOptionItem.h"
#include "zefra/config/QoDtDictionary.h"
#include "zefra/config/QoDtXmlFile.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <cstdio>
#include <fcntl.h>
#include <malloc.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

CString Key(const char* prefix, int i) {
    CString key;
    key.Format(L"%S%d", prefix, i);
    return key;
}

// Level 1: 10 groups; level 2: 10 sets each; level 3: 10 parts each;
// level 4: per part 7 values of mixed kinds, one row and one dictionary:
// 10,110 items in all. With `wide`, set level of group 0 has 1,000 sets.
void FillTree(QoDtDictionary& root, bool wide) {
    root.localname = L"配置";
    for (int g = 0; g < 10; ++g) {
        QoDtDictionary* group = root.FindOrAddDict(Key("g", g));
        group->localname = L"分组";
        const int sets = wide && g == 0 ? 1000 : 10;
        for (int s = 0; s < sets; ++s) {
            QoDtDictionary* set = group->FindOrAddDict(Key("s", s));
            for (int p = 0; p < 10; ++p) {
                QoDtDictionary* part = set->FindOrAddDict(Key("p", p));
                part->SetValue(L"v0", 0.1 * (g + s + p));
                part->SetValue(L"v1", g * 100 + s * 10 + p);
                part->SetValue(L"v2", CString(L"送风系统"));
                part->SetValue(L"v3", (p & 1) != 0);
                part->SetValue(L"v4", 1.0 / (1 + p));
                part->SetValue(L"v5", CString(L"SF"));
                auto* option = static_cast<QoDtDictOptionItem*>(part->FindOrAddItem(L"v6", QoDtDictItem::eDtOption));
                option->options.Append(L"实线");
                option->options.Append(L"虚线");
                option->selection = 1;
                QoDtDictItem* row = part->FindOrAddItem(L"row", QoDtDictItem::eDtRow);
                row->SetAttributeValue(L"endrange", L"630.00");
                row->SetAttributeValue(L"offset", L"40.00");
                part->FindOrAddDict(L"r0")->localname = L"子项";
            }
        }
    }
}

// The generated trees, saved once per run to files in the temp directory.
struct Fixture {
    QoDtDictionary tree;
    QoDtDictionary wideTree;
    std::string file;
    std::string scratch;
    std::string pugiScratch;

    Fixture() {
        // Keep freed memory in the process between iterations. Left to
        // itself glibc hands large free blocks back to the system, and the
        // next iteration pays a page fault for every page again; which of
        // two compared loads pays depends on the order of its allocations,
        // not on its work.
        ::mallopt(M_MMAP_THRESHOLD, 32 << 20);
        ::mallopt(M_TRIM_THRESHOLD, 256 << 20);
        FillTree(tree, false);
        FillTree(wideTree, true);
        const std::string directory = "/tmp/zefra-config-bench-" + std::to_string(::getpid());
        ::mkdir(directory.c_str(), 0755);
        file = directory + "/Config.xml";
        scratch = directory + "/Saved.xml";
        pugiScratch = directory + "/PugiSaved.xml";
        tree.SaveToXML(CString::FromUtf8(file));
    }
    ~Fixture() {
        for (const std::string& f : {file, scratch, pugiScratch, pugiScratch + ".tmp"}) {
            std::remove(f.c_str());
            std::remove((f + ".lock").c_str());
        }
        ::rmdir(file.substr(0, file.rfind('/')).c_str());
    }
};

Fixture& Data() {
    static Fixture fixture;
    return fixture;
}

void BM_Config_E(benchmark::State& state) {
    double x = 1.5;
    for (auto _ : state) {
        x = std::log(std::exp(x) + 1.0);
        benchmark::DoNotOptimize(x);
        if (x > 50.0) x = 1.5;
    }
}
BENCHMARK(BM_Config_E);

void BM_Config_PugiLoad(benchmark::State& state) {
    const std::string& file = Data().file;
    for (auto _ : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_file(file.c_str()));
    }
}
BENCHMARK(BM_Config_PugiLoad)->Unit(benchmark::kMillisecond);

void BM_Config_Load(benchmark::State& state) {
    const CString file = CString::FromUtf8(Data().file);
    for (auto _ : state) {
        QoDtDictionary tree;
        if (!tree.LoadFromXML(file)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(tree.children.GetLength());
    }
    state.counters["items"] = 10110;
}
BENCHMARK(BM_Config_Load)->Unit(benchmark::kMillisecond);

class StringWriter : public pugi::xml_writer {
public:
    explicit StringWriter(std::string& out) : m_out(out) {}
    void write(const void* data, size_t size) override { m_out.append(static_cast<const char*>(data), size); }

private:
    std::string& m_out;
};

void BM_Config_PugiSaveText(benchmark::State& state) {
    pugi::xml_document document;
    document.load_file(Data().file.c_str());
    std::string text;
    for (auto _ : state) {
        text.clear();
        StringWriter writer(text);
        document.save(writer, "  ");
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(BM_Config_PugiSaveText)->Unit(benchmark::kMillisecond);

// The save without the disk: tree to XML text.
void BM_Config_SaveText(benchmark::State& state) {
    std::string text;
    std::string error;
    for (auto _ : state) {
        QoDtXmlFile::ToText(Data().tree, text, error);
        benchmark::DoNotOptimize(text.data());
    }
}
BENCHMARK(BM_Config_SaveText)->Unit(benchmark::kMillisecond);

void BM_Config_PugiSave(benchmark::State& state) {
    pugi::xml_document document;
    document.load_file(Data().file.c_str());
    for (auto _ : state) benchmark::DoNotOptimize(document.save_file(Data().pugiScratch.c_str(), "  "));
}
BENCHMARK(BM_Config_PugiSave)->Unit(benchmark::kMillisecond);

// pugixml's own save_file, made as durable as ours: into a temporary file,
// flushed, renamed over the old one, the directory flushed.
void BM_Config_PugiSaveFile(benchmark::State& state) {
    pugi::xml_document document;
    document.load_file(Data().file.c_str());
    const std::string& target = Data().pugiScratch;
    const std::string temp = target + ".tmp";
    const std::string directory = target.substr(0, target.rfind('/'));
    for (auto _ : state) {
        bool ok = document.save_file(temp.c_str(), "  ");
        const int fd = ::open(temp.c_str(), O_RDONLY | O_CLOEXEC);
        ok = ok && fd >= 0 && ::fsync(fd) == 0;
        if (fd >= 0) ::close(fd);
        ok = ok && ::rename(temp.c_str(), target.c_str()) == 0;
        const int dir = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (dir >= 0) {
            ::fsync(dir);
            ::close(dir);
        }
        if (!ok) state.SkipWithError("save failed");
    }
}
BENCHMARK(BM_Config_PugiSaveFile)->Unit(benchmark::kMillisecond);

// The whole save: tree to XML, temporary file, fsync, rename.
void BM_Config_SaveFile(benchmark::State& state) {
    const CString file = CString::FromUtf8(Data().scratch);
    for (auto _ : state)
        if (!Data().tree.SaveToXML(file)) state.SkipWithError("save failed");
}
BENCHMARK(BM_Config_SaveFile)->Unit(benchmark::kMillisecond);

void BM_Config_FindDict(benchmark::State& state) {
    const QoDtDictionary& tree = state.range(0) != 0 ? Data().wideTree : Data().tree;
    const CString path = state.range(0) != 0 ? L"g0\\s777\\p7\\r0" : L"g7\\s7\\p7\\r0";
    for (auto _ : state) benchmark::DoNotOptimize(tree.FindDict(path));
}
BENCHMARK(BM_Config_FindDict)->ArgName("wide")->Arg(0)->Arg(1);

void BM_Config_GetValue(benchmark::State& state) {
    const QoDtDictionary& tree = state.range(0) != 0 ? Data().wideTree : Data().tree;
    const CString path = state.range(0) != 0 ? L"g0\\s777\\p7\\v4" : L"g7\\s7\\p7\\v4";
    double value = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(tree.GetValue(path, value));
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(BM_Config_GetValue)->ArgName("wide")->Arg(0)->Arg(1);

}  // namespace

// ---- crafted files ---------------------------------------------------------

namespace {

struct CraftedFiles {
    std::string directory;
    std::string manyAttributes;
    std::string manyRows;
    std::string crowded[2];
    std::string plain[2];

    static std::string Head() {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<zefra-config format=\"1\">\n<dict name=\"\">\n";
    }
    static std::string Tail() { return "</dict>\n</zefra-config>\n"; }

    static void Write(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }

    // The child index's hash before it was keyed: FNV-1a, folded.
    static size_t OldHash(const std::string& key) {
        uint64_t h = 14695981039346656037ull;
        for (const char c : key) {
            h ^= static_cast<uint32_t>(static_cast<unsigned char>(c));
            h *= 1099511628211ull;
        }
        return static_cast<size_t>(h ^ (h >> 29));
    }

    // `count` keys whose old slots all fall in the first sixteenth of the
    // table the old index took for them: one probe run through them all.
    static std::string Crowded(size_t count) {
        size_t capacity = 16;
        while (capacity < count * 2) capacity *= 2;
        std::string text = Head();
        size_t made = 0;
        for (uint64_t n = 0; made < count; ++n) {
            const std::string key = "HVAC-" + std::to_string(n);
            if ((OldHash(key) & (capacity - 1)) >= capacity / 16) continue;
            text += "<int name=\"" + key + "\">1</int>\n";
            ++made;
        }
        return text + Tail();
    }

    static std::string Plain(size_t count, size_t size) {
        std::string text = Head();
        for (size_t i = 0; i < count; ++i) text += "<int name=\"HVAC-" + std::to_string(i) + "\">1</int>\n";
        text += Tail();
        if (text.size() < size) text.insert(text.size() - Tail().size(), size - text.size(), ' ');
        return text;
    }

    CraftedFiles() {
        directory = "/tmp/zefra-config-crafted-" + std::to_string(::getpid());
        ::mkdir(directory.c_str(), 0755);
        std::string text = Head() + "<item name=\"r\"";
        for (int i = 0; i < 80000; ++i) text += " attribute" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
        text += "/>\n" + Tail();
        manyAttributes = directory + "/attributes.xml";
        Write(manyAttributes, text);
        const size_t size = text.size();
        text = Head();
        for (int i = 0; text.size() + Tail().size() < size; ++i)
            text += "<item name=\"" + std::to_string(i) + "\" endrange=\"" + std::to_string(i * 10) + "\" offset=\"40\"/>\n";
        manyRows = directory + "/rows.xml";
        Write(manyRows, text + Tail());
        const size_t counts[2] = {100000, 200000};
        for (int k = 0; k < 2; ++k) {
            crowded[k] = directory + "/crowded" + std::to_string(counts[k]) + ".xml";
            const std::string crowdedText = Crowded(counts[k]);
            Write(crowded[k], crowdedText);
            plain[k] = directory + "/plain" + std::to_string(counts[k]) + ".xml";
            Write(plain[k], Plain(counts[k], crowdedText.size()));
        }
    }
    ~CraftedFiles() {
        for (const std::string& f : {manyAttributes, manyRows, crowded[0], crowded[1], plain[0], plain[1]})
            std::remove(f.c_str());
        ::rmdir(directory.c_str());
    }
};

CraftedFiles& Crafted() {
    Data();  // the same memory settings
    static CraftedFiles files;
    return files;
}

void LoadAndLookUp(benchmark::State& state, const std::string& path) {
    const CString file = CString::FromUtf8(path);
    struct stat info {};
    ::stat(path.c_str(), &info);
    for (auto _ : state) {
        QoDtDictionary tree;
        if (!tree.LoadFromXML(file)) state.SkipWithError("load failed");
        benchmark::DoNotOptimize(tree.FindItem(L"HVAC-none"));
        const QoDtDictItem* row = tree.FindItem(L"r");
        if (row != nullptr) benchmark::DoNotOptimize(row->GetAttributeValue(L"attribute79999"));
    }
    state.counters["bytes"] = static_cast<double>(info.st_size);
}

}  // namespace

void BM_Config_LoadManyAttributes(benchmark::State& state) { LoadAndLookUp(state, Crafted().manyAttributes); }
BENCHMARK(BM_Config_LoadManyAttributes)->Unit(benchmark::kMillisecond);

void BM_Config_LoadManyRows(benchmark::State& state) { LoadAndLookUp(state, Crafted().manyRows); }
BENCHMARK(BM_Config_LoadManyRows)->Unit(benchmark::kMillisecond);

void BM_Config_LoadCrowdedKeys(benchmark::State& state) {
    LoadAndLookUp(state, Crafted().crowded[state.range(0) == 200000 ? 1 : 0]);
}
BENCHMARK(BM_Config_LoadCrowdedKeys)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);

void BM_Config_LoadPlainKeys(benchmark::State& state) {
    LoadAndLookUp(state, Crafted().plain[state.range(0) == 200000 ? 1 : 0]);
}
BENCHMARK(BM_Config_LoadPlainKeys)->Arg(100000)->Arg(200000)->Unit(benchmark::kMillisecond);
