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
// round edges. The slope of that share is the limb's outward direction, by which the moon gives it a rim. Bark is told
// from land by its hue. What is black is the tree's near bark and in the upper part of the picture; elsewhere it is
// shadow, a wash over the land that thins out towards the picture's foot. Where nothing was drawn there is night.
//
// The effect lets blur_intensity grow with the tree, from -0.75. It approaches 0.45, for the first tree 0.95, as
// exp(-t) approaches 0: the logarithm of what is left is a clock, and by it the mist drifts. Mist hides a tree that is
// but a few cubes and lifts as it grows; it stays about the foot and before the highest limbs, which the upper border
// of the picture cuts. The last camera has a constant intensity of 0.25 and rises with its tree: there the height of
// the land's far border tells how far the tree has grown. The first tree is the smallest and the nearest. Beyond an
// intensity of 0.45, which no other tree reaches, it gets its leaves.
//
// What this costs without a graphics card is the number of texture reads, and of noises. The software rasteriser
// computes both sides of an if and throws one away; only a loop that is over for all pixels at hand is really left. So
// what few pixels need stands in loops.

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
const float moreTaps = 15.0;  // more are needed: not where all is alike
const float aspect = 1.33;    // of the disc, a circle on the screen
const float discRadius = 0.022;             // before the land,
const float skyDiscRadius = 0.016;          // before the sky, where limbs are thinner,
const float firstDiscRadius = 0.030;        // and of the first tree, whose cubes are the largest
const float limbBar = 0.42;                 // share that makes a limb,
const float firstLimbBar = 0.32;
const float strandBar = 0.13;               // and of a string of beads
const vec2 strandShape = vec2(0.75, 1.9);   // in a disc that is drawn out upwards,
const vec2 strandHeights = vec2(0.55, 0.8); // here
const vec2 skyTap = vec2(0.97, 0.75);       // in trees that stand before the sky, which is there then
const float taper = 0.30;                   // gained by the first tree's bar, so that its boughs
const vec2 taperHeights = vec2(0.62, 0.98); // end in points,
const float taperGain = 0.7;                // while its disc grows by this part
const vec2 limbEdge = vec2(0.10, 0.20);      // softness of limbs and strings
const float dryEdge = 0.08;                 // by which the bar differs from place to place
const vec2 dryGrain = vec2(60.0, 45.0);     // features of that in the picture's width and height

const float nearTaps = 4.0;                // for bark
const vec2 nearReach = vec2(0.05, 0.07);   // about a black place
const vec4 treeSigns = vec4(4.0, 1.5, 0.5, 1.1); // how far bark, bark and sky near by, and height make it the tree's
const vec2 treeHeights = vec2(0.40, 0.54);

const vec3 ink = vec3(0.030, 0.036, 0.070); // of a limb's shaded side
const vec3 ochre = vec3(0.42, 0.27, 0.12);  // and of its lit one
const vec2 litShare = vec2(0.25, 1.0);
const vec2 barkStrokes = vec2(150.0, 20.0); // in the picture's width and height
const vec3 bounce = vec3(0.075, 0.055, 0.045);
const vec2 bounceShare = vec2(0.08, 0.5);
const vec3 moonlight = vec3(0.50, 0.58, 0.72);
const vec2 moonward = vec2(0.5, 0.86);
const vec2 rimLight = vec2(0.50, 0.22);  // before the land and before the sky
const vec2 rimShare = vec2(0.34, 0.14);  // above the bar, at which it is gone and at which it is full

const float leavesOut = 0.70;                        // intensity by which all leaves are out
const vec4 leftCrown = vec4(0.10, 0.80, 0.14, 0.15); // middle and radii of the first tree's crowns,
const vec4 rightCrown = vec4(0.42, 0.85, 0.18, 0.18);
const vec4 topCrown = vec4(0.26, 0.93, 0.17, 0.14);
const vec2 crownSize = vec2(-1.45, -0.13);           // gained as it comes out, and when it has
const float crownEdge = 0.9;                         // by which clumps stand out from it
const vec3 clumpSizes = vec3(14.0, 37.0, 92.0);      // boughs, twigs and leaves in the picture's width
const float crownMoon = 0.42;                        // part of the moonlight that leaves take
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
const float hazeWidth = 0.10;           // to either side of what it rises from
const float hazeTaps = 5.0;
const vec2 hazeLand = vec2(0.08, 0.20); // blue of lit land and not of anything else

