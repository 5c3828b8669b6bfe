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
// The scene of the names fills the screen, with an alpha of 1. Its trees are chains of cubes, lit on the sides that the
// light reaches and black on the others, and their shadow on the land is black too. Here they are drawn anew, as ink in
// a mist: the share of black and bark in a disc about each place is compared with a bar, which joins the cubes into
// limbs with round edges. The slope of that share is the limb's outward direction, by which the moon gives it a rim,
// and the slope in a wider disc a side that is a little lighter. Bark is told from land by its hue. What is black is
// the tree's near bark and in the upper part of the picture; elsewhere it is shadow, a wash over the land that thins
// out towards the picture's foot. Where nothing was drawn there is night.
//
// The effect lets blur_intensity grow with the tree, from -0.75. It approaches 0.45, for the first tree 0.95, as
// exp(-t) approaches 0: the logarithm of what is left is a clock, and by it the mist drifts. The mist lies in banks one
// before the other, each with a light upper border, lost here and found there, that fades downwards, as washes do. It
// hides a tree that is but a few cubes and lifts as it grows; some of it stays on the land. The last camera has a
// constant intensity of 0.25 and rises with its tree: there the height of the land's far border tells how far the tree
// has grown.
//
// The first tree is the smallest and the nearest, two stumps on a log. Its mist stays up to the stumps, they carry on
// in boughs, and a wood stands about it. Before each of the others stand two drawn trees, which grow with the second
// and with the last. The third is a pale giant behind the wood; for the second and the last, which stand in a denser
// veil, the wood is far behind.
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
const float moreTaps = 27.0;  // more are needed: not where all is alike
const float aspect = 1.33;    // of the disc, a circle on the screen
const float discRadius = 0.022;            // before the land,
const float skyDiscRadius = 0.0145;        // before the sky, where limbs are thinner,
const float lastDiscRadius = 0.0105;       // and of the last tree, the most delicate one
const float limbBar = 0.34;                // share that makes a limb,
const float strandBar = 0.13;              // and of a string of beads
const vec2 strandShape = vec2(0.75, 2.40);  // in a disc that is drawn out upwards,
const vec2 strandHeights = vec2(0.55, 0.8); // here
const vec2 skyTap = vec2(0.97, 0.75);      // in trees that stand before the sky, which is there then
const vec2 limbEdge = vec2(0.30, 0.24);    // softness of limbs and strings
const float bell = 0.8;                    // by which a tap at the disc's rim counts less than one in the middle
const float dryEdge = 0.08;                // by which the bar differs from place to place
const vec2 dryGrain = vec2(60.0, 45.0);    // features of that in the picture's width and height

const float nearTaps = 12.0;               // for bark
const vec2 nearReach = vec2(0.05, 0.07);   // about a black place
const vec4 treeSigns = vec4(4.0, 3.5, 0.5, 1.1); // how far bark, bark and sky near by, and height make it the tree's
const vec2 treeHeights = vec2(0.40, 0.54);

const vec3 ink = vec3(0.030, 0.036, 0.070);   // of a limb,
const vec3 shine = vec3(0.13, 0.155, 0.225); // and on the side that the moon reaches
const vec3 veil = vec3(0.220, 0.250, 0.345);  // the third tree is seen through, the others through the sky,
const vec2 veiled = vec2(0.80, 0.97);         // by these parts, at these heights,
const vec2 veiledHeights = vec2(0.5, 1.0);    // between which it is denser, and how dense it is before the sky,
const vec2 veiledSky = vec2(0.35, 0.85);      // the last tree's and the second's
const float veiledShade = 0.40;               // with so much left of the light
const float barkDry = 0.1;
const vec2 shineSlope = vec2(0.02, 0.34);    // slope of the wider share between them
const vec3 moonlight = vec3(0.50, 0.58, 0.72);
const vec2 moonward = vec2(0.5, 0.86);
const vec2 rimLight = vec2(0.50, 0.05); // before the land and before the sky
const vec2 rimShare = vec2(0.14, 0.34); // above the bar, at which it is full and at which it is gone

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
const float hazeTaps = 28.0;
const vec2 hazeLand = vec2(0.08, 0.20); // blue of lit land and not of anything else

