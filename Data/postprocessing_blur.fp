// SPDX-License-Identifier: CC-BY-4.0
#version 110
// A soft blur in one pass for a photograph, and a brush for the scene of the names.
//
// The photograph is blended over another picture, with an alpha of the vertices of one half at most. blur_intensity is
// the blur's strength: at 1 the picture runs together over a fiftieth of its side in every direction, at 0.25 it is as
// if seen without one's glasses, at 0 and below there is none. The taps lie in rounds of four on a disc, the corners
// of a square, each round farther out than the one before and turned on from it by the golden section of a quarter.
// That puts them evenly over the disc, and since two of them always lie opposite each other, slopes come out without
// noise. Their weight falls off like a bell from the middle outward. So that thin lines don't come out as bundles of
// thinner ones, every pixel starts its rounds at an angle of its own.
//
// The scene of the names fills the screen, with an alpha of 1. Its trees are chains of cubes, lit on the sides that
// the light reaches and black on the others, and their shadow on the land is black too. Here they are drawn anew: the
// share of dark or lit bark in a disc about each place is compared with a bar, which joins the cubes into limbs with
// round edges. The bar sinks where most is dark farther about, and holes close. The slope of that share is the limb's
// outward direction, by which the moon gives it a rim; the slope in a wider disc gives thick limbs a light side, too.
// Bark is told from land by its hue, and the part of it in the disc says how far a limb is lit. What is black is the
// tree's near bark and in the upper part of the picture; elsewhere it is shadow, a wash over the land that thins out
// towards the picture's foot. Where nothing was drawn there is night.
//
// The effect lets blur_intensity grow with the tree, from -0.75. It approaches 0.45, for the first tree 0.95, as
// exp(-t) approaches 0: the logarithm of what is left is a clock, and by it the mist drifts. The mist is a sea of
// clouds seen from above: banks one before the other, each with lit heads at its upper border. It hides a tree that is
// but a few cubes and lifts as it grows; some of it stays before the highest limbs, which the upper border of the
// picture cuts. The last camera has a constant intensity of 0.25 and rises with its tree: there the height of the
// land's far border tells how far the tree has grown. The first tree is the smallest and the nearest. Beyond an
// intensity of 0.45, which no other tree reaches, it gets its leaves.
//
// What this costs without a graphics card is the number of texture reads, and of noises. The software rasteriser
// computes both sides of an if and throws one away; only a loop that is over for all pixels at hand is really left, and
// that after a first round. So what few pixels need stands in loops whose bodies are short.

uniform sampler2D picture; // nobody sets it: unit 0
uniform float blur_intensity;

const float fewestRounds = 1.25; // a small disc needs no more
const float roundsGained = 7.0;  // each strength
const float mostRounds = 6.0;
const float reach = 0.022;       // radius of the disc at strength 1, in texture coordinates
const float falloff = 1.8;       // exponent of the bell at the rim
const float border = 0.00048828; // half a texel at 1024: taps stay inside, as the wrap may repeat

const vec2 goldenTurn = vec2(0.8253408, 0.5646349);       // cosine and sine, of a quarter's golden section,
const vec2 wholeGoldenTurn = vec2(-0.7373688, 0.6754902); // and of the whole turn's

const float barkHue = 0.62;             // blue is a lesser part of red than this in bark, a greater in land
const float barkEdge = 12.0;            // how sharply they are told apart
const vec2 blackEnd = vec2(0.02, 0.12); // light at which black begins to give way to the scene, and has
const float landTaps = 4.0;             // along the picture's foot:
const vec2 landLight = vec2(0.12, 0.32); // blue there if the land has no light, and if it has all its light

// Limbs. Shares are of the disc in which a limb is looked for, heights are of the picture.
const float firstTaps = 6.0;  // that say whether
const float moreTaps = 21.0;  // more are needed: not where all is alike
const float aspect = 1.33;    // of the disc, a circle on the screen
const float discRadius = 0.022;             // before the land,
const float skyDiscRadius = 0.0125;         // before the sky, where limbs are thinner,
const float firstDiscRadius = 0.030;        // and of the first tree, whose cubes are the largest
const float limbBar = 0.42;                 // share that makes a limb,
const float firstLimbBar = 0.32;
const float strandBar = 0.13;               // and of a string of beads
const vec2 strandShape = vec2(0.75, 1.35);  // in a disc that is drawn out upwards,
const vec2 strandHeights = vec2(0.55, 0.8); // here
const vec2 skyTap = vec2(0.97, 0.75);       // in trees that stand before the sky, which is there then
const float taper = 0.30;                   // gained by the first tree's bar, so that its boughs
const vec2 taperHeights = vec2(0.62, 0.98); // end in points,
const float taperGain = 0.7;                // while its disc grows by this part
const vec2 limbEdge = vec2(0.16, 0.24);      // softness of limbs and strings
const vec2 filledShare = vec2(0.45, 0.85);  // of black and bark near by, between which holes in a limb close,
const float filling = 0.20;                 // as the bar sinks by this
const float bell = 0.8;                     // by which a tap at the disc's rim counts less than one in the middle
const float dryEdge = 0.08;                 // by which the bar differs from place to place
const vec2 dryGrain = vec2(60.0, 45.0);     // features of that in the picture's width and height

