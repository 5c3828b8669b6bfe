// SPDX-License-Identifier: MIT
#include "tools/edit/Analysis.h"

#include "platform/Paths.h"
#include "platform/Threads.h"

#include <utility>

namespace edit
{

Analysis::Analysis(std::function<void()> readyCall)
    : ready(std::move(readyCall)), ending(false), checking(false), taken(true), musicIsOld(false),
      decodedPlays(false), stopDecoding(false), checker([this] { CheckTexts(); }),
      decoder([this] { DecodeMusic(); })
{
}

Analysis::~Analysis()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
        stopDecoding = true;
    }
    changed.notify_all();
    checker.join();
    decoder.join();
}

void Analysis::Request(const std::string& text, uint64_t revision, const std::string& name,
                       const lint::CheckOptions& options)
{
    auto request = std::make_unique<CheckRequest>();
    request->text = text;
    request->name = name;
    request->revision = revision;
    request->options = options;
    if (request->options.data.empty())
        request->options.data = platform::GetDataDirectory(); // asked for here, on the thread that sets it
    {
        const std::lock_guard<std::mutex> lock(mutex);
        waiting = std::move(request);
    }
    changed.notify_all();
}

void Analysis::MusicChanged()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        musicIsOld = true;
        stopDecoding = true;
    }
    changed.notify_all();
}

std::shared_ptr<const AnalysisResult> Analysis::Take()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return std::exchange(taken, true) ? nullptr : newest;
}

bool Analysis::IsBusy()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return waiting || checking;
}

// The thread that checks

std::shared_ptr<AnalysisResult> Analysis::Check(const CheckRequest& request) const
{
    auto result = std::make_shared<AnalysisResult>();
    result->revision = request.revision;
    result->report = lint::CheckText(request.text, request.name, request.options);
    result->model.title = request.name;
    if (!result->report.readable)
        return result;
    result->model = timeline::ModelOfShow(result->report.show, request.options);
    result->model.title = request.name;
    result->model.remarks = timeline::RemarksOf(result->report.findings);
    result->model.music.file = result->report.show.music;
    return result;
}

void Analysis::CheckTexts()
{
    platform::GiveWay(); // to the window
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return waiting || ending; });
        if (ending)
            return;
        const std::unique_ptr<CheckRequest> request = std::move(waiting);
        checking = true;
        lock.unlock();
        std::shared_ptr<AnalysisResult> result = Check(*request);
        lock.lock();
        checking = false;
        const std::string music =
            result->model.music.file.empty() ? "" : request->options.data + "/" + result->model.music.file;
        if (music != wantedMusic) {
            wantedMusic = music;
            stopDecoding = true;
            changed.notify_all();
        }
        Publish(std::move(result));
    }
}

void Analysis::Publish(std::shared_ptr<AnalysisResult> result)
{
    GiveWave(result.get());
    newest = std::move(result);
    taken = false;
    ready();
}

void Analysis::GiveWave(AnalysisResult* result) const
{
    if (decodedMusic != wantedMusic || wantedMusic.empty())
        return;
    result->musicIsKnown = true;
    result->model.music.plays = decodedPlays;
    result->model.music.wave = wave;
}

// The thread that decodes

void Analysis::DecodeMusic()
{
    platform::GiveWay();
    std::unique_lock<std::mutex> lock(mutex);
    for (;;) {
        changed.wait(lock, [this] { return wantedMusic != decodedMusic || musicIsOld || ending; });
        if (ending)
            return;
        const std::string path = wantedMusic;
        musicIsOld = false;
        stopDecoding = false;
        lock.unlock();
        timeline::Waveform decoded;
        const bool plays = !path.empty() && decoded.Read(path, &stopDecoding);
        lock.lock();
        if (path != wantedMusic || musicIsOld)
            continue;
        decodedMusic = path;
        decodedPlays = plays;
        wave = std::move(decoded);
        if (newest && !path.empty())
            Publish(std::make_shared<AnalysisResult>(*newest));
    }
}

} // namespace edit
