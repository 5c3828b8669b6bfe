// SPDX-License-Identifier: MIT
// The program that paints the pictures of the show. Run it from the root of the project.
#include "art/atelier/Commands.h"
#include "tools/cli/CommandLine.h"

#include <cstdio>
#include <cstring>

static const std::vector<cli::Option> options = {
    {"all", 0, nullptr, "Paint all pictures."},
    {"group", 0, "EFFECT", "Paint the pictures of an effect."},
    {"output", 'o', "FOLDER", "Paint into FOLDER instead of the pictures' places in the project."},
    {"verify", 0, nullptr, "Repaint the pictures NAME, or all, and compare them with the files."},
    {"sheet", 0, nullptr, "Draw a contact sheet of the files, as the PNG file NAME or as out/sheet.png."},
    {"scenes", 0, "JPEG", "Draw a sheet of frames of the show, whose files are the NAMEs."},
    {"list", 0, nullptr, "List all pictures."},
};

static std::vector<const atelier::Picture*> All(const char* effect = nullptr)
{
    std::vector<const atelier::Picture*> pictures;
    for (const atelier::PictureGroup& group : atelier::AllGroups())
        if (effect == nullptr || std::strcmp(effect, group.effect) == 0)
            for (const atelier::Picture& picture : group.pictures)
                pictures.push_back(&picture);
    return pictures;
}

static int List()
{
    for (const atelier::PictureGroup& group : atelier::AllGroups())
        for (const atelier::Picture& picture : group.pictures)
            std::printf("%-22s %4d x %4d  %d channels  %s\n", group.effect, picture.width, picture.height,
                        ChannelsOf(picture.format), picture.file);
    return 0;
}

int main(int argc, char** argv)
{
    cli::CommandLine line("atelier", "Paints pictures of the show.", "[NAME...]", options);
    if (!line.Read(argc, argv))
        return line.exitStatus;
    const std::vector<std::string>& names = line.operands;
    if (line.Has("list"))
        return List();
    if (line.Has("sheet"))
        return atelier::DrawSheet(All(), names.empty() ? "out/sheet.png" : names[0]);
    if (line.Has("scenes") && !names.empty())
        return atelier::DrawScenes(names, line.Value("scenes"));

    std::vector<const atelier::Picture*> pictures;
    if (line.Has("group"))
        pictures = All(line.Value("group").c_str());
    else if (line.Has("all") || (line.Has("verify") && names.empty()))
        pictures = All();
    for (const std::string& name : names) {
        pictures.push_back(atelier::FindPicture(name));
        if (pictures.back() == nullptr)
            return line.Fail("there is no picture " + name);
    }
    if (pictures.empty())
        return line.Fail("nothing to do (--help tells more)");
    return line.Has("verify") ? atelier::VerifyFiles(pictures)
                              : atelier::PaintFiles(pictures, line.Value("output"));
}