const float nearTaps = 8.0;                // for bark
const vec2 nearReach = vec2(0.05, 0.07);   // about a black place
const vec4 treeSigns = vec4(4.0, 1.5, 0.5, 1.1); // how far bark, bark and sky near by, and height make it the tree's
const vec2 treeHeights = vec2(0.40, 0.54);

const vec3 ink = vec3(0.030, 0.036, 0.070); // of a limb's shaded side
const vec3 ochre = vec3(0.255, 0.185, 0.110); // and of its lit one
const vec2 litShare = vec2(0.03, 0.45);     // of bark in what is dark
const vec2 barkStrokes = vec2(70.0, 26.0);  // in the picture's width and height
const float lightSide = 0.03;               // gained by that for each tap towards the moon
const vec3 shine = vec3(0.150, 0.180, 0.255); // of the moon on what the light doesn't reach,
const vec2 shineSlope = vec2(-0.02, 0.26);    // and the slope of the wider share for it
const vec3 moonlight = vec3(0.50, 0.58, 0.72);
const vec2 moonward = vec2(0.5, 0.86);
const vec2 rimLight = vec2(0.50, 0.22);  // before the land and before the sky
const vec2 rimShare = vec2(0.34, 0.14);  // above the bar, at which it is gone and at which it is full

const float leavesOut = 0.70;                        // intensity by which all leaves are out
const vec4 leftCrown = vec4(0.10, 0.80, 0.14, 0.15); // middle and radii of the first tree's crowns,
const vec4 rightCrown = vec4(0.42, 0.85, 0.18, 0.18);
const vec4 topCrown = vec4(0.26, 0.93, 0.17, 0.14);
const vec2 crownCorner = vec2(0.66, 0.60);           // left of and above which they are
const vec2 crownSize = vec2(-1.45, -0.13);           // gained as it comes out, and when it has
const float crownEdge = 0.9;                         // by which clumps stand out from it
const vec3 clumpSizes = vec3(14.0, 37.0, 92.0);      // boughs, twigs and leaves in the picture's width
const float crownMoon = 0.62;                        // part of the moonlight that leaves take
const mat2 boughGrain = mat2(0.79, 0.61, -0.46, 0.59); // turned, so that no grain lies level, and on the screen
const mat2 twigGrain = mat2(0.39, 0.92, -0.69, 0.29);  // as high as wide
const vec2 towardsMoon = vec2(0.006, 0.019);         // from a leaf to what may shade it

const vec3 plainLand = vec3(0.36, 0.35, 0.34); // under a shadow of which no border is near
const vec2 landSeen = vec2(0.00, 0.50);        // share of black near by at which the land's drawing is lost
const vec2 farLand = vec2(0.40, 0.60);         // heights between which it is softened: it has no smaller levels
const float softened = 0.6;
const vec3 wash = vec3(0.30, 0.36, 0.52);      // the land's colours in the shadow,
const vec3 washBlue = vec3(0.0, 0.008, 0.03);  // with a little added
const float pigment = 0.02;
const vec2 washEdge = vec2(0.10, 0.90);        // shares,
const float washRagged = 0.22;
const vec2 washHeights = vec2(-0.15, 0.40);    // and heights between which the shadow feathers out

const vec3 night = vec3(0.112, 0.142, 0.272);
const vec3 nightAbove = vec3(0.060, 0.078, 0.160);
const vec2 nightHeights = vec2(0.35, 1.05);
const vec3 haze = vec3(0.228, 0.275, 0.385); // over the land's far border, which is drawn in the same colour
const float hazeHeight = 0.17;
const float hazeWidth = 0.03;           // to either side of what it rises from
const float hazeTaps = 12.0;
const vec2 hazeLand = vec2(0.08, 0.20); // blue of lit land and not of anything else