const vec3 moon = vec3(0.84, 0.79, 0.042); // place, and radius in the picture's height
const float shownAspect = 1.6667;          // of the picture between its black borders
const vec3 moonPaper = vec3(0.86, 0.84, 0.76), moonSeas = vec3(0.66, 0.66, 0.64);
const vec2 seaSizes = vec2(34.0, 80.0);    // features in the picture's height
const vec2 seaShare = vec2(0.40, 0.65);
const vec2 moonGlow = vec2(0.30, 9.0);     // part of the moonlight, and how fast it is lost

// Mist.
const float drift = 0.06;              // each second
const float nextTarget = 0.45, firstTarget = 0.95;
const float targetMargin = 0.00002;    // which ends the clock after ten seconds
const vec2 lifting = vec2(0.02, 0.36); // intensities at which the mist begins to lift, and has
const float lastIntensity = 0.25;      // of the last camera,
const float borderTaps = 6.0;          // and what it takes to find the land's far border
const vec2 borderHeights = vec2(0.474, 0.532); // at which the mist begins to lift, and has
const float firstBank = 1.02;          // height of the farthest bank,
const vec2 bankCurve = vec2(8.6, 0.80);  // by which the banks are the closer together, the farther they are
const float bankEdge = 0.22;           // softness of its upper border, in steps,
const vec3 bankShape = vec3(0.70, 1.00, 0.40); // and what swell and vapour raise it by, and all of it is raised by
const vec2 bankSizes = vec2(6.0, 0.74); // features in the picture's width at the farthest, and part of that at the next
const mat2 bankGrain = mat2(0.83, 0.55, -0.55, 0.83); // turned, so that no border is level
const float flatness = 2.2;            // of features, which are so much wider than high
const float bankDepth = 2.6;           // by which light is lost below the border
const vec2 lipLight = vec2(0.45, 1.15);  // of the border, where it is lost and where it is found,
const vec2 lipEdge = vec2(0.5, 1.3);     // and parts of its softness
const vec3 dryRim = vec3(0.35, 700.0, 0.16); // light, narrowness and depth of the rim that dried
const vec2 lipGrain = vec2(0.9, 0.5);    // in features
const vec2 bankLight = vec2(0.55, 0.70); // least, and gained by vapour
const float youngCover = 1.15;           // before young trees,
const float firstCover = 1.10;           // before the first tree for good,
const vec2 firstHeights = vec2(0.50, 0.74);
const float restCover = 0.64;            // on the land for good,
const float lastCover = 0.62;            // of the last camera,
const float secondRest = 0.05;           // and by how much it is higher for the second tree
const vec2 restHeights = vec2(0.46, 0.65);
const vec3 thicknesses = vec3(0.10, 0.62, 0.30); // least, and gained by vapour and swell
const float guessed = 0.22;              // part of what stands in the mist that is seen through it,
const vec2 guessedHeights = vec2(0.55, 0.75);
const float leastCover = 0.02;
const float cloudLevel = 0.86;             // what that and cover have to be together,
const float cloudEdge = 0.24;              // and beyond it from thinnest to thickest
const vec3 mistBody = vec3(0.145, 0.180, 0.295);
const vec3 mistEdge = vec3(0.62, 0.67, 0.75); // in the moonlight
const float unlit = 0.45;                  // part of its light while the land has none

