// SPDX-License-Identifier: MIT
// Each effect is played with every message that it knows, and the records tell how it lays its pictures: past their
// border, side by side with themselves, added up. What a shader makes of the coordinates is not in the records; the
// models are the fixture's single triangles, since those of the production keep more than places in the picture there.
#include "kernel/Production.h"
#include "tests/art/atelier/PaintedPicture.h"
#include "tests/support/recorder/EffectFixture.h"

#include <array>
#include <map>
#include <memory>
#include <ostream>

// How an effect lays a picture. Of each pair the first is along s, across the picture, the second along t, down it.
struct PictureUse {
    bool clamps = false;
    bool isAdded = false;
    bool goesPast[2] = {}; // coordinates below 0 or above 1
    bool meets[2] = {};    // the two opposite borders lie at one place
};

static void PrintTo(const EffectRecord& row, std::ostream* out)
{
    *out << row.key;
}

class PictureSeams : public EffectFixture, public testing::WithParamInterface<EffectRecord>
{
protected:
    using Place = std::array<long, 3>; // in thousandths of a unit of eye space

    // Takes what the frame drew with pictures into `uses`.
    void TakeFrame()
    {
        std::map<std::string, std::map<Place, std::vector<std::array<float, 2>>>> corners;
        for (const gl::Draw& draw : gl::Draws())
            for (int unit = 0; unit < gl::UnitCount; unit++) {
                const gl::TextureObject* const texture = gl::FindTexture(draw.Texture(unit));
                if (texture == nullptr || texture->label.empty())
                    continue;
                PictureUse& use = uses[texture->label];
                use.clamps |= texture->wrapS != GL_REPEAT;
                use.isAdded |=
                    draw.state->Enabled(GL_BLEND) && draw.state->blendDestination == GLenum(GL_ONE);
                for (const gl::Vertex& vertex : draw.vertices) {
                    const gl::Point& eye = vertex.eye;
                    const std::array<float, 2> at = {vertex.texCoord[unit].x, vertex.texCoord[unit].y};
                    auto& neighbours = corners[texture->label][{
                        std::lround(eye.x * 1000), std::lround(eye.y * 1000), std::lround(eye.z * 1000)}];
                    for (const int axis : {0, 1}) {
                        use.goesPast[axis] |= at[axis] < -tolerance || at[axis] > 1 + tolerance;
                        for (const std::array<float, 2>& other : neighbours)
                            use.meets[axis] |= std::abs(std::abs(at[axis] - other[axis]) - 1) < tolerance &&
                                               std::abs(at[1 - axis] - other[1 - axis]) < tolerance;
                    }
                    neighbours.push_back(at);
                }
            }
    }

    void Play(Effect* effect, int halfSeconds)
    {
        for (int i = 0; i < halfSeconds; i++) {
            RunFor(effect, 0.5, 1.0 / 16);
            Frame(effect);
            TakeFrame();
        }
    }

    const float tolerance = 1e-3f; // of coordinates that are computed
    std::map<std::string, PictureUse> uses;
};

TEST_P(PictureSeams, AreNotToBeSeenWhereTheEffectLaysAPictureBesideItself)
{
    const std::unique_ptr<Effect> effect(GetParam().make());
    Prepare(effect.get());
    for (const SynchMessageDeclaration& message : messages.entries) {
        Send(effect.get(), message.name);
        Play(effect.get(), 4);
    }
    Play(effect.get(), 40);

    const double most = 1.2; // times what neighbours inside the picture differ by
    for (const auto& [name, use] : uses) {
        const atelier::Raster picture = atelier::LoadPicture(name);
        ASSERT_FALSE(picture.bytes.empty()) << name;
        const std::string open = atelier::OpenSides(picture);
        for (const int axis : {0, 1}) {
            const bool isClear = open.find_first_of(axis == 0 ? "lr" : "tb") == std::string::npos;
            if (isClear || !(use.goesPast[axis] || use.meets[axis]))
                continue;
            EXPECT_FALSE(use.clamps && use.goesPast[axis])
                << name << " is clamped and drawn past its border, which is smeared on";
            if (axis == 0) {
                EXPECT_LE(atelier::BetweenColumns(picture, picture.width - 1, picture, 0),
                          most * atelier::InnerColumns(picture))
                    << name << " has a seam between its right border and its left";
            } else {
                EXPECT_LE(atelier::BetweenRows(picture, picture.height - 1, 0),
                          most * atelier::InnerRows(picture))
                    << name << " has a seam between its lower border and its upper";
            }
        }
    }

    const std::span<const char* const> lights = GetParam().files.lights;
    for (const auto& [name, use] : uses)
        if (use.isAdded && atelier::LoadPicture(name).channels == 3) {
            EXPECT_TRUE(std::find(lights.begin(), lights.end(), name) != lights.end())
                << name << " is added to what lies behind it: it belongs among the lights of "
                << GetParam().key << "::files, whose borders are held to be black";
        }
    for (const char* const name : GetParam().files.textures)
        if (atelier::LoadPicture(name).channels == 3) {
            EXPECT_TRUE(uses.count(name)) << name << " was not drawn, so that nothing is known of its seams";
        }
}

INSTANTIATE_TEST_SUITE_P(Of, PictureSeams, testing::ValuesIn(ProductionEffects()),
                         [](const testing::TestParamInfo<EffectRecord>& row) { return row.param.key; });
