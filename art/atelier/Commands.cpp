// SPDX-License-Identifier: MIT
#include "art/atelier/Commands.h"

#include "art/atelier/Files.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <thread>

namespace atelier
{

constexpr int Threads = 2;

// Calls `work` for each picture, on two threads, each taking the next one when it is done with one.
static void ForEach(const std::vector<const Picture*>& pictures,
                    const std::function<void(const Picture&)>& work)
{
    std::atomic<size_t> next{0};
    const auto loop = [&] {
        for (size_t i = next++; i < pictures.size(); i = next++)
            work(*pictures[i]);
    };
    std::vector<std::thread> others;
    for (int i = 1; i < Threads && pictures.size() > 1; i++)
        others.emplace_back(loop);
    loop();
    for (std::thread& thread : others)
        thread.join();
}

static std::mutex speaking;

// Paints or draws one picture to the bytes of its file; empty, with a word to stderr, if the picture has not the size
// that its row states or cannot be encoded.
static std::string Painted(const Picture& picture)
{
    if (picture.draw)
        return picture.draw();
    const Canvas canvas = picture.paint();
    if (canvas.Width() != picture.width || canvas.Height() != picture.height) {
        const std::lock_guard<std::mutex> lock(speaking);
        std::fprintf(stderr, "atelier: %s is painted %d by %d, its row says %d by %d\n", picture.file,
                     canvas.Width(), canvas.Height(), picture.width, picture.height);
        return {};
    }
    return Encoded(Finished(canvas, ChannelsOf(picture.format)), picture.file);
}

static double Seconds(std::chrono::steady_clock::time_point since)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - since).count();
}

Difference Compare(const Raster& a, const Raster& b)
{
    Difference difference;
    size_t above = 0;
    for (size_t i = 0; i < a.bytes.size(); i++) {
        const int d = std::abs(a.bytes[i] - b.bytes[i]);
        difference.mean += d;
        difference.largest = std::max(difference.largest, d);
        above += d > LargestDifference ? 1 : 0;
    }
    const double n = double(std::max<size_t>(a.bytes.size(), 1));
    difference.mean /= n;
    difference.partAbove = double(above) / n;
    return difference;
}

bool WithinTolerance(const Difference& difference)
{
    return difference.mean <= LargestMeanDifference && difference.partAbove < LargestPartAbove;
}

int PaintFiles(const std::vector<const Picture*>& pictures, const std::string& folder)
{
    std::atomic<int> failures{0};
    ForEach(pictures, [&](const Picture& picture) {
        const auto start = std::chrono::steady_clock::now();
        const std::string bytes = Painted(picture);
        const std::string path = folder.empty() ? picture.file : folder + "/" + NameOf(picture);
        const bool written = !bytes.empty() && WriteFile(path, bytes);
        const std::lock_guard<std::mutex> lock(speaking);
        if (written) {
            std::printf("%6.2f s %8zu bytes  %s\n", Seconds(start), bytes.size(), path.c_str());
        } else {
            std::fprintf(stderr, "atelier: cannot write %s\n", path.c_str());
            failures++;
        }
    });
    return failures == 0 ? 0 : 1;
}

int VerifyFiles(const std::vector<const Picture*>& pictures)
{
    std::atomic<int> failures{0};
    ForEach(pictures, [&](const Picture& picture) {
        const std::string fresh = Painted(picture);
        std::string stored;
        const bool found = ReadFile(picture.file, stored);
        Raster a, b;
        std::string word;
        char figures[120] = "";
        if (fresh.empty())
            word = "cannot be painted";
        else if (!found)
            word = "has no file";
        else if (stored == fresh)
            word = "";
        else if (!Decode(stored, a) || !Decode(fresh, b))
            word = "is no picture";
        else if (a.width != b.width || a.height != b.height || a.channels != b.channels)
            word = "has another size or other channels";
        else {
            const Difference difference = Compare(a, b);
            std::snprintf(figures, sizeof figures, "differs: mean %.3f, largest %d, %.4f%% above %d",
                          difference.mean, difference.largest, difference.partAbove * 100, LargestDifference);
            if (!WithinTolerance(difference))
                word = figures;
        }
        const std::lock_guard<std::mutex> lock(speaking);
        if (!word.empty()) {
            std::fprintf(stderr, "atelier: %s %s\n", picture.file, word.c_str());
            failures++;
        } else {
            std::printf("same  %s%s%s\n", picture.file, figures[0] != 0 ? ", within tolerance, " : "",
                        figures);
        }
    });
    std::printf("%zu %s, %d not as painted\n", pictures.size(), pictures.size() == 1 ? "picture" : "pictures",
                failures.load());
    return failures == 0 ? 0 : 1;
}

} // namespace atelier
