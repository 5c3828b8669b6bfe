// SPDX-License-Identifier: MIT
// Measures how long each effect's frame takes on the current GL driver, and how long its messages take:
//
//     frame-times [FRAMES [WIDTH HEIGHT [EFFECT...]]]
//
// 120 frames an effect, 1024 by 768, all effects, unless told otherwise.
//
// Start it in the project's folder. The first line names the driver; EffectFrames.h tells which that is, and
// what is measured.
//
//   median      median time of a frame, milliseconds
//   longest     the longest frame without its messages and without the first frame
//   processor   median processor time of a frame, of all threads, milliseconds
//   of empty    the median as a multiple of an empty frame's, measured in the same run
//   undrawn     median time of a frame that is played without being drawn
//   message     the longest time of one message before its frame, such as the one that generates a tree
#include "tools/benchmark/EffectFrames.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

static bool IsAsked(const std::string& effect, int count, char** names)
{
    return count == 0 || std::find(names, names + count, effect) != names + count;
}

int main(int count, char** arguments)
{
    const int frames = count > 1 ? atoi(arguments[1]) : 120;
    const int width = count > 3 ? atoi(arguments[2]) : 1024;
    const int height = count > 3 ? atoi(arguments[3]) : 768;
    if (frames < 2 || width < 1 || height < 1) {
        fprintf(stderr, "usage: frame-times [FRAMES [WIDTH HEIGHT [EFFECT...]]]\n");
        return 2;
    }
    EffectFrames effects;
    if (!effects.Open(width, height)) {
        fprintf(stderr, "frame-times: %s\n", effects.error.c_str());
        return 1;
    }
    printf("%s\n%d by %d, %d frames each, milliseconds\n\n", effects.Driver().c_str(), width, height, frames);
    printf("%-20s %9s %9s %9s %9s %9s %9s\n", "", "median", "longest", "processor", "of empty", "undrawn",
           "message");
    const FrameTime empty = effects.MeasureEmpty(frames);
    printf("%-20s %9.3f %9.3f %9.3f %9.1f\n", "(empty frame)", empty.median, empty.longest, empty.processor,
           1.0);
    for (size_t i = 0; i < effects.Count(); i++) {
        if (!IsAsked(effects.Name(i), std::max(count - 4, 0), arguments + 4))
            continue;
        FrameTime drawn, undrawn;
        if (!effects.Measure(i, frames, DrawnFrames, &drawn) ||
            !effects.Measure(i, frames, UndrawnFrames, &undrawn)) {
            fprintf(stderr, "frame-times: %s\n", effects.error.c_str());
            return 1;
        }
        printf("%-20s %9.3f %9.3f %9.3f %9.1f %9.3f", effects.Name(i).c_str(), drawn.median, drawn.longest,
               drawn.processor, drawn.median / empty.median, undrawn.median);
        if (drawn.message > 0)
            printf(" %9.3f", drawn.message);
        printf("\n");
        fflush(stdout);
    }
    return 0;
}
