// Other modules of the suite call the exported classes by these exact
// signatures. Each line takes the address of one member function with the
// signature the callers use, so a drifting signature stops this file from
// compiling; the test itself only confirms that every address was taken.
// `long` in the callers' interfaces is our 32-bit `int`.

#include "zefra/zefra.h"

#include <gtest/gtest.h>

#define EXPECT_MEMBER_QUALIFIED(Class, Ret, Name, Params, Qualifier) \
    do {                                                              \
        Ret (Class::*member) Params Qualifier = &Class::Name;         \
        EXPECT_TRUE(member != nullptr) << #Class "::" #Name #Params;  \
    } while (false)
#define EXPECT_MEMBER(Class, Ret, Name, Params) EXPECT_MEMBER_QUALIFIED(Class, Ret, Name, Params, )
#define EXPECT_CONST_MEMBER(Class, Ret, Name, Params) EXPECT_MEMBER_QUALIFIED(Class, Ret, Name, Params, const)

namespace {

// The operations every cursor container offers through its base.
template <typename C, typename T>
void ExpectCursorInterface() {
    using Base = QoDynArrayBase<T>;
    EXPECT_CONST_MEMBER(C, int, GetLength, ());
    EXPECT_CONST_MEMBER(C, int, GetMaxIndex, ());
    EXPECT_CONST_MEMBER(C, int, GetCur, ());
    EXPECT_CONST_MEMBER(C, bool, IsEmpty, ());
    EXPECT_CONST_MEMBER(C, bool, IsBegin, ());
    EXPECT_CONST_MEMBER(C, bool, IsEnd, ());
    EXPECT_CONST_MEMBER(C, bool, IsOut, ());
    EXPECT_CONST_MEMBER(C, bool, IsValidIndex, (int));
    EXPECT_MEMBER(C, void, MoveToFirst, ());
    EXPECT_MEMBER(C, void, MoveToNext, ());
    EXPECT_MEMBER(C, void, MoveToPre, ());
    EXPECT_MEMBER(C, void, MoveToLast, ());
    EXPECT_MEMBER(C, void, MoveTo, (int));
    EXPECT_MEMBER(C, T&, operator[], (int));
    EXPECT_CONST_MEMBER(C, const T&, operator[], (int));
    EXPECT_CONST_MEMBER(C, const T*, GetTo, (int));
    EXPECT_MEMBER(C, void, SetLength, (int, bool));
    EXPECT_MEMBER(C, void, Reset, ());
    EXPECT_MEMBER(C, T&, GetCurData, ());
    EXPECT_MEMBER(C, void, SetCurData, (const T&));
    EXPECT_CONST_MEMBER(C, const T*, GetFirst, ());
    EXPECT_CONST_MEMBER(C, const T*, GetNext, (const T*));
    EXPECT_CONST_MEMBER(C, const T*, GetPre, (const T*));
    EXPECT_CONST_MEMBER(C, const T*, GetLast, ());
    EXPECT_CONST_MEMBER(C, const T&, GetAt, (int));
    EXPECT_MEMBER(C, void, InsertCur, (const T&));
    EXPECT_MEMBER(C, void, Insert, (int, const T&));
    EXPECT_MEMBER(C, void, InsertHead, (const T&));
    EXPECT_MEMBER(C, int, Append, (const T&));
    EXPECT_MEMBER(C, void, DelCur, ());
    EXPECT_MEMBER(C, void, Sort, (int (*)(const T&, const T&)));
    EXPECT_MEMBER(C, void, Sort, (bool));
    EXPECT_MEMBER(C, bool, Move, (int, int));
    EXPECT_MEMBER(Base, Base&, operator<<, (const T&));
    EXPECT_MEMBER(Base, Base&, operator<<, (const Base&));
    EXPECT_MEMBER(Base, Base&, operator<<, (const QoArray<T>&));
    EXPECT_MEMBER(C, void, Del, (int));
    EXPECT_MEMBER(C, void, DelHead, ());
    EXPECT_MEMBER(C, void, DelTail, ());
    EXPECT_MEMBER(C, void, IncreaseSize, (int));
    EXPECT_MEMBER(C, void, DecreaseSize, (int));
    EXPECT_MEMBER(C, void, DeepCopy, (const Base&));
    EXPECT_MEMBER(C, void, DeepCopy, (const QoArray<T>&));
    EXPECT_CONST_MEMBER(C, void, Left, (int, Base&));
    EXPECT_CONST_MEMBER(C, void, Right, (int, Base&));
    EXPECT_CONST_MEMBER(C, void, Mid, (int, int, Base&));
    EXPECT_MEMBER(C, void, Exchange, (int, int));
    EXPECT_MEMBER(C, void, Reverse, (int, int));
    EXPECT_CONST_MEMBER(C, int, Find, (const T&, int, int));
    EXPECT_CONST_MEMBER(C, int, Find, (const T&, QoQuene<int>&, int, int));
    EXPECT_MEMBER(C, bool, FindTo, (const T&, int));
    EXPECT_CONST_MEMBER(C, int, BFind, (const T&, int, int));
    EXPECT_MEMBER(C, bool, BFindTo, (const T&, int, int));
    EXPECT_CONST_MEMBER(Base, bool, operator==, (const Base&));
    EXPECT_CONST_MEMBER(Base, bool, operator!=, (const Base&));
    EXPECT_CONST_MEMBER(Base, bool, operator<, (const Base&));
    EXPECT_CONST_MEMBER(Base, bool, operator>, (const Base&));
}

// Operations of the plain (not owning) containers, on values.
template <typename C, typename T>
void ExpectValueOperations() {
    EXPECT_MEMBER(C, void, SetAll, (const T&));
    EXPECT_MEMBER(C, int, FindDel, (const T&));
    EXPECT_MEMBER(C, int, FindOrAppend, (const T&));
    EXPECT_MEMBER(C, void, FindOrInsertHead, (const T&));
    EXPECT_MEMBER(C, bool, SortInto, (const T&, bool));
}

template <typename L, typename T>
void ExpectListInterface() {
    using List = QoList<T>;
    EXPECT_MEMBER(L, void, InsertAfterCur, (const T&));
    EXPECT_MEMBER(L, void, DetachAfterCur, ());
    EXPECT_MEMBER(L, int, Conbine, (List&, int));
    EXPECT_MEMBER(L, void, ReverseList, ());
    EXPECT_MEMBER(L, void, Rotate, (int, int));
    EXPECT_MEMBER(L, void, Detach, ());
    EXPECT_MEMBER(L, void, DetachAfter, (int));
    EXPECT_MEMBER(L, void, SplitAt, (int, List&));
    EXPECT_MEMBER(L, void, SplitAtCur, (List&));
}

// The owning containers, T being the pointee.
template <typename C, typename T>
void ExpectOwningInterface() {
    EXPECT_MEMBER(C, void, ReleaseCur, ());
    EXPECT_MEMBER(C, void, Release, (int));
    EXPECT_MEMBER(C, void, ReleaseAll, ());
    EXPECT_MEMBER(C, T*, TakeOffCur, ());
    EXPECT_MEMBER(C, T*, TakeOff, (int));
    EXPECT_MEMBER(C, T*, TakeOffHead, ());
    EXPECT_MEMBER(C, T*, TakeOffTail, ());
    EXPECT_MEMBER(C, bool, IsCurEmpty, ());
    EXPECT_CONST_MEMBER(C, bool, IsEmptyData, (int));
    EXPECT_CONST_MEMBER(C, int, GetDataNum, ());
    EXPECT_CONST_MEMBER(C, const T&, GetPData, (int));
    EXPECT_MEMBER(C, T&, GetCurPData, ());
    EXPECT_MEMBER(C, T&, operator(), (int));
    EXPECT_MEMBER(C, int, PlaceIn, (T*));
    EXPECT_MEMBER(C, int, FindDel, (T*));
    EXPECT_CONST_MEMBER(C, int, FindData, (const T&, int, int));
    EXPECT_CONST_MEMBER(C, int, FindData, (const T&, QoQuene<int>&, int, int));
    EXPECT_MEMBER(C, int, FindDataDel, (const T&));
    EXPECT_CONST_MEMBER(C, int, BFindData, (const T&, int, int));
    EXPECT_MEMBER(C, bool, BFindDataTo, (const T&, int, int));
    EXPECT_MEMBER(C, bool, SortInto, (T*, bool));
    EXPECT_MEMBER(C, void, Sort, (bool));
    EXPECT_MEMBER(C, void, Sort, (int (*)(const T&, const T&)));
    EXPECT_MEMBER(C, void, Sort, (int (*)(T* const&, T* const&)));
    EXPECT_MEMBER(C, bool, Move, (int, int));
}

struct Item {
    int key = 0;
    friend bool operator==(const Item& a, const Item& b) { return a.key == b.key; }
    friend bool operator!=(const Item& a, const Item& b) { return a.key != b.key; }
    friend bool operator<(const Item& a, const Item& b) { return a.key < b.key; }
    friend bool operator>(const Item& a, const Item& b) { return a.key > b.key; }
};

}  // namespace

