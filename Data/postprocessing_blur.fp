// SPDX-License-Identifier: CC-BY-4.0
#version 110
// A soft blur in one pass, and the night that lies behind a scene. blur_intensity is the blur's strength: at 1
// the picture runs together over a fiftieth of its side in every direction, at 0.25 it is as if seen without
// one's glasses, at 0 and below there is none.
//
// The taps lie in rounds of four on a disc, the corners of a square, each round farther out than the one before
// and turned on from it by the golden section of a quarter. That puts them evenly over the disc, and since two
// of them always lie opposite each other, slopes come out without noise. Their weight falls off like a bell from
// the middle outward. So that thin lines don't come out as bundles of thinner ones, every pixel starts its rounds
// at an angle of its own.
//
// What this costs without a graphics card is the number of texture reads. The software rasteriser computes both
// sides of an if and throws one away; only a loop that is over for all pixels at hand is really left. So what few
// pixels need stands in loops.
//
// The night is for a scene that fills the screen, not for a picture that is blended over another one, which
// comes with an alpha of the vertices of one half at most. Where the scene's own alpha says that nothing was
// drawn, a sky rises from a line of mist over the land to ink; black that was drawn is lifted to ink on paper.

uniform sampler2D picture; // nobody sets it: unit 0
uniform float blur_intensity;

const float fewestRounds = 1.25; // a small disc needs no more
const float roundsGained = 7.0;  // each strength
const float mostRounds = 6.0;
const float reach = 0.022;       // radius of the disc at strength 1, in texture coordinates
const float falloff = 1.8;       // exponent of the bell at the rim
const float border = 0.00048828; // half a texel at 1024: taps stay inside, as the wrap may repeat

const vec2 goldenTurn = vec2(0.8253408, 0.5646349); // cosine and sine, of a quarter's golden section

const vec3 ink = vec3(0.051, 0.063, 0.125);
const vec3 night = vec3(0.106, 0.129, 0.251);
const vec3 mist = vec3(0.210, 0.260, 0.360); // of the land's far border, as it is drawn
const float nightFoot = 0.35;                // the sky is night here, in heights of the picture,
const float nightTop = 1.05;                 // and would be ink here
const float mistHeight = 0.16;               // to which the mist rises over the land
const float mistWidth = 0.10;                // to either side of what it rises from
const float mistTaps = 10.0;
const float toe = 0.85;                        // of the ink that lies under drawn black
const vec3 rimLight = vec3(0.26, 0.34, 0.44);  // on dark things before the sky
const vec2 rimStep = vec2(0.0026, 0.0010);     // towards the light; the rim is as thick
const float grain = 0.06;                      // of the paper, in parts of the light

float Hashed(vec2 cell) { return fract(52.9829189 * fract(dot(cell, vec2(0.06711056, 0.00583715)))); }

// A soft noise with features of about one unit.
float Tooth(vec2 place)
{
    vec2 cell = floor(place);
    vec2 part = fract(place);
    part = part * part * (3.0 - 2.0 * part);
    return mix(mix(Hashed(cell), Hashed(cell + vec2(1.0, 0.0)), part.x),
               mix(Hashed(cell + vec2(0.0, 1.0)), Hashed(cell + vec2(1.0, 1.0)), part.x), part.y);
}

float Drawn(vec2 place) { return texture2D(picture, clamp(place, border, 1.0 - border)).a; }

// The colour is already multiplied by the share of the pixel that is drawn.
vec3 Lifted(vec3 colour, float drawn) { return colour + toe * ink * (drawn - colour); }

// Mist lies where there is land close below. A pixel that the scene fills takes no taps.
vec3 Sky(vec2 place, float filled)
{
    float spread = Hashed(gl_FragCoord.xy);
    float taps = filled < 1.0 ? mistTaps : 0.0;
    float land = 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        float below = (i + spread) * (mistHeight / mistTaps);
        float aside = fract(0.618034 * i + spread) * (2.0 * mistWidth) - mistWidth;
        land += Drawn(place - vec2(aside, below));
    }
    land /= mistTaps;
    vec3 colour = mix(night, ink, smoothstep(nightFoot, nightTop, place.t));
    return mix(colour, Lifted(mist, 1.0), land * land);
}

// The scene as it is seen: with its night, or as it is under a lesser alpha.
vec4 Shown(vec4 scene, vec2 place)
{
    float own = smoothstep(0.5, 1.0, gl_Color.a);
    vec3 colour = Lifted(scene.rgb, scene.a);
    colour += (1.0 - scene.a) * Sky(place, own > 0.0 ? scene.a : 1.0);
    float dark = 1.0 - smoothstep(0.0, 0.2, max(scene.r, scene.b) / max(scene.a, 0.01));
    colour += dark * scene.a * (1.0 - Drawn(place + rimStep)) * rimLight;
    float tooth = Tooth(gl_FragCoord.xy * 0.9) + Tooth(gl_FragCoord.xy * 0.31) - 1.0;
    colour *= 1.0 + grain * tooth;
    return vec4(mix(scene.rgb, colour, own), mix(scene.a, 1.0, own)) * gl_Color;
}

vec4 Tap(vec2 place) { return texture2D(picture, clamp(place, border, 1.0 - border)); }

void main()
{
    vec2 place = gl_TexCoord[0].st;
    float strength = max(blur_intensity, 0.0);
    float rounds = strength > 0.0 ? min(fewestRounds + roundsGained * strength, mostRounds) : 0.0;
    float least = max(rounds, fewestRounds);
    float weightStep = exp(-falloff / least);
    float radius = strength * reach * inversesqrt(least);

    // a pattern in which neighbours differ as much as they can, as an angle of the first quarter
    float turn = Hashed(gl_FragCoord.xy);
    vec2 direction = normalize(vec2(1.0 - turn, turn));
    float weight = 1.0;
    vec4 sum = vec4(0.0);
    float weights = 0.0;
    for (float i = 0.0; i < rounds; i += 1.0) {
        float share = weight * min(rounds - i, 1.0); // below 1 for a last round that is just coming in
        vec2 away = direction * (radius * sqrt(i + 0.5));
        vec2 across = vec2(-away.y, away.x);
        sum += (Tap(place + away) + Tap(place - away) + Tap(place + across) + Tap(place - across)) * share;
        weights += 4.0 * share;
        weight *= weightStep;
        direction = vec2(direction.x * goldenTurn.x - direction.y * goldenTurn.y,
                         direction.x * goldenTurn.y + direction.y * goldenTurn.x);
    }
    vec4 scene = strength > 0.0 ? sum / weights : texture2D(picture, place);
    gl_FragColor = Shown(scene, place);
}
