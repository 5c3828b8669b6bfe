// SPDX-License-Identifier: MIT
// What ShowProcess and ShowHost say to each other: packets over a socket pair, and memory that both see.
//
// Both sides are the same program, so that the structures go over the socket as they are. Frame n is "done" when the
// process has rendered it; a process whose position is n does frame n + 1 next, and one at -1 has loaded and done
// nothing.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string>

namespace edit
{

struct ShowCommand {
    enum Kind : uint32_t {
        Begin,  // the first one. Descriptors: the shared memory, the script. Text: the data directory
        Script, // takes another script over. Descriptor: the script
        Play    // the goal, in place of the one before
    } kind = Play;

    // Begin.
    int32_t width = 0, height = 0;
    int64_t rateFrames = 0, rateSeconds = 0;
    uint64_t memoryLimit = 0; // bytes

    uint64_t revision = 0; // Begin, Script

    // Play. Frames from drawFrom on are drawn, those from showFrom to target are handed over.
    uint64_t goal = 0; // its number, for ShowReply::Passed
    int64_t target = -1;
    int64_t drawFrom = INT64_MAX;
    int64_t showFrom = INT64_MAX;
    uint32_t exact = 0; // the frames from drawFrom on have to be drawn, all of them
    uint32_t held = 0;  // stay where you are, also between two effects that load
};

struct ShowReply {
    enum Kind : uint32_t {
        Loaded,      // at -1. frames: the length of the show
        Frame,       // frame is done and lies in a slot
        Passed,      // the goal can't be reached: its target or its first frames are behind
        ScriptTaken, // all frames ahead of `frame` are the same by the new script. frames: the length of the show
        ScriptRefused, // frame: the first that differs, which has been played; -1: what loads differs. Keeps its script
        Box,           // text: the words of message boxes
        Ended // the show ended itself; text: why
    } kind = Loaded;
    int64_t frame = 0;
    int64_t frames = 0;
    uint64_t revision = 0;    // Frame: by which script; ScriptTaken and ScriptRefused: the new one
    uint64_t oldRevision = 0; // ScriptTaken and ScriptRefused
    uint64_t goal = 0;        // Frame, Passed
    uint32_t slot = 0;        // Frame
    uint32_t exact = 0;       // Frame: WarmUpFrames before it were drawn as well
    double seconds = 0;       // Frame: what drawing and reading it back took
    double warmSeconds = 0;   // Frame: the same with the frames that were drawn ahead of it only for its sake
};

// The beginning of the shared memory; the slots for frames follow it.
struct SharedState {
    std::atomic<uint64_t> beats;   // grows as long as the process is alive and well
    std::atomic<int64_t> position; // the last frame that is done
    // All frames from here to position were drawn; above position if that one was not.
    std::atomic<int64_t> drawnSince;
    std::atomic<uint32_t> loading; // thousandths
    // How many frames ShowProcess has taken out; the other side of Frame replies.
    std::atomic<uint32_t> takenSlots;
};

const int ShowHostOutOfMemory = 77; // exit status of a process that got no more memory

const uint32_t FrameSlots = 3; // used in turns
const size_t FrameSlotsBegin = 4096;
const size_t MaxChannelText = 16384; // longer texts are cut

inline size_t FrameBytes(int width, int height)
{
    return size_t(width) * size_t(height) * 4;
}

inline size_t SharedBytes(int width, int height)
{
    return FrameSlotsBegin + FrameSlots * FrameBytes(width, height);
}

// Sends one packet: a structure, a text and up to two descriptors. False if it was not sent: errno says why, EAGAIN if
// the other side does not take its packets. Never waits and raises no signal.
bool SendPacket(int socket, const void* structure, size_t size, const std::string& text = "",
                const int* descriptors = nullptr, int descriptorCount = 0);

enum PacketResult { PacketTaken, PacketNone, PacketClosed };

// Takes one packet, without waiting. *text and the descriptors are set with PacketTaken; a descriptor that the packet
// does not have is -1. The caller closes them.
PacketResult TakePacket(int socket, void* structure, size_t size, std::string* text,
                        int descriptors[2] = nullptr);

} // namespace edit
