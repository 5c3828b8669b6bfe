// SPDX-License-Identifier: MIT
// The decoders of TextureLoader, from files to pixels.
#include "resources/TextureLoader.h"
#include "resources/TextureLoaderHooks.h"

#include "kernel/Report.h"
#include "platform/EmbeddedFiles.h"
#include "platform/Events.h"
#include "platform/Paths.h"
#include "resources/DibReader.h"
#include "resources/ImageFiles.h"
#include "resources/PictureDecoder.h"

#include <IL/il.h>

#include <cstring>

const size_t maxBadNameLength = 4; // no room for a character, a dot and three letters

static PictureObserver pictureObserver = nullptr;

void ObservePictures(PictureObserver observer)
{
    pictureObserver = observer;
}

static void ReportUnusable(const std::string& text)
{
    ReportError("Texture Loader", text);
    platform::PostQuit(0);
}

ImageData TextureLoader::LoadImage(std::string name)
{
    if (name.size() <= maxBadNameLength) {
        ReportUnusable(name + ": Could Not Load Texture");
        return ImageData();
    }
    return LoadImageFile("data\\" + name);
}

ImageData TextureLoader::LoadImageFile(std::string path)
{
    return Decode(platform::ResolvePath(path), ": Could not load texture. \n", true);
}

ImageData TextureLoader::LoadJpegFile(std::string path)
{
    return Decode(platform::ResolvePath(path), ": Could not load jpg-texture. \n", false);
}

ImageData TextureLoader::Decode(std::string path, std::string complaint, bool keepAlpha)
{
    ImageData image;
    // The name is never given back: what was loaded stays with the library until it is shut down.
    ILuint name = 0;
    ilGenImages(1, &name);
    ilBindImage(name);
    if (pictureObserver)
        pictureObserver(path);
    const DecodedPicture picture = DecodePicture(path);
    if (!picture.pixels) {
        ReportUnusable(path + complaint + picture.complaint);
        return image;
    }
    image.data = picture.pixels;
    image.width = picture.width;
    image.height = picture.height;
    if (keepAlpha && picture.bytesPerPixel == 4)
        image.components = 4;
    return image;
}

ImageData TextureLoader::LoadDibFile(std::string path)
{
    const std::string place = platform::ResolvePath(path);
    const std::string bytes = ReadPictureFile(place);
    ImageData image;
    if (!ReadDib(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), &image))
        ReportUnusable(place + ": Could Not Load Texture");
    return image;
}

ImageData TextureLoader::LoadBitmapResource(const char* name)
{
    ImageData image;
    const unsigned char* bytes = nullptr;
    size_t size = 0;
    ImageData picture;
    if (!name || !platform::FindEmbeddedFile(name, &bytes, &size) || !ReadDib(bytes, size, &picture))
        return image;
    const size_t pixels = static_cast<size_t>(picture.width) * picture.height;
    image.width = picture.width;
    image.height = picture.height;
    // Room for 4 bytes a pixel, filled with 3: components stays what every loader starts with.
    image.data = AllocatePixels(pixels * 4);
    if (image.data)
        memcpy(image.data, picture.data, pixels * 3);
    FreeImage(&picture);
    return image;
}

ImageData TextureLoader::MakeBlankImage(int width, int height)
{
    ImageData image;
    image.width = width;
    image.height = height;
    image.components = 4;
    const size_t pixels = width > 0 && height > 0 ? static_cast<size_t>(width) * height : 0;
    image.data = AllocatePixels(pixels * 4);
    return image;
}
