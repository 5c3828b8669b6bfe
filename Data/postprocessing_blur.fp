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
// The scene of the names fills the screen, with an alpha of 1. What was drawn is a tree of cubes on a land of fields,
// both of which throw hard black on each other. It is painted anew here as a landscape in ink: night and its moon, a
// far land with a farm on it, a wood, a ploughed field on which two trees grow as the drawn one does, and a nearer
// field with grass before it, and for some cameras a fence. The drawn tree is a shade behind the wood where it stands
// before the sky, which is where the second camera and the last one look: the share of black and bark in a disc about
// each place is compared with a bar, which joins the cubes into limbs with round edges. Bark is told from land by its
// hue. The first camera looks at stumps from near by and the third into a tangle with its shadow, from above; there a
// slope covers them.
//
// The effect lets blur_intensity grow with the tree, from -0.75. It approaches 0.45, for the first tree 0.95, as
// exp(-t) approaches 0: the logarithm of what is left is a clock, by which the mist drifts and the trees grow. The mist
// hides all but the fields while the trees are young, and lifts; some of it stays along the field's border. The last
// camera has a constant intensity of 0.25 and rises with its tree: there the height of the land's far border tells how
// far the tree has grown.
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

const float barkHue = 0.62;              // blue is a lesser part of red than this in bark, a greater in land
const float barkEdge = 12.0;             // how sharply they are told apart
const vec2 blackEnd = vec2(0.02, 0.12);  // light at which black begins to give way to the scene, and has
const float landTaps = 4.0;              // along the picture's foot:
const vec2 landLight = vec2(0.12, 0.32); // blue there if the land has no light, and if it has all its light
const float unlit = 0.12;                // part of the light that is left while the land has none
const vec2 skyTap = vec2(0.65, 0.72);    // sky for the second camera, land for the first and the third,
const vec2 firstTap = vec2(0.50, 0.866); // and this is sky for the first
const float lastIntensity = 0.25;        // of the last camera,
const float borderTaps = 6.0;            // and what it takes to find the land's far border
const vec2 borderHeights = vec2(0.474, 0.532); // while the tree grows

// Heights and widths are of the picture, places along it as well. What is told for each camera stands in the order of
// the cameras, what is told for each land in the order far land, field, near field.
const float shownAspect = 1.6667; // of the picture between its black borders
const float inkEdge = 0.0015;     // softness of what is drawn
const float grain = 0.06;         // of the paper, in parts of the light
const float toothGrain = 0.52;    // features in a pixel

const vec3 ink = vec3(0.030, 0.036, 0.070);
const vec3 moonlight = vec3(0.50, 0.58, 0.72);
const vec3 night = vec3(0.112, 0.142, 0.272);
const vec3 nightAbove = vec3(0.060, 0.078, 0.160);
const vec2 nightHeights = vec2(0.35, 1.05);
const vec4 moonsAcross = vec4(0.84, 0.86, 0.13, 0.535);
const vec4 moonsUp = vec4(0.745, 0.830, 0.845, 0.700);
const float moonRadius = 0.042;
const vec3 moonPaper = vec3(0.86, 0.84, 0.76), moonSeas = vec3(0.66, 0.66, 0.64);
const vec2 seaSizes = vec2(34.0, 80.0); // features in the picture's height
const vec2 seaShare = vec2(0.40, 0.65);
const vec2 moonGlow = vec2(0.40, 6.5); // part of the moonlight, and how fast it is lost
const float starsEach = 26.0;          // cells in the picture's height, of which each has one or none
const vec2 starShare = vec2(0.80, 1.00);
const vec2 starSize = vec2(0.02, 0.06);    // in cells
const vec2 starsFade = vec2(0.05, 0.30);   // about the moon
const vec2 skyWash = vec2(0.86, 0.28);     // least light, and gained where the wash has run together

