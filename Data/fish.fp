// SPDX-License-Identifier: CC-BY-4.0
// A wet skin under a cold light from above and a faint warm one from below, fins that the night is seen through, a fire
// in the tail as dry strokes of a brush, and the night behind it all.
#version 120

uniform sampler2D sampler0;
uniform float vtxColor; // brightness of the whole picture, 0 to 1
uniform float fTime0_X; // seconds

varying vec3 normal;
varying vec3 toEye;
varying vec3 toTail;
varying vec2 skinCoord;
varying vec3 sight;
varying vec3 hearth;
varying float seen;
varying float lit;
varying vec4 stroke;

// Which tile of the texture a face lies in says what it is made of.
varying float material;
const float flesh = 1.0;
const float bone = 2.0;
const float membrane = 3.0;
const float eyeball = 4.0;
const float fire = 5.0;
const float night = 6.0;

const vec3 coldLight = vec3(0.74, 0.86, 1.0);
const vec3 warmLight = vec3(0.94, 0.62, 0.30);
const vec3 fromAbove = vec3(-0.34, 0.66, 0.67);
const vec3 fromBelow = vec3(0.50, -0.78, 0.37);

const float toothGrain = 0.9;            // features in a pixel
const vec2 ropeDries = vec2(19.0, 50.0); // between these places behind the fish, units of the world
const float worldScale = 6.0;            // of the fish
const float farthest = 0.99999;          // depth of the night where no rope is
const float strokeSpeed = 8.5;           // of the tail, radians a second; see fish.vp
const float dimming = 0.5;               // the power of the brightness

bool is(float kind) { return abs(material - kind) < 0.5; }

float Shine(vec3 n, vec3 toLight, float through)
{
    float facing = dot(n, toLight);
    return max(facing, 0.0) + through * max(-facing, 0.0);
}

// Without any pattern: made of a place's column and row, which neighbours share.
vec2 Mixed(vec2 cell) { return 50.0 * fract(cell * 0.3183099 + vec2(0.71, 0.113)); }
float Hashed(float column, float row) { return fract(column * row * (column + row)); }

// A soft noise with features of about one unit.
float Tooth(vec2 place)
{
    vec2 cell = floor(place);
    vec2 part = place - cell;
    part = part * part * (3.0 - 2.0 * part);
    vec2 low = Mixed(cell);
    vec2 high = Mixed(cell + 1.0);
    return mix(mix(Hashed(low.x, low.y), Hashed(high.x, low.y), part.x),
               mix(Hashed(low.x, high.y), Hashed(high.x, high.y), part.x), part.y);
}

const vec3 zenith = vec3(0.020, 0.028, 0.070);
const vec3 nightBlue = vec3(0.105, 0.130, 0.250);
const vec3 mist = vec3(0.30, 0.34, 0.44);
const vec3 water = vec3(0.038, 0.052, 0.108);
const vec3 emberLight = vec3(0.62, 0.22, 0.05); // of the fire itself, where no tongue is drawn
const float emberSize = 0.43;                    // units of the mesh
const vec3 moonLight = vec3(0.80, 0.77, 0.68);
const vec3 moon = vec3(-0.576, 0.747, 0.333);      // over the way on which the fish comes and goes, length 1
const vec3 moonShade = vec3(-0.583, 0.752, 0.308); // middle of what the crescent is cut out with
const float moonRadius = 0.055;                    // radians
const float skyline = -0.13; // height of the horizon, as a sine

// Three noises serve all that is painted without a texture: the vapour of the sky, the waves of the sea or the bristles
// of the fire, whichever a place belongs to. Without a graphics card they are most of what a picture of this shader
// costs.
vec3 Noises(vec2 first, vec2 second, vec2 third) { return vec3(Tooth(first), Tooth(second), Tooth(third)); }

