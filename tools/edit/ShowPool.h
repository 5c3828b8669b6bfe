// SPDX-License-Identifier: MIT
// Frames of the show for any moment, made by processes apart from this one: whatever an effect does there, this
// process and the script that is edited in it stay whole.
//
// A show can only be played forwards. So several processes are kept, each waiting at another moment. The nearest
// one before the wanted frame plays up to it without drawing, and draws it; others go to where a process is missing.
// The processes take as much memory as ShowSettings allows, and work on their places only while nothing is wanted.
//
// A frame is byte for byte the one that marlinex-capture makes of the same script and data at the same size and rate.
//
// No call waits, but for Stop and the destructor, which end all processes. Order of calls: Start once; from then on
// the others in any order, with Poll once per frame of the window. Everything belongs to one thread, whose end ends
// the processes too.
#pragma once

#include "tools/capture/FrameRate.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace edit
{

struct ShowSettings {
    int width = 640; // of the picture, pixels
    int height = 480;
    capture::FrameRate rate;
    std::string data;         // the data directory
    uint64_t memoryLimit = 0; // bytes for all processes together; 0: a quarter of the machine's memory
    int maxProcesses = 16;
    double hangSeconds = 10;              // a process that gives no sign for that long has hung, and is ended
    std::vector<std::string> environment; // of the processes: "NAME=value" rows that change this one's
};

struct ShownFrame {
    int64_t number = 0; // counted from 0, the frame at time 0 of the show
    int width = 0;
    int height = 0;
    std::vector<uint8_t> rgba; // red, green, blue and an unused byte; the bottom row first
    uint64_t scriptRevision = 0;
};

struct ShowEvent {
    enum Kind {
        Crashed,     // a process ended by a signal or with an exit status
        Hung,        // it gave no sign, and was ended
        OutOfMemory, // it had no memory left, or the system took it for having too much
        Box,         // the show would have shown a message box, whose words these are
        Restarted    // a process takes the place of one that failed
    } kind;
    std::string text; // a whole sentence, or the words of the box
    int64_t frame;    // where it happened; -1 while the show was loading
};

class ShowPool
{
public:
    ShowPool();
    ~ShowPool();
    ShowPool(const ShowPool&) = delete;
    ShowPool& operator=(const ShowPool&) = delete;

    // `program` is the path of marlinex-edit itself, which is started with the argument of ShowHost.h. False, and a
    // reason, if it can't be run. Nothing is played before SetScript.
    bool Start(const ShowSettings& settings, std::string program, std::string* reason);

    // Takes a new script over. Processes live on where the change leaves all that they have played as it was. The
    // frame that was wanted last is made anew.
    void SetScript(const std::string& text, uint64_t revision);

    // A file of the data directory was written; all processes start anew, and the frame is made anew. The music is
    // not the show's: see MusicTransport.
    void DataChanged(const std::string& fileName);

    // Asks for a frame; one below 0 is 0. A newer wish takes the place of one that isn't fulfilled yet.
    void Seek(int64_t frame);

    // The same while playing: the frame is what is heard now. Frames that come too late are not drawn; they are
    // counted in Status::skipped. Each frame is still played.
    void PlayTo(int64_t frame);

    void Poll();

    // True if a frame was finished since the last call: the newest one is in *frame.
    bool TakeFrame(ShownFrame* frame);

    std::vector<ShowEvent> TakeEvents();

    struct Status {
        bool loading = false;    // the process that shall make the wanted frame is still loading
        double loadProgress = 0; // of it, 0 to 1
        int processes = 0;
        uint64_t memory = 0;   // bytes that all processes take together
        int64_t position = -1; // the frame at which the process is that makes the frames
        // The frames that the others make next, ascending; -1 for one that is loading.
        std::vector<int64_t> parked;
        // What drawing the latest frame took, with those drawn ahead of it for its sake.
        double drawSeconds = 0;
        int64_t skipped = 0; // frames that were not drawn since playing began
        bool failed = false; // the wanted frame can't be made: the next change of script or data tries again
        std::string failure;
    };
    Status GetStatus() const;

    void Stop();

private:
    struct Work;
    std::unique_ptr<Work> work;
};

} // namespace edit
