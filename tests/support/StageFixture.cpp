// SPDX-License-Identifier: MIT
#include "tests/support/StageFixture.h"

void StageFixture::Prepare(Effect* effect)
{
    Declare(effect);
    Init(effect);
    BeginRecords();
}

void StageFixture::Declare(Effect* effect)
{
    effect->DeclareMessages(&messages);
}

void StageFixture::Init(Effect* effect)
{
    effect->Init(&window, &player);
}

int StageFixture::MessageId(Effect* effect, std::string name)
{
    const int id = messages.FindMessage(name.c_str(), effect);
    if (id == 0)
        ADD_FAILURE() << "the effect declares no message " << name;
    return id;
}

void StageFixture::Send(Effect* effect, std::string name, const std::vector<float>& params)
{
    // A copy that is exactly as long, so that a read behind its end is found.
    std::vector<float> copy(params);
    copy.shrink_to_fit();
    effect->ReceiveMessage(MessageId(effect, name), copy.empty() ? nullptr : copy.data(), int(copy.size()));
}

std::vector<std::string> StageFixture::DeclaredMessages(Effect* effect) const
{
    std::vector<std::string> found;
    for (const SynchMessageDeclaration& row : messages.entries)
        if (row.owner == effect)
            found.push_back(row.name + ": " + row.description);
    return found;
}

void StageFixture::Frame(Effect* effect)
{
    window.ClearFrame();
    window.ClearDepthAndReset();
    BeginRecords();
    effect->Render();
}

void StageFixture::Overlay(Effect* effect)
{
    window.ClearDepthAndReset();
    effect->Render();
}

void StageFixture::ShowFrame(Effect* effect, double seconds)
{
    effect->AddLocalTime(FrameTimer::GetDelta());
    Frame(effect);
    effect->Update();
    PassTime(seconds);
}

void StageFixture::RunFor(Effect* effect, double seconds, double step)
{
    const int frames = int(seconds / step + 1e-6);
    KeepRecords(false);
    for (int i = 0; i < frames; i++)
        ShowFrame(effect, step);
    KeepRecords(true);
}