// Mist.
const float drift = 0.06;              // each second
const float nextTarget = 0.45, firstTarget = 0.95;
const float targetMargin = 0.004;      // which ends the clock after five seconds
const vec2 lifting = vec2(-0.1, 0.3);  // intensities at which the mist begins to lift, and has
const float lastIntensity = 0.25;      // of the last camera,
const float borderTaps = 6.0;          // and what it takes to find the land's far border
const vec2 borderHeights = vec2(0.474, 0.532); // at which the mist begins to lift, and has
const float horizon = 1.25;            // to which the mist's plane goes,
const float bentUp = 0.78;             // and the height from which on it doesn't
const vec2 mistFeatures = vec2(4.6, 6.0);
const vec2 mistShade = vec2(0.14, 0.30); // from a place to what may shade it, in features
const float youngCover = 0.95;
const vec2 youngHeights = vec2(1.0, 0.75);
const float footCover = 0.74;
const vec2 footHeight = vec2(0.32, 0.26);  // of its lowest border before land and before the sky,
const float footSway = 0.27, footFeatures = 3.1;
const float footDepth = 0.085;
const float topCover = 0.75;
const vec2 topHeights = vec2(0.78, 1.02);
const float leastCover = 0.02;
const float cloudLevel = 0.78;             // what clouds and cover have to be together,
const float cloudEdge = 0.42;              // and beyond it from thinnest to thickest
const vec3 mistBody = vec3(0.175, 0.215, 0.335);
const vec3 mistEdge = vec3(0.56, 0.61, 0.70); // in the moonlight
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