// Mist.
const float drift = 0.06;              // each second
const float nextTarget = 0.45, firstTarget = 0.95;
const float targetMargin = 0.004;      // which ends the clock after five seconds
const vec2 lifting = vec2(-0.1, 0.26); // intensities at which the mist begins to lift, and has
const float lastIntensity = 0.25;      // of the last camera,
const float borderTaps = 6.0;          // and what it takes to find the land's far border
const vec2 borderHeights = vec2(0.474, 0.532); // at which the mist begins to lift, and has
const float firstBank = 1.02;          // height of the farthest bank,
const float bankStep = 0.21;           // and from one to the next
const float bankEdge = 0.05;           // in steps
const vec2 bankSizes = vec2(9.0, 0.83); // features in the picture's width at the farthest, and part of that at the next
const mat2 bankGrain = mat2(0.83, 0.55, -0.55, 0.83); // turned, so that no head has level sides
const float flatness = 0.85;           // of heads
const vec2 bankMoon = vec2(0.10, 0.16); // from a place to what may shade it, in features
const float youngCover = 1.15;
const vec2 youngHeights = vec2(1.30, 1.05);
const float topCover = 0.66;
const vec2 topHeights = vec2(0.82, 1.02);
const float leastCover = 0.02;
const float cloudLevel = 0.86;             // what clouds and cover have to be together,
const vec2 bankLight = vec2(0.30, 2.3);     // where a bank is level, and gained by its slope
const float bankRim = 0.45;                // light gained where a bank is thin
const float rimCover = 0.95;               // beyond which cover takes no more of that
const float cloudEdge = 0.24;              // and beyond it from thinnest to thickest
const vec3 mistBody = vec3(0.145, 0.180, 0.295);
const vec3 mistEdge = vec3(0.62, 0.67, 0.75); // in the moonlight
const float unlit = 0.45;                  // part of its light while the land has none

const float grain = 0.06;      // of the paper, in parts of the light
const float toothGrain = 0.52; // features in a pixel

// Even: neighbours differ as much as they can.
float Spread(vec2 cell) { return fract(52.9829189 * fract(dot(cell, vec2(0.06711056, 0.00583715)))); }

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

// The same along a line.
float Wave(float place)
{
    float cell = floor(place);
    float part = place - cell;
    part = part * part * (3.0 - 2.0 * part);
    vec2 here = Mixed(vec2(cell, 3.7));
    return mix(Hashed(here.x, here.y), Hashed(Mixed(vec2(cell + 1.0, 3.7)).x, here.y), part);
}

// 1 for a scene that fills the screen, 0 for a picture that is laid over one.
float Own() { return smoothstep(0.5, 1.0, gl_Color.a); }

vec4 Drawn(vec2 place) { return texture2D(picture, clamp(place, border, 1.0 - border)); }

float Bark(vec4 drawn) { return clamp((barkHue * drawn.r - drawn.b) * barkEdge, 0.0, 1.0); }
float Black(vec4 drawn)
{
    return drawn.a * clamp((blackEnd.y - max(drawn.r, drawn.b)) / (blackEnd.y - blackEnd.x), 0.0, 1.0);
}

vec2 TurnedOn(vec2 direction)
{
    return vec2(direction.x * wholeGoldenTurn.x - direction.y * wholeGoldenTurn.y,
                direction.x * wholeGoldenTurn.y + direction.y * wholeGoldenTurn.x);
}

// 0 while the land lies in the dark, 1 when its light is up. The foot of the picture is land all along, and never
// all of it is shadow.
float LandLight(bool wanted)
{
    float light = 0.0;
    float taps = wanted ? landTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0)
        light = max(light, Drawn(vec2((i + 0.5) / landTaps, 0.02)).b);
    return smoothstep(landLight.x, landLight.y, light);
}

vec3 Night(vec2 place) { return mix(night, nightAbove, smoothstep(nightHeights.x, nightHeights.y, place.t)); }

// The night with a haze where there is lit land close below. A tree there counts neither way.
vec3 Sky(vec2 place, float sky)
{
    float land = 0.0;
    float known = 0.01;
    float taps = sky > 0.0 ? hazeTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        float below = (i + 0.5) * (hazeHeight / hazeTaps);
        float aside = fract(0.618034 * i + 0.5) * (2.0 * hazeWidth) - hazeWidth;
        float weight = 1.0 - i / hazeTaps;
        vec4 other = Drawn(place - vec2(aside, below));
        float lit = smoothstep(hazeLand.x, hazeLand.y, other.b);
        land += weight * lit;
        known += weight * max(lit, 1.0 - other.a);
    }
    land /= known;
    return mix(Night(place), haze, land * land);
}

