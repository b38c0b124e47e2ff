#include "zefra/platform/airlib/CNTObject.h"
#include "zefra/platform/host/CommandLine.h"
#include "zefra/platform/mfc/CNTArray.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(CStringFormat, WideFormatReadsPercentSAsWideAndPercentCapitalSAsNarrow) {
    CString name(L"送风");
    CString s;
    s.Format(L"%s|%S|%hs|%ls|%c|%C", name.GetString(), "UTF-8 \xE6\xB8\xA9", "h", L"l", L'焓', 'x');
    EXPECT_EQ(s, CString(L"送风|UTF-8 温|h|l|焓|x"));
}

TEST(CStringFormat, NumbersWidthsAndPrecisionsFollowPrintf) {
    CString s;
    s.Format(L"[%8.3f][%-6d][%06.1f][%.0f][%x][%*d][%-4s][%5.2s]", 3.14159, 42, -2.25, 2.5, 255, 4, 7, L"ab", L"xyz");
    EXPECT_EQ(s, CString(L"[   3.142][42    ][-002.2][2][ff][   7][ab  ][   xy]"));
    s.Format(L"100%% %lld %I64d %u", 1234567890123LL, -5LL, 7u);
    EXPECT_EQ(s, CString(L"100% 1234567890123 -5 7"));
    s.AppendFormat(L"+%s", static_cast<const wchar_t*>(nullptr));
    EXPECT_EQ(s, CString(L"100% 1234567890123 -5 7+(null)"));
}

TEST(CStringUtf8, RoundTripsChineseAndReplacesMalformedBytes) {
    const std::string text = "焓湿图 h=45.6 kJ/kg 𝛆";
    EXPECT_EQ(CString::FromUtf8(text).ToUtf8(), text);
    EXPECT_EQ(CString::FromUtf8(text).GetLength(), 18);
    EXPECT_EQ(CString::FromUtf8("a\xC3").GetString(), std::wstring(L"a\xFFFD"));
    EXPECT_EQ(CString::FromUtf8("\xE6\x28\xA1z").GetString(), std::wstring(L"\xFFFD(\xFFFDz"));
    EXPECT_EQ(CString::FromUtf8("\xED\xA0\x80").GetString(), std::wstring(L"\xFFFD\xFFFD\xFFFD"));
}

TEST(CStringOps, SearchSliceReplaceAndCase) {
    CString s(L"ZEFRA\\HDG\\UnitsItemSet\\3");
    EXPECT_EQ(s.Find(L'\\'), 5);
    EXPECT_EQ(s.Find(L"HDG"), 6);
    EXPECT_EQ(s.Find(L"HDG", 7), -1);
    EXPECT_EQ(s.ReverseFind(L'\\'), 22);
    EXPECT_EQ(s.Left(5), CString(L"ZEFRA"));
    EXPECT_EQ(s.Mid(6, 3), CString(L"HDG"));
    EXPECT_EQ(s.Mid(23), CString(L"3"));
    EXPECT_EQ(s.Mid(99), CString());
    EXPECT_EQ(s.Right(1), CString(L"3"));
    EXPECT_EQ(s.Left(-3), CString());
    CString r(L"a--b--c");
    EXPECT_EQ(r.Replace(L"--", L"-"), 2);
    EXPECT_EQ(r, CString(L"a-b-c"));
    EXPECT_EQ(r.Replace(L'-', L'+'), 2);
    CString u(L"sup 送风");
    EXPECT_EQ(u.MakeUpper(), CString(L"SUP 送风"));
    EXPECT_EQ(CString(L"abc").Compare(L"abd"), -1);
    EXPECT_EQ(CString(L"ABC").CompareNoCase(L"abc"), 0);
    EXPECT_THROW(CString(L"ab").GetAt(2), CInvalidArgException);
}

TEST(CArrayAccess, BoundsCheckedAndAliasSafe) {
    CArray<int, int> a;
    EXPECT_THROW(a.GetAt(0), CInvalidArgException);
    for (int i = 0; i < 100; ++i) a.Add(i);
    EXPECT_EQ(a.GetSize(), 100);
    EXPECT_THROW(a[100], CInvalidArgException);
    EXPECT_THROW(a.SetAt(-1, 0), CInvalidArgException);
    EXPECT_THROW(a.SetSize(-1), CInvalidArgException);
    a.RemoveAt(10, 80);
    EXPECT_EQ(a.GetSize(), 20);
    EXPECT_EQ(a[10], 90);
    a.InsertAt(1, 7, 3);
    EXPECT_EQ(a[0], 0);
    EXPECT_EQ(a[3], 7);
    EXPECT_EQ(a[4], 1);

    CStringArray texts;
    texts.Add(CString(L"first"));
    for (int i = 0; i < 50; ++i) texts.Add(texts[0]);  // argument lives in the array while it grows
    EXPECT_EQ(texts[50], CString(L"first"));
}

TEST(CNTArraySerialize, RoundTripsThroughArchive) {
    CNTArray<int, int> ints;
    for (int i = 0; i < 70000; ++i) ints.Add(i * 3 - 5);
    CNTArray<bool, bool> flags;
    flags.Add(true);
    flags.Add(false);
    std::stringstream stream;
    {
        CArchive ar(stream, CArchive::store);
        ints.Serialize(ar);
        flags.Serialize(ar);
    }
    CNTArray<int, int> ints2;
    CNTArray<bool, bool> flags2;
    CArchive ar(stream, CArchive::load);
    ints2.Serialize(ar);
    flags2.Serialize(ar);
    ASSERT_EQ(ints2.GetSize(), 70000);
    EXPECT_EQ(ints2[69999], 69999 * 3 - 5);
    ASSERT_EQ(flags2.GetSize(), 2);
    EXPECT_TRUE(flags2[0]);
    EXPECT_FALSE(flags2[1]);
    EXPECT_THROW(ints2.Serialize(ar), CArchiveException);  // nothing left to read
}

TEST(RuntimeClass, RecordsChainToCObject) {
    CNTObject obj;
    const CRuntimeClass* cls = obj.GetRuntimeClass();
    EXPECT_STREQ(cls->m_lpszClassName, "CNTObject");
    EXPECT_EQ(cls->m_wSchema, 0xFFFFu);
    EXPECT_EQ(cls->CreateObject(), nullptr);
    EXPECT_EQ(cls->GetBaseClass(), RUNTIME_CLASS(CObject));
    EXPECT_TRUE(obj.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_EQ(obj.GetClassNameW(), CString(L"CNTObject"));
}

TEST(CommandLine, AcutPrintfReachesTheSink) {
    CString seen;
    auto old = zefra::SetCommandLineSink([&](const CString& text) { seen += text; });
    acutPrintf(L"\n保存%s失败 %d", L"法兰", 3);
    zefra::SetCommandLineSink(old);
    EXPECT_EQ(seen, CString(L"\n保存法兰失败 3"));
}
