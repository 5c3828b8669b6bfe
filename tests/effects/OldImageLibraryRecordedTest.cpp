// SPDX-License-Identifier: MIT
// Every effect with an image library that is too old: there are no textures then. The quit that is posted ends the
// run only at the next pump of the window, so until then the effect gets messages and is drawn all the same.
#include "kernel/Production.h"

#include "tests/support/recorder/EffectFixture.h"

#include <IL/il.h>
#include <dlfcn.h>

#include <memory>
#include <ostream>

static bool isOld = false;

// This executable's definition wins over the library's.
extern "C" ILint ilGetInteger(ILenum mode)
{
    typedef ILint (*GetInteger)(ILenum);
    static const GetInteger real = reinterpret_cast<GetInteger>(dlsym(RTLD_NEXT, "ilGetInteger"));
    return isOld && mode == IL_VERSION_NUM ? 166 : real(mode);
}

static void PrintTo(const EffectRecord& row, std::ostream* out)
{
    *out << row.key;
}

class OldImageLibrary : public EffectFixture, public testing::WithParamInterface<EffectRecord>
{
protected:
    OldImageLibrary() { isOld = true; }
    ~OldImageLibrary() override { isOld = false; }
};

TEST_P(OldImageLibrary, IsToldOnceByAnEffectThatStillRuns)
{
    const std::unique_ptr<Effect> effect(GetParam().make());
    Prepare(effect.get());
    ASSERT_EQ(1u, boxes.size());
    EXPECT_EQ("Marlinex 1.5 Error: Texture Loader", boxes[0].caption);
    EXPECT_TRUE(QuitWasPosted());
    for (int round = 0; round < 8; round++) // through all pictures that follow each other
        for (const SynchMessageDeclaration& message : messages.entries) {
            Send(effect.get(), message.name);
            RunFor(effect.get(), 0.125, 1.0 / 16);
        }
    RunFor(effect.get(), 1, 1.0 / 16);
    EXPECT_EQ(1u, boxes.size());
}

INSTANTIATE_TEST_SUITE_P(Of, OldImageLibrary, testing::ValuesIn(ProductionEffects()),
                         [](const testing::TestParamInfo<EffectRecord>& row) { return row.param.key; });
