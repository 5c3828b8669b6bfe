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
// drawn, a sky rises from a line of mist over the land.
//
// Of the scene of the names all that the light does not reach is black alike: a tree's shaded sides, its shadow
// and the land before the light comes up. They are told apart by what lies about them. Warm bark or sky make it
// the tree, and it becomes ink with a warm bounce; all else is shadow, a blue wash through which some of the land
// about it is seen. Once the land has no light, all that is black is night as the sky is, and so is the bark.
//
// A young tree is a few cubes. The effect lets blur_intensity grow with the tree, from -0.75, and rest at 0.25 or
// above, so that a scene can be told to be young: up to -0.1 it lies under banks of night mist, of which a moon lights
// the edges. They thin out from there, 0.25 keeps a little of them, and the crown of a tree stands before them. From
// 0.25 on they close again, lower, about the foot of a tree that has outgrown its picture. What is drawn is displaced
// by a noise besides, since the trees' cubes and their shadows have straight edges, and no brush does.

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

const vec3 night = vec3(0.112, 0.142, 0.272);
const vec3 nightAbove = vec3(0.075, 0.095, 0.184);
const float nightFoot = 0.35;                // the sky is night here, in heights of the picture,
const float nightTop = 1.05;                 // and would be the night above here
const vec3 mist = vec3(0.240, 0.288, 0.400); // a little lighter than the land's far border, as it is drawn
const float mistHeight = 0.16;               // to which the mist rises over the land
const float mistWidth = 0.10;                // to either side of what it rises from
const float mistTaps = 10.0;
const float mistLight = 0.25;             // blue of land from which mist rises in full
const float landTaps = 4.0;               // along the picture's foot:
const vec2 landLight = vec2(0.12, 0.32);  // blue there if the land has no light, and if it has all its light

const vec2 blackEnd = vec2(0.15, 0.45);        // light at which shade begins to give way to the scene, and has
const vec3 shadow = vec3(0.105, 0.130, 0.225); // on the land
const float seenThrough = 0.35;                // of the land's light
const float wash = 0.13;                       // by which the shadow's pigment gathers
const vec3 bark = vec3(0.045, 0.050, 0.085);   // in the shade
const vec3 bounce = vec3(0.075, 0.035, 0.010); // added to it beside lit bark
const float barkHue = 0.62;                    // blue is a lesser part of red than this in bark, a greater in land
const float barkEdge = 12.0;                   // how sharply they are told apart
const float shadeTaps = 8.0;
const vec2 shadeReach = vec2(0.075, 0.10); // of what lies about a black place: a circle on the screen
const vec2 shadeUp = vec2(0.0, 0.03);      // its middle: trees stand over their shadows
const float standing = 0.96;               // how much more a place is the tree's that lies in the upper half,
const vec2 upperHalf = vec2(0.45, 0.62);   // which begins between these heights
const float isTree = 0.21;                 // part of bark and sky about it that makes a black place the tree's
const float isWarm = 0.33;                 // part of lit bark about it that gives it the whole bounce

const float grain = 0.07; // of the paper, in parts of the light

const vec2 lifting = vec2(-0.1, 0.5);    // intensities at which the mist of a young scene begins to lift, and is gone
const vec2 closing = vec2(0.25, 0.7);    // at which it begins to close about an old one, and has closed
const float closed = 0.95;               // how thick it is then
const float banks = 5.0;                 // one behind the other
const float nearest = -0.02;             // height of the nearest one's edge, in heights of the picture,
const vec2 farthest = vec2(0.80, 0.70);  // and of the farthest one's over a young scene and an old one
const vec2 swell = vec2(0.19, 0.07);     // of the edges, near and far, in heights of the picture
const vec2 swells = vec2(3.2, 9.0);      // in its width
const vec2 bankDepth = vec2(0.55, 0.26); // over which a bank thins out below its edge
const float bankSoftness = 0.02;         // of the edges
const float thickest = 0.92;             // density of a bank
const float thin = 0.5;                  // density of a bank between its wisps,
const float haze = 0.55;                 // and of the air between the banks
const vec2 wisps = vec2(8.0, 21.0);      // in width and height of the picture
const float wispSwell = 0.045;           // of the edges
const float bankDrift = 0.5;             // in widths each intensity, of the banks,
const vec2 wispDrift = vec2(5.0, -1.5);  // in wisps, and of these
const vec3 bankBody = vec3(0.150, 0.188, 0.300);
const vec3 bankEdge = vec3(0.500, 0.555, 0.660); // in the moonlight,
const vec2 edgeLight = vec2(0.35, 0.95);         // of which so much falls on near and far ones
const vec2 crownHeights = vec2(0.50, 0.62);      // between these a tree comes before the banks