// The lands. The border of each is a line with a slope and a swell; its furrows run to a point above it.
const vec4 farBorders = vec4(0.84, 0.54, 0.80, 0.52), farSlopes = vec4(-0.16, 0.04, -0.12, -0.05);
const vec4 fieldBorders = vec4(0.51, 0.45, 0.54, 0.42), fieldSlopes = vec4(-0.03, 0.05, 0.03, -0.03);
const vec4 nearBorders = vec4(0.17, 0.25, 0.12, 0.21), nearSlopes = vec4(0.20, -0.18, 0.26, 0.10);
const vec3 swells = vec3(0.10, 0.03, 0.05);
const vec3 swellSizes = vec3(2.3, 2.9, 1.9); // features in the picture's width
const vec3 borderSeeds = vec3(0.0, 2.0, 4.0), borderSteps = vec3(3.1, 5.7, 7.9); // and gained by each camera
const vec4 farPoints = vec4(1.60, -0.60, -0.50, 1.50); // places along the picture
const vec4 fieldPoints = vec4(0.62, 0.30, 0.35, 0.66);
const vec4 nearPoints = vec4(-0.70, 1.60, -0.90, 1.90);
const vec3 pointHeights = vec3(0.14, 0.06, 0.16); // above the border
const vec3 furrowsEach = vec3(5.0, 3.4, 3.0);     // in the picture's height, where they are as far from the point
const float drawnLines = 384.0;                   // that the picture's height can show,
const vec2 tooFine = vec2(0.12, 0.45);            // and furrows to one of them, where they begin to fade and are gone
const float wobble = 0.16, wobbles = 6.0;         // of furrows, in furrows and on the way to the point
const float furrowWidth = 0.10, frostWidth = 0.07, frostAside = 0.22; // in furrows
const float softest = 0.025;
const vec2 dryGrain = vec2(9.0, 4.0); // features across a furrow and along it
const vec2 inkDry = vec2(0.30, 0.42), frostDry = vec2(0.38, 0.52);
const float parcelsEach = 0.09; // of furrows, on the far land, of which each has a tone of its own
const vec2 parcelTone = vec2(0.80, 0.40), farWash = vec2(0.82, 0.36);
const vec2 poolSizes = vec2(5.0, 11.0), speckSizes = vec2(23.0, 47.0); // features of the wash
const float pools = 0.65;                                               // part of it that these are
const vec3 parchment = vec3(0.50, 0.465, 0.395), parchmentLow = vec3(0.27, 0.275, 0.30);
const vec3 slopeGlow = vec3(0.47, 0.95, 2.5); // light away from the moon, gained by it, and how fast that is lost,
const vec2 slopeWarm = vec2(0.35, 0.65);      // part of it that is parchment, in the same way,
const float farGlow = 0.35;                   // and how much of its colour a land that is no slope takes there
const vec2 parchmentHeights = vec2(0.45, 0.75);
const vec3 farBlue = vec3(0.150, 0.185, 0.290);
const vec3 earth = vec3(0.095, 0.120, 0.215), earthLit = vec3(0.285, 0.340, 0.475);
const vec3 earthWash = vec3(0.27, 0.75, -0.90); // how lit it is, what the wash adds, and height below the border
const float nearEarth = 0.12;                   // by which the near field is less lit
const vec3 frost = vec3(0.52, 0.58, 0.68);
const vec3 furrowShade = vec3(0.66, 0.45, 0.45); // part of the light that is left,
const vec3 furrowFrost = vec3(0.07, 0.16, 0.16); // and parts of frost in furrows
const vec3 borderFrost = vec3(0.18, 0.55, 0.55); // and on the border, where the wash lets it be found
const vec2 borderFound = vec2(0.30, 0.70);
const float borderWidth = 0.006;
const vec2 borderLine = vec2(0.55, 0.0035); // part of the light that it takes, and half its width
// Grass on the borders of both fields and along the picture's foot.
const float footRoots = -0.02;
const vec3 grassHeights = vec3(0.022, 0.070, 0.200), grassEach = vec3(90.0, 40.0, 24.0); // blades in the width
const vec3 grassLight = vec3(1.6, 1.6, 1.0);                                              // times ink's
const float grassLayers = 4.0;
const float tuftsEach = 0.16;                     // to a blade,
const vec2 tufts = vec2(0.40, 0.90);              // from nothing to full height
const float tuftWidth = 2.6;                      // of those before a trunk, in half widths,
const float tuftRoots = 0.015, rootsEach = 70.0;  // which are not on a line
const vec2 bladeHeights = vec2(0.3, 0.7); // least, and gained by the tallest
const float bladeLean = 1.00, bladeWidth = 0.11;
// The fence on the near border of the second camera and the last.
const float posts = 7.0;                           // in the picture's width
const float postHeight = 0.085, postDepth = 0.012; // above the border, and below
const vec2 postHeights = vec2(0.85, 0.30);         // parts of it: least, and gained by the tallest
const float postWidth = 0.035, postLean = 0.16;    // half of it, in the way from post to post
const vec2 wireHeights = vec2(0.74, 0.42), wireSags = vec2(-0.11, -0.08); // in posts
const float wireWidth = 0.0022, wireInk = 0.8;

