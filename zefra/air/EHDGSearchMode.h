#pragma once
// How a scheme's summer search reaches its step. Both give the same step,
// bit for bit; the full walk evaluates every step and is the reference.

enum class EHDGSearchMode {
    Quick,     // the search's Find: a few dozen steps evaluated
    FullWalk,  // FindByFullScan: every step of the walk
};