// 1 in this direction, falling off as a bell does over that width in radians, without its angle being needed.
float BellAround(vec3 way, vec3 direction, float width)
{
    return exp((dot(way, direction) - 1.0) * 2.0 / (width * width));
}

// A night over water, in washes: banks of cloud, a few stars, a skyline, and below it strokes of light on the waves.
// The fire is seen in the vapour around it and in the water below.
vec3 Night(vec3 way, float height, vec2 field, vec3 noise)
{
    vec2 tooth = Mixed(floor(0.52 * gl_FragCoord.xy)); // of the paper
    float grain = Hashed(tooth.x, tooth.y);
    float up = max(height, 0.0);
    float down = max(-height, 0.0);
    vec3 toFire = normalize(hearth);

    float vapour = dot(noise, vec3(0.55, 0.30, 0.15));
    float bank = smoothstep(0.40, 0.72, vapour);
    float rim = bank * (1.0 - smoothstep(0.55, 0.75, vapour)); // pigment pools at the edge of a wash
    vec3 sky = mix(nightBlue, zenith, smoothstep(0.0, 0.62, up));
    sky = mix(sky, 0.62 * mist, (0.60 * bank - 0.25 * rim) * (1.0 - 0.60 * smoothstep(0.0, 0.7, up)));

    // A thin moon, its dark side a breath lighter than the sky, with a halo in the vapour.
    float disc = 1.0 - smoothstep(moonRadius - 0.0015, moonRadius + 0.0015, length(way - moon));
    float lune = disc * smoothstep(moonRadius - 0.006, moonRadius + 0.006, length(way - moonShade));
    float veil = lit * (1.0 - 0.55 * bank);
    sky += disc * vec3(0.030, 0.035, 0.055) * veil;
    sky = mix(sky, moonLight * (0.80 + 0.30 * noise.z), lune * veil);
    sky += vec3(0.105, 0.110, 0.125) * BellAround(way, moon, 0.135) * lit * (0.35 + 0.9 * vapour);

    vec2 cell = floor(field);
    vec2 key = Mixed(cell);
    float chance = Hashed(key.x, key.y);
    vec2 spot = field - cell - 0.25 - 0.5 * vec2(fract(17.0 * chance), fract(59.0 * chance));
    float star = step(0.90, chance) * (1.0 - smoothstep(0.0, 0.085, length(spot))) * fract(113.0 * chance);
    sky += star * (1.0 - bank) * (1.0 - disc) * smoothstep(0.02, 0.25, up) * vec3(0.62, 0.66, 0.70);

    // The waves: lines of a pen that lie level, broken, and too fine to be told apart towards the skyline.
    float wave = 0.66 * noise.x + 0.34 * noise.y;
    float broken = noise.z;
    float contour = abs(fract(3.0 * wave + 0.3) - 0.5);
    float crest = (1.0 - smoothstep(0.05 * broken, 0.02 + 0.20 * broken, contour)) * smoothstep(0.34, 0.62, broken);
    crest = mix(0.20, crest, smoothstep(0.012, 0.051, down)) * smoothstep(0.0, 0.012, down);
    crest *= 0.30 + 0.70 * smoothstep(0.0, 0.35, crest + 0.9 * grain - 0.55); // the brush is dry
    float apart = dot(way.xz, hearth.xz) / max(length(way.xz) * length(hearth.xz), 1e-6); // cosine, as on a map
    float path = exp((apart - 1.0) * 68.0);
    vec3 sea = mix(nightBlue * 0.85, water, smoothstep(0.0, 0.13, down)) * (0.8 + 0.4 * wave);
    sea += crest * (0.26 * mist + 0.62 * warmLight * path * (1.0 - smoothstep(0.05, 0.42, down)));

    vec3 scene = mix(sea, sky, smoothstep(-0.0015, 0.0015, height));
    scene += emberLight * BellAround(way, toFire, emberSize / length(hearth));
    scene += vec3(0.16, 0.075, 0.022) * BellAround(way, toFire, 0.33) * (0.55 + 0.75 * vapour);
    scene *= 0.95 + 0.10 * grain;
    return seen * scene;
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
    float cover = 1.0;   // of what lies behind
    if (is(flesh)) {
        colour = mix(vec3(0.34, 0.10, 0.07), vec3(0.05, 0.01, 0.02), skinCoord.s - flesh);
        wet = 0.12;
    } else if (is(bone)) {
        colour = vec3(0.94, 0.90, 0.82) * (0.5 + 0.5 * skinCoord.t);
        wet = 0.4;
    } else if (is(membrane)) {
        // No scales here: the skin's colours spread wide. A spine stands at every tenth of the tile, bone-pale between
        // two strokes of ink; finer rays fork in the gaps. The membrane thins out to its edge, where the night shows
        // through it, has spots, and at its root lies the body's shadow.
        float reach = skinCoord.t; // 0 at the body
        float between = abs(fract(10.0 * skinCoord.s + 0.5) - 0.5); // 0 on a spine, 0.5 in the middle of a gap
        float thin = 1.0 - 0.55 * reach;
        float spine = 1.0 - smoothstep(0.05 * thin, 0.10 * thin, between);
        float ink = (1.0 - smoothstep(0.12 * thin, 0.22 * thin, between)) * (1.0 - spine);
        float fork = abs(between - 0.5 + 0.22 * smoothstep(0.35, 1.0, reach));
        float ray = (1.0 - smoothstep(0.03, 0.07, fork)) * smoothstep(0.12, 0.5, reach);
        float edge = smoothstep(0.72, 0.93, reach + 0.03 * sin(61.0 * skinCoord.s));
        vec3 skin = texture2D(sampler0, 0.15 * skinCoord).rgb;
        colour = mix(mix(skin, vec3(0.78, 0.46, 0.17), 0.65) * (1.25 - 0.45 * reach), vec3(0.09, 0.06, 0.07),
                     max(0.8 * ink, 0.6 * ray));
        colour = mix(colour, vec3(0.86, 0.72, 0.50) * (1.0 - 0.4 * reach), 0.85 * spine);
        colour *= 0.35 + 0.65 * smoothstep(0.04, 0.26, reach);
        float spot = sin(24.0 * reach + 3.0 * sin(29.0 * skinCoord.s)) * sin(71.0 * skinCoord.s + 6.0 * reach);
        colour *= 1.0 - 0.42 * smoothstep(0.15, 0.75, spot) * (1.0 - spine);
        through = 0.9 * (1.0 - 0.5 * max(spine, ink));
        wet = 0.2;
        cover = mix(1.0, 0.66 + 0.34 * max(spine, max(ink, ray)), smoothstep(0.15, 0.6, reach)) * (1.0 - edge);
    } else if (is(eyeball)) {
        gloss = 160.0;
        wet = 1.0;
    }

    vec3 above = normalize(fromAbove);
    float cold = Shine(n, above, through);
    float warm = Shine(n, normalize(fromBelow), through);
    float glow = Shine(n, normalize(toTail), through);
    float shine = pow(max(dot(n, normalize(above + view)), 0.0), gloss);
    float rim = pow(1.0 - max(dot(n, view), 0.0), 2.5);

    vec3 light = colour * (0.18 + 1.30 * cold * coldLight + 0.5 * warm * warmLight + 1.2 * glow * warmLight);
    light += wet * (shine * coldLight + rim * (0.55 * coldLight + 0.5 * glow * warmLight));

    light += 0.55 * through * colour; // what shines through a fin from all sides

    vec3 way = normalize(sight);
    vec3 level = vec3(-gl_ModelViewMatrix[0].z, 0.0, -gl_ModelViewMatrix[2].z);
    vec3 ahead = level / max(length(level), 1e-6); // none where one looks straight up or down
    float height = way.y - skyline * dot(way, ahead);
    vec2 field = vec2(1.6 * way.x / max(0.6 + way.z, 0.2), height); // of the sky, as seen from where it is flown over
    float up = max(height, 0.0);
    vec2 drift = vec2(2.6 * field.x + 0.02 * fTime0_X, 11.0 * up / (0.35 + up));
    // They pass away below, as the fish flies.
    float near = 0.55 / (max(-height, 0.0) + 0.004);
    vec2 swell = near * vec2(dot(way, vec3(ahead.z, 0.0, -ahead.x)), 1.0) + vec2(0.0, -4.0 * fTime0_X);
    float hair = 8.0 * stroke.x + 29.0 * stroke.z;
    bool burns = is(fire);
    bool isSea = height < 0.0;
    vec3 noise = Noises(burns ? vec2(3.0 * stroke.x + 13.0 * stroke.z, 2.0 * stroke.y)
                              : isSea ? vec2(0.20, 0.95) * swell : drift + 3.7,
                        burns ? vec2(hair, 0.8 * stroke.y) : isSea ? vec2(0.55, 2.4) * swell + 7.3 : 2.3 * drift,
                        burns ? vec2(0.6 * hair, 3.0 * stroke.y)
                              : isSea ? vec2(0.45, 1.7) * swell + 5.0 : vec2(4.0, 7.0) * drift);
    vec3 behind = Night(way, height, 34.0 * field, noise);
    if (burns) {
        // Bristles: each carries paint for its own way, and runs dry towards the tip and the sides.
        float along = stroke.y;
        float side = abs(stroke.x);
        float flow = 7.0 * along - 1.5 * strokeSpeed * fTime0_X + 9.0 * noise.z;
        float bristle = 0.40 * noise.x + 0.40 * noise.y + 0.20 * (0.5 + 0.5 * sin(flow));
        float load = 1.25 - 1.0 * along - 0.5 * smoothstep(0.7, 0.95, along) - 0.75 * side * side;
        cover = smoothstep(0.0, 0.45, load - bristle) * smoothstep(0.0, 0.05, along) * smoothstep(0.1, 0.6, stroke.w);
        float heat = clamp(1.5 * (load - bristle) - 0.25 * along, 0.0, 1.0);
        light = mix(vec3(0.86, 0.27, 0.04), vec3(1.10, 0.62, 0.15), smoothstep(0.0, 0.5, heat));
        light = mix(light, vec3(1.25, 1.0, 0.52), smoothstep(0.45, 1.0, heat));
        behind = vec3(0.50, 0.15, 0.03) * (1.0 - 0.6 * along) + 0.6 * nightBlue;
    }
    gl_FragDepth = gl_FragCoord.z;
    if (is(night)) {
        // The rope of light comes after this, and runs dry on the paper: towards its end the night lies before it, in
        // ever more grains of the tooth.
        cover = 0.0;
        vec2 grain = Mixed(floor(toothGrain * gl_FragCoord.xy) + 17.0);
        float link = mix(ropeDries.x, ropeDries.y, sqrt(Hashed(grain.x, grain.y)));
        float depth = gl_ModelViewMatrix[3].z + link / worldScale * gl_ModelViewMatrix[2].z;
        vec2 clip = gl_ProjectionMatrix[2].zw * depth + gl_ProjectionMatrix[3].zw;
        bool ropeAhead = gl_ModelViewMatrix[2].z < 0.0 && depth < 0.0;
        gl_FragDepth = ropeAhead ? clamp(0.5 + 0.5 * clip.x / clip.y, 0.0, farthest) : farthest;
    } else if (cover < (is(fire) ? 0.30 : 0.12))
        discard;
    light = mix(behind, light, cover);
    // In the dark it still glimmers: the fish that is in your face for half a second is seen while it goes.
    gl_FragColor = vec4(light * pow(vtxColor, dimming), 1.0);
}
