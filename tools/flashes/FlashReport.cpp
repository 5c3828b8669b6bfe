// SPDX-License-Identifier: MIT
#include "tools/flashes/FlashReport.h"

#include "tools/capture/FrameRate.h"
#include "tools/cli/JsonWriter.h"

#include <cmath>

namespace flashes
{

// To the hundredth of a second.
static std::string Moment(double seconds)
{
    return capture::TimeText(std::llround(seconds * 100) * 10000);
}

static std::string Line(const char* head, const Peak& peak)
{
    std::string line = head + std::to_string(peak.flashes);
    if (peak.flashes > 0)
        line += ", in the second up to " + Moment(peak.time);
    return line + "\n";
}

std::string TextOf(const FlashMeter& meter)
{
    std::string text = "The most flashes within a second\n";
    text += Line("  over a quarter of a field of 10 degrees: ", meter.field);
    text += Line("  over a quarter of the picture:           ", meter.picture);
    if (meter.above.empty())
        return text + "Never more than " + std::to_string(Limit) + " a second.\n";
    text += "More than " + std::to_string(Limit) + " a second\n";
    for (const Stretch& stretch : meter.above)
        text += "  " + Moment(stretch.from) + " to " + Moment(stretch.to) + ": " +
                std::to_string(stretch.flashes) + "\n";
    return text;
}

static void AddPeak(cli::JsonWriter* json, const char* name, const Peak& peak)
{
    json->Key(name).StartObject();
    json->Member("flashes", peak.flashes);
    json->Member("time", peak.flashes > 0 ? peak.time : std::nan("")); // null
    json->EndObject();
}

std::string JsonOf(const FlashMeter& meter)
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("limit", Limit);
    AddPeak(&json, "field", meter.field);
    AddPeak(&json, "picture", meter.picture);
    json.Key("above").StartArray();
    for (const Stretch& stretch : meter.above) {
        json.StartObject();
        json.Member("from", stretch.from);
        json.Member("to", stretch.to);
        json.Member("flashes", stretch.flashes);
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Finish();
}

} // namespace flashes
