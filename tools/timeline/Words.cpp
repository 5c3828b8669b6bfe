// SPDX-License-Identifier: MIT
#include "tools/timeline/Words.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>

namespace timeline
{

static const size_t longestList = 20; // lines of a title
static const char* const times = " \xc3\x97 ";

std::string Count(size_t number, const std::string& one, const std::string& several)
{
    return number == 1 ? "one " + one : std::to_string(number) + " " + several;
}

std::vector<std::string> Summary(const TimelineModel& model, const Tempo& tempo)
{
    std::set<uint32_t> layers;
    for (const Entry& entry : model.entries)
        layers.insert(entry.layer);
    size_t lost = 0;
    for (const Message& message : model.messages)
        lost += message.entries.empty();

    std::vector<std::string> phrases;
    if (model.entries.empty())
        phrases.push_back("nothing is on stage");
    else if (model.start > 0)
        phrases.push_back("from " + ClockText(model.start) + " to " + ClockText(model.end));
    else
        phrases.push_back(ClockText(model.end) + ", " +
                          Count(size_t(model.end / tempo.BarSeconds() + 0.001), "bar", "bars"));
    if (!model.entries.empty())
        phrases.push_back(Count(model.entries.size(), "entry", "entries") + " on " +
                          Count(layers.size(), "layer", "layers"));
    if (!model.messages.empty())
        phrases.push_back(Count(model.messages.size(), "message", "messages") +
                          (lost ? ", " + std::to_string(lost) + " of them lost" : ""));
    if (!model.loads.empty())
        phrases.push_back("loads for at least " + LengthText(double(model.loads.size())));
    if (!model.remarks.empty())
        phrases.push_back(Count(model.remarks.size(), "remark", "remarks") + " of the linter");
    char figure[160];
    snprintf(figure, sizeof figure, "%g beats a minute, %d a bar: a beat is %.4g ms, a bar %.5g ms",
             tempo.beatsPerMinute, tempo.beatsPerBar, tempo.BeatSeconds() * 1000, tempo.BarSeconds() * 1000);
    phrases.push_back(figure);
    return phrases;
}

std::string BarsNote(const Entry& entry, const Tempo& tempo)
{
    const auto bar = [&](double seconds) {
        char figure[32];
        snprintf(figure, sizeof figure, "%.4g", std::round(seconds / tempo.BarSeconds() * 100) / 100);
        return std::string(figure);
    };
    return "bars " + bar(entry.start) + "\xe2\x80\x93" + bar(entry.stop);
}

static std::string Moment(double seconds, const Tempo& tempo)
{
    return ClockText(seconds) + " (" + MillisecondText(seconds) + " ms), " + MusicalText(seconds, tempo);
}

static std::string NameOf(const Message& message)
{
    return message.name.empty() ? "(unknown)" : message.name;
}

std::string EntryTitle(const TimelineModel& model, size_t index, const std::vector<size_t>& heard,
                       const Tempo& tempo)
{
    const Entry& entry = model.entries[index];
    std::string title = entry.effect + "\nlayer " + std::to_string(entry.layer) + "\nfrom " +
                        Moment(entry.start, tempo) + "\nto " + Moment(entry.stop, tempo);
    if (entry.stop < entry.start)
        return title + "\nnever on stage: it stops before it starts";
    title += "\n" + LengthText(entry.stop - entry.start) + " long";

    std::vector<std::pair<std::string, size_t>> names; // in order of appearance
    for (const size_t each : heard) {
        const Message& message = model.messages[each];
        const auto known = std::find_if(names.begin(), names.end(),
                                        [&](const auto& name) { return name.first == NameOf(message); });
        if (known == names.end())
            names.push_back({NameOf(message), 1});
        else
            known->second++;
    }
    std::string list;
    for (const auto& [name, count] : names)
        list += (list.empty() ? "" : ", ") + name + (count > 1 ? times + std::to_string(count) : "");
    return list.empty() ? title : title + "\nhears " + list;
}

static std::string Parameters(const Message& message)
{
    std::string list;
    for (const float value : message.parameters) {
        char figure[32];
        snprintf(figure, sizeof figure, "%g", double(value));
        list += (list.empty() ? "" : ", ") + std::string(figure);
    }
    return list;
}

static std::string Fate(const Message& message)
{
    const double mayGoUnseen = 0.04; // seconds: the viewer takes no notice
    if (message.entries.empty())
        return "lost: " + message.effect + " is not on stage then";
    if (!message.known)
        return "unheard: " + message.effect + " knows no such message";
    if (message.delay > mayGoUnseen)
        return "leaves " + MillisecondText(message.delay) + " ms late: one message leaves in a frame";
    return "";
}

std::string MessagesTitle(const TimelineModel& model, const std::vector<size_t>& messages, const Tempo& tempo)
{
    if (messages.size() == 1) {
        const Message& message = model.messages[messages[0]];
        std::string title =
            NameOf(message) + "\nto " + message.effect + "\nat " + Moment(message.time, tempo);
        if (!message.parameters.empty())
            title += "\nwith " + Parameters(message);
        const std::string fate = Fate(message);
        return fate.empty() ? title : title + "\n" + fate;
    }
    std::string title = std::to_string(messages.size()) + " messages";
    for (size_t i = 0; i < messages.size(); i++) {
        if (i == longestList && messages.size() > longestList + 1)
            return title + "\nand " + std::to_string(messages.size() - i) + " more";
        const Message& message = model.messages[messages[i]];
        title += "\n" + ClockText(message.time) + "  " + NameOf(message);
        if (!message.parameters.empty())
            title += " " + Parameters(message);
        const std::string fate = Fate(message);
        if (!fate.empty())
            title += ", " + fate;
    }
    return title;
}

std::string MessagesLabel(const TimelineModel& model, const std::vector<size_t>& messages)
{
    const std::string first = NameOf(model.messages[messages[0]]);
    if (messages.size() == 1)
        return first;
    for (const size_t index : messages)
        if (NameOf(model.messages[index]) != first)
            return std::to_string(messages.size()) + " messages";
    return first + times + std::to_string(messages.size());
}

std::string LoadingTitle(const TimelineModel& model)
{
    std::string title = "loading takes at least " + LengthText(double(model.loads.size()));
    std::vector<std::pair<std::string, size_t>> names;
    for (const std::string& effect : model.loads) {
        const auto known =
            std::find_if(names.begin(), names.end(), [&](const auto& each) { return each.first == effect; });
        if (known == names.end())
            names.push_back({effect, 1});
        else
            known->second++;
    }
    for (const auto& [name, count] : names)
        title += "\n" + std::to_string(count) + " s  " + name;
    return title;
}

std::string MusicNote(const Music& music)
{
    if (music.plays)
        return "";
    return music.file.empty() ? "no music: the show plays in silence"
                              : "this file can't be opened: the show will not start";
}

std::string MusicTitle(const TimelineModel& model)
{
    const Music& music = model.music;
    if (music.file.empty())
        return "no music: the show plays in silence";
    if (!music.plays)
        return music.file + "\ncan't be opened: the show will not start";
    std::string title =
        music.file + "\n" + LengthText(music.wave.Length()) + " long, to " + ClockText(music.wave.Length());
    if (music.wave.Length() < model.end)
        title += "\nthe last " + LengthText(model.end - music.wave.Length()) + " of the show are silent";
    else if (music.wave.Length() > model.end)
        title +=
            "\nits last " + LengthText(music.wave.Length() - model.end) + " are cut off by the show's end";
    return title;
}

std::string RemarksTitle(const TimelineModel& model, const std::vector<size_t>& remarks)
{
    std::string title;
    for (size_t i = 0; i < remarks.size(); i++) {
        if (i == longestList && remarks.size() > longestList + 1)
            return title + "\nand " + std::to_string(remarks.size() - i) + " more";
        title += (i ? "\n" : "") + model.remarks[remarks[i]].text;
    }
    return title;
}

} // namespace timeline
