// SPDX-License-Identifier: CC-BY-4.0
// A wet skin under a cold light from above and a faint warm one from below.
#version 120

uniform sampler2D sampler0;
uniform float vtxColor; // brightness of the whole fish, 0 to 1

varying vec3 normal;
varying vec3 toEye;
varying vec3 toTail;
varying vec2 skinCoord;

// Which tile of the texture a face lies in says what it is made of.
varying float material;
const float flesh = 1.0;
const float bone = 2.0;
const float membrane = 3.0;
const float eyeball = 4.0;

const vec3 coldLight = vec3(0.74, 0.86, 1.0);
const vec3 warmLight = vec3(0.94, 0.62, 0.30);
const vec3 fromAbove = vec3(-0.34, 0.66, 0.67);
const vec3 fromBelow = vec3(0.50, -0.78, 0.37);

const float dimming = 0.5; // the power of the brightness

bool is(float kind) { return abs(material - kind) < 0.5; }

float lit(vec3 n, vec3 toLight, float through)
{
    float facing = dot(n, toLight);
    return max(facing, 0.0) + through * max(-facing, 0.0);
}

void main()
{
    vec3 view = normalize(toEye);
    vec3 n = normalize(normal);
    if (dot(n, view) < 0.0)
        n = -n;

    vec3 colour = texture2D(sampler0, skinCoord).rgb;
    float gloss = 42.0;
    float wet = 0.25 + 0.7 * dot(colour, vec3(0.30, 0.59, 0.11)); // how much it mirrors: scales, not gaps
    float through = 0.0; // of the light from the other side
    if (is(flesh)) {
        colour = mix(vec3(0.34, 0.10, 0.07), vec3(0.05, 0.01, 0.02), skinCoord.s - flesh);
        wet = 0.12;
    } else if (is(bone)) {
        colour = vec3(0.94, 0.90, 0.82) * (0.5 + 0.5 * skinCoord.t);
        wet = 0.4;
    } else if (is(membrane)) {
        // No scales here: the skin's colours spread wide. A spine stands at every tenth of the tile, bone-pale between
        // two strokes of ink; finer rays fork in the gaps; the edge is drawn in ink, as a pen would end it.
        float reach = skinCoord.t; // 0 at the body
        float between = abs(fract(10.0 * skinCoord.s + 0.5) - 0.5); // 0 on a spine, 0.5 in the middle of a gap
        float thin = 1.0 - 0.55 * reach;
        float spine = 1.0 - smoothstep(0.05 * thin, 0.10 * thin, between);
        float ink = (1.0 - smoothstep(0.12 * thin, 0.22 * thin, between)) * (1.0 - spine);
        float fork = abs(between - 0.5 + 0.22 * smoothstep(0.35, 1.0, reach));
        float ray = (1.0 - smoothstep(0.03, 0.07, fork)) * smoothstep(0.12, 0.5, reach);
        float edge = smoothstep(0.85, 0.91, reach + 0.03 * sin(61.0 * skinCoord.s));
        vec3 skin = texture2D(sampler0, 0.15 * skinCoord).rgb;
        colour = mix(mix(skin, vec3(0.78, 0.46, 0.17), 0.65) * (1.25 - 0.55 * reach), vec3(0.09, 0.06, 0.07),
                     max(max(0.8 * ink, 0.6 * ray), 0.85 * edge));
        colour = mix(colour, vec3(0.86, 0.72, 0.50) * (1.0 - 0.5 * reach), 0.85 * spine * (1.0 - edge));
        through = 0.9 * (1.0 - 0.5 * max(spine, max(ink, edge)));
        wet = 0.2;
    } else if (is(eyeball)) {
        gloss = 160.0;
        wet = 1.0;
    }

    vec3 above = normalize(fromAbove);
    float cold = lit(n, above, through);
    float warm = lit(n, normalize(fromBelow), through);
    float glow = lit(n, normalize(toTail), through);
    float shine = pow(max(dot(n, normalize(above + view)), 0.0), gloss);
    float rim = pow(1.0 - max(dot(n, view), 0.0), 2.5);

    vec3 light = colour * (0.18 + 1.30 * cold * coldLight + 0.5 * warm * warmLight + 1.2 * glow * warmLight);
    light += wet * (shine * coldLight + rim * (0.55 * coldLight + 0.5 * glow * warmLight));
    // In the dark it still glimmers: the fish that is in your face for half a second is seen while it goes.
    gl_FragColor = vec4(light * pow(vtxColor, dimming), 1.0);
}
