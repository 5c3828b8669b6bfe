// SPDX-License-Identifier: MIT
#include "kernel/EffectRecord.h"

static void Append(std::span<const char* const> names, FileKind kind, std::vector<EffectFile>* list)
{
    for (const std::string path : names)
        list->push_back({path.substr(path.rfind('/') + 1), kind});
}

std::vector<EffectFile> ListFiles(const EffectFiles& files)
{
    std::vector<EffectFile> list;
    Append(files.textures, TextureFile, &list);
    Append(files.lights, TextureFile, &list);
    Append(files.models, ModelFile, &list);
    Append(files.programs, ProgramFile, &list);
    for (size_t i = 0; i < files.shaders.size(); i++)
        list.push_back({std::string(files.shaders[i]) + (i % 2 == 0 ? ".vp" : ".fp"), ShaderFile});
    return list;
}