// The farm, of which the house is two units wide.
const vec4 farms = vec4(0.60, 0.78, 0.545, 0.16);
const float farmSize = 0.024, farmFoot = 0.010; // and how far below the border it stands
const vec2 barn = vec2(1.65, -0.10);
const vec2 gables = vec2(2.3, 1.7); // height of the house's and the barn's, which is cut at 1
const vec3 pane = vec3(-0.25, 0.55, 0.24);
const vec3 lamp = vec3(0.96, 0.72, 0.36);
const vec2 lampGlow = vec2(0.22, 1.1); // part of it, and how fast it is lost

// The wood behind the field.
const float woodTrunks = 11.0;
const vec2 woodWidths = vec2(0.0045, 0.017); // half of them, of the farthest trunk and of the nearest,
const vec2 woodInk = vec2(0.30, 0.52);       // and parts of ink
const vec2 woodForks = vec2(0.06, 0.20);     // lowest height above the foot, and gained by the highest
const float woodLean = 0.12;
const float woodFoot = 0.02; // below the field's border
// The trees on the field: middle, half width, fork and lean of both.
const vec4 firstOak = vec4(0.085, 0.036, 0.20, 0.03), firstAsh = vec4(0.385, 0.026, 0.17, 0.02);
const vec4 secondOak = vec4(0.140, 0.040, 0.11, 0.03), secondAsh = vec4(0.290, 0.017, 0.10, -0.04);
const vec4 thirdOak = vec4(0.740, 0.036, 0.06, 0.04), thirdAsh = vec4(0.270, 0.020, 0.08, -0.03);
const vec4 lastOak = vec4(0.440, 0.046, 0.08, 0.02), lastAsh = vec4(0.610, 0.022, 0.10, 0.05);
const vec2 feet = vec2(0.060, 0.035);       // of oak and ash, below the field's border
const float youngest = 0.35;                // part of its size that a tree has before
const vec2 growing = vec2(0.03, 0.42);      // ways of the mist at which trees begin to grow, and have
const vec2 toes = vec2(0.30, 4.0);            // depth of those, in half widths, and features in footWidth
const float footWidth = 1.9, footDepth = 0.6; // of the round that a trunk stands on, in half widths
const float sway = 0.05, swayPeriods = 7.0;   // of a trunk, in the picture's width and height
const vec2 boughSlope = vec2(0.62, 0.20);     // and by how much the two sides differ
const float boughBend = 1.3;
const float boughWave = 0.02;
const vec3 forks = vec3(0.045, 0.040, 0.035); // of boughs, twigs and twiglets, each above the one before
const float uneven = 0.45;                    // part by which two sides differ
const vec3 twigSlopes = vec3(0.45, 0.34, 0.30);
const vec3 taperings = vec3(0.35, 0.45, 8.0);
const float tipWidth = 0.010;           // from where what grows across another thins out
const float thinnest = 0.0011;            // that is drawn; what is thinner is paler
const vec2 trunkFlare = vec2(0.35, 0.14); // part of the width, and height at which it is lost
const vec2 roots = vec2(0.30, 0.50);      // parts of the width: least, and gained by some
const float rootHeight = 60.0, rootSizes = 60.0;
const vec3 shadowShape = vec3(1.3, 1.4, 0.05); // length to height, away from the moon, and softness with distance
const vec2 shadowDepth = vec2(0.60, 0.25);     // part of the light that it takes, and distance at which it thins out
const vec2 barkLines = vec2(230.0, 13.0);      // features
const vec2 barkShare = vec2(0.50, 0.80);
const float barkLight = 1.3;                   // times ink's,
const vec2 barkHeights = vec2(0.05, 0.30);     // above the border
const float rimLight = 0.55;                   // of the side that the moon reaches
const float rimWidth = 0.004;
const vec2 rimmed = vec2(0.002, 0.007); // half widths from which there is one