// How far the tree of the last camera has grown: 1 when the mist has lifted from it. At the left the land's far border
// is free. It is halved upon, but not after it has passed that height.
float BorderRisen(bool wanted)
{
    float height = borderHeights.y - borderHeights.x;
    float step = wanted && Drawn(vec2(0.02, borderHeights.y)).a < 0.5 ? height : 0.0;
    float risen = height - step;
    float taps = step > 0.0 ? borderTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        step *= 0.5;
        risen += Drawn(vec2(0.02, borderHeights.x + risen + step)).a > 0.5 ? step : 0.0;
    }
    return risen / height;
}

float Blob(vec2 place, vec4 shape) { return 1.0 - length((place - shape.xy) / shape.zw); }

// The first tree's leaves, in clumps whose upper sides the moon lights: colour and share.
vec4 Leaves(vec2 place, float comeOut)
{
    vec4 leaves = vec4(0.0);
    float layers = comeOut > 0.0 && place.s < crownCorner.x && place.t > crownCorner.y ? 1.0 : 0.0;
    for (float i = 0.0; i < layers; i += 1.0) {
        float size = max(max(Blob(place, leftCrown), Blob(place, rightCrown)), Blob(place, topCrown)) +
                     mix(crownSize.x, crownSize.y, sqrt(comeOut));
        vec2 shading = place + towardsMoon;
        float bough = Tooth(boughGrain * place * clumpSizes.x);
        float shadingBough = Tooth(boughGrain * shading * clumpSizes.x);
        float twig = Tooth(twigGrain * place * clumpSizes.y + bough);
        float shadingTwig = Tooth(twigGrain * shading * clumpSizes.y + shadingBough);
        float leaf = Tooth(boughGrain * place * clumpSizes.z + 2.0 * twig);
        float clump = 0.46 * bough + 0.30 * twig + 0.24 * leaf - 0.42;
        float lit = 0.5 * (bough - shadingBough) + 0.35 * (twig - shadingTwig) + 0.14 * (leaf - 0.5);
        lit = smoothstep(-0.06, 0.17, lit) * (0.4 + 0.6 * bough);
        leaves = vec4(mix(1.2 * ink, crownMoon * moonlight, lit), smoothstep(0.0, 0.07, size + crownEdge * clump));
    }
    return leaves;
}

// Heads with creases between them, of three sizes.
float Billows(vec2 place)
{
    place += 0.2 * Tooth(bankGrain * place.ts * 1.3);
    float large = abs(2.0 * Tooth(bankGrain * place) - 1.0);
    float middle = abs(2.0 * Tooth(place * bankGrain * 2.13 + 0.35 * large) - 1.0);
    return 0.52 * large + 0.34 * middle + 0.14 * abs(2.0 * Tooth(bankGrain * place * 4.9 + large) - 1.0);
}

