// SPDX-License-Identifier: MIT
// What is known of an effect without running it: the row of kernel/Production.h from which tools and tests
// derive whatever they have to know of single effects.
#pragma once

#include <span>
#include <string>
#include <vector>

class Effect;

// The files of Data that an effect's Init loads, as names for the loader of their kind. Each effect has one
// such list, `files`, and Init takes the names out of it, so that the list can't fall behind the code.
struct EffectFiles {
    std::span<const char* const> textures = {}; // "sandbau.jpg", for TextureLoader
    std::span<const char* const> lights = {};   // textures of light, which is black where the picture ends
    std::span<const char* const> models = {};   // "data/fish.txt", for LoadModel
    std::span<const char* const> programs = {}; // "data/fish.vp", "data/fish.fp", for ShaderProgram::Load
    std::span<const char* const> shaders = {};  // two bare names for GLSLShader::Load: vertex, then fragment
};

// The loader decides what becomes of a show that lacks the file.
enum FileKind {
    TextureFile, // a box, and the end when everything is loaded
    ModelFile,   // nothing is said, and nothing drawn
    ProgramFile, // a box, and the end when everything is loaded
    ShaderFile   // a box, and the show goes on without
};

struct EffectFile {
    std::string name; // of a file in the data directory
    FileKind kind;
};

// All files of the list: textures, lights, models, programs, shaders.
std::vector<EffectFile> ListFiles(const EffectFiles& files);

// The washes with which the timeline paints an effect's entries (tools/timeline/TimelineColours.h). The rows take turns:
// each has the wash that none of the six rows ahead of it has.
enum EffectWash { SlateWash, OchreWash, MossWash, RustWash, MistWash, NightWash, AmberWash, WashCount };

// Messages whose names begin with `begin` come to nothing ahead of the message `after`.
struct MessageOrder {
    const char* begin;
    const char* after;
    const char* consequence; // what happens instead, a sentence
};

// An effect makes something of so many messages of one name. `harmless` does the same, counts among them and is passed
// over when they are used up.
struct MessageLimit {
    const char* message;
    int most;
    const char* unit;        // what each message takes one of, in the plural: "steps"
    const char* consequence; // of one message too many, a sentence
    const char* harmless;
};

struct EffectRecord {
    const char* key; // the name in scripts and in the listing, of the effect's files, tests and golden images
    EffectFiles files;
    EffectWash wash;
    bool loadsOnce; // Init attaches: it runs once a show, otherwise once for every entry
    bool isOverlay; // lies over other effects and shows nothing by itself, only on a message
    std::vector<std::string> idleMessages; // declared for the sake of scripts, and nothing is to be seen
    Effect* (*make)();                     // constructs the effect, which is never deleted
    std::vector<MessageOrder> orders = {};
    std::vector<MessageLimit> limits = {};
};
