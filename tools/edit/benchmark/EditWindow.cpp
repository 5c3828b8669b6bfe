// SPDX-License-Identifier: MIT
// What the editor's timeline costs a frame of the window, without drawing it: placing, and filling ImGui's lists.
//
//     edit-window-benchmark [ENTRIES MESSAGES]    500 and 5000 if left out
//
// At several zooms, and while all that is selected is dragged, in a window of 1280 x 420 pixels. Says the median and the
// slowest of 300 frames, in milliseconds of processor time.
#include "kernel/Production.h"
#include "platform/toolwindow/ToolFonts.h"
#include "platform/toolwindow/ToolStyle.h"
#include "tools/edit/Document.h"
#include "tools/edit/TimelinePanel.h"
#include "tools/timeline/TimelineModel.h"

#include <imgui.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include <unistd.h>

static const int framesMeasured = 300;
static const float width = 1280, height = 420;

static std::string MakeScript(int entries, int messages)
{
    std::mt19937 random(1);
    const auto pick = [&](int count) { return int(random() % unsigned(count)); };
    std::string script;
    const std::vector<EffectRecord>& effects = ProductionEffects();
    for (int i = 0; i < entries; i++) {
        const int start = pick(360000);
        script += "[EFFECT]\nEffectName=" + std::string(effects[size_t(pick(int(effects.size())))].key) +
                  ";\nStartTime=" + std::to_string(start) +
                  ";\nStopTime=" + std::to_string(start + 200 + pick(4000)) +
                  ";\nLayerID=" + std::to_string(pick(12)) + ";\n\n";
    }
    const int inBlock = 10; // times of a message block
    for (int i = 0; i < messages; i += inBlock) {
        script += "[MESSAGE]\nMessageText=flash;\nActivationTime=";
        for (int k = 0; k < std::min(inBlock, messages - i); k++)
            script += (k ? "," : "") + std::to_string(pick(364000));
        script += ";\nTargetEffect=" + std::string(effects[size_t(pick(int(effects.size())))].key) + ";\n\n";
    }
    return script;
}

// Of this thread: what other programs take meanwhile does not count.
static double ProcessorMilliseconds()
{
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1000 + double(now.tv_nsec) / 1e6;
}

class Measurement
{
public:
    Measurement(int entries, int messages)
    {
        ImGui::CreateContext();
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {width, height};
        io.DeltaTime = 1 / 60.0f;
        platform::LoadToolFonts(1);
        platform::SetToolStyle(1);
        unsigned char* pixels = nullptr;
        int w = 0, h = 0;
        io.Fonts->GetTexDataAsAlpha8(&pixels, &w, &h);
        path = "/tmp/edit-window-benchmark-" + std::to_string(getpid());
        std::ofstream(path) << MakeScript(entries, messages);
        std::string reason;
        if (!document.Open(path, &reason)) {
            fprintf(stderr, "edit-window-benchmark: %s\n", reason.c_str());
            exit(2);
        }
        state.document = &document;
        auto analysis = std::make_shared<edit::AnalysisResult>();
        timeline::ReadTimeline(path, {}, &analysis->model, &reason);
        analysis->model.music.plays = true;
        for (int i = 0; i < 370 * timeline::Waveform::SwingsPerSecond; i++)
            analysis->model.music.wave.swings.push_back({0.5f + 0.5f * sinf(float(i)), 0.3f});
        analysis->musicIsKnown = true;
        state.analysis = analysis;
    }
    ~Measurement()
    {
        unlink(path.c_str());
        ImGui::DestroyContext();
    }

    void Frame()
    {
        ImGui::NewFrame();
        ImGui::SetNextWindowPos({0, 0});
        ImGui::SetNextWindowSize({width, height});
        ImGui::Begin("panel", nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoMove);
        panel.Draw(&state);
        ImGui::End();
        ImGui::Render();
    }

    // `step` is done ahead of each frame, and counts.
    void Run(const char* what, const std::function<void(int)>& step)
    {
        Frame();
        std::vector<double> times;
        for (int i = 0; i < framesMeasured; i++) {
            const double begin = ProcessorMilliseconds();
            step(i);
            Frame();
            times.push_back(ProcessorMilliseconds() - begin);
        }
        std::sort(times.begin(), times.end());
        printf("%-44s median %6.2f ms   slowest %6.2f ms   %6d vertices\n", what, times[times.size() / 2],
               times.back(), ImGui::GetDrawData()->TotalVtxCount);
    }

    void Act(edit::TimelineAction action)
    {
        state.timelineActions.push_back(action);
        Frame();
    }

    edit::Document document;
    edit::EditorState state;
    edit::TimelinePanel panel;
    std::string path;
};

int main(int argc, char** argv)
{
    const int entries = argc > 1 ? atoi(argv[1]) : 500, messages = argc > 2 ? atoi(argv[2]) : 5000;
    Measurement all(entries, messages);
    printf("%d entries, %d messages, %zu bytes of script\n", entries, messages, all.document.Text().size());
    const auto play = [&](int i) { all.state.playhead = i / 60.0; };
    ImGuiIO& io = ImGui::GetIO();
    all.Run("the whole show", play);
    const auto sweep = [&](int i) { io.MousePos = {200 + float(i) * 3, 100 + float(i % 50) * 4}; };
    all.Run("the whole show, the pointer over it", sweep);
    io.MousePos = {-1, -1};
    for (int i = 0; i < 4; i++)
        all.Act(edit::ZoomIn);
    all.Run("five times closer", play);
    for (int i = 0; i < 5; i++)
        all.Act(edit::ZoomIn);
    all.Run("forty times closer, scrolling", [&](int) {
        io.KeyShift = true;
        io.MousePos = {600, 200};
        io.MouseWheel = -0.2f;
    });
    io.KeyShift = false;
    io.MouseWheel = 0;
    all.Act(edit::ZoomToShow);
    all.Run("zooming in by the wheel, and out again", [&](int i) {
        io.MousePos = {600, 200};
        io.MouseWheel = i % 40 < 20 ? 0.5f : -0.5f;
    });
    io.MouseWheel = 0;
    all.Act(edit::ZoomToShow);
    all.state.selection = edit::AllItems(all.document.GetOutline());
    all.Run("all selected", play);

    all.state.selection = {{0, -1}};
    const uint64_t gesture = edit::NewGesture();
    all.Run("reading the contents alone", [&](int) { edit::ReadContents(all.document.GetOutline()); });
    all.Run("reading the outline alone", [&](int) { edit::ReadOutline(all.document.Text()); });
    all.Run("an entry being dragged", [&](int i) { all.document.Move({{0, -1}}, i, 0, gesture); });
    all.state.selection = edit::AllItems(all.document.GetOutline());
    const uint64_t wholeGesture = edit::NewGesture();
    all.Run("all being dragged", [&](int i) { all.document.Move(all.state.selection, i, 0, wholeGesture); });
    all.Run("all nudged, a step each", [&](int i) {
        all.state.timelineActions.push_back(i % 2 ? edit::NudgeEarlierMillisecond
                                                  : edit::NudgeLaterMillisecond);
    });
    return 0;
}