TEST(ExportedSignatures, DynamicArrays) {
    ExpectCursorInterface<QoDynArray<double>, double>();
    ExpectValueOperations<QoDynArray<double>, double>();
    using A = QoDynArray<double>;
    EXPECT_MEMBER(A, bool, SetSpaceSize, (int));
    EXPECT_CONST_MEMBER(A, int, GetSpaceSize, ());
    EXPECT_CONST_MEMBER(A, int, GetAllocUnit, ());
    EXPECT_MEMBER(A, void, SetAllocUnit, (int));
    EXPECT_MEMBER(A, void, Attach, (int, double*));
    EXPECT_MEMBER(A, double*, Detach, ());
}

TEST(ExportedSignatures, CursorLists) {
    ExpectCursorInterface<QoList<int>, int>();
    ExpectValueOperations<QoList<int>, int>();
    ExpectListInterface<QoList<int>, int>();
    EXPECT_CONST_MEMBER(QoList<int>, QoListNode<int>*, GetCurPos, ());
    ExpectCursorInterface<QoDList<double>, double>();
    ExpectListInterface<QoDList<double>, double>();
    ExpectCursorInterface<QoXList<Item*>, Item*>();
    ExpectListInterface<QoXList<Item*>, Item*>();
}

TEST(ExportedSignatures, OwningAndExactArrays) {
    using P = QoDynPArray<Item>;
    ExpectCursorInterface<P, Item*>();
    ExpectOwningInterface<P, Item>();
    EXPECT_MEMBER(P, void, SortEx, (bool));
    EXPECT_MEMBER(P, void, ReAllocate, (int));

    using A = QoArray<Item>;
    EXPECT_CONST_MEMBER(A, int, GetLength, ());
    EXPECT_CONST_MEMBER(A, int, GetMaxIndex, ());
    EXPECT_CONST_MEMBER(A, bool, IsEmpty, ());
    EXPECT_CONST_MEMBER(A, bool, IsValidIndex, (int));
    EXPECT_MEMBER(A, Item*, GetDataBuffer, ());
    EXPECT_MEMBER(A, Item&, GetAt, (int));
    EXPECT_CONST_MEMBER(A, const Item&, GetAt, (int));
    EXPECT_MEMBER(A, void, SetAt, (int, const Item&));
    EXPECT_MEMBER(A, Item&, operator[], (int));
    EXPECT_CONST_MEMBER(A, const Item&, operator[], (int));
    EXPECT_MEMBER(A, void, Reset, ());
    EXPECT_MEMBER(A, void, ReAllocate, (int, bool));
    EXPECT_MEMBER(A, void, SetAll, (const Item&));
    EXPECT_MEMBER(A, void, Insert, (int, const Item&));
    EXPECT_MEMBER(A, void, InsertHead, (const Item&));
    EXPECT_MEMBER(A, int, Append, (const Item&));
    EXPECT_MEMBER(A, void, Del, (int));
    EXPECT_MEMBER(A, void, DelHead, ());
    EXPECT_MEMBER(A, void, DelTail, ());
    EXPECT_CONST_MEMBER(A, int, Find, (const Item&, int, int));
    EXPECT_CONST_MEMBER(A, int, Find, (const Item&, QoQuene<int>&, int, int));
    EXPECT_MEMBER(A, int, FindDel, (const Item&));
    EXPECT_MEMBER(A, int, FindOrAppend, (const Item&));
    EXPECT_MEMBER(A, void, FindOrInsertHead, (const Item&));
    EXPECT_CONST_MEMBER(A, int, BFind, (const Item&, int, int));
    EXPECT_MEMBER(A, void, Reverse, (int, int));
    EXPECT_MEMBER(A, void, Sort, (int (*)(const Item&, const Item&)));
    EXPECT_MEMBER(A, void, Sort, (bool));
    EXPECT_CONST_MEMBER(A, bool, operator==, (const A&));
    EXPECT_CONST_MEMBER(A, bool, operator!=, (const A&));
    EXPECT_CONST_MEMBER(A, bool, operator<, (const A&));
    EXPECT_CONST_MEMBER(A, bool, operator>, (const A&));

    using G = Qo2dArray<Item>;
    EXPECT_MEMBER(G, void, ReAllocate, (int, int, bool));
    EXPECT_MEMBER(G, void, SetAll, (const Item&));
}

