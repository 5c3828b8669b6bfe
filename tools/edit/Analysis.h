// SPDX-License-Identifier: MIT
// The linter and the timeline's reading of the script, on threads of their own: one checks the newest text, another
// decodes the music for its waveform. A text that has been replaced before its turn is never looked at.
#pragma once

#include "tools/edit/EditorState.h"
#include "tools/lint/Lint.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace edit
{

class Analysis
{
public:
    // `ready` is called on one of the threads when there is something to take.
    explicit Analysis(std::function<void()> ready);
    ~Analysis(); // waits until the text that is being checked is done
    Analysis(const Analysis&) = delete;
    Analysis& operator=(const Analysis&) = delete;

    // Asks for a text to be checked. It replaces one that still waits. `name` stands in the findings and as the title.
    void Request(const std::string& text, uint64_t revision, const std::string& name,
                 const lint::CheckOptions& options);

    // The music's file has been written anew: it will be decoded again.
    void MusicChanged();

    // The newest result, if it has not been taken yet; else null. A text gives two of them, the second with the
    // waveform, if its music is not known yet.
    std::shared_ptr<const AnalysisResult> Take();

    // True while a text waits or is being checked.
    bool IsBusy();

private:
    struct CheckRequest {
        std::string text, name;
        uint64_t revision = 0;
        lint::CheckOptions options;
    };

    void CheckTexts();
    void DecodeMusic();
    std::shared_ptr<AnalysisResult> Check(const CheckRequest& request) const;
    void Publish(std::shared_ptr<AnalysisResult> result); // with the mutex held
    void GiveWave(AnalysisResult* result) const;

    std::function<void()> ready;
    std::mutex mutex;
    std::condition_variable changed;
    std::atomic<bool> ending;

    std::unique_ptr<CheckRequest> waiting;
    bool checking;
    std::shared_ptr<const AnalysisResult> newest;
    bool taken;

    std::string wantedMusic; // path; empty: none
    bool musicIsOld;         // what is decoded of it is no longer what the file holds
    std::string decodedMusic;
    bool decodedPlays;
    timeline::Waveform wave;
    std::atomic<bool> stopDecoding;

    std::thread checker, decoder; // come last, since they use all fields above
};

} // namespace edit
