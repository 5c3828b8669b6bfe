// SPDX-License-Identifier: CC-BY-4.0
#version 110
// A warm light runs through a painting. The mask draws its ways and says when it passes where: black is never
// lit, and from dark to bright the light arrives later and later. Its red has the ways themselves, its blue the
// time on them and around them, its green the mean of the ways around, which is their halo. A grey mask has no
// halo. Measuring the surroundings here would take seventeen reads a pixel. delta is the time, two seconds each 1:
// at 0 and below the painting is plain. Wave follows wave for as long as delta grows; what they have touched
// goes on glimmering, and the rest of the painting sinks a little into the dusk. Then it is night: a thin mist that
// lies over the village, so that what no light reaches is ink on paper and not a hole. Nothing else is seen where the
// village's ground and sky end, which fade into it.

uniform sampler2D sampler0; // the painting
uniform sampler2D sampler1; // the mask
uniform float delta;
varying vec2 onScreen;

const vec3 amber = vec3(0.94, 0.69, 0.31);
const vec3 bone = vec3(0.94, 0.90, 0.84);
const vec3 night = vec3(0.066, 0.080, 0.154); // the mist over black
const float mist = 0.156; // of it that hides what lies under it: the brightest part of the night, and a little
// It lies on the ground: so much of it is where it is thickest, a little below the middle of the screen, and so much high
// up, first on the way and then on the plaza, whose pillars would be washed out.
const float lowMist = 1.18, highOnWay = 0.80, highOnPlaza = 0.45, mistPlace = -0.30, mistSpread = 2.6;
const vec3 dusk = vec3(0.86, 0.68, 0.46); // what the unlit painting is seen through: a sun that goes down

const float speed = 0.5;       // of the light, masks each delta
const float spacing = 1.35;    // from wave to wave, in masks
const float glimmer = 0.18;    // what stays where light has been
const float nightFalls = 5.4;  // delta, from which the painting gives way to the night
const float fallen = 5.43;     // delta, from which that is all there is: a white flash hides so quick a change
// Hazes: where on the screen, how much of what lies under them they hide, and their colours.
const vec2 aspect = vec2(1.33, 1.0);
const vec2 moonPlace = vec2(0.22, 0.62), firePlace = vec2(0.0, -0.10);
const float moonHaze = 0.08, fireHaze = 0.12;
// As pure as can be: a haze hides little.
const vec3 moonLight = vec3(0.77, 0.82, 1.0), fireLight = vec3(1.0, 0.55, 0.24);
const float wayEnds = 12.6, fireBurns = 14.8; // delta
const float border = 0.00048828; // half a texel at 1024: the mask repeats, its halo must not

// How bright the light is on a way that it reaches at this time of the mask, 0 to about 1.
float LightAt(float time)
{
    float since = delta * speed - time; // since the first wave came by
    float touched = smoothstep(0.0, 0.08, since);
    float wave = mod(max(since, 0.0), spacing);
    float rise = smoothstep(0.0, 0.08, wave);
    float fall = 0.75 * exp(-7.0 * wave) + 0.35 * exp(-2.0 * wave);
    float end = 1.0 - smoothstep(spacing - 0.5, spacing, wave); // dark before the next one
    return touched * (1.3 * rise * fall * end + glimmer);
}

// A number for every point of a grid, 0 to 1.
float Grain(vec2 point)
{
    return fract(sin(dot(point, vec2(12.9898, 78.233))) * 43758.5453);
}

// Grain, drawn out softly between the points.
float Cloud(vec2 place)
{
    vec2 point = floor(place);
    vec2 part = smoothstep(0.0, 1.0, place - point);
    return mix(mix(Grain(point), Grain(point + vec2(1.0, 0.0)), part.x),
               mix(Grain(point + vec2(0.0, 1.0)), Grain(point + vec2(1.0, 1.0)), part.x), part.y);
}

// The paper under the night, its wash and the bristles that laid it on: about 1.
float Tooth(vec2 place)
{
    vec2 along = vec2(place.x * 0.77 + place.y * 0.64, place.y * 0.77 - place.x * 0.64);
    return 0.86 + 0.18 * Cloud(place * 0.021) + 0.12 * Cloud(along * vec2(0.03, 0.3));
}

// The night before the village: a thin mist. In it stands the haze of the moon, which is ahead on the way, and, once
// the way is done, that of the fire on the plaza, which the camera looks at then. What no light reaches is seen before
// these.
vec4 Night()
{
    vec2 byMoon = (onScreen - moonPlace) * aspect, byFire = (onScreen - firePlace) * aspect;
    float tooth = Tooth(gl_FragCoord.xy);
    float there = smoothstep(wayEnds, fireBurns, delta); // on the plaza
    float above = onScreen.y - mistPlace;
    float high = mix(highOnWay, highOnPlaza, there);
    float laid = tooth * mix(high, lowMist, exp(-mistSpread * above * above));
    float moon = 0.0, fire = 0.0; // hardly ever both
    if (there < 1.0)
        moon = tooth * moonHaze * (1.0 - there) * exp(-1.0 * dot(byMoon, byMoon));
    if (there > 0.0)
        fire = tooth * fireHaze * there * exp(-3.0 * dot(byFire, byFire));
    float thin = mist * laid + moon + fire;
    return vec4((night * laid + moonLight * moon + fireLight * fire) / thin, thin);
}

void main()
{
    if (delta >= fallen) {
        gl_FragColor = Night() * gl_Color;
        return;
    }
    vec2 place = gl_TexCoord[0].st;
    vec4 painting = texture2D(sampler0, place);
    vec3 mask = texture2D(sampler1, clamp(place, border, 1.0 - border)).rgb;
    float time = mask.b;
    float drawn = smoothstep(0.05, 0.16, time); // neither the noise of a compressed black nor a rim
    float core = min(mask.r / max(time, 0.03), 1.0);
    float halo = min(mask.g / max(time, 0.03), 1.0);

    float start = smoothstep(0.0, 1.0, delta); // out of the plain picture
    float light = LightAt(time) * drawn * (0.55 * core * core + 0.75 * halo) * start;
    vec3 colour = painting.rgb * mix(vec3(1.0), dusk, start);
    colour *= 1.0 + 1.25 * light * amber; // pigment that the light shines through
    vec3 glow = mix(amber, bone, 0.5 * min(light, 1.0) * core) * light * 0.6;
    colour += glow * (1.0 - clamp(colour, 0.0, 1.0)); // never to flat white
    vec4 lit = vec4(colour, painting.a);
    float fall = smoothstep(nightFalls, fallen, delta);
    if (fall > 0.0) { // the village is seen more and more: an opaque night between them would be a dark frame
        vec4 veil = Night();
        float alpha = mix(painting.a, veil.a, fall);
        lit = vec4(mix(colour * painting.a, veil.rgb * veil.a, fall) / alpha, alpha);
    }
    gl_FragColor = (delta > 0.0 ? lit : painting) * gl_Color;
}