// The drawn tree. Shares are of the disc in which a limb is looked for.
const float firstTaps = 6.0;  // that say whether
const float moreTaps = 27.0;  // more are needed: not where all is alike
const float aspect = 1.33;    // of the disc, a circle on the screen
const vec2 discRadius = vec2(0.0145, 0.0105); // the second tree's, and the last one's, which is the most delicate
const float limbBar = 0.34;                   // share that makes a limb,
const float strandBar = 0.13;                 // and the last one's string of beads
const vec2 strandShape = vec2(0.75, 2.40);    // in a disc that is drawn out upwards,
const vec2 strandHeights = vec2(0.55, 0.8);   // here
const vec2 limbEdge = vec2(0.30, 0.24);       // softness of limbs and strings
const float bell = 0.8;                       // by which a tap at the disc's rim counts less than one in the middle
const vec2 limbFeet = vec2(0.47, 0.53);       // heights below which it is a shadow
const vec2 limbInk = vec2(0.12, 0.10);        // of the second and the last

// Mist.
const float drift = 0.06;              // each second
const float nextTarget = 0.45, firstTarget = 0.95;
const float targetMargin = 0.00002;    // which ends the clock after ten seconds
const float firstKnown = 0.02;         // intensity at which the first tree is told from the others
const vec2 lifting = vec2(0.05, 0.22); // ways of the mist at which it begins to lift, and has
const vec2 veilFeet = vec2(-0.10, 0.10); // above the field's border, from where until where it thickens,
const vec2 veilShare = vec2(0.90, 0.10); // and what it covers at least, and where the vapour is thick
const vec3 mistDark = vec3(0.150, 0.185, 0.295), mistLight = vec3(0.40, 0.45, 0.55);
const vec2 vapourSizes = vec2(2.6, 6.5); // features in the picture's width and height
const vec3 vapourParts = vec3(0.55, 0.30, 0.15);
const vec2 vapourLight = vec2(0.25, 0.75);
const vec2 lowMist = vec2(0.100, 0.040); // height above the border and below, by which it thins out
const vec2 lowShare = vec2(0.20, 0.70);  // of vapour,
const float lowCover = 0.85;             // and what it covers there
const float before = 0.30;               // part of that which lies before the trees

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

// The night with its moon and stars.
vec3 Sky(vec2 place, vec2 moon)
{
    vec3 colour = mix(night, nightAbove, smoothstep(nightHeights.x, nightHeights.y, place.t));
    vec2 away = (place - moon) * vec2(shownAspect, 1.0);
    float outside = length(away) - moonRadius;
    float seas = 0.6 * Tooth(away * seaSizes.x + 5.0) + 0.4 * Tooth(away * seaSizes.y);
    vec3 disc = mix(moonPaper, moonSeas, smoothstep(seaShare.x, seaShare.y, seas));
    colour += moonlight * (moonGlow.x * exp(-moonGlow.y * max(outside, 0.0)));
    vec2 star = Mixed(floor(away * starsEach));
    vec2 middle = 0.25 + 0.5 * vec2(Hashed(star.y, star.x + 1.0), Hashed(star.x, star.y + 2.0));
    float point = 1.0 - smoothstep(starSize.x, starSize.y, length(fract(away * starsEach) - middle));
    colour += moonPaper * (smoothstep(starShare.x, starShare.y, Hashed(star.x, star.y)) * point *
                           smoothstep(starsFade.x, starsFade.y, outside));
    return mix(disc, colour, smoothstep(-inkEdge, inkEdge, outside));
}

// A house with a barn, of which only one window is lit, over what stands behind it.
vec3 Farm(vec3 behind, vec2 place)
{
    vec2 house = place * vec2(shownAspect, 1.0) / farmSize;
    vec2 annex = house - barn;
    float soft = inkEdge / farmSize;
    float walls = min(1.0 - abs(house.x), gables.x - abs(house.x) - house.y);
    walls = max(walls, min(1.0 - abs(annex.x), min(1.0, gables.y - abs(annex.x)) - annex.y));
    walls = min(walls, house.y);
    vec2 aside = house - pane.xy;
    float lit = smoothstep(-soft, soft, pane.z - max(abs(aside.x), abs(aside.y)));
    vec3 colour = mix(behind, 1.5 * ink, smoothstep(-soft, soft, walls));
    return mix(colour + lamp * (lampGlow.x * exp(-lampGlow.y * length(aside))), lamp, lit);
}

// The heights of a land's border at a place along it.
float Border(float along, float middle, float slope, float swell, float size, float seed)
{
    return middle + slope * (along - 0.5) + swell * (Wave(size * along + seed) - 0.5);
}