// The wood about the first tree.
const vec2 firstTap = vec2(0.50, 0.866);      // sky, while it is land for the third tree
const float woodTrunks = 11.0;
const vec2 woodWidths = vec2(0.0045, 0.017);  // half of them, of the farthest trunk and of the nearest,
const vec2 woodInk = vec2(0.22, 0.62);        // and parts of ink
const float farInk = 0.9;                     // part of that behind the second tree, where the wood begins higher
const vec2 nearShift = vec2(0.55, 0.03);      // before the third tree
const vec2 farShift = vec2(0.30, -0.03);      // and elsewhere
const vec2 woodFeet = vec2(0.42, 0.50);       // heights, and in the mist
const vec2 woodForks = vec2(0.06, 0.20);      // lowest height above half of the picture's, and gained by the highest
const float woodLean = 0.12;
// What grows before each tree: middle, half width, fork and lean of two trunks.
const vec4 leftTrunk = vec4(0.085, 0.040, 0.19, 0.03), rightTrunk = vec4(0.405, 0.046, 0.17, 0.02);
const vec4 secondOak = vec4(0.140, 0.040, 0.11, 0.03), secondAsh = vec4(0.290, 0.017, 0.10, -0.04);
const vec4 thirdOak = vec4(0.740, 0.036, 0.06, 0.04), thirdAsh = vec4(0.270, 0.020, 0.08, -0.03);
const vec4 lastOak = vec4(0.440, 0.046, 0.08, 0.02), lastAsh = vec4(0.610, 0.022, 0.10, 0.05);
const vec2 trunkTops = vec2(0.62, 1.03);      // heights that they reach
const vec2 trunksGrow = vec2(0.05, 0.92);     // between these intensities, the first's,
const vec2 othersGrow = vec2(-0.05, 0.40);    // and the second's
const float trunkTip = 0.10;
const vec2 stumpHeights = vec2(0.62, 0.70);   // between which they replace the stumps
const vec2 stumpShare = vec2(0.02, 0.30);
const vec2 farHaze = vec2(0.70, 0.82);        // heights between which the land behind those turns to haze,
const vec2 farNight = vec2(0.80, 0.90);       // and that to night
const float sway = 0.05, swayPeriods = 7.0;   // of a trunk, in the picture's width and height
const vec2 boughSlope = vec2(0.62, 0.20);     // and by how much the two sides differ
const float boughBend = 1.3;
const float boughWave = 0.03;
const vec3 forks = vec3(0.045, 0.040, 0.035); // of boughs, twigs and twiglets, each above the one before
const float uneven = 0.45;                    // part by which two sides differ
const vec3 twigSlopes = vec3(0.45, 0.34, 0.30);
const vec3 taperings = vec3(0.35, 0.45, 5.0);
const float rootFlare = 0.7;

const float inkEdge = 0.0015;  // softness of what is drawn
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

