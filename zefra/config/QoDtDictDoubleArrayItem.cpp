#include "zefra/config/QoDtDictDoubleArrayItem.h"

#include "zefra/config/QoDtTextCodec.h"
#include "zefra/platform/mfc/CArchive.h"

#include <vector>

namespace {
// More numbers than this in one archived array means the data is damaged.
constexpr uint64_t kMaxArchiveNumbers = 1u << 24;

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// The array grows by a fixed step, so it is sized once rather than appended to.
void AssignNumbers(QoDynArray<double>& array, const std::vector<double>& numbers) {
    array.SetLength(static_cast<int>(numbers.size()), false);
    array.MoveToFirst();
    for (double number : numbers) {
        array.SetCurData(number);
        array.MoveToNext();
    }
}
}  // namespace

void QoDtDictDoubleArrayItem::CopyData(const QoDtDictItem& other) {
    CopyCommon(other);
    if (other.GetType() == GetType() && &other != this) value = static_cast<const QoDtDictDoubleArrayItem&>(other).value;
}

void QoDtDictDoubleArrayItem::WriteXml(QoDtXmlOutput& out) const {
    WriteStartXml(out);
    std::string& text = out.Buffer();
    text.clear();
    for (const double* number = value.GetFirst(); number != nullptr; number = value.GetNext(number)) {
        if (!text.empty()) text.push_back(' ');
        QoDtTextCodec::AppendDouble(text, *number);
    }
    out.Text(std::string_view(text));
    out.Close();
}

bool QoDtDictDoubleArrayItem::ReadXml(QoUtXMLDOMNode& node) { return ReadTextElement(node); }

bool QoDtDictDoubleArrayItem::ReadXmlValue(std::string_view text, std::string* cause) {
    std::vector<double> parsed;
    for (size_t i = 0; i < text.size();) {
        if (IsSpace(text[i])) {
            ++i;
            continue;
        }
        size_t end = i;
        while (end < text.size() && !IsSpace(text[end])) ++end;
        double number = 0.0;
        if (!QoDtTextCodec::ParseDouble(text.substr(i, end - i), number)) {
            if (cause != nullptr) *cause = "\"" + std::string(text.substr(i, end - i)) + "\" is not a number";
            return false;
        }
        parsed.push_back(number);
        i = end;
    }
    AssignNumbers(value, parsed);
    return true;
}

void QoDtDictDoubleArrayItem::operator>>(CArchive& ar) const {
    WriteCommon(ar);
    ar.WriteCount(static_cast<uint64_t>(value.GetLength()));
    for (const double* number = value.GetFirst(); number != nullptr; number = value.GetNext(number)) ar << *number;
}

bool QoDtDictDoubleArrayItem::operator<<(CArchive& ar) {
    return ReadGuarded([&] {
        Common common = ReadCommon(ar);
        const uint64_t count = ar.ReadCount();
        if (count > kMaxArchiveNumbers) return false;
        std::vector<double> parsed;
        for (uint64_t k = 0; k < count; ++k) parsed.push_back(ar.ReadValue<double>());
        TakeCommon(std::move(common));
        AssignNumbers(value, parsed);
        return true;
    });
}
