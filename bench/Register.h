#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace vastrel {

/// A long computation runs once a repetition, with no trial runs before, and has three repetitions; one of
/// many seconds has one.
enum class Length { Short, Long, VeryLong };

/// Registers a benchmark "group/size/what/cores". Both clocks run: the time of day, which counts where
/// several cores work, and the processor's, which other programs disturb less.
template <typename Run>
bool Register(const std::string& name, Length length, Run run) {
    auto* registered = benchmark::RegisterBenchmark(name.c_str(), run)
                           ->Unit(benchmark::kMillisecond)
                           ->MeasureProcessCPUTime()
                           ->UseRealTime();
    if (length != Length::Short) registered->Iterations(1)->Repetitions(length == Length::Long ? 3 : 1);
    return true;
}

} // namespace vastrel
