// SPDX-License-Identifier: MIT
// Whether the files are there that the show will ask for.
#include "tools/lint/Checks.h"

#include "music/Decoder.h"
#include "platform/Paths.h"
#include "tools/lint/Requests.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <set>

namespace lint
{

namespace fs = std::filesystem;

static const int probeRate = 44100; // Hz, for a module; it only has to open

static std::string LowerCase(std::string text)
{
    for (char& c : text)
        c = char(tolower(static_cast<unsigned char>(c)));
    return text;
}

// What is wrong with a file, or nothing.
static std::string Complaint(const std::string& path)
{
    std::error_code error;
    if (fs::is_directory(path, error))
        return "is a folder";
    FILE* const file = fopen(path.c_str(), "rb");
    if (!file)
        return errno == ENOENT ? "is missing" : std::string("can't be read (") + strerror(errno) + ")";
    const bool isEmpty = fgetc(file) == EOF;
    fclose(file);
    return isEmpty ? "is empty" : "";
}

// A file of the folder whose name differs in its case only: where the show was made on another system.
static std::string Lookalike(const std::string& folder, const std::string& name)
{
    std::error_code error;
    for (fs::directory_iterator each(folder, error), end; !error && each != end; each.increment(error))
        if (LowerCase(each->path().filename().string()) == LowerCase(name))
            return each->path().filename().string();
    return "";
}

static void CheckFile(const std::string& folder, const std::string& name, const std::string& who, int line,
                      int column, Findings* findings)
{
    const std::string path = folder + "/" + name;
    const std::string complaint = Complaint(path);
    if (complaint.empty())
        return;
    const std::string like = Lookalike(folder, name);
    findings->AddAt(Error, "missing-file", line, column,
                    path + " " + complaint + ", and " + who + " asks for it.",
                    "The show says so in a box and ends when everything is loaded.",
                    like.empty() || like == name ? "Put the file there."
                                                 : "Rename " + like + ": small and capital letters differ.");
}

static void CheckMusicFile(const Reading& script, const std::string& folder, const Show& show,
                           Findings* findings)
{
    if (show.music.empty())
        return;
    size_t place = 0;
    for (const Block& block : script.blocks)
        if (block.type == BlockMusic && !block.hasBox)
            for (const Entry& entry : SplitEntries(block))
                if (entry.key == "FileName" && entry.value == show.music)
                    place = entry.valuePlaces[0];
    const std::string path = folder + "/" + show.music;
    std::string complaint = Complaint(path);
    if (complaint.empty() && !OpenDecoder(path, probeRate))
        complaint = "is no music that the show can play";
    if (complaint.empty())
        return;
    const std::string like = Lookalike(folder, show.music);
    findings->Add(
        Error, "missing-music", place, path + " " + complaint + ".",
        "The show says so in a box and ends when everything is loaded, unless it is started without "
        "music.",
        like.empty() || like == show.music ? "Put a WAV, FLAC, Ogg, MP3 or tracker file there."
                                           : "Write " + like + ": small and capital letters differ.");
}

void CheckFiles(const Reading& script, const Show& show, const Options& options, Findings* findings)
{
    const std::string folder = options.data.empty() ? platform::GetDataDirectory() : options.data;
    CheckMusicFile(script, folder, show, findings);
    std::set<std::string> seen;
    bool anything = false;
    for (const ShownEntry& entry : show.entries) {
        const EffectRequests* const requests = entry.kept ? FindRequests(entry.effect) : nullptr;
        anything = anything || entry.kept;
        if (!requests)
            continue;
        for (const std::string& name : requests->files)
            if (seen.insert(name).second)
                CheckFile(folder, name, entry.effect, entry.line, entry.column, findings);
    }
    if (anything)
        CheckFile(folder, loadingPicture, "the loading screen", 0, 0, findings);
}

} // namespace lint
