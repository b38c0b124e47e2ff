#pragma once
// Many-at-once forms of the air functions: out[k] = F(in[k], ...) for k < n,
// the same bits as the one-at-a-time functions of Air.h, several arguments at
// a time. Pressures are given per element, B[k]. Outputs must not overlap
// inputs.

namespace AIR {

// GetPv(D[k], B[k]).
void GetPvMany(const double* D, const double* B, double* Pv, int n);

// GetDByPv(Pv[k], B[k]).
void GetDByPvMany(const double* Pv, const double* B, double* D, int n);

// GetD(Tdb[k], H[k]): the moisture content of a state at Tdb with enthalpy H.
void GetDByTdbAndHMany(const double* Tdb, const double* H, double* D, int n);

// GetH(Tdb[k], D[k]).
void GetHMany(const double* Tdb, const double* D, double* H, int n);

// GetTdb(H[k], D[k]).
void GetTdbMany(const double* H, const double* D, double* Tdb, int n);

// GetRHByPvAndPs(Pv[k], Ps[k]).
void GetRHByPvAndPsMany(const double* Pv, const double* Ps, double* RH, int n);

// GetDen(Tdb[k], RH[k], B[k]), given Ps[k] = GetPs(Tdb[k]).
void GetDenMany(const double* Tdb, const double* RH, const double* Ps, const double* B, double* Den, int n);

// GetSVByDAndDen(D[k], Den[k]).
void GetSVByDAndDenMany(const double* D, const double* Den, double* SV, int n);

// GetDByTdp(Tdp[k], B[k]).
void GetDByTdpMany(const double* Tdp, const double* B, double* D, int n);

// GetHByTwb(Twb[k], B[k]).
void GetHByTwbMany(const double* Twb, const double* B, double* H, int n);

// GetTdbByDAndRH(D[k], RH[k], B[k]).
void GetTdbByDAndRHMany(const double* D, const double* RH, const double* B, double* Tdb, int n);

// GetTdbByHAndRH(H[k], RH[k], B[k]), in order of k: the curves of pairs in
// steady use are built as the one-at-a-time calls in that order build them.
void GetTdbByHAndRHMany(const double* H, const double* RH, const double* B, double* Tdb, int n);

// When the curve of (RH, B) and the wet-bulb curve of B are both built on
// this thread: Tdb[k] = GetTdbByHAndRH(H[k], RH, B) and Twb[k] = GetTwb(H[k],
// RH, B) for k < n, the same bits, and true. Otherwise false, and nothing
// done. Calls on built curves leave the cache of curves as it was, so these
// give what the calls one after another would give.
bool GetTdbAndTwbOnBuiltCurves(const double* H, double RH, double B, double* Tdb, double* Twb, int n);

// GetTdp(D[k], B[k]).
void GetTdpMany(const double* D, const double* B, double* Tdp, int n);

// GetTwb(H[k], RH, B[k]) (RH plays no part in the wet bulb), a pressure at a
// time.
void GetTwbMany(const double* H, const double* B, double* Twb, int n);

}  // namespace AIR