TEST(ExportedSignatures, OwningLists) {
    using D = QoPDList<Item>;
    ExpectCursorInterface<D, Item*>();
    ExpectListInterface<D, Item*>();
    ExpectOwningInterface<D, Item>();
    EXPECT_MEMBER(D, bool, FindDataTo, (const Item&, int, int));
    EXPECT_MEMBER(D, int, FindDataOrAppend, (const Item&));
    EXPECT_MEMBER(D, void, FindDataOrInsertHead, (const Item&));

    using X = QoPXList<Item>;
    ExpectCursorInterface<X, Item*>();
    ExpectListInterface<X, Item*>();
    ExpectOwningInterface<X, Item>();
    EXPECT_MEMBER(X, int, FindDataOrAppend, (const Item&));
    EXPECT_MEMBER(X, void, FindDataOrInsertHead, (const Item&));
}

TEST(ExportedSignatures, LabelOptionsItemsAndContents) {
    using O = QoHvacCStringOption;
    ExpectListInterface<O, CString>();
    EXPECT_MEMBER(O, void, AddOption, (const CString&));
    EXPECT_MEMBER(O, bool, SetCurSel, (const CString&, bool));
    EXPECT_MEMBER(O, void, SetCurSelIndex, (int));
    EXPECT_CONST_MEMBER(O, int, GetCurSelIndex, ());
    EXPECT_CONST_MEMBER(O, CString, GetCurSelString, ());
    EXPECT_CONST_MEMBER(O, bool, SaveToDict, (QoDtDictOptionItem*));
    EXPECT_MEMBER(O, bool, ReadFromDict, (QoDtDictOptionItem*));

    using I = QoHvacDuctLabelItem;
    EXPECT_CONST_MEMBER(I, CString, GetLabelText, ());
    EXPECT_CONST_MEMBER(I, CString, GetLabelText, (const CString&));
    EXPECT_CONST_MEMBER(I, bool, SaveToItem, (QoDtDictItem*));
    EXPECT_MEMBER(I, bool, ReadFromItem, (QoDtDictItem*));

    using C = QoHvacDuctLabelContent;
    EXPECT_CONST_MEMBER(C, bool, SaveToDict, (QoDtDictionary*));
    EXPECT_MEMBER(C, bool, ReadFromDict, (QoDtDictionary*));
}

