// SPDX-License-Identifier: MIT
// An effect that draws nothing and writes down what happens to it.
#pragma once

#include "kernel/Effect.h"
#include "kernel/FrameTimer.h"
#include "kernel/SynchMessageTable.h"

#include <string>
#include <vector>

struct ProbeCall {
    std::string what; // "Init", "Render", "Update", "message"
    float time;       // of the show, when it happened
    float localTime;
    int id;
    std::vector<float> params;
};

class ProbeEffect : public Effect
{
public:
    explicit ProbeEffect(bool attaches = true) : attaching(attaches) {}

    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override
    {
        Note("Init");
        if (attaching)
            Attach(newWindow, newPlayer);
    }
    void DeclareMessages(SynchMessageTable* table) override
    {
        flashId = table->DeclareMessage("flash", this, "a flash");
        stepId = table->DeclareMessage("step", this, "a step");
    }
    void Update() override { Note("Update"); }
    void Render() override
    {
        Note("Render");
        if (order)
            order->push_back(this);
    }
    void ReceiveMessage(int messageId, float* params, int paramCount) override
    {
        Note("message");
        calls.back().id = messageId;
        calls.back().params.assign(params, params + paramCount);
    }

    int Count(const std::string& what) const
    {
        int count = 0;
        for (const ProbeCall& call : calls)
            count += call.what == what;
        return count;
    }

    std::vector<ProbeCall> calls;
    std::vector<Effect*>* order = nullptr; // gets this at each Render
    int flashId = 0;
    int stepId = 0;
    GLWindow* GetWindow() const { return window; }
    DemoPlayer* GetPlayer() const { return player; }

private:
    void Note(const char* what) { calls.push_back({what, FrameTimer::GetTime(), GetLocalTime(), 0, {}}); }

    bool attaching;
};
