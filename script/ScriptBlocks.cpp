// SPDX-License-Identifier: MIT
// The four blocks of a script.
#include "script/ScriptParser.h"

#include "kernel/DemoPlayer.h"
#include "kernel/Report.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

static const double fullColour = 255.0;

// What a box says of each value that is missing, each on a line of its own, far to the right.
static std::string Reason(const std::string& value, const char* words)
{
    return value.empty() ? std::string("\n\n\t\t") + words : std::string();
}

void ScriptParser::ParseMusic(std::string body)
{
    // The result is ignored: here alone a last entry without its ; still counts.
    std::string name;
    GetValue(body, "FileName", &name);
    if (player && !name.empty()) {
        player->SetMusic(name);
        return;
    }
    ReportInfo("Script Parser",
               "Error in Music: " + body + "\n\n\t\tNO MUSIC AVAILABLE\n\nThis Music Region will be skipped");
}

void ScriptParser::ParseEffect(std::string body)
{
    // The search ends at the first key that is missing, so those behind it are told as missing too.
    std::string name, start, stop, layer;
    if (GetValue(body, "EffectName", &name) && GetValue(body, "StartTime", &start) &&
        GetValue(body, "StopTime", &stop) && GetValue(body, "LayerID", &layer)) {
        const int layerNumber = atoi(layer.c_str());
        const int startMs = atoi(start.c_str());
        const int stopMs = atoi(stop.c_str());
        if (player)
            player->AddEffect(uint32_t(startMs), uint32_t(stopMs), name, uint32_t(layerNumber));
        return;
    }
    ReportInfo("Script Parser",
               "Error in Effect: \n" + body + Reason(layer, "NO LAYER ID DEFINED") +
                   Reason(stop, "NO STOP TIME DEFINED") + Reason(start, "NO START TIME DEFINED") +
                   Reason(name, "NO EFFECT NAME DEFINED") + "\n\nThis Effect will be skipped");
}

void ScriptParser::ParseColorScheme(std::string body)
{
    std::string global, support, flow;
    if (GetValue(body, "GlobalColor", &global) && GetValue(body, "SupportColor", &support) &&
        GetValue(body, "FlowColor", &flow)) {
        ColorScheme scheme = {};
        ParseColor(global, scheme.global);
        ParseColor(support, scheme.support);
        ParseColor(flow, scheme.flow);
        if (player)
            player->SetColorScheme(scheme);
        return;
    }
    ReportInfo("Script Parser", "Error in ColorScheme: \n" + body +
                                    "\n\n\t\tWRONG COLOR DEFINITION\n\nThis Color Scheme will be skipped");
}

void ScriptParser::ParseColor(std::string text, float* rgb) const
{
    std::string token;
    int component = 0;
    for (size_t i = 0; i <= text.size(); i++) {
        const bool atEnd = i == text.size();
        if (!atEnd && text[i] != ',') {
            token += text[i];
            continue;
        }
        if (component < 3)
            rgb[component] = float(uint32_t(atoi(token.c_str())) / fullColour);
        token.clear();
        component++;
    }
}

// Loses the last character of the last number: it ends the loop without having been appended. Scripts are
// written for this, as 2.50 for 2.5, or with a comma behind the last number.
void ScriptParser::ParseParameters(std::string text, float* params, int count)
{
    std::string token;
    int index = 0;
    for (size_t i = 0; i < text.size(); i++) {
        const bool isLast = i + 1 == text.size();
        if (text[i] != ',' && !isLast) {
            token += text[i];
            continue;
        }
        if (index < count)
            params[index] = float(atof(token.c_str()));
        index++;
        token.clear();
    }
}

void ScriptParser::ParseMessage(std::string body)
{
    std::string messageText, times, target;
    if (!GetValue(body, "MessageText", &messageText) || !GetValue(body, "ActivationTime", &times) ||
        !GetValue(body, "TargetEffect", &target)) {
        ReportInfo("Script Parser",
                   "Error in Message: \n" + body + Reason(target, "NO TARGET EFFECT DEFINED") +
                       Reason(times, "NO ACTIVATION TIME DEFINED") +
                       Reason(messageText, "NO MESSAGE TEXT DEFINED") + "\n\nThis Message will be skipped");
        return;
    }

    // One more than there are commas, so that a list with a comma at its end has a last value that nobody
    // wrote. It is 0, like everything that is left unset.
    std::string paramText;
    std::vector<float> params;
    if (GetValue(body, "Parameter", &paramText)) {
        params.resize(1 + std::count(paramText.begin(), paramText.end(), ','));
        ParseParameters(paramText, params.data(), int(params.size()));
    }
    const int count = int(params.size());

    // Here the last character is saved; a comma at the end lands in the token, where atoi stops at it.
    std::string token;
    int timeCount = 0;
    uint32_t time = 0;
    for (size_t i = 0; i < times.size(); i++) {
        const bool isLast = i + 1 == times.size();
        if (times[i] != ',' && !isLast) {
            token += times[i];
            continue;
        }
        timeCount++;
        if (isLast)
            token += times[i];
        time = uint32_t(atoi(token.c_str()));
        token.clear();
        if (player && (!observer || observer->TakesMessage(params.size())))
            player->AddMessage(time, messageText, params.data(), count, target);
    }

    // Steps is the number of messages in all, the first included. It goes with a single time only.
    std::string stepsText, deltaText;
    if (timeCount != 1 || !GetValue(body, "Steps", &stepsText) || !GetValue(body, "TimeDelta", &deltaText))
        return;
    uint32_t steps = uint32_t(atoi(stepsText.c_str()));
    if (observer)
        steps = observer->LimitSteps(steps);
    const uint32_t delta = uint32_t(atoi(deltaText.c_str()));
    for (uint32_t i = 1; i < steps; i++) {
        time += delta;
        if (player && (!observer || observer->TakesMessage(params.size())))
            player->AddMessage(time, messageText, params.data(), count, target);
    }
}
