// SPDX-License-Identifier: MIT
// The fixture of tests that need the engine round them, in every tier: a data directory of their own, the
// stepped clock, boxes and debug text collected, an empty event queue. Nothing of it outlives the test.
//
//     class Landing : public ShowFixture
//     {
//     };
//
//     TEST_F(Landing, AMissingPictureEndsTheRun)
//     {
//         AddPicture("there.jpg");                         // Data/there.jpg, 1 by 1
//         ...
//         EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes.at(0).caption);
//         EXPECT_TRUE(QuitWasPosted());
//     }
//
// Derive from tests/support/recorder/EffectFixture.h for effects, from tests/support/picture/PictureFixture.h
// for golden images.
#pragma once

#include "platform/dialogs/MessageBox.h"
#include "tests/support/PictureFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class ShowFixture : public testing::Test
{
protected:
    ShowFixture();
    ~ShowFixture() override;

    // ---- Files of the data directory, by bare name

    // A picture of one colour. ".png" gets 4 components, ".jpg" gets 3.
    void AddPicture(std::string name, int width = 1, int height = 1, unsigned char red = 255,
                    unsigned char green = 255, unsigned char blue = 255);
    void AddPicture(std::string name, const Picture& picture);
    void AddFile(std::string name, std::string content);
    std::string PathOf(std::string name) const;

    // The models and shaders that the effects of the production load, each as the shortest file of its kind:
    // one triangle, white, with the file's name in the first line of a shader.
    void AddModelsAndShaders();

    // The data of the production instead, the source tree's Data, and back again.
    void UseRealData();
    void UseOwnData();

    // ---- Time

    // Makes FrameTimer's clock new: GetTime is startSeconds, GetDelta is 0. The constructor did it for 0.
    void StartTimer(float startSeconds = 0);

    // Lets that much time pass and takes it as the frame's length: GetDelta gives it, GetTime has grown by
    // it. Single precision: steps that are multiples of 1/1024 come out exactly within the first hours.
    void PassTime(double seconds);

    // ---- Events

    bool QuitWasPosted(); // takes all events off the queue and tells whether a quit was among them

    std::vector<platform::MessageBox> boxes;
    std::string debugText;

private:
    std::string oldDirectory;
    std::string directory;
};