// Its colour, and how thick it is.
vec4 Mist(vec2 place, float overSky, float wanted)
{
    bool last = abs(blur_intensity - lastIntensity) < 0.00001;
    float lifted = last ? smoothstep(0.0, 1.0, BorderRisen(last && wanted > 0.0))
                        : smoothstep(lifting.x, lifting.y, blur_intensity);
    // The second clock goes on where the first one ends.
    float left = nextTarget + targetMargin - blur_intensity;
    float then = (firstTarget + targetMargin - blur_intensity) / (firstTarget + targetMargin - nextTarget);
    float moved = -drift * (blur_intensity < nextTarget ? log(left) : log(targetMargin) + log(max(then, 0.001)));

    float one = 4.0 * overSky + (last ? 7.0 : 0.0); // so that no two trees before the sky have the same
    float cover = max(youngCover * (1.0 - lifted) * smoothstep(youngHeights.x, youngHeights.y, place.t),
                      topCover * smoothstep(topHeights.x, topHeights.y, place.t));
    // The banks' upper borders stay within half a step of their middle height: one bank may begin here, and the one
    // behind it is there in any case. Each is looked at twice, first where it may be shaded from.
    float down = (firstBank - place.t) / bankStep;
    float nearest = floor(down + 0.5);
    float thickness = 0.0;
    float light = 0.0;
    float shading = 0.0;
    float looks = wanted * cover > leastCover ? 4.0 : 0.0;
    for (float i = 0.0; i < looks; i += 1.0) {
        float here = mod(i, 2.0);
        float number = nearest - (i < 2.0 ? 1.0 : 0.0);
        vec2 features = bankSizes.x * pow(bankSizes.y, number) * vec2(place.s, flatness * place.t) +
                        vec2(moved + 5.3 * one, 0.3 * moved) + 7.7 * number;
        float billows = Billows(features + (1.0 - here) * bankMoon);
        float swell = Wave(features.x * 0.43 + 3.1 * number);
        float inside = down - number + clamp(0.5 * (swell - 0.5) + 0.7 * (billows - 0.45), -0.5, 0.5);
        float lit = clamp(bankLight.x + bankLight.y * (billows - shading), 0.0, 1.2) *
                    (0.30 + 0.85 * exp(-1.7 * max(inside, 0.0)));
        float part = here * (i < 2.0 ? 1.0 : smoothstep(0.0, bankEdge, inside));
        thickness = mix(thickness, 0.06 + 0.55 * billows + 0.30 * swell, part);
        light = mix(light, lit, part);
        shading = billows;
    }
    thickness -= cloudLevel;
    light += bankRim * (1.0 - smoothstep(0.1, 0.4, thickness + min(cover, rimCover)));
    thickness += cover;
    return vec4(mix(mistBody, mistEdge, min(light, 1.0)),
                wanted * smoothstep(0.0, cloudEdge, thickness) * min(1.5 * cover, 1.0));
}

// The scene of the names, of which this is drawn in the middle.
vec3 Painted(vec4 middle, vec2 place, float own)
{
    float first = smoothstep(nextTarget, leavesOut, blur_intensity);
    float overSky = 1.0 - Drawn(skyTap).a;
    float strands = overSky * smoothstep(strandHeights.x, strandHeights.y, place.t);
    float tapered = first * smoothstep(taperHeights.x, taperHeights.y, place.t);
    float radius = mix(mix(discRadius, skyDiscRadius, overSky), firstDiscRadius, first);
    vec2 disc = radius * (1.0 + taperGain * tapered) * vec2(1.0, aspect) * mix(vec2(1.0), strandShape, strands);
    float bar = mix(mix(limbBar, strandBar, strands), firstLimbBar, first) + taper * tapered;

    vec4 mist = Mist(place, overSky, own);
    float clear = own * (1.0 - mist.a);

    float bark = 0.0;
    float dark = 0.0; // bark and black
    float sky = 0.0;
    vec4 land = vec4(0.0);
    vec2 slope = vec2(0.0);
    vec2 direction = vec2(1.0, 0.0);
    float taps = clear > 0.02 ? firstTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / firstTaps);
        vec4 other = Drawn(place + away * disc);
        float lit = Bark(other);
        float either = max(lit, Black(other));
        float weight = 1.0 - bell * dot(away, away);
        bark += weight * lit * min(2.0 * other.r, 1.0);
        dark += weight * either;
        sky += 1.0 - other.a;
        land += vec4(other.rgb, 1.0) * other.a * (1.0 - either);
        slope += away * either;
        direction = TurnedOn(direction);
    }
    float count = max(taps, 1.0);
    float full = firstTaps * (1.0 - 0.5 * bell);
    taps = dark > 0.02 * full && dark - bark < 0.98 * full ? moreTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / moreTaps);
        vec4 other = Drawn(place + away * disc);
        float lit = Bark(other);
        float either = max(lit, Black(other));
        float weight = 1.0 - bell * dot(away, away);
        bark += weight * lit * min(2.0 * other.r, 1.0);
        dark += weight * either;
        sky += 1.0 - other.a;
        slope += away * either;
        direction = TurnedOn(direction);
    }
    count += taps;
    sky /= count;
    count *= 1.0 - 0.5 * bell;
    bark /= count;

    float barkNear = 0.0;
    float skyNear = 0.0;
    float darkNear = 0.0;
    vec2 form = vec2(0.0); // outward, in the wider disc
    float dry = 0.0;
    float stroke = 0.0;
    taps = dark > 0.0 ? nearTaps : 0.0;
    for (float i = 0.0; i < taps; i += nearTaps) {
        dry = Tooth(place * dryGrain) - 0.5;
        stroke = Tooth(place * barkStrokes + 2.0 * dry);
    }
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / nearTaps);
        vec4 other = Drawn(place + away * nearReach);
        float lit = Bark(other);
        float either = max(lit, Black(other));
        barkNear += lit / nearTaps;
        skyNear += (1.0 - other.a) / nearTaps;
        darkNear += either / nearTaps;
        form -= away * (either / nearTaps);
        direction = TurnedOn(direction);
    }
    dark /= count;

    float tooth = Tooth(gl_FragCoord.xy * toothGrain);
    float day = LandLight(own > 0.0);

    vec4 leaves = Leaves(place, clear * first);
    float high = smoothstep(treeHeights.x, treeHeights.y, place.t + 0.06 * dry);
    float isTree = clamp(dot(treeSigns, vec4(bark, barkNear, skyNear, high)), 0.0, 1.0);
    bar -= filling * smoothstep(filledShare.x, filledShare.y, darkNear) * (1.0 - strands);
    float limb = smoothstep(bar, bar + mix(limbEdge.x, limbEdge.y, strands), dark + dryEdge * dry) * isTree;
    float outward = dot(-slope / max(length(slope), 0.5), moonward);
    float rim = max(outward, 0.0) * smoothstep(bar + rimShare.x, bar + rimShare.y, dark);

    vec3 around = mix(plainLand, land.rgb / max(land.a, 0.01), min(2.0 * land.a / firstTaps, 1.0));
    float seen = middle.a * (1.0 - Black(middle)) * (1.0 - smoothstep(landSeen.x, landSeen.y, dark)) *
                 (1.0 - softened * smoothstep(farLand.x, farLand.y, place.t));
    vec3 field = mix(around, middle.rgb, seen);
    float shaded = smoothstep(washEdge.x, washEdge.y, dark + washRagged * dry) * (1.0 - isTree) *
                   smoothstep(washHeights.x, washHeights.y, place.t);
    field = mix(field, field * wash + washBlue + pigment * (3.0 * tooth - 1.5), shaded);

    vec3 dusk = Night(place);
    vec3 colour = mix(Sky(place, sky), field, day * (1.0 - smoothstep(0.3, 0.7, sky)));
    float lit = smoothstep(litShare.x, litShare.y, bark / max(dark, 0.2) + 0.35 * (stroke - 0.5) +
                                                lightSide * dot(-slope, moonward));
    float shone = smoothstep(shineSlope.x, shineSlope.y, dot(form, moonward) + 0.25 * (stroke - 0.5));
    vec3 limbColour = mix(ink + shine * (shone * (1.0 - 0.7 * overSky)), ochre * (0.55 + 0.8 * stroke), lit) +
                      moonlight * (rim * mix(rimLight.x, rimLight.y, overSky));
    colour = mix(colour, mix(dusk, limbColour, day), limb);
    colour = mix(colour, mix(dusk, leaves.rgb, day), leaves.a);
    colour = mix(colour, mist.rgb * mix(unlit, 1.0, day), mist.a);
    return colour * (1.0 + grain * (2.0 * tooth - 1.0));
}

