// SPDX-License-Identifier: MIT
// The program that paints the pictures of the show. Run it from the root of the project.
#include "art/atelier/Commands.h"

#include <cstdio>
#include <cstring>

namespace
{

constexpr const char* Usage =
    "atelier NAME... [-o FOLDER]   paints the pictures of these names\n"
    "atelier --all [-o FOLDER]     paints all pictures\n"
    "atelier --group EFFECT [-o FOLDER]  paints the pictures of an effect\n"
    "atelier --sheet [OUT.png]     draws a contact sheet of the files, out/sheet.png\n"
    "atelier --scenes OUT.jpg FRAME...   draws a sheet of frames of the show\n"
    "atelier --verify [NAME...]    repaints and compares with the files\n"
    "atelier --list                lists all pictures\n"
    "Without -o pictures go to their places in the project.\n";

std::vector<const atelier::Picture*> All(const char* effect = nullptr)
{
    std::vector<const atelier::Picture*> pictures;
    for (const atelier::Group& group : atelier::AllGroups())
        if (effect == nullptr || std::strcmp(effect, group.effect) == 0)
            for (const atelier::Picture& picture : group.pictures)
                pictures.push_back(&picture);
    return pictures;
}

int List()
{
    for (const atelier::Group& group : atelier::AllGroups())
        for (const atelier::Picture& picture : group.pictures)
            std::printf("%-22s %4d x %4d  %d channels  %s\n", group.effect, picture.width, picture.height,
                        ChannelsOf(picture.format), picture.file);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    std::string command, folder;
    std::vector<std::string> names;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        if (word == "-o" && i + 1 < argc)
            folder = argv[++i];
        else if (word.starts_with("--") && command.empty())
            command = word;
        else if (word.starts_with("-"))
            return std::fputs(Usage, stderr), 2;
        else
            names.push_back(word);
    }
    if (command == "--list")
        return List();
    if (command == "--sheet")
        return atelier::DrawSheet(All(), names.empty() ? "out/sheet.png" : names[0]);
    if (command == "--scenes" && names.size() > 1)
        return atelier::DrawScenes({names.begin() + 1, names.end()}, names[0]);

    std::vector<const atelier::Picture*> pictures;
    if (command == "--all" || (command == "--verify" && names.empty()))
        pictures = All();
    else if (command == "--group" && names.size() == 1)
        pictures = All(names[0].c_str());
    else if (command.empty() || command == "--verify")
        for (const std::string& name : names) {
            pictures.push_back(atelier::FindPicture(name));
            if (pictures.back() == nullptr) {
                std::fprintf(stderr, "atelier: there is no picture %s\n", name.c_str());
                return 2;
            }
        }
    if (pictures.empty())
        return std::fputs(Usage, stderr), 2;
    return command == "--verify" ? atelier::VerifyFiles(pictures) : atelier::PaintFiles(pictures, folder);
}