// Furrows at a place that is so far below a land's border: parts of ink and of frost, and the tone of their parcel.
// They run to a point along the picture that stands so high above the border.
vec3 Furrows(vec2 place, float below, float point, float height, float each)
{
    float depth = max(below, 0.0) + height;
    float aside = shownAspect * (place.s - point) / depth;
    float fine = each / (depth * drawnLines) * sqrt(1.0 + aside * aside);
    float soft = softest + 0.5 * fine;
    float across = each * aside + wobble * Wave(wobbles * log(depth) + point);
    float dry = Tooth(dryGrain * vec2(across, log(depth)));
    float width = furrowWidth * (0.5 + Hashed(Mixed(vec2(floor(across), 1.7)).x, 5.1));
    float furrow = 1.0 - smoothstep(width - soft, width + soft, abs(fract(across) - 0.5));
    float crest = 1.0 - smoothstep(frostWidth - soft, frostWidth + soft, abs(fract(across - frostAside) - 0.5));
    float shown = 1.0 - smoothstep(tooFine.x, tooFine.y, fine);
    return vec3(shown * furrow * smoothstep(inkDry.x, inkDry.y, dry),
                shown * crest * smoothstep(frostDry.x, frostDry.y, 1.0 - dry),
                Hashed(Mixed(vec2(floor(across * parcelsEach), 2.9)).y, 3.3));
}

// How much of a place that is so high above their roots is covered by blades of grass, in tufts.
float Grass(float along, float above, float tallest, float each, float seed)
{
    float cover = 0.0;
    float layers = above > -0.002 && above < tallest ? grassLayers : 0.0;
    for (float i = 0.0; i < layers; i += 1.0) {
        float tuft = smoothstep(tufts.x, tufts.y, Wave(tuftsEach * each * along + seed));
        float root = each * along + 0.37 * i + seed;
        vec2 blade = Mixed(vec2(floor(root), i + seed));
        float high = tallest * (bladeHeights.x + bladeHeights.y * Hashed(blade.x, blade.y)) * tuft;
        float up = max(above, 0.0) / (high + 0.0001);
        float lean = bladeLean * (Hashed(blade.y, blade.x + 1.0) - 0.5);
        float inside = bladeWidth * (1.0 - up) - abs(fract(root) - 0.5 - lean * up * up);
        cover = max(cover, smoothstep(-inkEdge * each, inkEdge * each, inside) * step(up, 1.0) * step(0.0, above));
    }
    return cover;
}

// How much of a place that is so high above its feet is covered by a fence of posts and two wires.
float Fence(float along, float above, float seed)
{
    float post = posts * along + 0.37 * seed;
    float part = fract(post) - 0.5;
    vec2 mixed = Mixed(vec2(floor(post), 8.3 + seed));
    float high = postHeight * (postHeights.x + postHeights.y * Hashed(mixed.y, mixed.x + 1.0));
    float lean = postLean * (Hashed(mixed.x, mixed.y) - 0.5) * above / high;
    float inside = min(postWidth - abs(part - lean), posts * (high - above));
    float cover = smoothstep(-inkEdge * posts, inkEdge * posts, inside) * step(-postDepth, above);
    vec2 wires = abs(above - postHeight * (wireHeights + wireSags * (1.0 - 4.0 * part * part)));
    return max(cover, wireInk * (1.0 - smoothstep(0.0, wireWidth, min(wires.x, wires.y))));
}

