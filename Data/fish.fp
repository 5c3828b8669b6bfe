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
varying float bare;
varying float against;

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
const vec3 seaLight = vec3(0.50, 0.49, 0.47); // from straight below
const vec3 fromBelow = vec3(0.50, -0.78, 0.37);

const float strokeSpeed = 8.5;           // of the tail, radians a second; see fish.vp

bool is(float kind) { return abs(material - kind) < 0.5; }

float Shine(vec3 n, vec3 toLight, float through)
{
    float facing = dot(n, toLight);
    return max(facing, 0.0) + through * max(-facing, 0.0);
}

// Without any pattern: made of a place's column and row, which neighbours share.
vec2 Mixed(vec2 cell) { return 50.0 * fract(cell * 0.3183099 + vec2(0.71, 0.113)); }
float Hashed(float column, float row) { return fract(column * row * (column + row)); }

// Swings between -1 and 1 with every turn, nearly as a sine does, which costs more.
float Swing(float turns)
{
    float part = abs(2.0 * fract(turns) - 1.0);
    return 1.0 - 2.0 * part * part * (3.0 - 2.0 * part);
}

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
const vec3 emberPath = vec3(0.80, 0.34, 0.06);  // on the water
const vec3 emberLight = vec3(0.62, 0.22, 0.05); // of the fire itself, where no tongue is drawn
const float emberSize = 0.43;                    // units of the mesh
const vec3 ballCore = vec3(1.10, 0.62, 0.20), ballSkirt = vec3(0.85, 0.30, 0.06); // of fire, where there is no rope
const vec2 ballSizes = vec2(0.35, 0.85);
const vec3 moonLight = vec3(0.80, 0.77, 0.68);
const vec3 moon = vec3(-0.576, 0.747, 0.333);      // over the way on which the fish comes and goes, length 1
const vec3 moonShade = vec3(-0.583, 0.752, 0.308); // middle of what the crescent is cut out with
const float moonRadius = 0.055;                    // radians
const float seaSpeed = 0.3;                        // doublings of the distance a second
const float skyline = -0.13;                       // height of the horizon, as a sine

// 1 in this direction, falling off as a bell does over that width in radians, without its angle being needed.
float BellAround(vec3 way, vec3 direction, float width)
{
    return exp((dot(way, direction) - 1.0) * 2.0 / (width * width));
}

// The sky: banks of cloud, a few stars, and a thin moon, its dark side a breath lighter than the sky, with a halo in
// the vapour.
vec3 Sky(vec3 way, vec2 field, float vapour)
{
    float up = max(field.y, 0.0);
    float bank = smoothstep(0.40, 0.72, vapour);
    float rim = bank * (1.0 - smoothstep(0.55, 0.75, vapour)); // pigment pools at the edge of a wash
    vec3 sky = mix(nightBlue, zenith, smoothstep(0.0, 0.62, up));
    sky = mix(sky, 0.62 * mist, (0.60 * bank - 0.25 * rim) * (1.0 - 0.60 * smoothstep(0.0, 0.7, up)));

    float disc = 1.0 - smoothstep(moonRadius - 0.0015, moonRadius + 0.0015, length(way - moon));
    float lune = disc * smoothstep(moonRadius - 0.006, moonRadius + 0.006, length(way - moonShade));
    float veil = lit * (1.0 - 0.55 * bank);
    sky += disc * vec3(0.008, 0.010, 0.016) * veil;
    sky = mix(sky, moonLight * (0.80 + 0.30 * vapour), lune * veil);
    sky += vec3(0.105, 0.110, 0.125) * BellAround(way, moon, 0.135) * lit * (0.35 + 0.9 * vapour);

    vec2 cell = floor(34.0 * field);
    vec2 key = Mixed(cell);
    float chance = Hashed(key.x, key.y);
    vec2 spot = 34.0 * field - cell - 0.25 - 0.5 * vec2(fract(17.0 * chance), fract(59.0 * chance));
    float point = 1.0 - smoothstep(0.0, 0.085, length(spot * vec2(1.0, 1.7)));
    float star = step(0.90, chance) * point * fract(113.0 * chance);
    return sky + star * (1.0 - bank) * (1.0 - disc) * smoothstep(0.02, 0.25, up) * vec3(0.62, 0.66, 0.70);
}

