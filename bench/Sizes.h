// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <benchmark/benchmark.h>

namespace elmworth::bench {

/// The numbers of entries that a figure is measured on: their ratios tell what grows with the
/// library.
inline void onEverySize(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(200'000);
}

}  // namespace elmworth::bench
