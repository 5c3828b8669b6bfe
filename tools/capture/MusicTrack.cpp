// SPDX-License-Identifier: MIT
#include "tools/capture/MusicTrack.h"

#include "platform/Paths.h"
#include "script/ScriptParser.h"

#include <algorithm>
#include <cstdio>

namespace capture
{

bool MusicTrack::Open(const std::string& script)
{
    // fmemopen of no bytes fails in some C libraries. An empty script has no music.
    FILE* const file =
        script.empty() ? nullptr : fmemopen(const_cast<char*>(script.data()), script.size(), "rb");
    if (!file)
        return true;
    ScriptParser parser;
    std::string stream = parser.ReadFiltered(file);
    fclose(file);
    while (!stream.empty()) {
        const BlockType type = parser.NextBlock(stream);
        const std::string body = parser.ReadBlockBody(stream);
        std::string name;
        if (type == BlockMusic)
            parser.GetValue(body, key::FileName, &name); // also without the final ;, as in the show
        if (name.empty())
            continue;
        const std::string path = platform::DataPath("Data\\" + name);
        std::unique_ptr<Decoder> decoder = OpenDecoder(path, Rate);
        if (!decoder) {
            error = "the music can't be opened: " + path;
            return false;
        }
        reader = std::make_unique<StereoReader>(std::move(decoder), Rate);
    }
    return true;
}

void MusicTrack::Seek(int64_t sample)
{
    if (reader)
        reader->Seek(sample);
}

void MusicTrack::Read(StereoFrame* frames, int count)
{
    int filled = 0;
    while (reader && filled < count && !reader->IsAtEnd())
        filled += reader->Read(frames + filled, count - filled);
    std::fill(frames + filled, frames + count, StereoFrame{0.0f, 0.0f});
    for (int i = 0; i < filled; i++) {
        frames[i].left = std::clamp(frames[i].left, -1.0f, 1.0f);
        frames[i].right = std::clamp(frames[i].right, -1.0f, 1.0f);
    }
}

} // namespace capture
