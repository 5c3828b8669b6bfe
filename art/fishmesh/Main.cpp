// SPDX-License-Identifier: MIT
// The program that models the fish. Run it from the root of the project.
#include "art/fishmesh/Fish.h"
#include "art/fishmesh/Mesh.h"

#include <cstdio>
#include <cstring>
#include <string>

static const char usage[] = "fishmesh [-o FOLDER]   writes fish.txt and fisheyes.txt, into Data without -o\n";

int main(int argc, char** argv)
{
    std::string folder = "Data";
    if (argc == 3 && strcmp(argv[1], "-o") == 0)
        folder = argv[2];
    else if (argc != 1)
        return fputs(usage, stderr), 2;

    if (!fishmesh::WriteModelFile(fishmesh::MakeFish(), (folder + "/fish.txt").c_str()) ||
        !fishmesh::WriteModelFile(fishmesh::MakeEyes(), (folder + "/fisheyes.txt").c_str())) {
        fprintf(stderr, "fishmesh: can't write into %s\n", folder.c_str());
        return 1;
    }
    return 0;
}
