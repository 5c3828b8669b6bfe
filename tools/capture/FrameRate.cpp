// SPDX-License-Identifier: MIT
#include "tools/capture/FrameRate.h"

#include <numeric>

namespace capture
{

static const int64_t microsecondsPerSecond = 1000000;
static const int decimals = 6;
// Above every time that a script can have.
static const int64_t maxTime = int64_t(5000000) * microsecondsPerSecond;
static const int maxColons = 2;

int64_t FrameRate::FramesBefore(int64_t microseconds) const
{
    // Whole seconds and the remainder are multiplied separately, so that the products fit into 64 bits.
    const int64_t perFrames = seconds * microsecondsPerSecond;
    const int64_t whole = microseconds / perFrames;
    const int64_t rest = (microseconds % perFrames) * frames;
    return whole * frames + (rest + perFrames - 1) / perFrames;
}

int64_t FrameRate::MomentOf(int64_t frame, int64_t perSecond) const
{
    const int64_t product = frame * seconds;
    return product / frames * perSecond + product % frames * perSecond / frames;
}

std::string FrameRate::Text() const
{
    const std::string whole = std::to_string(frames);
    return seconds == 1 ? whole : whole + "/" + std::to_string(seconds);
}

static bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

// Reads digits of the text from *place on and moves *place past them. False if there are none or the number
// is above `most`.
static bool TakeNumber(const std::string& text, size_t* place, int64_t most, int64_t* number)
{
    const size_t begin = *place;
    *number = 0;
    for (; *place < text.size() && IsDigit(text[*place]); ++*place) {
        *number = *number * 10 + (text[*place] - '0');
        if (*number > most)
            return false;
    }
    return *place > begin;
}

bool ReadFrameRate(const std::string& text, FrameRate* rate)
{
    size_t place = 0;
    int64_t frames = 0;
    int64_t seconds = 1;
    if (!TakeNumber(text, &place, FrameRate::Largest, &frames))
        return false;
    if (place < text.size() && text[place] == '/') {
        ++place;
        if (!TakeNumber(text, &place, FrameRate::Largest, &seconds))
            return false;
    }
    if (place != text.size() || frames == 0 || seconds == 0)
        return false;
    const int64_t divisor = std::gcd(frames, seconds);
    rate->frames = frames / divisor;
    rate->seconds = seconds / divisor;
    return true;
}

bool ReadTime(const std::string& text, int64_t* microseconds)
{
    size_t place = 0;
    int64_t whole = 0;
    for (int part = 0;; part++) {
        int64_t number = 0;
        if (!TakeNumber(text, &place, maxTime / microsecondsPerSecond, &number))
            return false;
        if (part > 0 && number > 59) // minutes and seconds after a colon
            return false;
        whole = whole * 60 + number;
        if (place == text.size() || text[place] != ':')
            break;
        if (part == maxColons)
            return false;
        ++place;
    }
    int64_t fraction = 0;
    if (place < text.size() && text[place] == '.') {
        ++place;
        const size_t begin = place;
        if (!TakeNumber(text, &place, microsecondsPerSecond - 1, &fraction) ||
            place - begin > size_t(decimals))
            return false;
        for (size_t digits = place - begin; digits < size_t(decimals); digits++)
            fraction *= 10;
    }
    if (place != text.size() || whole > maxTime / microsecondsPerSecond)
        return false;
    *microseconds = whole * microsecondsPerSecond + fraction;
    return true;
}

std::string TimeText(int64_t microseconds)
{
    const int64_t seconds = microseconds / microsecondsPerSecond;
    std::string text = std::to_string(seconds / 60) + (seconds % 60 < 10 ? ":0" : ":");
    text += std::to_string(seconds % 60);
    if (const int64_t fraction = microseconds % microsecondsPerSecond) {
        const std::string digits = std::to_string(microsecondsPerSecond + fraction).substr(1);
        text += "." + digits.substr(0, digits.find_last_not_of('0') + 1);
    }
    return text;
}

} // namespace capture
