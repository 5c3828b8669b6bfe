// SPDX-License-Identifier: MIT
#include "tools/timeline/HtmlWriter.h"

#include "tests/support/BusyShow.h"
#include "tests/support/Patterns.h"
#include "tests/support/Xml.h"
#include "tools/timeline/HtmlPage.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <sstream>

using namespace timeline;

// Every <svg> of the page, parsed.
static std::vector<XmlElement> Pictures(const std::string& page)
{
    std::vector<XmlElement> pictures;
    for (size_t begin = page.find("<svg"); begin != std::string::npos; begin = page.find("<svg", begin + 1)) {
        const size_t end = page.find("</svg>", begin) + strlen("</svg>");
        XmlElement picture;
        std::string error;
        EXPECT_TRUE(ParseXml(page.substr(begin, end - begin), &picture, &error)) << error;
        pictures.push_back(picture);
    }
    return pictures;
}

static std::vector<XmlElement> Sheets(const std::string& page)
{
    std::vector<XmlElement> sheets;
    for (const XmlElement& picture : Pictures(page))
        if (picture["class"].find("sheet") == 0)
            sheets.push_back(picture);
    return sheets;
}

TEST(TimelineHtml, IsOneFileThatAsksForNoOther)
{
    const std::string page = HtmlPicture(BusyShow(20, 40, 5), {});
    EXPECT_EQ(0u, page.find("<!DOCTYPE html>"));
    for (const char* outside :
         {"href", "src=", "@import", "url(h", "fetch(", "//cdn", "<link", "<iframe", "<img"})
        EXPECT_EQ(std::string::npos, page.find(outside)) << outside;
}

TEST(TimelineHtml, HasTheColoursThatItsStyleUses)
{
    const std::string style = PageStyle();
    EXPECT_NE(std::string::npos, style.find("--ink: #0d1020;"));
    EXPECT_NE(std::string::npos, style.find("--amber-parts: 240 176 80;"));
    const std::vector<PatternMatch> uses = FindAll(style, "var\\((--[a-z-]+)\\)");
    EXPECT_GT(uses.size(), 10u);
    for (const PatternMatch& use : uses)
        EXPECT_NE(std::string::npos, style.find(" " + use[1] + ": ")) << use[1];
}

TEST(TimelineHtml, WithoutScriptsItIsHeadGutterPlotAndFoot)
{
    const std::string page = HtmlPicture(BusyShow(20, 40, 5), {});
    const std::vector<XmlElement> pictures = Pictures(page);
    ASSERT_GE(pictures.size(), 4u);
    std::vector<XmlElement> shown;
    for (const XmlElement& picture : pictures)
        if (picture["class"].find("away") == std::string::npos)
            shown.push_back(picture);
    ASSERT_EQ(4u, shown.size());
    // They tile the canvas of the whole picture.
    const Layout layout = LayOut(BusyShow(20, 40, 5), {});
    double area = 0;
    for (const XmlElement& picture : shown) {
        std::istringstream view(picture["viewBox"]);
        double x, y, width, height;
        ASSERT_TRUE(view >> x >> y >> width >> height);
        area += width * height;
    }
    EXPECT_NEAR(layout.width * layout.height, area, layout.width * layout.height * 1e-4);
    EXPECT_EQ(20u, shown[2].All("g", "entry").size());
}

TEST(TimelineHtml, EachSheetIsTwiceAsWideAsTheOneBefore)
{
    const std::vector<XmlElement> sheets = Sheets(HtmlPicture(BusyShow(20, 40, 5), {}));
    ASSERT_GE(sheets.size(), 4u);
    for (size_t i = 1; i < sheets.size(); i++)
        EXPECT_NEAR(2 * sheets[i - 1].Number("data-per-second"), sheets[i].Number("data-per-second"), 1e-4);
    // On the last one a beat has room for a finger.
    EXPECT_GE(sheets.back().Number("data-per-second") * 0.6, 40);
    for (const XmlElement& sheet : sheets)
        EXPECT_EQ(20u, sheet.All("g", "entry").size());
}

TEST(TimelineHtml, EveryMessageHasItsTickOnEverySheet)
{
    const TimelineModel model = BusyShow(100, 300, 0);
    for (const XmlElement& sheet : Sheets(HtmlPicture(model, {}))) {
        size_t times = 0, expected = 0;
        for (const XmlElement* tick : sheet.All("g", "message")) {
            std::istringstream list((*tick)["data-times"]);
            for (std::string each; list >> each;)
                times++;
        }
        for (const Message& message : model.messages)
            expected += message.entries.empty() ? 1 : message.entries.size();
        EXPECT_EQ(expected, times);
    }
}

TEST(TimelineHtml, IdsAreUniqueInThePage)
{
    std::set<std::string> ids;
    for (const XmlElement& picture : Pictures(HtmlPicture(BusyShow(20, 40, 5), {})))
        for (const XmlElement* definition : picture.All("linearGradient"))
            EXPECT_TRUE(ids.insert((*definition)["id"]).second) << (*definition)["id"];
    EXPECT_FALSE(ids.empty());
}

TEST(TimelineHtml, OddTitlesAreEscaped)
{
    TimelineModel model;
    model.title = "</title><script>alert(1)</script>&";
    const std::string page = HtmlPicture(model, {});
    EXPECT_NE(std::string::npos,
              page.find("<title>&lt;/title&gt;&lt;script&gt;alert(1)&lt;/script&gt;&amp;</title>"));
    EXPECT_EQ(std::string::npos, page.find("<script>alert"));
}

TEST(TimelineHtml, TheScriptCannotEndItselfEarly)
{
    EXPECT_EQ(std::string::npos, PageScript().find("</"));
    EXPECT_EQ(std::string::npos, PageScript().find("<!--"));
    EXPECT_EQ(std::string::npos, PageStyle().find("</"));
}

TEST(TimelineHtml, TheTempoGoesWithThePage)
{
    LayoutOptions options;
    options.tempo = {128, 4};
    const std::string page = HtmlPicture(BusyShow(3, 3, 0), options);
    EXPECT_NE(std::string::npos, page.find("data-beat=\"0.46875\" data-beats=\"4\""));
}
