// SPDX-License-Identifier: MIT
// The picture as SVG 1.1, for browsers and drawing programs.
#pragma once

#include "tools/timeline/Painter.h"
#include "tools/timeline/TimelinePicture.h"

#include <string>

namespace timeline
{

class SvgPainter : public Painter
{
public:
    // The prefix keeps ids apart where several pictures lie in one page.
    explicit SvgPainter(std::string idPrefix);

    void BeginGroup(const PaintedGroup& group) override;
    void EndGroup() override;
    void FillRect(const CanvasRect& box, const Wash& wash, double radius) override;
    void FillShape(const std::vector<Point>& corners, ScreenColour colour) override;
    void StrokeSegments(const std::vector<Segment>& segments, ScreenColour colour, double width) override;
    void Write(const PlacedText& text) override;
    void Sense(const CanvasRect& box) override;

    std::string body; // elements
    std::string Definitions() const;

private:
    std::string Fill(const Wash& wash);

    std::string prefix;
    std::vector<Wash> washes; // those that need a definition; the index is part of the id
};

// Returns the text of a whole SVG file.
std::string SvgPicture(const TimelineModel& model, const Layout& layout);

// Returns one <svg> element that shows the box `view` of the canvas, to be put into a page. It has no style sheet: the
// page must have the rules of TypeStyle. The prefix keeps its ids apart from those of other elements.
std::string SvgPart(const TimelineModel& model, const Layout& layout, int parts, const CanvasRect& view,
                    const std::string& idPrefix, const std::string& attributes);

// The CSS rules of the classes that text elements have, one for each TextStyle.
std::string TypeStyle();

// Escapes a text for XML and HTML, between tags or between double quotes.
std::string Escape(const std::string& text);

// Formats a number for an attribute, with two decimals at most: "12.5".
std::string Figure(double value);

} // namespace timeline