// The sea: short strokes of a pen that lie level, light ones for the crests and ink below them, too fine to be told
// apart towards the skyline. Below the fire they are orange and many, a broken path.
vec3 Sea(vec3 way, float down, float swell, float pen, float grain)
{
    float apart = dot(way.xz, hearth.xz) / max(length(way.xz) * length(hearth.xz), 1e-6); // cosine, as on a map
    float path = exp((apart - 1.0) * 60.0) * (1.0 - smoothstep(0.12, 0.50, down));
    float dry = 0.65 + 0.35 * smoothstep(0.2, 0.5, grain);
    float drawn = smoothstep(0.012, 0.045, down);
    float crest = dry * smoothstep(0.66, 0.74, pen) * smoothstep(0.30, 0.60, swell);
    crest = mix(0.25, crest, drawn) * smoothstep(0.0, 0.012, down);
    float spark = mix(0.45, dry * smoothstep(0.54, 0.66, pen), drawn);
    float ink = drawn * (1.0 - smoothstep(0.24, 0.34, pen));
    vec3 sea = mix(nightBlue * 0.85, water, smoothstep(0.0, 0.13, down)) * (0.75 + 0.5 * swell);
    sea *= 1.0 - 0.55 * ink * dry;
    return sea + crest * 0.24 * mist + path * mix(0.10 * emberLight, emberPath, spark);
}

// A night over water, in washes. The fire is seen in the vapour around it and in the water below.
vec3 Night(vec3 way, vec2 field, vec2 noise)
{
    vec2 tooth = Mixed(floor(0.52 * gl_FragCoord.xy)); // of the paper
    float grain = Hashed(tooth.x, tooth.y);
    float vapour = dot(noise, vec2(0.58, 0.42));
    vec3 scene = mix(Sea(way, max(-field.y, 0.0), noise.x, noise.y + 0.35 * (noise.x - 0.5), grain),
                     Sky(way, field, vapour), smoothstep(-0.0015, 0.0015, field.y));
    vec3 toFire = normalize(hearth);
    scene += emberLight * BellAround(way, toFire, emberSize / length(hearth));
    vec3 ball = ballCore * BellAround(way, toFire, ballSizes.x / length(hearth)) +
                ballSkirt * BellAround(way, toFire, ballSizes.y / length(hearth));
    scene += bare * ball * (0.5 + noise.x + 0.6 * (noise.y - 0.5));
    scene += vec3(0.16, 0.075, 0.022) * BellAround(way, toFire, 0.33) * (0.55 + 0.75 * vapour);
    return seen * scene * (0.95 + 0.10 * grain);
}

// What a surface is seen as in all the lights, and in w how much it covers of what lies behind.
vec4 Surface()
{
    vec3 view = normalize(toEye);
    vec3 n = normalize(normal);
    if (dot(n, view) < 0.0)
        n = -n;

    vec3 colour = texture2D(sampler0, is(membrane) ? 0.15 * skinCoord : skinCoord).rgb;
    float gloss = 42.0;
    float pale = dot(colour, vec3(0.30, 0.59, 0.11));
    float wet = 0.25 + 0.7 * pale * (1.0 - 0.6 * pale); // how much it mirrors: scales, not gaps, nor a white belly
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
        float edge = smoothstep(0.72, 0.93, reach + 0.03 * Swing(9.7 * skinCoord.s));
        colour = mix(mix(colour, vec3(0.78, 0.46, 0.17), 0.65) * (1.25 - 0.45 * reach), vec3(0.09, 0.06, 0.07),
                     max(0.8 * ink, 0.6 * ray));
        colour = mix(colour, vec3(0.86, 0.72, 0.50) * (1.0 - 0.4 * reach), 0.85 * spine);
        colour *= 0.35 + 0.65 * smoothstep(0.04, 0.26, reach);
        float spot = Swing(3.8 * reach + 0.48 * Swing(4.6 * skinCoord.s)) * Swing(11.3 * skinCoord.s + reach);
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
    float shine = exp(gloss * (dot(n, normalize(above + view)) - 1.0));
    float fromSea = max(-dot(n, normalize(gl_ModelViewMatrix[1].xyz)), 0.0);
    float turned = 1.0 - max(dot(n, view), 0.0);
    float rim = turned * turned * sqrt(turned);

    vec3 light = colour * (0.18 + 1.30 * cold * coldLight + 0.5 * warm * warmLight + 1.2 * glow * warmLight +
                           fromSea * (1.0 - cold) * seaLight);
    light += wet * (shine * coldLight + rim * (0.55 * coldLight + 0.5 * glow * warmLight));

    light += 0.55 * through * colour; // what shines through a fin from all sides
    light *= 1.55 / (1.0 + 0.85 * max(light.r, max(light.g, light.b))); // pale places keep their scales
    // Against the fire only fins let light through, and a breath of it goes round the body.
    light *= mix(1.0, is(membrane) ? 0.75 : 0.14, against);
    light += against * emberLight * (0.9 * rim);
    return vec4(light, cover);
}

