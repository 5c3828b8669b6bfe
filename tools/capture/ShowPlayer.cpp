// SPDX-License-Identifier: MIT
#include "tools/capture/ShowPlayer.h"

#include "tools/capture/Interruption.h"
#include "tools/capture/Progress.h"
#include "tools/cli/MonotonicSeconds.h"

#include <GL/glew.h>

namespace capture
{

ShowPlayer::ShowPlayer()
    : taken(0), sink(nullptr), progress(nullptr), width(0), height(0), failed(false), lastMoment(0)
{
}

bool ShowPlayer::Load(const std::string& script)
{
    show.Load(script);
    return !CollectBoxText();
}

int64_t ShowPlayer::Duration() const
{
    return show.Duration();
}

bool ShowPlayer::CollectBoxText()
{
    const bool any = show.CollectBoxText();
    if (any)
        error = show.error;
    return any;
}

bool ShowPlayer::Open(int newWidth, int newHeight)
{
    width = newWidth;
    height = newHeight;
    if (!show.Open(width, height)) {
        error = show.error;
        return false;
    }
    renderer = show.renderer;
    return true;
}

PlayResult ShowPlayer::Play(const FrameSelection& newSelection, FrameSink& newSink, Progress& newProgress)
{
    selection = newSelection;
    sink = &newSink;
    progress = &newProgress;
    if (selection.picks == 0)
        return PlayedToTheEnd;

    lastMoment = cli::MonotonicSeconds();
    show.Play(selection.rate, *this);

    if (CollectBoxText() || failed)
        return PlayFailed;
    if (taken == selection.picks)
        return PlayedToTheEnd;
    if (IsInterrupted())
        return PlayInterrupted;
    error = "the show ended by itself, " + std::to_string(selection.picks - taken) + " frames early";
    return PlayFailed;
}

void ShowPlayer::LoadingStep()
{
    if (IsInterrupted())
        show.Stop();
}

void ShowPlayer::Loaded() {}

void ShowPlayer::FrameDone(int64_t number)
{
    if (IsInterrupted())
        show.Stop();
    else
        LookAtFrame(number);
}

void ShowPlayer::LookAtFrame(int64_t number)
{
    if (number == 0) {
        const double now = cli::MonotonicSeconds();
        timing.loading = now - lastMoment;
        lastMoment = now;
    }
    if (CollectBoxText()) {
        failed = true;
        show.Stop();
        return;
    }
    const bool wanted = selection.Wants(number);
    if (wanted && !HandFrame(number)) {
        failed = true;
        show.Stop();
        return;
    }
    if (!wanted) {
        const double now = cli::MonotonicSeconds();
        timing.skipping += now - lastMoment;
        lastMoment = now;
    }
    progress->Show(number, taken);
    if (taken == selection.picks)
        show.Stop();
    else
        show.DrawNext(number + 1 + WarmUpFrames >= selection.NextWanted(number + 1));
}

bool ShowPlayer::HandFrame(int64_t number)
{
    glFinish(); // ReadPixels would wait as well; this separates the two times at no cost
    const double drawn = cli::MonotonicSeconds();
    std::unique_ptr<Frame> frame(new Frame);
    frame->number = number;
    frame->width = width;
    frame->height = height;
    frame->pixels.resize(size_t(width) * size_t(height) * 4);
    show.ReadPixels(frame->pixels.data());
    const double read = cli::MonotonicSeconds();
    const bool good = sink->Take(std::move(frame));
    const double handed = cli::MonotonicSeconds();

    timing.drawing += drawn - lastMoment;
    timing.reading += read - drawn;
    timing.handing += handed - read;
    lastMoment = handed;
    if (good)
        taken++;
    else
        error = sink->error;
    return good;
}

} // namespace capture
