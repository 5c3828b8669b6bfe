// SPDX-License-Identifier: MIT
// What a reader of scripts tells those who want to know where things stand: the tools. A show has no
// observer. Places in the file count its bytes, places in the stream its characters, both from 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

enum BlockType { BlockNone = 0, BlockMusic = 1, BlockEffect = 2, BlockMessage = 3, BlockColorScheme = 4 };

// What becomes of a byte of the file.
enum ByteFate : uint8_t {
    ByteKept,      // it is the next character of the stream
    ByteDropped,   // it is none of those that a script is made of
    ByteCommented, // it stands in a comment
    ByteMark       // a #, which begins or ends one
};

class ScriptObserver
{
public:
    virtual ~ScriptObserver() {}

    virtual void ByteRead(size_t place, char byte, ByteFate fate) = 0;

    // A block has been cut out, its text is what stands from body on. What it becomes is done between the two
    // calls. BlockNone is the end of the file: what stands from header on was eaten up.
    virtual void BlockBegins(BlockType type, size_t header, size_t body, const std::string& text) = 0;
    virtual void BlockEnds() = 0;

    // How many of the messages of a Steps entry are to be made.
    virtual uint32_t LimitSteps(uint32_t steps) = 0;

    // Whether one more message of that many parameters is to be made. A short script can ask for more of them
    // than memory holds.
    virtual bool TakesMessage(size_t parameters) = 0;
};
