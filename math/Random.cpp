// SPDX-License-Identifier: MIT
#include "math/Random.h"

#include <cstdint>

static const uint32_t stateMultiplier = 22695477;

static uint32_t processState = 1;

int NextRandom(int* state, int n)
{
    *state = int(uint32_t(*state) * stateMultiplier);
    return n != 0 ? (*state >> 16) % n : 0;
}

void SkipRandom(int* state, unsigned draws)
{
    // The multiplier to the power of draws, by squaring.
    uint32_t power = 1;
    for (uint32_t square = stateMultiplier; draws != 0; draws /= 2) {
        if (draws % 2 != 0)
            power *= square;
        square *= square;
    }
    *state = int(uint32_t(*state) * power);
}

void SeedRandom(unsigned seed)
{
    processState = seed;
}

int Random()
{
    processState = processState * 214013 + 2531011;
    return int(processState >> 16 & 0x7fff);
}
