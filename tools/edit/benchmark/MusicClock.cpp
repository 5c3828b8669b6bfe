// SPDX-License-Identifier: MIT
// How far what the transport says is heard lies from what the device has been given, over minutes in real time.
//
//     SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=/dev/shm/sound edit-music-clock MUSIC MINUTES
//
// SDL's disk driver takes a buffer whenever its own timer says so and writes it to the file, whose length thus says what
// the device has: when it grows, the buffer before the new one begins to be heard. Its timer is not as exact as a sound
// device's quartz, so that this is the harder case. When it grew is the file's time, which counts in steps of some
// milliseconds.
#include "platform/Clock.h"
#include "tools/cli/MonotonicSeconds.h"
#include "tools/edit/MusicTransport.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

static const int rate = 44100, bufferFrames = 1024;

int main(int argc, char** argv)
{
    const char* const file = getenv("SDL_DISKAUDIOFILE");
    if (argc != 3 || !file) {
        fprintf(stderr,
                "usage: SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE=FILE edit-music-clock MUSIC MINUTES\n");
        return 2;
    }
    edit::MusicTransport transport;
    transport.SetMusic(argv[1]);
    while (!transport.IsReady())
        usleep(1000);
    if (!transport.HasMusic()) {
        fprintf(stderr, "edit-music-clock: %s\n", transport.Failure().c_str());
        return 2;
    }
    transport.Play(0);
    const double begin = cli::MonotonicSeconds(), end = begin + atof(argv[2]) * 60;
    struct stat there = {};
    off_t known = 0;
    double offset = 0; // frames that the device had taken when the music began, in seconds
    bool hasOffset = false;
    std::vector<double> errors;
    while (cli::MonotonicSeconds() < end) {
        usleep(500);
        const double position = transport.PositionSeconds();
        if (stat(file, &there) != 0 || there.st_size == known)
            continue;
        known = there.st_size;
        timespec now = {};
        clock_gettime(CLOCK_REALTIME, &now);
        // This process may have been late to see it.
        const double since =
            double(now.tv_sec - there.st_mtim.tv_sec) + double(now.tv_nsec - there.st_mtim.tv_nsec) / 1e9;
        const double begun = (double(known) / 8 - 2 * bufferFrames) / rate + since;
        if (position <= 0.5)
            continue; // the clock still settles
        if (!hasOffset) {
            // The music's place in the file is known to the buffer only; the first half second says it, and what is
            // measured is how the two run apart from then on.
            offset = begun - position;
            hasOffset = true;
        }
        errors.push_back(position - (begun - offset));
    }
    if (errors.empty())
        return 1;
    const double taken = (double(known) / 8) / (cli::MonotonicSeconds() - begin);
    std::vector<double> sorted = errors;
    std::sort(sorted.begin(), sorted.end());
    printf("%.0f s, %zu buffers, the device takes %.0f frames a second for %d\n",
           cli::MonotonicSeconds() - begin, errors.size(), taken, rate);
    const double middle = sorted[sorted.size() / 2];
    const auto outside = std::count_if(errors.begin(), errors.end(), [middle](double error) {
        return std::fabs(error - middle) > 1 / 60.0;
    });
    printf("apart since the first of them: median %+.2f ms, from %+.2f to %+.2f ms, at the end %+.2f ms;\n"
           "a frame of the picture and more beside the median: %ld of %zu\n",
           1000 * middle, 1000 * sorted.front(), 1000 * sorted.back(), 1000 * errors.back(), long(outside),
           errors.size());
    return 0;
}
