// SPDX-License-Identifier: MIT
// Whether the files are there that the show will ask for.
#include "tools/lint/Checks.h"

#include "kernel/LoadingScreen.h"
#include "kernel/Production.h"
#include "music/Decoder.h"
#include "platform/Paths.h"
#include "tools/lint/Values.h"

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
    if (fs::exists(path, error) && !fs::is_regular_file(path, error))
        return "is no ordinary file"; // which might keep us waiting
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

static const char* ConsequenceOf(FileKind kind)
{
    if (kind == ShaderFile)
        return "The show says so in a box and goes on without.";
    return kind == ModelFile ? "The show goes on without it and says nothing."
                             : "The show says so in a box and ends when everything is loaded.";
}

static void CheckFile(const std::string& folder, const EffectFile& file, const std::string& who, int line,
                      int column, Findings* findings)
{
    const std::string path = folder + "/" + file.name;
    const std::string complaint = Complaint(path);
    if (complaint.empty())
        return;
    const std::string like = Lookalike(folder, file.name);
    findings->AddAt(Error, "missing-file", line, column,
                    path + " " + complaint + ", and " + who + " asks for it.", ConsequenceOf(file.kind),
                    like.empty() || like == file.name
                        ? "Put the file there."
                        : "Rename " + like + ": small and capital letters differ.");
}

static void CheckMusicFile(const std::string& folder, const KeyValue& entry, Findings* findings)
{
    const std::string path = folder + "/" + entry.value;
    std::string complaint = Complaint(path);
    if (complaint.empty() && !OpenDecoder(path, probeRate))
        complaint = "is no music that the show can play";
    if (complaint.empty())
        return;
    const std::string like = Lookalike(folder, entry.value);
    Finding& finding = findings->Add(
        Error, "missing-music", entry.valuePlaces[0], path + " " + complaint + ".",
        "The show says so in a box and ends when everything is loaded, unless it is started without "
        "music.",
        like.empty() || like == entry.value ? "Put a WAV, FLAC, Ogg, MP3 or tracker file there."
                                            : "Write " + like + ": small and capital letters differ.");
    if (!like.empty() && like != entry.value && CanBeValue(like))
        findings->AddFix(&finding, entry.valuePlaces[0], entry.valuePlaces[entry.value.size() - 1] + 1, like);
}

// Of each block, since the show opens them all, one after the other.
static void CheckMusic(const Reading& script, const std::string& folder, Findings* findings)
{
    std::set<std::string> seen;
    for (const Block& block : script.blocks)
        if (block.type == BlockMusic && !block.hasBox)
            for (const KeyValue& entry : SplitKeyValues(block))
                if (entry.key == key::FileName && (entry.counts || !entry.ended)) {
                    if (seen.insert(entry.value).second)
                        CheckMusicFile(folder, entry, findings);
                    break;
                }
}

void CheckFiles(const Reading& script, const Show& show, const CheckOptions& options, Findings* findings)
{
    const std::string folder = options.data.empty() ? platform::GetDataDirectory() : options.data;
    CheckMusic(script, folder, findings);
    std::set<std::string> seen;
    bool anything = false;
    for (const ShownEntry& entry : show.entries) {
        const EffectRecord* const record = entry.kept ? FindRecord(entry.effect) : nullptr;
        anything = anything || entry.kept;
        if (!record)
            continue;
        for (const EffectFile& file : ListFiles(record->files))
            if (seen.insert(file.name).second)
                CheckFile(folder, file, entry.effect, entry.line, entry.column, findings);
    }
    if (anything)
        CheckFile(folder, {loadingPicture, TextureFile}, "the loading screen", 0, 0, findings);
}

} // namespace lint
