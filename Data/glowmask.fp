// SPDX-License-Identifier: CC-BY-4.0
#version 110
// A warm light runs through a painting. The mask draws its ways and says when it passes where: black is never
// lit, and from dark grey to white the light arrives later and later. delta is the time, two seconds each 1:
// at 0 and below the painting is plain. Wave follows wave for as long as delta grows; what they have touched
// goes on glimmering, and the rest of the painting sinks a little into the dusk.

uniform sampler2D sampler0; // the painting
uniform sampler2D sampler1; // the mask
uniform float delta;

const vec3 amber = vec3(0.94, 0.69, 0.31);
const vec3 bone = vec3(0.94, 0.90, 0.84);
const vec3 dusk = vec3(0.86, 0.68, 0.46); // what the unlit painting is seen through: a sun that goes down

const float speed = 0.5;       // of the light, masks each delta
const float spacing = 1.35;    // from wave to wave, in masks
const float glimmer = 0.18;    // what stays where light has been
const float haloReach = 0.013; // in texture coordinates; ways may be twice as wide
const int haloTaps = 16;
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

float MaskAt(vec2 place) { return texture2D(sampler1, clamp(place, border, 1.0 - border)).r; }

void main()
{
    vec2 place = gl_TexCoord[0].st;
    vec4 painting = texture2D(sampler0, place);
    if (delta <= 0.0) {
        gl_FragColor = painting * gl_Color;
        return;
    }

    // The ways are soft at their edges, which must not be taken for earlier times: the time is a mean of the
    // surroundings in which the brightest count for nearly all. The taps lie like the seeds of a sunflower.
    float centre = MaskAt(place);
    float sum = 0.0;
    float power = centre * centre * centre * centre + 0.000001;
    float powers = power;
    float times = power * centre;
    vec2 direction = vec2(haloReach, 0.0);
    for (int i = 0; i < haloTaps; i++) {
        direction = vec2(-0.7373688 * direction.x - 0.6754902 * direction.y,
                         0.6754902 * direction.x - 0.7373688 * direction.y);
        float tap = MaskAt(place + direction * sqrt((float(i) + 0.5) / float(haloTaps)));
        power = tap * tap * tap * tap;
        sum += tap;
        powers += power;
        times += power * tap;
    }
    float time = times / powers;
    float drawn = smoothstep(0.05, 0.16, time); // neither the noise of a compressed black nor a rim
    float core = min(centre / max(time, 0.03), 1.0);
    float halo = min(sum / float(haloTaps) / max(time, 0.03), 1.0);

    float start = smoothstep(0.0, 1.0, delta); // out of the plain picture
    float light = LightAt(time) * drawn * (0.55 * core * core + 0.75 * halo) * start;
    vec3 colour = painting.rgb * mix(vec3(1.0), dusk, start);
    colour *= 1.0 + 1.25 * light * amber; // pigment that the light shines through
    vec3 glow = mix(amber, bone, 0.5 * min(light, 1.0) * core) * light * 0.6;
    colour += glow * (1.0 - clamp(colour, 0.0, 1.0)); // never to flat white
    gl_FragColor = vec4(colour, painting.a) * gl_Color;
}
