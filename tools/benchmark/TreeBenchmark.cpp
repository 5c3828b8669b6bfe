// SPDX-License-Identifier: MIT
// A tree is planted in a message handler, within one frame. Each line carries, beside its time, counters:
//
//   cubes           of the tree
//   products        the time as a multiple of the four matrix products of each cube alone, which are
//                   measured in the same run: how much of the work is not the arithmetic that must be
//   frames_at_60    the time as a share of a frame of 1/60 second
#include "math/Tree.h"

#include <benchmark/benchmark.h>

#include <chrono>

static const int creditsSeed = 352362122;

static double Seconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// The shortest of several runs, since other programs only ever make one longer.
static double SecondsOfProducts(int cubes)
{
    Matrix4 t, b, c, s;
    t.SetTranslation(Vector3(1, 2, 3));
    b.SetRotationZ(20);
    c.SetRotationY(30);
    s.SetScale(0.5f, 0.5f, 0.5f);
    double shortest = 1e9;
    for (int run = 0; run < 20; run++) {
        const double start = Seconds();
        for (int i = 0; i < cubes; i++)
            benchmark::DoNotOptimize(t * b * c * b * s);
        const double taken = Seconds() - start;
        if (taken < shortest)
            shortest = taken;
    }
    return shortest;
}

static void Compare(benchmark::State& state, double shortest, int cubes)
{
    state.counters["cubes"] = cubes;
    state.counters["products"] = shortest / SecondsOfProducts(cubes);
    state.counters["frames_at_60"] = shortest * 60;
}

// A new tree in the place of an old one, as "fade_in" plants it.
static void GenerateAgain(benchmark::State& state)
{
    Tree tree(creditsSeed);
    double shortest = 1e9;
    while (state.KeepRunning()) {
        const double start = Seconds();
        tree.Generate(creditsSeed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, int(state.range(0)));
        const double taken = Seconds() - start;
        if (taken < shortest)
            shortest = taken;
    }
    Compare(state, shortest, tree.segmentCount);
}
BENCHMARK(GenerateAgain)->ArgName("depth")->DenseRange(2, 6)->Unit(benchmark::kMicrosecond)->MinTime(0.1);

// With the making of the pool and the first allocations of all branches.
static void ConstructAndGenerate(benchmark::State& state)
{
    double shortest = 1e9;
    int cubes = 0;
    while (state.KeepRunning()) {
        const double start = Seconds();
        Tree tree(creditsSeed);
        tree.Generate(creditsSeed, Vector3(0, 0, 0), Vector3(0, 1, 0), 1.2f, 1.2f, int(state.range(0)));
        const double taken = Seconds() - start;
        if (taken < shortest)
            shortest = taken;
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