// How much of a place is covered by a trunk, by the side of it that the moon reaches, and by its shadow on the land
// before it, which is the trunk itself turned down. Its shape is middle, half width, fork and lean. It forks four
// times, unevenly, and each bough bends upwards.
vec3 Trunk(vec2 place, float foot, vec4 shape, float kind, float size, float moonAcross)
{
    float round = (place.s - shape.x) / (footWidth * shape.y * size);
    foot -= shape.y * size * (footDepth * max(1.0 - round * round, 0.0) + toes.x * Wave(toes.y * round + kind));
    float below = max(foot - place.t, 0.0);
    float moonAside = moonAcross - shape.x;
    float up = (max(place.t - foot, 0.0) + shadowShape.x * below) / size;
    float aside = (place.s - shape.x + shadowShape.y * moonAside * below) / size -
                  sway * (Wave(swayPeriods * up + kind) - Wave(kind)) - shape.w * up;
    float side = sign(aside);
    float pointed = mix(1.0, smoothstep(0.0, tipWidth, abs(aside)), min(16.0 * max(up - shape.z, 0.0), 1.0));
    float bough = max(up - shape.z, 0.0);
    float twig = max(bough - forks.x * (1.0 + uneven * side), 0.0);
    float spread = (boughSlope.x + boughSlope.y * side * sin(kind)) * bough * (1.0 - boughBend * bough) +
                   boughWave * (Wave(13.0 * up + kind + 4.0 * side) - 0.5) * min(20.0 * bough, 1.0);
    float away = abs(aside) - spread;
    float other = sign(away);
    pointed *= mix(1.0, smoothstep(0.0, tipWidth, abs(away)), min(16.0 * twig, 1.0));
    away = abs(away) - twigSlopes.x * twig * (1.0 - boughBend * twig);
    float twiglet = max(twig - forks.y * (1.0 + uneven * other * side), 0.0);
    away = abs(away) - twigSlopes.y * twiglet;
    float tip = max(twiglet - forks.z * (1.0 - uneven * other), 0.0);
    away = abs(abs(away) - twigSlopes.z * tip);

    float flare = trunkFlare.x * (1.0 - smoothstep(0.0, trunkFlare.y, up)) +
                  exp(-rootHeight * up) * (roots.x + roots.y * Wave(rootSizes * aside + kind));
    flare = place.t > foot ? 1.0 + flare : 1.0; // a shadow lies behind the roots
    float width = shape.y * (1.0 - up) * flare * (1.0 - taperings.x * min(14.0 * bough, 1.0)) *
                  (1.0 - taperings.y * min(16.0 * twig, 1.0)) * exp(-taperings.z * bough) * pointed;
    float drawn = max(width, thinnest / size);
    float soft = (inkEdge + shadowShape.z * below) / size;
    float cover = (1.0 - smoothstep(drawn - soft, drawn + soft, away)) * clamp(2.0 * width / drawn - 0.2, 0.0, 1.0);
    float stands = smoothstep(-inkEdge, inkEdge, place.t - foot);
    float rim = smoothstep(0.0, 0.3 * width, aside * sign(moonAside)) *
                (1.0 - smoothstep(0.0, rimWidth, width - away)) * smoothstep(rimmed.x, rimmed.y, width);
    return cover * vec3(stands, stands * rim, exp(-below / shadowDepth.y));
}

// How dark the wood is, the paler the farther its trunks; and what Trunk says of the two trees. All in one loop, in
// which these have the numbers -2 and -1, as its first round is made for every pixel there is.
vec4 Trees(vec2 place, float border, vec4 oak, vec4 ash, float size, float moonAcross, float wanted)
{
    vec4 trees = vec4(0.0);
    float from = wanted > 0.0 ? -2.0 : woodTrunks;
    float end = place.t > border ? woodTrunks : 0.0;
    for (float i = from; i < end; i += 1.0) {
        float near = fract(0.755 * i + 0.3);
        vec4 shape = vec4(fract(0.618 * i + 0.13), mix(woodWidths.x, woodWidths.y, near),
                          woodForks.x + woodForks.y * fract(0.37 * i), woodLean * (near - 0.5));
        shape = i < -1.0 ? oak : i < 0.0 ? ash : shape;
        float foot = border - (i < -1.0 ? feet.x : i < 0.0 ? feet.y : woodFoot);
        vec3 trunk = Trunk(place, foot, shape, 9.0 * i, i < 0.0 ? size : 1.0, moonAcross);
        trees = max(trees, i < 0.0 ? vec4(0.0, trunk) : vec4(trunk.x * mix(woodInk.x, woodInk.y, near), vec3(0.0)));
    }
    return trees;
}

