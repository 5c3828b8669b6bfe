// SPDX-License-Identifier: MIT
// The sequencer: owns the timeline, the messages, the loading screen and the music, and plays them against
// FrameTimer. One run of the program uses one DemoPlayer.
//
// Order of calls: constructor, SetStartOffset, Init, LoadScript (which calls the Add... and Set...
// operations and SortMessages), Run, destructor.
//
// Script times are unsigned milliseconds; they become float seconds when a record is stored. A negative
// number in a script becomes a very large unsigned one.
#pragma once

#include "kernel/ColorScheme.h"
#include "kernel/EffectInstance.h"
#include "kernel/SynchMessage.h"

#include <cstdint>
#include <string>
#include <vector>

class EffectRegistry;
class GLWindow;
class LoadingScreen;
class MusicPlayer;

// Set by plain assignment, tested by the bit. 0 is a player that nobody has initialised.
enum PlayerState : uint32_t {
    PlayerReady = 1,     // a script may be loaded, Run may start
    PlayerRunning = 2,   // effects are loading or the show is running
    PlayerEnded = 4,     // the clock passed endTime
    PlayerDestroyed = 8, // the destructor has run
    PlayerFailed = 0x10  // Init failed: LoadScript and Run do nothing
};

class DemoPlayer
{
public:
    DemoPlayer();
    ~DemoPlayer();

    // Where in the show the run starts. Entries that end there or before, and messages before it, are
    // dropped as they are added.
    void SetStartOffset(uint32_t milliseconds);

    // Borrows window and registry, takes the loading screen over (it may be null). False, and PlayerFailed,
    // if the sound can't be started (reported, quit posted) or if window or registry is null.
    bool Init(GLWindow* newWindow, EffectRegistry* newRegistry, LoadingScreen* newLoadingScreen,
              bool withMusic);

    // Reads a script of the data directory into the player. False in any state but PlayerReady, and if the
    // file can't be opened (reported, quit posted).
    bool LoadScript(std::string fileName);

    // Loads the effects, starts music and clock together and plays until the clock passes endTime or the
    // window stops running. Does nothing unless the player is ready.
    void Run();
    void End();

    // What a script says of the show: call these after Init, which brings the registry.

    // False if the entry ends at or before the start offset (in silence) or names no effect (reported).
    bool AddEffect(uint32_t startMs, uint32_t stopMs, std::string effectName, uint32_t layer);
    // The effect must not be null.
    void AddEffectInstance(uint32_t startMs, uint32_t stopMs, Effect* effect, uint32_t layer);

    // Copies count floats; null params for none. An unknown effect is reported, an unknown message kept with id 0.
    void AddMessage(uint32_t timeMs, std::string messageName, const float* params, int count,
                    std::string effectName);

    void SetMusic(std::string fileName);
    void SetColorScheme(ColorScheme scheme);
    ColorScheme GetColorScheme() const;

    // By time, ascending; messages of equal time keep their order, in which they then leave one per frame.
    void SortMessages();

    // By layer, ascending. Exchanges the records that the pointers point at, and so permutes the timeline.
    void SortActiveByLayer(std::vector<EffectInstance*>& active);

    void InitEffects();

    ColorScheme colorScheme;
    std::vector<SynchMessage> messages;
    std::vector<EffectInstance> timeline;
    uint32_t state;               // PlayerState, or 0
    uint32_t startOffset;         // milliseconds
    float endTime;                // seconds, the largest stop of all entries kept
    LoadingScreen* loadingScreen; // owned
    GLWindow* window;             // borrowed
    EffectRegistry* registry;     // borrowed
    MusicPlayer* music;           // owned; null in a silent show

private:
    void RenderFrame(std::vector<EffectInstance*>& active, SynchMessage* due);
};
