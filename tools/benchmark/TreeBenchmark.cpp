// SPDX-License-Identifier: MIT
// Measures Tree::Generate, which a message handler calls within one frame. Besides its time, each line has
// three counters:
//
//   cubes           number of cubes of the tree
//   products        the time as a multiple of the time that the four matrix products of each cube alone take
//                   in this run; 1 would be generation without any overhead
//   frames_at_60    the time as a share of a frame of 1/60 second
#include "math/Tree.h"
#include "tools/cli/MonotonicSeconds.h"

#include <benchmark/benchmark.h>

#include <algorithm>

static const int creditsSeed = 352362122;

// Returns the shortest of several runs, since other programs can only make a run longer.
static double SecondsOfProducts(int cubes)
{
    Matrix4 t, b, c, s;
    t.SetTranslation(Vector3(1, 2, 3));
    b.SetRotationZ(20);
    c.SetRotationY(30);
    s.SetScale(0.5f, 0.5f, 0.5f);
    double shortest = 1e9;
    for (int run = 0; run < 20; run++) {
        const double start = cli::MonotonicSeconds();
        for (int i = 0; i < cubes; i++)
            benchmark::DoNotOptimize(t * b * c * b * s);
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
    }
    return shortest;
}

static void Compare(benchmark::State& state, double shortest, int cubes)
{
    state.counters["cubes"] = cubes;
    state.counters["products"] = shortest / SecondsOfProducts(cubes);
    state.counters["frames_at_60"] = shortest * 60;
}

// Replaces an old tree by a new one, as the message "fade_in" of FX_Credits does.
static void GenerateAgain(benchmark::State& state)
{
    Tree tree(creditsSeed);
    double shortest = 1e9;
    while (state.KeepRunning()) {
        const double start = cli::MonotonicSeconds();
        tree.Generate(creditsSeed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, int(state.range(0)));
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
    }
    Compare(state, shortest, tree.segmentCount);
}
BENCHMARK(GenerateAgain)->ArgName("depth")->DenseRange(2, 6)->Unit(benchmark::kMicrosecond)->MinTime(0.1);

// Includes the creation of the pool and the first allocations of all branches.
static void ConstructAndGenerate(benchmark::State& state)
{
    double shortest = 1e9;
    int cubes = 0;
    while (state.KeepRunning()) {
        const double start = cli::MonotonicSeconds();
        Tree tree(creditsSeed);
        tree.Generate(creditsSeed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, int(state.range(0)));
        shortest = std::min(shortest, cli::MonotonicSeconds() - start);
        cubes = tree.segmentCount;
    }
    Compare(state, shortest, cubes);
}
BENCHMARK(ConstructAndGenerate)
    ->ArgName("depth")
    ->Arg(2)
    ->Arg(4)
    ->Unit(benchmark::kMicrosecond)
    ->MinTime(0.1);
