// SPDX-License-Identifier: MIT
#include "kernel/DemoPlayer.h"

#include "display/GLWindow.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "kernel/FrameTimer.h"
#include "kernel/LoadingScreen.h"
#include "kernel/ReadScript.h"
#include "kernel/Report.h"
#include "kernel/SynchMessageTable.h"
#include "music/MusicPlayer.h"
#include "platform/Clock.h"
#include "platform/Events.h"

#include <cassert>
#include <cstdio>
#include <utility>

static const float loadingLetterbox = 1.0f;
static const float loadingFovY = 45.0f;
static const unsigned loadingWait = 1000; // milliseconds, ahead of each call of Effect::Init
static const float showLetterbox = 0.85f;

// Divided in double and rounded once, as FrameTimer does it: a whole millisecond of the script and the frame
// at that millisecond are the same float.
static float Seconds(uint32_t milliseconds)
{
    return float(milliseconds / 1000.0);
}

DemoPlayer::DemoPlayer()
    : colorScheme{{0, 0, 0}, {1, 0, 0}, {0, 0, 1}}, state(0), startOffset(0), endTime(0),
      loadingScreen(nullptr), window(nullptr), registry(nullptr), music(nullptr)
{
}

void DemoPlayer::SetStartOffset(uint32_t milliseconds)
{
    startOffset = milliseconds;
}

bool DemoPlayer::Init(GLWindow* newWindow, EffectRegistry* newRegistry, LoadingScreen* newLoadingScreen,
                      bool withMusic)
{
    window = newWindow;
    registry = newRegistry;
    loadingScreen = newLoadingScreen;
    if (withMusic) {
        music = new MusicPlayer;
        if (!music->Init()) {
            ReportError("Music Player", "Unable to initialize FMOD");
            platform::PostQuit(0);
            state = PlayerFailed;
            return false;
        }
    }
    if (!registry || !window) {
        state = PlayerFailed;
        return false;
    }
    state = PlayerReady;
    return true;
}

bool DemoPlayer::LoadScript(std::string fileName)
{
    if (state != PlayerReady)
        return false;
    const bool loaded = ReadScript(this, fileName);
    if (loaded)
        SortMessages();
    return loaded;
}

bool DemoPlayer::AddEffect(uint32_t startMs, uint32_t stopMs, std::string effectName, uint32_t layer)
{
    // This test comes first: an entry that is dropped is not checked for an unknown effect name.
    if (stopMs <= startOffset)
        return false;
    assert(registry);
    Effect* const effect = registry->FindEffect(effectName);
    if (!effect) {
        ReportError("Init", "Unknown Effect Name!");
        return false;
    }
    AddEffectInstance(startMs, stopMs, effect, layer);
    return true;
}

void DemoPlayer::AddEffectInstance(uint32_t startMs, uint32_t stopMs, Effect* effect, uint32_t layer)
{
    assert(effect);
    if (stopMs <= startOffset)
        return;
    const EffectInstance entry = {Seconds(startMs), Seconds(stopMs), layer, effect};
    if (entry.stop > endTime)
        endTime = entry.stop;
    timeline.push_back(entry);
}

void DemoPlayer::AddMessage(uint32_t timeMs, std::string messageName, const float* params, int count,
                            std::string effectName)
{
    if (timeMs <
        startOffset) // keeps a message exactly at the offset; AddEffect drops an entry that ends there
        return;
    assert(registry && (params || count <= 0));
    Effect* const effect = registry->FindEffect(effectName);
    if (!effect) {
        ReportError("Message Init", "Unknown Effect Name!");
        return;
    }
    // The id is 0 for a name that the effect never declared. Such a message is delivered all the same.
    const int id = registry->GetMessageTable()->FindMessage(messageName.c_str(), effect);
    float* const copy = new float[count > 0 ? count : 0];
    for (int i = 0; i < count; i++)
        copy[i] = params[i];
    messages.push_back({Seconds(timeMs), id, effect, copy, count});
}

void DemoPlayer::SetMusic(std::string fileName)
{
    if (!music)
        return;
    if (!music->Open(fileName)) {
        ReportError("FMOD Music Player", "Cannot Open Music File: " + fileName);
        platform::PostQuit(0);
    }
}

