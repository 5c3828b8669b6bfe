// SPDX-License-Identifier: MIT
// The image library of the tests without GL, with handles on it: what it says of its version, and a decoder
// in the child that can be made to fail. The real one does the rest.
#pragma once

#include <sys/types.h>

void SetImageLibraryVersions(int il, int ilu); // 0: the real one

// A child that hangs is ended by the signal of the alarm that it has set, at once.
enum ChildFate { ChildLives, ChildCrashes, ChildExits, ChildHangs };
void SetChildFate(ChildFate fate);

// The process in which a foreign picture was decoded last; 0 if none was.
pid_t LastForeignDecoder();

// The seconds that the child asked to be ended after; 0 if it did not.
unsigned LastAlarm();

// The memory that the last such process could still take when it began to decode, in bytes, and the size that
// a core file of it could have.
unsigned long LastMemoryRoom();
unsigned long LastCoreLimit();

// How often the library was shut down.
int LibraryShutdowns();
