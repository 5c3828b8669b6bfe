// SPDX-License-Identifier: MIT
#include "resources/TextureLoader.h"

#include "kernel/Report.h"
#include "platform/Events.h"
#include "resources/ImageFiles.h"

#include <IL/il.h>
#include <IL/ilu.h>

const int oldestImageLibrary = 167; // 1.6.7

TextureLoader* TextureLoader::instance = nullptr;

// The library has a third part for GL. It is not linked: it would pull a second window library into the
// process, whose symbols clash with those of the first. So the two that are there are asked.
static bool ImageLibraryIsRecent()
{
    return ilGetInteger(IL_VERSION_NUM) >= oldestImageLibrary &&
           iluGetInteger(ILU_VERSION_NUM) >= oldestImageLibrary;
}

TextureLoader* TextureLoader::GetInstance()
{
    if (instance)
        return instance;
    if (!ImageLibraryIsRecent()) {
        ReportError("Texture Loader", "Wrong DEVIL Version");
        platform::PostQuit(0);
        return nullptr;
    }
    ilInit();
    iluInit(); // before it iluErrorString has no table to look in
    GuardImageFiles();
    instance = new TextureLoader;
    return instance;
}

Texture* TextureLoader::GetTexture(std::string name, bool mipmap, bool repeat, bool linear)
{
    for (TextureEntry* entry : entries)
        if (entry->name == name)
            return entry->texture;
    return CreateTexture(name, mipmap, repeat, linear);
}

Texture* TextureLoader::CreateTexture(std::string name, bool mipmap, bool repeat, bool linear)
{
    ImageData image = LoadImage(name);
    if (!image.data)
        return nullptr;
    Texture* texture = new Texture;
    // Never a mipmap filter: the look of the show was made with level 0 alone.
    const int filter = linear ? GL_LINEAR : GL_NEAREST;
    const int wrap = repeat ? GL_REPEAT : GL_CLAMP_TO_EDGE;
    if (mipmap)
        texture->UploadMipmapped(&image, filter, filter, wrap, wrap);
    else
        texture->Upload(&image, filter, filter, wrap, wrap);
    FreeImage(&image);
    AddEntry(name, texture);
    return texture;
}

bool TextureLoader::CreateBlankTexture(int width, int height, std::string name)
{
    ImageData image = MakeBlankImage(width, height);
    Texture* texture = new Texture;
    texture->Upload(&image, GL_LINEAR, GL_LINEAR, GL_REPEAT, GL_REPEAT);
    FreeImage(&image);
    AddEntry(name, texture);
    return true;
}

void TextureLoader::AddEntry(std::string name, Texture* texture)
{
    entries.push_back(new TextureEntry{name, texture});
}

void TextureLoader::Shutdown()
{
    ilShutDown();
    DeleteAll();
}

void TextureLoader::DeleteAll()
{
    for (TextureEntry* entry : entries) {
        entry->texture->Delete();
        delete entry;
    }
    entries.clear();
}

Texture* RequestTexture(TextureLoader* loader, std::string name, bool mipmap, bool repeat, bool linear)
{
    return loader ? loader->GetTexture(name, mipmap, repeat, linear) : nullptr;
}
