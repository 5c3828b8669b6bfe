// SPDX-License-Identifier: MIT
// The half of ScriptParser that turns the four kinds of block into calls on the DemoPlayer.
#include "script/ScriptParser.h"

#include "kernel/DemoPlayer.h"
#include "kernel/Report.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

static const double fullColour = 255.0;

// The lines with which an information box says that a value is missing; empty if it is not.
static std::string Reason(const std::string& value, const char* words)
{
    return value.empty() ? std::string("\n\n\t\t") + words : std::string();
}

void ScriptParser::ParseMusic(std::string body)
{
    // The result is ignored, so that a last entry without its ; still counts. Only this block does so.
    std::string name;
    GetValue(body, key::FileName, &name);
    if (player && !name.empty()) {
        player->SetMusic(name);
        return;
    }
    ReportInfo("Script Parser",
               "Error in Music: " + body + "\n\n\t\tNO MUSIC AVAILABLE\n\nThis Music Region will be skipped");
}

void ScriptParser::ParseEffect(std::string body)
{
    // The search ends at the first key that is missing, so the box names the keys after it as missing too.
    std::string name, start, stop, layer;
    if (GetValue(body, key::EffectName, &name) && GetValue(body, key::StartTime, &start) &&
        GetValue(body, key::StopTime, &stop) && GetValue(body, key::LayerID, &layer)) {
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
    if (GetValue(body, key::GlobalColor, &global) && GetValue(body, key::SupportColor, &support) &&
        GetValue(body, key::FlowColor, &flow)) {
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

// The last character of the text is not appended to the token, so the last number loses it. Scripts are
// written for this: they have 2.50 for 2.5, or a comma after the last number.
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
    if (!GetValue(body, key::MessageText, &messageText) || !GetValue(body, key::ActivationTime, &times) ||
        !GetValue(body, key::TargetEffect, &target)) {
        ReportInfo("Script Parser",
                   "Error in Message: \n" + body + Reason(target, "NO TARGET EFFECT DEFINED") +
                       Reason(times, "NO ACTIVATION TIME DEFINED") +
                       Reason(messageText, "NO MESSAGE TEXT DEFINED") + "\n\nThis Message will be skipped");
        return;
    }

    // The count is one more than there are commas. After a comma at the end of the list ParseParameters has
    // nothing to store as the last value, which stays 0.
    std::string paramText;
    std::vector<float> params;
    if (GetValue(body, key::Parameter, &paramText)) {
        params.resize(1 + std::count(paramText.begin(), paramText.end(), ','));
        ParseParameters(paramText, params.data(), int(params.size()));
    }
    const int count = int(params.size());

    // Unlike in ParseParameters, the last character is appended; atoi stops at a comma there.
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

    // Steps is the total number of messages, including the first. It only works with a single time.
    std::string stepsText, deltaText;
    if (timeCount != 1 || !GetValue(body, key::Steps, &stepsText) ||
        !GetValue(body, key::TimeDelta, &deltaText))
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
