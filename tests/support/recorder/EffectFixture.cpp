// SPDX-License-Identifier: MIT
#include "tests/support/recorder/EffectFixture.h"

#include "display/RenderTarget.h"
#include "resources/TextureLoader.h"
#include "tests/Folders.h"
#include "tests/support/NullWindowSystem.h"
#include "tests/support/Patterns.h"

#include <filesystem>

static const int windowWidth = 800, windowHeight = 600;

static void InventPicture(const char* name)
{
    const std::string path = name;
    if (FileExists(path) || path.rfind(SOURCE_DIR "/Data/", 0) == 0) // nothing is added to the real ones
        return;
    const bool png = path.compare(path.size() - 4, 4, ".png") == 0;
    SavePicture(path, PlainPicture(1, 1, png ? 4 : 3, 255, 255, 255));
}

EffectFixture::EffectFixture()
{
    AddModelsAndShaders();
    gl::Reset(windowWidth, windowHeight);
    gl::InventPictures(InventPicture);
    UseNullWindows();
    gl::FollowNullWindows();
    if (!window.Create(windowWidth, windowHeight, 32, false))
        ADD_FAILURE() << "no window";
    gl::ClearRecords();
}

EffectFixture::~EffectFixture()
{
    // What the process keeps must not reach a test that runs in it later.
    if (TextureLoader* const loader = TextureLoader::GetInstance())
        loader->DeleteAll();
    RenderTarget::Destroy();
    gl::InventPictures(nullptr);
    gl::UnfollowNullWindows();
    platform::UseSdlWindows();
}

void EffectFixture::BeginRecords()
{
    gl::ClearRecords();
}

void EffectFixture::KeepRecords(bool keep)
{
    if (keep)
        gl::Resume();
    else
        gl::Pause();
}

std::vector<std::string> EffectFixture::TextureRequests()
{
    std::vector<std::string> requests;
    for (const gl::TextureObject& texture : gl::Textures()) {
        if (texture.label.empty())
            continue;
        requests.push_back(texture.label + (texture.builtByGlu ? " 1" : " 0") +
                           (texture.wrapS == GL_REPEAT && texture.wrapT == GL_REPEAT ? " 1" : " 0") +
                           (texture.minFilter == GL_LINEAR && texture.magFilter == GL_LINEAR ? " 1" : " 0"));
    }
    return requests;
}

std::vector<std::string> EffectFixture::ToldMissing(Effect* effect)
{
    gl::InventPictures(nullptr);
    for (const auto& entry : std::filesystem::directory_iterator(PathOf("")))
        std::filesystem::remove(entry.path());
    if (TextureLoader* const loader = TextureLoader::GetInstance())
        loader->DeleteAll();
    boxes.clear();
    Init(effect);

    std::vector<std::string> names;
    for (const auto& box : boxes) {
        const PatternMatch fileName = FindFirst(box.body, "[^/\\\\ \"]+\\.(jpg|png|txt|vp|fp)");
        names.push_back(fileName.empty() ? box.caption : fileName[0]);
    }
    return names;
}
