// SPDX-License-Identifier: MIT
#include "tools/timeline/SvgWriter.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace timeline
{

static const char* const serif =
    "'Palatino Linotype',Palatino,'Book Antiqua','Iowan Old Style',Georgia,serif";
static const char* const sans = "'Segoe UI','Helvetica Neue',Helvetica,Arial,'Liberation Sans',sans-serif";

std::string Figure(double value)
{
    const long long hundredths = std::llround(value * 100);
    const long long size = std::llabs(hundredths);
    std::string text = (hundredths < 0 ? "-" : "") + std::to_string(size / 100);
    if (size % 100) {
        text += '.';
        text += char('0' + size / 10 % 10);
        if (size % 10)
            text += char('0' + size % 10);
    }
    return text;
}

std::string Escape(const std::string& text)
{
    std::string escaped;
    for (const char c : Clean(text))
        switch (c) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    return escaped;
}

static std::string Hex(uint32_t rgb)
{
    char text[8];
    snprintf(text, sizeof text, "#%06x", rgb & 0xffffff);
    return text;
}

static std::string Paint(const char* what, ScreenColour colour)
{
    std::string text = std::string(" ") + what + "=\"" + Hex(colour.rgb) + "\"";
    if (colour.alpha < 1)
        text += std::string(" ") + what + "-opacity=\"" + Figure(double(colour.alpha)) + "\"";
    return text;
}

static std::string Place(const CanvasRect& box)
{
    return " x=\"" + Figure(box.x) + "\" y=\"" + Figure(box.y) + "\" width=\"" + Figure(box.width) +
           "\" height=\"" + Figure(box.height) + "\"";
}

SvgPainter::SvgPainter(std::string idPrefix) : prefix(idPrefix) {}

void SvgPainter::BeginGroup(const PaintedGroup& group)
{
    body += "<g class=\"" + std::string(group.kind) + "\"";
    for (const auto& [name, value] : group.data)
        body += " data-" + std::string(name) + "=\"" + Escape(value) + "\"";
    body += ">";
    if (!group.title.empty())
        body += "<title>" + Escape(group.title) + "</title>";
    body += "\n";
}

void SvgPainter::EndGroup()
{
    body += "</g>\n";
}

std::string SvgPainter::Fill(const Wash& wash)
{
    if (wash.top == wash.bottom)
        return Paint("fill", wash.top);
    size_t i = 0;
    while (i < washes.size() && !(washes[i].top == wash.top && washes[i].bottom == wash.bottom))
        i++;
    if (i == washes.size())
        washes.push_back(wash);
    return " fill=\"url(#" + prefix + "w" + std::to_string(i) + ")\"";
}

std::string SvgPainter::Definitions() const
{
    if (washes.empty())
        return "";
    std::string text = "<defs>\n";
    for (size_t i = 0; i < washes.size(); i++)
        text += "<linearGradient id=\"" + prefix + "w" + std::to_string(i) +
                "\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" stop-color=\"" +
                Hex(washes[i].top.rgb) + "\"/><stop offset=\"1\" stop-color=\"" + Hex(washes[i].bottom.rgb) +
                "\"/></linearGradient>\n";
    return text + "</defs>\n";
}

void SvgPainter::FillRect(const CanvasRect& box, const Wash& wash, double radius)
{
    body += "<rect" + Place(box);
    if (radius > 0)
        body += " rx=\"" + Figure(radius) + "\"";
    body += Fill(wash) + "/>\n";
}

void SvgPainter::FillShape(const std::vector<Point>& corners, ScreenColour colour)
{
    body += "<path" + Paint("fill", colour) + " d=\"";
    // Steps are relative, in hundredths, which is short. Each starts at the rounded end of the one before, so that
    // rounding errors do not add up.
    long long lastX = 0, lastY = 0;
    for (size_t i = 0; i < corners.size(); i++) {
        const long long x = std::llround(corners[i].x * 100), y = std::llround(corners[i].y * 100);
        const std::string stepX = Figure(double(x - lastX) / 100), stepY = Figure(double(y - lastY) / 100);
        body += i == 0 ? "M" : i == 1 ? "l" : stepX[0] == '-' ? "" : " ";
        body += stepX + (stepY[0] == '-' ? "" : " ") + stepY;
        lastX = x;
        lastY = y;
    }
    body += "z\"/>\n";
}

void SvgPainter::StrokeSegments(const std::vector<Segment>& segments, ScreenColour colour, double width)
{
    if (segments.empty())
        return;
    body += "<path fill=\"none\"" + Paint("stroke", colour) + " stroke-width=\"" + Figure(width) + "\" d=\"";
    for (const Segment& segment : segments) {
        body += "M" + Figure(segment.from.x) + " " + Figure(segment.from.y);
        if (segment.from.x == segment.to.x)
            body += "V" + Figure(segment.to.y);
        else
            body += "L" + Figure(segment.to.x) + " " + Figure(segment.to.y);
    }
    body += "\"/>\n";
}

void SvgPainter::Write(const PlacedText& text)
{
    body += "<text class=\"t" + std::to_string(text.style) + "\" x=\"" + Figure(text.x) + "\" y=\"" +
            Figure(text.baseline) + "\"" + Paint("fill", text.colour) + ">" + Escape(text.text) + "</text>\n";
}

void SvgPainter::Sense(const CanvasRect& box)
{
    body += "<rect" + Place(box) + " fill=\"none\" pointer-events=\"all\"/>\n";
}

std::string TypeStyle()
{
    std::string rules = "text{white-space:pre}\n";
    for (int i = 0; i < TextStyleCount; i++) {
        const TextShape& shape = ShapeOf(TextStyle(i));
        rules += ".t" + std::to_string(i) + "{font:" + (shape.italic ? "italic " : "") +
                 (shape.bold ? "bold " : "") + Figure(shape.size) + "px " + (shape.serif ? serif : sans) +
                 "}\n";
    }
    return rules;
}

std::string SvgPart(const TimelineModel& model, const Layout& layout, int parts, const CanvasRect& view,
                    const std::string& idPrefix, const std::string& attributes)
{
    SvgPainter painter(idPrefix);
    DrawPicture(model, layout, parts, &painter);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" xml:space=\"preserve\" viewBox=\"" +
           Figure(view.x) + " " + Figure(view.y) + " " + Figure(view.width) + " " + Figure(view.height) +
           "\" data-zero=\"" + Figure(layout.zero) + "\" data-per-second=\"" +
           std::to_string(layout.perSecond) + "\" data-start=\"" + MillisecondText(layout.start) +
           "\" data-end=\"" + MillisecondText(layout.end) + "\"" + attributes + ">\n" +
           (parts == WholePicture ? "<style>\n" + TypeStyle() + "</style>\n" : "") + painter.Definitions() +
           painter.body + "</svg>\n";
}

std::string SvgPicture(const TimelineModel& model, const Layout& layout)
{
    const std::string size = " width=\"" + Figure(layout.width) + "\" height=\"" + Figure(layout.height) +
                             "\" aria-label=\"" + Escape(model.title) + "\"";
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" +
           SvgPart(model, layout, WholePicture, {0, 0, layout.width, layout.height}, "", size);
}

} // namespace timeline
