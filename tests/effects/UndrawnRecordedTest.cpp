// SPDX-License-Identifier: MIT
// An undrawn frame of an effect does to GL's state what a drawn one does, but for the current normal and
// texture coordinate: what a later frame or another effect finds is the same (platform/Drawing.h).
#include "kernel/EffectRegistry.h"
#include "kernel/Production.h"
#include "platform/Drawing.h"
#include "tests/support/recorder/EffectFixture.h"

struct Remains {
    gl::State state;
    gl::Matrix modelview, projection;
    gl::Colour colour;
    GLenum matrixMode;
    int depth;
    int context;
};

class UndrawnFrames : public EffectFixture
{
protected:
    ~UndrawnFrames() override { platform::SetDrawing(true); }

    // One frame of length 0, so that it can be repeated.
    Remains Remain(Effect* effect, bool drawn)
    {
        StartTimer(FrameTimer::GetTime());
        platform::SetDrawing(drawn);
        Frame(effect);
        platform::SetDrawing(true);
        return {gl::Now(),           gl::Modelview(),  gl::Projection(),
                gl::CurrentColour(), gl::MatrixMode(), gl::StackDepth(GL_MODELVIEW),
                gl::GetContext()};
    }
    void ExpectSame(const Remains& a, const Remains& b)
    {
        EXPECT_EQ(a.state.enabled, b.state.enabled);
        EXPECT_EQ(a.state.blendSource, b.state.blendSource);
        EXPECT_EQ(a.state.blendDestination, b.state.blendDestination);
        EXPECT_EQ(a.state.depthWrites, b.state.depthWrites);
        EXPECT_EQ(a.state.pointSize, b.state.pointSize);
        EXPECT_EQ(a.state.shadeModel, b.state.shadeModel);
        EXPECT_EQ(a.state.activeUnit, b.state.activeUnit);
        EXPECT_EQ(a.state.program, b.state.program);
        EXPECT_EQ(a.state.viewport.y, b.state.viewport.y);
        EXPECT_EQ(a.state.viewport.height, b.state.viewport.height);
        for (int unit = 0; unit < 2; unit++) {
            EXPECT_EQ(a.state.units[unit].texture2D, b.state.units[unit].texture2D);
            EXPECT_EQ(a.state.units[unit].bound, b.state.units[unit].bound);
        }
        for (int light = 0; light < 2; light++) {
            EXPECT_EQ(a.state.lights[light].on, b.state.lights[light].on);
            EXPECT_TRUE(gl::IsPoint(a.state.lights[light].position, b.state.lights[light].position));
        }
        EXPECT_TRUE(gl::IsMatrix(a.modelview, b.modelview, 0));
        EXPECT_TRUE(gl::IsMatrix(a.projection, b.projection, 0));
        EXPECT_TRUE(gl::IsColour(a.colour, b.colour));
        EXPECT_EQ(a.matrixMode, b.matrixMode);
        EXPECT_EQ(a.depth, b.depth);
        EXPECT_EQ(a.context, b.context);
    }
};

TEST_F(UndrawnFrames, LeaveWhatDrawnFramesLeaveAndSendNoVertices)
{
    EffectRegistry registry;
    RegisterEffects(&registry);
    SynchMessageTable* const table = registry.GetMessageTable();
    int frames = 0;
    for (const RegisteredEffect& each : registry.effects) {
        SCOPED_TRACE(each.name);
        Effect* const effect = each.effect;
        Init(effect);
        std::vector<int> ids;
        for (const SynchMessageDeclaration& message : table->entries)
            if (message.owner == effect)
                ids.push_back(message.id);
        for (size_t n = 0; n <= 2 * ids.size() + 2; n++) {
            RunFor(effect, 0.75, 0.25);
            if (!ids.empty() && n > 0)
                effect->ReceiveMessage(ids[n % ids.size()], nullptr, 0);
            const Remains drawn = Remain(effect, true);
            const size_t draws = gl::Draws().size();
            const Remains undrawn = Remain(effect, false);
            EXPECT_TRUE(gl::Draws().empty()) << gl::Draws().size() << " of " << draws;
            const Remains again = Remain(effect, true);
            EXPECT_EQ(draws, gl::Draws().size());
            ExpectSame(drawn, undrawn);
            ExpectSame(drawn, again);
            frames++;
        }
    }
    EXPECT_GT(frames, 3 * int(registry.effects.size()));
}