void main()
{
    float own = Own();
    vec2 place = gl_TexCoord[0].st;
    float strength = max(blur_intensity, 0.0);
    float rounds = strength > 0.0 ? min(fewestRounds + roundsGained * strength, mostRounds) : 0.0;
    float least = max(rounds, fewestRounds);
    float weightStep = exp(-falloff / least);
    float radius = strength * reach * inversesqrt(least);
    rounds = own < 1.0 ? rounds : 0.0;

    // a pattern in which neighbours differ as much as they can, as an angle of the first quarter
    float turn = Spread(gl_FragCoord.xy);
    vec2 direction = normalize(vec2(1.0 - turn, turn));
    float weight = 1.0;
    vec4 sum = vec4(0.0);
    float weights = 0.0;
    for (float i = 0.0; i < rounds; i += 1.0) {
        float share = weight * min(rounds - i, 1.0); // below 1 for a last round that is just coming in
        vec2 away = direction * (radius * sqrt(i + 0.5));
        vec2 across = vec2(-away.y, away.x);
        sum += (Drawn(place + away) + Drawn(place - away) + Drawn(place + across) + Drawn(place - across)) * share;
        weights += 4.0 * share;
        weight *= weightStep;
        direction = vec2(direction.x * goldenTurn.x - direction.y * goldenTurn.y,
                         direction.x * goldenTurn.y + direction.y * goldenTurn.x);
    }
    vec4 drawn = texture2D(picture, place);
    gl_FragColor = mix(rounds > 0.0 ? sum / weights : drawn, vec4(Painted(drawn, place, own), 1.0), own) * gl_Color;
}