void DemoPlayer::SetColorScheme(ColorScheme scheme)
{
    colorScheme = scheme;
}

ColorScheme DemoPlayer::GetColorScheme() const
{
    return colorScheme;
}

void DemoPlayer::SortMessages()
{
    for (size_t i = messages.size(); i >= 2; i--)
        for (size_t j = 1; j < i; j++)
            if (messages[j - 1].time > messages[j].time)
                std::swap(messages[j - 1], messages[j]);
}

void DemoPlayer::SortActiveByLayer(std::vector<EffectInstance*>& active)
{
    // Exchanges the records that the pointers point at, which are those of the timeline itself. The next
    // frame scans them in the new order, so entries of one layer can change places from frame to frame.
    for (size_t i = active.size(); i >= 2; i--)
        for (size_t j = 1; j < i; j++)
            if (active[j - 1]->layer > active[j]->layer)
                std::swap(*active[j - 1], *active[j]);
}

void DemoPlayer::InitEffects()
{
    if (loadingScreen) {
        window->SetLetterbox(loadingLetterbox);
        window->SetPerspective(loadingFovY);
        window->ClearFrame();
        window->SwapBuffers();
        loadingScreen->Init();
    }
    // A quit that is pumped here ends the window's running state, which only the main loop tests: all
    // remaining effects are still loaded.
    for (size_t i = 0; i < timeline.size() && (state & PlayerRunning); i++) {
        Effect* const effect = timeline[i].effect;
        if (!effect->IsInitialised()) {
            if (loadingScreen) {
                window->ClearFrame();
                loadingScreen->SetProgress(float(i + 1) / float(timeline.size()));
                loadingScreen->Render();
                window->SwapBuffers();
            }
            platform::Sleep(loadingWait);
            effect->Init(window, this);
        }
        window->PumpMessage();
    }
}

void DemoPlayer::Run()
{
    if (!(state & PlayerReady))
        return;
    assert(window); // Init made the player ready
    state = PlayerRunning;
    InitEffects();
    if (music) {
        music->Play();
        music->SetTime(int(startOffset));
    }
    FrameTimer::Init(Seconds(startOffset));
    window->SetLetterbox(showLetterbox);

    size_t cursor = 0;
    std::vector<EffectInstance*> active;
    while ((state & PlayerRunning) && window->IsRunning()) {
        // At most one message leaves per frame, however many are due. None is skipped for being late.
        SynchMessage* due = nullptr;
        if (cursor < messages.size() && FrameTimer::GetTime() >= messages[cursor].time) {
            due = new SynchMessage(messages[cursor]);
            cursor++;
        }
        RenderFrame(active, due);
        delete due; // also if no active effect was its target: the message is lost then

        FrameTimer::Update();
        window->SwapBuffers();
        char title[256];
        snprintf(title, sizeof title, "FPS: %d", FrameTimer::GetFPS());
        window->SetTitle(title);
        if (FrameTimer::GetTime() > endTime)
            End();
        window->PumpMessage();
    }
}

void DemoPlayer::RenderFrame(std::vector<EffectInstance*>& active, SynchMessage* due)
{
    for (EffectInstance& entry : timeline)
        if (FrameTimer::GetTime() >= entry.start && FrameTimer::GetTime() <= entry.stop)
            active.push_back(&entry);
    if (active.size() > 1)
        SortActiveByLayer(active);

    window->ClearFrame();
    for (EffectInstance* entry : active) {
        Effect* const effect = entry->effect;
        effect->AddLocalTime(FrameTimer::GetDelta());
        if (due && due->effect == effect)
            effect->ReceiveMessage(due->id, due->params, due->count);
        window->ClearDepthAndReset();
        effect->Render();
        effect->Update();
    }
    active.clear();
}

void DemoPlayer::End()
{
    state = PlayerEnded;
    if (music)
        music->Stop();
}

DemoPlayer::~DemoPlayer()
{
    delete music; // its destructor neither stops nor closes the stream
    delete loadingScreen;
    while (!messages.empty()) {
        delete[] messages.front().params;
        messages.erase(messages.begin());
    }
    state = PlayerDestroyed;
}
