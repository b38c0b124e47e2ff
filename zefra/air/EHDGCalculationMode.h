#pragma once
// Which treatments a scheme runs. Literal is the system's own, step for step,
// and the library's default, so that results and report texts agree with the
// host suite's. Engineering changes the few steps where the literal ones give
// an engineer a wrong answer (docs/processes.md lists them point by point);
// every front end of ours uses it by default.

enum class EHDGCalculationMode {
    Literal,
    Engineering,
};
