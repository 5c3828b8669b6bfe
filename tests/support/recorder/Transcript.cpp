// SPDX-License-Identifier: MIT
#include "tests/support/recorder/Transcript.h"

#include "tests/support/recorder/GLRecorder.h"
#include "tests/support/recorder/GLText.h"

#include "tests/Folders.h"

#include <cctype>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

using testing::AssertionFailure;
using testing::AssertionResult;
using testing::AssertionSuccess;

namespace gl
{

static const size_t longestUnit = 12;  // blocks and calls that are looked at as one thing that repeats
static const size_t fewestRepeats = 6; // from where it is folded
static const size_t shownRepeats = 2;  // of a call; of anything longer the first alone
static const double slackAbsolute = 2e-5;
static const double slackRelative = 1e-5;
static const char foldMark[] = "... ";

struct Node {
    std::string text;
    std::string closing; // of a block
    std::vector<Node> children;
    std::string shape; // the text without its numbers, with the shapes of all children
};

// A piece of a line: a number or the text between two.
struct Piece {
    bool isNumber;
    double number;
    std::string text;
};

static std::vector<Piece> PiecesOf(const std::string& line)
{
    std::vector<Piece> pieces;
    for (size_t i = 0; i < line.size();) {
        const bool afterWord = i > 0 && (isalnum((unsigned char)line[i - 1]) || line[i - 1] == '_');
        const bool sign = line[i] == '-' && i + 1 < line.size() && isdigit((unsigned char)line[i + 1]);
        if (!afterWord && (sign || isdigit((unsigned char)line[i]))) {
            char* end;
            const double number = strtod(&line[i], &end);
            const size_t length = size_t(end - &line[i]);
            pieces.push_back({true, number, line.substr(i, length)});
            i += length;
        } else {
            if (pieces.empty() || pieces.back().isNumber)
                pieces.push_back({false, 0, ""});
            pieces.back().text += line[i++];
        }
    }
    return pieces;
}

static std::string ShapeOf(const std::string& line)
{
    std::string shape;
    for (const Piece& piece : PiecesOf(line))
        shape += piece.isNumber ? "#" : piece.text;
    return shape;
}

static std::string NameOf(const std::string& call)
{
    return call.substr(0, call.find('('));
}

static std::string ClosingOf(const std::string& call)
{
    const std::string name = NameOf(call);
    if (name == "glPushMatrix")
        return "glPopMatrix";
    if (name == "glBegin")
        return "glEnd";
    if (name == "glNewList")
        return "glEndList";
    return "";
}

// Reads blocks up to the call that closes this one. A pop without a push is a call like any other.
static std::vector<Node> Parse(const std::vector<std::string>& calls, size_t* next,
                               const std::string& closing, std::string* closedBy)
{
    std::vector<Node> nodes;
    std::string vertex; // what came since the last one
    const bool inBegin = closing == "glEnd";
    while (*next < calls.size()) {
        const std::string& call = calls[(*next)++];
        if (!closing.empty() && NameOf(call) == closing) {
            *closedBy = call;
            break;
        }
        if (inBegin && NameOf(call).rfind("glVertex", 0) != 0) {
            vertex += call + " ";
            continue;
        }
        Node node;
        node.text = vertex + call;
        vertex.clear();
        node.shape = ShapeOf(node.text);
        const std::string end = ClosingOf(call);
        if (!end.empty()) {
            node.closing = end;
            node.children = Parse(calls, next, end, &node.closing);
            node.shape += "{";
            for (const Node& child : node.children)
                node.shape += child.shape + ";";
            node.shape += "}";
        }
        nodes.push_back(node);
    }
    if (!vertex.empty())
        nodes.push_back({vertex, "", {}, ShapeOf(vertex)});
    return nodes;
}

static size_t Repeats(const std::vector<Node>& nodes, size_t first, size_t unit)
{
    size_t repeats = 1;
    for (size_t i = first + unit; i + unit <= nodes.size(); i += unit, repeats++)
        for (size_t k = 0; k < unit; k++)
            if (nodes[i + k].shape != nodes[first + k].shape)
                return repeats;
    return repeats;
}

struct Sums {
    double plain, weighted;
    size_t count;
};

static void AddUp(const Node& node, Sums* sums)
{
    for (const Piece& piece : PiecesOf(node.text))
        if (piece.isNumber) {
            sums->plain += piece.number;
            sums->weighted += piece.number * double(++sums->count % 89);
        }
    for (const Node& child : node.children)
        AddUp(child, sums);
}

static void Write(const std::vector<Node>& nodes, const std::string& indent, std::vector<std::string>* lines);

static void WriteOne(const Node& node, const std::string& indent, std::vector<std::string>* lines)
{
    lines->push_back(indent + node.text);
    if (node.closing.empty())
        return;
    Write(node.children, indent + "  ", lines);
    lines->push_back(indent + node.closing);
}

static void Write(const std::vector<Node>& nodes, const std::string& indent, std::vector<std::string>* lines)
{
    for (size_t i = 0; i < nodes.size();) {
        size_t unit = 1, repeats = 1;
        for (; unit <= longestUnit && i + unit <= nodes.size(); unit++)
            if ((repeats = Repeats(nodes, i, unit)) >= fewestRepeats)
                break;
        if (repeats < fewestRepeats) {
            WriteOne(nodes[i++], indent, lines);
            continue;
        }
        const size_t shown = unit == 1 && nodes[i].closing.empty() ? shownRepeats : 1;
        Sums sums = {0, 0, 0};
        for (size_t n = 0; n < repeats * unit; n++)
            if (n < shown * unit)
                WriteOne(nodes[i + n], indent, lines);
            else
                AddUp(nodes[i + n], &sums);
        char text[120];
        snprintf(text, sizeof text, "%s%d more like that, %.5f %.5f", foldMark, int(repeats - shown),
                 sums.plain, sums.weighted);
        lines->push_back(indent + text);
        i += repeats * unit;
    }
}

static std::string VertexLine(const Vertex& vertex)
{
    return "texCoord " + PointText(vertex.texCoord[0]) + " colour " + ColourText(vertex.colour) + " normal " +
           PointText(vertex.normal) + " vertex " + PointText(vertex.object);
}

std::vector<std::string> CallsWithVertices()
{
    std::vector<std::string> lines;
    size_t draw = 0;
    const std::vector<Event>& events = Events();
    for (size_t i = 0; i < events.size(); i++) {
        const Event& event = events[i];
        const bool arrays = event.kind == EventCall && strcmp(event.name, "glDrawArrays") == 0;
        if (!event.nested || arrays)
            lines.push_back(event.Text());
        while (draw < Draws().size() && Draws()[draw].event < int(i))
            draw++;
        if (arrays && draw < Draws().size() && Draws()[draw].event == int(i))
            for (const Vertex& vertex : Draws()[draw].vertices)
                lines.push_back(VertexLine(vertex));
    }
    return lines;
}

std::vector<std::string> Transcript(const std::vector<std::string>& calls)
{
    std::vector<std::string> lines;
    size_t next = 0;
    std::string none;
    Write(Parse(calls, &next, "", &none), "", &lines);
    return lines;
}

static bool SameLine(const std::string& actual, const std::string& expected)
{
    const std::vector<Piece> a = PiecesOf(actual), b = PiecesOf(expected);
    if (a.size() != b.size())
        return false;
    const double factor = expected.find(foldMark) != std::string::npos ? 10 : 1;
    double largest = 0; // sums can cancel out, and then err by more than a part of themselves
    for (const Piece& piece : b)
        largest = std::max(largest, std::fabs(piece.number));
    for (size_t i = 0; i < a.size(); i++) {
        if (a[i].isNumber != b[i].isNumber || (!a[i].isNumber && a[i].text != b[i].text))
            return false;
        const double scale = factor > 1 && i > 1 ? largest : std::fabs(b[i].number);
        if (a[i].isNumber &&
            std::fabs(a[i].number - b[i].number) > factor * (slackAbsolute + slackRelative * scale))
            return false;
    }
    return true;
}

AssertionResult MatchesTranscriptIn(std::string folder, bool update, const std::vector<std::string>& lines,
                                    std::string name)
{
    const std::string path = folder + "/" + name + ".txt";
    if (update) {
        std::filesystem::create_directories(folder);
        std::ofstream file(path, std::ios::binary);
        for (const std::string& line : lines)
            file << line << "\n";
        return AssertionSuccess();
    }
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return AssertionFailure() << "there is no transcript " << path
                                  << "; run the test with MARLINEX_UPDATE_GOLDEN=1 and read what it wrote";
    std::vector<std::string> expected;
    for (std::string line; std::getline(file, line);)
        expected.push_back(line);
    for (size_t i = 0; i < std::max(lines.size(), expected.size()); i++) {
        const std::string actual = i < lines.size() ? lines[i] : "(nothing more)";
        const std::string wanted = i < expected.size() ? expected[i] : "(nothing more)";
        if (!SameLine(actual, wanted))
            return AssertionFailure() << name << ", line " << i + 1 << " of the transcript\n  sent     "
                                      << actual << "\n  expected " << wanted << "\n  " << path;
    }
    return AssertionSuccess();
}

AssertionResult MatchesTranscript(const std::vector<std::string>& lines, std::string name)
{
    const char* const update = getenv("MARLINEX_UPDATE_GOLDEN");
    return MatchesTranscriptIn(SOURCE_DIR "/tests/golden/calls", update && strcmp(update, "1") == 0, lines,
                               name);
}

} // namespace gl