// How much of a place the drawn tree covers.
float Limb(vec2 place, float last, float wanted)
{
    float strands = last * smoothstep(strandHeights.x, strandHeights.y, place.t);
    vec2 disc = mix(discRadius.x, discRadius.y, last) * vec2(1.0, aspect) * mix(vec2(1.0), strandShape, strands);
    float dark = 0.0;
    vec2 direction = vec2(1.0, 0.0);
    float taps = wanted > 0.0 ? firstTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / firstTaps);
        vec4 other = Drawn(place + away * disc);
        dark += (1.0 - bell * dot(away, away)) * max(Bark(other), Black(other));
        direction = TurnedOn(direction);
    }
    float count = max(taps, 1.0);
    float full = firstTaps * (1.0 - 0.5 * bell);
    taps = dark > 0.02 * full && dark < 0.98 * full ? moreTaps : 0.0;
    for (float i = 0.0; i < taps; i += 1.0) {
        vec2 away = direction * sqrt((i + 0.5) / moreTaps);
        vec4 other = Drawn(place + away * disc);
        dark += (1.0 - bell * dot(away, away)) * max(Bark(other), Black(other));
        direction = TurnedOn(direction);
    }
    float bar = mix(limbBar, strandBar, strands);
    return smoothstep(bar, bar + mix(limbEdge.x, limbEdge.y, strands), dark / ((count + taps) * (1.0 - 0.5 * bell)));
}

// Three sizes of a soft noise.
float Vapour(vec2 place)
{
    float large = Tooth(place);
    float middle = Tooth(place * 2.13 + large);
    return dot(vapourParts, vec3(large, middle, Tooth(place * 4.7 + middle)));
}

// How far the mist has come. The first tree's clock goes on from where it is told from the others.
float Drifted(float first)
{
    float left = max(nextTarget - blur_intensity, 0.0);
    float firstLeft = max(firstTarget - blur_intensity, 0.0) * (nextTarget - firstKnown) / (firstTarget - firstKnown);
    return -drift * log(mix(left, firstLeft, first) + targetMargin);
}

