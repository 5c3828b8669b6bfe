// SPDX-License-Identifier: MIT
// The picture as SVG 1.1: text, readable by browsers, drawing programs and printers.
#pragma once

#include "tools/timeline/Drawing.h"
#include "tools/timeline/Picture.h"

#include <string>

namespace timeline
{

class SvgDrawing : public Drawing
{
public:
    // The prefix keeps ids apart where several pictures lie in one page.
    explicit SvgDrawing(std::string idPrefix);

    void BeginGroup(const Group& group) override;
    void EndGroup() override;
    void FillBox(const Box& box, const Wash& wash, double radius) override;
    void FillShape(const std::vector<Point>& corners, Colour colour) override;
    void StrokeSegments(const std::vector<Segment>& segments, Colour colour, double width) override;
    void Write(const PlacedText& text) override;
    void Sense(const Box& box) override;

    std::string body; // elements
    std::string Definitions() const;

private:
    std::string Fill(const Wash& wash);

    std::string prefix;
    std::vector<Wash> washes; // those that need a definition; the index is part of the id
};

// A whole file.
std::string SvgPicture(const TimelineModel& model, const Layout& layout);

// One <svg> element that shows the box of the canvas, for a page that carries TypeStyle itself.
std::string SvgPart(const TimelineModel& model, const Layout& layout, int parts, const Box& view,
                    const std::string& idPrefix, const std::string& attributes);

// The rules for the classes that texts have.
std::string TypeStyle();

// Text for XML and HTML, between tags or between double quotes.
std::string Escape(const std::string& text);

// "12.5": two decimals at most.
std::string Figure(double value);

} // namespace timeline
