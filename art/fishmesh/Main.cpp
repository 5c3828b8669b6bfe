// SPDX-License-Identifier: MIT
// The program that models the fish. Run it from the root of the project.
#include "art/fishmesh/Fish.h"
#include "art/fishmesh/Mesh.h"

#include "tools/cli/CommandLine.h"

static const std::vector<cli::Option> options = {
    {"output", 'o', "FOLDER", "Write into FOLDER instead of Data."},
};

int main(int argc, char** argv)
{
    cli::CommandLine line("fishmesh", "Models the fish: writes fish.txt and fisheyes.txt.", "", options);
    if (!line.Read(argc, argv))
        return line.exitStatus;
    const std::string folder = line.Value("output", "Data");
    if (!fishmesh::WriteModelFile(fishmesh::MakeFish(), (folder + "/fish.txt").c_str()) ||
        !fishmesh::WriteModelFile(fishmesh::MakeEyes(), (folder + "/fisheyes.txt").c_str())) {
        line.Fail("can't write into " + folder);
        return 1;
    }
    return 0;
}
