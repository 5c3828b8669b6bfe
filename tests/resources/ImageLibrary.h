// SPDX-License-Identifier: MIT
// The image library of the tests without GL, with handles on it: what it says of its version, and a decoder
// in the child that can be made to fail. The real one does the rest.
#pragma once

#include <IL/il.h>

#include <sys/types.h>

void SetImageLibraryVersions(int il, int ilu); // 0: the real one

// What the library tells of the picture that it holds: IL_IMAGE_WIDTH and the like.
void SetPictureInteger(ILenum what, ILint value);
void ForgetPictureIntegers();

// So many of the next calls of read() and waitpid() each fail: interrupted by a signal (EINTR) or for good.
void FailSystemCalls(int count, int error);

// A child that hangs is ended by the signal of the alarm that it has set, at once.
enum ChildFate { ChildLives, ChildCrashes, ChildCrashesAsItDecodes, ChildExits, ChildHangs };
void SetChildFate(ChildFate fate);

// The process in which a foreign picture was decoded last; 0 if none was.
pid_t LastForeignDecoder();

// How the child that was waited for last has ended, as waitpid tells it.
int LastChildStatus();

// The seconds that the child asked to be ended after; 0 if it did not. The second: it went on in spite of the signal.
unsigned LastAlarm();
bool OutlivedAlarm();

// The memory that the last such process could still take when it began to decode, in bytes, and the size that
// a core file of it could have.
unsigned long LastMemoryRoom();
unsigned long LastCoreLimit();

// What the library was told to read files with.
struct FileFunctions {
    fOpenRProc open;
    fCloseRProc close;
    fEofProc isAtEnd;
    fGetcProc getByte;
    fReadProc read;
    fSeekRProc seek;
    fTellRProc tell;
};
const FileFunctions& LibraryFileFunctions();

// How often the library was shut down.
int LibraryShutdowns();