TEST(ExportedSignatures, LabelSettingsAndComposition) {
    using M = QoHvacDuctLabelManager;
    QoHvacDuctLabelManager* (*instance)() = &M::GetInstance;
    EXPECT_TRUE(instance != nullptr);
    EXPECT_MEMBER(M, void, Init, ());
    EXPECT_MEMBER(M, void, ReadFromDict, ());
    EXPECT_MEMBER(M, void, SaveToDict, ());
    EXPECT_CONST_MEMBER(M, M::ELengthUnit, GetLengthUnit, ());
    EXPECT_CONST_MEMBER(M, CString, GetLengthUnitString, ());
    EXPECT_CONST_MEMBER(M, QoDbHvacLabel::ELeadLabelPtType, GetArrowType, ());
    EXPECT_CONST_MEMBER(M, double, GetArrowSize, ());
    EXPECT_CONST_MEMBER(M, M::EAutoLabelPos, GetAutoLabelPos, ());
    EXPECT_CONST_MEMBER(M, double, GetAutoLabelSpace, ());
    EXPECT_CONST_MEMBER(M, M::EEleLabelStandard, GetEleLabelStarnard, ());
    EXPECT_CONST_MEMBER(M, CString, GetTopHPrefix, ());
    EXPECT_CONST_MEMBER(M, CString, GetMidHPrefix, ());
    EXPECT_CONST_MEMBER(M, CString, GetBotHPrefix, ());
    EXPECT_CONST_MEMBER(M, CString, GetElevationLabelPrefix, (QoDbHvacDuct::EVertAlignment));
    EXPECT_CONST_MEMBER(M, AcDbObjectId, GetLabelTextStyle, ());
    EXPECT_CONST_MEMBER(M, QoHvacDuctLabelData, GetLabelData,
                  (const QoArray<QoHvacDuctLabelItem>&, const CString&, QoDbHvacDuct*));
    EXPECT_CONST_MEMBER(M, QoArray<QoHvacDuctLabelData>, GetLeadLabelData, (QoDbHvacDuct*, int));
    EXPECT_CONST_MEMBER(M, QoArray<QoHvacDuctLabelData>, GetLeadLabelData, (int, const AcDbObjectId&));
    EXPECT_CONST_MEMBER(M, QoArray<QoHvacDuctLabelData>, GetAutoLabelData, (QoDbHvacDuct*));
    EXPECT_CONST_MEMBER(M, QoArray<QoHvacDuctLabelData>, GetAutoLabelData, (const AcDbObjectId&));
}

