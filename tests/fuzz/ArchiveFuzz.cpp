// SPDX-License-Identifier: MIT
// Text archives: a mesh that is loaded and drawn, then every kind of record read from the same tokens.
#include "resources/Material.h"
#include "resources/Model.h"
#include "resources/TextArchive.h"
#include "tests/fuzz/FuzzInput.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const std::string path = WriteFuzzInput("mesh.txt", data, size);
    {
        Model model;
        LoadModel("data/mesh.txt", &model);
        if (model.faces.size() < 1000) // millions are made up for a count that is not kept
            DrawModel(&model);
    }
    TextArchiveReader archive(path);
    Material material;
    LightRecord light;
    TransformRecord transform;
    WeightsRecord weights;
    Quaternion quaternion = {};
    archive.ReadMaterial(&material);
    archive.ReadLight(&light);
    archive.ReadTransform(&transform);
    archive.ReadQuaternion(quaternion);
    archive.ReadWeights(&weights);
    archive.Close();
    return 0;
}