// The scene of the names.
vec3 Painted(vec2 place, float own)
{
    float overSky = 1.0 - Drawn(skyTap).a;
    float last = abs(blur_intensity - lastIntensity) < 0.00001 ? 1.0 : 0.0;
    float first = step(overSky + Drawn(firstTap).a + last, 0.5);
    vec4 camera = vec4(first, overSky * (1.0 - last), (1.0 - overSky) * (1.0 - first) * (1.0 - last), last);
    float number = dot(camera, vec4(0.0, 1.0, 2.0, 3.0));
    float risen = BorderRisen(last > 0.0 && own > 0.0);
    float inkTooth = Tooth(gl_FragCoord.xy * toothGrain);
    vec2 moon = vec2(dot(camera, moonsAcross), dot(camera, moonsUp));

    vec3 middles = vec3(dot(camera, farBorders), dot(camera, fieldBorders), dot(camera, nearBorders));
    vec3 slopes = vec3(dot(camera, farSlopes), dot(camera, fieldSlopes), dot(camera, nearSlopes));
    vec3 seeds = borderSeeds + number * borderSteps;
    vec3 borders = vec3(Border(place.s, middles.x, slopes.x, swells.x, swellSizes.x, seeds.x),
                        Border(place.s, middles.y, slopes.y, swells.y, swellSizes.y, seeds.y),
                        Border(place.s, middles.z, slopes.z, swells.z, swellSizes.z, seeds.z));
    vec3 here = place.t < borders.z   ? vec3(0.0, 0.0, 1.0)
                : place.t < borders.y ? vec3(0.0, 1.0, 0.0)
                                      : vec3(1.0, 0.0, 0.0);
    float below = dot(here, borders) - place.t;
    float over = place.t - borders.y;
    float behind = smoothstep(-inkEdge, inkEdge, over);

    vec3 points = vec3(dot(camera, farPoints), dot(camera, fieldPoints), dot(camera, nearPoints));
    vec3 furrows = Furrows(place, below, dot(here, points), dot(here, pointHeights), dot(here, furrowsEach));
    float pool = Tooth(place * poolSizes + 3.3 * number + 7.0 * here.z);
    float speck = Tooth(place * speckSizes + pool);
    float washed = mix(speck, pool, pools);
    vec3 slope = mix(parchmentLow, parchment, smoothstep(parchmentHeights.x, parchmentHeights.y, place.t));
    float glow = exp(-slopeGlow.z * length((place - moon) * vec2(shownAspect, 1.0)));
    slope = mix(farBlue, slope, slopeWarm.x + slopeWarm.y * glow) * (slopeGlow.x + slopeGlow.y * glow);
    vec3 farLand = mix(mix(farBlue, parchment, farGlow * glow), slope, camera.x + camera.z);
    farLand *= (farWash.x + farWash.y * washed) * (parcelTone.x + parcelTone.y * furrows.z);
    float lit = clamp(dot(earthWash, vec3(1.0, washed, below)) - nearEarth * here.z, 0.0, 1.0);
    vec3 land = mix(mix(earth, earthLit, lit), farLand, here.x);
    land *= mix(1.0, dot(here, furrowShade), furrows.x);
    land += frost * (dot(here, furrowFrost) * furrows.y +
                     dot(here, borderFrost) * smoothstep(borderFound.x, borderFound.y, speck) *
                         exp(-max(below, 0.0) / borderWidth));

    float farm = dot(camera, farms);
    vec2 home = vec2(farm, Border(farm, middles.x, slopes.x, swells.x, swellSizes.x, seeds.x) - farmFoot);
    vec3 colour = mix(Sky(place, moon) * (skyWash.x + skyWash.y * washed), land,
                      smoothstep(-inkEdge, inkEdge, borders.x - place.t));
    colour = mix(land, Farm(colour, place - home), behind);

    float moved = Drifted(first);
    float grown = mix(clamp((moved - growing.x) / (growing.y - growing.x), 0.0, 1.0), risen, last);
    grown *= 2.0 - grown;
    vec4 oak = camera.x * firstOak + camera.y * secondOak + camera.z * thirdOak + camera.w * lastOak;
    vec4 ash = camera.x * firstAsh + camera.y * secondAsh + camera.z * thirdAsh + camera.w * lastAsh;
    float size = mix(youngest, 1.0, grown);
    vec4 trees = Trees(place, borders.y, oak, ash, size, moon.x, own);
    float limb = Limb(place, last, own * behind * (camera.y + camera.w)) * smoothstep(limbFeet.x, limbFeet.y, place.t);
    colour = mix(colour, ink, behind * max(trees.x, limb * dot(limbInk, camera.yw)));

    float vapour = Vapour(vapourSizes * place + moved * vec2(1.0, 0.3) + 5.3 * number);
    vec3 mist = mix(mistDark, mistLight, smoothstep(vapourLight.x, vapourLight.y, vapour));
    float low = lowCover * exp(-max(over, 0.0) / lowMist.x - max(-over, 0.0) / lowMist.y) *
                smoothstep(lowShare.x, lowShare.y, vapour);
    colour = mix(colour, mist, low) * (1.0 - shadowDepth.x * trees.w);
    float bark = Tooth(barkLines * vec2(place.s + sway * Wave(swayPeriods * over), place.t));
    bark = smoothstep(barkShare.x, barkShare.y, bark) * (1.0 - smoothstep(barkHeights.x, barkHeights.y, over));
    vec3 trunk = mix(ink * (1.0 + barkLight * bark), mist, before * low) + moonlight * (rimLight * trees.z);
    colour = mix(colour, trunk, trees.y);

    float lifted = last > 0.0 ? smoothstep(0.0, 1.0, risen) : smoothstep(lifting.x, lifting.y, moved);
    colour = mix(colour, mist, (1.0 - lifted) * smoothstep(veilFeet.x, veilFeet.y, over) *
                                   dot(veilShare, vec2(1.0, vapour)));
    vec2 rooted = step(abs(place.s - vec2(oak.x, ash.x)), tuftWidth * size * vec2(oak.y, ash.y));
    float tuft = max(rooted.x * (borders.y - feet.x - oak.y * size), rooted.y * (borders.y - feet.y - ash.y * size));
    tuft -= tuftRoots * Wave(rootsEach * place.s);
    float root = here.y * tuft > borders.z ? tuft : dot(here, vec3(borders.yz, footRoots));
    float grass = Grass(place.s, place.t - root, dot(here, grassHeights),
                        dot(here, grassEach), number + dot(here, vec3(0.0, 1.0, 3.0)));
    colour = mix(colour, ink * dot(here, grassLight), grass * (1.0 - here.x * trees.y));
    colour = mix(colour, ink, Fence(place.s, place.t - borders.z, number) * (camera.y + camera.w));
    float line = min(abs(over), abs(place.t - borders.z));
    colour *= 1.0 - borderLine.x * (1.0 - smoothstep(0.5 * borderLine.y, borderLine.y, line)) * (1.0 - trees.y);
    return colour * mix(unlit, 1.0, LandLight(own > 0.0)) * (1.0 + grain * (2.0 * inkTooth - 1.0));
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
    gl_FragColor = mix(rounds > 0.0 ? sum / weights : drawn, vec4(Painted(place, own), 1.0), own) * gl_Color;
}