TEST(ExportedSignatures, StatePoint) {
    using P = ZefraHDGPoint;
    using K = EHvacHDGPointCalItemType;
#define EXPECT_PROPERTY(Name)                      \
    EXPECT_CONST_MEMBER(P, double, Get##Name, ()); \
    EXPECT_MEMBER(P, void, Set##Name, (double))
    EXPECT_PROPERTY(Tdb);
    EXPECT_PROPERTY(RH);
    EXPECT_PROPERTY(H);
    EXPECT_PROPERTY(D);
    EXPECT_PROPERTY(Twb);
    EXPECT_PROPERTY(Tdp);
    EXPECT_PROPERTY(Pv);
    EXPECT_PROPERTY(Den);
    EXPECT_PROPERTY(SV);
    EXPECT_PROPERTY(Ds);
    EXPECT_PROPERTY(Ps);
#undef EXPECT_PROPERTY
    EXPECT_CONST_MEMBER(P, CString, GetName, ());
    EXPECT_CONST_MEMBER(P, CString, GetErrorInfo, ());
    EXPECT_MEMBER(P, void, SetName, (const CString&));
    EXPECT_MEMBER(P, void, SetErrorInfo, (const CString&));
    EXPECT_CONST_MEMBER(P, K, GetCalPara1Type, ());
    EXPECT_CONST_MEMBER(P, K, GetCalPara2Type, ());
    EXPECT_MEMBER(P, void, SetCalPara1Type, (K));
    EXPECT_MEMBER(P, void, SetCalPara2Type, (K));
    EXPECT_CONST_MEMBER(P, double, GetCalParaValue, (K));
    EXPECT_CONST_MEMBER(P, double, GetCalPara1Value, ());
    EXPECT_CONST_MEMBER(P, double, GetCalPara2Value, ());
    EXPECT_MEMBER(P, bool, Calculate, ());
    EXPECT_MEMBER(P, bool, CalByTdbAndRH, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndPv, (double, double));
    EXPECT_MEMBER(P, bool, CalByHAndD, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndD, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndH, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndTwb, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndTdp, (double, double));
    EXPECT_MEMBER(P, bool, CalByTdbAndDen, (double, double));
    EXPECT_MEMBER(P, bool, CalByRHAndD, (double, double));
    EXPECT_MEMBER(P, bool, CalByRHAndH, (double, double));
    EXPECT_MEMBER(P, bool, CalByRHAndPv, (double, double));
    EXPECT_MEMBER(P, bool, CalByRHAndTdp, (double, double));
    EXPECT_MEMBER(P, bool, CalByRHAndTwb, (double, double));
    EXPECT_MEMBER(P, bool, CalByHAndPv, (double, double));
    EXPECT_MEMBER(P, bool, CalByHAndTdp, (double, double));
    EXPECT_MEMBER(P, bool, CalByDAndTwb, (double, double));
    EXPECT_MEMBER(P, bool, CalByTwbAndPv, (double, double));
    EXPECT_MEMBER(P, bool, CalByTwbAndTdp, (double, double));
    K (*kindOf)(const CString&) = &GetHDGPtCalItemType;
    double (*pressure)() = &GetHDGCurB;
    void (*setPressure)(double) = &SetHDGCurB;
    EXPECT_TRUE(kindOf != nullptr && pressure != nullptr && setPressure != nullptr);
}

namespace {
template <typename Process>
void ExpectSimpleProcess() {
    EXPECT_MEMBER(Process, bool, Calculate, ());
    EXPECT_MEMBER(Process, bool, SaveXml, (QoDtDictionary*));
    EXPECT_MEMBER(Process, bool, ReadXml, (QoDtDictionary*));
    EXPECT_CONST_MEMBER(Process, const CStringArray&, GetResultInfo, ());
    EXPECT_CONST_MEMBER(Process, ZefraHDGPoint, GetHDGPointA, ());
    EXPECT_CONST_MEMBER(Process, ZefraHDGPoint, GetHDGPointB, ());
    EXPECT_MEMBER(Process, void, SetHDGPointA, (const ZefraHDGPoint&));
    EXPECT_MEMBER(Process, void, SetHDGPointB, (const ZefraHDGPoint&));
}
}  // namespace

TEST(ExportedSignatures, SimpleProcesses) {
    using L = ZefraHDGLine;
    ExpectSimpleProcess<L>();
    EXPECT_CONST_MEMBER(L, int, GetCalType, ());
    EXPECT_MEMBER(L, void, SetCalType, (int));
    EXPECT_CONST_MEMBER(L, double, GetG, ());
    EXPECT_MEMBER(L, void, SetG, (double));
    EXPECT_CONST_MEMBER(L, double, GetQ, ());
    EXPECT_MEMBER(L, void, SetQ, (double));

    using M = ZefraHDGMixAir;
    ExpectSimpleProcess<M>();
    EXPECT_CONST_MEMBER(M, double, GetGa, ());
    EXPECT_MEMBER(M, void, SetGa, (double));
    EXPECT_CONST_MEMBER(M, double, GetGb, ());
    EXPECT_MEMBER(M, void, SetGb, (double));
    EXPECT_CONST_MEMBER(M, double, GetdMixRatio, ());
    EXPECT_MEMBER(M, void, SetdMixRatio, (double));
    EXPECT_CONST_MEMBER(M, bool, GetIsHfb, ());
    EXPECT_MEMBER(M, void, SetIsHfb, (bool));
    EXPECT_CONST_MEMBER(M, ZefraHDGPoint, GetHDGPointC, ());

    using R = ZefraHDGHeatHumRat;
    ExpectSimpleProcess<R>();
    EXPECT_CONST_MEMBER(R, int, GetCalType, ());
    EXPECT_MEMBER(R, void, SetCalType, (int));
    EXPECT_CONST_MEMBER(R, double, GetQ, ());
    EXPECT_MEMBER(R, void, SetQ, (double));
    EXPECT_CONST_MEMBER(R, double, GetMw, ());
    EXPECT_MEMBER(R, void, SetMw, (double));
    EXPECT_CONST_MEMBER(R, CString, GetValue, ());
    EXPECT_MEMBER(R, void, SetValue, (const CString&));
}

TEST(ExportedSignatures, ChartSettings) {
    using S = QoHvacHDGSysSetManager;
    QoHvacHDGSysSetManager* (*instance)() = &S::GetInstance;
    EXPECT_TRUE(instance != nullptr);
    EXPECT_MEMBER(S, bool, ReadData, ());
    EXPECT_CONST_MEMBER(S, bool, SaveData, ());
    EXPECT_MEMBER(S, void, UpdateAllCurUnitsConvertSet, ());
    EXPECT_MEMBER(S, bool, SetDisplayItem, (const CString&, bool));
    EXPECT_CONST_MEMBER(S, bool, IsDisplayItem, (const CString&));
    EXPECT_MEMBER(S, bool, SetDisplayYcHfItem, (const CString&, bool));
    EXPECT_CONST_MEMBER(S, bool, IsDisplayYcHfItem, (const CString&));
    EXPECT_MEMBER(S, bool, SetDisplayEcHfItem, (const CString&, bool));
    EXPECT_CONST_MEMBER(S, bool, IsDisplayEcHfItem, (const CString&));
    EXPECT_MEMBER(S, bool, SetAbbreviationName, (const CString&, const CString&));
    EXPECT_CONST_MEMBER(S, CString, GetAbbreviationName, (const CString&));
    EXPECT_MEMBER(S, bool, SetUnitsName, (const CString&, const CString&));
    EXPECT_CONST_MEMBER(S, CString, GetUnitsName, (const CString&));
    EXPECT_MEMBER(S, bool, SetPrecision, (const CString&, int));
    EXPECT_CONST_MEMBER(S, int, GetPrecision, (const CString&));
    EXPECT_CONST_MEMBER(S, int, GetDislayItemNumbers, ());
}

TEST(ExportedSignatures, DuctSystemRegister) {
    using R = QoHvacDuctLayerManager;
    using K = HVAC::EQoDbHvacSystemType;
    QoHvacDuctLayerManager* (*instance)() = &R::GetInstance;
    EXPECT_TRUE(instance != nullptr);
    EXPECT_MEMBER(R, void, ReRead, ());
    EXPECT_CONST_MEMBER(R, QoDtDictionary*, GetSysDefDict, (K));
    EXPECT_CONST_MEMBER(R, QoDtDictionary*, GetAssDict, (K));
    EXPECT_MEMBER(R, bool, FindSystem, (const CString&, K));
    EXPECT_MEMBER(R, bool, FindName, (const CString&, K));
    EXPECT_MEMBER(R, bool, FindFlag, (const CString&, K));
    EXPECT_MEMBER(R, bool, GetSysKey, (const CString&, CString&, K));
    EXPECT_MEMBER(R, bool, GetSysLocalName, (const CString&, CString&, K));
    EXPECT_MEMBER(R, bool, GetAllSystemName, (CStringArray&, K));
    EXPECT_MEMBER(R, bool, GetAllSystemName, (QoArray<CString>&, K));
    EXPECT_MEMBER(R, bool, GetAllFlag, (CStringArray&, K));
    EXPECT_MEMBER(R, CString, GetFlagWithSysname, (const CString&, K));
    EXPECT_MEMBER(R, bool, AddSystem, (const CString&, const CString&, const CString&, CString, K));
    EXPECT_MEMBER(R, bool, DelSystem, (const CString&, K));
    EXPECT_CONST_MEMBER(R, CString, GetLayerComment, (const CString&));
    EXPECT_CONST_MEMBER(R, bool, GetLayerProp, (const CString&, QoHvacEntProperty&));
    EXPECT_CONST_MEMBER(R, CString, SearchUserDefineSys, (const CString&, QoDtDictionary*));
    EXPECT_CONST_MEMBER(R, CString, TransUserLayerToSys, (const CString&));
    EXPECT_MEMBER(R, void, InitialSysUserComparison, (QoDtDictionary*));
    EXPECT_MEMBER(R, void, ReReadSysUserComparison, ());
    bool (*allNames)(CStringArray&, K) = &HVAC::GetAllSystemName;
    EXPECT_TRUE(allNames != nullptr);
}

TEST(ExportedSignatures, ComponentSettings) {
    using K = HVAC::EQoDbHvacSystemType;

    using F = QoHvacDuctFlangeManager;
    QoHvacDuctFlangeManager* (*flanges)() = &F::GetInstance;
    EXPECT_TRUE(flanges != nullptr);
    EXPECT_CONST_MEMBER(F, F::EFlangeStyle, GetFlangeType, ());
    EXPECT_CONST_MEMBER(F, QoDbHvacDuctFlange::EFlangeType, GetFlangeEntityType, ());
    EXPECT_CONST_MEMBER(F, bool, GetSearlarType, ());
    EXPECT_CONST_MEMBER(F, double, GetDefaultOffset, ());
    EXPECT_MEMBER(F, void, SetDefaultOffset, (double));
    EXPECT_CONST_MEMBER(F, int, GetSizeSetNum, ());
    EXPECT_CONST_MEMBER(F, double, GetEndRange, (int));
    EXPECT_CONST_MEMBER(F, double, GetStartRange, (int));
    EXPECT_CONST_MEMBER(F, double, GetOffset, (int));
    EXPECT_CONST_MEMBER(F, double, GetOffset, (double));
    EXPECT_MEMBER(F, void, AddSizeSet, (double, double));
    EXPECT_MEMBER(F, void, AddItem, ());
    EXPECT_MEMBER(F, bool, DelItem, (double));
    EXPECT_MEMBER(F, void, ResetSize, ());
    EXPECT_MEMBER(F, bool, ChangeOffset, (double, double));
    EXPECT_MEMBER(F, bool, SetLastEndRange, (double));
    EXPECT_MEMBER(F, bool, ChangeEndRange, (double, double));
    EXPECT_MEMBER(F, bool, ChangeStartRange, (double, double));
    EXPECT_MEMBER(F, void, ReadFromDict, ());
    EXPECT_MEMBER(F, void, SaveToDict, ());

    using W = QoHvacWTFlangeManager;
    QoHvacWTFlangeManager* (*water)() = &W::GetInstance;
    EXPECT_TRUE(water != nullptr);
    EXPECT_CONST_MEMBER(W, QoList<SFlangeExtrudeData>, GetFlangeData, (K));
    EXPECT_MEMBER(W, void, SetFlangeData, (QoList<SFlangeExtrudeData>, K));
    EXPECT_MEMBER(W, void, AddExtrudeData, (const SFlangeExtrudeData&, K));
    EXPECT_MEMBER(W, void, Clear, (K));
    EXPECT_MEMBER(W, void, Sort, (K));
    EXPECT_CONST_MEMBER(W, double, GetThickness, (double, K));
    EXPECT_CONST_MEMBER(W, double, GetExrtude, (double, K));
    EXPECT_CONST_MEMBER(W, double, GetKTThickness, (double));
    EXPECT_CONST_MEMBER(W, double, GetKTExrtude, (double));
    EXPECT_MEMBER(W, void, SaveToDict, (K));
    EXPECT_MEMBER(W, void, ReadFromDict, (K));

    using V = ZefraVRVPipeDiameterManager;
    ZefraVRVPipeDiameterManager* (*vrv)() = &V::GetInstance;
    EXPECT_TRUE(vrv != nullptr);
    EXPECT_CONST_MEMBER(V, QoList<double>, GetListData, (bool));
    EXPECT_MEMBER(V, void, SetListData, (QoList<double>, bool));
    EXPECT_MEMBER(V, void, ReadFromDict, ());
    EXPECT_MEMBER(V, void, SaveToDict, ());

    using T = QoHvacDuctFitManager;
    QoHvacDuctFitManager* (*fits)() = &T::GetInstance;
    EXPECT_TRUE(fits != nullptr);
    EXPECT_MEMBER(T, bool, ReadData, ());
    EXPECT_MEMBER(T, bool, SaveData, ());
    EXPECT_MEMBER(T, bool, SetDefaultFitData, (const SHvacDuctElbowData&, bool, bool));
    EXPECT_MEMBER(T, bool, SetDefaultFitData, (const SHvacDuctTransData&, bool, bool));
    EXPECT_MEMBER(T, bool, SetDefaultFitData, (const SHvacDuctOffsetData&, bool, bool));
    EXPECT_MEMBER(T, bool, SetDefaultFitData, (const SHvacDuctTeeData&, bool, bool));
    EXPECT_MEMBER(T, bool, SetDefaultFitData, (const SHvacDuctCrossData&, bool, bool));
    EXPECT_CONST_MEMBER(T, QoArray<int>, GetAllElbowType, ());
    EXPECT_CONST_MEMBER(T, QoArray<int>, GetAllTransType, ());
    EXPECT_CONST_MEMBER(T, QoArray<int>, GetAllOffsetType, ());
    EXPECT_CONST_MEMBER(T, QoArray<int>, GetAllTeeType, ());
    EXPECT_CONST_MEMBER(T, QoArray<int>, GetAllCrossType, ());
    EXPECT_MEMBER(T, CString, GetElbowNameWithType, (int));
    EXPECT_MEMBER(T, CString, GetTransNameWithType, (int));
    EXPECT_MEMBER(T, CString, GetOffsetNameWithType, (int));
    EXPECT_MEMBER(T, CString, GetTeeNameWithType, (int));
    EXPECT_CONST_MEMBER(T, CString, GetCrossNameWithType, (int));

    using D = QoHvacDuctDisplayManager;
    QoHvacDuctDisplayManager* (*display)() = &D::GetInstance;
    EXPECT_TRUE(display != nullptr);
    EXPECT_MEMBER(D, void, ReadFromDict, (K));
    EXPECT_MEMBER(D, void, SaveToDict, (K));
    EXPECT_MEMBER(D, void, SetDataToQoDb, (K));
    EXPECT_MEMBER(D, void, ModiftAll, (bool, K));
    EXPECT_CONST_MEMBER(D, int, GetLineType, (K));

    using C = QoHvacDuctCalculateManager;
    QoHvacDuctCalculateManager* (*conditions)() = &C::GetInstance;
    EXPECT_TRUE(conditions != nullptr);
    EXPECT_MEMBER(C, void, ReadFromDict, ());
    EXPECT_MEMBER(C, void, SaveToDict, ());

    using S = QoHvacDrawSetManager;
    QoHvacDrawSetManager* (*draw)() = &S::GetInstance;
    EXPECT_TRUE(draw != nullptr);
    EXPECT_MEMBER(S, SHvacDrawSetData&, GetDrawSetData, (K));
    EXPECT_MEMBER(S, SHvacDrawSetData&, GetKTDrawSetData, ());
    EXPECT_MEMBER(S, SHvacDrawSetData&, GetCnDrawSetData, ());
    EXPECT_MEMBER(S, void, SetDrawSetData, (const SHvacDrawSetData&, K));
    EXPECT_MEMBER(S, SHvacRadDrawSetData&, GetRadDrawSetData, ());
    EXPECT_MEMBER(S, void, SetRadDrawSetData, (const SHvacRadDrawSetData&));
    EXPECT_MEMBER(S, AcDbObjectId, GetLabelTextStyle, (K));
    EXPECT_MEMBER(S, void, ReadFromDict, (K));
    EXPECT_MEMBER(S, void, SaveToDict, (K));
    EXPECT_MEMBER(S, void, ReadUnifiedData, (SHvacDrawSetData&));
    EXPECT_MEMBER(S, void, SaveUnifiedData, (const SHvacDrawSetData&));
}

namespace {
// What the two return-air schemes share.
template <typename S, typename Given, typename Type>
void ExpectReturnAirScheme() {
    EXPECT_MEMBER(S, bool, Calculate, ());
    EXPECT_MEMBER(S, bool, Cal_Xj_Process, ());
    EXPECT_MEMBER(S, bool, Cal_Dj_Process, ());
    EXPECT_MEMBER(S, bool, SaveXml, (QoDtDictionary*));
    EXPECT_MEMBER(S, bool, ReadXml, (QoDtDictionary*));
    EXPECT_MEMBER(S, void, SetGivenData, (const Given&));
    EXPECT_CONST_MEMBER(S, Given, GetGivenData, ());
#define EXPECT_POINT(Name)                                   \
    EXPECT_CONST_MEMBER(S, ZefraHDGPoint, GetPoint##Name, ()); \
    EXPECT_MEMBER(S, void, SetPoint##Name, (const ZefraHDGPoint&))
    EXPECT_POINT(N);
    EXPECT_POINT(W);
    EXPECT_POINT(N1);
    EXPECT_POINT(W1);
    EXPECT_POINT(C);
    EXPECT_POINT(L);
    EXPECT_POINT(K);
    EXPECT_POINT(O);
#undef EXPECT_POINT
#define EXPECT_GIVEN(Name, Type_)                    \
    EXPECT_CONST_MEMBER(S, Type_, Get##Name, ());    \
    EXPECT_MEMBER(S, void, Set##Name, (Type_))
    EXPECT_GIVEN(Qn, double);
    EXPECT_GIVEN(Mw, double);
    EXPECT_GIVEN(SfGdWs, double);
    EXPECT_GIVEN(HfGdWs, double);
    EXPECT_GIVEN(ptL_RH, double);
    EXPECT_GIVEN(FreshAirType, int);
    EXPECT_GIVEN(FreshAirRatio, double);
    EXPECT_GIVEN(Gw, double);
    EXPECT_GIVEN(Go, double);
    EXPECT_GIVEN(SfWc, double);
#undef EXPECT_GIVEN
    EXPECT_CONST_MEMBER(S, Type, GetCalPriRetAirType, ());
    EXPECT_MEMBER(S, void, GetCalPriRetAirType, (Type));
    for (auto result : {&S::GetGn, &S::GetQw, &S::GetQr, &S::GetQo, &S::GetQk, &S::GetQw1, &S::GetQl, &S::GetQp,
                        &S::GetMww, &S::GetMwp}) {
        double (S::*member)() const = result;
        EXPECT_TRUE(member != nullptr);
    }
    EXPECT_CONST_MEMBER(S, double, GetHeatHumidityRatio, ());
    EHvacHDGPointCalItemType (*kind)(const CString&) = &S::GetCalItemType;
    CString (*text)(EHvacHDGPointCalItemType) = &S::GetCalItemTypeStr;
    EXPECT_TRUE(kind != nullptr && text != nullptr);
    using Points = CNTArray<ZefraHDGPoint, ZefraHDGPoint&>;
    EXPECT_CONST_MEMBER(S, Points, GetAllPoint, ());
    EXPECT_CONST_MEMBER(S, CString, GetAllPointText, ());
    EXPECT_CONST_MEMBER(S, CString, GetAllText_G, ());
    EXPECT_CONST_MEMBER(S, CString, GetAllText_Q, ());
}
}  // namespace

TEST(ExportedSignatures, ReturnAirSchemes) {
    using P = ZefraHDGPrimaryReturnAir;
    ExpectReturnAirScheme<P, SHDGPrimaryReturnAirInfo, EHDGPriRetAirType>();
    EXPECT_CONST_MEMBER(P, CString, GetAllText_Mw, ());

    using S = ZefraHDGSecondaryReturnAir;
    ExpectReturnAirScheme<S, SHDGSecondaryReturnAirInfo, EHDGSecRetAirType>();
    EXPECT_CONST_MEMBER(S, ZefraHDGPoint, GetPointM, ());
    EXPECT_MEMBER(S, void, SetPointM, (const ZefraHDGPoint&));
    EXPECT_CONST_MEMBER(S, double, GetGr1, ());
    EXPECT_CONST_MEMBER(S, double, GetGr2, ());
    EXPECT_CONST_MEMBER(S, double, GetGo1, ());
    EXPECT_CONST_MEMBER(S, CString, GetMwText_Mw, ());
}

TEST(ExportedSignatures, FreeFunctionsOfTheDiscipline) {
    using K = HVAC::EQoDbHvacSystemType;
    bool (*separate)(const CString&, CString&, CString&) = &HVAC::SeparatePathAndItem;
    bool (*getText)(const CString&, CString&) = &HVAC::GetDefaultValue;
    bool (*getDouble)(const CString&, double&) = &HVAC::GetDefaultValue;
    bool (*getInt)(const CString&, int&) = &HVAC::GetDefaultValue;
    bool (*getBool)(const CString&, bool&) = &HVAC::GetDefaultValue;
    bool (*setText)(const CString&, const CString&) = &HVAC::SetDefaultValue;
    bool (*setDouble)(const CString&, double) = &HVAC::SetDefaultValue;
    bool (*setInt)(const CString&, int) = &HVAC::SetDefaultValue;
    bool (*setBool)(const CString&, bool) = &HVAC::SetDefaultValue;
    void (*save)() = &HVAC::SaveConfigData;
    bool (*getSpace)(double&, CString&) = &HVAC::GetHvacSpaceInfoFromConfig;
    bool (*setSpace)(double, const CString&) = &HVAC::SetHvacSpaceInfoToConfig;
    bool (*spaceToDwg)(bool) = &HVAC::SetConfigHvacSpaceInfoToCurDwg;
    HVAC::ECustomProject (*project)() = &HVAC::GetCustomProject;
    CString (*layerKey)(K) = &HVAC::GetSysLayerKey;
    EXPECT_TRUE(separate && getText && getDouble && getInt && getBool && setText && setDouble && setInt && setBool &&
                save && getSpace && setSpace && spaceToDwg && project && layerKey);

    void (*duct)(QoDbHvacDuct*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*ductFitting)(QoDbHvacDuctFitting*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*equipment)(QoDbHvacEquipment*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*ductValve)(QoDbHvacDuctValve*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*label)(QoDbHvacLabel*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*terminal)(QoDbHvacTerminal*, const CString&, bool) = &HVAC::SetHvacEntLayer;
    void (*pipe)(QoDbHvacPipe*, const CString&, bool, K) = &HVAC::SetHvacEntLayer;
    void (*fitting)(QoDbHvacFitting*, const CString&, bool, K) = &HVAC::SetHvacEntLayer;
    void (*pipeLabel)(QoDbHvacPipeLabel*, const CString&, bool, K) = &HVAC::SetHvacEntLayer;
    void (*pipeEquipment)(QoDbHvacPipeEquipment*, const CString&, int, bool, K) = &HVAC::SetHvacEntLayer;
    void (*valve)(QoDbHvacValve*, const CString&, int, bool, K) = &HVAC::SetHvacEntLayer;
    void (*coil)(QoDbHvacCoilPipe*) = &HVAC::SetHvacEntLayer;
    void (*telescope)(QoDbHvacTelescopeCase*) = &HVAC::SetHvacEntLayer;
    EXPECT_TRUE(duct && ductFitting && equipment && ductValve && label && terminal && pipe && fitting && pipeLabel &&
                pipeEquipment && valve && coil && telescope);
}
