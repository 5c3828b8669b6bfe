// SPDX-License-Identifier: MIT
// The two random generators of the show.
//
// CONVENTIONS
//   Integer arithmetic alone, wrapping in 32 bits: the same seed gives the same numbers on every machine. The order of
//   the draws is part of the picture.
#pragma once

// The generator with a state of the caller's: *state = *state * 22695477, wrapping in 32 bits, nothing
// added. Returns the upper 16 bits, with their sign, % n: between -(n - 1) and n - 1, negative about half
// of the time. A state of 0 stays 0. n = 0 gives 0.
int NextRandom(int* state, int n);

// Advances the state as `draws` calls of NextRandom do, at once.
void SkipRandom(int* state, unsigned draws);

// The generator with one state for the whole process, which starts as after SeedRandom(1):
// state = state * 214013 + 2531011, wrapping in 32 bits. Random returns bits 16 to 30: 0 to 32767.
void SeedRandom(unsigned seed);
int Random();