const float coarse = 0.016;            // by which what is drawn is displaced, in sides of the picture,
const vec2 fine = vec2(0.007, 0.004);  // with a little of a finer noise
const vec2 wobbles = vec2(34.0, 95.0); // features of either in the picture's width

// Even: neighbours differ as much as they can.
float Spread(vec2 cell) { return fract(52.9829189 * fract(dot(cell, vec2(0.06711056, 0.00583715)))); }

// Without any pattern.
float Hashed(vec2 cell)
{
    vec2 mixed = 50.0 * fract(cell * 0.3183099 + vec2(0.71, 0.113));
    return fract(mixed.x * mixed.y * (mixed.x + mixed.y));
}

// A soft noise with features of about one unit.
float Tooth(vec2 place)
{
    vec2 cell = floor(place);
    vec2 part = fract(place);
    part = part * part * (3.0 - 2.0 * part);
    return mix(mix(Hashed(cell), Hashed(cell + vec2(1.0, 0.0)), part.x),
               mix(Hashed(cell + vec2(0.0, 1.0)), Hashed(cell + vec2(1.0, 1.0)), part.x), part.y);
}

// The same along a line.
float Wave(float place)
{
    float cell = floor(place);
    float part = place - cell;
    part = part * part * (3.0 - 2.0 * part);
    return mix(Hashed(vec2(cell, 3.7)), Hashed(vec2(cell + 1.0, 3.7)), part);
}

// Two of them, the second made of the first's last digits.
vec2 HashedPair(vec2 cell)
{
    float first = Hashed(cell);
    return vec2(first, fract(first * 61.7));
}

// From where what is seen at a place is taken.
vec2 Wobbled(vec2 place)
{
    vec2 cell = floor(place * wobbles.x);
    vec2 part = place * wobbles.x - cell;
    part = part * part * (3.0 - 2.0 * part);
    vec2 low = mix(HashedPair(cell), HashedPair(cell + vec2(1.0, 0.0)), part.x);
    vec2 high = mix(HashedPair(cell + vec2(0.0, 1.0)), HashedPair(cell + vec2(1.0, 1.0)), part.x);
    return place + coarse * (mix(low, high, part.y) - 0.5) + fine * (Tooth(place * wobbles.y) - 0.5);
}

// 1 for a scene that fills the screen, 0 for a picture that is laid over one.
float Own() { return smoothstep(0.5, 1.0, gl_Color.a); }

vec4 Drawn(vec2 place) { return texture2D(picture, clamp(place, border, 1.0 - border)); }

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

vec3 Night(vec2 place) { return mix(night, nightAbove, smoothstep(nightFoot, nightTop, place.t)); }

// The line of mist lies where there is lit land close below. A tree there counts neither way.
vec3 Sky(vec2 place, float tooth, float day, float taps)
{
    float spread = fract(0.5 * Spread(gl_FragCoord.xy) + tooth);
    float land = 0.0;
    float known = 0.01;
    for (float i = 0.0; i < taps; i += 1.0) {
        float below = (i + spread) * (mistHeight / max(taps, 1.0));
        float aside = fract(0.618034 * i + spread) * (2.0 * mistWidth) - mistWidth;
        vec4 other = Drawn(place - vec2(aside, below));
        float lit = min(other.b / mistLight, 1.0);
        land += lit;
        known += max(lit, 1.0 - other.a);
    }
    land /= known;
    return mix(Night(place), mist, day * land * land);
}

// What is black in the scene.
vec3 Shade(vec2 place, float tooth, float rough, float day, float taps)
{
    vec2 direction = normalize(vec2(tooth - 0.51, rough - 0.49));
    vec2 middle = place + shadeUp;
    float sky = 0.0;
    float warm = 0.0;
    vec3 land = vec3(0.0);
    for (float i = 0.0; i < taps; i += 1.0) {
        vec4 other = Drawn(middle + direction * shadeReach * sqrt((i + 0.5) / max(taps, 1.0)));
        float lit = clamp((barkHue * other.r - other.b) * barkEdge, 0.0, 1.0);
        sky += 1.0 - other.a;
        warm += lit;
        land += other.rgb * (1.0 - lit);
        direction = vec2(direction.x * wholeGoldenTurn.x - direction.y * wholeGoldenTurn.y,
                         direction.x * wholeGoldenTurn.y + direction.y * wholeGoldenTurn.x);
    }
    float above = standing * smoothstep(upperHalf.x, upperHalf.y, place.t);
    float tree = min((warm + 1.2 * sky + above) / (isTree * max(taps, 1.0)), 1.0);
    float pigment = 2.0 * rough + tooth - 1.5;
    vec3 onLand = shadow * (1.0 + wash * pigment) + seenThrough * land / max(taps, 1.0);
    vec3 onTree = bark + bounce * min(warm / (isWarm * max(taps, 1.0)), 1.0);
    return mix(Night(place), mix(onLand, onTree, tree), day);
}

