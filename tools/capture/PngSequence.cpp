// SPDX-License-Identifier: MIT
#include "tools/capture/PngSequence.h"

#include "tools/capture/PngFile.h"

#include <filesystem>

namespace capture
{

static const char* const nameInFolder = "%06d.png";
static const size_t maxWidthDigits = 2; // digits of the width in %05d

// Where the name of the file begins in a path.
static size_t NameBegin(const std::string& path)
{
    const size_t slash = path.rfind('/');
    return slash == std::string::npos ? 0 : slash + 1;
}

// The place of the next per cent sign from `begin` on that is not doubled; npos if there is none.
static size_t FindSign(const std::string& text, size_t begin)
{
    while ((begin = text.find('%', begin)) != std::string::npos && text.compare(begin, 2, "%%") == 0)
        begin += 2;
    return begin;
}

// The place and the length of the one %d, %5d or %05d in the name. False if there is none, more than one, or
// another single %.
static bool FindNumber(const std::string& pattern, size_t* begin, size_t* length)
{
    *begin = FindSign(pattern, NameBegin(pattern));
    if (*begin == std::string::npos)
        return false;
    size_t end = *begin + 1;
    while (end < pattern.size() && pattern[end] >= '0' && pattern[end] <= '9')
        ++end;
    if (end - *begin - 1 > maxWidthDigits + 1 || end == pattern.size() || pattern[end] != 'd')
        return false;
    *length = end + 1 - *begin;
    return FindSign(pattern, end) == std::string::npos;
}

bool IsPattern(const std::string& output)
{
    return output.ends_with(".png") && output.find('%', NameBegin(output)) != std::string::npos;
}

bool PatternOf(const std::string& output, std::string* pattern)
{
    size_t begin, length;
    if (!IsPattern(output)) {
        const bool ended = !output.empty() && output.back() == '/';
        *pattern = output + (ended ? "" : "/") + nameInFolder;
        return !output.empty();
    }
    *pattern = output;
    return FindNumber(output, &begin, &length);
}

static std::string WithSingleSigns(std::string text)
{
    for (size_t place = 0; (place = text.find("%%", place)) != std::string::npos; place++)
        text.erase(place, 1);
    return text;
}

std::string PatternName(const std::string& pattern, int64_t number)
{
    size_t begin, length;
    if (!FindNumber(pattern, &begin, &length))
        return pattern;
    const std::string form = pattern.substr(begin + 1, length - 2);
    const char filler = !form.empty() && form[0] == '0' ? '0' : ' ';
    std::string digits = std::to_string(number);
    const size_t width = form.empty() ? 0 : size_t(std::stoi(form));
    if (digits.size() < width)
        digits.insert(0, width - digits.size(), filler);
    const size_t name = NameBegin(pattern);
    return pattern.substr(0, name) + WithSingleSigns(pattern.substr(name, begin - name)) + digits +
           WithSingleSigns(pattern.substr(begin + length));
}

PngSequence::PngSequence(const std::string& outputPattern, int newThreads)
    : pattern(outputPattern), threadCount(newThreads), ending(false)
{
}

PngSequence::~PngSequence()
{
    Join();
}

bool PngSequence::Begin(int, int, const FrameSelection&)
{
    const std::filesystem::path folder = std::filesystem::path(pattern).parent_path();
    std::error_code failure;
    if (!folder.empty() && !std::filesystem::create_directories(folder, failure) && failure) {
        error = folder.string() + ": " + failure.message();
        return false;
    }
    for (int i = 0; i < threadCount; i++)
        threads.emplace_back(&PngSequence::Work, this);
    return true;
}

bool PngSequence::Take(std::unique_ptr<Frame> frame)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return waiting.size() < size_t(threadCount) || !error.empty(); });
    if (!error.empty())
        return false;
    waiting.push_back(std::move(frame));
    changed.notify_all();
    return true;
}

void PngSequence::Work()
{
    for (;;) {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return !waiting.empty() || ending; });
        if (waiting.empty())
            return;
        const std::unique_ptr<Frame> frame = std::move(waiting.front());
        waiting.pop_front();
        changed.notify_all();
        lock.unlock();

        const std::string path = PatternName(pattern, frame->number);
        OutputFile file;
        std::string failure;
        if (!file.Open(path, PartHidesEnding))
            failure = file.error;
        else if (!WritePng(file, WithoutFourth(*frame), true, &failure))
            failure = path + ": " + failure;
        else
            continue;
        lock.lock();
        if (error.empty())
            error = failure;
        changed.notify_all();
    }
}

void PngSequence::Join()
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ending = true;
        changed.notify_all();
    }
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
}

bool PngSequence::Finish(bool)
{
    Join();
    return error.empty();
}

} // namespace capture