// The night with its moon, and a haze where there is lit land close below. A tree there counts neither way.
vec3 Sky(vec2 place, float sky)
{
    float land = 0.0;
    float known = 0.01;
    float taps = sky > 0.0 && Drawn(place - vec2(0.0, hazeHeight)).a > 0.5 ? hazeTaps : 0.0;
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
    vec3 colour = mix(Night(place), haze, land * land);
    vec2 away = (place - moon.xy) * vec2(shownAspect, 1.0);
    float outside = length(away) - moon.z;
    float seas = 0.6 * Tooth(away * seaSizes.x + 5.0) + 0.4 * Tooth(away * seaSizes.y);
    vec3 disc = mix(moonPaper, moonSeas, smoothstep(seaShare.x, seaShare.y, seas));
    colour += moonlight * (moonGlow.x * exp(-moonGlow.y * max(outside, 0.0)));
    return mix(disc, colour, smoothstep(-inkEdge, inkEdge, outside));
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

// Three sizes of a soft noise, drawn out sideways as vapour is.
float Vapour(vec2 place)
{
    float large = Tooth(bankGrain * place);
    float middle = Tooth(place * bankGrain * 2.13 + large);
    return 0.55 * large + 0.30 * middle + 0.15 * Tooth(bankGrain * place * 4.7 + middle);
}

// 1 for the first camera, from when the mist lifts.
float First(float overSky) { return step(overSky + Drawn(firstTap).a, 0.5); }

// How much of a place a trunk covers, of which shape is middle, half width, fork and lean. It forks four times,
// unevenly, and each bough bends upwards.
float Trunk(vec2 place, vec4 shape, float kind)
{
    float up = place.t - 0.5;
    float aside = place.s - shape.x - sway * (Wave(swayPeriods * up + kind) - 0.5) - shape.w * up;
    float side = sign(aside);
    float bough = max(up - shape.z, 0.0);
    float twig = max(bough - forks.x * (1.0 + uneven * side), 0.0);
    float spread = (boughSlope.x + boughSlope.y * side * sin(kind)) * bough * (1.0 - boughBend * bough) +
                   boughWave * (Wave(13.0 * up + kind + 4.0 * side) - 0.5) * min(20.0 * bough, 1.0);
    float away = abs(aside) - spread;
    float other = sign(away);
    away = abs(away) - twigSlopes.x * twig * (1.0 - boughBend * twig);
    float twiglet = max(twig - forks.y * (1.0 + uneven * other * side), 0.0);
    away = abs(away) - twigSlopes.y * twiglet;
    float tip = max(twiglet - forks.z * (1.0 - uneven * other), 0.0);
    away = abs(abs(away) - twigSlopes.z * tip);
    float flare = 1.0 + rootFlare * (1.0 - smoothstep(0.08, 0.20, up));
    float width = shape.y * (1.0 - up) * flare * (1.0 - taperings.x * min(14.0 * bough, 1.0)) *
                  (1.0 - taperings.y * min(16.0 * twig, 1.0)) * exp(-taperings.z * bough);
    return 1.0 - smoothstep(width - inkEdge, width + inkEdge, away);
}

// The same trunk in a place that has been shifted.
vec4 Shifted(vec4 shape, vec2 shift) { return shape + vec4(shift.x - shape.w * shift.y, 0.0, shift.y, 0.0); }

// How dark the wood is, the paler the farther its trunks, and how much of a place is covered by the two trunks before
// the tree: with these it begins at number -2. All in one loop, as its first round is made for every pixel there is.
vec2 Wood(vec2 place, vec4 oak, vec4 ash, float from, float wanted)
{
    vec2 dark = vec2(0.0);
    float end = wanted > 0.0 ? woodTrunks : from;
    for (float i = from; i < end; i += 1.0) {
        float near = fract(0.755 * i + 0.3);
        vec4 shape = vec4(fract(0.618 * i + 0.13), mix(woodWidths.x, woodWidths.y, near),
                          woodForks.x + woodForks.y * fract(0.37 * i), woodLean * (near - 0.5));
        shape = i < -1.0 ? oak : i < 0.0 ? ash : shape;
        float trunk = Trunk(place, shape, 9.0 * i);
        dark = max(dark, trunk * (i < 0.0 ? vec2(0.0, 1.0) : vec2(mix(woodInk.x, woodInk.y, near), 0.0)));
    }
    return dark * smoothstep(woodFeet.x, woodFeet.y, place.t);
}

// The mist's colour, and how thick it is.
vec4 Mist(vec2 place, float overSky, float first, float risen, float wanted)
{
    bool last = abs(blur_intensity - lastIntensity) < 0.00001;
    float lifted = last ? smoothstep(0.0, 1.0, risen) : smoothstep(lifting.x, lifting.y, blur_intensity);
    // The first tree's clock goes on from where it is told from the others.
    float left = max(nextTarget - blur_intensity, 0.0) + targetMargin;
    float firstLeft = max(firstTarget - blur_intensity, 0.0) * (nextTarget - lifting.x) / (firstTarget - lifting.x);
    float moved = -drift * log(mix(left, firstLeft + targetMargin, first));

    float one = 4.0 * overSky + 2.3 * first + (last ? 7.0 : 0.0); // so that no two trees have the same
    float cover = max(youngCover * (1.0 - lifted),
                      max(firstCover * first * (1.0 - smoothstep(firstHeights.x, firstHeights.y, place.t)),
                          (last ? lastCover : restCover) *
                              (1.0 - smoothstep(restHeights.x, restHeights.y,
                                         place.t - (last ? 0.0 : secondRest * overSky)))));
    // A bank's upper border stays between half a step below its middle height and one and a half above it: two banks
    // may begin here, and the one behind them is there in any case.
    float down = bankCurve.x * (firstBank - place.t) / (firstBank - place.t + bankCurve.y);
    float nearest = floor(down + 0.5);
    float thickness = 0.0;
    float light = 0.0;
    float looks = wanted * cover > leastCover ? 3.0 : 0.0;
    for (float i = 0.0; i < looks; i += 1.0) {
        float number = nearest - 1.0 + i;
        vec2 features = bankSizes.x * pow(bankSizes.y, number) * vec2(place.s, flatness * place.t) +
                        vec2(moved + 5.3 * one, 0.3 * moved) + 7.7 * number;
        float vapour = Vapour(features);
        float swell = Wave(features.x * 0.43 + 3.1 * number);
        float raised = bankShape.x * (swell - 0.5) + bankShape.y * (vapour - 0.5) + bankShape.z;
        float inside = down - number + clamp(raised, bankEdge - 0.5, 1.5);
        float lit = exp(-bankDepth * max(inside, 0.0)) * (bankLight.x + bankLight.y * vapour);
        float found = Tooth(features * lipGrain + 3.3);
        lit *= mix(lipLight.x, lipLight.y, smoothstep(0.25, 0.75, found));
        lit += dryRim.x * found * exp(-dryRim.y * (inside - dryRim.z) * (inside - dryRim.z));
        float part = i < 1.0 ? 1.0 : smoothstep(0.0, bankEdge * mix(lipEdge.x, lipEdge.y, found), inside);
        thickness = mix(thickness, dot(thicknesses, vec3(1.0, vapour, swell)), part);
        light = mix(light, lit, part);
    }
    thickness += cover - cloudLevel;
    return vec4(mix(mistBody, mistEdge, min(light, 1.0)),
                wanted * smoothstep(0.0, cloudEdge, thickness) * min(2.0 * cover, 1.0) *
                    (1.0 - guessed * smoothstep(guessedHeights.x, guessedHeights.y, place.t)));
}

// The scene of the names, of which this is drawn in the middle.
vec3 Painted(vec4 middle, vec2 place, float own)
{
    float overSky = 1.0 - Drawn(skyTap).a;
    float first = own > 0.0 ? First(overSky) : 0.0;
    float strands = overSky * smoothstep(strandHeights.x, strandHeights.y, place.t);
    float last = abs(blur_intensity - lastIntensity) < 0.00001 ? 1.0 : 0.0;
    vec2 disc = mix(mix(discRadius, skyDiscRadius, overSky), lastDiscRadius, last) * vec2(1.0, aspect) *
                mix(vec2(1.0), strandShape, strands);
    float second = overSky * (1.0 - last);
    float bar = mix(limbBar, strandBar, last * strands);

    float risen = BorderRisen(last > 0.0 && own > 0.0);
    vec4 mist = Mist(place, overSky, first, risen, own);
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
    vec2 form = vec2(0.0); // outward, in the wider disc
    float dry = 0.0;
    taps = dark > 0.0 ? nearTaps : 0.0;
    for (float i = 0.0; i < taps; i += nearTaps)
        dry = Tooth(place * dryGrain) - 0.5;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / nearTaps);
        vec4 other = Drawn(place + away * nearReach);
        float lit = Bark(other);
        float either = max(lit, Black(other));
        barkNear += lit / nearTaps;
        skyNear += (1.0 - other.a) / nearTaps;
        form -= away * (either / nearTaps);
        direction = TurnedOn(direction);
    }
    dark /= count;

    float tooth = Tooth(gl_FragCoord.xy * toothGrain);
    float day = LandLight(own > 0.0);

    float high = smoothstep(treeHeights.x, treeHeights.y, place.t + 0.06 * dry);
    float isTree = clamp(dot(treeSigns, vec4(bark, barkNear, skyNear, high)), 0.0, 1.0);
    float limb = isTree * smoothstep(bar, bar + mix(limbEdge.x, limbEdge.y, strands),
                                     dark + (1.0 - last) * dryEdge * dry);
    float noStump = first * smoothstep(stumpHeights.x, stumpHeights.y, place.t);
    limb *= 1.0 - noStump;
    float outward = dot(-slope / max(length(slope), 0.5), moonward);
    float rim = max(outward, 0.0) * (1.0 - smoothstep(bar + rimShare.x, bar + rimShare.y, dark));

    vec3 around = mix(plainLand, land.rgb / max(land.a, 0.01), min(2.0 * land.a / firstTaps, 1.0));
    float seen = middle.a * (1.0 - Black(middle)) * (1.0 - smoothstep(landSeen.x, landSeen.y, dark)) *
                 (1.0 - softened * smoothstep(farLand.x, farLand.y, place.t));
    vec3 field = mix(around, middle.rgb, seen);
    float shaded = smoothstep(washEdge.x, washEdge.y, dark + washRagged * dry) * (1.0 - isTree) *
                   smoothstep(washHeights.x, washHeights.y, place.t);
    field = mix(field, field * wash + washBlue + pigment * (3.0 * tooth - 1.5), shaded);

    vec3 dusk = Night(place);
    float third = (1.0 - overSky) * (1.0 - first) * (1.0 - last);
    vec2 shift = second * farShift + third * nearShift;
    vec2 wood = Wood(place + shift,
                     Shifted(mix(mix(mix(secondOak, thirdOak, third), lastOak, last), leftTrunk, first), shift),
                     Shifted(mix(mix(mix(secondAsh, thirdAsh, third), lastAsh, last), rightTrunk, first), shift),
                     -2.0, clear * max(first + third, overSky));
    float grown = mix(mix(smoothstep(othersGrow.x, othersGrow.y, blur_intensity), risen, last),
                      smoothstep(trunksGrow.x, trunksGrow.y, blur_intensity), first);
    float top = mix(trunkTops.x, trunkTops.y, grown);
    wood *= clear * vec2(1.0, 1.0 - smoothstep(top - trunkTip, top, place.t));
    vec3 above = mix(Sky(place, sky), ink, (1.0 - first) * overSky * farInk * wood.x);
    vec3 colour = mix(above, field, day * (1.0 - smoothstep(0.3, 0.7, sky / max(1.0 - dark, 0.1))));
    vec3 far = mix(mix(plainLand, haze, smoothstep(farHaze.x, farHaze.y, place.t)), dusk,
                   smoothstep(farNight.x, farNight.y, place.t));
    colour = mix(colour, far, noStump * smoothstep(stumpShare.x, stumpShare.y, dark));
    float shone = smoothstep(shineSlope.x, shineSlope.y, dot(form, moonward) + barkDry * dry);
    vec3 limbColour = mix(ink, shine, shone * (1.0 - overSky));
    vec3 ghost = veil * (1.0 + veiledShade * (shone - 0.4));
    float hidden = mix(smoothstep(veiledHeights.x, veiledHeights.y, place.t),
                       mix(veiledSky.x, veiledSky.y, second), overSky);
    hidden = mix(veiled.x, veiled.y, hidden);
    limbColour = mix(limbColour, mix(ghost, above, overSky), (1.0 - first) * hidden);
    limbColour += moonlight * (rim * mix(rimLight.x, rimLight.y, overSky));
    colour = mix(colour, ink, first * wood.x);
    colour = mix(colour, mix(dusk, limbColour, day), limb);
    colour = mix(colour, mix(dusk, ink, day), third * wood.x);
    colour = mix(colour, mix(dusk, ink, day), wood.y);
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