// The banks from the nearest to the farthest: their colour, and how much of the scene is seen through them.
vec4 Banks(vec2 place, float tree, float wanted)
{
    float lifted = smoothstep(lifting.x, lifting.y, blur_intensity);
    float old = smoothstep(closing.x, closing.y, blur_intensity);
    float thick = wanted * max(1.0 - lifted, closed * old);
    float crown = tree * lifted * (1.0 - old) * smoothstep(crownHeights.x, crownHeights.y, place.t);
    float wisp = Tooth(place * wisps + blur_intensity * wispDrift);
    float density = thick * (1.0 - crown);
    float top = mix(farthest.x, farthest.y, old);
    float rise = (top - nearest) / banks;
    float over = nearest + 0.5 * rise + wispSwell * (wisp - 0.5) - place.t; // from here to a bank's level edge
    float along = place.s + bankDrift * blur_intensity;
    vec3 colour = vec3(0.0);
    float through = 1.0;
    float count = thick > 0.0 ? banks : 0.0;
    for (float i = 0.0; i < count; i += 1.0) {
        float far = i / (banks - 1.0);
        float edge = over + mix(swell.x, swell.y, far) * (Wave(along * mix(swells.x, swells.y, far) + 17.3 * i) - 0.5);
        float depth = max(1.0 - max(edge, 0.0) / mix(bankDepth.x, bankDepth.y, far), 0.0);
        float bank = min(density * (thin + wisp) * depth, thickest) * smoothstep(-bankSoftness, bankSoftness, edge);
        float light = depth * depth * depth * mix(edgeLight.x, edgeLight.y, far) * (0.5 + wisp);
        colour += through * bank * mix(bankBody, bankEdge, light);
        through *= 1.0 - bank;
        over += rise;
    }
    float between = density * haze * smoothstep(top + 0.02, top - 0.12, place.t);
    return vec4(colour + through * between * bankBody, through * (1.0 - between));
}

// The scene as it is seen: with its night, or as it is under a lesser alpha.
vec4 Shown(vec4 scene, vec2 place)
{
    float own = Own();
    // The colour is already multiplied by the share of the pixel that is drawn.
    float light = max(max(scene.r, scene.g), scene.b) / max(scene.a, 0.01);
    float black = 1.0 - smoothstep(blackEnd.x, blackEnd.y, light);
    float tooth = Tooth(gl_FragCoord.xy * 0.9);
    float rough = Tooth(gl_FragCoord.xy * 0.31);
    bool isBlack = own * black * scene.a > 0.0;
    bool isSky = own * (1.0 - scene.a) > 0.0;
    float lit = clamp((barkHue * scene.r - scene.b) * barkEdge, 0.0, 1.0);
    float day = LandLight(isBlack || isSky || own * lit > 0.0);
    vec4 before = Banks(place, max(black, lit) * scene.a, own);
    float reads = before.a < 0.5 ? 0.5 : 1.0; // behind the banks half of the taps do
    vec3 drawn = mix(scene.rgb, Night(place) * scene.a, lit * (1.0 - day));
    vec3 colour = drawn + black * max(Shade(place, tooth, rough, day, isBlack ? reads * shadeTaps : 0.0) * scene.a - drawn, 0.0) +
                  (1.0 - scene.a) * Sky(place, tooth, day, isSky ? reads * mistTaps : 0.0);
    colour = colour * before.a + before.rgb;
    colour *= 1.0 + grain * (tooth + rough - 1.0);
    return vec4(mix(scene.rgb, colour, own), mix(scene.a, 1.0, own)) * gl_Color;
}

void main()
{
    vec2 place = mix(gl_TexCoord[0].st, Wobbled(gl_TexCoord[0].st), Own());
    float strength = max(blur_intensity, 0.0);
    float rounds = strength > 0.0 ? min(fewestRounds + roundsGained * strength, mostRounds) : 0.0;
    float least = max(rounds, fewestRounds);
    float weightStep = exp(-falloff / least);
    float radius = strength * reach * inversesqrt(least);

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
    vec4 scene = strength > 0.0 ? sum / weights : texture2D(picture, place);
    gl_FragColor = Shown(scene, place);
}