// Bristles: each carries paint for its own way, and runs dry towards the tip and the sides.
vec4 Fire(vec3 noise)
{
    float along = stroke.y;
    float side = abs(stroke.x);
    float flow = 0.5 + 0.5 * Swing(1.1 * along - 0.2387 * strokeSpeed * fTime0_X + 1.4 * noise.z);
    float bristle = 0.40 * noise.x + 0.40 * noise.y + 0.20 * flow;
    float load = 1.25 - 1.0 * along - 0.5 * smoothstep(0.7, 0.95, along) - 0.75 * side * side;
    float cover = smoothstep(0.0, 0.45, load - bristle) * smoothstep(0.0, 0.10, along - 0.16 * noise.y) *
                  smoothstep(0.1, 0.6, stroke.w);
    float heat = clamp(1.5 * (load - bristle) - 0.25 * along, 0.0, 1.0);
    vec3 light = mix(vec3(0.86, 0.27, 0.04), vec3(1.10, 0.62, 0.15), smoothstep(0.0, 0.5, heat));
    light = mix(light, vec3(1.25, 1.0, 0.52), smoothstep(0.45, 1.0, heat));
    vec3 behind = vec3(0.50, 0.15, 0.03) * (1.0 - 0.6 * along) + 0.6 * nightBlue;
    return vec4(mix(behind, light, cover), cover);
}

void main()
{
    vec3 way = normalize(sight);
    vec3 level = vec3(-gl_ModelViewMatrix[0].z, 0.0, -gl_ModelViewMatrix[2].z);
    vec3 ahead = level / max(length(level), 1e-6); // none where one looks straight up or down
    float height = way.y - skyline * dot(way, ahead);
    vec2 field = vec2(1.6 * way.x / max(0.6 + way.z, 0.2), height); // of the sky, as seen from where it is flown over
    float up = max(height, 0.0);
    vec2 drift = vec2(2.6 * field.x + 0.02 * fTime0_X, 11.0 * up / (0.35 + up));
    drift = mat2(0.94, 0.34, -0.34, 0.94) * drift; // turned, so that no bank has an upright side
    // The strokes of the sea are as many where its distance doubles from one unit as from ten, so that none is large.
    // It passes below, as the fish flies, so slowly that the eye can follow.
    float far = 0.55 / (max(-height, 0.0) + 0.004);
    float aside = dot(way, vec3(ahead.z, 0.0, -ahead.x));
    vec2 waves = vec2(aside * sqrt(far), log2(far) - seaSpeed * fTime0_X);

    // Three noises serve all that is painted without a texture: the vapour of the sky or the waves of the sea, and the
    // bristles that the rope ends in, or those of the fire. Without a graphics card each costs some half a millisecond
    // of the 17 that a picture of 640 by 480 takes.
    bool burns = is(fire);
    bool isSea = height < 0.0;
    float hair = 8.0 * stroke.x + 29.0 * stroke.z;
    vec3 noise = vec3(Tooth(burns ? vec2(3.0 * stroke.x + 13.0 * stroke.z, 2.0 * stroke.y)
                                  : isSea ? vec2(2.2, 2.0) * waves : drift + vec2(0.5 * drift.y, 0.0) + 3.7),
                      Tooth(burns ? vec2(hair, 0.8 * stroke.y)
                                  : isSea ? vec2(13.0, 34.0) * waves : 2.6 * drift - vec2(1.1 * drift.y, 0.0)),
                      Tooth(burns ? vec2(0.6 * hair, 3.0 * stroke.y) : stroke.xy));

    vec3 behind = Night(way, field, noise.xy);
    vec4 front = burns ? Fire(noise) : Surface();
    gl_FragDepth = gl_FragCoord.z;
    if (is(night)) {
        front.w = 0.0;
        // The rope of light comes after this. The night lies before its end in streaks along it, so that it ends as a
        // dry brush does, before its links are beads.
        gl_FragDepth = mix(stroke.z, stroke.w, noise.z);
    } else if (front.w < (burns ? 0.30 : 0.12))
        discard;
    // In the dark it still glimmers: the fish that is in your face for half a second is seen while it goes.
    gl_FragColor = vec4((burns ? front.rgb : mix(behind, front.rgb, front.w)) * sqrt(vtxColor), 1.0);
}
