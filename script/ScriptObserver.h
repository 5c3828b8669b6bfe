// SPDX-License-Identifier: MIT
// Is told by ScriptParser where in the file it found what. Tools implement this to point at places; a show
// has no observer. Places in the file count bytes, places in the stream count characters, both from 0.
#pragma once

#include "script/BlockSyntax.h"

#include <cstddef>
#include <cstdint>
#include <string>

// What the reader does with a byte of the file.
enum ByteFate : uint8_t {
    ByteKept,      // appends it to the stream
    ByteDropped,   // drops it: a script has no such character
    ByteCommented, // drops it, because it stands in a comment
    ByteMark       // drops it: a #, which begins or ends a comment
};

class ScriptObserver
{
public:
    virtual ~ScriptObserver() {}

    // Called for every byte of the file, in order, before any block is read.
    virtual void ByteRead(size_t place, char byte, ByteFate fate) = 0;

    // Called before and after the calls on the player that a block becomes. header and body are the places in
    // the stream at which the header and the text of the block begin. With BlockNone there was no further
    // header, and the stream from `header` to its end is ignored.
    virtual void BlockBegins(BlockType type, size_t header, size_t body, const std::string& text) = 0;
    virtual void BlockEnds() = 0;

    // Called with the number of messages that a Steps entry asks for; returns how many are to be made.
    virtual uint32_t LimitSteps(uint32_t steps) = 0;

    // Called before each message; true if it is to be made. `parameters` is the number of its parameters. A
    // short script can ask for more messages than memory holds.
    virtual bool TakesMessage(size_t parameters) = 0;
};
