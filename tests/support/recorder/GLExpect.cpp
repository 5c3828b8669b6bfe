// SPDX-License-Identifier: MIT
#include "tests/support/recorder/GLExpect.h"

#include "tests/support/recorder/GLRecorder.h"
#include "tests/support/recorder/GLText.h"

#include <cmath>

namespace gl
{

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

// A NaN is near to no number, itself included.
static bool Near(double actual, double expected, double tolerance)
{
    return actual == expected || std::fabs(actual - expected) <= tolerance;
}

static bool Near(const Point& a, const Point& b, double tolerance)
{
    return Near(a.x, b.x, tolerance) && Near(a.y, b.y, tolerance) && Near(a.z, b.z, tolerance) &&
           Near(a.w, b.w, tolerance);
}

static bool Near(const Colour& a, const Colour& b, double tolerance)
{
    return Near(a.r, b.r, tolerance) && Near(a.g, b.g, tolerance) && Near(a.b, b.b, tolerance) &&
           Near(a.a, b.a, tolerance);
}

static std::string ToleranceText(double tolerance)
{
    return tolerance == 0 ? "exactly" : "within " + NumberText(tolerance);
}

// What a draw is, for the first line of a failure.
static std::string Name(const Draw& draw)
{
    std::string text = ModeText(draw.mode) + " with " + std::to_string(draw.vertices.size()) + " vertices";
    const GLuint texture = draw.Texture(0);
    return text + (texture ? ", " + TextureLabel(texture) : ", untextured");
}

// ---- Lists of figures, compared line by line

static AssertionResult CompareLines(const Draw& draw, const std::string& what,
                                    const std::vector<std::string>& actual,
                                    const std::vector<std::string>& expected, const std::vector<bool>& same,
                                    double tolerance)
{
    bool equal = actual.size() == expected.size();
    for (size_t i = 0; i < same.size(); i++)
        equal = equal && same[i];
    if (equal)
        return AssertionSuccess();
    AssertionResult failure = AssertionFailure();
    failure << Name(draw) << ": " << what << " differ (compared " << ToleranceText(tolerance) << ")\n";
    for (size_t i = 0; i < std::max(actual.size(), expected.size()); i++) {
        const bool fits = i < same.size() && same[i];
        failure << (fits ? "    " : "  ! ") << i << ": " << (i < actual.size() ? actual[i] : "nothing");
        if (!fits)
            failure << "   expected " << (i < expected.size() ? expected[i] : "nothing");
        failure << "\n";
    }
    return failure;
}

static AssertionResult ComparePoints(const Draw& draw, const std::string& what,
                                     const std::vector<Point>& actual, const std::vector<Point>& expected,
                                     double tolerance)
{
    std::vector<std::string> actualTexts, expectedTexts;
    std::vector<bool> same;
    for (const Point& point : actual)
        actualTexts.push_back(PointText(point));
    for (const Point& point : expected)
        expectedTexts.push_back(PointText(point));
    for (size_t i = 0; i < std::min(actual.size(), expected.size()); i++)
        same.push_back(Near(actual[i], expected[i], tolerance));
    return CompareLines(draw, what, actualTexts, expectedTexts, same, tolerance);
}

static std::string CornerText(const Point& texCoord, const Point& vertex)
{
    std::string text = "(" + FloatText(texCoord.x) + ", " + FloatText(texCoord.y);
    if (texCoord.z != 0 || texCoord.w != 1)
        text += ", " + FloatText(texCoord.z) + ", " + FloatText(texCoord.w);
    return text + ") at " + PointText(vertex);
}

static AssertionResult CompareCorners(const Draw& draw, size_t first, size_t count,
                                      const std::vector<Corner>& corners, double tolerance, int unit)
{
    std::vector<std::string> actual, expected;
    std::vector<bool> same;
    for (size_t i = 0; i < count; i++) {
        const Vertex& vertex = draw.vertices[first + i];
        actual.push_back(CornerText(vertex.texCoord[unit], vertex.object));
        if (i < corners.size())
            same.push_back(Near(vertex.texCoord[unit], corners[i].texCoord, tolerance) &&
                           Near(vertex.object, corners[i].vertex, tolerance));
    }
    for (const Corner& corner : corners)
        expected.push_back(CornerText(corner.texCoord, corner.vertex));
    return CompareLines(draw, "corners", actual, expected, same, tolerance);
}

AssertionResult IsQuad(const Draw& draw, const std::vector<Corner>& corners, double tolerance)
{
    if (draw.mode != GL_QUADS)
        return AssertionFailure() << Name(draw) << ": expected GL_QUADS";
    return CompareCorners(draw, 0, draw.vertices.size(), corners, tolerance, 0);
}

AssertionResult HasQuad(const Draw& draw, int index, const std::vector<Corner>& corners, double tolerance)
{
    if (draw.mode != GL_QUADS)
        return AssertionFailure() << Name(draw) << ": expected GL_QUADS";
    if (index < 0 || size_t(index) * 4 + 4 > draw.vertices.size())
        return AssertionFailure() << Name(draw) << ": there is no quad " << index;
    return CompareCorners(draw, size_t(index) * 4, 4, corners, tolerance, 0);
}

AssertionResult HasCorners(const Draw& draw, const std::vector<Corner>& corners, double tolerance, int unit)
{
    return CompareCorners(draw, 0, draw.vertices.size(), corners, tolerance, unit);
}

AssertionResult HasVertices(const Draw& draw, const std::vector<Point>& vertices, double tolerance)
{
    std::vector<Point> actual;
    for (const Vertex& vertex : draw.vertices)
        actual.push_back(vertex.object);
    return ComparePoints(draw, "vertices", actual, vertices, tolerance);
}

AssertionResult HasTexCoords(const Draw& draw, const std::vector<Point>& texCoords, double tolerance,
                             int unit)
{
    std::vector<Point> actual;
    for (const Vertex& vertex : draw.vertices)
        actual.push_back(vertex.texCoord[unit]);
    return ComparePoints(draw, "texture coordinates", actual, texCoords, tolerance);
}

AssertionResult HasNormals(const Draw& draw, const std::vector<Point>& normals, double tolerance)
{
    std::vector<Point> actual;
    for (const Vertex& vertex : draw.vertices)
        actual.push_back(vertex.normal);
    return ComparePoints(draw, "normals", actual, normals, tolerance);
}

AssertionResult HasNormal(const Draw& draw, const Point& normal, double tolerance)
{
    return HasNormals(draw, std::vector<Point>(draw.vertices.size(), normal), tolerance);
}

AssertionResult HasEyePoints(const Draw& draw, const std::vector<Point>& points, double tolerance)
{
    std::vector<Point> actual;
    for (const Vertex& vertex : draw.vertices)
        actual.push_back(vertex.eye);
    return ComparePoints(draw, "eye coordinates", actual, points, tolerance);
}

AssertionResult HasWindowPoints(const Draw& draw, const std::vector<Point>& points, double tolerance)
{
    std::vector<Point> actual, expected;
    for (const Vertex& vertex : draw.vertices)
        actual.push_back(Point(vertex.window.x, vertex.window.y));
    for (const Point& point : points)
        expected.push_back(Point(point.x, point.y));
    return ComparePoints(draw, "window coordinates", actual, expected, tolerance);
}

// ---- Colour

AssertionResult HasColours(const Draw& draw, const std::vector<Colour>& colours, double tolerance)
{
    std::vector<std::string> actual, expected;
    std::vector<bool> same;
    for (size_t i = 0; i < draw.vertices.size(); i++) {
        actual.push_back(ColourText(draw.vertices[i].colour));
        if (i < colours.size())
            same.push_back(Near(draw.vertices[i].colour, colours[i], tolerance));
    }
    for (const Colour& colour : colours)
        expected.push_back(ColourText(colour));
    return CompareLines(draw, "colours", actual, expected, same, tolerance);
}

AssertionResult HasColour(const Draw& draw, const Colour& colour, double tolerance)
{
    return HasColours(draw, std::vector<Colour>(draw.vertices.size(), colour), tolerance);
}

// ---- State

static AssertionResult Expect(bool holds, const Draw& draw, const std::string& actual,
                              const std::string& expected)
{
    if (holds)
        return AssertionSuccess();
    return AssertionFailure() << Name(draw) << ": " << actual << ", expected " << expected;
}

static std::string BlendText(const State& state)
{
    return std::string("blending is ") + (state.Enabled(GL_BLEND) ? "on" : "off") + " with (" +
           FactorText(state.blendSource) + ", " + FactorText(state.blendDestination) + ")";
}

AssertionResult Blends(const Draw& draw, GLenum source, GLenum destination)
{
    const State& state = *draw.state;
    return Expect(
        state.Enabled(GL_BLEND) && state.blendSource == source && state.blendDestination == destination, draw,
        BlendText(state), "on with (" + FactorText(source) + ", " + FactorText(destination) + ")");
}

AssertionResult DoesNotBlend(const Draw& draw)
{
    return Expect(!draw.state->Enabled(GL_BLEND), draw, BlendText(*draw.state), "off");
}

static std::string OnText(bool on)
{
    return on ? "on" : "off";
}

AssertionResult TestsDepth(const Draw& draw, bool expected)
{
    const bool actual = draw.state->Enabled(GL_DEPTH_TEST);
    return Expect(actual == expected, draw, "the depth test is " + OnText(actual), OnText(expected));
}

AssertionResult WritesDepth(const Draw& draw, bool expected)
{
    const bool actual = draw.state->depthWrites;
    return Expect(actual == expected, draw, "depth writes are " + OnText(actual), OnText(expected));
}

AssertionResult IsLit(const Draw& draw, bool expected)
{
    const bool actual = draw.state->Enabled(GL_LIGHTING);
    return Expect(actual == expected, draw, "lighting is " + OnText(actual), OnText(expected));
}

static std::string RectangleText(const Rectangle& r)
{
    return "(" + std::to_string(r.x) + ", " + std::to_string(r.y) + ", " + std::to_string(r.width) + ", " +
           std::to_string(r.height) + ")";
}

AssertionResult HasViewport(const Draw& draw, int x, int y, int width, int height)
{
    const Rectangle& v = draw.state->viewport;
    return Expect(v.x == x && v.y == y && v.width == width && v.height == height, draw,
                  "the viewport is " + RectangleText(v), RectangleText({x, y, width, height}));
}

static std::string TextureText(const Draw& draw, int unit)
{
    const GLuint id = draw.Texture(unit);
    const TextureUnit& sampled = draw.state->units[unit];
    std::string text = "unit " + std::to_string(unit);
    if (id)
        return text + " has " + TextureLabel(id);
    text += sampled.texture2D ? " is enabled" : " is disabled";
    return text + (sampled.bound ? " with " + TextureLabel(sampled.bound) : " with none bound");
}

AssertionResult IsTextured(const Draw& draw, GLuint id, int unit)
{
    return Expect(id && draw.Texture(unit) == id, draw, TextureText(draw, unit), TextureLabel(id));
}

AssertionResult IsTextured(const Draw& draw, std::string label, int unit)
{
    const GLuint id = draw.Texture(unit);
    return Expect(id && TextureLabel(id) == label, draw, TextureText(draw, unit), label);
}

AssertionResult IsUntextured(const Draw& draw, int unit)
{
    return Expect(!draw.Texture(unit), draw, TextureText(draw, unit), "none");
}

AssertionResult UsesProgram(const Draw& draw, GLuint id)
{
    return Expect(draw.state->program == id, draw, "the program is " + std::to_string(draw.state->program),
                  std::to_string(id));
}

AssertionResult UsesNoProgram(const Draw& draw)
{
    return UsesProgram(draw, 0);
}

static std::string FloatsText(const std::vector<float>& values)
{
    std::string text;
    for (float value : values)
        text += (text.empty() ? "" : ", ") + FloatText(value);
    return "{" + text + "}";
}

AssertionResult HasUniform(const Draw& draw, std::string name, const std::vector<float>& values,
                           double tolerance)
{
    const auto found = draw.state->uniforms.find(name);
    if (found == draw.state->uniforms.end())
        return AssertionFailure() << Name(draw) << ": \"" << name << "\" is not set, expected "
                                  << FloatsText(values);
    bool same = found->second.size() == values.size();
    for (size_t i = 0; same && i < values.size(); i++)
        same = Near(found->second[i], values[i], tolerance);
    return Expect(same, draw, "\"" + name + "\" is " + FloatsText(found->second),
                  FloatsText(values) + " " + ToleranceText(tolerance));
}

// ---- Values

AssertionResult IsMatrix(const Matrix& actual, const Matrix& expected, double tolerance)
{
    for (int i = 0; i < 16; i++)
        if (!Near(actual.m[i], expected.m[i], tolerance))
            return AssertionFailure() << "element " << i << " differs by " << actual.m[i] - expected.m[i]
                                      << " (compared " << ToleranceText(tolerance) << ")\n"
                                      << MatrixText(actual) << "expected\n"
                                      << MatrixText(expected);
    return AssertionSuccess();
}

AssertionResult IsPoint(const Point& actual, const Point& expected, double tolerance)
{
    if (Near(actual, expected, tolerance))
        return AssertionSuccess();
    return AssertionFailure() << PointText(actual) << ", expected " << PointText(expected) << " "
                              << ToleranceText(tolerance);
}

AssertionResult IsColour(const Colour& actual, const Colour& expected, double tolerance)
{
    if (Near(actual, expected, tolerance))
        return AssertionSuccess();
    return AssertionFailure() << ColourText(actual) << ", expected " << ColourText(expected) << " "
                              << ToleranceText(tolerance);
}

// ---- Calls

AssertionResult CallsAre(const std::vector<std::string>& actual, const std::vector<std::string>& expected)
{
    size_t first = 0;
    while (first < actual.size() && first < expected.size() && actual[first] == expected[first])
        first++;
    if (first == actual.size() && first == expected.size())
        return AssertionSuccess();
    AssertionResult failure = AssertionFailure() << "the calls differ from number " << first << " on\n";
    for (size_t i = first > 3 ? first - 3 : 0; i < std::max(actual.size(), expected.size()) && i < first + 12;
         i++) {
        const std::string left = i < actual.size() ? actual[i] : "nothing";
        const std::string right = i < expected.size() ? expected[i] : "nothing";
        failure << (left == right ? "    " : "  ! ") << i << ": " << left;
        if (left != right)
            failure << "   expected " << right;
        failure << "\n";
    }
    return failure;
}

static bool Matches(const std::string& call, const std::string& expected)
{
    if (expected.find('(') != std::string::npos)
        return call == expected;
    return call.substr(0, call.find('(')) == expected;
}

AssertionResult CallsContain(const std::vector<std::string>& actual, const std::vector<std::string>& expected)
{
    size_t found = 0;
    size_t place = 0; // behind the last one found
    for (size_t i = 0; i < actual.size() && found < expected.size(); i++)
        if (Matches(actual[i], expected[found])) {
            found++;
            place = i + 1;
        }
    if (found == expected.size())
        return AssertionSuccess();
    AssertionResult failure = AssertionFailure() << expected[found] << " doesn't follow";
    if (found)
        failure << " on " << expected[found - 1] << ", where stand";
    failure << "\n";
    for (size_t i = place; i < actual.size() && i < place + 40; i++)
        failure << "    " << actual[i] << "\n";
    if (actual.size() > place + 40)
        failure << "    and " << actual.size() - place - 40 << " more\n";
    return failure;
}

static AssertionResult ListErrors()
{
    AssertionResult failure = AssertionFailure() << Errors().size() << " errors\n";
    for (const Error& error : Errors())
        failure << "    " << error.text << "\n";
    return failure;
}

AssertionResult NoErrors()
{
    return Errors().empty() ? AssertionSuccess() : ListErrors();
}

AssertionResult OnlyErrors(const std::vector<GLenum>& codes)
{
    bool same = codes.size() == Errors().size();
    for (size_t i = 0; same && i < codes.size(); i++)
        same = codes[i] == Errors()[i].code;
    if (same)
        return AssertionSuccess();
    AssertionResult failure = ListErrors();
    failure << "  expected\n";
    for (GLenum code : codes)
        failure << "    " << (code ? ErrorText(code) : "misuse") << "\n";
    return failure;
}

} // namespace gl
