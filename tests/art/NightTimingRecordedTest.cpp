// SPDX-License-Identifier: MIT
// The whole night on the stepped clock: when each message arrives, against when the music strikes. Listeners
// take the effects' places, so that a run takes a moment.
#include "art/music/Listening.h"
#include "art/music/SoundFile.h"
#include "display/GLWindow.h"
#include "kernel/DemoPlayer.h"
#include "kernel/Effect.h"
#include "kernel/EffectRegistry.h"
#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "kernel/SynchMessageTable.h"
#include "platform/SteppedClock.h"
#include "tests/Folders.h"
#include "tests/support/NightScript.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/ShowFixture.h"
#include "tests/support/recorder/GLRecorder.h"

#include <gtest/gtest.h>

#include <cmath>

struct Arrival {
    std::string effect, message;
    double time; // of the frame that shows it
};

// Declares what an effect declares and writes down what reaches it.
class Listener : public Effect
{
public:
    Listener(std::string newName, const NightScript& night, std::vector<Arrival>* newArrivals)
        : name(newName), arrivals(newArrivals)
    {
        for (const auto& [effect, message] : night.declared)
            if (effect == name)
                names.push_back(message);
    }
    void Init(GLWindow* newWindow, DemoPlayer* newPlayer) override { Attach(newWindow, newPlayer); }
    void DeclareMessages(SynchMessageTable* table) override
    {
        for (const std::string& message : names)
            ids.push_back(table->DeclareMessage(message, this, ""));
    }
    void Update() override {}
    void Render() override {}
    void ReceiveMessage(int id, float*, int) override
    {
        const double time = double(FrameTimer::GetTime());
        // Where one entry of an effect ends and the next begins, both are on, and each hands it on.
        const bool again = !arrivals->empty() && arrivals->back().time == time;
        for (size_t i = 0; i < ids.size(); i++)
            if (ids[i] == id && !again)
                arrivals->push_back({name, names[i], time});
    }

private:
    std::string name;
    std::vector<Arrival>* arrivals;
    std::vector<std::string> names;
    std::vector<int> ids;
};

static int framesPerSecond = 60;

class TheNightPlayed : public ShowFixture
{
protected:
    TheNightPlayed() { UseRealData(); }
    ~TheNightPlayed() override { platform::SetFrameObserver(nullptr, nullptr); }

    // Every message that arrived, in order.
    std::vector<Arrival> Play(int rate)
    {
        framesPerSecond = rate;
        gl::Reset(800, 600);
        UseNullWindows();
        gl::FollowNullWindows(); // takes the frame observer, so the clock is moved by hand below
        platform::UseSteppedClock();
        StartTimer(); // as in a process of its own
        std::vector<Arrival> arrivals;
        GLWindow window;
        EffectRegistry registry;
        for (const std::string& name : night.effects)
            registry.Register(name, new Listener(name, night, &arrivals), name);
        EXPECT_TRUE(window.Create(800, 600, 32, false));
        DemoPlayer player;
        player.Init(&window, &registry, nullptr, false);
        EXPECT_TRUE(player.LoadScript("script.txt"));
        platform::SetFrameObserver([](void*) { platform::StepClock(1000000000 / framesPerSecond); }, nullptr);
        gl::Pause();
        player.Run();
        gl::Resume();
        EXPECT_EQ(uint32_t(PlayerEnded), player.state);
        EXPECT_GT(FrameTimer::GetTime(), night.end * 0.001f);
        return arrivals;
    }

    // How many messages are due at the same time and leave first.
    int Ahead(size_t i) const
    {
        int ahead = 0;
        while (i > size_t(ahead) && night.messages[i - size_t(ahead) - 1].time == night.messages[i].time)
            ahead++;
        return ahead;
    }

    NightScript night;
};

TEST_F(TheNightPlayed, EveryMessageArrivesWithinTheFramesThatItHasToWait)
{
    for (const int rate : {60, 30}) {
        const std::vector<Arrival> arrivals = Play(rate);
        EXPECT_EQ(night.messages.size(), arrivals.size()) << "none is lost at " << rate;
        for (size_t i = 0; i < arrivals.size(); i++) {
            ASSERT_EQ(night.messages[i].effect, arrivals[i].effect) << rate << " " << night.messages[i].time;
            ASSERT_EQ(night.messages[i].name, arrivals[i].message) << rate << " " << night.messages[i].time;
            // One frame to be due in, and one for each that goes first; the clock's floats are not exact.
            const double late = arrivals[i].time - night.messages[i].time * 0.001;
            EXPECT_GE(late, -1e-4);
            EXPECT_LE(late, (Ahead(i) + 1.0) / rate + 1e-4)
                << arrivals[i].effect << " " << arrivals[i].message;
        }
    }
}

TEST_F(TheNightPlayed, FlashesAndTheMusicsStrokesFallTogetherWithinOneFrame)
{
    waltz::Stereo sound;
    ASSERT_TRUE(waltz::ReadSound(SOURCE_DIR "/Data/moonwaltz.ogg", sound));
    const double frame = 1.0 / 60;
    const double human = 0.006; // what the players stray from the beat, and what an attack is found to
    const std::vector<Arrival> arrivals = Play(60);
    ASSERT_EQ(night.messages.size(), arrivals.size());
    int flashes = 0;
    for (size_t i = 0; i < arrivals.size(); i++) {
        const uint32_t time = night.messages[i].time;
        const std::string name = arrivals[i].message;
        // What jumps on a chord. In the bars of silence the fish comes out of black without one.
        const bool spark = time == 43200 || time == 54000 || time == 72000;
        const bool hand = name == "hand" && time != 129600;                  // the last one is empty
        const bool card = name == "handFrakt" && (time - 99000) % 5400 == 0; // its second look has no stroke
        const bool jumps = name == "flash" || name == "shock" || hand || card || name == "blend" ||
                           (name == "light_flash" && spark);
        if (!jumps || time == 319200 || time == 322800)
            continue;
        const int64_t scripted = int64_t(time) * waltz::sampleRate / 1000;
        const waltz::Attack attack = waltz::FindAttack(sound, scripted);
        EXPECT_GT(attack.strength, 3.5) << "no stroke at " << time;
        EXPECT_NEAR(double(scripted) / waltz::sampleRate + attack.late, arrivals[i].time - Ahead(i) * frame,
                    frame + human)
            << arrivals[i].effect << " " << name << " " << time;
        flashes += name == "flash" ? 1 : 0;
    }
    EXPECT_EQ(17, flashes);
}
