// SPDX-License-Identifier: CC-BY-4.0
#version 110
// A soft blur in one pass. blur_intensity is its strength: at 1 the picture runs together over a fiftieth of
// its side in every direction, at 0.25 it is as if seen without one's glasses, at 0 and below it is plain.
//
// The taps lie on a spiral, each turned on from the one before by the golden angle. That puts them evenly
// over a disc and no two of them in line. Their weight falls off like a bell from the middle outward. So
// that thin lines don't come out as bundles of thinner ones, every pixel starts its spiral elsewhere.

uniform sampler2D picture; // nobody sets it: unit 0
uniform float blur_intensity;

const int mostTaps = 40;
const float fewestTaps = 16.0;   // a small disc needs no more
const float tapsGained = 32.0;   // each strength
const float reach = 0.022;       // radius of the disc at strength 1, in texture coordinates
const float falloff = 1.8;       // exponent of the bell at the rim
const float border = 0.00048828; // half a texel at 1024: taps stay inside, as the wrap may repeat

const vec2 goldenTurn = vec2(-0.7373688, 0.6754902); // cosine and sine

void main()
{
    vec2 place = gl_TexCoord[0].st;
    if (blur_intensity <= 0.0) {
        gl_FragColor = texture2D(picture, place) * gl_Color;
        return;
    }

    float taps = min(fewestTaps + tapsGained * blur_intensity, float(mostTaps));
    float weightStep = exp(-falloff / taps);
    float radius = blur_intensity * reach;

    // a pattern in which neighbours differ as much as they can
    float turn = 6.2831853 * fract(52.9829189 * fract(dot(gl_FragCoord.xy, vec2(0.06711056, 0.00583715))));
    vec2 direction = vec2(cos(turn), sin(turn));
    float weight = 1.0;
    vec4 sum = vec4(0.0);
    float weights = 0.0;
    for (int i = 0; i < mostTaps; i++) {
        float left = taps - float(i); // below 1 for a last tap that is just coming in
        if (left <= 0.0)
            break;
        float share = weight * min(left, 1.0);
        vec2 tap = place + direction * (radius * sqrt((float(i) + 0.5) / taps));
        sum += texture2D(picture, clamp(tap, border, 1.0 - border)) * share;
        weights += share;
        weight *= weightStep;
        direction = vec2(direction.x * goldenTurn.x - direction.y * goldenTurn.y,
                         direction.x * goldenTurn.y + direction.y * goldenTurn.x);
    }
    gl_FragColor = sum / weights * gl_Color;
}
