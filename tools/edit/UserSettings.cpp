// SPDX-License-Identifier: MIT
#include "tools/edit/UserSettings.h"

#include "tools/cli/Input.h"
#include "tools/cli/JsonWriter.h"
#include "tools/cli/Output.h"

#include <rapidjson/document.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>

namespace edit
{

static const double longestTime = 1e7; // seconds; a script's milliseconds end before that
static const size_t maxMarkers = 1000;

ScriptMemory UserSettings::MemoryOf(const std::string& path) const
{
    for (const ScriptMemory& memory : scripts)
        if (memory.path == path)
            return memory;
    ScriptMemory fresh;
    fresh.path = path;
    if (!scripts.empty())
        fresh.tempo = scripts.front().tempo;
    return fresh;
}

void UserSettings::Remember(const ScriptMemory& memory)
{
    std::erase_if(scripts, [&](const ScriptMemory& other) { return other.path == memory.path; });
    scripts.insert(scripts.begin(), memory);
    if (scripts.size() > MaxScripts)
        scripts.resize(MaxScripts);
}

// Writing

std::string UserSettings::ToJson() const
{
    cli::JsonWriter json;
    json.StartObject();
    json.Member("width", width);
    json.Member("height", height);
    json.Member("maximised", maximised);
    json.Member("stageShare", double(stageShare));
    json.Member("pictureShare", double(pictureShare));
    json.Member("inspectorShare", double(inspectorShare));
    json.Member("inspector", inspector);
    json.Member("findings", findings);
    json.Member("follow", follow);
    json.Member("snap", snap.on);
    json.Member("snapToBeats", snap.toBeats);
    json.Member("snapToBars", snap.toBars);
    json.Member("snapToMessages", snap.toMessages);
    json.Member("snapToEdges", snap.toEdges);
    json.Key("scripts").StartArray();
    for (const ScriptMemory& memory : scripts) {
        json.StartObject();
        json.Member("path", memory.path);
        json.Member("playhead", memory.playhead);
        json.Member("beatsPerMinute", memory.tempo.beatsPerMinute);
        json.Member("beatsPerBar", memory.tempo.beatsPerBar);
        json.Member("loopStart", memory.loopStart);
        json.Member("loopEnd", memory.loopEnd);
        json.Key("markers").StartArray();
        for (const double marker : memory.markers)
            json.Double(marker);
        json.EndArray();
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Finish();
}

// Reading: whoever edits the file by hand may have written anything

typedef rapidjson::Value Json;

static const Json* Find(const Json& object, const char* name)
{
    const auto member = object.FindMember(name);
    return member == object.MemberEnd() ? nullptr : &member->value;
}

static void Take(const Json& object, const char* name, bool* value)
{
    const Json* const found = Find(object, name);
    if (found && found->IsBool())
        *value = found->GetBool();
}

static void Take(const Json& object, const char* name, double low, double high, double* value)
{
    const Json* const found = Find(object, name);
    if (found && found->IsNumber() && found->GetDouble() >= low && found->GetDouble() <= high)
        *value = found->GetDouble();
}

static void Take(const Json& object, const char* name, double low, double high, float* value)
{
    double number = double(*value);
    Take(object, name, low, high, &number);
    *value = float(number);
}

static void Take(const Json& object, const char* name, int low, int high, int* value)
{
    double number = *value;
    Take(object, name, double(low), double(high), &number);
    *value = int(number);
}

static ScriptMemory ReadMemory(const Json& object)
{
    ScriptMemory memory;
    const Json* const path = Find(object, "path");
    if (path && path->IsString())
        memory.path = std::string(path->GetString(), path->GetStringLength());
    Take(object, "playhead", 0, longestTime, &memory.playhead);
    Take(object, "beatsPerMinute", 1, 1000, &memory.tempo.beatsPerMinute);
    Take(object, "beatsPerBar", 1, 64, &memory.tempo.beatsPerBar);
    Take(object, "loopStart", 0, longestTime, &memory.loopStart);
    Take(object, "loopEnd", 0, longestTime, &memory.loopEnd);
    if (memory.loopEnd < memory.loopStart)
        memory.loopStart = memory.loopEnd = 0;
    const Json* const markers = Find(object, "markers");
    if (markers && markers->IsArray())
        for (const Json& marker : markers->GetArray())
            if (marker.IsNumber() && marker.GetDouble() >= 0 && marker.GetDouble() <= longestTime &&
                memory.markers.size() < maxMarkers)
                memory.markers.push_back(marker.GetDouble());
    std::sort(memory.markers.begin(), memory.markers.end());
    return memory;
}

bool UserSettings::FromJson(const std::string& text)
{
    rapidjson::Document json;
    json.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if (json.HasParseError() || !json.IsObject())
        return false;
    Take(json, "width", 640, 16384, &width);
    Take(json, "height", 480, 16384, &height);
    Take(json, "maximised", &maximised);
    Take(json, "stageShare", 0.1, 0.9, &stageShare);
    Take(json, "pictureShare", 0.1, 0.9, &pictureShare);
    Take(json, "inspectorShare", 0.1, 0.9, &inspectorShare);
    Take(json, "inspector", &inspector);
    Take(json, "findings", &findings);
    Take(json, "follow", &follow);
    Take(json, "snap", &snap.on);
    Take(json, "snapToBeats", &snap.toBeats);
    Take(json, "snapToBars", &snap.toBars);
    Take(json, "snapToMessages", &snap.toMessages);
    Take(json, "snapToEdges", &snap.toEdges);
    const Json* const list = Find(json, "scripts");
    if (!list || !list->IsArray())
        return true;
    scripts.clear();
    for (const Json& object : list->GetArray()) {
        if (!object.IsObject() || scripts.size() == MaxScripts)
            continue;
        const ScriptMemory memory = ReadMemory(object);
        if (!memory.path.empty())
            scripts.push_back(memory);
    }
    return true;
}

// The file

std::string UserSettings::Path()
{
    // A path that is not absolute is to be ignored, says the desktop's convention.
    const char* const config = getenv("XDG_CONFIG_HOME");
    if (config && config[0] == '/')
        return std::string(config) + "/marlinex/edit.json";
    const char* const home = getenv("HOME");
    if (home && *home)
        return std::string(home) + "/.config/marlinex/edit.json";
    return "";
}

void UserSettings::Load()
{
    std::string text, reason;
    const std::string path = Path();
    if (!path.empty() && cli::ReadInput(path, &text, &reason))
        FromJson(text);
}

bool UserSettings::Save(std::string* reason) const
{
    const std::string path = Path();
    if (path.empty()) {
        *reason = "there is no home folder";
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
    if (error) {
        *reason = error.message();
        return false;
    }
    return cli::WriteOutput(path, ToJson(), reason);
}

} // namespace edit
