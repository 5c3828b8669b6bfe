// SPDX-License-Identifier: MIT
#include "tests/support/ShowFixture.h"

#include "kernel/FrameTimer.h"
#include "kernel/Production.h"
#include "platform/DebugChannelHooks.h"
#include "platform/Events.h"
#include "platform/Paths.h"
#include "platform/SteppedClock.h"
#include "platform/dialogs/MessageBoxHooks.h"
#include "tests/Folders.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

static std::string MakeDirectory()
{
    std::string name = testing::TempDir() + "marlinex-XXXXXX";
    if (!mkdtemp(name.data())) {
        perror(name.c_str());
        abort();
    }
    return name;
}

ShowFixture::ShowFixture() : oldDirectory(platform::GetDataDirectory()), directory(MakeDirectory())
{
    platform::SetDataDirectory(directory);
    platform::CollectMessageBoxes(&boxes);
    platform::CollectDebugText(&debugText);
    QuitWasPosted();
    platform::UseSteppedClock();
    StartTimer();
}

ShowFixture::~ShowFixture()
{
    platform::UseRealClock();
    QuitWasPosted();
    platform::CollectDebugText(nullptr);
    platform::CollectMessageBoxes(nullptr);
    platform::SetDataDirectory(oldDirectory);
    std::filesystem::remove_all(directory);
}

void ShowFixture::AddPicture(std::string name, int width, int height, unsigned char red, unsigned char green,
                             unsigned char blue)
{
    const bool png = name.size() > 4 && name.compare(name.size() - 4, 4, ".png") == 0;
    AddPicture(name, PlainPicture(width, height, png ? 4 : 3, red, green, blue));
}

void ShowFixture::AddPicture(std::string name, const Picture& picture)
{
    SavePicture(PathOf(name), picture);
}

void ShowFixture::AddFile(std::string name, std::string content)
{
    std::ofstream(PathOf(name), std::ios::binary) << content;
}

std::string ShowFixture::PathOf(std::string name) const
{
    return directory + "/" + name;
}

static std::string ShortestFile(const std::string& name)
{
    if (name.ends_with(".vp"))
        return "// " + name + "\nvoid main() { gl_Position = ftransform(); }\n";
    if (name.ends_with(".fp"))
        return "// " + name + "\nvoid main() { gl_FragColor = vec4(1.0); }\n";
    return "model 3 0 0 0 1 0 0 0 1 0 1 0 0 1 3 0 0 1 0 0 1 1 0 3 0 1 2 3 0 0 0 3 0 1 2\n"; // one triangle
}

void ShowFixture::AddModelsAndShaders()
{
    for (const EffectRecord& row : ProductionEffects())
        for (const EffectFile& file : ListFiles(row.files))
            if (file.kind != TextureFile)
                AddFile(file.name, ShortestFile(file.name));
}

void ShowFixture::UseRealData()
{
    platform::SetDataDirectory(SOURCE_DIR "/Data");
}

void ShowFixture::UseOwnData()
{
    platform::SetDataDirectory(directory);
}

void ShowFixture::StartTimer(float startSeconds)
{
    FrameTimer::SetSpeed(1);
    FrameTimer::Init(startSeconds);
    FrameTimer::Update(); // takes over what an earlier clock left
    FrameTimer::Update();
    FrameTimer::SetTime(0);
}

void ShowFixture::PassTime(double seconds)
{
    platform::StepClock(std::llround(seconds * double(platform::CounterFrequency())));
    FrameTimer::Update();
}

bool ShowFixture::QuitWasPosted()
{
    bool quit = false;
    for (platform::Event event = platform::TakeEvent(); event.kind != platform::EventNone;
         event = platform::TakeEvent())
        quit = quit || event.kind == platform::EventQuit;
    return quit;
}