// Two octaves of it, the second displaced by the first: heads that curl.
float Heads(vec2 place)
{
    float heads = 0.48 * Tooth(place);
    return heads + 0.29 * Tooth(place * 2.13 + vec2(3.7, 1.9) + heads);
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
vec3 Sky(vec2 place, float sky, float tooth)
{
    float spread = fract(0.5 * Spread(gl_FragCoord.xy) + tooth);
    float land = 0.0;
    float known = 0.01;
    float taps = sky > 0.0 ? hazeTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        float below = (i + spread) * (hazeHeight / hazeTaps);
        float aside = fract(0.618034 * i + spread) * (2.0 * hazeWidth) - hazeWidth;
        vec4 other = Drawn(place - vec2(aside, below));
        float lit = smoothstep(hazeLand.x, hazeLand.y, other.b);
        land += lit;
        known += max(lit, 1.0 - other.a);
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
    float size = max(max(Blob(place, leftCrown), Blob(place, rightCrown)), Blob(place, topCrown)) +
                 mix(crownSize.x, crownSize.y, sqrt(comeOut));
    vec4 leaves = vec4(0.0);
    float layers = comeOut > 0.0 && size > -0.5 * crownEdge ? 1.0 : 0.0;
    for (float i = 0.0; i < layers; i += 1.0) {
        vec2 shading = place + towardsMoon;
        float bough = Tooth(boughGrain * place * clumpSizes.x);
        float shadingBough = Tooth(boughGrain * shading * clumpSizes.x);
        float twig = Tooth(twigGrain * place * clumpSizes.y + bough);
        float shadingTwig = Tooth(twigGrain * shading * clumpSizes.y + shadingBough);
        float leaf = Tooth(boughGrain * place * clumpSizes.z + 2.0 * twig);
        float clump = 0.46 * bough + 0.30 * twig + 0.24 * leaf - 0.42;
        float lit = 0.5 * (bough - shadingBough) + 0.35 * (twig - shadingTwig) + 0.14 * (leaf - 0.5);
        lit = smoothstep(-0.02, 0.20, lit) * (0.4 + 0.6 * bough);
        leaves = vec4(mix(1.2 * ink, crownMoon * moonlight, lit), smoothstep(0.0, 0.07, size + crownEdge * clump));
    }
    return leaves;
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

    float one = 4.0 * overSky + (last ? 7.0 : 0.0); // so that no two trees have the same
    float sway = footSway * Wave(place.s * footFeatures + 0.4 * moved + one);
    float aboveFoot = (place.t - mix(footHeight.x, footHeight.y, overSky) - sway) / footDepth;
    float foot = max(1.0 - 0.4 * aboveFoot * aboveFoot, 0.0);
    float cover = max(youngCover * (1.0 - lifted) * smoothstep(youngHeights.x, youngHeights.y, place.t),
                      max(footCover * (foot * foot), topCover * smoothstep(topHeights.x, topHeights.y, place.t)));
    // It lies in a plane like the land.
    float away = 1.0 / (horizon - min(place.t, bentUp));
    away += away * away * max(place.t - bentUp, 0.0);
    vec2 here = vec2((place.s - 0.5) * away * mistFeatures.x + 2.0 * moved, away * mistFeatures.y + 0.6 * moved);
    vec4 mist = vec4(0.0);
    float layers = wanted * cover > leastCover ? 1.0 : 0.0;
    for (float i = 0.0; i < layers; i += 1.0) {
        float heads = Heads(here);
        float clouds = heads + 0.18 * Tooth(here * 4.41 + vec2(8.1, 5.3) + heads); // with torn borders
        float lit = clamp(0.20 + 2.1 * (clouds - Heads(here + mistShade)), 0.0, 1.0);
        mist = vec4(mix(mistBody, mistEdge, lit * lit * (0.42 + 0.6 * clouds)),
                    smoothstep(0.0, cloudEdge, clouds + 0.045 + cover - cloudLevel) * min(1.5 * cover, 1.0));
    }
    return mist;
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
        bark += lit * min(2.0 * other.r, 1.0);
        dark += either;
        sky += 1.0 - other.a;
        land += vec4(other.rgb, 1.0) * other.a * (1.0 - either);
        slope += away * either;
        direction = TurnedOn(direction);
    }
    float count = max(taps, 1.0);
    taps = dark > 0.02 * firstTaps && dark < 0.98 * firstTaps ? moreTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / moreTaps);
        vec4 other = Drawn(place + away * disc);
        float lit = Bark(other);
        float either = max(lit, Black(other));
        bark += lit * min(2.0 * other.r, 1.0);
        dark += either;
        sky += 1.0 - other.a;
        slope += away * either;
        direction = TurnedOn(direction);
    }
    count += taps;
    bark /= count;
    sky /= count;

    float barkNear = 0.0;
    float skyNear = 0.0;
    float dry = 0.0;
    float stroke = 0.0;
    taps = dark > 0.0 ? nearTaps : 0.0;
    for (float i = 0.0; i < taps; i += nearTaps) {
        dry = Tooth(place * dryGrain) - 0.5;
        stroke = 0.55 + 0.6 * Tooth(place * barkStrokes);
    }
    for (float i = 0.0; i < taps; i += 1.0) {
        vec4 other = Drawn(place + direction * nearReach * sqrt((i + 0.5) / nearTaps));
        barkNear += Bark(other) / nearTaps;
        skyNear += (1.0 - other.a) / nearTaps;
        direction = TurnedOn(direction);
    }
    dark /= count;

    float tooth = Tooth(gl_FragCoord.xy * toothGrain);
    float day = LandLight(own > 0.0);

    float high = smoothstep(treeHeights.x, treeHeights.y, place.t + 0.06 * dry);
    float isTree = clamp(dot(treeSigns, vec4(bark, barkNear, skyNear, high)), 0.0, 1.0);
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
    vec3 colour = mix(Sky(place, sky, tooth), field, day * (1.0 - smoothstep(0.3, 0.7, sky)));
    vec3 limbColour = mix(ink, ochre, smoothstep(litShare.x, litShare.y, bark) * stroke) +
                      bounce * smoothstep(bounceShare.x, bounceShare.y, bark) +
                      moonlight * (rim * mix(rimLight.x, rimLight.y, overSky));
    colour = mix(colour, mix(dusk, limbColour, day), limb);
    vec4 leaves = Leaves(place, clear * first);
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
