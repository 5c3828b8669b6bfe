// SPDX-License-Identifier: MIT
#include "art/atelier/pictures/clouds/Body.h"

#include "art/atelier/Wash.h"

#include <algorithm>

namespace atelier
{

Vector2 Sight::operator()(Vector2 p) const
{
    p.y += cardHalf;
    return centre + Vector2{p.x * Cos(turn) - p.y * Sin(turn), p.x * Sin(turn) + p.y * Cos(turn)} * scale;
}

Vector2 Sight::Back(Vector2 place) const
{
    const Vector2 d = (place - centre) * (1 / scale);
    return {d.x * Cos(turn) + d.y * Sin(turn), -d.x * Sin(turn) + d.y * Cos(turn) - cardHalf};
}

std::vector<Vector2> Sight::operator()(std::vector<Vector2> points) const
{
    for (Vector2& p : points)
        p = (*this)(p);
    return points;
}

Shape Sausage(const std::vector<Vector2>& points, const std::vector<float>& radii)
{
    const Line spine = Through(points);
    // Where along the spine its own points lie.
    std::vector<float> at = {0};
    for (size_t i = 1; i < points.size(); i++)
        at.push_back(at.back() + Length(points[i] - points[i - 1]));
    const float length = LengthOf(spine);
    std::vector<Vector2> left, right;
    float way = 0;
    size_t piece = 1;
    for (size_t i = 0; i < spine.size(); i++) {
        if (i > 0)
            way += Length(spine[i] - spine[i - 1]);
        const float here = way / length * at.back();
        while (piece + 1 < at.size() && here > at[piece])
            piece++;
        const float radius = Mix(radii[piece - 1], radii[piece], Smooth(at[piece - 1], at[piece], here));
        const Vector2 d = DirectionAt(spine, way / length), side = Vector2{-d.y, d.x} * radius;
        left.push_back(spine[i] - side);
        right.push_back(spine[i] + side);
    }
    Line outline = left;
    outline.insert(outline.end(), right.rbegin(), right.rend());
    outline.push_back(outline.front());
    Shape shape(outline);
    shape.Add(Ellipse(spine.front(), radii.front(), radii.front()));
    shape.Add(Ellipse(spine.back(), radii.back(), radii.back()));
    return shape;
}

Mask Melted(int width, int height, const Shape& shape, float melt)
{
    return Filled(width, height, shape).Blur(melt).Curve(0.42f, 0.58f);
}

void Within(Canvas& canvas, Vector2 from, Vector2 to,
            const std::function<void(Canvas& part, Vector2 origin)>& paint)
{
    const int left = std::max(0, Floor(from.x)), top = std::max(0, Floor(from.y));
    const int right = std::min(canvas.Width(), Floor(to.x) + 1),
              bottom = std::min(canvas.Height(), Floor(to.y) + 1);
    if (right - left < 4 || bottom - top < 4)
        return;
    Canvas part = canvas.Crop(left, top, right - left, bottom - top);
    paint(part, {float(left), float(top)});
    for (int y = top; y < bottom; y++)
        for (int x = left; x < right; x++)
            canvas.At(x, y) = part.At(x - left, y - top);
}

void Around(Canvas& canvas, const std::vector<Vector2>& points, float room,
            const std::function<void(Canvas& part, Vector2 origin)>& paint)
{
    Vector2 from = points.front(), to = from;
    for (const Vector2 p : points) {
        from = {Min(from.x, p.x), Min(from.y, p.y)};
        to = {Max(to.x, p.x), Max(to.y, p.y)};
    }
    Within(canvas, from - Vector2{room, room}, to + Vector2{room, room}, paint);
}

static Mask Cut(const Mask& mask, int left, int top, int width, int height)
{
    Mask part(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            part.At(x, y) = mask.At(left + x, top + y);
    return part;
}

// Two layers of hatching where the body has turned away.
static void HatchShade(Canvas& canvas, const Mask& turned, const Mask& paint, const Stuff& stuff, float scale,
                       uint32_t seed)
{
    Mask lines(canvas.Width(), canvas.Height());
    Pen pen(lines, SketchPaper(),
            {.width = 2.3f * scale, .wobble = 0.6f * scale, .skip = 0.35f, .pool = 0.1f}, seed + 4);
    Mask tone = turned;
    tone.Curve(0.5f, 0.95f).Multiply(paint);
    Hatch(
        pen, tone,
        {.angle = 0.5f, .spacing = 6.5f * scale, .length = 44 * scale, .bend = 7 * scale, .faintest = 0.12f},
        seed + 5);
    tone.Curve(0.55f, 1);
    Hatch(pen, tone,
          {.angle = 1.5f, .spacing = 8 * scale, .length = 30 * scale, .bend = 5 * scale, .faintest = 0.2f},
          seed + 6);
    lines.Multiply(paint);
    canvas.Cover(lines, palette::Ink, stuff.hatch);
}

// The outline: a hair where the light falls, broken here and there, heavy in the shadow. depth: how far inside the
// body a place lies, in pixels.
static void DrawContour(Canvas& canvas, const Mask& turned, const Mask& paint, const Mask& depth,
                        const Stuff& stuff, float scale, uint32_t seed)
{
    const Noise noise(seed);
    Mask contour(canvas.Width(), canvas.Height());
    for (int y = 0; y < canvas.Height(); y++)
        for (int x = 0; x < canvas.Width(); x++) {
            if (paint.At(x, y) <= 0.01f)
                continue;
            const float fx = float(x), fy = float(y);
            const float in = depth.At(x, y);
            if (in > 9 * scale)
                continue;
            const float wander = noise.Gradient(fx / (34 * scale), fy / (34 * scale));
            const float t = Smooth(0.15f, 0.85f, turned.At(x, y));
            const float weight = stuff.contour * scale * (Mix(2.0f, 5.0f, t) + (1 + t) * wander) *
                                 Smooth(-0.62f, -0.4f, wander + 0.3f * t);
            const float painted = paint.At(x, y);
            contour.At(x, y) = (stuff.inkOver ? Smooth(0, 0.35f, painted) : painted) *
                               Smooth(weight + 0.6f * scale, weight - 0.6f * scale, in) *
                               Smooth(0.3f, 0.8f, weight);
        }
    canvas.Cover(contour, palette::Ink, 0.94f);
}

static void PaintWhole(Canvas& canvas, const Mask& body, const Stuff& stuff, float scale, uint32_t seed,
                       const Mask* open)
{
    const int width = canvas.Width(), height = canvas.Height();
    const Paper& paper = SketchPaper();
    const Noise noise(seed);
    Mask paint = body;
    if (open != nullptr)
        paint.Subtract(*open);
    canvas.Cover(paint, [&](float x, float y) {
        return stuff.light * (1 + 0.1f * noise.Fbm(x / (70 * scale), y / (70 * scale), 3));
    });

    // How far each place has turned away from the light: 0 faces it, 1 is in its own shadow.
    const Mask form = body.Blurred(15 * scale);
    const Vector2 light = Vector2{-15, -7} * scale;
    Mask turned(width, height);
    turned.Each(
        [&](float x, float y) {
            return Clamp(0.12f +
                         0.95f *
                             (form.Sample(x + light.x, y + light.y) - form.Sample(x - light.x, y - light.y)) +
                         0.1f * noise.Fbm(x / (26 * scale), y / (26 * scale), 2));
        },
        2);
    // Two washes, the second smaller and darker, each with a dried edge.
    for (int layer = 0; layer < 2; layer++) {
        const float from = layer == 0 ? 0.34f : 0.6f;
        Mask shade = turned;
        shade.Curve(from - 0.03f, from + 0.2f).Multiply(paint);
        canvas.Glaze(WashDensity(paper, shade,
                                 {.pool = 0.5f,
                                  .poolWidth = 2.5f * scale,
                                  .granulation = 0.5f,
                                  .bloom = 0.5f,
                                  .bloomSize = 60 * scale,
                                  .stray = 0.9f * scale},
                                 seed + 1 + uint32_t(layer))
                         .Multiply(paint),
                     stuff.shade, stuff.depth * (layer == 0 ? 0.45f : 0.5f));
    }
    // Light thrown back into the shadow from below, and the moon on the other side.
    const Mask depth = body.Inside(14 * scale);
    Mask back(width, height), rim(width, height);
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const float in = depth.At(x, y) / scale;
            if (in <= 0)
                continue;
            const float t = turned.At(x, y);
            back.At(x, y) = paint.At(x, y) * Hill(7, 4, in) * Smooth(0.55f, 0.8f, t);
            rim.At(x, y) = paint.At(x, y) * Hill(5, 4, in) * Smooth(0.2f, 0.02f, t);
        }
    canvas.Cover(back, stuff.back, 0.2f);
    canvas.Cover(rim, Mix(stuff.light, palette::Bone, 0.4f), stuff.rim);
    HatchShade(canvas, turned, paint, stuff, scale, seed);
    DrawContour(canvas, turned, paint, depth, stuff, scale, seed);
}

void PaintBody(Canvas& canvas, const Mask& body, const Stuff& stuff, float scale, uint32_t seed,
               const Mask* open)
{
    const float width = float(body.Width()), height = float(body.Height());
    Vector2 from = {width, height}, to = {0, 0};
    for (int y = 0; y < body.Height(); y++)
        for (int x = 0; x < body.Width(); x++)
            if (body.At(x, y) > 0) {
                const float fx = float(x), fy = float(y);
                from = {Min(from.x, fx), Min(from.y, fy)};
                to = {Max(to.x, fx), Max(to.y, fy)};
            }
    // Room for the light that is looked for beside the body.
    const Vector2 room = {34 * scale, 34 * scale};
    Within(canvas, from - room, to + room, [&](Canvas& part, Vector2 origin) {
        const int left = Floor(origin.x), top = Floor(origin.y);
        const Mask near = Cut(body, left, top, part.Width(), part.Height());
        if (open == nullptr) {
            PaintWhole(part, near, stuff, scale, seed, nullptr);
        } else {
            const Mask growing = Cut(*open, left, top, part.Width(), part.Height());
            PaintWhole(part, near, stuff, scale, seed, &growing);
        }
    });
}

void Strokes(Pen& pen, const std::vector<std::vector<Vector2>>& strokes, Press press)
{
    for (const std::vector<Vector2>& stroke : strokes)
        pen.Stroke(Through(stroke), press);
}

} // namespace atelier
