// SPDX-License-Identifier: MIT
// The fixture for recorded tests of effects: StageFixture (read that first) with a window of 800 by 600 on
// the null window system whose GL is the recorder. See GLRecorder.h for a whole example.
//
// The data directory is invented: a picture that an effect asks for and that the test didn't add is made on
// the spot, 1 by 1 and white, ".png" with alpha; the production's shaders and models are there as the
// shortest files of their kind. Textures bear their file's name in the records:
// gl::DrawsWithTexture("foto.png").
//
// A test that follows the show frame by frame
//
//     Prepare(&effect);
//     Frame(&effect);                      // t = 0: Render alone, recorded
//     RunFor(&effect, 2.0, 1.0 / 64);      // 128 frames of Render and Update, unrecorded
//     Frame(&effect);                      // t = 2
//
// A test that wants one moment sets it: effect.SetLocalTime(2), PassTime(0.25) for GetDelta, effect.Update().
#pragma once

#include "tests/support/StageFixture.h"
#include "tests/support/recorder/GLExpect.h"
#include "tests/support/recorder/GLRecorder.h"

class EffectFixture : public StageFixture
{
protected:
    EffectFixture();
    ~EffectFixture() override;

    // "name mipmap repeat linear" for each texture made from a picture, in order of their making: the flags
    // read off what was sent to GL. "foto.png 1 1 1".
    static std::vector<std::string> TextureRequests();

    // Init in an empty data directory, which stays empty. Each box that it showed, as the bare name of the
    // file that it is about, or as its caption where it names none. "foto.png".
    std::vector<std::string> ToldMissing(Effect* effect);

private:
    void BeginRecords() override;
    void KeepRecords(bool keep) override;
};
