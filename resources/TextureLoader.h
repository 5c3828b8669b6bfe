// SPDX-License-Identifier: MIT
// The one place where a picture file becomes a texture, with a cache by name.
//
// In Init an effect asks
//
//     TextureLoader* loader = TextureLoader::GetInstance();
//     skyTexture = RequestTexture(loader, "himmelarsch.jpg", true, true, true);
//
// and keeps the Texture* for the whole run. Asking again for a name gives the same object, so an Init that
// runs once for every timeline entry touches the disk only the first time. Main thread, context current.
//
// Every failure is a box under "Texture Loader" and a posted quit.
#pragma once

#include "resources/ImageData.h"
#include "resources/Texture.h"

#include <list>
#include <string>

// A row of the cache.
struct TextureEntry {
    std::string name; // as the effect gave it, without the directory
    Texture* texture;
};

class TextureLoader
{
public:
    // The one loader, made at the first call. Null, after a report, while the image library is too old.
    static TextureLoader* GetInstance();

    // The texture of a bare file name ("stoned.jpg"), from the cache or newly made; null if the file can't
    // be had, and then the next request tries again and reports again. Names are compared exactly, case
    // and all.
    //   mipmap  true: sides are scaled to powers of two and a chain of levels is built, which the filters
    //           never sample; false: level 0 alone, sides as they are
    //   repeat  true: GL_REPEAT; false: GL_CLAMP_TO_EDGE
    //   linear  true: GL_LINEAR; false: GL_NEAREST
    // Whoever asks first for a name settles the three for all who ask later.
    Texture* GetTexture(std::string name, bool mipmap, bool repeat, bool linear);

    // The miss path of GetTexture, not called from outside.
    Texture* CreateTexture(std::string name, bool mipmap, bool repeat, bool linear);

    // Enters an all-zero RGBA texture under a name, linear and repeating. The cache is not searched first:
    // where the name is taken, the new entry stands after the old one and is never found. Always true.
    bool CreateBlankTexture(int width, int height, std::string name);

    // The end of the run: shuts the image library down and deletes the GL textures, harmless without a
    // context. The Texture objects stay where effects can point at them.
    void Shutdown();
    void DeleteAll(); // the half of it that is about the cache

    // Decoders. A picture of 4 bytes a pixel keeps its alpha and has 4 components, every other has 3.
    // data always holds at least what an upload reads (width * height * components bytes); for a palette
    // or 16 bits a channel the bytes mean what the image library means by them. A path may name the data
    // directory in any spelling; reports show where the file really lies.
    ImageData LoadImage(std::string name);     // a bare name of at least 5 characters, in the data directory
    ImageData LoadImageFile(std::string path); // any format of the image library, whatever the extension
    ImageData LoadJpegFile(std::string path);  // the same, but always called 3 components
    ImageData LoadDibFile(std::string path);   // a Windows bitmap, see resources/DibReader.h

    // A Windows bitmap among the embedded files, 3 bytes a pixel in a buffer of 4. Nothing is reported.
    ImageData LoadBitmapResource(const char* name);

    ImageData MakeBlankImage(int width, int height); // all-zero RGBA; a negative side makes it empty

private:
    ImageData Decode(std::string path, std::string complaint, bool keepAlpha);
    void AddEntry(std::string name, Texture* texture);

    static TextureLoader* instance;

    std::list<TextureEntry*> entries; // owned, in order of insertion
};

// loader->GetTexture, or null where there is no loader: what effects call, since they don't test the
// pointer that GetInstance gave them.
Texture* RequestTexture(TextureLoader* loader, std::string name, bool mipmap, bool repeat, bool linear);
